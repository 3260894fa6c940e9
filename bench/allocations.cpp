/// Counts what a thousand calls of each kind allocate natively: malloc and what stands on it, all but Lua's own blocks.
/// Prints a line for each call that allocates; ends with 1 if there is one other than the text of a wrapped value,
/// which is a std::string.
#include <cstdio>
#include <cstdlib>
#include <lua.hpp>

extern "C" {

// glibc's own, under names that are not replaced here.
void* __libc_malloc(std::size_t size);                     // NOLINT
void* __libc_calloc(std::size_t count, std::size_t size);  // NOLINT
void* __libc_realloc(void* block, std::size_t size);       // NOLINT
void __libc_free(void* block);                             // NOLINT

static long allocations = 0;

void* malloc(std::size_t size) {
  ++allocations;
  return __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size) {
  ++allocations;
  return __libc_calloc(count, size);
}
void* realloc(void* block, std::size_t size) {
  ++allocations;
  return __libc_realloc(block, size);
}
void free(void* block) { __libc_free(block); }

}  // extern "C"

namespace {

void* allocate(void*, void* block, std::size_t, std::size_t size) {
  if (size == 0) {
    __libc_free(block);
    return nullptr;
  }
  return __libc_realloc(block, size);
}

int get_allocations(lua_State* L) {
  lua_pushinteger(L, allocations);
  return 1;
}

constexpr char kScript[] = R"lua(
  local operations, m, found = require "operations", require "math3d", 0
  for _, operation in ipairs(operations.list) do
    local kind, value, call = table.unpack(operation)
    local run = operations.compile(call, m)
    run(100)
    local before = allocations()
    run(1000)
    local count = allocations() - before
    if count > 0 then
      print(("%s: %d allocations in 1000 calls"):format(call, count))
      found = found + (call == "tostring(M)" and 0 or 1)
    end
  end
  print(#operations.list .. " calls, " .. found .. " with native allocations")
  return found == 0
)lua";

}  // namespace

int main() {
  lua_State* L = lua_newstate(allocate, nullptr);
  luaL_openlibs(L);
  lua_register(L, "allocations", get_allocations);
  if (luaL_dostring(L, kScript)) {
    std::fprintf(stderr, "%s\n", lua_tostring(L, -1));
    return 2;
  }
  return lua_toboolean(L, -1) != 0 ? 0 : 1;
}
