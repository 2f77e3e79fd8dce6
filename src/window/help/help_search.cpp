#include "window/help/help_search.h"

#include <QFile>
#include <QRegularExpression>
#include <algorithm>

namespace marvolin {

HelpSearch::HelpSearch(const HelpPages& pages, std::function<void(const HelpPage&)> found, std::function<void()> done)
    : pages_(pages), found_(std::move(found)), done_(std::move(done)) {
    turns_.setInterval(0);
    turns_.callOnTimeout(this, [this] { Turn(); });
}

void HelpSearch::Start(const QString& text) {
    words_ = text.toLower().split(' ', Qt::SkipEmptyParts);
    next_ = 0;
    if (words_.isEmpty()) {
        turns_.stop();
    } else {
        turns_.start();
    }
}

void HelpSearch::Turn() {
    const std::size_t end = std::min(next_ + kPagesATurn, pages_.All().size());
    for (; next_ < end; ++next_) {
        const HelpPage& page = pages_.All()[next_];
        const QString& text = TextOf(page);
        const bool all =
            std::all_of(words_.begin(), words_.end(), [&](const QString& word) { return text.contains(word); });
        if (all) found_(page);
    }
    if (next_ < pages_.All().size()) return;
    turns_.stop();
    done_();
}

const QString& HelpSearch::TextOf(const HelpPage& page) {
    const auto read = texts_.find(page.File);
    if (read != texts_.end()) return read->second;
    QFile file(pages_.PathOf(page.File));
    const QString html = file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    return texts_[page.File] = PlainText(html);
}

QString PlainText(const QString& html) {
    static const QRegularExpression head("<head>.*</head>", QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression tag("<[^>]*>");
    QString text = html;
    text.remove(head).replace(tag, " ");
    text.replace("&lt;", "<").replace("&gt;", ">").replace("&quot;", "\"").replace("&amp;", "&");
    return text.simplified().toLower();
}

}  // namespace marvolin
