/// The smallest host: a Lua state with math3d, and a script.
// [program]
#include <cstdio>

#include <lua.hpp>

#include <zeph/math3d.h>

int main() {
  lua_State* L = luaL_newstate();
  luaL_openlibs(L);
  zeph::math3d::InitLuaMath3d(L);  // once for every state
  lua_settop(L, 0);                // it leaves the module on the stack

  const int status = luaL_dostring(L, "print(math3d.Vector3.new(1, 2, 3) * 2)");
  if (status != LUA_OK) {
    std::fprintf(stderr, "%s\n", lua_tostring(L, -1));
  }
  lua_close(L);
  return status;
}
// [end]
