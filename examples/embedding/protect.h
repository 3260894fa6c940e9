/// Protected calls for native code.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <exception>

#include <lua.hpp>

// [guarded]
/// A function for scripts that may throw: what it throws becomes a Lua error.
template <lua_CFunction kFunction>
int guarded(lua_State* L) {
  char text[120];
  try {
    return kFunction(L);
  } catch (const std::exception& problem) {
    std::snprintf(text, sizeof text, "%s", problem.what());
  }
  return luaL_error(L, "%s", text);  // outside the handler: a jump out of it would never end the exception
}
// [end]

// [protect]
template <typename Body>
int call_body(lua_State* L) {
  (*static_cast<Body*>(lua_touserdata(L, 1)))(L);
  return 0;
}

/// Runs `body(L)` and tells whether it came to its end; if not, the error message is on top of the stack. A Lua error
/// leaves the body by a jump, so nothing in it may have a destructor. What it uses by reference may.
template <typename Body>
bool protect(lua_State* L, Body body) {
  lua_pushcfunction(L, guarded<call_body<Body>>);
  lua_pushlightuserdata(L, &body);
  return lua_pcall(L, 1, 0, 0) == LUA_OK;
}
// [end]

/// As protect, and the end of the program when the body fails.
template <typename Body>
void must(lua_State* L, Body body) {
  if (!protect(L, body)) {
    std::fprintf(stderr, "%s\n", lua_tostring(L, -1));
    std::exit(1);
  }
}

/// Protected: runs the script at `path`.
inline void load(lua_State* L, const char* path) {
  if (luaL_dofile(L, path) != LUA_OK) {
    lua_error(L);
  }
}
