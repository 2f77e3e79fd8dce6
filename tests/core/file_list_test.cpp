#include "core/files/file_list.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "core/errors.h"
#include "fakes/file_bytes.h"
#include "fakes/temp_folder.h"

namespace marvolin {
namespace {

namespace fs = std::filesystem;
using test::TempFolder;
using test::WriteBytes;

std::vector<std::string> NamesOf(const FileList& list) {
    std::vector<std::string> names;
    for (const ListedFile& file : list.Files) names.push_back(file.Name);
    return names;
}

TEST(FileMark, IsThatOfTheContentAlone) {
    const TempFolder folder;
    const std::string mark = FileMark(folder.Touch("a", "content"));
    EXPECT_EQ(FileMark(folder.Touch("b", "content")), mark);
    EXPECT_NE(FileMark(folder.Touch("c", "contenT")), mark);
    EXPECT_NE(FileMark(folder.Touch("d", "contentt")), mark);
    EXPECT_EQ(FileMark(folder.Touch("e")), "0-cbf29ce484222325");
    EXPECT_THROW(FileMark(folder / "none"), RuntimeError);
    EXPECT_THROW(FileMark(folder.Path()), RuntimeError);
}

TEST(FileMark, SeesTheLastByteOfALongFile) {
    const TempFolder folder;
    std::string content(200000, 'x');
    const std::string mark = FileMark(folder.Touch("a", content));
    content.back() = 'y';
    EXPECT_NE(FileMark(folder.Touch("b", content)), mark);
}

TEST(ListFolder, NamesWhatComesWithTheProgramAndNothingThatStaysWithIt) {
    const TempFolder folder;
    for (const char* sub : {"Samples", "Help", "Scripts"}) fs::create_directory(folder / sub);
    for (const char* name :
         {"startup.mvp", "Samples/a b.wav", "Samples/a.so", "Samples/marvolin", "Scripts/x.mvs", "marvolin",
          "marvolin-editor.so", "marvolin.files", "Help/page", ".hidden", "Samples/.marvolin-1"}) {
        WriteBytes(folder / name, name);
    }
    EXPECT_EQ(NamesOf(ListFolder(folder.Path())),
              (std::vector<std::string>{"Samples/a b.wav", "Samples/a.so", "Samples/marvolin", "Scripts/x.mvs",
                                        "startup.mvp"}));
}

TEST(ListFolder, TheIdIsThatOfNamesAndContents) {
    const TempFolder one;
    const TempFolder two;
    one.Touch("a.wav", "content");
    two.Touch("a.wav", "content");
    const std::string id = ListFolder(one.Path()).Id;
    EXPECT_EQ(ListFolder(two.Path()).Id, id);
    two.Touch("a.wav", "other");
    EXPECT_NE(ListFolder(two.Path()).Id, id);
    one.Touch("b.wav");
    EXPECT_NE(ListFolder(one.Path()).Id, id);
    EXPECT_EQ(NamesOf(ListFolder(one / "none")), std::vector<std::string>{});
}

TEST(ReadList, ReadsWhatListTextWrites) {
    const FileList list{"id", {{"a b.wav", "1-2"}, {"Samples/c.wav", "3-4"}}};
    const FileList read = ReadList(ListText(list));
    EXPECT_EQ(read.Id, list.Id);
    EXPECT_EQ(read.Files, list.Files);
    ASSERT_NE(read.Find("a b.wav"), nullptr);
    EXPECT_EQ(read.Find("a b.wav")->Mark, "1-2");
    EXPECT_EQ(read.Find("a"), nullptr);
}

TEST(ReadList, LeavesOutWhatIsNoLineOfAListAndNamesThatLeadOutOfTheFolder) {
    const FileList read = ReadList(
        "marvolin files 1 id\n1-2 a\nword\n 1-2\n1-2 \n1-2 /etc/passwd\n1-2 ../b\n1-2 c/../../d\n1-2 ./e\n3-4 f");
    EXPECT_EQ(NamesOf(read), (std::vector<std::string>{"a", "f"}));
    EXPECT_EQ(ReadList("another text\n").Id, "");
    EXPECT_EQ(ReadList("").Id, "");
}

TEST(ReadListOf, IsEmptyWithoutAList) {
    const TempFolder folder;
    EXPECT_EQ(ReadListOf(folder.Path()).Id, "");
    EXPECT_EQ(ListIdOf(folder.Path()), "");
    folder.Touch("marvolin.files", ListText({"id", {{"a", "1-2"}}}));
    EXPECT_EQ(ListIdOf(folder.Path()), "id");
    EXPECT_EQ(NamesOf(ReadListOf(folder.Path())), std::vector<std::string>{"a"});
}

}  // namespace
}  // namespace marvolin
