/// SCRIPT [ARGUMENTS]: runs a script as the stock interpreter does, LUA_INIT and `arg` included: for builds that it
/// can't load, those with sanitizers, and with another garbage collection. MATH3D_COLLECT tells which: "generational",
/// or a number N for a full collection at each N-th allocation.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <lua.hpp>

#include "allocator.h"

int main(int argc, char** argv) {
  zeph::test::Allocator allocator;
  lua_State* L = lua_newstate(&zeph::test::Allocator::allocate, &allocator);
  luaL_openlibs(L);
  if (const char* collect = std::getenv("MATH3D_COLLECT")) {
    allocator.collect_every = static_cast<unsigned>(std::atoi(collect));
#if LUA_VERSION_NUM >= 504
    if (std::strcmp(collect, "generational") == 0) {
      lua_gc(L, LUA_GCGEN, 0, 0);
    }
#endif
  }
  const auto traceback = [](lua_State* lua) {
    luaL_traceback(lua, lua, lua_tostring(lua, 1), 1);
    return 1;
  };
  lua_pushcfunction(L, traceback);
  lua_createtable(L, argc, 0);
  for (int i = 1; i < argc; ++i) {
    lua_pushstring(L, argv[i]);
    lua_rawseti(L, -2, i - 1);
  }
  lua_setglobal(L, "arg");
  const char* init = std::getenv("LUA_INIT");
  const bool failed = argc < 2 || (init != nullptr && luaL_dostring(L, init) != LUA_OK) ||
                      luaL_loadfile(L, argv[1]) != LUA_OK || lua_pcall(L, 0, 0, 1) != LUA_OK;
  if (failed) {
    std::fprintf(stderr, "%s\n", argc < 2 ? "a script is needed" : lua_tostring(L, -1));
  }
  allocator.collect_every = 0;
  lua_close(L);
  return failed ? 1 : 0;
}
