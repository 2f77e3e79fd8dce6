#include "effects.h"

#include <array>
#include <functional>

#include "filters.h"

namespace marvolin::samples {
namespace {

using Frame = std::array<double, 2>;

/// Replaces the frames of the clip by the output of `effect`; a loop is run twice and only the last pass is kept.
/// `time` is the time within the loop.
void Run(Clip& clip, const std::function<Frame(Frame in, double time)>& effect) {
    const bool stereo = clip.channels.size() == 2;
    const int turns = clip.loops ? 2 : 1;
    const Clip source = clip;
    for (int turn = 0; turn < turns; ++turn) {
        for (std::size_t i = 0; i < source.Frames(); ++i) {
            const double left = source.channels[0][i];
            const double right = stereo ? source.channels[1][i] : left;
            const Frame out = effect({left, right}, static_cast<double>(i) / kRate);
            if (turn + 1 < turns) continue;
            clip.channels[0][i] = stereo ? out[0] : (out[0] + out[1]) / 2;
            if (stereo) clip.channels[1][i] = out[1];
        }
    }
}

/// A ring of past frames that can be read between frames.
class DelayLine {
public:
    explicit DelayLine(double seconds) : ring_(FramesOf(seconds) + 4, 0.0) {}

    void Write(double value) {
        ring_[at_] = value;
        at_ = (at_ + 1) % ring_.size();
    }

    /// The value written `frames` writes ago (1 is the last), linearly interpolated.
    double Read(double frames) const {
        const auto whole = static_cast<std::size_t>(frames);
        const double part = frames - static_cast<double>(whole);
        return Past(whole) * (1 - part) + Past(whole + 1) * part;
    }

private:
    double Past(std::size_t frames) const { return ring_[(at_ + ring_.size() - frames) % ring_.size()]; }

    Signal ring_;
    std::size_t at_ = 0;
};

void MakeStereo(Clip& clip) {
    if (clip.channels.size() == 1) clip.channels.push_back(clip.channels.front());
}

}  // namespace

void Chorus(Clip& clip, double depth, double mix) {
    MakeStereo(clip);
    std::array<DelayLine, 2> lines{DelayLine(0.05), DelayLine(0.05)};
    Run(clip, [&](Frame in, double time) {
        Frame out{};
        for (std::size_t c = 0; c < 2; ++c) {
            lines[c].Write(in[c]);
            // 0.5 Hz is a whole number of swings in a loop; the sides are a quarter of a turn apart.
            const double swing = std::sin(kTwoPi * (0.5 * time + 0.25 * static_cast<double>(c)));
            const double wet = lines[c].Read((0.014 + 0.006 * depth * swing) * kRate);
            out[c] = in[c] * (1 - mix / 2) + wet * mix;
        }
        return out;
    });
}

void Room(Clip& clip, double seconds, double mix) {
    // Lengths without a common divisor, so that echoes do not coincide.
    constexpr std::array<double, 8> kFrames = {1123, 1327, 1481, 1693, 1901, 2111, 2339, 2557};
    std::vector<DelayLine> lines;
    std::array<OnePole, 8> damping;
    std::array<double, 8> gain{};
    for (std::size_t i = 0; i < kFrames.size(); ++i) {
        lines.emplace_back(0.07);
        gain[i] = std::pow(10.0, -3 * kFrames[i] / kRate / seconds);
    }
    std::array<OnePole, 2> rumble;
    Run(clip, [&](Frame in, double) {
        std::array<double, 8> back{};
        double sum = 0;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            back[i] = damping[i].Low(lines[i].Read(kFrames[i]), 5200) * gain[i];
            sum += back[i];
        }
        const double spread = sum / 4;
        Frame wet{};
        for (std::size_t i = 0; i < lines.size(); ++i) {
            lines[i].Write(in[i % 2] * 0.5 + back[i] - spread);
            wet[i % 2] += (i % 4 < 2 ? 0.5 : -0.5) * back[i];
        }
        for (std::size_t c = 0; c < 2; ++c) wet[c] = rumble[c].High(wet[c], 160);
        return Frame{in[0] * (1 - mix) + wet[0] * mix * 1.6, in[1] * (1 - mix) + wet[1] * mix * 1.6};
    });
}

void Echo(Clip& clip, double steps, double feedback, double mix) {
    std::array<DelayLine, 2> lines{DelayLine(steps * kStep), DelayLine(steps * kStep)};
    std::array<OnePole, 2> damping;
    const auto frames = static_cast<double>(FramesOf(steps * kStep));
    Run(clip, [&](Frame in, double) {
        const Frame past{lines[0].Read(frames), lines[1].Read(frames)};
        lines[0].Write(in[0] + damping[0].Low(past[1], 3500) * feedback);
        lines[1].Write(damping[1].Low(past[0], 3500) * feedback);
        return Frame{in[0] + past[0] * mix, in[1] + past[1] * mix};
    });
}

void SlowSweep(Clip& clip, double lowHz, double highHz, double resonance) {
    std::array<TwoPole, 2> filters;
    const double length = static_cast<double>(clip.Frames()) / kRate;
    Run(clip, [&](Frame in, double time) {
        const double at = 0.5 - 0.5 * std::cos(kTwoPi * time / length);
        const double hz = lowHz * std::pow(highHz / lowHz, at);
        return Frame{filters[0].Low(in[0], hz, resonance), filters[1].Low(in[1], hz, resonance)};
    });
}

void CutLow(Clip& clip, double hz) {
    std::array<TwoPole, 2> filters;
    Run(clip, [&](Frame in, double) { return Frame{filters[0].High(in[0], hz), filters[1].High(in[1], hz)}; });
}

void Drive(Clip& clip, double drive) {
    for (Signal& channel : clip.channels) {
        for (double& value : channel) value = std::tanh(drive * value) / drive;
    }
}

}  // namespace marvolin::samples
