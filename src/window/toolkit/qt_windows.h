#pragma once

#include <functional>
#include <memory>
#include <set>
#include <vector>

#include "core/windows.h"
#include "window/forms/frm_main.h"

namespace marvolin {

class FrmBrowse;
class FrmSave;
class FrmSplash;
class FrmStartUpQuery;
class FrmScripts;
class QtDesktop;
class QtDisplay;
class ScriptRoom;
class WindowKeeper;

/// The forms, by the toolkit. Each is made when it is first loaded or shown.
class QtWindows : public Windows {
public:
    QtWindows(QtDisplay& display, QtDesktop& desktop);
    ~QtWindows() override;

    /// Sets the session that the forms show, and what the events of the main window run.
    void Attach(Session& session, FrmMain::Events events);
    /// Lets `keeper` arrange the forms and the player choose their size. For the start, before the main window is made.
    /// `keeper` must outlive the forms.
    void Attach(WindowKeeper& keeper) { keeper_ = &keeper; }
    /// Lets the button `Scripts` open a window in which the scripts of `room` are written. For the start, before the
    /// main window is made. `room` must outlive the forms.
    void AttachScripts(ScriptRoom& room);
    /// True once the main window has been closed for good.
    bool Ended() const { return ended_; }
    FrmMain* Main() const { return main_.get(); }
    /// The window of scripts; null until it is first opened.
    FrmScripts* Scripts() const { return scripts_.get(); }
    /// Deletes all forms. For the end of the program, before the session that they show goes.
    void DropForms();

    void Load(Form form) override;
    void Show(Form form) override;
    void Hide(Form form) override;
    void Unload(Form form) override;
    void BringToFront(Form form) override;
    TwipRect Place(Form form) override;
    void Move(Form form, double left, double top) override;
    void AllowBrowserToClose() override;
    void EnablePadBalls(bool enabled) override;

private:
    QWidget* WidgetOf(Form form) const;
    void Retire(std::unique_ptr<QWidget> form);
    void LoadMain();
    void OpenScripts();
    void ShowScript();

    QtDisplay& display_;
    QtDesktop& desktop_;
    Session* session_ = nullptr;
    FrmMain::Events events_;
    std::unique_ptr<FrmMain> main_;
    std::unique_ptr<FrmSplash> splash_;
    std::unique_ptr<FrmBrowse> browse_;
    std::unique_ptr<FrmSave> save_;
    std::unique_ptr<FrmStartUpQuery> query_;
    std::unique_ptr<FrmScripts> scripts_;
    ScriptRoom* room_ = nullptr;
    WindowKeeper* keeper_ = nullptr;
    /// Unloaded forms. A drag from one may still be running, so they are deleted with this object.
    std::vector<std::unique_ptr<QWidget>> unloaded_;
    std::set<Form> loaded_{Form::Main, Form::Browse, Form::Save, Form::Splash};
    bool ended_ = false;
};

}  // namespace marvolin
