/// Lives of Lua states: several, side by side and one after the other, closed with live objects, the entry called
/// twice.
#include <dlfcn.h>
#include <unistd.h>

#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "lua_state.h"

namespace zeph::test {
namespace {

using binding::AutoRef;
using binding::Object;
using binding::TypeTraits;
using V = math3d::_Vector3<float>;

TEST(State, EntryLeavesTheModuleOnTheStackAsAGlobalAndForRequire) {
  lua_State* L = luaL_newstate();
  luaL_openlibs(L);
  EXPECT_EQ(math3d::InitLuaMath3d(L), 1);
  EXPECT_EQ(lua_gettop(L), 1);
  lua_setglobal(L, "returned");
  EXPECT_EQ(luaL_dostring(L, "assert(returned == math3d and require 'math3d' == math3d)"), LUA_OK)
      << lua_tostring(L, -1);
  lua_close(L);
}

TEST(State, SecondEntryKeepsValuesAndClasses) {
  LuaState state;
  state.run(R"(
    v, class, add = math3d.Vector3.new(1, 2, 3), math3d.Vector3, math3d.Vector3.__add
    p = probe.Probe.new(4)
    math3d.mine = 'kept')");
  math3d::InitLuaMath3d(state.L);
  open_probe(state.L);
  state.run(R"(
    assert(class == math3d.Vector3 and class == math3d.Vector and getmetatable(v) == class)
    assert((v + math3d.Vector3.new(1, 1, 1)).z == 4 and add(v, v).x == 2 and v.length_sqr == 14)
    assert(p.number == 4 and p.place.x == 0 and getmetatable(p) == probe.Probe)
    assert(math3d.mine == 'kept'))");
}

TEST(State, SideBySideStatesShareNothingButNativeObjects) {
  LuaState a;
  {
    LuaState b;
    a.run("math3d.Vector3.extra = 1; v = math3d.Vector3.new(1, 2, 3)");
    EXPECT_EQ(b.eval("math3d.Vector3.extra"), "nil");
    lua_getglobal(a.L, "v");
    const AutoRef<Object> object = Object::Unboxing(a.L, -1);
    lua_pop(a.L, 1);
    Object::Boxing(b.L, object, false);
    lua_setglobal(b.L, "v");
    EXPECT_EQ(b.eval("v == math3d.Vector3.new(1, 2, 3)"), "true");
    EXPECT_EQ(b.eval("getmetatable(v) == math3d.Vector3"), "true");
  }
  EXPECT_EQ(a.eval("v.z"), "3.0");
}

/// Runs `use` with a value of each class of the module on top of the stack.
template <typename Use>
void for_each_class(lua_State* L, Use use) {
  lua_getglobal(L, "math3d");
  for (lua_pushnil(L); lua_next(L, -2) != 0; lua_pop(L, 1)) {
    if (lua_istable(L, -1)) {
      lua_getfield(L, -1, "new");
      lua_call(L, 0, 1);
      use();
      lua_pop(L, 1);
    }
  }
  lua_pop(L, 1);
}

TEST(State, ValuesOfEveryClassCrossToAnotherStateAndOutliveTheirs) {
  LuaState b;
  std::vector<AutoRef<Object>> kept;
  std::vector<std::string> texts;
  {
    LuaState a;
    for_each_class(a.L, [&] {
      AutoRef<Object> object = Object::Unboxing(a.L, -1);
      if (!object.alive()) {
        return;  // RectOffset: native code has no handle of it
      }
      kept.push_back(object);
      texts.emplace_back(luaL_tolstring(a.L, -1, nullptr));
      lua_pop(a.L, 1);
      ASSERT_EQ(Object::Boxing(b.L, kept.back(), true), 1);
      EXPECT_EQ(texts.back(), luaL_tolstring(b.L, -1, nullptr));
      lua_settop(b.L, 0);
    });
  }
  EXPECT_GE(kept.size(), 13U);
  // Tables are values of their own; userdata went with their state, and the handle knows.
  for (std::size_t i = 0; i < kept.size(); ++i) {
    if (Object::Boxing(b.L, kept[i], false) == 1) {
      EXPECT_EQ(texts[i], luaL_tolstring(b.L, -1, nullptr));
    }
    lua_settop(b.L, 0);
  }
}

TEST(State, TenThousandStatesLeaveNoMemoryBehind) {
#if defined(MATH3D_SANITIZED)
  constexpr int states = 300;  // freed blocks stay in quarantine: resident memory tells nothing
  constexpr long limit = 1L << 20;
#else
  constexpr int states = 10000;
  constexpr long limit = 512;
#endif
  const auto resident_kilobytes = [] {
    long all = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> all >> resident;
    return resident * sysconf(_SC_PAGESIZE) / 1024;
  };
  long before = 0;
  for (int i = 0; i < states; ++i) {
    LuaState state;
    std::vector<AutoRef<Object>> objects;
    for_each_class(state.L, [&] { objects.emplace_back(Object::Unboxing(state.L, -1)); });
    if (i == states / 10) {
      before = resident_kilobytes();
    }
  }
  EXPECT_LE(resident_kilobytes() - before, limit);
}

TEST(State, ClosingWithLiveObjectsEndsThemAll) {
  const int before = LuaProbe::live;
  AutoRef<Object> kept;
  for (int round = 0; round < 200; ++round) {
    LuaState state;
    state.run("list = {}; for i = 1, 20 do list[i] = probe.Probe.new(i); list[-i] = math3d.Vector3.new() end");
    Probe probe{1, {}};
    TypeTraits<Probe>::Boxing(state.L, &probe, false);
    kept = Object::Unboxing(state.L, -1);
    Object::Boxing(state.L, AutoRef<Object>(TypeTraits<Probe>::Packing(&probe)), false);
  }
  EXPECT_EQ(LuaProbe::live, before);
  EXPECT_EQ(TypeTraits<Probe>::Unpacking(kept.get()), nullptr);
}

TEST(State, FinalizersThatRunWhileTheStateClosesFindTheModuleInOrder) {
  const int before = LuaProbe::live;
  {
    lua_State* L = luaL_newstate();
    luaL_openlibs(L);
    // Made before the module: finalized after everything of it.
    luaL_dostring(L, R"(
      early = setmetatable({}, {__gc = function()
        local ok, text = pcall(function() return p.number end)
        assert(not ok and text:find("invalid userdata 'self'", 1, true), text)
        local q = probe.Probe.new(3)
        assert(q.number == 3 and tostring(p) == '(removed object)')
        assert(math3d.Vector3.new(1, 2, 3).length_sqr == 14)
      end}))");
    math3d::InitLuaMath3d(L);
    open_probe(L);
    luaL_dostring(L, "p = probe.Probe.new(1)");
    lua_close(L);
  }
  EXPECT_LE(LuaProbe::live, before + 1) << "an object made while the state closes has no finalizer in Lua";
}

TEST(State, ClassTablesWithoutTheirFinalizersLeakNothingThatNativeCodeHasSeen) {
  const int before = LuaProbe::live;
  LuaState state;
  Probe probe{1, {}};
  state.run("probe.Probe.__gc = nil");
  TypeTraits<Probe>::Boxing(state.L, &probe, false);
  state.run("p = probe.Probe.new(2)");
  lua_getglobal(state.L, "p");
  AutoRef<Object> object = Object::Unboxing(state.L, -1);
  lua_settop(state.L, 0);
  state.run("p = nil; collectgarbage(); collectgarbage()");
  EXPECT_EQ(TypeTraits<Probe>::Unpacking(object.get()), nullptr);
  Object::RegisterPolymorphicLuaObjectCreator(typeid(Probe).hash_code(), [] { return new LuaProbe; });
  state.run("for i = 1, 10 do probe.Probe.new(i) end; collectgarbage(); collectgarbage()");
  EXPECT_EQ(LuaProbe::live, before) << "objects on the native heap end with their userdata";
}

}  // namespace
}  // namespace zeph::test
