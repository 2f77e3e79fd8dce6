#pragma once

#include <QMessageBox>
#include <QPointer>
#include <QStringList>
#include <QTimer>

namespace marvolin {

/// The box that only reports. It never takes the focus and holds nothing up: the player goes on playing, and closes it
/// with its button, or with Escape, Return or Enter in whatever window of the program has the keyboard. A report that
/// comes while it is shown takes the place of the previous one, and a line says how many there have been. What is
/// reported in one go, before the event loop runs again, is shown together: each text once, the four newest at most.
///
/// It is placed away from the LoopTracks' rows of the main window, and stays in front of the window in which the player
/// works.
class ReportBox : public QMessageBox {
public:
    ReportBox();
    ~ReportBox() override;

    /// The main window, whose rows it keeps clear. Null when it is gone. Not owned.
    void Attach(QWidget* mainWindow);
    /// Shows a report, or adds it to those of the same go, in front of `owner`, null for no window. Not owned.
    void Show(const QString& text, const QString& title, Icon icon, QWidget* owner);
    /// How many reports have come since it was last closed.
    int Count() const { return count_; }

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    bool TakesKeys() const;
    bool KeyEvent(QEvent& event);
    QRect Rows() const;
    void LeaveRoomForTitle();
    void Place();

    QPointer<QWidget> main_;
    QPointer<QWidget> owner_;
    QPointer<QWidget> dialogue_;  // the dialogue that waited when the last report came
    int count_ = 0;
    QStringList texts_;  // what is shown
    QTimer go_;          // runs while reports still belong together
    int takenKey_ = 0;   // the key that closed the box and is still held; 0 none
};

/// The place of a box of the size `box`: the first of `wanted` whose box lies in `area` and clear of `rows`, or else
/// the bottom of `area`, in its middle. All in pixels of the screen.
QPoint PlaceClearOf(const QRect& rows, const QRect& area, QSize box, std::initializer_list<QPoint> wanted);

}  // namespace marvolin
