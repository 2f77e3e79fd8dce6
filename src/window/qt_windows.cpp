#include "window/qt_windows.h"

#include <QApplication>

#include "core/errors.h"
#include "window/frm_splash.h"
#include "window/qt_desktop.h"
#include "window/qt_display.h"

namespace marvolin {

namespace {

constexpr std::uint32_t kNoObject = 91;

int Pixels(double twips) { return static_cast<int>(twips / kTwipsPerPixel); }

}  // namespace

QtWindows::QtWindows(QtDisplay& display, QtDesktop& desktop) : display_(display), desktop_(desktop) {}

QtWindows::~QtWindows() {
    display_.Attach(nullptr);
    desktop_.Attach(nullptr);
}

void QtWindows::Attach(Session& session, FrmMain::Events events) {
    session_ = &session;
    events_ = std::move(events);
}

QWidget* QtWindows::WidgetOf(Form form) const {
    switch (form) {
        case Form::Main:
            return main_.get();
        case Form::Splash:
            return splash_.get();
        default:
            return nullptr;
    }
}

void QtWindows::Load(Form form) {
    loaded_.insert(form);
    if (form == Form::Main && !main_) {
        FrmMain::Events events = events_;
        events.Unload = [this] {
            ended_ = true;
            if (events_.Unload) events_.Unload();
            QCoreApplication::quit();
        };
        main_ = std::make_unique<FrmMain>(*session_, std::move(events));
        display_.Attach(main_.get());
        desktop_.Attach(main_.get());
    }
    if (form == Form::Splash && !splash_) splash_ = std::make_unique<FrmSplash>();
}

void QtWindows::Show(Form form) {
    Load(form);
    if (QWidget* widget = WidgetOf(form)) widget->show();
}

void QtWindows::Hide(Form form) {
    if (QWidget* widget = WidgetOf(form)) widget->hide();
}

void QtWindows::Unload(Form form) {
    if (loaded_.erase(form) == 0) throw RuntimeError(kNoObject, "Object variable or With block variable not set");
    if (form == Form::Splash) splash_.reset();
    if (form == Form::Main && main_) main_->close();
}

void QtWindows::BringToFront(Form form) {
    if (QWidget* widget = WidgetOf(form)) {
        widget->raise();
        widget->activateWindow();
    }
}

TwipRect QtWindows::Place(Form form) {
    const QWidget* widget = WidgetOf(form);
    if (widget == nullptr) return {};
    const QRect frame = widget->frameGeometry();
    return {frame.left() * kTwipsPerPixel, frame.top() * kTwipsPerPixel, frame.width() * kTwipsPerPixel,
            frame.height() * kTwipsPerPixel};
}

void QtWindows::Move(Form form, double left, double top) {
    if (QWidget* widget = WidgetOf(form)) widget->move(Pixels(left), Pixels(top));
}

void QtWindows::AllowBrowserToClose() {}
void QtWindows::EnablePadBalls(bool) {}

}  // namespace marvolin
