#pragma once
/// \file
/// The list of outputs while the program runs.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "core/session.h"

namespace marvolin {

/// What stands behind the name of an output that is not there.
inline constexpr std::string_view kUnplugged = " (unplugged)";

/// Asks the service for its outputs again. When they have changed, `Drivers` and `DSEnum` follow, and `Driver` and
/// `OpenDriver` go on naming the same outputs, of two with one name the same of the two; when one of these has gone,
/// its driver knows whether it is the open one. One that has come back as "USB (3)" is the "USB (2)" that was there. An
/// output that is chosen or open and not there any more keeps an entry, marked, before "No Sound". A service that fails
/// changes nothing. True when the list has changed.
bool RefreshOutputs(Session& s);

/// The driver has reported only now that it was the open output that went, when the list kept `left` others of its
/// name: it is none of those. It is the next of the name, which may have come since, or keeps a marked entry of its
/// own.
void PartFromLostOutput(Session& s, std::ptrdiff_t left);

/// How many outputs of a name are there.
std::ptrdiff_t PluggedOutputs(const Session& s, const std::string& name);
/// Whether the driver has released the open output.
bool OpenOutputIsGone(const Session& s);
/// Whether the output of an entry is there.
bool IsPlugged(const Session& s, std::int16_t entry);
/// Name of an entry without the mark.
std::string OutputName(const Session& s, std::int16_t entry);
/// The entries as the player reads them. The service numbers outputs of one name, also those that come one after the
/// other: "USB (3)" reads "USB" where it is the only one of that name.
std::vector<std::string> ShownOutputs(const Session& s);

}  // namespace marvolin
