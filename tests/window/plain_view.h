#pragma once

#include <QPlainTextEdit>

#include "window/editor/code_view.h"

namespace marvolin::test {

/// A view by the toolkit alone: it marks and finds nothing.
class PlainView : public QPlainTextEdit, public CodeView {
public:
    explicit PlainView(QWidget* parent) : QPlainTextEdit(parent) {}
    QWidget& Widget() override { return *this; }
    std::string Text() const override { return toPlainText().toStdString(); }
    void SetText(const std::string& text) override { setPlainText(QString::fromStdString(text)); }
    bool IsModified() const override { return document()->isModified(); }
    void SetSaved() override { document()->setModified(false); }
    bool CanUndo() const override { return document()->isUndoAvailable(); }
    bool CanRedo() const override { return document()->isRedoAvailable(); }
    void Undo() override { undo(); }
    void Redo() override { redo(); }
    TextPlace Caret() const override { return {}; }
    void GoTo(TextPlace) override {}
    void Mark(int) override {}
    int Marked() const override { return 0; }
    std::string Selected() const override { return textCursor().selectedText().toStdString(); }
    bool Find(const std::string&, Search) override { return false; }
};

class PlainViews : public CodeViewMaker {
public:
    CodeView* Make(QWidget* parent, const QFont&, const std::vector<ScriptWord>&) override {
        return new PlainView(parent);  // belongs to the parent
    }
};

}  // namespace marvolin::test
