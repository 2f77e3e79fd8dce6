#pragma once

#include "signal.h"

namespace marvolin::samples {

/// A choir of five detuned saws, held for `length` seconds in all, with a soft rise and fall in seconds.
Signal SawChoir(double hz, double length, double rise, double fall);

/// A short bright chord voice: saws under a filter that snaps shut, `length` seconds.
Signal Stab(double hz, double length);

/// An electric piano: a tine over a soft tone, held for `length` seconds. `touch` 0..1 is the force of the hand.
Signal TinePiano(double hz, double length, double touch);

/// A bell made of two modulated sines; `seconds` to -60 dB, `touch` 0..1.
Signal Bell(double hz, double seconds, double touch);

/// A wooden bar: the tone and its two loudest overtones, which decay first.
Signal Marimba(double hz, double touch);

/// A singing lead: pulse and saw with a late vibrato, held for `length` seconds.
Signal Lead(double hz, double fromHz, double length, double touch);

}  // namespace marvolin::samples
