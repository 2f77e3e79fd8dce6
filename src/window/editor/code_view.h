#pragma once
/// \file
/// The surface on which the text of a script is written, as its window uses it. What is behind it is a module of its
/// own, so that the program starts without the library that it needs.

#include <QFont>
#include <QObject>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "scripting/script_words.h"

namespace marvolin {

/// A place in a text.
struct TextPlace {
    int Line = 1;    ///< from 1
    int Column = 1;  ///< bytes, from 1
    friend bool operator==(const TextPlace&, const TextPlace&) = default;
};

/// Where a search begins and goes.
enum class Search : std::uint8_t {
    Here,      ///< forward from the start of what is selected: finds it again
    Next,      ///< forward from its end
    Previous,  ///< backward from its start
};

/// A text being written. It completes the words of the API, says what they take, and shows brackets that belong
/// together; undo and redo, copy and paste have the usual keys. Texts are UTF-8.
class CodeView {
public:
    virtual ~CodeView() = default;
    /// The widget of the view. Both belong to its parent.
    virtual QWidget& Widget() = 0;

    virtual std::string Text() const = 0;
    /// Replaces the text by one that counts as saved and cannot be undone. Ends of lines stay as they are.
    virtual void SetText(const std::string& text) = 0;
    /// Whether the text differs from what was saved last.
    virtual bool IsModified() const = 0;
    /// The text has been saved as it is.
    virtual void SetSaved() = 0;

    virtual bool CanUndo() const = 0;
    virtual bool CanRedo() const = 0;
    virtual void Undo() = 0;
    virtual void Redo() = 0;

    virtual TextPlace Caret() const = 0;
    /// Puts the caret there, or to the nearest place there is, and shows it.
    virtual void GoTo(TextPlace place) = 0;
    /// Marks a line as wrong, in the place of another, and shows it; 0 marks none. The mark goes when the line is
    /// changed.
    virtual void Mark(int line) = 0;
    /// The line that is marked; 0 for none.
    virtual int Marked() const = 0;

    /// What is selected.
    virtual std::string Selected() const = 0;
    /// Selects the next place of `words`, in any case, round the end of the text. False, and nothing changes, when
    /// there is none.
    virtual bool Find(const std::string& words, Search search) = 0;

    std::function<void()> OnEdit;    ///< the text has changed
    std::function<void()> OnChange;  ///< text, caret, or what can be undone has changed
};

/// What the module makes.
class CodeViewMaker {
public:
    virtual ~CodeViewMaker() = default;
    /// A view in `parent`, empty. `font` has characters of one width; `words` are completed.
    virtual CodeView* Make(QWidget* parent, const QFont& font, const std::vector<ScriptWord>& words) = 0;
};

}  // namespace marvolin

/// The number behind the name changes with what stands above: a module of another make is not loaded.
#define MARVOLIN_CODE_VIEW "marvolin.CodeView/1"
Q_DECLARE_INTERFACE(marvolin::CodeViewMaker, MARVOLIN_CODE_VIEW)
