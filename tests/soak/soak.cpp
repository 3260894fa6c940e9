/// SCRIPT SECONDS [CALLS]: runs the script's frame() for that long, keeps a value of each frame for a while, by a
/// worker thread if it is the only one that has it, and logs the memory of the process and of Lua. Fails when memory
/// grows, or when there were fewer calls.
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <mutex>
#include <thread>
#include <vector>

#include <lua.hpp>

#include <zeph/binding/type_traits.h>
#include <zeph/math3d.h>
#include <zeph/platform/zpthreading/zpthreading.h>

using zeph::binding::AutoRef;
using zeph::binding::Object;

namespace {

/// Drops references on a thread of its own.
class Worker {
 public:
  Worker() : m_thread([this] { run(); }) {}
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;
  ~Worker() {
    hand_over({});
    m_thread.join();
  }
  /// An empty reference ends the worker.
  void hand_over(AutoRef<Object> object) {
    {
      const std::lock_guard lock(m_mutex);
      m_objects.push_back(std::move(object));
    }
    m_wake.notify_one();
  }

 private:
  void run() {
    for (bool go_on = true; go_on;) {
      std::vector<AutoRef<Object>> objects;
      {
        std::unique_lock lock(m_mutex);
        m_wake.wait(lock, [this] { return !m_objects.empty(); });
        objects.swap(m_objects);
      }
      go_on = std::all_of(objects.begin(), objects.end(), [](const auto& object) { return object.get() != nullptr; });
    }
  }

  std::mutex m_mutex;
  std::condition_variable m_wake;
  std::vector<AutoRef<Object>> m_objects;
  std::thread m_thread;
};

double resident_kilobytes() {
  std::ifstream statm("/proc/self/statm");
  double all = 0;
  double resident = 0;
  statm >> all >> resident;
  return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1024.0;
}

struct Sample {
  double seconds;
  double resident;
  double lua;
};

/// Growth in kilobytes over the samples, by the straight line that fits them best: a single high sample is no growth.
double growth(const std::vector<Sample>& samples, double Sample::*memory) {
  const auto count = static_cast<double>(samples.size());
  Sample mean{};
  for (const Sample& s : samples) {
    mean.seconds += s.seconds / count;
    mean.*memory += s.*memory / count;
  }
  double covariance = 0;
  double variance = 0;
  for (const Sample& s : samples) {
    covariance += (s.seconds - mean.seconds) * (s.*memory - mean.*memory);
    variance += (s.seconds - mean.seconds) * (s.seconds - mean.seconds);
  }
  return variance > 0 ? covariance / variance * (samples.back().seconds - samples.front().seconds) : 0;
}

bool verdict(const char* what, double grown, double limit) {
  const bool flat = grown <= limit;
  std::printf("%s memory: %+.1f kB over the last three quarters, %s (up to %.0f kB are)\n", what, grown,
              flat ? "flat" : "NOT FLAT", limit);
  return flat;
}

}  // namespace

int main(int argc, char** argv) {
  const double seconds = argc > 2 ? std::atof(argv[2]) : 0;
  const double least_calls = argc > 3 ? std::atof(argv[3]) : 1;
  if (seconds <= 0) {
    std::fprintf(stderr, "usage: %s SCRIPT SECONDS [CALLS]\n", argv[0]);
    return 2;
  }
  lua_State* L = luaL_newstate();
  luaL_openlibs(L);
  zeph::math3d::InitLuaMath3d(L);
  lua_settop(L, 0);
  bool failed = luaL_dofile(L, argv[1]) != LUA_OK;

  constexpr int kSamples = 60;
  std::vector<Sample> samples;
  double calls = 0;
  std::size_t frames = 0;
  std::size_t objects = 0;
  {
    Worker worker;
    std::array<AutoRef<Object>, 100> kept;  // userdata, which Lua refers to as well
    const auto start = std::chrono::steady_clock::now();
    while (!failed && samples.size() < kSamples) {
      lua_getglobal(L, "frame");
      lua_pushnumber(L, 1.0 / 60.0);
      failed = lua_pcall(L, 1, 2, 0) != LUA_OK;
      if (failed) {
        break;
      }
      calls += lua_tonumber(L, -2);
      if (AutoRef<Object> object = Object::Unboxing(L, -1); lua_isuserdata(L, -1) != 0) {
        kept[frames % kept.size()] = object;
      } else if (object.alive()) {
        worker.hand_over(std::move(object));
      }
      ++frames;
      lua_settop(L, 0);
      objects += zeph::zpthreading::zpThread<0>::Handle->run();

      const std::chrono::duration<double> now = std::chrono::steady_clock::now() - start;
      if (now.count() * kSamples >= seconds * static_cast<double>(samples.size() + 1)) {
        const double lua_before = lua_gc(L, LUA_GCCOUNT, 0);
        lua_gc(L, LUA_GCCOLLECT, 0);
        const double lua = lua_gc(L, LUA_GCCOUNT, 0) + lua_gc(L, LUA_GCCOUNTB, 0) / 1024.0;
        samples.push_back({now.count(), resident_kilobytes(), lua});
        if (samples.size() % 6 == 0) {
          std::printf(
              "%8.1f s %13.0f calls %9zu objects from workers, resident %.0f kB, Lua %.0f kB, collected %.1f kB\n",
              now.count(), calls, objects, samples.back().resident, lua_before, lua);
          std::fflush(stdout);
        }
      }
    }
  }
  if (failed) {
    std::fprintf(stderr, "%s\n", lua_tostring(L, -1));
    return 1;
  }
  lua_close(L);

  std::printf("%.0f calls in %.1f s, %.0f a second\n", calls, samples.back().seconds, calls / samples.back().seconds);
  samples.erase(samples.begin(), samples.begin() + kSamples / 4);
  const bool resident_is_flat = verdict("resident", growth(samples, &Sample::resident), 1024);
  const bool lua_is_flat = verdict("Lua", growth(samples, &Sample::lua), 64);
  if (calls < least_calls) {
    std::printf("too few calls: %.0f were to be made\n", least_calls);
  }
  return resident_is_flat && lua_is_flat && calls >= least_calls ? 0 : 1;
}
