/// Lua's C interface. The host process provides the symbols; nothing here links a Lua of its own.
#pragma once

#include <lua.hpp>

static_assert(LUA_VERSION_NUM >= 503, "Lua 5.3 or later is needed");

#if LUA_VERSION_NUM < 504
/// Userdata without user values: Lua 5.3 always makes room for one.
inline void* lua_newuserdatauv(lua_State* L, size_t size, int) { return lua_newuserdata(L, size); }
#endif
