#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <string>

#include "core/session.h"
#include "window/editor/code_view.h"

namespace marvolin {

/// The text in the window of scripts, and its file. Before a text is replaced that is not saved the player is asked. A
/// file that cannot be read or written is reported, and the text stays.
class ScriptDocument {
public:
    /// What the window does.
    struct Events {
        std::function<void()> Ask;      ///< the player is about to be asked: come to the front
        std::function<void()> Changed;  ///< another text, or another name
        std::function<void(const std::string& hint)> Tell;
    };
    /// `window` and `view` must outlive it.
    ScriptDocument(Session& session, QWidget& window, CodeView& view, Events events);

    /// Name of the file, or what it would be.
    const std::string& Name() const { return name_; }

    /// Begins an empty text.
    void New();
    /// Begins a copy of an example, by its number in `kScriptExamples`. It has no file of its own, and does not count
    /// as unsaved until it is changed.
    void BeginExample(int number);
    /// Asks for a file and opens it.
    void AskOpen();
    void Open(const std::string& path);
    /// Saves, asking for a name if there is none yet. False when that was cancelled or has failed.
    bool Save();
    bool SaveAs();
    /// Asks about a text that is not saved, and saves it if the player wants that. False when the player wants to go on
    /// with it, or when it could not be saved.
    bool MayLose();
    /// Forgets a text that is not saved.
    void Discard();

private:
    void Begin(const std::string& text, const std::string& name, const std::string& path);
    /// The text of a file, after the question for the one that is not saved; none when the player keeps that.
    std::optional<std::string> Read(const std::string& path);
    bool SaveTo(const std::string& path);
    std::string Folder() const;

    Session& s;
    QWidget& window_;
    CodeView& view_;
    const Events events_;
    std::string name_;
    std::string path_;    ///< of the file; "" for none
    std::string folder_;  ///< in which the player has chosen a file last; "" for none
};

}  // namespace marvolin
