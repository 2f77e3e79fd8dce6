#pragma once

#include <array>
#include <string>
#include <string_view>

namespace marvolin {

/// A script that comes with the program.
struct ScriptExample {
    std::string_view File;  ///< in the folder Scripts of the program's folder
    std::string_view Purpose;
};

/// The scripts that come with the program.
inline constexpr std::array<ScriptExample, 9> kScriptExamples{{
    {"pan_oscillator.mvs", "Loop A swings from left to right and back."},
    {"ducking.mvs", "At each step of loop A the others step back and come up again."},
    {"euclidean.mvs", "Hits spread evenly over 16 steps; a knob turns the pattern."},
    {"humaniser.mvs", "Small changes of pitch and level, as players make them."},
    {"map_walk.mvs", "The loops go slowly round the listener on the sound map."},
    {"scene_changer.mvs", "The next set of the folder every minute."},
    {"fade_out.mvs", "The whole set fades out over five minutes and stops."},
    {"learning.mvs", "Each of the nine events, shown in the status line."},
    {"turns.mvs", "Loops A and B take turns with fades."},
}};

/// The page for players who write scripts, in Markdown: events, limits, and every function of the API.
std::string ApiPage();

}  // namespace marvolin
