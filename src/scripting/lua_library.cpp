#include "scripting/lua_library.h"

#include <dlfcn.h>

namespace marvolin {

std::shared_ptr<const LuaLibrary> LoadLua(const char* file) {
    void* const library = ::dlopen(file, RTLD_LAZY | RTLD_LOCAL);
    if (library == nullptr) return nullptr;
    auto lua = std::make_shared<LuaLibrary>();
    bool whole = true;
#define MARVOLIN_LUA_LOOK_UP(name)                                              \
    lua->name = reinterpret_cast<decltype(lua->name)>(::dlsym(library, #name)); \
    whole = whole && lua->name != nullptr;
    MARVOLIN_LUA_FUNCTIONS(MARVOLIN_LUA_LOOK_UP)
#undef MARVOLIN_LUA_LOOK_UP
    if (!whole || lua->lua_version(nullptr) != LUA_VERSION_NUM) return nullptr;
    return lua;
}

}  // namespace marvolin
