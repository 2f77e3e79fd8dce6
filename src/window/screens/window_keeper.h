#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <optional>
#include <vector>

#include "window/screens/fitting.h"
#include "window/screens/program_size.h"
#include "window/screens/window_file.h"

class QWidget;

namespace marvolin {

/// Keeps the windows of the program whole on the screens, in the size that the player has chosen and where the player
/// has put them, also from one start to the next. It looks after main window, browser, Save/Open, Help and the window
/// of scripts.
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
    /// dialogue or list is open.
    void Choose(int percent);
    /// A form has been moved to where it comes up: it is taken to where the player left it, or else onto the screen,
    /// the browser beside `main` where there is room; the splash onto the middle of `main`. `main` may be null.
    void Arrange(QWidget& form, QWidget* main);
    /// Writes the file, if anything has changed. For the end of the program.
    void Keep();
    /// Brings the windows back after a change of the screens, smaller if they no longer fit. The desktop's changes come
    /// here by themselves.
    void ScreensChanged();

    std::function<void()> OnChange;  ///< the size, or which sizes fit, has changed

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    QSize Room() const;
    QRect FreeAreaFor(const QRect& frame) const;
    std::optional<QRect> Remembered(const QWidget& window) const;
    void PutBack(QWidget& window, const QRect& frame) const;
    void Note(const QWidget& window);
    void BringBack(QWidget& window) const;
    void ShowBeside(QWidget& browser, QWidget& main) const;
    void Settle();
    void Apply();
    void WatchScreens();

    const QString file_;
    const FormSizes forms_;
    const Surroundings around_;
    WindowRecord record_;
    WindowRecord written_;
    int size_ = 100;
    std::vector<QPointer<QWidget>> shown_;  // whose frames are not known yet
    QTimer settle_;                         // until they are
    int settles_ = 0;                       // times it has looked for them
    QTimer apply_;
    QTimer changed_;  // while the screens may change further
};

}  // namespace marvolin
