#pragma once

#include "core/desktop.h"

namespace marvolin {

/// Shows the busy pointer as long as it exists.
class BusyPointer {
public:
    explicit BusyPointer(Desktop& desk) : desk_(desk) { desk_.SetBusyPointer(true); }
    ~BusyPointer() { desk_.SetBusyPointer(false); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

private:
    Desktop& desk_;
};

}  // namespace marvolin
