#include "core/files/record_stream.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cmath>
#include <filesystem>
#include <limits>

#include "core/errors.h"
#include "core/files/keyed_table.h"
#include "fakes/file_bytes.h"
#include "fakes/limits.h"

namespace marvolin {
namespace {

using test::Bytes;
using test::FullDisk;
using test::ReadBytes;
using test::TempFolder;
using test::WriteBytes;

std::string DescriptionOf(const std::function<void()>& act) {
    try {
        act();
    } catch (const RuntimeError& e) {
        return e.what();
    }
    return "no error";
}

TEST(RecordStream, WritesLittleEndianWithoutPadding) {
    TempFolder folder;
    RecordWriter file(folder / "f");
    file.PutByte(0xFE);
    file.PutInteger(-2);
    file.PutLong(0x01020304);
    file.PutSingle(1.5F);
    file.PutDouble(-2.0);
    file.PutBoolean(true);
    file.PutBoolean(false);
    file.PutString("");
    file.PutString("END");
    file.Close();
    const std::string expected(
        "\xFE\xFE\xFF\x04\x03\x02\x01\x00\x00\xC0\x3F\x00\x00\x00\x00\x00\x00\x00\xC0\xFF\xFF"
        "\x00\x00\x00\x00\x03\x00"
        "END",
        30);
    EXPECT_EQ(ReadBytes(folder / "f"), expected);
}

TEST(RecordStream, TheSectionTagSettingsIsTwelveBytesAndEndSeven) {
    TempFolder folder;
    RecordWriter file(folder / "f");
    file.PutTagged(std::string_view("Settings"));
    file.PutTagged(std::string_view("END"));
    file.Close();
    EXPECT_EQ(ReadBytes(folder / "f"), std::string("\x08\x00\x08\x00Settings\x08\x00\x03\x00\x45\x4E\x44", 19));
}

TEST(RecordStream, EveryTaggedValueComesBackWithItsType) {
    TempFolder folder;
    const std::vector<TaggedValue> values{std::int16_t{-32768}, std::int32_t{2147483647}, 0.1, std::string("a\0b", 3),
                                          TaggedBoolean{7}};
    RecordWriter file(folder / "f");
    for (const TaggedValue& value : values) file.PutTagged(value);
    file.Close();
    RecordReader back(folder / "f");
    for (const TaggedValue& value : values) EXPECT_EQ(back.GetTagged(), value);
    EXPECT_EQ(back.Left(), 0U);
}

TEST(RecordStream, ReadsBackWhatIsLongerThanItsBuffer) {
    TempFolder folder;
    RecordWriter file(folder / "f");
    for (int i = 0; i < 100000; ++i) file.PutLong(i);
    file.PutString(std::string(32767, 'x'));
    file.Close();
    RecordReader back(folder / "f");
    for (int i = 0; i < 100000; ++i) ASSERT_EQ(back.GetLong(), i);
    EXPECT_EQ(back.GetString(), std::string(32767, 'x'));
}

TEST(RecordStream, AStringLongerThanItsLengthFieldCountsIsRefused) {
    TempFolder folder;
    RecordWriter file(folder / "f");
    EXPECT_THROW(file.PutString(std::string(32768, 'x')), OverflowError);
}

TEST(RecordStream, ALengthBeyondTheEndOfTheFileIsRefused) {
    TempFolder folder;
    WriteBytes(folder / "f", Bytes().I16(32767).Raw("abc").Str());
    EXPECT_EQ(DescriptionOf([&] { RecordReader(folder / "f").GetString(); }), "Input past end of file");
    EXPECT_EQ(DescriptionOf([&] { RecordReader(folder / "f").GetDouble(); }), "Input past end of file");
    EXPECT_EQ(DescriptionOf([&] { RecordReader(folder / "f").GetBytes(std::size_t{1} << 40); }),
              "Input past end of file");
}

TEST(RecordStream, BytesArePassedOverInsideAndBeyondItsBuffer) {
    TempFolder folder;
    WriteBytes(folder / "f",
               Bytes().I16(1).Raw(std::string(10, 'x')).I16(2).Raw(std::string(200000, 'x')).I16(3).Str());
    RecordReader file(folder / "f");
    EXPECT_EQ(file.GetInteger(), 1);
    file.Skip(10);
    EXPECT_EQ(file.GetInteger(), 2);
    file.Skip(200000);
    EXPECT_EQ(file.Left(), 2U);
    EXPECT_EQ(DescriptionOf([&] { file.Skip(3); }), "Input past end of file");
    EXPECT_EQ(file.GetInteger(), 3);
}

TEST(RecordStream, ANegativeLengthAndAnUnknownTypeAreErrors) {
    TempFolder folder;
    WriteBytes(folder / "f", Bytes().I16(-1).I32(0).Str());
    EXPECT_EQ(DescriptionOf([&] { RecordReader(folder / "f").GetString(); }), "Bad record length");
    EXPECT_EQ(DescriptionOf([&] { RecordReader(folder / "f").GetTagged(); }), "Type mismatch");
}

TEST(RecordStream, ACountMustFitTheRestOfTheFile) {
    TempFolder folder;
    WriteBytes(folder / "f", std::string(100, '\0'));
    RecordReader file(folder / "f");
    EXPECT_EQ(file.CheckedCount(25, 4), 25);
    EXPECT_EQ(file.CheckedCount(0, 4), 0);
    EXPECT_THROW(file.CheckedCount(26, 4), RuntimeError);
    EXPECT_THROW(file.CheckedCount(-1, 4), RuntimeError);
    EXPECT_THROW(file.CheckedCount(std::numeric_limits<std::int32_t>::max(), 1000), RuntimeError);
}

TEST(RecordStream, OnlyPlainFilesOpen) {
    TempFolder folder;
    EXPECT_EQ(DescriptionOf([&] { RecordReader file(folder / "none"); }), "File not found");
    EXPECT_EQ(DescriptionOf([&] { RecordReader file(folder.Path()); }), "Path/File access error");
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(DescriptionOf([&] { RecordReader file(folder / "pipe"); }), "Path/File access error");
}

TEST(RecordStream, AFileThatCannotGrowReportsDiskFull) {
    TempFolder folder;
    WriteBytes(folder / "f", "old");
    std::string description;
    {
        const FullDisk full(1000);
        description = DescriptionOf([&] {
            RecordWriter file(folder / "f");
            for (int i = 0; i < 1000; ++i) file.PutLong(i);
            file.Close();
        });
    }
    EXPECT_EQ(description, "Disk full");
    EXPECT_EQ(ReadBytes(folder / "f"), "old");
}

TEST(KeyedTable, KeepsTheOrderOfInsertion) {
    KeyedTable table;
    table.Put("b", std::int16_t{1});
    table.Put("a", std::int16_t{2});
    table.Put("b", std::int16_t{3});
    ASSERT_EQ(table.Pairs().size(), 2U);
    EXPECT_EQ(table.Pairs()[0].first, "b");
    EXPECT_EQ(AsInteger(*table.Find("b")), 3);
    EXPECT_EQ(table.Find("c"), nullptr);
}

TEST(KeyedTable, IsWrittenAsCountKeysAndValues) {
    TempFolder folder;
    KeyedTable table;
    table.Put("Limit", std::string("4"));
    table.Put(IndexedKey("JoyFactor", 0), std::int16_t{500});
    table.Put("FadeFactor", 2.0);
    RecordWriter file(folder / "f");
    WriteDictionary(table, file);
    file.Close();
    const std::string expected = Bytes()
                                     .TagI32(3)
                                     .TagText("Limit")
                                     .TagText("4")
                                     .TagText("JoyFactor 0")
                                     .TagI16(500)
                                     .TagText("FadeFactor")
                                     .TagF64(2)
                                     .Str();
    EXPECT_EQ(ReadBytes(folder / "f"), expected);
    RecordReader back(folder / "f");
    EXPECT_EQ(ReadDictionary(back).Pairs(), table.Pairs());
}

TEST(KeyedTable, ACountThatTheFileCannotHoldIsRefusedBeforeAnythingIsMade) {
    TempFolder folder;
    for (const std::int64_t count : {-1LL, 32767LL, 2147483647LL}) {
        WriteBytes(folder / "f", Bytes().TagI32(count).TagText("a").TagI16(1).Str());
        RecordReader file(folder / "f");
        EXPECT_THROW(ReadDictionary(file), RuntimeError) << count;
    }
}

TEST(KeyedTable, AKeyOrCountOfTheWrongTypeIsATypeMismatch) {
    TempFolder folder;
    WriteBytes(folder / "f", Bytes().TagI16(1).TagText("a").TagI16(1).Str());
    EXPECT_EQ(DescriptionOf([&] {
                  RecordReader file(folder / "f");
                  ReadDictionary(file);
              }),
              "Type mismatch");
    WriteBytes(folder / "f", Bytes().TagI32(1).TagI16(5).TagI16(1).Raw("pad").Str());
    EXPECT_EQ(DescriptionOf([&] {
                  RecordReader file(folder / "f");
                  ReadDictionary(file);
              }),
              "Type mismatch");
}

TEST(TaggedValue, ConvertsBetweenNumbersAndTexts) {
    EXPECT_EQ(AsInteger(2.5), 2);
    EXPECT_EQ(AsInteger(std::string(" 12 ")), 12);
    EXPECT_EQ(AsInteger(TaggedBoolean{True}), -1);
    EXPECT_THROW(AsInteger(std::int32_t{32768}), OverflowError);
    EXPECT_THROW(AsInteger(std::nan("")), OverflowError);
    EXPECT_EQ(DescriptionOf([] { AsInteger(std::string("x")); }), "Type mismatch");
    EXPECT_EQ(AsText(std::int16_t{7}), "7");
    EXPECT_TRUE(AsTruth(TaggedBoolean{5}));
    EXPECT_FALSE(AsTruth(std::string("True")));
}

}  // namespace
}  // namespace marvolin
