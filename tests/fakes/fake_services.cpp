#include "fakes/fake_services.h"

namespace marvolin::test {

FakeServices::FakeServices() = default;
FakeServices::~FakeServices() = default;

Services FakeServices::For(Display& screen) { return For(screen, Store); }

Services FakeServices::For(Display& screen, SessionStore& store) {
    return {.Screen = screen,
            .Desk = Desk,
            .Forms = Forms,
            .Chance = Chance,
            .Timers = Timers,
            .Scripts = Scripts,
            .Store = store,
            .CreateDirectX7 = [this] { return std::make_unique<FakeDirectX>(Sound); },
            .CreateDirectInput = [this] { return std::make_unique<FakeInput>(Stick); },
            .Output = &Output};
}

}  // namespace marvolin::test
