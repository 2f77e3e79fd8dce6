/// A server that does not ask for minutes while everything goes on.

#include <algorithm>
#include <array>
#include <map>
#include <memory>

#include "audio/clocked_rig.h"
#include "audio/openal/call_sender.h"

namespace marvolin::test {
namespace {

constexpr std::size_t kVoices = 4;
constexpr int kTicks = 5 * 60 * 100;  // of 10 ms, five minutes

/// The sender's end of a ring that nobody reads. The voices are only told apart, never looked at.
struct HungRing {
    CallRing Ring{64};
    CallSender Sender{Ring};
    std::array<std::int64_t, kVoices> Last{};
    std::array<std::uint32_t, kVoices> Serial{};
    std::array<std::max_align_t, kVoices> Voices{};

    Call Make(std::size_t voice, CallKind kind, std::int32_t number) {
        Call call;
        call.Kind = kind;
        call.Voice = reinterpret_cast<VoicePlayer*>(&Voices[voice]);
        call.Number = number;
        call.Numbers[0] = static_cast<float>(number);
        return call;
    }
    void Set(std::size_t voice, CallKind kind, std::int32_t number) {
        Sender.Post(Make(voice, kind, number), Pace::Soon, Last[voice]);
    }
    void Move(std::size_t voice, CallKind kind, std::int32_t number, bool flag) {
        Call call = Make(voice, kind, number);
        call.Flag = flag;
        call.Serial = ++Serial[voice];
        Sender.Post(call, Pace::OnFrame, Last[voice]);
    }
    /// All calls on their way, once the ring is read again.
    std::vector<Call> ReadAll() {
        std::vector<Call> calls;
        Call call;
        do {
            while (Ring.Read_rt(call)) calls.push_back(call);
            Sender.CatchUp();
        } while (Ring.Waiting() > 0);
        return calls;
    }
};

TEST(HungServer, AMinuteOfStepsAndChangesTakesNoMoreRoomThanASecond) {
    HungRing hung;
    std::size_t afterASecond = 0;
    for (int tick = 0; tick < kTicks; ++tick) {
        for (std::size_t voice = 0; voice < kVoices; ++voice) {
            hung.Move(voice, CallKind::Jump, tick, true);
            hung.Set(voice, CallKind::Gains, tick);
            hung.Set(voice, CallKind::Pitch, tick);
            hung.Set(voice, CallKind::Gains, tick + 1);
            hung.Set(voice, CallKind::Place, tick);
        }
        if (tick == 100) afterASecond = hung.Sender.Waiting();
    }
    EXPECT_EQ(hung.Sender.Waiting(), afterASecond);
    EXPECT_LE(afterASecond, hung.Ring.Room() + 4 * kVoices);
    EXPECT_GT(hung.Sender.Overflowed(), static_cast<std::uint64_t>(kTicks));
    // What was called last counts in the end.
    std::map<std::pair<const void*, CallKind>, Call> last;
    for (const Call& call : hung.ReadAll()) last[{call.Voice, call.Kind}] = call;
    ASSERT_EQ(last.size(), 4 * kVoices);
    for (const auto& [key, call] : last) EXPECT_EQ(call.Number, key.second == CallKind::Gains ? kTicks : kTicks - 1);
}

TEST(HungServer, EachStartAndStopIsKeptInOrderAndAChangeStaysOnItsSideOfThem) {
    HungRing hung;
    std::vector<std::pair<CallKind, std::uint32_t>> moves;
    for (int i = 0; i < 400; ++i) {
        const bool play = i % 2 == 0;
        hung.Set(1, CallKind::Gains, 10 * i);
        hung.Set(1, CallKind::Gains, 10 * i + 5);
        hung.Move(1, play ? CallKind::Play : CallKind::Stop, i, play);
        moves.emplace_back(play ? CallKind::Play : CallKind::Stop, hung.Serial[1]);
    }
    std::vector<std::pair<CallKind, std::uint32_t>> heard;
    int gains = -1;
    for (const Call& call : hung.ReadAll()) {
        if (call.Kind == CallKind::Gains) gains = call.Number;
        if (call.Kind == CallKind::Gains) continue;
        // A start has the last gains that were called before it.
        EXPECT_EQ(gains, 10 * call.Number + 5);
        heard.emplace_back(call.Kind, call.Serial);
    }
    EXPECT_EQ(heard, moves);
}

TEST(HungServer, AJumpReplacesOnlyAJumpOfTheSameVoiceThatNoStartOrStopFollows) {
    HungRing hung;
    for (int i = 0; i < 64; ++i) hung.Set(0, CallKind::Distances, i);
    hung.Move(0, CallKind::Jump, 1, false);
    hung.Move(1, CallKind::Jump, 2, false);
    hung.Move(0, CallKind::Play, 3, true);
    hung.Move(0, CallKind::Jump, 4, true);
    hung.Move(0, CallKind::Jump, 5, true);
    hung.Move(1, CallKind::Jump, 6, false);
    std::vector<std::int32_t> numbers;
    std::vector<std::uint32_t> serials;
    for (const Call& call : hung.ReadAll()) {
        if (call.Kind == CallKind::Distances) continue;
        numbers.push_back(call.Number);
        serials.push_back(call.Serial);
    }
    EXPECT_EQ(numbers, (std::vector<std::int32_t>{1, 6, 3, 5}));
    EXPECT_EQ(serials, (std::vector<std::uint32_t>{1, 2, 2, 4}));
}

class HungServerHeard : public ClockedRig {};

TEST_F(HungServerHeard, AfterMinutesWithoutAQuestionEverythingSoundsAsItWasCalledForLast) {
    std::array<std::unique_ptr<DirectSoundBuffer>, kVoices> buffers;
    for (auto& buffer : buffers) {
        buffer = LoadLevels(5000, 5000, 44100);
        buffer->Play(1);
    }
    Play(4096);
    for (int tick = 0; tick < 2 * 60 * 100; ++tick) {
        Time.PassFrames(441);
        const CallGroup group(*Clock, static_cast<Instant>(Clock->Now()));
        for (auto& buffer : buffers) {
            buffer->SetCurrentPosition(0);
            buffer->SetVolume(-(tick % 3000));
            buffer->SetPan(tick % 100);
            buffer->SetFrequency(40000 + tick % 4000);
            EXPECT_EQ(buffer->GetStatus(), 5);
        }
    }
    buffers[0]->Stop();
    for (auto& buffer : buffers) {
        buffer->SetVolume(-602);
        buffer->SetPan(0);
        buffer->SetFrequency(44100);
    }
    EXPECT_GT(Counts().Overflowed, 100'000U);
    for (int i = 0; i < 400; ++i) {
        const CallGroup group(*Clock);
        Play(kPeriod);
    }
    EXPECT_NEAR(LeftAt(Rendered() - 1), 3 * 5000 * std::pow(10.0, -0.301), 3 * kStep);
    EXPECT_EQ(buffers[0]->GetStatus(), 0);
    EXPECT_EQ(buffers[1]->GetStatus(), 5);
}

}  // namespace
}  // namespace marvolin::test
