/// References that end on worker threads, while the script thread makes and collects objects and runs its queue. For
/// ThreadSanitizer; without it, it still counts the ends.
#include <algorithm>
#include <array>
#include <atomic>
#include <iterator>
#include <mutex>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include <zeph/binding/builtin_objects.h>

#include "lua_state.h"

namespace zeph::test {
namespace {

using binding::AutoRef;
using binding::Object;
using binding::TypeTraits;
using References = std::vector<AutoRef<Object>>;

constexpr std::size_t kRounds = 200;
constexpr std::size_t kObjects = 24;  ///< a round
std::array<std::atomic<int>, kRounds * kObjects> g_ends;
std::atomic<int> g_strays;  ///< ends on another thread than the script thread
std::thread::id g_script_thread;

class Witness final : public Object {
 public:
  explicit Witness(std::size_t number) : Object("test::Witness"), m_number(number) {}
  ~Witness() override {
    ++g_ends[m_number];
    g_strays += std::this_thread::get_id() == g_script_thread ? 0 : 1;
  }

 private:
  std::size_t m_number;
};

/// Takes references as they come, copies and moves them, and lets the last of each go.
class Worker {
 public:
  void hand(References references) {
    const std::lock_guard lock(m_mutex);
    std::move(references.begin(), references.end(), std::back_inserter(m_inbox));
  }
  /// Till all that was handed over has gone.
  void finish() {
    m_finishing = true;
    m_thread.join();
  }

 private:
  void work() {
    for (bool last = false; !last;) {
      last = m_finishing;
      References taken;
      {
        const std::lock_guard lock(m_mutex);
        taken.swap(m_inbox);
      }
      for (AutoRef<Object>& reference : taken) {
        AutoRef<Object> copy = reference;
        const AutoRef<Object> moved = std::move(reference);
        copy = nullptr;
        EXPECT_TRUE(moved.alive());
      }
      std::this_thread::yield();
    }
  }

  std::mutex m_mutex;
  References m_inbox;
  std::atomic<bool> m_finishing = false;
  std::thread m_thread{[this] { work(); }};
};

class Threads : public testing::TestWithParam<bool> {};

/// The parameter: does the queue run all the time, or when the workers have gone?
TEST_P(Threads, EveryObjectEndsOnceOnTheScriptThread) {
  g_script_thread = std::this_thread::get_id();
  for (auto& ends : g_ends) {
    ends = 0;
  }
  auto* queue = zpthreading::zpThread<0>::Handle;
  const int live_before = LuaProbe::live;
  std::size_t ended = 0;
  {
    LuaState state;
    queue->run();
    std::array<Worker, 3> workers;
    for (std::size_t round = 0; round < kRounds; ++round) {
      References load;
      for (std::size_t i = 0; i < kObjects; ++i) {
        load.emplace_back(new Witness(round * kObjects + i));
      }
      // Values of script classes, of both kinds, which no Lua state has.
      Probe probe{static_cast<float>(round), {}};
      load.emplace_back(TypeTraits<Probe>::Packing(&probe));
      load.emplace_back(TypeTraits<math3d::_Vector3<float>>::Packing(&probe.place));
      // And a table's value.
      TypeTraits<math3d::_Vector3<float>>::Boxing(state.L, &probe.place, false);
      load.emplace_back(Object::Unboxing(state.L, -1));
      lua_settop(state.L, 0);
      workers[round % workers.size()].hand(std::move(load));
      // Meanwhile others live and die here.
      state.run("for i = 1, 10 do local p = probe.Probe.new(i); local q = p + p; p:tuple() end");
      TypeTraits<Probe>::Boxing(state.L, &probe, false);
      const AutoRef<Object> seen = Object::Unboxing(state.L, -1);
      lua_settop(state.L, 0);
      lua_gc(state.L, LUA_GCSTEP, 10);
      if (GetParam()) {
        ended += queue->run();
      }
    }
    for (Worker& worker : workers) {
      worker.finish();
    }
    if (!GetParam()) {
      EXPECT_EQ(std::count(g_ends.begin(), g_ends.end(), 0), static_cast<std::ptrdiff_t>(g_ends.size()));
    }
    ended += queue->run();
    EXPECT_EQ(queue->run(), 0U);
  }
  EXPECT_EQ(ended, kRounds * (kObjects + 3));
  EXPECT_TRUE(std::all_of(g_ends.begin(), g_ends.end(), [](const auto& ends) { return ends == 1; }));
  EXPECT_EQ(g_strays, 0);
  EXPECT_EQ(LuaProbe::live, live_before);
}
INSTANTIATE_TEST_SUITE_P(Queue, Threads, testing::Bool(),
                         [](const auto& at_once) { return at_once.param ? "RunAllTheTime" : "RunLate"; });

TEST(Threads, QueueThatNeverRunsLosesNothing) {
  std::atomic<int> ran = 0;
  {
    zpthreading::detail::zpThreadCommandQueue queue;
    std::array<std::thread, 3> posting;
    for (std::thread& thread : posting) {
      thread = std::thread([&] {
        for (int i = 0; i < 1000; ++i) {
          queue.post([&ran] { ++ran; });
        }
      });
    }
    for (std::thread& thread : posting) {
      thread.join();
    }
    EXPECT_EQ(ran, 0);
  }
  EXPECT_EQ(ran, 3000);
}

}  // namespace
}  // namespace zeph::test
