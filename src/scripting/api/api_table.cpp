#include "scripting/api/api_table.h"

#include "scripting/api/clock.h"
#include "scripting/api/map.h"
#include "scripting/api/pad.h"
#include "scripting/api/patterns.h"
#include "scripting/api/samples.h"
#include "scripting/api/selection.h"
#include "scripting/api/sets.h"
#include "scripting/api/sound.h"
#include "scripting/api/timing.h"
#include "scripting/api/transport.h"

namespace marvolin {

std::span<const ApiSubject> ApiSubjects() {
    static const std::array<ApiSubject, 10> kSubjects{{
        {"Volume, pan, frequency and fades", SoundFunctions()},
        {"Playing", TransportFunctions()},
        {"Samples", SamplesFunctions()},
        {"Patterns", PatternsFunctions()},
        {"Timing", TimingFunctions()},
        {"Mix pad and wires", PadFunctions()},
        {"Sound map", MapFunctions()},
        {"Selection", SelectionFunctions()},
        {"Sets", SetsFunctions()},
        {"Clock, status line and the script itself", ClockFunctions()},
    }};
    return kSubjects;
}

}  // namespace marvolin
