#include "window/toolkit/qt_desktop.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QMessageBox>
#include <QScreen>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <cstdlib>

#include "core/errors.h"
#include "core/files/paths.h"
#include "core/help.h"
#include "core/types.h"
#include "window/descriptions/described.h"
#include "window/help/help_viewer.h"
#include "window/popups/report_box.h"
#include "window/surfaces/surface.h"
#include "window/toolkit/theme.h"

namespace marvolin {

namespace {

QMessageBox::Icon BoxIcon(BoxStyle style) {
    switch (style) {
        case BoxStyle::Critical:
            return QMessageBox::Critical;
        case BoxStyle::Question:
            return QMessageBox::Question;
        case BoxStyle::Plain:
            break;
    }
    return QMessageBox::NoIcon;
}

QString TitleOf(const std::string& title) {
    return title.empty() ? QString("marvolin") : QString::fromStdString(title);
}

/// What the desktop gave this start so that its window may take the focus.
QByteArray FocusToken() {
    const QByteArray token = qgetenv("XDG_ACTIVATION_TOKEN");
    return token.isEmpty() ? qgetenv("DESKTOP_STARTUP_ID") : token;
}

}  // namespace

QtDesktop::QtDesktop() = default;
QtDesktop::~QtDesktop() { ReleaseCursor(); }

void QtDesktop::Attach(QWidget* mainWindow) {
    mainWindow_ = mainWindow;
    pad_.clear();
    map_.clear();
    if (report_) report_->Attach(mainWindow);
}

// A box whose parent is the main window would raise it above the window in which the player works, and leave it there.
// Only windows that stay are taken, since a box is deleted with its parent.
QWidget* QtDesktop::BoxParent() const {
    if (QWidget* dialogue = QApplication::activeModalWidget()) return dialogue;
    QWidget* active = QApplication::activeWindow();
    const auto isActive = [active](const char* form) { return active != nullptr && active->objectName() == form; };
    if (isActive("frmSave") || isActive("frmBrowse") || isActive("frmScripts")) return active;
    return mainWindow_ != nullptr && mainWindow_->isVisible() ? mainWindow_ : nullptr;
}

bool QtDesktop::MessageBox(const std::string& text, const std::string& title, BoxStyle style) {
    QMessageBox box(BoxParent());
    Describe(box, "MessageBox");
    box.setWindowTitle(TitleOf(title));
    box.setTextFormat(Qt::PlainText);
    box.setText(QString::fromStdString(text));
    box.setIcon(BoxIcon(style));
    box.setStandardButtons(style == BoxStyle::Question ? QMessageBox::Ok | QMessageBox::Cancel : QMessageBox::Ok);
    Describe(*box.button(QMessageBox::Ok), "BoxOk");
    if (QAbstractButton* cancel = box.button(QMessageBox::Cancel)) Describe(*cancel, "BoxCancel");
    // While a box waits for an answer nothing is loading: the pointer is not the busy one.
    const bool busy = busy_;
    SetBusyPointer(false);
    const bool ok = box.exec() == QMessageBox::Ok;
    SetBusyPointer(busy);
    return ok;
}

void QtDesktop::Report(const std::string& text, const std::string& title, BoxStyle style) {
    // The program ends: nothing would be left of a box that does not wait.
    if (mainWindow_ != nullptr && mainWindow_->windowHandle() != nullptr && !mainWindow_->isVisible()) {
        MessageBox(text, title, style);
        return;
    }
    if (!report_) {
        report_ = std::make_unique<ReportBox>();
        report_->Attach(mainWindow_);
    }
    report_->Show(QString::fromStdString(text), TitleOf(title), BoxIcon(style), BoxParent());
}

void QtDesktop::SetBusyPointer(bool busy) {
    if (busy == busy_) return;
    busy_ = busy;
    if (busy) {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QGuiApplication::restoreOverrideCursor();
    }
}

std::int32_t QtDesktop::BitsPerPixel() { return QGuiApplication::primaryScreen()->depth(); }

PixelRect QtDesktop::WorkArea() {
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    return {area.left(), area.top(), area.left() + area.width(), area.top() + area.height()};
}

double QtDesktop::TwipsPerPixelX() { return kTwipsPerPixel; }
double QtDesktop::TwipsPerPixelY() { return kTwipsPerPixel; }

std::int32_t QtDesktop::TextWidth(const std::string& text) {
    if (!measure_) measure_.emplace(theme::Sans(13));
    return static_cast<std::int32_t>(measure_->horizontalAdvance(QString::fromStdString(text)) * kTwipsPerPixel);
}

PixelPoint QtDesktop::SurfaceOrigin(Surface surface) {
    QPointer<BallSurface>& field = surface == Surface::Pad ? pad_ : map_;
    if (field == nullptr && mainWindow_ != nullptr) {
        field = dynamic_cast<BallSurface*>(mainWindow_->findChild<QWidget*>(surface == Surface::Pad ? "Pad" : "Map"));
    }
    if (field == nullptr) return {};
    const QPoint origin = field->Origin();
    return {origin.x(), origin.y()};
}

PixelPoint QtDesktop::CursorPos() {
    const QPoint place = QCursor::pos();
    return {place.x(), place.y()};
}

void QtDesktop::SetCursorPos(PixelPoint point) { QCursor::setPos(point.X, point.Y); }

void QtDesktop::ClipCursor(const PixelRect& rect) {
    if (!cage_) qApp->installEventFilter(this);
    cage_ = rect;
}

void QtDesktop::ReleaseCursor() {
    if (cage_ && qApp != nullptr) qApp->removeEventFilter(this);
    cage_.reset();
}

bool QtDesktop::eventFilter(QObject*, QEvent* event) {
    if (event->type() != QEvent::MouseMove || !cage_) return false;
    const QPoint place = QCursor::pos();
    const QPoint inside(qBound(cage_->Left, place.x(), cage_->Right - 1),
                        qBound(cage_->Top, place.y(), cage_->Bottom - 1));
    if (inside != place) QCursor::setPos(inside);
    return false;
}

std::string QtDesktop::TempFileName(const std::string& prefix) {
    // The path is empty when the folder does not exist; an empty path would mean the current folder.
    const QString folder = QDir::tempPath();
    if (folder.isEmpty()) return "";
    QTemporaryFile file(QDir(folder).filePath(QString::fromStdString(prefix) + "XXXXXX.tmp"));
    file.setAutoRemove(false);
    return file.open() ? QDir::toNativeSeparators(file.fileName()).toStdString() : "";
}

std::string QtDesktop::ProgramFolder() { return folder_.empty() ? InstalledFolder() : folder_; }

std::string QtDesktop::InstalledFolder() const { return QCoreApplication::applicationDirPath().toStdString(); }

bool QtDesktop::ClaimInstance() {
    QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (folder.isEmpty()) folder = QDir::tempPath();
    const QString socket = QDir(folder).filePath("marvolin.front");
    instance_ = std::make_unique<QLockFile>(QDir(folder).filePath("marvolin.lock"));
    // The lock of a process that has died is void at once, that of a living one never.
    instance_->setStaleLockTime(0);
    if (instance_->tryLock(0)) {
        frontCall_ = std::make_unique<FrontCall>(socket, [this](const QByteArray& token) { ComeToFront(token); });
        return true;
    }
    // A lock that cannot be made says nothing about another instance.
    if (instance_->error() != QLockFile::LockFailedError) return true;
    FrontCall::Send(socket, FocusToken());
    return false;
}

void QtDesktop::ComeToFront(const QByteArray& token) {
    if (mainWindow_ == nullptr || !mainWindow_->isVisible()) return;
    // The toolkit takes the right to the focus from here.
    if (!token.isEmpty()) qputenv("XDG_ACTIVATION_TOKEN", token);
    mainWindow_->setWindowState((mainWindow_->windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
    mainWindow_->show();
    mainWindow_->raise();
    mainWindow_->activateWindow();
}

void QtDesktop::ShowHelpTopic(std::int32_t topic) {
    if (!help_) help_ = std::make_unique<HelpViewer>();
    help_->Open(JoinPath(InstalledFolder(), std::string(kHelpFile)), topic, mainWindow_);
}

void QtDesktop::CloseWindowTitled(const std::string& title) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->windowTitle().toStdString() == title) window->close();
    }
}

void QtDesktop::UnloadMainWindow() {
    if (mainWindow_ != nullptr) mainWindow_->close();
}

void QtDesktop::EndProgram() { std::_Exit(EXIT_FAILURE); }

}  // namespace marvolin
