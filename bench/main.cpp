/// Times script calls and native code: `benchmarks FILTER [only_promises] [options of Google Benchmark]`, where
/// only_promises leaves out what bench/check does not need. The modules come by LUA_PATH and LUA_CPATH; bench/run sets
/// them.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <zeph/platform/lua_api.h>

#include "native.h"
#include "table_reporter.h"

namespace {

constexpr int kBatch = 500;

/// Calls the function below the arguments; an error ends the program.
void call(lua_State* L, int arguments, int results = 0) {
  if (lua_pcall(L, arguments, results, 0) != LUA_OK) {
    std::fprintf(stderr, "%s\n", lua_tostring(L, -1));
    std::exit(1);
  }
}

/// Bytes that Lua takes for a call, garbage included.
double bytes_per_call(lua_State* L, int function) {
  const auto bytes = [L] { return 1024.0 * lua_gc(L, LUA_GCCOUNT, 0) + lua_gc(L, LUA_GCCOUNTB, 0); };
  lua_gc(L, LUA_GCCOLLECT, 0);
  lua_gc(L, LUA_GCSTOP, 0);
  const double before = bytes();
  lua_rawgeti(L, LUA_REGISTRYINDEX, function);
  lua_pushinteger(L, kBatch);
  call(L, 1);
  const double taken = bytes() - before;
  lua_gc(L, LUA_GCRESTART, 0);
  return taken / kBatch;
}

/// Times a Lua function (n) that makes a call n times.
void time_call(benchmark::State& state, lua_State* L, int function) {
  state.counters["bytes"] = bytes_per_call(L, function);
  lua_gc(L, LUA_GCCOLLECT, 0);
  while (state.KeepRunningBatch(kBatch)) {
    lua_rawgeti(L, LUA_REGISTRYINDEX, function);
    lua_pushinteger(L, kBatch);
    call(L, 1);
  }
}

/// (name, function (n)); bench/timings.lua calls it.
int add(lua_State* L) {
  const std::string name = luaL_checkstring(L, 1);
  luaL_checktype(L, 2, LUA_TFUNCTION);
  lua_settop(L, 2);
  const int function = luaL_ref(L, LUA_REGISTRYINDEX);
  benchmark::RegisterBenchmark(name.c_str(), time_call, L, function);
  return 0;
}

/// (name, make, entities): a tick over entities that are there while it is timed.
int add_tick(lua_State* L) {
  const std::string name = luaL_checkstring(L, 1);
  luaL_checktype(L, 2, LUA_TFUNCTION);
  const lua_Integer entities = luaL_checkinteger(L, 3);
  lua_settop(L, 2);
  const int make = luaL_ref(L, LUA_REGISTRYINDEX);
  benchmark::RegisterBenchmark(name.c_str(), [L, make, entities](benchmark::State& state) {
    lua_rawgeti(L, LUA_REGISTRYINDEX, make);
    if (lua_pcall(L, 0, 2, 0) != LUA_OK) {
      state.SkipWithError(lua_tostring(L, -1));
      return;
    }
    const int calls = static_cast<int>(lua_tointeger(L, -1) * entities);
    lua_pop(L, 1);
    lua_gc(L, LUA_GCCOLLECT, 0);
    for (int i = 0; i < 2; ++i) {  // the collector at its pace
      lua_pushvalue(L, -1);
      call(L, 0);
    }
    while (state.KeepRunningBatch(calls)) {
      lua_pushvalue(L, -1);
      call(L, 0);
    }
    lua_settop(L, 0);
    lua_gc(L, LUA_GCCOLLECT, 0);
  });
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  std::string filter;
  bool only_promises = false;
  for (int place = 1; place <= 2 && argc > 1 && argv[1][0] != '-'; ++place) {
    if (place == 1) {
      filter = argv[1];
    } else {
      only_promises = true;
    }
    std::rotate(argv + 1, argv + 2, argv + argc);
    --argc;
  }
  benchmark::Initialize(&argc, argv);

  lua_State* L = luaL_newstate();
  luaL_openlibs(L);
  lua_getglobal(L, "require");
  lua_pushstring(L, "timings");
  call(L, 1, 1);
  lua_pushlstring(L, filter.data(), filter.size());
  lua_pushboolean(L, only_promises ? 1 : 0);
  lua_pushcfunction(L, add);
  lua_pushcfunction(L, add_tick);
  call(L, 4);
  add_native_benchmarks(filter);

  TableReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  lua_close(L);
}
