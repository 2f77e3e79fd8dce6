#include "window/editor/script_document.h"

#include <QDir>

#include "core/errors.h"
#include "core/files/paths.h"
#include "scripting/api/api_page.h"
#include "scripting/script_file.h"
#include "window/editor/script_questions.h"

namespace marvolin {

namespace {

constexpr const char* kUntitled = "untitled.mvs";

}  // namespace

ScriptDocument::ScriptDocument(Session& session, QWidget& window, CodeView& view, Events events)
    : s(session), window_(window), view_(view), events_(std::move(events)), name_(kUntitled) {}

void ScriptDocument::Begin(const std::string& text, const std::string& name, const std::string& path) {
    view_.SetText(text);
    name_ = name;
    path_ = path;
    events_.Changed();
}

void ScriptDocument::New() {
    if (MayLose()) Begin("", kUntitled, "");
}

void ScriptDocument::BeginExample(int number) {
    const std::string file(kScriptExamples.at(static_cast<std::size_t>(number)).File);
    try {
        const std::string path = JoinPath(s.World.Desk.ProgramFolder(), "Scripts/" + file);
        if (const std::optional<std::string> text = Read(path)) Begin(*text, file, "");
    } catch (const RuntimeError& error) {
        s.World.Desk.Report("The example " + file + " cannot be opened: " + error.what());
    }
}

// Read once more after the question: the answer may have saved to this very file.
std::optional<std::string> ScriptDocument::Read(const std::string& path) {
    std::string text = ReadScript(path);
    if (!view_.IsModified()) return text;
    if (!MayLose()) return std::nullopt;
    return ReadScript(path);
}

std::string ScriptDocument::Folder() const {
    if (!folder_.empty()) return folder_;
    return s.CurrentFolder.empty() ? QDir::homePath().toStdString() : s.CurrentFolder;
}

void ScriptDocument::AskOpen() {
    const std::string path = AskScriptToOpen(s, window_, Folder());
    if (!path.empty()) Open(path);
}

void ScriptDocument::Open(const std::string& path) {
    std::string folder;
    std::string name;
    SplitFilePath(path, folder, name);
    try {
        const std::optional<std::string> text = Read(path);
        if (!text) return;
        folder_ = folder;
        Begin(*text, name, path);
    } catch (const RuntimeError& error) {
        s.World.Desk.Report("The script " + name + " cannot be opened: " + error.what());
    }
}

bool ScriptDocument::Save() { return path_.empty() ? SaveAs() : SaveTo(path_); }

bool ScriptDocument::SaveAs() {
    const std::string path = AskScriptToSave(s, window_, Folder(), name_);
    return !path.empty() && SaveTo(path);
}

bool ScriptDocument::SaveTo(const std::string& path) {
    std::string folder;
    std::string name;
    SplitFilePath(path, folder, name);
    const std::string text = view_.Text();
    try {
        WriteScript(path, text);
    } catch (const RuntimeError& error) {
        s.World.Desk.Report("The script " + name + " cannot be saved: " + error.what());
        return false;
    }
    view_.SetSaved();
    folder_ = folder;
    path_ = path;
    name_ = name;
    events_.Changed();
    events_.Tell("Saved " + path);
    const std::string fault = ScriptFault(text);
    if (!fault.empty()) s.World.Desk.Report("The script " + name + " is saved, but cannot be opened again: " + fault);
    return true;
}

bool ScriptDocument::MayLose() {
    if (!view_.IsModified()) return true;
    events_.Ask();
    switch (AskUnsaved(window_, name_)) {
        case Unsaved::Save:
            return Save();
        case Unsaved::Discard:
            return true;
        case Unsaved::Cancel:
            break;
    }
    return false;
}

void ScriptDocument::Discard() {
    if (view_.IsModified()) Begin("", kUntitled, "");
}

}  // namespace marvolin
