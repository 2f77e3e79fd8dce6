#include "window/help/help_pages.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>

#include "core/errors.h"

namespace marvolin {

namespace {

constexpr std::uint32_t kFileNotFound = 53;
constexpr int kColumns = 4;

}  // namespace

HelpPages::HelpPages(const std::string& helpFile) {
    QFile file(QString::fromStdString(helpFile));
    folder_ = QFileInfo(file).absolutePath();
    if (file.open(QIODevice::ReadOnly)) {
        const QStringList lines = QString::fromUtf8(file.readAll()).split('\n');
        for (const QString& line : lines) {
            const QStringList columns = line.split('\t');
            if (columns.size() == kColumns) pages_.push_back({columns[0].toInt(), columns[1], columns[2], columns[3]});
        }
    }
    if (pages_.empty()) throw RuntimeError(kFileNotFound, "File not found: " + helpFile);
}

const HelpPage* HelpPages::Of(std::int32_t topic) const {
    const auto found = std::find_if(pages_.begin(), pages_.end(), [&](const HelpPage& p) { return p.Topic == topic; });
    return found == pages_.end() ? nullptr : &*found;
}

const HelpPage* HelpPages::Of(const QString& file) const {
    const auto found = std::find_if(pages_.begin(), pages_.end(), [&](const HelpPage& p) { return p.File == file; });
    return found == pages_.end() ? nullptr : &*found;
}

}  // namespace marvolin
