#pragma once

#include <QTextBrowser>

#include "window/help/help_pages.h"

namespace marvolin {

/// `HelpText`: the page. One that is missing is a page, too, so that the contents and the way back and forward know
/// where the reader is: it tells which file cannot be found.
class HelpText : public QTextBrowser {
public:
    /// The pages that are shown from now on. They must outlive their use here.
    void Read(const HelpPages& pages);
    /// Marks all places of the words, as many as `kMostMarks`.
    void Mark(const QStringList& words);

    static constexpr int kMostMarks = 300;  ///< more would hold up the step clock

    QVariant loadResource(int type, const QUrl& name) override;

private:
    const HelpPages* pages_ = nullptr;
};

}  // namespace marvolin
