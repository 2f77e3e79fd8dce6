#pragma once
/// \file
/// What the program loads at its start: the demo, which plays itself, or the player's preferences.

#include <array>

#include "core/session.h"

namespace marvolin {

/// Title and question of `frmStartUpQuery`.
inline constexpr const char* kStartUpQueryTitle = "Startup Demo";
inline constexpr const char* kStartUpQueryText = "Show this startup demo next time?";
/// Help page of `frmStartUpQuery`.
inline constexpr std::int32_t kStartUpQueryTopic = 10063;

/// The LoopTracks that the demo fades out, in the order of its stages.
inline constexpr std::array<Row, 3> kDemoFades{1, 2, 3};

/// Loads "startup.mvp" from the program's folder and starts the demo or, if that file does not exist, loads
/// "preferences.mvn". Neither becomes the current session, so that no save overwrites it.
void LoadStartUpContent(Session& s);

/// The tick of the demo's countdown: runs the next of its three stages.
void StartUpDemoCountDown_Timer(Session& s);

/// `frmStartUpQuery` is activated: shows its help page. Does nothing without a help file.
void StartUpQuery_Activate(Session& s);
/// Closes the question.
void cmdYes_Click(Session& s);
/// Renames the demo, so that the next start does not find it, shows how to get it back, or why it could not be renamed,
/// and closes the question.
void cmdNo_Click(Session& s);

}  // namespace marvolin
