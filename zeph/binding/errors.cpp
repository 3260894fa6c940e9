#include <zeph/binding/errors.h>

#include <cstdlib>

#include <zeph/platform/script_binding/zplua.h>

namespace zeph::binding {

namespace {

/// luaL_error does not return; it just is not declared so.
template <typename... Values>
[[noreturn]] void raise(lua_State* L, const char* format, Values... values) {
  luaL_checkstack(L, LUA_MINSTACK, nullptr);
  luaL_error(L, format, values...);
  std::abort();
}

}  // namespace

void raise_count(lua_State* L, int count, int needed) {
  raise(L, "error invalid argument number %d, needed %d.", count, needed);
}
void raise_count(lua_State* L, int count, int lowest, int highest) {
  raise(L, "error invalid argument number %d, needed [%d-%d].", count, lowest, highest);
}
void raise_argument(lua_State* L, int index, const char* needed) {
  raise(L, "invalid argument %s in %d, %s needed.", zplua_typename(L, index, false), index, needed);
}
void raise_dummy_self(lua_State* L, const char* needed) {
  raise(L, "invalid %s 'self', %s needed", zplua_typename(L, 1, false), needed);
}
void raise_self(lua_State* L, const char* needed) {
  raise(L, "invalid %s 'self', %s needed.", zplua_typename(L, 1, false), needed);
}
void raise_setter(lua_State* L, const char* needed) {
  raise(L, "invalid arg %s in setter, %s needed.", zplua_typename(L, 3, false), needed);
}
void raise_overload(lua_State* L) { raise(L, "invalid arguments in overload functions."); }

}  // namespace zeph::binding
