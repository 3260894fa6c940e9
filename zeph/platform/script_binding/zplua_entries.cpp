/// The standard entries that every class has: text, class names, properties.
#include <memory>
#include <new>
#include <string>

#include <zeph/platform/script_binding/class_register.h>
#include <zeph/platform/script_binding/zplua.h>

namespace {

using namespace zeph::binding;

/// The class of argument 1, a value or the class itself; an error for anything else.
unsigned self_class(lua_State* L) {
  const unsigned slot = slot_of_value_or_class(L, 1, zplua_upvaluestate(L));
  if (slot == kMaxScriptClasses) {
    luaL_error(L, "invalid %s 'self', script class needed.", zplua_typename(L, 1, false));
  }
  lua_settop(L, 1);
  return slot;
}

/// Protected: (light userdata of a std::string) -> string.
int push_string(lua_State* L) {
  const auto* text = static_cast<const std::string*>(lua_touserdata(L, 1));
  lua_pushlstring(L, text->data(), text->size());
  return 1;
}

/// Pushes the text of an object, or leaves an error message there and returns false. No error leaves this frame, which
/// owns the text, and the object that a bare value needs for it.
bool push_text(lua_State* L, const ScriptState* state, ObjectSlot* place) {
  try {
    std::unique_ptr<LuaObject> made;
    if (holds_bare_value(state, place)) {
      made.reset(state->bare[slot_of_place(state, place)].make(place->value()));
      if (made == nullptr) {
        throw std::bad_alloc();
      }
    }
    std::string text = made != nullptr ? made->AsString() : place->object->AsString();
    lua_pushcfunction(L, push_string);
    lua_pushlightuserdata(L, &text);
    return lua_pcall(L, 1, 1, 0) == LUA_OK;
  } catch (const std::bad_alloc&) {
    // Reported below, outside the handler.
  }
  lua_pushliteral(L, "not enough memory");
  return false;
}

}  // namespace

int zplua_luaobjecttostr(lua_State* L) {
  const ScriptState* state = zplua_upvaluestate(L);
  if (ObjectSlot* place = object_slot(L, 1, state)) {
    if (!stands(state, place)) {
      lua_pushliteral(L, "(removed object)");
      return 1;
    }
    return push_text(L, state, place) ? 1 : lua_error(L);
  }
  if (lua_istable(L, 1) && slot_of_value(L, 1, state) < kMaxScriptClasses) {
    lua_settop(L, 1);
    lua_getmetatable(L, 1);
    lua_pushliteral(L, "__asstring");
    if (lua_rawget(L, 2) == LUA_TNIL) {
      lua_pushfstring(L, "%s: %p", zplua_typename(L, 1, false), lua_topointer(L, 1));
      return 1;
    }
    lua_pushvalue(L, 1);
    lua_call(L, 1, 1);
    return 1;
  }
  return luaL_error(L, "invalid %s 'self', script class needed.", zplua_typename(L, 1, false));
}

int zplua_luaobjectmro(lua_State* L) {
  unsigned slot = self_class(L);
  lua_createtable(L, 1, 0);
  for (int place = 1; slot < kMaxScriptClasses; ++place, slot = class_info(slot).base) {
    lua_pushstring(L, class_info(slot).lua_name.c_str());
    lua_rawseti(L, 2, place);
  }
  return 1;
}

int zplua_luaobjecttype(lua_State* L) {
  lua_pushstring(L, class_info(self_class(L)).lua_name.c_str());
  return 1;
}

int zplua_classproperties(lua_State* L) {
  const unsigned slot = self_class(L);
  push_hidden(L, zplua_upvaluestate(L), slot);
  lua_rawgeti(L, 2, kSetters);
  lua_createtable(L, 0, 8);
  lua_pushnil(L);
  while (lua_next(L, 3) != 0) {
    const bool writable = lua_islightuserdata(L, -1);
    lua_pushvalue(L, -2);
    lua_pushboolean(L, writable ? 1 : 0);
    lua_rawset(L, 4);
    lua_pop(L, 1);
  }
  return 1;
}
