// Paints what the first panel of the status line looks like with a text: paint_status TEXT FILE.png. Run on the display
// of the program, it paints letter for letter as the program does.

#include <QApplication>

#include "fakes/fake_services.h"
#include "window/forms/status_bars.h"
#include "window/toolkit/qt_display.h"
#include "window/toolkit/theme.h"

using namespace marvolin;

int main(int argc, char** argv) {
    if (argc != 3) return 1;
    QApplication application(argc, argv);
    theme::Apply(application);
    QtDisplay display;
    test::FakeServices world;
    Session session{world.For(display)};
    session.StatusText = argv[1];
    StatusBar1 bar(session, nullptr);
    bar.resize(1040, StatusBar1::kHeight);
    return bar.grab(bar.PlaceOf(StatusBar1::Panel::Hint)).save(argv[2]) ? 0 : 1;
}
