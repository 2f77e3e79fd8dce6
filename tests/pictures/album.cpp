#include "album.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QElapsedTimer>
#include <QThread>
#include <QTimer>
#include <stdexcept>

namespace marvolin::test {

namespace {

constexpr int kQuietLooks = 5;
constexpr int kMostLooks = 100;
constexpr int kBetweenLooks = 50;  // ms

void Settle() {
    for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
}

QImage PictureOf(QWidget& widget) { return widget.grab().toImage(); }

/// Watches a widget until it stays the same.
class Quiet {
public:
    /// One more look; true when it has been the same often enough.
    bool Look(QWidget& widget) {
        if (++looks_ > kMostLooks) throw std::runtime_error("a picture never comes to rest");
        const QImage now = PictureOf(widget);
        same_ = now == Last ? same_ + 1 : 0;
        Last = now;
        return same_ >= kQuietLooks;
    }
    QImage Last;

private:
    int looks_ = 0;
    int same_ = 0;
};

}  // namespace

void Album::Write(const QImage& picture, const std::string& name) {
    const std::string path = folder_ + "/" + name + suffix_ + ".png";
    if (picture.isNull() || !picture.save(QString::fromStdString(path))) {
        throw std::runtime_error("cannot write " + path);
    }
    if (!names_.insert(name).second) throw std::runtime_error("two pictures are called " + name);
}

void Album::Add(QWidget& widget, const std::string& name) {
    Settle();
    Write(PictureOf(widget), name);
}

void Album::AddWhenQuiet(QWidget& widget, const std::string& name) {
    Quiet quiet;
    while (!quiet.Look(widget)) {
        QThread::msleep(kBetweenLooks);
        Settle();
    }
    Write(quiet.Last, name);
}

void Album::AddLists(QWidget& form, const std::string& name) {
    for (auto* list : form.findChildren<QComboBox*>()) {
        const std::string picture = name + "-list-" + list->objectName().toStdString();
        if (!list->isVisible() || !list->isEnabled() || list->count() == 0 || Has(picture)) continue;
        list->showPopup();
        Add(*list->view()->window(), picture);
        list->hidePopup();
        Settle();
    }
}

void Album::AddFocused(QWidget& form, const std::string& name) {
    for (auto* control : form.findChildren<QWidget*>()) {
        const bool reachable = control->isVisible() && control->isEnabled() && control->focusPolicy() != Qt::NoFocus;
        const std::string picture = name + "-focus-" + control->objectName().toStdString();
        const bool named = !control->objectName().isEmpty() && !control->objectName().startsWith("qt_");
        if (!reachable || !named || Has(picture)) continue;
        control->setFocus(Qt::TabFocusReason);
        Add(*control, picture);
        control->clearFocus();
    }
    form.setFocus();
}

void Album::AddDialogue(const std::function<void()>& open, const std::string& name) {
    Quiet quiet;
    QTimer looks;
    bool done = false;
    looks.callOnTimeout([&] {
        auto* dialogue = dynamic_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialogue == nullptr || done || !quiet.Look(*dialogue)) return;
        done = true;
        Write(quiet.Last, name);
        dialogue->reject();
    });
    looks.start(kBetweenLooks);
    open();
    if (!done) throw std::runtime_error("no dialogue opened for " + name);
}

}  // namespace marvolin::test
