#include "audio/recording.h"

#include <filesystem>
#include <fstream>

#include "fakes/instrument.h"
#include "fakes/temp_folder.h"

namespace marvolin::test {
namespace {

/// An instrument with an output to record.
struct Recording : public ::testing::Test {
    Recording() {
        i.Desk.Folder = folder.In("program");
        std::filesystem::create_directory(i.Desk.Folder);
        now.tm_year = 126;
        now.tm_mon = 10;
        now.tm_mday = 22;
        now.tm_hour = 21;
        now.tm_min = 5;
        now.tm_sec = 9;
    }
    std::string In(const std::string& name) const { return i.Desk.Folder + "/Recordings/" + name; }

    TempFolder folder;
    Instrument i;
    FakeOutput& output = i.Output;
    std::tm now{};
};

TEST_F(Recording, TheFileIsNamedForTheSetAndTheTime) {
    i.s.CurrentFile = "Late night.v2.mvn";
    ToggleRecording(i.s, now);
    EXPECT_EQ(output.Paths, std::vector<std::string>{In("Late night.v2 2026-11-22 21-05-09.wav")});
    EXPECT_EQ(i.s.StatusText, "Recording into \"Late night.v2 2026-11-22 21-05-09.wav\"");
}

TEST_F(Recording, WithoutASetItIsNamedForTheProgram) {
    ToggleRecording(i.s, now);
    EXPECT_EQ(output.Paths, std::vector<std::string>{In("marvolin 2026-11-22 21-05-09.wav")});
}

TEST_F(Recording, ASecondOneInTheSameSecondHasANameOfItsOwn) {
    for (int times = 0; times < 3; ++times) {
        ToggleRecording(i.s, now);
        ToggleRecording(i.s, now);
    }
    EXPECT_EQ(output.Paths, (std::vector<std::string>{In("marvolin 2026-11-22 21-05-09.wav"),
                                                      In("marvolin 2026-11-22 21-05-09 (2).wav"),
                                                      In("marvolin 2026-11-22 21-05-09 (3).wav")}));
}

TEST_F(Recording, TimeAndSizeShowWhileItRuns) {
    ToggleRecording(i.s, now);
    EXPECT_EQ(i.s.RecordingText, "0:00  0.0 MB");
    EXPECT_EQ(i.Screen.Count("ShowRecording"), 1);
    output.State.Frames = 44100 * 62 + 44099;
    WatchRecording(i.s);
    EXPECT_EQ(i.s.RecordingText, "1:02  11.1 MB");
    EXPECT_EQ(i.Screen.Count("ShowRecording"), 2);
    WatchRecording(i.s);
    EXPECT_EQ(i.Screen.Count("ShowRecording"), 2) << "nothing has changed";
    output.State.Frames = std::int64_t{44100} * 60 * 600;
    WatchRecording(i.s);
    EXPECT_EQ(i.s.RecordingText, "600:00  6350.4 MB");
}

TEST_F(Recording, TheSecondPressEndsItAndSaysHowLongItIs) {
    ToggleRecording(i.s, now);
    output.State.Frames = 44100 * 5;
    ToggleRecording(i.s, now);
    EXPECT_FALSE(output.IsRecording());
    EXPECT_EQ(i.s.StatusText, "Recorded 0:05: \"" + In("marvolin 2026-11-22 21-05-09.wav") + "\"");
    EXPECT_EQ(i.s.RecordingText, "");
    EXPECT_EQ(i.s.RecordingFile, "");
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

TEST_F(Recording, WhatTheDiskWasTooSlowForIsTold) {
    ToggleRecording(i.s, now);
    output.State.Frames = 44100;
    output.State.Missed = 882;
    WatchRecording(i.s);
    EXPECT_EQ(i.s.RecordingText, "0:01  gap 20 ms");
    output.State.Missed = 10;
    WatchRecording(i.s);
    EXPECT_EQ(i.s.RecordingText, "0:01  gap 1 ms") << "never 0";
    output.State.Missed = 44100 * 12;
    WatchRecording(i.s);
    EXPECT_EQ(i.s.RecordingText, "0:01  gap 12.0 s");
    output.State.Missed = 882;
    ToggleRecording(i.s, now);
    EXPECT_EQ(i.s.StatusText, "Recorded 0:01, 20 ms missing, the disk was too slow: \"" +
                                  In("marvolin 2026-11-22 21-05-09.wav") + "\"");
}

TEST_F(Recording, AFullDiskEndsItWithOneReportThatNamesWhatThereIs) {
    ToggleRecording(i.s, now);
    output.State.Frames = 44100 * 5;
    output.State.Failure = "Disk full";
    WatchRecording(i.s);
    WatchRecording(i.s);
    ASSERT_EQ(i.Desk.Boxes.size(), 1U);
    EXPECT_EQ(i.Desk.Boxes[0].Text, "The recording has ended: Disk full. What was recorded is in \"" +
                                        In("marvolin 2026-11-22 21-05-09.wav") + "\".");
    EXPECT_EQ(i.s.StatusText, "The recording has ended: Disk full") << "not that it was recorded";
    EXPECT_FALSE(i.Desk.Boxes[0].Waits);
    EXPECT_FALSE(output.IsRecording());
    EXPECT_EQ(i.s.RecordingText, "");
}

TEST_F(Recording, ARecordingThatCannotBeStartedIsReportedAndNothingRuns) {
    output.Refusal = "Permission denied";
    ToggleRecording(i.s, now);
    EXPECT_EQ(i.Desk.LastBox(), "Error starting recording in \"" + i.Desk.Folder + "/Recordings\": Permission denied");
    EXPECT_EQ(i.s.RecordingFile, "");
    EXPECT_EQ(i.s.RecordingText, "");
    output.Refusal.clear();
    ToggleRecording(i.s, now);
    EXPECT_TRUE(output.IsRecording());
}

TEST_F(Recording, AFileInPlaceOfTheFolderIsReportedAndStays) {
    std::ofstream(i.Desk.Folder + "/Recordings") << "a file";
    ToggleRecording(i.s, now);
    EXPECT_EQ(i.Desk.LastBox(),
              "Error starting recording in \"" + i.Desk.Folder + "/Recordings\": there is a file of that name");
    EXPECT_TRUE(std::filesystem::is_regular_file(i.Desk.Folder + "/Recordings"));
    EXPECT_TRUE(output.Paths.empty());
}

TEST_F(Recording, AFolderThatCannotBeMadeIsReported) {
    i.Desk.Folder = folder.In("away");
    ToggleRecording(i.s, now);
    EXPECT_EQ(i.Desk.LastBox(), "Error starting recording in \"" + i.Desk.Folder + "/Recordings\": File not found");
}

TEST_F(Recording, AFolderWhoseNameIsTooLongIsReported) {
    i.Desk.Folder = folder.In(std::string(300, 'x'));
    ToggleRecording(i.s, now);
    EXPECT_EQ(i.Desk.LastBox(),
              "Error starting recording in \"" + i.Desk.Folder + "/Recordings\": Bad file name or number");
}

TEST_F(Recording, ALongNameOfASetIsCutBetweenTwoLetters) {
    i.s.CurrentFile = std::string(199, 'x') + "\u00e4\u00e4.mvn";
    ToggleRecording(i.s, now);
    EXPECT_EQ(output.Paths, std::vector<std::string>{In(std::string(199, 'x') + " 2026-11-22 21-05-09.wav")});
}

TEST_F(Recording, ASlowDiskIsNotWaitedFor) {
    ToggleRecording(i.s, now);
    output.SlowDisk = true;
    output.State.Frames = 44100;
    ToggleRecording(i.s, now);
    EXPECT_EQ(i.s.RecordingText, "0:01  0.2 MB") << "it is not yet whole";
    ToggleRecording(i.s, now);
    EXPECT_EQ(i.s.StatusText, "The disk still writes the last recording");
    EXPECT_EQ(output.Paths.size(), 1U);
    output.FinishRecording();
    WatchRecording(i.s);
    EXPECT_EQ(i.s.StatusText, "Recorded 0:01: \"" + In("marvolin 2026-11-22 21-05-09.wav") + "\"");
    EXPECT_EQ(i.s.RecordingText, "");
    ToggleRecording(i.s, now);
    EXPECT_EQ(output.Paths.size(), 2U);
}

TEST_F(Recording, WithoutMemoryItIsReportedAndNothingRuns) {
    output.OutOfMemory = true;
    ToggleRecording(i.s, now);
    EXPECT_EQ(i.Desk.LastBox(), "Error starting recording in \"" + i.Desk.Folder + "/Recordings\": Out of memory");
    EXPECT_EQ(i.s.RecordingFile, "");
}

TEST_F(Recording, OnlyTheEndingOfASetIsCutFromItsName) {
    i.s.CurrentFile = "night v1.2";
    ToggleRecording(i.s, now);
    ToggleRecording(i.s, now);
    i.s.CurrentFile = "night v1.2.MVP";
    now.tm_sec = 10;
    ToggleRecording(i.s, now);
    EXPECT_EQ(output.Paths, (std::vector<std::string>{In("night v1.2 2026-11-22 21-05-09.wav"),
                                                      In("night v1.2 2026-11-22 21-05-10.wav")}));
}

TEST_F(Recording, ANameThatIsTakenInTheLastMomentIsLeftAndTheNextOneTried) {
    output.Taken = 1;
    ToggleRecording(i.s, now);
    EXPECT_EQ(output.Paths, std::vector<std::string>{In("marvolin 2026-11-22 21-05-09 (2).wav")});
    EXPECT_EQ(i.s.RecordingFile, In("marvolin 2026-11-22 21-05-09 (2).wav"));
    ToggleRecording(i.s, now);
    output.Taken = 1000;
    ToggleRecording(i.s, now);
    EXPECT_EQ(i.Desk.LastBox(),
              "Error starting recording in \"" + i.Desk.Folder + "/Recordings\": File already exists");
}

TEST_F(Recording, TheEndOfTheProgramWaitsForIt) {
    FinishRecording(i.s);
    EXPECT_EQ(i.s.StatusText, "");
    ToggleRecording(i.s, now);
    output.SlowDisk = true;
    FinishRecording(i.s);
    EXPECT_FALSE(output.IsRecording());
    EXPECT_EQ(i.s.RecordingFile, "");
}

TEST_F(Recording, TheEndOfTheProgramSaysWhatADiskHasNotTaken) {
    const auto reason = [&] {
        try {
            FinishRecording(i.s);
        } catch (const RuntimeError& error) {
            return std::string(error.what());
        }
        return std::string();
    };
    ToggleRecording(i.s, now);
    output.DiskHangs = true;
    EXPECT_EQ(reason(),
              "the disk does not take it. What was recorded is in \"" + In("marvolin 2026-11-22 21-05-09.wav") + "\"");
    output.DiskHangs = false;
    output.FinishRecording();
    ToggleRecording(i.s, now);
    output.State.Failure = "Disk full";
    EXPECT_EQ(reason(), "Disk full. What was recorded is in \"" + In("marvolin 2026-11-22 21-05-09 (2).wav") + "\"");
    EXPECT_TRUE(i.Desk.Boxes.empty()) << "told once";
}

TEST_F(Recording, SilenceIsAToggleAndSaysHowTheSoundComesBack) {
    ToggleSilence(i.s);
    EXPECT_TRUE(output.Silent);
    EXPECT_EQ(i.s.StatusText, "Silence: F12 brings the sound back");
    ToggleSilence(i.s);
    EXPECT_FALSE(output.Silent);
    EXPECT_EQ(i.s.StatusText, "The sound is back");
    EXPECT_EQ(i.Screen.Count("ShowSilence"), 2);
}

TEST_F(Recording, WithoutAnOutputNothingHappens) {
    i.s.World.Output = nullptr;
    ToggleRecording(i.s, now);
    WatchRecording(i.s);
    ToggleSilence(i.s);
    EXPECT_EQ(i.s.StatusText, "");
    EXPECT_TRUE(i.Desk.Boxes.empty());
}

}  // namespace
}  // namespace marvolin::test
