#include "fakes/fake_display.h"

namespace marvolin::test {

FakeDisplay::FakeDisplay() = default;
FakeDisplay::~FakeDisplay() = default;

}  // namespace marvolin::test
