/// What a host can do beside the library: the same tick with other settings of Lua's collector and with an allocator of
/// its own. Prints nanoseconds a call and the most memory that Lua held.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <new>

#include <zeph/platform/lua_api.h>

namespace {

/// Blocks of up to 256 bytes from lists of free blocks of one size, which are never given back; larger ones from the C
/// library. For one Lua state, which is one thread.
class FreeLists {
 public:
  static void* Allocate(void* lists, void* block, std::size_t old_size, std::size_t size) {
    return static_cast<FreeLists*>(lists)->Resize(block, block == nullptr ? 0 : old_size, size);
  }

 private:
  static constexpr std::size_t kStep = 16;
  static constexpr std::size_t kLargest = 256;
  static constexpr std::size_t kChunk = 64 * 1024;
  struct Free {
    Free* next;
  };

  static std::size_t Class(std::size_t size) { return (size + kStep - 1) / kStep; }

  void* Take(std::size_t size) {
    if (size > kLargest) {
      return std::malloc(size);
    }
    Free*& list = m_lists[Class(size)];
    if (list == nullptr) {
      const std::size_t bytes = Class(size) * kStep;
      auto* chunk = static_cast<char*>(std::malloc(kChunk));
      for (std::size_t at = 0; chunk != nullptr && at + bytes <= kChunk; at += bytes) {
        list = new (chunk + at) Free{list};
      }
    }
    Free* block = list;
    if (block != nullptr) {
      list = block->next;
    }
    return block;
  }
  void Give(void* block, std::size_t size) {
    if (size > kLargest) {
      std::free(block);
    } else if (block != nullptr) {
      m_lists[Class(size)] = new (block) Free{m_lists[Class(size)]};
    }
  }
  void* Resize(void* block, std::size_t old_size, std::size_t size) {
    if (old_size > kLargest && size > kLargest) {
      return std::realloc(block, size);
    }
    if (old_size != 0 && size != 0 && old_size <= kLargest && size <= kLargest && Class(old_size) == Class(size)) {
      return block;
    }
    void* fresh = size == 0 ? nullptr : Take(size);
    if (size != 0 && fresh == nullptr) {
      return nullptr;
    }
    if (old_size != 0) {
      if (fresh != nullptr) {
        std::copy_n(static_cast<char*>(block), std::min(old_size, size), static_cast<char*>(fresh));
      }
      Give(block, old_size);
    }
    return fresh;
  }

  Free* m_lists[kLargest / kStep + 1] = {};
};

constexpr int kEntities = 10000;
constexpr int kTicks = 30;

void measure(const char* name, lua_State* L, int pause, bool generational) {
  luaL_openlibs(L);
  lua_gc(L, LUA_GCSETPAUSE, pause);
#if LUA_VERSION_NUM >= 504
  if (generational) {
    lua_gc(L, LUA_GCGEN, 0, 0);
  }
#else
  if (generational) {
    return lua_close(L);
  }
#endif
  luaL_loadstring(L, "return require 'tick'(require 'math3d', ...)");
  lua_pushinteger(L, kEntities);
  if (lua_pcall(L, 1, 2, 0) != LUA_OK) {
    std::fprintf(stderr, "%s\n", lua_tostring(L, -1));
    std::exit(1);
  }
  const double calls = static_cast<double>(lua_tointeger(L, -1)) * kEntities;
  lua_pop(L, 1);
  int most = 0;
  double least = std::numeric_limits<double>::infinity();
  for (int batch = 0; batch < 4; ++batch) {
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 0; i < kTicks; ++i) {
      lua_pushvalue(L, -1);
      lua_call(L, 0, 0);
      most = std::max(most, lua_gc(L, LUA_GCCOUNT, 0));
    }
    const std::chrono::duration<double, std::nano> taken = std::chrono::steady_clock::now() - begin;
    least = std::min(least, taken.count() / kTicks / calls);
  }
  std::printf("%-48s %8.0f ns %8.1f MB\n", name, least, most / 1024.0);
  lua_close(L);
}
void measure_lists(const char* name, int pause) {
  static FreeLists lists;  // kept from one state to the next
  measure(name, lua_newstate(&FreeLists::Allocate, &lists), pause, false);
}

}  // namespace

int main() {
  measure("as Lua comes (pause 200)", luaL_newstate(), 200, false);
  measure("pause 150", luaL_newstate(), 150, false);
  measure("pause 400", luaL_newstate(), 400, false);
  measure("generational", luaL_newstate(), 200, true);
  measure_lists("free lists", 200);
  measure_lists("free lists, pause 400", 400);
}
