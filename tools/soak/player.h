#pragma once
/// \file
/// The hand of a soak: gestures at random.

#include <random>
#include <string>
#include <vector>

#include "soak/evening.h"

namespace marvolin::soak {

class Player {
public:
    /// `scripts` are texts of scripts. Sets go into `folder`, which ends in a separator.
    Player(Evening& evening, std::vector<std::string> samples, std::vector<std::string> scripts, std::string folder,
           unsigned seed);

    /// One gesture of any kind.
    void Act();
    /// Whether it switches 3D sound, which changes the device.
    bool ChangesDevice = true;
    std::uint64_t Gestures() const { return gestures_; }
    /// Takes away the files that it has made, but for its sets.
    void TidyUp();

private:
    void Load();
    void Turn();
    void Fade();
    void Sequence();
    void Mix();
    void Map();
    void Play();
    void Clips();
    void Undo();
    void Files();
    void Record();
    void Script();

    int Any(int below) { return std::uniform_int_distribution<int>(0, below - 1)(random_); }
    std::int16_t Value(int from, int to) {
        return static_cast<std::int16_t>(std::uniform_int_distribution<int>(from, to)(random_));
    }
    Row AnyRow() { return static_cast<Row>(Any(kLoopTracks)); }
    Row RowOrAll() { return static_cast<Row>(Any(kLoopTracks + 1)); }

    Evening& e_;
    Session& s_;
    std::vector<std::string> samples_;
    std::vector<std::string> scripts_;
    std::string folder_;
    std::mt19937 random_;
    std::uint64_t gestures_ = 0;
};

}  // namespace marvolin::soak
