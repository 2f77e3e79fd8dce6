#pragma once
/// \file
/// The main window over a session on fakes, operated by real events.

#include <QMimeData>
#include <QPointF>
#include <QRegion>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "core/session.h"
#include "fakes/fake_services.h"
#include "window/forms/frm_main.h"
#include "window/toolkit/drag_source.h"
#include "window/toolkit/qt_display.h"

namespace marvolin::test {

class Stage : public FakeServices {
public:
    Stage();
    ~Stage();

    /// The control with this object name; fails the test when there is none.
    QWidget* At(const char* name);
    /// A place in the control as a place in the window.
    QPoint InWindow(const char* name, QPointF place);
    QPointF Middle(const char* name);

    void Press(const char* name, QPointF place, Qt::MouseButton button = Qt::LeftButton);
    void Move(const char* name, QPointF place);
    void Release(const char* name, QPointF place, Qt::MouseButton button = Qt::LeftButton);
    void Click(const char* name, QPointF place, Qt::MouseButton button = Qt::LeftButton);
    void Click(const char* name, Qt::MouseButton button = Qt::LeftButton) { Click(name, Middle(name), button); }
    void DoubleClick(const char* name);
    /// Presses in the middle, moves by `way` pixels and releases there.
    void Drag(const char* name, QPointF way, Qt::MouseButton button = Qt::LeftButton);
    /// Turns the wheel over the control, `pause` milliseconds after the last time.
    void Wheel(const char* name, int notches, quint64 pause = 1000);

    /// Drops a control, or files, on the control with this name. False, and no drop, when the pointer promises none.
    bool DropControl(const char* name, const DragSource& source);
    bool DropFiles(const char* name, const std::vector<std::string>& paths);

    /// Puts a sample into a row: one second, 44100 Hz, 16 bit, stereo.
    FakeSound::Buffer& Fill(Row row);
    /// Handles all events, paint events included.
    void Settle();

    QtDisplay Screen;
    Session s{For(Screen)};
    std::vector<std::string> Keys;  ///< letters released, with "+shift", "+control", "+alt"
    int Activations = 0;
    int Unloads = 0;
    bool SoundGone = false;  ///< the answer when the window asks whether the device is gone
    std::unique_ptr<FrmMain> Form;

private:
    quint64 time_ = 0;  // of the last turn of the wheel, ms
    bool DropData(const char* name, std::unique_ptr<QMimeData> data);
};

/// Records the regions that are painted while it lives, by object name.
class PaintWatch : public QObject {
public:
    PaintWatch();
    ~PaintWatch() override;
    std::map<std::string, QRegion> Painted;
    /// Names of the painted controls, without those of plain surfaces.
    std::vector<std::string> Names() const;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
};

}  // namespace marvolin::test
