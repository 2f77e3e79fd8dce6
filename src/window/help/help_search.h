#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>
#include <functional>
#include <map>

#include "window/help/help_pages.h"

namespace marvolin {

/// Looks for words in all pages of Help. It reads a few pages in each turn of the event loop, so that the step clock
/// does not wait for it.
class HelpSearch : public QObject {
public:
    static constexpr int kPagesATurn = 6;

    /// `found` gets the file of each page that holds all words, as it is found, in the order of the pages; `done` is
    /// called after the last. `pages` must outlive the search.
    HelpSearch(const HelpPages& pages, std::function<void(const HelpPage&)> found, std::function<void()> done);

    /// Begins to look for the words of `text`, in any letter case, and forgets what was looked for before. Without a
    /// word nothing is found.
    void Start(const QString& text);

private:
    void Turn();
    const QString& TextOf(const HelpPage& page);

    const HelpPages& pages_;
    const std::function<void(const HelpPage&)> found_;
    const std::function<void()> done_;
    QStringList words_;
    std::size_t next_ = 0;
    QTimer turns_;
    std::map<QString, QString> texts_;  // of the pages that have been read, by file
};

/// The text of a page without its marks, in small letters and on one line.
QString PlainText(const QString& html);

}  // namespace marvolin
