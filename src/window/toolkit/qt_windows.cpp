#include "window/toolkit/qt_windows.h"

#include <QApplication>
#include <QWindow>

#include "core/errors.h"
#include "scripting/script_room.h"
#include "window/editor/code_view_module.h"
#include "window/editor/frm_scripts.h"
#include "window/forms/frm_browse.h"
#include "window/forms/frm_save.h"
#include "window/forms/frm_splash.h"
#include "window/forms/frm_start_up_query.h"
#include "window/screens/size_choice.h"
#include "window/screens/window_keeper.h"
#include "window/tabs/tab_control.h"
#include "window/tabs/tab_options.h"
#include "window/toolkit/qt_desktop.h"
#include "window/toolkit/qt_display.h"

namespace marvolin {

namespace {

int Pixels(double twips) { return static_cast<int>(twips / kTwipsPerPixel); }

}  // namespace

QtWindows::QtWindows(QtDisplay& display, QtDesktop& desktop) : display_(display), desktop_(desktop) {}

QtWindows::~QtWindows() { DropForms(); }

void QtWindows::DropForms() {
    display_.Attach(static_cast<FrmMain*>(nullptr));
    display_.Attach(static_cast<FrmBrowse*>(nullptr));
    display_.Attach(static_cast<FrmSave*>(nullptr));
    desktop_.Attach(nullptr);
    unloaded_.clear();
    if (room_ != nullptr) room_->OnChange = nullptr;
    scripts_.reset();
    query_.reset();
    save_.reset();
    browse_.reset();
    splash_.reset();
    main_.reset();
}

void QtWindows::Attach(Session& session, FrmMain::Events events) {
    session_ = &session;
    events_ = std::move(events);
}

QWidget* QtWindows::WidgetOf(Form form) const {
    switch (form) {
        case Form::Main:
            return main_.get();
        case Form::Browse:
            return browse_.get();
        case Form::Save:
            return save_.get();
        case Form::Splash:
            return splash_.get();
        case Form::StartUpQuery:
            return query_.get();
    }
    return nullptr;
}

void QtWindows::AttachScripts(ScriptRoom& room) {
    room_ = &room;
    room.OnChange = [this] { ShowScript(); };
}

void QtWindows::OpenScripts() {
    if (!scripts_) {
        std::string error;
        CodeViewMaker* maker = LoadCodeView(desktop_.InstalledFolder(), error);
        if (maker == nullptr) {
            return session_->World.Desk.Report(
                "The window of scripts cannot be opened. It needs the package "
                "libqscintilla2-qt6-15.\n" +
                error);
        }
        scripts_ = std::make_unique<FrmScripts>(*session_, *room_, *maker);
    }
    scripts_->Open();
}

void QtWindows::ShowScript() {
    if (main_) main_->RefreshScript();
    if (scripts_) scripts_->RefreshSoon();
}

void QtWindows::LoadMain() {
    FrmMain::Events events = events_;
    events.MayClose = [this] { return !scripts_ || scripts_->Document->MayLose(); };
    if (room_ != nullptr) {
        events.OpenScripts = [this] { OpenScripts(); };
        events.Script = [this] { return room_->Name(); };
    }
    events.StateChanged = [this](Qt::WindowState state) {
        if (browse_) browse_->setWindowState(state);
    };
    events.Unload = [this] {
        ended_ = true;
        if (scripts_) scripts_->hide();
        if (events_.Unload) events_.Unload();
        // Not quit(), which any window can refuse: the program would go on running without a window.
        QCoreApplication::exit();
    };
    main_ = std::make_unique<FrmMain>(*session_, std::move(events));
    if (keeper_ != nullptr) main_->Tabs->Options->Size->Attach(*keeper_);
    display_.Attach(main_.get());
    desktop_.Attach(main_.get());
}

void QtWindows::Load(Form form) {
    loaded_.insert(form);
    if (form == Form::Main && !main_) LoadMain();
    if (form == Form::Splash && !splash_) splash_ = std::make_unique<FrmSplash>();
    if (form == Form::StartUpQuery && !query_) query_ = std::make_unique<FrmStartUpQuery>(*session_);
    if (form == Form::Browse && !browse_) {
        browse_ = std::make_unique<FrmBrowse>(*session_);
        display_.Attach(browse_.get());
    }
    if (form == Form::Save && !save_) {
        save_ = std::make_unique<FrmSave>(*session_);
        if (keeper_ != nullptr) {
            save_->Unfold(keeper_->Unfolded());
            save_->OnFold = [this](bool unfolded) { keeper_->SetUnfolded(unfolded); };
        }
        display_.Attach(save_.get());
    }
}

void QtWindows::Show(Form form) {
    Load(form);
    if (form == Form::Save) return save_->Open();
    QWidget* widget = WidgetOf(form);
    if (widget == nullptr) return;
    // These two stay in front of the main window.
    if ((form == Form::Splash || form == Form::StartUpQuery) && main_ && main_->windowHandle() != nullptr) {
        widget->winId();
        widget->windowHandle()->setTransientParent(main_->windowHandle());
    }
    widget->show();
}

void QtWindows::Hide(Form form) {
    if (QWidget* widget = WidgetOf(form)) widget->hide();
}

void QtWindows::Unload(Form form) {
    if (loaded_.erase(form) == 0) throw NoObjectError();
    if (form == Form::Splash) Retire(std::move(splash_));
    if (form == Form::StartUpQuery && query_) {
        query_->hide();
        query_.release()->deleteLater();  // one of its buttons may be handling a click
    }
    if (form == Form::Save && save_) {
        display_.Attach(static_cast<FrmSave*>(nullptr));
        Retire(std::move(save_));
    }
    if (form == Form::Browse && browse_) {
        browse_->close();
        display_.Attach(static_cast<FrmBrowse*>(nullptr));
        Retire(std::move(browse_));
    }
    if (form == Form::Main && main_) main_->close();
}

void QtWindows::Retire(std::unique_ptr<QWidget> form) {
    if (!form) return;
    form->hide();
    unloaded_.push_back(std::move(form));
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
    QWidget* widget = WidgetOf(form);
    if (widget == nullptr) return;
    widget->move(Pixels(left), Pixels(top));
    if (keeper_ != nullptr) keeper_->Arrange(*widget, main_.get());
}

void QtWindows::AllowBrowserToClose() {
    if (browse_) browse_->AllowClose();
}

void QtWindows::EnablePadBalls(bool enabled) {
    if (main_) main_->EnableBalls(enabled);
}

}  // namespace marvolin
