#pragma once
/// \file
/// What must hold after each gesture. A check returns what does not hold, in words; "" when all does.

#include <string>

#include "answers.h"
#include "pointer.h"
#include "world.h"

namespace marvolin::hand {

/// The ranges of all settings, and that tables which belong together agree.
std::string WrongRange(const Session& s);
/// The sums of the rules: who sounds, who is thinned, who belongs to which band, what is there of each sample.
std::string WrongSum(const Session& s);
/// The same for what a tick of the step clock brings about. Lets time pass where something was started after the tick.
std::string WrongAfterTick(World& world);
/// What is left of a gesture although no button and no key is down any more.
std::string OpenGesture(World& world);
/// Something that waits, or a box that spoke of a fault.
std::string WrongBox(World& world, const Answers& answers);
/// Controls of the toolkit that show something else than the session holds.
std::string WrongShown(World& world);
/// Windows whose picture is another one than they would paint now. Waits until what moves has been painted.
std::string WrongPicture(World& world);
/// A window that cannot be reached on any screen.
std::string WrongPlace(const World& world);
/// Whether the set is the same after it was saved and opened again in an instrument of its own.
std::string WrongSet(World& world);
/// Whether a step that is taken back and done again leaves what it has left.
std::string WrongUndo(World& world);

}  // namespace marvolin::hand
