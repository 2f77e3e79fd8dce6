#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "make_samples/canvas.h"
#include "make_samples/effects.h"
#include "make_samples/filters.h"
#include "make_samples/finishing.h"
#include "make_samples/keys.h"
#include "make_samples/oscillators.h"
#include "make_samples/patterns.h"
#include "make_samples/strings.h"

namespace marvolin::samples {
namespace {

/// Periods of a tone in a second, counted at its upward zero crossings.
int RisingCrossings(const Signal& signal, std::size_t from, std::size_t to) {
    int crossings = 0;
    for (std::size_t i = from + 1; i < to; ++i) crossings += signal[i - 1] < 0 && signal[i] >= 0;
    return crossings;
}

/// The share of the frequency `hz` in a signal: the magnitude of a single correlation under a bell-shaped window.
double PartAt(const Signal& signal, double hz, std::size_t from, std::size_t count) {
    double re = 0;
    double im = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const double angle = kTwoPi * hz * static_cast<double>(i) / kRate;
        const double window = 1 - std::cos(kTwoPi * static_cast<double>(i) / static_cast<double>(count));
        re += window * signal[from + i] * std::cos(angle);
        im += window * signal[from + i] * std::sin(angle);
    }
    return std::hypot(re, im) / static_cast<double>(count);
}

TEST(SampleParts, NotesAreInEqualTemperamentAround440) {
    EXPECT_NEAR(NoteHz(69), 440, 1e-9);
    EXPECT_NEAR(NoteHz(57), 220, 1e-9);
    EXPECT_NEAR(NoteHz(62), 293.6648, 1e-3);
}

TEST(SampleParts, EveryOscillatorTurnsAtItsFrequency) {
    Phase sine;
    Phase saw;
    Phase pulse;
    Phase triangle;
    Signal a(kRate);
    Signal b(kRate);
    Signal c(kRate);
    Signal d(kRate);
    for (std::size_t i = 0; i < a.size(); ++i) {
        a[i] = Sine(sine, 300.5);
        b[i] = Saw(saw, 300.5);
        c[i] = Pulse(pulse, 300.5, 0.3);
        d[i] = Triangle(triangle, 300.5);
    }
    for (const Signal* signal : {&a, &b, &c, &d}) {
        EXPECT_NEAR(RisingCrossings(*signal, 0, signal->size()), 300, 1);
        EXPECT_NEAR(*std::max_element(signal->begin(), signal->end()), 1, 0.1);
        EXPECT_NEAR(*std::min_element(signal->begin(), signal->end()), -1, 0.1);
    }
}

TEST(SampleParts, TheTwoPoleLowPassesBelowAndAttenuatesAbove) {
    for (const auto& [hz, least, most] : {std::tuple{100.0, 0.95, 1.05}, {1000.0, 0.6, 0.8}, {8000.0, 0.0, 0.02}}) {
        Phase phase;
        TwoPole filter;
        double peak = 0;
        for (int i = 0; i < kRate; ++i) {
            const double out = filter.Low(Sine(phase, hz), 1000);
            if (i > kRate / 2) peak = std::max(peak, std::fabs(out));
        }
        EXPECT_GE(peak, least) << hz;
        EXPECT_LE(peak, most) << hz;
    }
}

TEST(SampleParts, APluckedStringSoundsItsNoteAndDies) {
    for (const double note : {38.0, 50.0, 62.0, 74.0}) {
        const double hz = NoteHz(note);
        const Signal voice = Plucked(hz, 2, 0.5, 2, 7);
        const double own = PartAt(voice, hz, 4000, 30000);
        EXPECT_GT(own, 8 * PartAt(voice, hz * std::exp2(1.0 / 12), 4000, 30000)) << note;
        EXPECT_GT(own, 8 * PartAt(voice, hz * std::exp2(-1.0 / 12), 4000, 30000)) << note;
        EXPECT_NEAR(voice.back(), 0, 1e-3);
    }
}

TEST(SampleParts, AHeldVoiceBeginsAndEndsInSilence) {
    for (const Signal& voice : {SawChoir(220, 1, 0.1, 0.2), Stab(220, 0.2), TinePiano(220, 1, 0.7), Bell(440, 1, 0.6),
                                Marimba(220, 0.8), Lead(330, 300, 0.5, 0.7)}) {
        EXPECT_NEAR(voice.front(), 0, 1e-3);
        EXPECT_NEAR(voice.back(), 0, 1e-3);
        EXPECT_GT(*std::max_element(voice.begin(), voice.end()), 0.2);
    }
}

TEST(SampleParts, AVoiceThatRingsPastALoopContinuesAtItsBeginning) {
    Canvas canvas = Canvas::Loop(1);
    canvas.Add(Signal(1000, 1.0), 4.0 - 400.0 / kRate, 0.5);
    const Clip clip = canvas.Take();
    EXPECT_EQ(clip.Frames(), kLoopFrames);
    EXPECT_EQ(clip.channels[0][kLoopFrames - 401], 0);
    EXPECT_EQ(clip.channels[0][kLoopFrames - 400], 0.5);
    EXPECT_EQ(clip.channels[0][599], 0.5);
    EXPECT_EQ(clip.channels[0][600], 0);
}

TEST(SampleParts, AVoiceThatRingsPastASoundPlayedOnceIsCut) {
    Canvas canvas = Canvas::Once(1, 0.1);
    canvas.Add(Signal(1000, 1.0), 0.1 - 400.0 / kRate, 1);
    const Clip clip = canvas.Take();
    EXPECT_EQ(clip.Frames(), 4410u);
    EXPECT_EQ(clip.channels[0].front(), 0);
    EXPECT_EQ(clip.channels[0].back(), 1);
}

TEST(SampleParts, PanIsEqualInPower) {
    for (const double pan : {-1.0, -0.3, 0.0, 0.6, 1.0}) {
        Canvas canvas = Canvas::Once(2, 0.1);
        canvas.Add({1.0}, 0, 1, pan);
        const Clip clip = canvas.Take();
        const double left = clip.channels[0][0];
        const double right = clip.channels[1][0];
        EXPECT_NEAR(left * left + right * right, 2, 1e-9);
        EXPECT_EQ(left > right + 1e-9, pan < 0);
    }
}

TEST(SampleParts, AShortLineOfStrokesIsRepeatedToTwoBars) {
    const std::vector<Event> events = Strokes("X... x..o");
    ASSERT_EQ(events.size(), 12u);
    EXPECT_EQ(events[0].strength, 1);
    EXPECT_EQ(events[1].step, 4);
    EXPECT_EQ(events[2].step, 7);
    EXPECT_LT(events[2].strength, events[1].strength);
    EXPECT_NEAR(events[3].seconds, 1.0, 1e-12);
}

TEST(SampleParts, SwingDelaysEverySecondSixteenthOnly) {
    const std::vector<Event> events = Strokes("xxxx", 0.9);
    ASSERT_EQ(events.size(), 32u);
    for (const Event& e : events) {
        EXPECT_NEAR(e.seconds, e.step * 0.125 + (e.step % 2 == 1 ? 0.0375 : 0), 1e-12);
    }
}

TEST(SampleParts, TheHarmonyFillsTheLoopWithoutAGap) {
    int step = 0;
    for (const Harmony& h : Chords()) {
        EXPECT_EQ(h.step, step);
        step += h.steps;
    }
    EXPECT_EQ(step, kLoopSteps);
}

TEST(SampleParts, ARoomOnALoopHasNoBeginning) {
    // A single click: its tail must continue across the loop point.
    Clip clip{{Signal(kLoopFrames), Signal(kLoopFrames)}, true};
    clip.channels[0][kLoopFrames - 1] = 1;
    Room(clip, 2, 0.5);
    double tail = 0;
    for (std::size_t i = 0; i < 20000; ++i) tail += std::fabs(clip.channels[0][i]);
    EXPECT_GT(tail, 1);
}

TEST(SampleParts, FinishingBendsPeaksAndKeepsTheLoudness) {
    Clip clip{{Signal(kLoopFrames, 0.0)}, true};
    for (std::size_t i = 0; i < kLoopFrames; ++i)
        clip.channels[0][i] = 0.3 + (i % 100 == 0 ? 5 : std::sin(0.05 * static_cast<double>(i)));
    Finish(clip, 0.1);
    EXPECT_LE(Peak(clip), 0.36);
    EXPECT_NEAR(Loudness(clip), 0.1, 0.01);
}

TEST(SampleParts, FinishingBringsASoundPlayedOnceToItsPeak) {
    Clip clip{{Signal(4410, 0.0)}, false};
    for (std::size_t i = 0; i < 4410; ++i) clip.channels[0][i] = std::sin(0.05 * static_cast<double>(i));
    Finish(clip, 0.2);
    EXPECT_NEAR(Peak(clip), kPeak, 0.01);
}

}  // namespace
}  // namespace marvolin::samples
