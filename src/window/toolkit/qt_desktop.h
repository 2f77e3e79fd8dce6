#pragma once

#include <QFontMetricsF>
#include <QLockFile>
#include <QObject>
#include <QPointer>
#include <memory>
#include <optional>

#include "core/desktop.h"
#include "window/toolkit/front_call.h"

class QWidget;

namespace marvolin {

class BallSurface;
class HelpViewer;
class ReportBox;

/// The desktop, by the toolkit.
class QtDesktop : public QObject, public Desktop {
public:
    QtDesktop();
    ~QtDesktop() override;

    /// The main window, the parent of message boxes unless a dialogue, Save/Open or the browser is active. Null when
    /// it is gone. Not owned.
    void Attach(QWidget* mainWindow);

    using Desktop::MessageBox;
    bool MessageBox(const std::string& text, const std::string& title, BoxStyle style) override;
    using Desktop::Report;
    /// After the main window has been hidden for good, the report waits for its answer like any other box.
    void Report(const std::string& text, const std::string& title, BoxStyle style) override;
    void SetBusyPointer(bool busy) override;
    std::int32_t BitsPerPixel() override;
    PixelRect WorkArea() override;
    double TwipsPerPixelX() override;
    double TwipsPerPixelY() override;
    std::int32_t TextWidth(const std::string& text) override;
    PixelPoint SurfaceOrigin(Surface surface) override;
    PixelPoint CursorPos() override;
    void SetCursorPos(PixelPoint point) override;
    /// Keeps the pointer inside by moving it back after each of its moves, where the system allows that.
    void ClipCursor(const PixelRect& rect) override;
    void ReleaseCursor() override;
    std::string TempFileName(const std::string& prefix) override;
    /// The folder of the executable, until `UseFolder`.
    std::string ProgramFolder() override;
    /// The folder of the executable, where Help and the modules lie, without a separator at its end.
    virtual std::string InstalledFolder() const;
    /// Everything else that belongs to the program's folder is in this one from now on. For the start.
    void UseFolder(const std::string& folder) { folder_ = folder; }
    /// The first instance comes to the front when a later one asks for the claim and does not get it.
    bool ClaimInstance() override;
    void ShowHelpTopic(std::int32_t topic) override;
    void CloseWindowTitled(const std::string& title) override;
    void UnloadMainWindow() override;
    void EndProgram() override;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    QWidget* BoxParent() const;
    void ComeToFront(const QByteArray& token);

    QWidget* mainWindow_ = nullptr;
    QPointer<BallSurface> pad_;  // looked up once: each move of a ball asks where its surface is
    QPointer<BallSurface> map_;
    std::string folder_;  // "" for that of the executable
    bool busy_ = false;
    std::optional<PixelRect> cage_;
    std::optional<QFontMetricsF> measure_;  // of the main window's font; made once
    std::unique_ptr<QLockFile> instance_;
    std::unique_ptr<FrontCall> frontCall_;  // only in the first instance
    std::unique_ptr<ReportBox> report_;     // made for the first report
    std::unique_ptr<HelpViewer> help_;      // made when help is asked for first
};

}  // namespace marvolin
