#pragma once

#include <QTreeWidget>
#include <QWidget>
#include <memory>

#include "window/help/help_pages.h"
#include "window/help/help_search.h"
#include "window/help/help_text.h"

class QLineEdit;
class QToolButton;

namespace marvolin {

/// The window of Help: contents at its left side, the page at its right, back and forward, a search in all pages, and
/// the size of the text. Its title is `kHelpTitle`.
class HelpViewer : public QWidget {
public:
    static constexpr int kSmallestText = 11;  ///< pixels
    static constexpr int kLargestText = 27;   ///< pixels

    HelpViewer();

    /// Shows the page of `topic`, the contents when it has none, in front of all windows that can be used, and looks
    /// for no words. `avoid` is a window whose rows it leaves free where the screen has room; null for none. Raises
    /// `RuntimeError` when the help file cannot be read; nothing is shown then.
    void Open(const std::string& helpFile, std::int32_t topic, const QWidget* avoid);
    /// Shows a page by its file; one whose file is missing says so.
    void Go(const QString& file);

    const HelpText& Text() const { return *text_; }
    const QTreeWidget& Contents() const { return *tree_; }
    int TextSize() const { return size_; }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* MakeBar();
    QToolButton* AddButton(QWidget& bar, const char* name, std::function<void()> click);
    void FillContents();
    void Find(const QString& text);
    void AddFound(const HelpPage& page);
    void TellNothingFound();
    void MarkFound();
    void Place(const QWidget* avoid);
    void SetTextSize(int pixels);
    void ShowWhere();

    std::unique_ptr<HelpPages> pages_;
    std::unique_ptr<HelpSearch> search_;  // in `pages_`
    int size_ = 15;
    // Owned by the toolkit.
    HelpText* text_ = nullptr;
    QTreeWidget* tree_ = nullptr;
    QLineEdit* find_ = nullptr;
    QToolButton* back_ = nullptr;
    QToolButton* forward_ = nullptr;
};

}  // namespace marvolin
