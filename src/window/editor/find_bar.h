#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QWidget>

#include "core/session.h"
#include "window/editor/code_view.h"

namespace marvolin {

/// The bar below the text in which words to find are typed. Each character that is typed finds the first place that
/// fits.
class FindBar : public QWidget {
public:
    FindBar(Session& session, CodeView& view, QWidget* parent);
    /// Opens with what is selected in the text, if that is within a line, and takes the keyboard.
    void Open();
    /// Hides, and gives the keyboard back to the text.
    void Close();
    /// Finds the next or the previous place of the words; opens without words.
    void Go(Search search);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    CodeView& view_;
    QLineEdit* words_ = nullptr;
    QLabel* result_ = nullptr;
};

}  // namespace marvolin
