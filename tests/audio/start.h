#pragma once

#include <vector>

#include "audio/transport.h"
#include "fakes/instrument.h"

namespace marvolin::test {

/// Loads the rows that are empty and plays all of them, in this order.
inline void Start(Instrument& i, const std::vector<Row>& rows) {
    for (const Row row : rows) {
        if (i.s.Run[row].Loaded == False) i.Fill(row);
        LoopPlay(i.s, row, true);
    }
}

}  // namespace marvolin::test
