#pragma once
/// \file
/// The services under the hand, beside the fakes of the tests: chance by a seed, and a desktop that is the real one
/// but for what belongs to the system.

#include <cstdint>
#include <optional>
#include <string>

#include "core/card_time.h"
#include "core/random.h"
#include "dice.h"
#include "window/toolkit/qt_desktop.h"

namespace marvolin::hand {

/// A clock that stands where time has been passed to.
class PassedTime final : public CardTime {
public:
    std::int64_t Milliseconds = 0;
    double Now() override { return static_cast<double>(Milliseconds) * kFramesASecond / 1000; }
    std::int64_t Until(double) override { return 0; }
    void Begin(std::optional<Instant>) override {}
    void End() override {}
};

/// Chance that a seed decides.
class SeededChance final : public Random {
public:
    explicit SeededChance(std::uint64_t seed) : dice_(seed) {}
    double Rnd() override { return dice_.Share(); }
    void SeedFromClock() override {}

private:
    Dice dice_;
};

/// The toolkit's desktop in a folder of its own. It keeps what a run has to know of it.
class RunDesktop final : public QtDesktop {
public:
    /// `folder` is the program's folder and the installed one.
    explicit RunDesktop(std::string folder) : folder_(std::move(folder)) { UseFolder(folder_); }

    bool Caged = false;       ///< the pointer is kept in a rectangle
    bool Ended = false;       ///< the program would have ended at once
    std::string FaultInABox;  ///< a text for the player that speaks of a fault of the program; "" for none
    std::int64_t Boxes = 0;   ///< boxes and reports shown

    using QtDesktop::MessageBox;
    bool MessageBox(const std::string& text, const std::string& title, BoxStyle style) override;
    using QtDesktop::Report;
    void Report(const std::string& text, const std::string& title, BoxStyle style) override;
    void ClipCursor(const PixelRect& rect) override;
    void ReleaseCursor() override;
    std::string TempFileName(const std::string& prefix) override;
    std::string InstalledFolder() const override { return folder_; }
    bool ClaimInstance() override { return true; }
    void EndProgram() override { Ended = true; }

private:
    void Look(const std::string& text);
    std::string folder_;
};

}  // namespace marvolin::hand
