#pragma once

#include "core/session.h"

namespace marvolin {

/// Shows the busy pointer as long as it exists. They may be nested: the last one that ends restores the plain pointer.
class BusyPointer {
public:
    explicit BusyPointer(Session& s) : s_(s) {
        if (s_.BusyPointers++ == 0) s_.World.Desk.SetBusyPointer(true);
    }
    ~BusyPointer() {
        if (--s_.BusyPointers == 0) s_.World.Desk.SetBusyPointer(false);
    }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

private:
    Session& s_;
};

}  // namespace marvolin
