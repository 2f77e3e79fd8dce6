#pragma once

#include <memory>

#include "core/session.h"
#include "fakes/fake_output.h"
#include "fakes/fake_sound.h"
#include "fakes/fake_world.h"

namespace marvolin::test {

/// Fakes of every service but the display. They must outlive the session.
struct FakeServices {
    FakeServices();
    ~FakeServices();
    FakeSound Sound;
    FakeOutput Output;
    FakeDesktop Desk;
    FakeWindows Forms;
    FakeRandom Chance;
    FakeTimers Timers;
    FakeScripts Scripts;
    FakeStore Store;
    FakeJoystick Stick;

    /// The services of a session that is shown on `screen`.
    Services For(Display& screen);
    /// The same with sessions kept in `store`. A test that hears the instrument, or reads shortcuts, replaces
    /// `Session::World.CreateDirectX7` or `ResolveShortcut`.
    Services For(Display& screen, SessionStore& store);
};

}  // namespace marvolin::test
