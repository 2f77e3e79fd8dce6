#pragma once
/// \file
/// The plain types and constants that every other file uses.

#include <cstdint>

namespace marvolin {

/// Index into the tables of the session: 0..3 the LoopTracks A..D, 4 the selection row, 5 the master row.
using Row = std::int16_t;

/// A truth value of the records, as wide as in a file. Writers store `True` (-1), never 1.
using Boolean = std::int16_t;
inline constexpr Boolean True = -1;
inline constexpr Boolean False = 0;
constexpr Boolean ToBoolean(bool value) { return value ? True : False; }

inline constexpr Row kLoopTracks = 4;    ///< sounding slots, rows 0..3
inline constexpr Row kSelectionRow = 4;  ///< the knob set that acts on the controlled LoopTracks; never owns a sound
inline constexpr Row kMasterRow = 5;     ///< the master volume; only its `Vol` has meaning
inline constexpr Row kRows = 6;          ///< rows of `LoopTrackSet` and `LoopTrackRun`
inline constexpr Row kBands = 6;         ///< rows of `BandTable`
inline constexpr int kChannels = 4;      ///< channel numbers 1..4; element 0 of the channel arrays is never written
inline constexpr int kBins = 3;          ///< sample bins of the browser

inline constexpr int kPatternRows = 3;     ///< 0 Vol, 1 Hz, 2 Pan
inline constexpr int kPatternSteps = 32;   ///< elements 0..31 of a pattern row
inline constexpr int kPatternOffset = 32;  ///< element 32 of a pattern row: its random spread
inline constexpr int kVolPattern = 0;
inline constexpr int kHzPattern = 1;
inline constexpr int kPanPattern = 2;

inline constexpr std::int16_t kVolFull = 500;    ///< top of the `Vol` scale; 0 is silence
inline constexpr std::int16_t kPanCentre = 500;  ///< centre of the `Pan` scale 0..1000
inline constexpr std::int16_t kPanRight = 1000;  ///< right end of the `Pan` scale
inline constexpr std::int16_t kHzUnity = 1000;   ///< thousandths of the sample's own rate
inline constexpr std::int16_t kHzTop = 4000;     ///< top of the `Hz` scale; its bottom is 1

/// How a LoopTrack plays. The numbers are those of the files.
enum PlayMode : std::int16_t {
    kOneShot = 0,  ///< the sample plays once and stops
    kLoop = 1,     ///< the sample loops
    kTrack = 2,    ///< the sample loops, the patterns follow the step clock
    kDrum = 3,     ///< every step restarts the sample, the patterns follow the step clock
};

/// `FadeState` of a LoopTrack.
enum FadeState : std::int16_t { kNoFade = 0, kRising = 1, kFalling = 3 };

/// `DragAxis`: the direction in which a drag turns a knob, by its entry in `DragAxisSelect`.
enum KnobDragAxis : std::int16_t { kVerticalDrag = 0, kHorizontalDrag = 1 };

/// The three knobs of a row.
enum class Knob : std::uint8_t { Vol, Pan, Hz };

/// The types of the mix pad, by their number in `PadTable` and in the list `PadType`. A fifth record has no entry.
enum PadKind : std::int16_t { kPitch300Pad = 0, kPitch400Pad = 1, kVolPad = 2, kPanPad = 3 };

/// The four tabs of `TabControl`.
enum Tab : std::int16_t { kMixPadTab = 0, kMapTab = 1, kPatternTab = 2, kOptionTab = 3 };
inline constexpr std::int16_t kTabs = 4;

/// Whether a change reaches the sound at once, or waits until something else sends the value.
enum class Apply : bool { No, Yes };

/// Phase of a gesture: the press, a move, the release.
enum class Phase : std::uint8_t { Down, Move, Up };

/// Buttons of the pointer, by the numbers that gestures receive.
enum Button : std::int16_t { kNoButton = 0, kLeftButton = 1, kRightButton = 2, kMiddleButton = 4 };

/// Window coordinates are twips: 1/1440 inch, 15 to a logical pixel.
inline constexpr double kTwipsPerPixel = 15.0;

/// A colour by its red, green and blue, 0..255 each.
struct Colour {
    std::uint8_t Red = 0;
    std::uint8_t Green = 0;
    std::uint8_t Blue = 0;
    friend bool operator==(const Colour&, const Colour&) = default;
};

}  // namespace marvolin
