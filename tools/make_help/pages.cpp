#include "pages.h"

#include <algorithm>
#include <functional>
#include <set>
#include <stdexcept>
#include <string_view>

#include "core/help.h"
#include "script_page.h"
#include "scripting/api/api_page.h"
#include "window/descriptions/description.h"

namespace marvolin::help {

namespace {

std::string FileOf(std::int32_t topic) { return std::to_string(topic) + ".html"; }

std::vector<std::int32_t> Numbers(const std::string& line) {
    std::vector<std::int32_t> numbers;
    for (std::size_t at = 1; at < line.size();) {
        std::size_t end = line.find(' ', at + 1);
        if (end == std::string::npos) end = line.size();
        numbers.push_back(std::stoi(line.substr(at, end - at)));
        at = end;
    }
    return numbers;
}

const Description* RowOf(std::int32_t topic) {
    for (const DescriptionTable& table : DescriptionTables()) {
        for (const Description& row : table.Rows) {
            if (row.Topic == topic) return &row;
        }
    }
    return nullptr;
}

/// The keys of all controls that share the page.
Keys KeysOf(std::int32_t topic) {
    Keys keys = Keys::None;
    for (const DescriptionTable& table : DescriptionTables()) {
        for (const Description& row : table.Rows) {
            if (row.Topic == topic) keys = keys | row.Taken;
        }
    }
    return keys;
}

/// A text of all controls that share the page, each wording once.
std::vector<std::string> TextsOf(std::int32_t topic, ControlText Description::*text) {
    std::vector<std::string> texts;
    for (const DescriptionTable& table : DescriptionTables()) {
        for (const Description& row : table.Rows) {
            if (row.Topic != topic) continue;
            const std::string words = (row.*text).Without(row.Range.First);
            if (!words.empty() && std::find(texts.begin(), texts.end(), words) == texts.end()) texts.push_back(words);
        }
    }
    return texts;
}

/// What Space and Return do on the controls of a page.
struct PressText {
    std::int32_t Topic;
    std::string_view Text;  ///< "" for nothing
};

/// Where they do something else than a click.
constexpr PressText kPressTexts[] = {
    {10005, "Space or Return: what a click does; with Shift: what a right click does"},
    {10008,
     "Space or Return: stops all if anything plays, and plays all otherwise; with Shift: silences everything, or brings it "
     "back"},
    {10017, "Space or Return: what a click does; with Ctrl: this one alone"},
    {10019, "Return or Space: takes the entry"},
    {10020, "Space or Return: selects or deselects"},
    {10021, "Space or Return: shows its pattern; with Ctrl: opens the tab, too"},
    {10023, "Space or Return: plays or stops, with Ctrl, too; with Shift: pauses as long as the key is down"},
    {10024, "Shift and Space: jumps to the beginning; Ctrl and Space: the mode Loop"},
    {10026, "Space or Return: silent, or full again"},
    {10027, "Space or Return: the middle"},
    {10028, "Space or Return: 100 %"},
    {10029, "Space or Return: disconnects, or connects again"},
    {10031, "Return or Space: takes the entry"},
    {10032, "Return or Space: takes the entry"},
    {10126, "Return or Space: loads the sample into the destination; with Shift: plays or stops it"},
    {10127, "Return: the folder for the bin whose button has opened the tree"},
    {10090, "Space or Return: what a double click does"},
    {10172, "Return: what the button of the dialogue does"},
    {10193, "Return: takes the entry"},
    {10204, "Return: the next place; Shift+Return: the one before"},
};

std::string_view PressTextOf(std::int32_t topic) {
    for (const PressText& press : kPressTexts) {
        if (press.Topic == topic) return press.Text;
    }
    return "Space or Return: what a click does";
}

/// Where all keys have a meaning of their own.
constexpr PressText kOwnKeys[] = {
    {10015,
     "Space or Return: what a click does; arrows: the tab beside it; Insert, while Ptrn is open: picks up all patterns "
     "and timing"},
    {10018,
     "arrows: another lane, another LoopTrack; Space or Return: what a click does; Shift and left or right: draws; "
     "Delete: empties the lane"},
    {10022,
     "On the letter Space or Return: thinnable or not; Insert: picks up the dropper, with Shift the fade. On the "
     "picture of the sound left and right: the volume; up, down, Page Up, Page Down: the mark where a fade is to end; "
     "Space or Return: fades there; Escape: puts the mark back; Shift and Space: turns the fade round; Shift and an "
     "arrow: fine"},
    {10042,
     "arrows: a step in their direction, with Shift finely; Page Up and Page Down: ten steps up or down; Space or "
     "Return: puts it on the centre"},
    {10072,
     "arrows: a step in their direction, with Shift finely; Space or Return: puts it on the centre; Shift and Space: "
     "turns its fade round; Insert: picks up its fade; on the listener Page Up and Page Down: turn it, with Shift "
     "finely"},
    {10075, "arrows: one step; Page Up and Page Down: ten; Shift and Space: sets it to 1"},
    {10104, "Space or Return: what a click does; arrows: the tab beside it"},
    {10086,
     "left, right, Home, End: another step; left of the first one is the hatched column; up, down, Page Up, Page Down: "
     "its value, with Shift finely; Delete: resets the step; Shift+Delete: erases the lane; Insert: picks it up for "
     "another LoopTrack"},
};

/// Where the arrows have a finer step with Shift: fade speed, knobs, the reach of the stick.
constexpr std::int32_t kFineSteps[] = {10010, 10026, 10027, 10028, 10109};

/// The keys of a page's controls, in words.
std::string KeyWords(std::int32_t topic) {
    for (const PressText& own : kOwnKeys) {
        if (own.Topic == topic) return std::string(own.Text);
    }
    const Keys keys = KeysOf(topic);
    std::string words;
    const auto add = [&](Keys key, std::string_view text) {
        if (Takes(keys, key) && !text.empty()) words += (words.empty() ? "" : "; ") + std::string(text);
    };
    const Description* row = RowOf(topic);
    const bool dropDown = row != nullptr && row->Role == QAccessible::ComboBox;
    add(Keys::Press, dropDown ? "Space: opens it" : PressTextOf(topic));
    const bool fine = std::ranges::find(kFineSteps, topic) != std::end(kFineSteps);
    add(Keys::Turn, std::string("arrows: one step; Page Up and Page Down: ten") + (fine ? "; with Shift finely" : ""));
    add(Keys::Move, "arrows: a step in their direction");
    add(Keys::Choose, dropDown ? "then arrows, Page Up, Page Down, Home, End: another entry; Return: takes it"
                               : "arrows, Page Up, Page Down, Home, End: another entry");
    add(Keys::Type, "letters and digits: the text");
    add(Keys::Delete, "Delete: removes the entry");
    add(Keys::Carry, "Insert: picks it up");
    add(Keys::Escape, "Escape: closes");
    return words;
}

/// Writes one page.
class Writer {
public:
    explicit Writer(const std::vector<PageText>& texts) : texts_(texts) {
        for (const PageText& text : texts) titles_[text.Topic] = text.Title;
    }

    std::string Page(const PageText& text) {
        html_ = Head(text.Title) + "<p class=\"quiet\"><a href=\"" + FileOf(kHelpContents) + "\">Contents</a> &gt; " +
                Escaped(text.Chapter) + "</p>\n<h1>" + Escaped(text.Title) + "</h1>\n";
        int index = 0;
        if (!ControlOf(text.Topic, index).empty()) Picture(text.Topic);
        for (const std::string& line : text.Lines) Line(line);
        End();
        FromTable(text.Topic);
        if (!ways_.empty()) html_ += "<h2>Go on with</h2>\n<p>" + std::exchange(ways_, {}) + "</p>\n";
        return html_ + kFoot;
    }

    std::string Contents() {
        html_ = Head("Contents") + "<h1>Marvolin Help</h1>\n";
        html_ +=
            "<p>Drag the question mark from the foot of a window onto anything to open its page here, or point at it "
            "and press <b>F1</b>.</p>\n";
        std::string chapter;
        for (const PageText& text : texts_) {
            if (text.Chapter != chapter) {
                html_ +=
                    (chapter.empty() ? "" : "</ul>\n") + std::string("<h2>") + Escaped(text.Chapter) + "</h2>\n<ul>\n";
                chapter = text.Chapter;
            }
            html_ += "<li>" + Link(text.Topic) + "</li>\n";
        }
        return html_ + "</ul>\n" + kFoot;
    }

private:
    static constexpr const char* kFoot = "</body>\n</html>\n";

    static std::string Head(const std::string& title) {
        return "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n<title>" + Escaped(title) +
               "</title>\n</head>\n<body>\n";
    }

    std::string Link(std::int32_t topic) {
        const auto title = titles_.find(topic);
        if (title == titles_.end()) throw std::runtime_error("no page " + std::to_string(topic));
        return "<a href=\"" + FileOf(topic) + "\">" + Escaped(title->second) + "</a>";
    }

    void Picture(std::int32_t topic) {
        html_ += "<p><img src=\"pictures/" + std::to_string(topic) + ".png\" alt=\"" + Escaped(titles_.at(topic)) +
                 "\"></p>\n";
    }

    /// Ends what is open: a paragraph or a table.
    void End() {
        if (!paragraph_.empty()) html_ += "<p>" + Inline(std::exchange(paragraph_, {})) + "</p>\n";
        if (std::exchange(inTable_, false)) html_ += "</table>\n";
    }

    void Row(const std::string& line) {
        if (!inTable_) {
            End();
            html_ += "<table>\n";
            inTable_ = true;
        }
        const std::size_t bar = line.find(" | ");
        if (bar == std::string::npos) throw std::runtime_error("no \" | \" in: " + line);
        html_ += "<tr><td class=\"key\">" + Inline(line.substr(2, bar - 2)) + "</td><td>" +
                 Inline(line.substr(bar + 3)) + "</td></tr>\n";
    }

    void Line(const std::string& line) {
        const std::string mark = line.substr(0, line.find(' '));
        if (mark == "-") return Row(line);
        if (mark.empty() || mark == "##" || mark == ">" || mark == "!" || mark == "+" || mark[0] == '@') End();
        if (mark == "##") {
            html_ += "<h2>" + Inline(line.substr(3)) + "</h2>\n";
        } else if (mark == ">") {
            html_ += "<p class=\"evening\"><i>" + Inline(line.substr(2)) + "</i></p>\n";
        } else if (mark == "!") {
            for (const std::int32_t topic : Numbers(line)) Picture(topic);
        } else if (mark == "+") {
            for (const std::int32_t topic : Numbers(line)) ways_ += (ways_.empty() ? "" : " &middot; ") + Link(topic);
        } else if (mark == "@keys") {
            KeysOfAll();
        } else if (mark == "@scripting") {
            html_ += ScriptPage(ApiPage());
        } else if (!line.empty()) {
            if (inTable_) End();
            paragraph_ += (paragraph_.empty() ? "" : " ") + line;
        }
    }

    void FromTable(std::int32_t topic) {
        const Description* row = RowOf(topic);
        if (row == nullptr) return;
        const int index = row->Range.First;
        std::string lines;
        const auto add = [&](const char* what, const std::string& text) {
            if (text.empty()) return;
            lines += "<tr><td class=\"key\">" + std::string(what) + "</td><td>" + Escaped(text) + "</td></tr>\n";
        };
        // Several controls may share the page.
        for (const std::string& hint : TextsOf(topic, &Description::Hint)) add("Status line", hint);
        for (const std::string& off : TextsOf(topic, &Description::Off)) add("When it is grey", off);
        add("Keys, with the focus", KeyWords(topic));
        const bool each = row->Range.Last > row->Range.First && !row->Shortcut.Empty();
        add("Key", each ? "the letter of its row" : row->Shortcut.Without(index));
        if (!lines.empty()) html_ += "<h2>In short</h2>\n<table>\n" + lines + "</table>\n";
    }

    void KeysOfAll() {
        html_ += "<table>\n";
        for (const PageText& text : texts_) {
            if (KeysOf(text.Topic) == Keys::None) continue;
            html_ += "<tr><td>" + Link(text.Topic) + "</td><td>" + Escaped(KeyWords(text.Topic)) + "</td></tr>\n";
        }
        html_ += "</table>\n";
    }

    const std::vector<PageText>& texts_;
    std::map<std::int32_t, std::string> titles_;
    std::string html_;
    std::string paragraph_;
    std::string ways_;
    bool inTable_ = false;
};

void CheckLinks(const Files& files) {
    for (const auto& [name, html] : files) {
        const std::string mark = "href=\"";
        for (std::size_t at = html.find(mark); at != std::string::npos; at = html.find(mark, at + 1)) {
            const std::size_t begin = at + mark.size();
            const std::string target = html.substr(begin, html.find('"', begin) - begin);
            if (!files.contains(target)) throw std::runtime_error(name + " leads to " + target + ", which is no page");
        }
    }
}

}  // namespace

std::string ControlOf(std::int32_t topic, int& index) {
    const Description* row = RowOf(topic);
    if (row == nullptr) return "";
    index = row->Range.First;
    return std::string(row->Name);
}

Files MakePages(const std::vector<PageText>& texts) {
    Files files;
    Writer writer(texts);
    std::string list = std::to_string(kHelpContents) + "\t" + FileOf(kHelpContents) + "\tContents\tMarvolin Help\n";
    files[FileOf(kHelpContents)] = writer.Contents();
    for (const PageText& text : texts) {
        files[FileOf(text.Topic)] = writer.Page(text);
        list += std::to_string(text.Topic) + "\t" + FileOf(text.Topic) + "\t" + text.Title + "\t" + text.Chapter + "\n";
    }
    files["marvolin.chm"] = list;
    CheckLinks(files);
    return files;
}

std::vector<std::int32_t> PicturesOf(const std::vector<PageText>& texts) {
    std::set<std::int32_t> pictures;
    for (const PageText& text : texts) {
        int index = 0;
        if (!ControlOf(text.Topic, index).empty()) pictures.insert(text.Topic);
        for (const std::string& line : text.Lines) {
            if (line.rfind("! ", 0) != 0) continue;
            for (const std::int32_t topic : Numbers(line)) pictures.insert(topic);
        }
    }
    return {pictures.begin(), pictures.end()};
}

}  // namespace marvolin::help
