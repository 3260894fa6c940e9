/// Script objects: into Lua, out of Lua, and their end.
#include <cstring>

#include <zeph/platform/script_binding/class_register.h>
#include <zeph/platform/script_binding/zplua.h>

namespace {

using namespace zeph::binding;

/// Gives the userdata at `index` a guardian and makes it known as the one of its object. What can fail comes first.
void watch(lua_State* L, int index, ScriptState* state, ObjectSlot* place, LuaObject* object) {
  luaL_checkstack(L, LUA_MINSTACK, "script object");
  const int top = lua_gettop(L);
  auto* record = static_cast<WatchRecord*>(lua_newuserdatauv(L, sizeof(WatchRecord), 1));
  *record = {};
  lua_pushvalue(L, index);
#if LUA_VERSION_NUM >= 504
  lua_setiuservalue(L, top + 1, 1);
#else
  lua_setuservalue(L, top + 1);
#endif
  push_guardian_metatable(L);
  lua_setmetatable(L, top + 1);
  push_identities(L);
  lua_pushvalue(L, index);
  lua_rawsetp(L, -2, object);
  push_guardians(L);
  lua_pushvalue(L, index);
  lua_pushvalue(L, top + 1);
  lua_rawset(L, -3);
  LuaObjectAccess::Watch(record, state, place, object);
  lua_settop(L, top);
}

struct Push {
  ScriptState* state;
  LuaObject* object;
  unsigned slot;
};

/// Protected: (light userdata of a Push) -> userdata. The object enters Lua behind the last call that can fail.
int make_userdata(lua_State* L) {
  auto* push = static_cast<Push*>(lua_touserdata(L, 1));
  ObjectSlot* place = zplua_newobjectspace(L, 0);
  zplua_classtable(L, class_info(push->slot).cls_name.c_str());
  lua_setmetatable(L, 2);
  watch(L, 2, push->state, place, push->object);
  LuaObjectAccess::Enter(push->state, place, push->slot, push->object);
  return 1;
}

bool push_known(lua_State* L, const LuaObject* object) {
  push_identities(L);
  const bool known = lua_rawgetp(L, -1, object) == LUA_TUSERDATA;
  lua_remove(L, -2);
  if (!known) {
    lua_pop(L, 1);
  }
  return known;
}

}  // namespace

int zplua_pushluaobject(lua_State* L, LuaObject* object, const char* cls_name) {
  ScriptState* state = zplua_state(L);
  const unsigned slot = zplua_classslot(cls_name);
  if (object->State() == state && lua_checkstack(L, 4) != 0 && push_known(L, object)) {
    return 1;
  }
  if (object->State() != nullptr || LuaObjectAccess::IsInsideUserdata(object)) {
    object = object->Clone();
    if (object == nullptr) {
      return luaL_error(L, "a %s of another Lua state can't be copied", cls_name);
    }
  }
  Push push{state, object, slot};
  const char* refusal = lua_checkstack(L, LUA_MINSTACK) == 0               ? "stack overflow"
                        : state->closed                                    ? "the Lua state is closing"
                        : state->metatable[slot] == nullptr                ? "the class is not registered"
                        : std::strcmp(object->GetClsName(), cls_name) != 0 ? "the object is of another class"
                                                                           : nullptr;
  if (refusal != nullptr) {
    object->OnBeforeLuaRemove();
    return luaL_error(L, "can't push a %s: %s", cls_name, refusal);
  }
  lua_pushcfunction(L, make_userdata);
  lua_pushlightuserdata(L, &push);
  if (lua_pcall(L, 1, 1, 0) != LUA_OK) {
    // Either it is not in Lua yet, or its guardian is and has it.
    if (!LuaObjectAccess::IsWatched(object)) {
      object->OnBeforeLuaRemove();
    }
    return lua_error(L);
  }
  return 1;
}

LuaObject* zplua_toluaobject(lua_State* L, int index) {
  ScriptState* state = zplua_state(L);
  ObjectSlot* place = object_slot(L, index, state);
  if (place == nullptr || place->object == nullptr || state->closed) {
    return nullptr;
  }
  if (!LuaObjectAccess::IsWatched(place->object)) {
    watch(L, lua_absindex(L, index), state, place, place->object);
    LuaObjectAccess::See(place->object);
  }
  return place->object;
}

int zplua_collectluaobject(lua_State* L) {
  if (ObjectSlot* place = object_slot(L, 1, zplua_upvaluestate(L))) {
    LuaObjectAccess::Remove(place);
  }
  return 0;
}

int zplua_clearluaobject(lua_State* L) {
  ObjectSlot* place = object_slot(L, 1, zplua_upvaluestate(L));
  if (place != nullptr && place->object != nullptr) {
    place->object->Recycle();
    LuaObjectAccess::Remove(place);
  }
  return 0;
}
