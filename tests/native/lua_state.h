/// A Lua state for one test, with the standard libraries and the modules math3d and probe.
#pragma once

#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include <zeph/math3d.h>

#include "probe.h"

namespace zeph::test {

/// Counts the bytes of a state and refuses the request that `fail_at` counts down to.
struct Allocator {
  std::size_t bytes = 0;
  long fail_at = -1;  ///< requests that grow a block still to grant before one is refused; negative: grants all

  static void* allocate(void* context, void* block, std::size_t old_size, std::size_t new_size) {
    auto& self = *static_cast<Allocator*>(context);
    if (block == nullptr) {
      old_size = 0;  // then it tells the kind of object
    }
    if (new_size == 0) {
      self.bytes -= old_size;
      std::free(block);
      return nullptr;
    }
    if (new_size > old_size && self.fail_at >= 0 && self.fail_at-- == 0) {
      self.fail_at = 0;  // every later request fails too, also the one after the emergency collection
      return nullptr;
    }
    void* moved = std::realloc(block, new_size);
    if (moved != nullptr) {
      self.bytes += new_size - old_size;
    }
    return moved;
  }
};

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
