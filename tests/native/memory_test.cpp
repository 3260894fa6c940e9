/// Every allocation refused in turn: for every entry that a script can reach, and for the entry of the library itself,
/// each request for memory fails once. After each failure the state works, values are whole, and nothing has leaked.
#include <gtest/gtest.h>

#include "lua_state.h"

namespace zeph::test {
namespace {

constexpr const char* kSetUp = R"(
  V, P = math3d.Vector3, probe.Probe
  v, w = V.new(1, 2, 3), V.new(4, 5, 6)
  p, q = P.new(3), P.new(5)
  bare = setmetatable({}, V)   -- has no fields: writing back has to make them
)";

/// What has to hold after each failure. `bare` counts as zeros or as what the call makes of it, and nothing between.
constexpr const char* kCheck = R"(
  assert(v.x == 1 and v.y == 2 and v.z == 3 and w.x == 4 and w.y == 5 and w.z == 6)
  assert(p.number == 3 and q.number == 5 and p.place.x == 0)
  assert(bare.is_zero or bare == V.new(7, 8, 9), tostring(bare))
  assert((v + w).z == 9 and P.new(2).number == 2 and tostring(v) == 'Vector3(1.000000, 2.000000, 3.000000)')
)";

class MemoryTest : public testing::TestWithParam<const char*> {};

TEST_P(MemoryTest, EveryRefusalIsALuaError) {
  const int live_before = LuaProbe::live;
  {
    LuaState state;
    state.run(kSetUp);
    bool passed = false;
    long refusals = 0;
    for (; !passed; ++refusals) {
      ASSERT_LT(refusals, 1000);
      // The call starts with no garbage to collect and no memory to spare.
      lua_gc(state.L, LUA_GCCOLLECT, 0);
      ASSERT_EQ(luaL_loadstring(state.L, GetParam()), LUA_OK) << lua_tostring(state.L, -1);
      state.allocator.fail_at = refusals;
      const int status = lua_pcall(state.L, 0, 0, 0);
      state.allocator.fail_at = -1;
      if (status != LUA_OK) {
        // Lua 5.3 tells a memory error that was caught and raised again by its text alone.
        ASSERT_STREQ(lua_tostring(state.L, -1), "not enough memory") << status;
      }
      passed = status == LUA_OK;
      lua_settop(state.L, 0);
      state.run(kCheck);
    }
    EXPECT_GT(refusals, 0);
  }
  EXPECT_EQ(LuaProbe::live, live_before);
}

INSTANTIATE_TEST_SUITE_P(
    Calls, MemoryTest,
    testing::Values(
        // numbers, booleans, nothing
        "return v.length, v.is_zero, v:distance(w), math3d.radians(3), p.number, p:set(3), p:matches(q, 1)",
        // dummy values, text, lists
        "return v + w", "return V.new(v)", "return v:to_string() .. 'x'", "return v:to_list()", "return tostring(w)",
        // wrapped values
        "return p + q", "return P.new(p)", "return p.twin", "return p.place", "return tostring(p)",
        // objects of the native heap
        "return p:text()", "return p:table()", "return p:tuple()", "return p:nothing()", "return p:dead()",
        // several results
        "return p:results()", "return p:listing()", "return p:maybe()",
        // writing back, with and without fields that are missing
        "local c = V.new() c:set(1, 2, 3) c:normalize() c:from_string('7,8,9')", "bare:set(7, 8, 9)",
        "probe.swap_vectors(v, w) probe.swap_vectors(v, w)", "p.place = V.new()", "p:name(3)", "p:name('3')",
        // values inside values, a property that writes back, lists and results of values
        "return math3d.Plane.new(v, w), math3d.Ray.new(v, w)", "local r = math3d.RectF.new(1, 2, 3, 4) r.min = r.max",
        "local r = setmetatable({}, math3d.RectF) r.width = 1", "return math3d.Aabb.new(v, w):get_corners()",
        "math3d.Plane.new(v, 50):project_point(bare, V.new(7, 8, 9))",
        "return math3d.vector3_smooth_damp(v, w, v, 1, nil, 0.1)",
        "return math3d.plane_intersect_plane(math3d.Plane.new(1, 0, 0, 0), math3d.Plane.new(0, 1, 0, 0))",
        // standard entries and raw fields
        "return v:type(), v:mro(), v:getProperties(), P:mro()", "local c = V.new() c.extra = 1",
        "local c = P.new(1) c:__gc() c:__clear() return tostring(c)"));

TEST(Memory, EntryCanFailAnywhereAndBeCalledAgain) {
  Allocator allocator;
  lua_State* L = lua_newstate(&Allocator::allocate, &allocator);
  luaL_openlibs(L);
  bool passed = false;
  long refusals = 0;
  for (; !passed; ++refusals) {
    ASSERT_LT(refusals, 20000);
    allocator.fail_at = refusals;
    lua_pushcfunction(L, math3d::InitLuaMath3d);
    passed = lua_pcall(L, 0, 0, 0) == LUA_OK;
    allocator.fail_at = -1;
    lua_settop(L, 0);
  }
  math3d::InitLuaMath3d(L);
  open_probe(L);
  EXPECT_EQ(luaL_dostring(L, kSetUp), LUA_OK) << lua_tostring(L, -1);
  EXPECT_EQ(luaL_dostring(L, kCheck), LUA_OK) << lua_tostring(L, -1);
  lua_close(L);
  EXPECT_EQ(allocator.bytes, 0U);

  // On a fresh state for every refusal, so that what failed is never helped by an earlier try.
  for (long refusal = 0; refusal < 400; ++refusal) {
    Allocator fresh;
    lua_State* bare = lua_newstate(&Allocator::allocate, &fresh);
    lua_pushcfunction(bare, math3d::InitLuaMath3d);
    fresh.fail_at = refusal;
    lua_pcall(bare, 0, 0, 0);
    fresh.fail_at = -1;
    lua_close(bare);
    EXPECT_EQ(fresh.bytes, 0U);
  }
}

}  // namespace
}  // namespace zeph::test
