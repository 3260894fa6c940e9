/// Lives of Lua states: several, side by side and one after the other, closed with live objects, the entry called
/// twice.
#include <dlfcn.h>

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

TEST(State, UnloadedAndLoadedAgain) {
  // A stock interpreter unloads the module when it closes its state.
  for (int round = 0; round < 3; ++round) {
    lua_State* L = luaL_newstate();
    luaL_openlibs(L);
    lua_pushstring(L, MATH3D_MODULE_CPATH);
    lua_setglobal(L, "cpath");
    const int failed = luaL_dostring(L, R"(
      package.cpath = cpath
      local m, p = require 'math3d', require 'probe'
      keep = {m.Vector3.new(1, 2, 3), p.Probe.new(4)}
      assert((keep[1] + keep[1]).x == 2 and keep[2].number == 4))");
    EXPECT_EQ(failed, LUA_OK) << lua_tostring(L, -1);
    lua_close(L);
  }
}

}  // namespace
}  // namespace zeph::test
