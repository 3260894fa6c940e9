/// Errors and memory: where owners stand, and what a refused allocation comes to.
#include <vector>

#include <zeph/math3d.h>
#include <zeph/math3d/lua_vector3.h>

#include "protect.h"

using Vector3 = zeph::math3d::_Vector3<float>;
using VectorTraits = zeph::binding::TypeTraits<Vector3>;

namespace {

constexpr char kScript[] = "path = {math3d.Vector3.new(1, 2, 3), math3d.Vector3.new(4, 5, 6)}; broken = {path[1], 7}";

// [owner]
/// The list of vectors in the global `name`; empty, and a message, when it is not that.
std::vector<Vector3> read_path(lua_State* L, const char* name) {
  std::vector<Vector3> path;  // owned here, outside of the protected call
  const bool complete = protect(L, [&path, name](lua_State* state) {
    lua_getglobal(state, name);
    if (!lua_istable(state, -1)) {
      luaL_error(state, "%s is no table", name);
    }
    const lua_Unsigned count = lua_rawlen(state, -1);
    for (lua_Unsigned i = 1; i <= count; ++i) {
      lua_rawgeti(state, -1, static_cast<lua_Integer>(i));
      if (!VectorTraits::Checking(state, -1, false)) {
        luaL_error(state, "point %d of %s is a %s", static_cast<int>(i), name, luaL_typename(state, -1));
      }
      path.push_back(VectorTraits::Unboxing(state, -1));  // may throw, which `guarded` turns into a Lua error
      lua_pop(state, 1);
    }
  });
  if (!complete) {
    std::printf("path\t%s\n", lua_tostring(L, -1));
    lua_pop(L, 1);
    path.clear();
  }
  return path;
}
// [end]

// [limit]
/// An allocator of at most `limit` bytes. The library takes all memory of Lua values from it.
struct Memory {
  std::size_t used = 0;
  std::size_t limit = 0;

  static void* allocate(void* memory, void* block, std::size_t old_size, std::size_t new_size) {
    auto& self = *static_cast<Memory*>(memory);
    old_size = block == nullptr ? 0 : old_size;  // it tells the kind of object for a new block
    if (new_size > old_size && self.used - old_size + new_size > self.limit) {
      return nullptr;
    }
    self.used = self.used - old_size + new_size;
    if (new_size == 0) {
      std::free(block);
      return nullptr;
    }
    return std::realloc(block, new_size);
  }
};
// [end]

}  // namespace

int main() {
  Memory memory{.limit = std::size_t{64} << 20};
  lua_State* L = lua_newstate(&Memory::allocate, &memory);
  must(L, [](lua_State* state) {
    luaL_openlibs(state);
    zeph::math3d::InitLuaMath3d(state);
    if (luaL_dostring(state, kScript) != LUA_OK) {
      lua_error(state);
    }
  });
  std::printf("path\t%zu points\n", read_path(L, "path").size());
  read_path(L, "broken");

  // [refused]
  memory.limit = memory.used + 10'000;
  const bool fitted = protect(L, [](lua_State* state) {
    lua_newtable(state);
    for (int i = 1; i <= 1000; ++i) {
      Vector3 place{};
      VectorTraits::Boxing(state, &place, false);
      lua_rawseti(state, -2, i);
    }
  });
  std::printf("%s\n", fitted ? "fitted" : lua_tostring(L, -1));
  lua_settop(L, 0);  // what the call had made is garbage now; the state goes on as if nothing had happened
  std::printf("path\t%zu points\n", read_path(L, "path").size());
  // [end]
  lua_close(L);
  std::printf("left\t%zu bytes\n", memory.used);
  return 0;
}
