#pragma once

#include "signal.h"

namespace marvolin::samples {

/// The place where voices are laid down in time. On a loop a voice that rings past the end goes on at the
/// beginning, so that the loop point is heard no more than any other place.
class Canvas {
public:
    /// An empty loop of two bars.
    static Canvas Loop(int channels);
    /// An empty sound of `seconds` that is played once; what rings past its end is cut.
    static Canvas Once(int channels, double seconds);

    /// Adds `voice` from `seconds` on. `pan` is -1 (left) to 1 (right), equal power; a mono canvas ignores it.
    /// A time before 0 or past the end goes round on a loop.
    void Add(const Signal& voice, double seconds, double gain, double pan = 0);

    Clip Take() { return std::move(clip_); }

private:
    Canvas(int channels, std::size_t frames, bool loops);
    Clip clip_;
};

}  // namespace marvolin::samples
