#include "instrument/trapped_error.h"

#include <exception>
#include <new>

#include "core/errors.h"

namespace marvolin {

namespace {

constexpr std::int32_t kOutOfMemory = 7;
constexpr std::int32_t kInternalError = 51;

}  // namespace

TrappedError ErrorInHand() {
    try {
        throw;
    } catch (const RuntimeError& e) {
        return {e.what(), static_cast<std::int32_t>(e.Number())};
    } catch (const std::bad_alloc&) {
        return {"Out of memory", kOutOfMemory};
    } catch (const std::exception& e) {
        return {e.what(), kInternalError};
    } catch (...) {
        return {"Internal error", kInternalError};
    }
}

}  // namespace marvolin
