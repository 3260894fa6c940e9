/// A Lua state for one test, with the standard libraries and the modules math3d and probe.
#pragma once

#include <string>

#include <gtest/gtest.h>

#include <zeph/math3d.h>

#include "allocator.h"
#include "probe.h"

namespace zeph::test {

class LuaState {
 public:
  LuaState() : L(lua_newstate(&Allocator::allocate, &allocator)) {
    luaL_openlibs(L);
    math3d::InitLuaMath3d(L);
    open_probe(L);
    lua_settop(L, 0);
  }
  LuaState(const LuaState&) = delete;
  LuaState& operator=(const LuaState&) = delete;
  ~LuaState() {
    lua_close(L);
    EXPECT_EQ(allocator.bytes, 0U);
  }

  /// Runs the chunk; an error fails the test.
  void run(const std::string& chunk) {
    const int failed = luaL_dostring(L, chunk.c_str());
    EXPECT_EQ(failed, LUA_OK) << lua_tostring(L, -1) << "\nin " << chunk;
    lua_settop(L, 0);
  }
  /// The text of `expression`, or of the error it ends in.
  std::string eval(const std::string& expression) {
    luaL_dostring(L, ("return tostring(" + expression + ")").c_str());
    std::string text = lua_isstring(L, -1) != 0 ? lua_tostring(L, -1) : "(no text)";
    lua_settop(L, 0);
    return text;
  }

  Allocator allocator;
  lua_State* const L;
};

}  // namespace zeph::test
