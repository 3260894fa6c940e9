/// The loadable module of stock interpreters: `require "math3d"`.
#include <zeph/math3d.h>
#include <zeph/platform/lua_api.h>

extern "C" __attribute__((visibility("default"))) int luaopen_math3d(lua_State* L);

int luaopen_math3d(lua_State* L) { return zeph::math3d::InitLuaMath3d(L); }
