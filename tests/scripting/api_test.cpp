#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "fakes/temp_folder.h"
#include "parameters/knob_gesture.h"
#include "scripting/api/api_arguments.h"
#include "scripting/api/api_table.h"
#include "scripting/lua_rig.h"

namespace marvolin {
namespace {

using test::LuaRig;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

/// Runs `act(function)` for each function of the API.
template <typename Act>
void ForFunctions(Act act) {
    for (const ApiSubject& subject : ApiSubjects()) {
        for (const ApiFunction& function : subject.Functions) {
            SCOPED_TRACE(std::string(function.Name));
            act(function);
        }
    }
}

/// An argument that a parameter accepts, as Lua writes it.
std::string Good(const ApiParameter& parameter) {
    switch (parameter.Kind) {
        case ArgumentKind::AnyRow:
        case ArgumentKind::PlayRow:
        case ArgumentKind::LoopTrack:
            return "'A'";
        case ArgumentKind::Whole:
        case ArgumentKind::Number:
            return std::to_string(static_cast<int>(parameter.High));
        case ArgumentKind::Flag:
            return "true";
        case ArgumentKind::Text:
            return "'text'";
        case ArgumentKind::Choice:
            return "'" + std::string(parameter.Choices.substr(0, parameter.Choices.find('|'))) + "'";
        case ArgumentKind::Function:
            return "print";
    }
    return "";
}

/// Arguments that no parameter of this kind accepts.
std::vector<std::string> Bad(const ApiParameter& parameter) {
    std::vector<std::string> bad{"{}", "coroutine.create(print)"};
    const bool ranged = parameter.Kind == ArgumentKind::Whole || parameter.Kind == ArgumentKind::Number;
    const bool isRow = parameter.Kind == ArgumentKind::AnyRow || parameter.Kind == ArgumentKind::PlayRow ||
                       parameter.Kind == ArgumentKind::LoopTrack;
    if (parameter.Kind != ArgumentKind::Flag) bad.emplace_back("false");
    if (parameter.Kind != ArgumentKind::Function) bad.emplace_back("print");
    if (parameter.Kind != ArgumentKind::Text) bad.emplace_back("'no such thing'");
    if (!ranged && !isRow) bad.emplace_back("1");
    if (ranged || isRow) {
        bad.push_back(std::to_string(parameter.High + 1));
        bad.push_back(std::to_string(parameter.Low - 1));
        for (const char* number : {"0/0", "1/0", "-1/0", "2^63", "'1'"}) bad.emplace_back(number);
    }
    if (parameter.Kind == ArgumentKind::Whole || isRow) bad.emplace_back("1.5");
    if (isRow) {
        for (const char* letter : {"''", "'E'", "'AB'", "'\\0'"}) bad.emplace_back(letter);
    }
    return bad;
}

/// The call with argument `wrong` replaced by `text`; `count` arguments.
std::string CallOf(const ApiFunction& function, std::size_t count, std::size_t wrong, const std::string& text) {
    std::string call = "marvolin." + std::string(function.Name) + "(";
    for (std::size_t i = 0; i < count; ++i) {
        call += (i > 0 ? ", " : "") + (i == wrong ? text : Good(function.Parameters[i]));
    }
    return call + ")";
}

TEST(Api, EveryFunctionIsDocumentedAndCalledByItsExample) {
    std::set<std::string_view> names;
    ForFunctions([&](const ApiFunction& function) {
        EXPECT_TRUE(names.insert(function.Name).second);
        EXPECT_THAT(std::string(function.Text), ::testing::EndsWith("."));
        EXPECT_NE(function.Act, nullptr);
        EXPECT_THAT(std::string(function.Example), HasSubstr("marvolin." + std::string(function.Name)));
    });
    EXPECT_GT(names.size(), 70U);
}

TEST(Api, EveryExampleHolds) {
    ForFunctions([](const ApiFunction& function) {
        LuaRig i;
        EXPECT_TRUE(i.Run(std::string(function.Example)));
        EXPECT_THAT(i.Box(), IsEmpty());
        EXPECT_THAT(i.Desk.Boxes, IsEmpty());
    });
}

TEST(Api, AnArgumentOfAnotherTypeOrOutOfRangeIsAnErrorThatNamesItWithTheLine) {
    ForFunctions([](const ApiFunction& function) {
        LuaRig i;
        for (std::size_t wrong = 0; wrong < ParameterCount(function); ++wrong) {
            const ApiParameter& parameter = function.Parameters[wrong];
            for (const std::string& bad : Bad(parameter)) {
                const std::string call = CallOf(function, ParameterCount(function), wrong, bad);
                const std::string box = i.Prints("\n" + call);
                EXPECT_THAT(box, StartsWith("song.mvs: " + std::string(function.Name) + ": argument " +
                                            std::to_string(wrong + 1) + " (" + std::string(parameter.Name) +
                                            ") must be " + Wanted(parameter) + ", not "))
                    << call;
                EXPECT_THAT(box, HasSubstr("ln:2")) << call;
            }
        }
    });
}

TEST(Api, AnArgumentThatIsMissingOrTooManyIsAnError) {
    ForFunctions([](const ApiFunction& function) {
        LuaRig i;
        const std::size_t count = ParameterCount(function);
        for (std::size_t given = 0; given < count; ++given) {
            if (function.Parameters[given].Optional) continue;
            EXPECT_THAT(i.Prints(CallOf(function, given, count, "")), HasSubstr(", not missing")) << given;
        }
        std::string more = CallOf(function, count, count, "");
        more.insert(more.size() - 1, count == 0 ? "1" : ", 1");
        EXPECT_THAT(i.Prints(more), HasSubstr(": takes " + std::to_string(count)));
    });
}

TEST(Api, TheEndsOfEachRangeAreAccepted) {
    ForFunctions([](const ApiFunction& function) {
        for (std::size_t which = 0; which < ParameterCount(function); ++which) {
            const ApiParameter& parameter = function.Parameters[which];
            if (parameter.Kind != ArgumentKind::Whole && parameter.Kind != ArgumentKind::Number) continue;
            for (const double end : {parameter.Low, parameter.High}) {
                LuaRig i;
                const std::string number =
                    parameter.Kind == ArgumentKind::Whole ? std::to_string(static_cast<int>(end)) : std::to_string(end);
                EXPECT_THAT(i.Prints(CallOf(function, ParameterCount(function), which, number)),
                            Not(HasSubstr("must be a")));
            }
        }
    });
}

TEST(Api, RowsAreNumbersOrLetters) {
    LuaRig i;
    EXPECT_EQ(
        i.Prints("for _, row in ipairs{0, 'A', 'a', 3, 'D', 'd', 4, 'Z', 'z', 5, 2.0} do marvolin.volume(row) end "
                 "print('all')"),
        "all");
    i.Run("marvolin.set_volume('C', 7)  marvolin.set_volume('d', 8)");
    EXPECT_EQ(i.s.Set[2].Vol, 7);
    EXPECT_EQ(i.s.Set[3].Vol, 8);
}

TEST(Api, SettersReachTheGangAsTheHandDoes) {
    LuaRig i;
    i.Run(
        "marvolin.select_range('B', 'C')  marvolin.set_volume('Z', 100)  marvolin.set_pan('Z', 50)\n"
        "marvolin.set_frequency('Z', 50)  marvolin.set_wire('Z', 6)  marvolin.set_play_mode('Z', 'drum')");
    for (Row row = 0; row <= kSelectionRow; ++row) {
        const bool reached = row == 1 || row == 2 || row == 4;
        EXPECT_EQ(i.s.Set[row].Vol, reached ? 100 : 500) << row;
        EXPECT_EQ(i.s.Set[row].Pan, reached ? 550 : 500) << row;
        EXPECT_EQ(i.s.Set[row].Hz, reached ? 500 : 1000) << row;
        EXPECT_EQ(i.s.Set[row].PlayMode, reached ? kDrum : kLoop) << row;
    }
    EXPECT_EQ(i.s.Set[1].Channel, 6);
    EXPECT_EQ(i.s.Set[0].Channel, 1);
}

TEST(Api, AVolumeEndsTheFadeOfTheRow) {
    LuaRig i;
    i.Run("marvolin.fade('A', 'down')  marvolin.set_volume('A', 300)");
    EXPECT_EQ(i.s.Run[0].FadeState, kNoFade);
    EXPECT_EQ(i.s.Set[0].Vol, 300);
    i.Run("marvolin.fade('A', 'down')  marvolin.set_volume(5, 300)");
    EXPECT_EQ(i.s.Run[0].FadeState, kFalling);
}

TEST(Api, ThePatternsOfTheControlledRowsAreSetTogether) {
    LuaRig i;
    i.Run(
        "marvolin.select_range('A', 'B')\nmarvolin.set_pattern('Z', 'volume', 32, 9)\n"
        "marvolin.set_spread('Z', 'frequency', 2.5)\nmarvolin.set_steps('Z', 8)\nmarvolin.set_step_duration('Z', 0.2)\n"
        "marvolin.set_swing('Z', 0.1)\nmarvolin.set_sample_start('Z', 0.5)");
    for (const int row : {0, 1}) {
        EXPECT_EQ(i.s.Set[row].Pattern[kVolPattern][31], 9);
        EXPECT_EQ(i.s.Set[row].Pattern[kHzPattern][kPatternOffset], 25);
        EXPECT_EQ(i.s.Set[row].NSteps, 7);
        EXPECT_EQ(i.s.Set[row].StepDuration, 20);
        EXPECT_EQ(i.s.Set[row].Swing, 10);
        EXPECT_EQ(i.s.Set[row].BeatStart, 50);
    }
    EXPECT_EQ(i.s.Set[2].NSteps, 3);
    EXPECT_EQ(i.Prints("marvolin.reset_pattern('Z', 'volume')  print(marvolin.pattern('B', 'volume', 32))"), "500");
}

TEST(Api, AStepValueMustFitThePatternItIsFor) {
    LuaRig i;
    EXPECT_THAT(i.Prints("marvolin.set_pattern('A', 'volume', 1, -1)"),
                StartsWith("song.mvs: set_pattern: the value must be from 0 to 500, not -1,  ln:1"));
    EXPECT_THAT(i.Prints("marvolin.set_pattern('A', 'frequency', 1, 400.1)"), HasSubstr("from 0.1 to 400, not 400.1"));
    EXPECT_THAT(i.Prints("marvolin.set_pattern('A', 'frequency', 1, 0)"), HasSubstr("from 0.1 to 400"));
    EXPECT_THAT(i.Prints("marvolin.set_spread('A', 'volume', 501)"), HasSubstr("from 0 to 500"));
    EXPECT_EQ(i.Prints("marvolin.set_pattern('A', 'pan', 1, -500)  marvolin.set_spread('A', 'pan', 1000)"), "");
}

TEST(Api, ASampleIsLoadedAndPlayed) {
    LuaRig i;
    const test::TempFolder folder;
    folder.Touch("tone.wav", "RIFF");
    folder.Touch("notes.txt", "text");
    i.s.CurrentFolder = folder.Path() + "/";
    EXPECT_EQ(i.Prints("marvolin.load('C', 'tone.wav', true)  print(marvolin.playing('C'), marvolin.sample('C'))"),
              "true\ttone\t" + (folder / "tone.wav"));
    EXPECT_EQ(i.Prints("marvolin.load('D', '" + (folder / "tone.wav") + "')  print(marvolin.playing('D'))"), "false");
    EXPECT_THAT(i.Prints("marvolin.load('C', 'none.wav')"), HasSubstr("load: there is no file "));
    EXPECT_THAT(i.Prints("marvolin.load('C', 'notes.txt')"), HasSubstr("load: this is no sample: "));
    EXPECT_THAT(i.Prints("marvolin.load('C', '')"), HasSubstr("load: the path is no path"));
    EXPECT_THAT(i.Prints("marvolin.load('C', 'a\\0b')"), HasSubstr("load: the path is no path"));
    EXPECT_THAT(i.Prints("marvolin.load('C', '/dev/zero')"), HasSubstr("load: this is no sample: "));
}

TEST(Api, OneEventLoadsAtMostEightSamples) {
    LuaRig i;
    EXPECT_EQ(i.Prints("for n = 1, 8 do marvolin.reverse('A') end  print(marvolin.reversed('A'))"), "false");
    EXPECT_THAT(i.Prints("for n = 1, 9 do marvolin.reverse('A') end"), HasSubstr("at most 8 samples and sets"));
}

TEST(Api, TheTimeOfALoadIsNotChargedToTheEvent) {
    LuaRig i;
    const test::TempFolder folder;
    folder.Touch("scene.mvn");
    i.s.CurrentFolder = folder.Path() + "/";
    i.Store.OnLoad = [&] { i.Now += 5'000'000'000; };
    EXPECT_EQ(i.Prints("print(marvolin.load_set('scene'))  for n = 1, 1000 do end"), "true");
    EXPECT_THAT(i.Store.Log.back(), StartsWith("Load " + (folder / "scene.mvn") + " current adopt"));
}

TEST(Api, SetsAreListedAndLoadedByName) {
    LuaRig i;
    const test::TempFolder folder;
    for (const char* name : {"verse.mvn", "chorus.mvn"}) folder.Touch(name);
    i.s.CurrentFolder = folder.Path() + "/";
    EXPECT_EQ(i.Prints("print(marvolin.set_count(), marvolin.set_name(1), marvolin.set_name(2), marvolin.set_name(3))"),
              "2\tchorus\tverse\tnil");
    EXPECT_THAT(i.Prints("marvolin.load_set('bridge')"), HasSubstr("load_set: QuickLoad has no set \"bridge\""));
    EXPECT_THAT(i.Prints("marvolin.load_set('<Close>')"), HasSubstr("has no set"));
    i.Store.Answer = false;
    EXPECT_EQ(i.Prints("print(marvolin.load_set('verse'))"), "false");
}

TEST(Api, ASetThatAScriptLoadsIsTheOneThatSaveWrites) {
    LuaRig i;
    const test::TempFolder folder;
    folder.Touch("verse.mvn");
    i.s.CurrentFolder = folder.Path() + "/";
    i.s.DialogueFile = "chorus.mvn";
    i.Store.OnLoad = [&] { i.s.CurrentFile = "verse.mvn"; };
    EXPECT_EQ(i.Prints("print(marvolin.load_set('verse'))"), "true");
    EXPECT_EQ(i.s.DialogueFile, "verse.mvn");
    EXPECT_THAT(i.Screen.Log, testing::Contains("ShowSaveOpen"));
    i.s.DialogueFile = "chorus.mvn";
    i.Store.Answer = false;
    EXPECT_EQ(i.Prints("print(marvolin.load_set('verse'))"), "false");
    EXPECT_EQ(i.s.DialogueFile, "chorus.mvn");
}

TEST(Api, ATextForTheStatusLineIsCutAndItsLineEndsAreBlanks) {
    LuaRig i;
    EXPECT_EQ(i.Prints("marvolin.status('one\\ntwo\\0three')"), "");
    EXPECT_EQ(i.s.StatusText, "one two three");
    EXPECT_EQ(i.Prints("marvolin.status(('x'):rep(100000))"), "");
    EXPECT_EQ(i.s.StatusText, std::string(200, 'x'));
    EXPECT_EQ(i.Prints("marvolin.status(('x'):rep(199) .. 'ü')"), "");
    EXPECT_EQ(i.s.StatusText, std::string(199, 'x'));
}

TEST(Api, AScriptThatClearsTheRowInTheHandLeavesTheDragAsItIs) {
    LuaRig i;
    i.Run("function OnVolScroll(row) marvolin.clear(row - 1) end");
    i.s.Run[0].Playing = True;
    KnobGesture(i.s, Knob::Vol, 0, Phase::Down, kLeftButton, 0, 0);
    KnobGesture(i.s, Knob::Vol, 0, Phase::Move, kLeftButton, -50, 0);
    KnobGesture(i.s, Knob::Vol, 0, Phase::Up, kLeftButton, -60, 0);
    EXPECT_EQ(i.s.Run[0].Loaded, False);
    EXPECT_EQ(i.s.Drag.Dragging, False);
    EXPECT_THAT(i.Desk.Boxes, IsEmpty());
}

TEST(Api, OnlyWhatPlaysIsPausedAndOnlyWhatIsPausedIsResumed) {
    LuaRig i;
    i.Run("marvolin.pause('A')  marvolin.pause('D')  marvolin.resume('A')  marvolin.resume('D')  marvolin.pause('Z')");
    EXPECT_EQ(i.s.Run[0].Paused, False);
    EXPECT_THAT(i.Desk.Boxes, IsEmpty());
    EXPECT_EQ(i.Prints("marvolin.play('A') marvolin.pause('A') marvolin.pause('A') marvolin.resume('A') "
                       "print(marvolin.paused('A'), marvolin.playing('A'))"),
              "false\ttrue");
}

TEST(Api, AFailureOfTheSoundIsReportedAsAlways) {
    LuaRig i;
    i.Run("marvolin.play('A')");
    i.Sound.Failures["Stop"] = sound_error::kGeneric;
    EXPECT_THAT(i.Prints("marvolin.pause('A')"),
                HasSubstr("pause: An undetermined error occurred inside the DirectSound subsystem."));
}

TEST(Api, TheStatusLineShowsTheText) {
    LuaRig i;
    i.Run("marvolin.status('Verse 2')");
    EXPECT_EQ(i.s.StatusText, "Verse 2");
}

TEST(Api, TheClockCountsHoursMinutesSecondsAndTheirPart) {
    LuaRig i;
    i.s.Clock.ClockHours = 1;
    i.s.Clock.ClockMinutes = 2;
    i.s.Clock.ClockSeconds = 3;
    i.s.Clock.ClockMsPart = 250;
    EXPECT_EQ(i.Prints("print(marvolin.clock())"), "3723.25");
}

}  // namespace
}  // namespace marvolin
