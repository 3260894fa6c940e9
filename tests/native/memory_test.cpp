/// Every request for memory refused in turn, Lua's and the native heap's: for every entry that a script can reach, for
/// what native code does with values, and for the entry of the library itself. After each failure the state works,
/// values are whole, and nothing has leaked.
#include <cstdlib>
#include <new>

#include <gtest/gtest.h>

#include <zeph/binding/builtin_objects.h>

#include "lua_state.h"
#include "surface.h"

namespace {

long g_news_to_grant = -1;  ///< requests to the native heap till one is refused; negative: grants all

void* request(std::size_t size) {
  if (g_news_to_grant >= 0 && g_news_to_grant-- == 0) {
    g_news_to_grant = 0;
    throw std::bad_alloc();
  }
  if (void* block = std::malloc(size)) {
    return block;
  }
  throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) { return request(size); }
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  try {
    return request(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}
void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { std::free(block); }

namespace zeph::test {
namespace {

using binding::AutoRef;
using binding::Object;

enum class Heap { lua, native };

/// A state with a value of each class on its stack, which nobody touches.
class Patient {
 public:
  Patient() {
    for (int i = 0; i < classes(); ++i) {
      live.push_value(L, i);
      m_digests.push_back(live.digest(L, -1, true));
    }
  }

  static int classes() { return static_cast<int>(Surface::get().classes.size()); }
  /// Places on the stack from here on are free.
  static int top() { return classes(); }

  /// Calls what stands on the stack above `function` with the n-th request refused, n = 0, 1, 2 ..., as often as that
  /// takes till it passes. `set_up` pushes function and arguments, `look` looks at what there is after a failure.
  template <typename SetUp, typename Look>
  void refuse_in_turn(Heap heap, const std::string& what, SetUp set_up, Look look) {
    lua_gc(L, LUA_GCCOLLECT, 0);
    for (long n = 0;; ++n) {
      ASSERT_LT(n, 1000) << what;
      lua_settop(L, top());
      set_up();
      (heap == Heap::lua ? state.allocator.fail_at : g_news_to_grant) = n;
      const int status = lua_pcall(L, lua_gettop(L) - function, 1, 0);
      state.allocator.fail_at = g_news_to_grant = -1;
      if (status == LUA_OK) {
        return;
      }
      // Lua 5.3 tells a memory error that was caught and raised again by its text alone.
      ASSERT_TRUE(lua_isstring(L, -1)) << what;
      ASSERT_STREQ(lua_tostring(L, -1), "not enough memory") << what;
      ++refusals;
      look();
      for (int i = 0; i < classes(); ++i) {
        ASSERT_EQ(live.digest(L, i + 1, true), m_digests[static_cast<std::size_t>(i)]) << what;
      }
    }
  }

  LuaState state;
  lua_State* const L = state.L;
  const LiveSurface live{L, Surface::get()};
  int function = 0;   ///< its place on the stack
  long refusals = 0;  ///< in all

 private:
  std::vector<std::uint64_t> m_digests;
};

void clear_fields(lua_State* L, int table) {
  for (lua_pushnil(L); lua_next(L, table) != 0;) {
    lua_pop(L, 1);
    lua_pushvalue(L, -1);
    lua_pushnil(L);
    lua_rawset(L, table);
  }
}

class Memory : public testing::TestWithParam<Heap> {};
INSTANTIATE_TEST_SUITE_P(Heaps, Memory, testing::Values(Heap::lua, Heap::native),
                         [](const auto& heap) { return heap.param == Heap::lua ? "Lua" : "Native"; });

/// With values that have all their fields, and with ones that have none, so that writing back has to make them. What a
/// failing call has done to its arguments is nothing, or what it does when it passes.
TEST_P(Memory, EveryEntryPassesOrRaisesAnError) {
  const int live_before = LuaProbe::live;
  {
    Patient patient;
    lua_State* L = patient.L;
    const auto& entries = Surface::get().entries;
    ASSERT_GT(entries.size(), 300U);
    for (std::size_t i = 0; i < entries.size(); ++i) {
      EXPECT_FALSE(entries[i].calls.empty()) << entries[i].name << " was never called with success";
      for (const auto& call : entries[i].calls) {
        for (const bool bare : {false, true}) {
          const int first = Patient::top() + 1;
          const int count = static_cast<int>(call.size());
          std::vector<std::uint64_t> before;
          std::vector<std::vector<std::uint64_t>> seen;
          const auto digests = [&] {
            std::vector<std::uint64_t> all;
            for (int k = 0; k < count; ++k) {
              all.push_back(patient.live.digest(L, first + k, false));
            }
            return all;
          };
          patient.refuse_in_turn(
              GetParam(), entries[i].name,
              [&] {
                for (const int candidate : call) {
                  patient.live.push_argument(L, static_cast<int>(i), candidate);
                  if (bare && lua_istable(L, -1)) {
                    clear_fields(L, lua_gettop(L));
                  }
                }
                before = digests();
                patient.function = lua_gettop(L) + 1;
                patient.live.push_function(L, static_cast<int>(i));
                for (int k = 0; k < count; ++k) {
                  lua_pushvalue(L, first + k);
                }
              },
              [&] { seen.push_back(digests()); });
          if (HasFatalFailure()) {
            return;
          }
          const std::vector<std::uint64_t> after = digests();
          for (const auto& then : seen) {
            for (std::size_t k = 0; k < then.size(); ++k) {
              EXPECT_TRUE(then[k] == before[k] || then[k] == after[k]) << entries[i].name << ", argument " << k + 1;
            }
          }
        }
      }
    }
    EXPECT_GT(patient.refusals, GetParam() == Heap::lua ? 1000 : 10);
  }
  EXPECT_EQ(LuaProbe::live, live_before);
}

/// Native code takes a value, and gives it back to this state and to another one.
TEST_P(Memory, ValuesCrossOrRaiseAnError) {
  static AutoRef<Object> kept;  // not in a frame that an error may leave
  const int live_before = LuaProbe::live;
  const auto take = [](lua_State* L) {
    bool failed = false;
    try {
      kept = Object::Unboxing(L, 1);
    } catch (const std::bad_alloc&) {
      failed = true;
    }
    return failed ? luaL_error(L, "not enough memory") : 0;
  };
  const auto give = [](lua_State* L) {
    bool failed = false;
    try {
      return Object::Boxing(L, kept, false);
    } catch (const std::bad_alloc&) {
      failed = true;
    }
    return failed ? luaL_error(L, "not enough memory") : 0;
  };
  {
    Patient patient;
    Patient other;
    for (int i = 0; i < Patient::classes(); ++i) {
      const std::string& name = Surface::get().classes[static_cast<std::size_t>(i)].name;
      const auto run = [&](Patient& host, lua_CFunction function) {
        host.refuse_in_turn(
            GetParam(), name,
            [&] {
              lua_pushcfunction(host.L, function);
              host.function = Patient::top() + 1;
              if (&host == &patient) {
                lua_pushvalue(host.L, i + 1);
              }
            },
            [] {});
      };
      run(patient, take);
      if (kept.alive()) {  // a class may have no Object
        for (Patient* host : {&patient, &other}) {
          run(*host, give);
          EXPECT_EQ(host->live.class_of(host->L, -1), i) << name;
          EXPECT_EQ(host->live.digest(host->L, -1, false), host->live.digest(host->L, i + 1, false)) << name;
        }
      }
      kept = nullptr;
    }
    EXPECT_GT(patient.refusals + other.refusals, 30);
  }
  EXPECT_EQ(LuaProbe::live, live_before);
}

/// Once on the same state again and again, and once on a fresh state for every refusal, so that what failed is never
/// helped by an earlier try.
TEST_P(Memory, EntryCanFailAnywhereAndBeCalledAgain) {
  for (const bool fresh : {false, true}) {
    Allocator allocator;
    lua_State* L = nullptr;
    bool passed = false;
    for (long n = 0; !passed; ++n) {
      ASSERT_LT(n, 20000);
      if (L == nullptr) {
        L = lua_newstate(&Allocator::allocate, &allocator);
      }
      lua_pushcfunction(L, math3d::InitLuaMath3d);
      (GetParam() == Heap::lua ? allocator.fail_at : g_news_to_grant) = n;
      passed = lua_pcall(L, 0, 0, 0) == LUA_OK;
      allocator.fail_at = g_news_to_grant = -1;
      lua_settop(L, 0);
      if (passed) {
        math3d::InitLuaMath3d(L);
        open_probe(L);
        const LiveSurface live(L, Surface::get());
        for (int i = 0; i < Patient::classes(); ++i) {
          live.push_value(L, i);
          EXPECT_EQ(live.class_of(L, -1), i);
          lua_settop(L, 0);
        }
      }
      if (passed || fresh) {
        lua_close(L);
        L = nullptr;
        EXPECT_EQ(allocator.bytes, 0U);
      }
    }
  }
}

/// Lua frees a userdata also when it has no memory left to call its finalizer.
TEST(Memory, ObjectsWhoseFinalizersCannotBeCalledEndWithTheState) {
  const int live_before = LuaProbe::live;
  AutoRef<Object> kept;
  {
    LuaState state;
    state.run("for i = 1, 100 do probe.Probe.new(i) end");
    state.run("one = probe.Probe.new(1)");
    lua_getglobal(state.L, "one");
    kept = Object::Unboxing(state.L, -1);
    lua_settop(state.L, 0);
    state.run("one = nil");
    lua_State* coroutine = lua_newthread(state.L);
    lua_pushcfunction(coroutine, [](lua_State* L) {
      lua_gc(L, LUA_GCCOLLECT, 0);
      return 0;
    });
    state.allocator.fail_at = 0;  // a first call in a coroutine needs memory
#if LUA_VERSION_NUM >= 504
    int results = 0;
    EXPECT_EQ(lua_resume(coroutine, nullptr, 0, &results), LUA_ERRMEM);
    lua_gc(coroutine, LUA_GCCOLLECT, 0);
#endif
    lua_gc(state.L, LUA_GCCOLLECT, 0);
    state.allocator.fail_at = -1;
    state.run("collectgarbage() collectgarbage()");
  }
  EXPECT_EQ(LuaProbe::live, live_before);
  kept = nullptr;
}

}  // namespace
}  // namespace zeph::test
