#pragma once

#include "signal.h"

namespace marvolin::samples {

/// Where voices are placed in time. On a loop, a voice that rings past the end continues at the beginning, so that the
/// loop point cannot be heard.
class Canvas {
public:
    /// An empty loop of two bars.
    static Canvas Loop(int channels);
    /// An empty sound of `seconds` that is played once; voices that ring past its end are cut.
    static Canvas Once(int channels, double seconds);

    /// Adds `voice` from `seconds` on. `pan` is -1 (left) to 1 (right), equal power; a mono canvas ignores it.
    /// On a loop, times before 0 or past the end wrap around.
    void Add(const Signal& voice, double seconds, double gain, double pan = 0);

    Clip Take() { return std::move(clip_); }

private:
    Canvas(int channels, std::size_t frames, bool loops);
    Clip clip_;
};

}  // namespace marvolin::samples
