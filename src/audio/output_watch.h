#pragma once

#include <cstddef>
#include <string>

#include "core/session.h"

namespace marvolin {

/// Looks after the outputs while the program runs: the list follows them, and an output that was open when it vanished
/// is opened again once it is back, with everything that sounds.
class OutputWatch {
public:
    static constexpr int kSteadyLooks = 2;  ///< looks at which an output must be there: one that flickers waits
    static constexpr int kRetryLooks = 5;   ///< looks until one that has refused is tried again
    static constexpr int kNewsLooks = 20;   ///< looks within which the driver reports what the list already knows

    /// Looks once. Shows no box when an output refuses; the status line says when one is back.
    void Look(Session& s);

private:
    void Await(Session& s, std::int16_t entry);
    void EndWait();
    void Forget();  // also whether another of its name has gone
    void NoteLost(const Session& s, const std::string& name, std::ptrdiff_t before);

    std::string awaited_;         // name of the output that is away; "" none
    bool news_ = false;           // the list has changed since it vanished, or just before
    int looks_ = 0;               // at which it has been there again
    int unchanged_ = kNewsLooks;  // looks since the list has changed, so far as they count
    std::string shrunk_;          // name of the open output when the list lost one of the name
    std::ptrdiff_t left_ = 0;     // how many the list had left then; 0 when nothing is in doubt
    int doubted_ = 0;             // looks since then
};

}  // namespace marvolin
