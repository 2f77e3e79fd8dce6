#pragma once

#include <QWidget>

#include "core/session.h"
#include "window/editor/code_view.h"

namespace marvolin {

/// The status bar of the window of scripts: hint, and place of the caret.
class ScriptStatus : public QWidget {
public:
    static constexpr int kHeight = 26;

    ScriptStatus(Session& session, QWidget* parent);
    void ShowHint(const QString& hint);
    void ShowCaret(TextPlace caret);

    const QString& Hint() const { return hint_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString hint_;
    TextPlace caret_;
};

}  // namespace marvolin
