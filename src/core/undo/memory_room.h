#pragma once
/// \file
/// A second try when memory ends: what can be taken back gives up samples before the player's gesture fails.

#include <new>

#include "core/errors.h"
#include "core/sound_service.h"
#include "core/undo/undo_step.h"

namespace marvolin {

/// Gives up the memory of the oldest sample that only Backspace would bring back. False when there is none.
inline bool GiveUpOldestSample(Session& s) { return s.Undo && s.Undo->GiveUpOldest(s); }

/// The result of `work`. When its memory ends it is done again with one sample less to be taken back, until it has
/// enough or there is none left, but not for a sample that is too long for any memory; it must leave everything
/// unchanged when it fails.
template <typename Work>
auto WithRoom(Session& s, Work work) {
    for (;;) {
        try {
            return work();
        } catch (const SoundTooLong&) {
            throw;
        } catch (const SoundError& e) {
            if (e.Number() != sound_error::kOutOfMemory || !GiveUpOldestSample(s)) throw;
        } catch (const std::bad_alloc&) {
            if (!GiveUpOldestSample(s)) throw;
        }
    }
}

}  // namespace marvolin
