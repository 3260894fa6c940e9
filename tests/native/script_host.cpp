/// SCRIPT [ARGUMENTS]: runs a script as the stock interpreter does, LUA_INIT and `arg` included: for builds that it
/// can't load, those with sanitizers.
#include <cstdio>
#include <cstdlib>

#include <lua.hpp>

int main(int argc, char** argv) {
  lua_State* L = luaL_newstate();
  luaL_openlibs(L);
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
  lua_close(L);
  return failed ? 1 : 0;
}
