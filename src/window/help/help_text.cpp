#include "window/help/help_text.h"

#include <QFileInfo>

#include "window/toolkit/theme.h"

namespace marvolin {

void HelpText::Read(const HelpPages& pages) {
    pages_ = &pages;
    setSearchPaths({pages.Folder()});
}

QVariant HelpText::loadResource(int type, const QUrl& name) {
    const QString file = name.fileName();
    const bool page = type == QTextDocument::HtmlResource && pages_ != nullptr && !file.isEmpty();
    if (!page || QFileInfo::exists(pages_->PathOf(file))) return QTextBrowser::loadResource(type, name);
    return "<h1>This page is missing</h1><p>The file <b>" + pages_->PathOf(file).toHtmlEscaped() +
           "</b> cannot be found. Install Marvolin again, or copy the folder Help beside the program.</p>";
}

void HelpText::Mark(const QStringList& words) {
    QList<QTextEdit::ExtraSelection> marks;
    for (const QString& word : words) {
        QTextCursor at = document()->find(word);
        for (; !at.isNull() && marks.size() < kMostMarks; at = document()->find(word, at)) {
            QTextEdit::ExtraSelection mark;
            mark.cursor = at;
            mark.format.setBackground(theme::kAccent);
            mark.format.setForeground(theme::kWindow);
            marks.append(mark);
        }
    }
    setExtraSelections(marks);
}

}  // namespace marvolin
