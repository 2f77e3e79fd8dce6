#pragma once

#include <Qsci/qsciscintilla.h>

#include "window/editor/code_view.h"
#include "window/editor/scintilla/completion.h"

namespace marvolin {

/// The view, by QScintilla.
class ScintillaView : public QsciScintilla, public CodeView {
public:
    ScintillaView(QWidget* parent, const QFont& font, const std::vector<ScriptWord>& words);

    ~ScintillaView() override;

    QWidget& Widget() override { return *this; }
    std::string Text() const override;
    void SetText(const std::string& text) override;
    bool IsModified() const override { return isModified(); }
    void SetSaved() override { setModified(false); }
    bool CanUndo() const override { return isUndoAvailable(); }
    bool CanRedo() const override { return isRedoAvailable(); }
    void Undo() override { undo(); }
    void Redo() override { redo(); }
    TextPlace Caret() const override;
    void GoTo(TextPlace place) override;
    void Mark(int line) override;
    int Marked() const override;
    std::string Selected() const override;
    bool Find(const std::string& words, Search search) override;

protected:
    // Files are not text: the window opens them.
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;

private:
    void SetMargins(const QFont& font);
    void SetInks(const QFont& font);
    void Connect();
    void WidenNumbers();
    void ShowLine(int line);
    bool FindFrom(const std::string& words, long from, long to);
    void Tell() const;

    Completion completion_;
};

}  // namespace marvolin
