/// LIBRARY: loads the library, uses it in a state, closes the state and unloads the library, again and again.
#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <lua.hpp>

namespace {

[[noreturn]] void fail(const char* what, const char* why) {
  std::fprintf(stderr, "%s: %s\n", what, why == nullptr ? "(no message)" : why);
  std::exit(1);
}

}  // namespace

int main(int argc, char** argv) {
  const char* path = argc == 2 ? argv[1] : "";
  for (int round = 0; round < 100; ++round) {
    void* library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
      fail("loading", dlerror());
    }
    // int zeph::math3d::InitLuaMath3d(lua_State*)
    void* symbol = dlsym(library, "_ZN4zeph6math3d13InitLuaMath3dEP9lua_State");
    lua_CFunction entry = nullptr;
    static_assert(sizeof entry == sizeof symbol);
    std::memcpy(&entry, &symbol, sizeof entry);

    lua_State* L = luaL_newstate();
    luaL_openlibs(L);
    luaL_requiref(L, "math3d", entry, 1);
    if (luaL_dostring(L, R"(
          keep = {}
          for name, class in pairs(math3d) do
            keep[name] = type(class) == 'table' and class.new()
          end
          assert((keep.Vector3 + math3d.Vector3.new(1, 2, 3)).length_sqr == 14)
          assert(math3d.matrix_inverse(keep.Matrix):get(3, 3) == 1))") != LUA_OK) {
      fail("script", lua_tostring(L, -1));
    }
    lua_close(L);
    dlclose(library);
    if (dlopen(path, RTLD_NOW | RTLD_NOLOAD) != nullptr) {
      fail(path, "still loaded");
    }
  }
  std::puts("100 times loaded and unloaded");
  return 0;
}
