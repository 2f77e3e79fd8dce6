#include "stage.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDropEvent>
#include <QPaintEvent>
#include <QUrl>
#include <QWheelEvent>
#include <QWindow>
#include <QtTest/QTest>

namespace marvolin::test {

Stage::Stage() {
    Desk.WherePointerIs = [] { return PixelPoint{QCursor::pos().x(), QCursor::pos().y()}; };
    s.DX = std::make_unique<FakeDirectX>(Sound);
    s.DS = s.DX->DirectSoundCreate("guid1");
    s.DSEnum = s.DX->GetDSEnum();
    s.DSReady = true;
    s.OpenDriver = 0;
    s.GangReady = true;
    s.Drivers = {"Primary Sound Driver", "Second Device", "No Sound"};
    s.Driver = 0;
    Form = std::make_unique<FrmMain>(
        s, FrmMain::Events{[this] { ++Activations; }, [this] { ++Unloads; },
                           [this](char letter, bool shift, bool control, bool alt) {
                               Keys.push_back(std::string(1, letter) + (shift ? "+shift" : "") +
                                              (control ? "+control" : "") + (alt ? "+alt" : ""));
                           },
                           nullptr, [this] { return SoundGone; },
                           [] {
                               return SoundTiming{128, 9.796};
                           }});
    Screen.Attach(Form.get());
    Form->show();
    Settle();
    // The pointer starts where it is over no control.
    QTest::mouseMove(Form->windowHandle(), QPoint(4, Form->height() - 4));
    Settle();
    Sound.Log.clear();
}

Stage::~Stage() { Screen.Attach(static_cast<FrmMain*>(nullptr)); }

QWidget* Stage::At(const char* name) {
    auto* widget = Form->findChild<QWidget*>(name);
    EXPECT_NE(widget, nullptr) << name;
    return widget;
}

QPoint Stage::InWindow(const char* name, QPointF place) { return At(name)->mapTo(Form.get(), place.toPoint()); }
QPointF Stage::Middle(const char* name) { return QRectF(At(name)->rect()).center(); }

void Stage::Press(const char* name, QPointF place, Qt::MouseButton button) {
    QTest::mousePress(Form->windowHandle(), button, {}, InWindow(name, place));
}

void Stage::Move(const char* name, QPointF place) { QTest::mouseMove(Form->windowHandle(), InWindow(name, place)); }

void Stage::Release(const char* name, QPointF place, Qt::MouseButton button) {
    QTest::mouseRelease(Form->windowHandle(), button, {}, InWindow(name, place));
}

void Stage::Click(const char* name, QPointF place, Qt::MouseButton button) {
    Press(name, place, button);
    Release(name, place, button);
}

void Stage::DoubleClick(const char* name) {
    QTest::mouseDClick(Form->windowHandle(), Qt::LeftButton, {}, InWindow(name, Middle(name)));
}

void Stage::Drag(const char* name, QPointF way, Qt::MouseButton button) {
    const QPointF start = Middle(name);
    Press(name, start, button);
    Move(name, start + way);
    Release(name, start + way, button);
}

void Stage::Wheel(const char* name, int notches, quint64 pause) {
    const QPointF place = Middle(name);
    QWheelEvent event(place, At(name)->mapToGlobal(place), {}, QPoint(0, notches * 120), QApplication::mouseButtons(),
                      {}, Qt::NoScrollPhase, false);
    time_ += pause;
    event.setTimestamp(time_);
    QApplication::sendEvent(At(name), &event);
}

bool Stage::DropData(const char* name, std::unique_ptr<QMimeData> data) {
    const QPointF place = Middle(name);
    QDragEnterEvent enter(place.toPoint(), Qt::CopyAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(At(name), &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop(place, Qt::CopyAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(At(name), &drop);
    return true;
}

bool Stage::DropControl(const char* name, const DragSource& source) { return DropData(name, ToMimeData(source)); }

bool Stage::DropFiles(const char* name, const std::vector<std::string>& paths) {
    auto data = std::make_unique<QMimeData>();
    QList<QUrl> urls;
    for (const std::string& path : paths) urls.append(QUrl::fromLocalFile(QString::fromStdString(path)));
    data->setUrls(urls);
    return DropData(name, std::move(data));
}

FakeSound::Buffer& Stage::Fill(Row row) {
    auto buffer = s.DS->CreateSoundBufferFromFile("/samples/one.WAV", buffer_flags::kSample);
    LoopTrackSet& set = s.Set[row];
    set.FileName = "/samples/one.WAV";
    set.SampleRate = 44100;
    set.BufferBytes = 176400;
    set.AvgBytesPerSec = 176400;
    set.Length = 1;
    s.Run[row].Buffer = std::move(buffer);
    s.Run[row].Loaded = True;
    Screen.ShowCaption(row);
    Screen.ShowWaveform(row);
    Settle();
    Sound.Log.clear();
    return dynamic_cast<FakeSound::Buffer&>(*s.Run[row].Buffer);
}

void Stage::Settle() { QCoreApplication::processEvents(); }

PaintWatch::PaintWatch() { qApp->installEventFilter(this); }
PaintWatch::~PaintWatch() { qApp->removeEventFilter(this); }

bool PaintWatch::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::Paint) {
        Painted[object->objectName().toStdString()] += static_cast<QPaintEvent*>(event)->region();
    }
    return false;
}

std::vector<std::string> PaintWatch::Names() const {
    std::vector<std::string> names;
    for (const auto& [name, region] : Painted) {
        const bool surface = name.empty() || name == "frmMain" || name.starts_with("LoopRow") || name == "Toolbar" ||
                             name == "SelectorStrip" || name == "TabControl" || name.ends_with("Page") ||
                             name == "Patterns" || name == "AllTiming" || name == "frmMainWindow";
        if (!surface) names.push_back(name);
    }
    return names;
}

}  // namespace marvolin::test
