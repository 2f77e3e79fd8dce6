#include "canvas.h"

namespace marvolin::samples {

Canvas::Canvas(int channels, std::size_t frames, bool loops) {
    clip_.channels.assign(static_cast<std::size_t>(channels), Signal(frames, 0.0));
    clip_.loops = loops;
}

Canvas Canvas::Loop(int channels) { return Canvas(channels, kLoopFrames, true); }

Canvas Canvas::Once(int channels, double seconds) { return Canvas(channels, FramesOf(seconds), false); }

void Canvas::Add(const Signal& voice, double seconds, double gain, double pan) {
    const auto frames = static_cast<long>(clip_.Frames());
    const bool stereo = clip_.channels.size() == 2;
    const double angle = (pan + 1) * std::numbers::pi / 4;
    for (std::size_t c = 0; c < clip_.channels.size(); ++c) {
        const double side = stereo ? std::numbers::sqrt2 * (c == 0 ? std::cos(angle) : std::sin(angle)) : 1.0;
        Signal& to = clip_.channels[c];
        long at = std::lround(seconds * kRate);
        for (const double value : voice) {
            long place = at++;
            if (clip_.loops) place = ((place % frames) + frames) % frames;
            if (place < 0 || place >= frames) continue;
            to[static_cast<std::size_t>(place)] += gain * side * value;
        }
    }
}

}  // namespace marvolin::samples
