// The pages of Help as they come with the program: fresh, whole, and with a page for everything.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QImage>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <stdexcept>

#include "core/help.h"
#include "fakes/file_bytes.h"
#include "fakes/temp_folder.h"
#include "manual.h"
#include "pages.h"
#include "scripting/api/api_table.h"
#include "window/descriptions/description.h"

namespace marvolin {
namespace {

namespace fs = std::filesystem;
using help::Files;
using testing::HasSubstr;
using testing::IsEmpty;

const fs::path kRoot = MARVOLIN_ROOT;
const fs::path kMade = fs::path(MARVOLIN_FOLDER) / "Help";  ///< as it lies beside the program

std::vector<help::PageText> Texts() { return help::ReadTexts((kRoot / "tools/make_help/texts").string()); }

Files FilesIn(const fs::path& folder) {
    Files files;
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.is_regular_file()) {
            files[entry.path().filename().string()] = test::ReadBytes(entry.path().string());
        }
    }
    return files;
}

std::vector<std::string> All(const std::string& text, const char* pattern) {
    std::vector<std::string> found;
    const std::regex wanted(pattern);
    for (std::sregex_iterator at(text.begin(), text.end(), wanted); at != std::sregex_iterator(); ++at) {
        found.push_back((*at)[1]);
    }
    return found;
}

void ExpectFresh(const Files& fresh, const fs::path& folder) {
    const Files there = FilesIn(folder);
    EXPECT_EQ(fresh.size(), there.size());
    for (const auto& [name, content] : fresh) {
        const auto found = there.find(name);
        EXPECT_TRUE(found != there.end() && found->second == content)
            << name << " is old. Write it anew: cmake --build BUILD --target help_pages";
    }
}

TEST(HelpPages, ThoseInTheFolderOfAssetsAreFresh) { ExpectFresh(help::MakePages(Texts()), kRoot / "assets/Help"); }

TEST(HelpPages, TheManualIsFresh) { ExpectFresh(help::MakeManual(Texts()), kRoot / "docs/manual"); }

TEST(HelpPages, InTheManualAPageIsMarkdown) {
    const std::string html =
        "<title>Play</title><p class=\"quiet\">Help</p>\n<h1>Play</h1>\n<p><img src=\"pictures/1.png\" "
        "alt=\"Play\"></p>\n"
        "<p>Plays <code>a|b</code> &amp; [x]_y.</p>\n<table>\n<tr><td class=\"key\">clk</td><td>&lt;on&gt;</td></tr>\n"
        "</table>\n<p class=\"evening\"><i>Now.</i></p>\n<h2>Go on with</h2>\n"
        "<p><a href=\"10024.html\">Mode</a> &middot; <a href=\"10000.html\">All</a></p>\n";
    EXPECT_EQ(
        help::MarkdownOf(html, 10023, {{10024, "rows.md"}}),
        "<a id=\"10023\"></a>\n\n## Play\n\nPlays `a\\|b` & \\[x\\]\\_y.\n\n| | |\n|---|---|\n| clk | \\<on> |\n\n"
        "*Now.*\n\n### Go on with\n\n[Mode](rows.md#10024) \u00b7 [All](README.md)\n\n");
}

TEST(HelpPages, ThoseBesideTheProgramAreTheSame) { EXPECT_EQ(FilesIn(kMade), FilesIn(kRoot / "assets/Help")); }

TEST(HelpPages, EveryControlHasThePageOfItsNumber) {
    const Files files = FilesIn(kMade);
    std::vector<std::string> missing;
    for (const DescriptionTable& table : DescriptionTables()) {
        for (const Description& row : table.Rows) {
            if (!files.contains(std::to_string(row.Topic) + ".html")) missing.push_back(std::string(row.Name));
        }
    }
    EXPECT_THAT(missing, IsEmpty());
}

TEST(HelpPages, EveryPageIsReachedFromTheContentsAndEveryLinkAndPictureExists) {
    const Files files = FilesIn(kMade);
    std::set<std::string> reached{"10000.html"};
    std::vector<std::string> waiting{"10000.html"};
    std::size_t pictures = 0;
    while (!waiting.empty()) {
        const std::string page = waiting.back();
        waiting.pop_back();
        ASSERT_TRUE(files.contains(page)) << page;
        for (const std::string& link : All(files.at(page), "href=\"([^\"]*)\"")) {
            if (reached.insert(link).second) waiting.push_back(link);
        }
        for (const std::string& picture : All(files.at(page), "src=\"([^\"]*)\"")) {
            const QImage image(QString::fromStdString((kMade / picture).string()));
            EXPECT_FALSE(image.isNull()) << page << ": " << picture;
            EXPECT_LE(image.width(), 560) << picture;
            ++pictures;
        }
    }
    EXPECT_EQ(reached.size() + 1, files.size());  // and the list of pages
    EXPECT_GT(pictures, 130U);
}

TEST(HelpPages, TheListNamesEveryPageOnceAndTheContentsFirst) {
    const Files files = FilesIn(kMade);
    const std::vector<std::string> listed = All(files.at("marvolin.chm"), "\t([0-9]+\\.html)\t");
    EXPECT_EQ(listed.front(), "10000.html");
    EXPECT_EQ(std::set(listed.begin(), listed.end()).size(), listed.size());
    EXPECT_EQ(listed.size() + 1, files.size());
}

TEST(HelpPages, EachPageOfAControlHasItsPictureAndAnExample) {
    for (const help::PageText& text : Texts()) {
        int index = 0;
        if (help::ControlOf(text.Topic, index).empty()) continue;
        const std::string page = test::ReadBytes((kMade / (std::to_string(text.Topic) + ".html")).string());
        EXPECT_THAT(page, HasSubstr("pictures/" + std::to_string(text.Topic) + ".png")) << text.Title;
        EXPECT_THAT(page, HasSubstr("class=\"evening\"")) << text.Title;
    }
}

TEST(HelpPages, ThePageOfAControlTellsItsHintItsKeysAndWhyItIsGrey) {
    const std::string pan = test::ReadBytes((kMade / "10027.html").string());
    EXPECT_THAT(pan, HasSubstr("drg Pan -/+; rtdrg Fine; dblclk Centre"));
    EXPECT_THAT(pan, HasSubstr("off until a Sample is loaded"));
    EXPECT_THAT(pan, HasSubstr("arrows: one step; Page Up and Page Down: ten"));
}

TEST(HelpPages, APageTellsWhatSpaceDoesWhereAClickDoesSomethingElse) {
    const auto page = [](int topic) { return test::ReadBytes((kMade / (std::to_string(topic) + ".html")).string()); };
    EXPECT_THAT(page(10003), HasSubstr("Space or Return: what a click does"));
    EXPECT_THAT(page(10026), HasSubstr("Space or Return: silent, or full again"));
    EXPECT_THAT(page(10043), HasSubstr("Space: opens it; then arrows"));
    for (const int topic : {10022, 10024, 10026, 10027, 10028, 10029, 10042, 10043, 10072, 10090}) {
        EXPECT_EQ(page(topic).find("what a click does"), std::string::npos) << topic;
    }
}

TEST(HelpPages, ThePageOfThePlayButtonsTellsTheKeysOfAllRowsAndNotThatOfTheFirst) {
    const std::string page = test::ReadBytes((kMade / "10023.html").string());
    EXPECT_THAT(page, HasSubstr("<td class=\"key\">Key</td><td>the letter of its row</td>"));
}

TEST(HelpPages, ThePageOfKeysNamesEveryControlThatTakesSome) {
    const std::string keys = test::ReadBytes((kMade / "10902.html").string());
    for (const DescriptionTable& table : DescriptionTables()) {
        for (const Description& row : table.Rows) {
            if (row.Taken == Keys::None) continue;
            EXPECT_NE(keys.find("href=\"" + std::to_string(row.Topic) + ".html\""), std::string::npos) << row.Name;
        }
    }
}

TEST(HelpPages, ThePageOfMessagesHasEveryMessageOfTheProgram) {
    const std::string page = test::ReadBytes((kMade / "10904.html").string());
    std::size_t messages = 0;
    std::vector<std::string> missing;
    const auto expect = [&](const std::string& text) {
        // A text that is put together is told by its beginning, and a long one, too.
        const std::string head = text.substr(0, std::min<std::size_t>(text.find_last_not_of(" :,") + 1, 40));
        if (page.find(head) == std::string::npos) missing.push_back(text);
        ++messages;
    };
    for (const auto& entry : fs::recursive_directory_iterator(kRoot / "src")) {
        if (entry.path().extension() != ".cpp") continue;
        const std::string source = test::ReadBytes(entry.path().string());
        for (const std::string& text : All(source, "(?:Report|MessageBox)\\(\\s*(?:std::string\\()?\"([^\"]+)\"")) {
            expect(text);
        }
        for (const std::string& context : All(source, "ShowDSError\\(s, \"([^\"]+)\"")) expect("Error " + context);
    }
    EXPECT_THAT(missing, IsEmpty());
    EXPECT_GT(messages, 35U);
}

TEST(HelpPages, ThePageOfMessagesHasWhatTheStatusLineSaysOfDrags) {
    const QString page = QString::fromStdString(test::ReadBytes((kMade / "10904.html").string()));
    const std::regex ends("^[ :;,]+|[ :;,]+$");
    std::size_t messages = 0;
    for (const char* file :
         {"window/keys/key_drag.cpp", "performance/drops/file_drops.cpp", "instrument/dropped_files.cpp"}) {
        for (const std::string& text : All(test::ReadBytes((kRoot / "src" / file).string()), "\"([^\"\n/]*)\"")) {
            const std::string told = std::regex_replace(text, ends, "");
            if (std::count(told.begin(), told.end(), ' ') < 2) continue;  // a name, or a word between two
            EXPECT_TRUE(page.contains(QString::fromStdString(told), Qt::CaseInsensitive)) << told;
            ++messages;
        }
    }
    EXPECT_GE(messages, 8U);
}

TEST(HelpPages, TheScriptingPageHasEveryFunction) {
    const std::string page = test::ReadBytes((kMade / "10913.html").string());
    for (const ApiSubject& subject : ApiSubjects()) {
        for (const ApiFunction& function : subject.Functions) {
            EXPECT_THAT(page, HasSubstr("<code>marvolin." + std::string(function.Name) + "("));
        }
    }
}

TEST(MakeHelp, RefusesALinkThatLeadsNowhere) {
    EXPECT_THROW(help::MakePages({{10901, "One", "Chapter", {"[two](10902)"}}}), std::runtime_error);
    EXPECT_THROW(help::MakePages({{10901, "One", "Chapter", {"+ 10902"}}}), std::runtime_error);
    EXPECT_THROW(help::MakePages({{10901, "One", "Chapter", {"- a gesture without its meaning"}}}), std::runtime_error);
    EXPECT_NO_THROW(help::MakePages({{10901, "One", "Chapter", {"[one](10901)"}}}));
}

TEST(MakeHelp, RefusesAPageWithoutNumberTitleOrChapterAndANumberTwice) {
    const auto refused = [](const char* text) {
        test::TempFolder folder;
        std::ofstream(folder / "a.txt") << text;
        try {
            help::ReadTexts(folder.Path());
        } catch (const std::runtime_error&) {
            return true;
        }
        return false;
    };
    EXPECT_FALSE(refused("# Chapter\n= 10901 Title\ntext\n"));
    EXPECT_TRUE(refused("# Chapter\n= Title\n"));
    EXPECT_TRUE(refused("# Chapter\n= 10901\n"));
    EXPECT_TRUE(refused("= 10901 Title\n"));
    EXPECT_TRUE(refused("# Chapter\n= 10901 One\n= 10901 Two\n"));
}

TEST(MakeHelp, WritesMarksAsHtmlAndEverythingElseAsItIs) {
    EXPECT_EQ(help::Inline("a < b & *strong* [Play](10023) `x`"),
              "a &lt; b &amp; <b>strong</b> <a href=\"10023.html\">Play</a> <code>x</code>");
}

}  // namespace
}  // namespace marvolin
