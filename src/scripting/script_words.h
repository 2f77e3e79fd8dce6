#pragma once

#include <string>
#include <vector>

namespace marvolin {

/// A word that the window of scripts completes, and what it then says of it.
struct ScriptWord {
    std::string Name;       ///< "marvolin.set_pan", or that of an event
    std::string Signature;  ///< "marvolin.load(row, path [, play])"
    std::string Text;       ///< what it does, a line for each argument, what it returns; lines of any length
};

/// All functions of the table `marvolin`, and the nine events.
std::vector<ScriptWord> ScriptWords();

}  // namespace marvolin
