/// A host that loads the library while it runs, and unloads it: `unload PATH`, of the module for stock interpreters.
#include <cstdio>

#include <dlfcn.h>
#include <lua.hpp>

namespace {

// [unload]
/// Runs a script with a freshly loaded library. Afterwards nothing of it is left in the process.
bool run_and_unload(const char* path, const char* script) {
  void* library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) {
    std::fprintf(stderr, "%s\n", dlerror());
    return false;
  }
  lua_State* L = luaL_newstate();
  luaL_openlibs(L);
  luaL_requiref(L, "math3d", reinterpret_cast<lua_CFunction>(dlsym(library, "luaopen_math3d")), 1);
  const bool failed = luaL_dostring(L, script);
  lua_close(L);      // first: the finalizers of its values are code of the library
  dlclose(library);  // this runs what other threads have left in the command queue
  return !failed;
}
// [end]

bool is_loaded(const char* path) {
  void* library = dlopen(path, RTLD_NOW | RTLD_NOLOAD);
  if (library != nullptr) {
    dlclose(library);
  }
  return library != nullptr;
}

}  // namespace

int main(int, char** argv) {
  for (int round = 1; round <= 2; ++round) {
    const bool passed = run_and_unload(argv[1], "print(math3d.Vector3.new(1, 2, 3))");
    std::printf("round %d\t%s, %s\n", round, passed ? "passed" : "failed", is_loaded(argv[1]) ? "stays" : "gone");
  }
  return 0;
}
