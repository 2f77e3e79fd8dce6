#include "manual.h"

#include <cctype>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "core/help.h"

namespace marvolin::help {

namespace {

/// Turns the marks of a page, which are those that `MakePages` writes and no others, into those of Markdown.
class MarkdownConverter {
public:
    MarkdownConverter(std::int32_t topic, const std::map<std::int32_t, std::string>& fileOf)
        : topic_(topic), fileOf_(fileOf) {}

    std::string Convert(std::string_view html) {
        html.remove_prefix(html.find("<h1>"));
        while (!html.empty()) {
            if (html.front() == '<') {
                const std::size_t end = html.find('>');
                Tag(html.substr(1, end - 1));
                html.remove_prefix(end + 1);
            } else {
                const std::size_t end = std::min(html.find('<'), html.size());
                Text(html.substr(0, end));
                html.remove_prefix(end);
            }
        }
        return std::move(all_);
    }

private:
    void Tag(std::string_view tag) {
        const std::string_view name = tag.substr(0, tag.find(' '));
        if (name == "h1") all_ += "<a id=\"" + std::to_string(topic_) + "\"></a>\n\n";
        if (name == "a") link_ = std::string(tag.substr(tag.find('"') + 1));
        if (name == "a") line_ += "[";
        if (name == "/a") line_ += "](" + Target() + ")";
        if (name == "i" || name == "/i") line_ += "*";
        if (name == "b" || name == "/b") line_ += "**";
        if (name == "code" || name == "/code") line_ += "`";
        if (name == "code" || name == "/code") code_ = name == "code";
        if (name == "/h1") End("## ", "\n\n");
        if (name == "/h2") End("### ", "\n\n");
        if (name == "/h3") End("#### ", "\n\n");
        if (name == "/p") End("", "\n\n");
        if (name == "/li") End("- ", "\n");
        if (name == "table") all_ += "| | |\n|---|---|\n";
        if (name == "/td") line_ += " | ";
        if (name == "/tr") End("| ", "\n");
        if (name == "/table" || name == "/ul") all_ += "\n";
        if (name == "pre") throw std::runtime_error("no page of the manual has program text");
    }

    /// Line ends of a page mean nothing; what could be taken for a mark is not one.
    void Text(std::string_view text) {
        for (std::size_t at = 0; at < text.size(); ++at) {
            char c = text[at];
            if (c == '\n') continue;
            if (c == '&') {
                const std::string_view entity = text.substr(at, text.find(';', at) - at + 1);
                at += entity.size() - 1;
                if (entity == "&middot;") {
                    line_ += "\u00b7";
                    continue;
                }
                c = entity == "&lt;" ? '<' : entity == "&gt;" ? '>' : '&';
            }
            const std::string_view marks = code_ ? "|" : "\\*_<|[]`";
            if (marks.find(c) != std::string_view::npos) line_ += '\\';
            line_ += c;
        }
    }

    void End(std::string_view before, std::string_view after) {
        while (!line_.empty() && line_.back() == ' ') line_.pop_back();
        if (!line_.empty()) all_ += std::string(before) + std::exchange(line_, {}) + std::string(after);
    }

    std::string Target() {
        const std::int32_t topic = std::stoi(link_);
        if (topic == kHelpContents) return "README.md";
        return fileOf_.at(topic) + "#" + std::to_string(topic);
    }

    std::int32_t topic_;
    const std::map<std::int32_t, std::string>& fileOf_;
    std::string all_;
    std::string line_;
    std::string link_;
    bool code_ = false;
};

std::string FileOfChapter(const std::string& chapter) {
    std::string name;
    for (const char c : chapter) {
        if (std::isalpha(static_cast<unsigned char>(c))) name += static_cast<char>(std::tolower(c));
        if (c == ' ') name += '_';
    }
    return name + ".md";
}

}  // namespace

std::string MarkdownOf(const std::string& html, std::int32_t topic, const std::map<std::int32_t, std::string>& fileOf) {
    return MarkdownConverter(topic, fileOf).Convert(html);
}

Files MakeManual(std::vector<PageText> texts) {
    std::map<std::int32_t, std::string> fileOf;
    for (PageText& text : texts) {
        fileOf[text.Topic] = FileOfChapter(text.Chapter);
        for (std::string& line : text.Lines) {
            if (line == "@scripting") line = "All that a script can call stands in `docs/scripting.md`.";
        }
    }
    const Files pages = MakePages(texts);
    Files manual;
    std::string& contents = manual["README.md"];
    contents =
        "# Manual\n\nThe pages of Help, which the program opens with the question mark and with F1. There they have "
        "pictures.\n";
    for (const PageText& text : texts) {
        std::string& chapter = manual[fileOf[text.Topic]];
        if (chapter.empty()) {
            chapter = "# " + text.Chapter + "\n\n[Contents](README.md)\n\n";
            contents += "\n## " + text.Chapter + "\n\n";
        }
        chapter += MarkdownOf(pages.at(std::to_string(text.Topic) + ".html"), text.Topic, fileOf);
        contents += "- [" + text.Title + "](" + fileOf[text.Topic] + "#" + std::to_string(text.Topic) + ")\n";
    }
    for (auto& [name, content] : manual) {
        while (content.ends_with("\n\n")) content.pop_back();
    }
    return manual;
}

}  // namespace marvolin::help
