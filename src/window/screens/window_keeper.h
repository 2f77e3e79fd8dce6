#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <map>
#include <optional>
#include <vector>

#include "window/screens/fitting.h"
#include "window/screens/program_size.h"
#include "window/screens/screen_watch.h"
#include "window/screens/window_file.h"

class QWidget;

namespace marvolin {

/// Keeps the windows of the program whole on the screens, in the size that the player has chosen and where the player
/// has put them, also from one start to the next. It looks after main window, browser, Save/Open, Help and the window
/// of scripts. Without a chosen size it is the largest that fits on the screen of the main window.
class WindowKeeper : public QObject {
public:
    /// What it asks the desktop.
    struct Surroundings {
        std::function<std::vector<ScreenArea>()> Screens;  ///< the one of the desktop first; never empty
        std::function<bool(double factor)> Scale;          ///< as `ScaleToolkit`
        bool CanScale = true;
    };
    /// The real desktop.
    static Surroundings OfTheDesktop();

    /// `file` is the only one that is written.
    WindowKeeper(QString file, const FormSizes& forms, Surroundings around);
    ~WindowKeeper() override;

    /// Sets the size that was chosen, or at a first start the largest that fits. For the start, before any window is
    /// made.
    void Start();
    /// The size in which windows are drawn, percent.
    int Size() const { return size_; }
    bool CanChange() const { return around_.CanScale; }
    /// Whether the main window would be whole on its screen.
    bool Fits(int percent) const;
    /// Takes a size of `kProgramSizes`. All windows are drawn anew once the event that is under way has ended, and no
    /// dialogue or list is open and no button of the mouse is down.
    void Choose(int percent);
    /// Whether a chosen size still waits for that.
    bool Waits() const { return apply_.isActive(); }
    /// A form has been moved to where it comes up: it is taken to where the player left it, or else onto the screen,
    /// the browser beside `main` where there is room; the splash onto the middle of `main`. `main` may be null.
    void Arrange(QWidget& form, QWidget* main);
    /// Whether the elements of Save/Open are unfolded, from one start to the next.
    bool Unfolded() const { return record_.Elements; }
    void SetUnfolded(bool unfolded) { record_.Elements = unfolded; }
    /// Whether the player wears headphones, as the last start has left it.
    bool Headphones() const { return record_.Headphones; }
    void SetHeadphones(bool on) { record_.Headphones = on; }
    /// Writes the file, if anything has changed. For the end of the program.
    void Keep();
    /// Brings the windows back after a change of the screens, smaller if they no longer fit. The desktop's changes come
    /// here by themselves.
    void ScreensChanged();

    std::function<void()> OnChange;     ///< the size, or which sizes fit, has changed
    std::function<void()> OnUnwritten;  ///< the file cannot be written; runs once

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    QSize Room() const;
    int WantedSize() const;
    QRect FreeAreaFor(const QRect& frame) const;
    std::optional<QRect> Remembered(const QWidget& window) const;
    WindowPlace PlaceOf(const QWidget& window) const;
    void ArrangeForm(QWidget& form, QWidget* main);
    void PutBack(QWidget& window, const QRect& frame);
    void Give(const QWidget& window);
    void Note(const QWidget& window);
    void BringBack(QWidget& window);
    void BringBackGrown(QWidget& window);
    void Clear(QWidget& window);
    void MainMoved(const QWidget& main);
    void Shown(QWidget& window);
    void Hidden(QWidget& window);
    void ShowBeside(QWidget& browser, QWidget& main) const;
    void Settle();
    void Apply();

    const QString file_;
    const FormSizes forms_;
    const Surroundings around_;
    WindowRecord record_;
    WindowRecord written_;
    std::map<QString, WindowPlace> given_;     // where the program has put them; pixels of the window
    std::map<QString, WindowPlace> reopened_;  // of those that a change of the size closes and opens again
    std::optional<QPoint> mainScreen_;         // where the main window's screen begins
    bool moved_ = false;                       // it has come to another one, and may be moved further
    bool told_ = false;                        // that the file cannot be written
    int size_ = 100;
    std::vector<QPointer<QWidget>> shown_;  // whose frames are not known yet
    QTimer settle_{this};                   // until they are
    int settles_ = 0;                       // times it has looked for them
    QTimer apply_{this};
    const ScreenWatch screensWatch_;
};

}  // namespace marvolin
