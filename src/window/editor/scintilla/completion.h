#pragma once

#include <QFont>
#include <string>
#include <vector>

#include "scripting/script_words.h"

class QsciScintilla;

namespace marvolin {

/// The list of words that can follow, and the box that says what the function takes whose brackets the caret is in.
/// Functions are listed behind "marvolin.", events behind "function ".
class Completion {
public:
    Completion(QsciScintilla& view, std::vector<ScriptWord> words);
    /// Sets fonts and colours.
    void SetInks(const QFont& font);
    /// A character has been typed.
    void Typed();
    /// Closes list and box.
    void Close();

private:
    std::string LineToCaret() const;
    bool ListIsOnAScreen(std::size_t entered) const;
    void List(const std::string& line);
    void Tip(const std::string& line);
    const ScriptWord* Named(const std::string& name, bool isEvent) const;

    QsciScintilla& view_;
    std::vector<ScriptWord> words_;
    const ScriptWord* shown_ = nullptr;  // in the box
};

}  // namespace marvolin
