#pragma once

#include <QWidget>

#include "core/session.h"
#include "window/editor/code_view.h"

namespace marvolin {

/// The status bar of the window of scripts: hint, script that runs, place of the caret.
class ScriptStatus : public QWidget {
public:
    static constexpr int kHeight = 26;

    ScriptStatus(Session& session, QWidget* parent);
    void ShowHint(const QString& hint);
    /// `running` is the name of the script that runs, "" for none.
    void ShowState(const QString& running, TextPlace caret);

    const QString& Hint() const { return hint_; }
    /// What stands on the right of the hint.
    QString State() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString hint_;
    QString running_;
    TextPlace caret_;
};

}  // namespace marvolin
