/// What is in a stack slot.
#include <zeph/platform/script_binding/class_register.h>
#include <zeph/platform/script_binding/zplua.h>

using namespace zeph::binding;

bool zplua_isnumber(lua_State* L, int index, bool nullable) {
  return lua_isnumber(L, index) != 0 || (nullable && lua_isnoneornil(L, index));
}

bool zplua_isinterger(lua_State* L, int index, bool nullable) {
  int is_integer = 0;
  lua_tointegerx(L, index, &is_integer);
  return is_integer != 0 || (nullable && lua_isnoneornil(L, index));
}

bool zplua_isboolean(lua_State* L, int index, bool nullable) {
  return lua_isboolean(L, index) || (nullable && lua_isnoneornil(L, index));
}

bool zplua_isstring(lua_State* L, int index, bool nullable) {
  return lua_isstring(L, index) != 0 || (nullable && lua_isnoneornil(L, index));
}

bool zplua_isdummytype(lua_State* L, int index, const char* cls_name, bool nullable) {
  if (nullable && lua_isnoneornil(L, index)) {
    return true;
  }
  const int top = lua_gettop(L);
  luaL_checkstack(L, 2, cls_name);
  const bool same = zplua_tableofclass(L, index, zplua_state(L), zplua_classslot(cls_name));
  lua_settop(L, top);
  return same;
}

bool zplua_isluaobject(lua_State* L, int index, const char* cls_name, bool nullable) {
  if (nullable && lua_isnoneornil(L, index)) {
    return true;
  }
  const int top = lua_gettop(L);
  luaL_checkstack(L, 2, cls_name);
  const bool same = zplua_objectofclass(L, index, zplua_state(L), zplua_classslot(cls_name)) != nullptr;
  lua_settop(L, top);
  return same;
}

const char* zplua_typename(lua_State* L, int index, bool qualified) {
  const ClassInfo& info = class_info(slot_of_value(L, index, zplua_state(L)));
  if (info.cls_name.empty()) {
    return luaL_typename(L, index);
  }
  return qualified ? info.cls_name.c_str() : info.lua_name.c_str();
}
