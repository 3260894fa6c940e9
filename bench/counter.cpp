/// `require "counter"`: tells callgrind where a measurement begins and ends. Elsewhere it does nothing.
#include <valgrind/callgrind.h>
#include <lua.hpp>

namespace {

int start(lua_State*) {
  CALLGRIND_ZERO_STATS;
  return 0;
}
int stop(lua_State* L) {
  CALLGRIND_DUMP_STATS_AT(luaL_checkstring(L, 1));
  return 0;
}

}  // namespace

extern "C" __attribute__((visibility("default"))) int luaopen_counter(lua_State* L);

int luaopen_counter(lua_State* L) {
  const luaL_Reg functions[] = {{"start", start}, {"stop", stop}, {nullptr, nullptr}};
  luaL_newlib(L, functions);
  return 1;
}
