#pragma once
/// \file
/// The pages of Help: which there are, and where they lie.

#include <QString>
#include <cstdint>
#include <string>
#include <vector>

namespace marvolin {

/// A page of Help.
struct HelpPage {
    std::int32_t Topic = 0;
    QString File;     ///< name in the folder of the help file
    QString Title;    ///< in one line
    QString Chapter;  ///< the chapter of the contents that it belongs to
};

/// The pages, as the help file lists them. The help file is a text, a page a line: number, file, title and chapter,
/// with a tab between them. The pages lie beside it.
class HelpPages {
public:
    /// Reads the help file. Raises `RuntimeError` 53, "File not found: " and its path, when it cannot be read or lists
    /// no page.
    explicit HelpPages(const std::string& helpFile);

    const std::vector<HelpPage>& All() const { return pages_; }
    /// The page of a topic; null when there is none.
    const HelpPage* Of(std::int32_t topic) const;
    /// The page of a file name; null when there is none.
    const HelpPage* Of(const QString& file) const;
    /// The whole path of a file of Help.
    QString PathOf(const QString& file) const { return folder_ + "/" + file; }
    const QString& Folder() const { return folder_; }

private:
    QString folder_;
    std::vector<HelpPage> pages_;
};

}  // namespace marvolin
