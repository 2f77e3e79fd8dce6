#pragma once
/// \file
/// What the program loads at its start, and the demo that plays itself.

#include "core/session.h"

namespace marvolin {

/// Question of `frmStartUpQuery`.
inline constexpr const char* kStartUpQueryTitle = "Startup Demo";
inline constexpr const char* kStartUpQueryText = "Show this startup demo next time?";
/// Help page of `frmStartUpQuery`.
inline constexpr std::int32_t kStartUpQueryTopic = 10063;

/// Loads "startup.mvp" of the program's folder and starts the demo, or if there is none "preferences.mvn". The choice
/// is made by existence alone. Neither becomes the current session, so that no save overwrites it.
void LoadStartUpContent(Session& s);

/// The tick of the demo's countdown, one of three stages.
void StartUpDemoCountDown_Timer(Session& s);

/// `frmStartUpQuery` comes up: shows its help page. Without a help file there is none to show, and nothing is said.
void StartUpQuery_Activate(Session& s);
void cmdYes_Click(Session& s);
/// Renames the demo away, so that it does not come again.
void cmdNo_Click(Session& s);

}  // namespace marvolin
