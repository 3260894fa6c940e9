/// Script objects: into Lua, out of Lua, and their end.
#include <algorithm>
#include <cstring>
#include <iterator>
#include <new>

#include <zeph/platform/script_binding/class_register.h>
#include <zeph/platform/script_binding/zplua.h>

namespace {

using namespace zeph::binding;

/// Pushes a new guardian that keeps the userdata at `index` in memory. Making it may collect garbage.
Guardian* push_guardian(lua_State* L, int index, ScriptState* state) {
  auto* guardian = static_cast<Guardian*>(lua_newuserdatauv(L, sizeof(Guardian), 1));
  *guardian = {nullptr, state, nullptr};
  const int place = lua_gettop(L);
  lua_pushvalue(L, index);
#if LUA_VERSION_NUM >= 504
  lua_setiuservalue(L, place, 1);
#else
  lua_setuservalue(L, place);
#endif
  push_guardian_metatable(L);
  lua_setmetatable(L, place);
  return guardian;
}

/// The userdata at `index` is the one of the object, and lives under the guardian on top of the stack, which is popped.
/// What can fail comes first; nothing here collects garbage.
void guard(lua_State* L, int index, ObjectSlot* place, LuaObject* object) {
  const int top = lua_gettop(L);
  push_identities(L);
  lua_pushvalue(L, index);
  lua_rawsetp(L, -2, object);
  push_guardians(L);
  lua_pushvalue(L, index);
  lua_pushvalue(L, top);
  lua_rawset(L, -3);
  LuaObjectAccess::Place(object) = place;
  auto* guardian = static_cast<Guardian*>(lua_touserdata(L, top));
  guardian->made = nullptr;
  guardian->place = place;
  lua_settop(L, top - 1);
}

/// The object enters Lua: its userdata's head is filled.
void enter(ScriptState* state, ObjectSlot* place, unsigned slot, LuaObject* object) {
  place->tag = &state->metatable[slot];
  place->object = object;
  object->OnBeforeLuaCreate();
}

/// Turns the bare value at `index` into an object.
void make_object(lua_State* L, int index, ScriptState* state, ObjectSlot* place) {
  luaL_checkstack(L, LUA_MINSTACK, "script object");
  Guardian* guardian = push_guardian(L, index, state);
  // Unless a finalizer that ran meanwhile has done so, or has ended the value.
  if (!holds_bare_value(state, place)) {
    lua_pop(L, 1);
    return;
  }
  const unsigned slot = slot_of_place(state, place);
  LuaObject* object = state->bare[slot].make(place->value());
  if (object == nullptr) {
    luaL_error(L, "not enough memory");
    return;  // never: luaL_error has left
  }
  // Until it stands in the userdata, the guardian has the object; should that be lost, the state's list has it.
  guardian->made = object;
  LuaObjectAccess::Watch(state, object);
  guard(L, index, place, object);
  enter(state, place, slot, object);
}

ObjectSlot* new_space(lua_State* L, std::size_t size) {
  auto* place = static_cast<ObjectSlot*>(lua_newuserdatauv(L, size, 0));
  *place = {};
  return place;
}

/// Makes userdata ready. Lua gives a userdata a finalizer if its metatable has "__gc" at the moment when it is set, so
/// the entry steps aside for that; its place in the table stays, and nothing in there allocates or can fail.
void make_ready(lua_State* L, BareValues& bare, std::size_t size) {
  const int before = lua_gettop(L);
  ObjectSlot* places[kReadyBatch];
  for (ObjectSlot*& place : places) {
    place = new_space(L, size);
    place->tag = &bare;
  }
  // A finalizer that ran meanwhile may have been here too, or have replaced the entry.
  if (bare.ready_count == 0 && bare.CollectsPlainly()) {
    lua_State* ready = bare.ready;
    lua_xmove(L, ready, kReadyBatch);
    lua_pushvalue(ready, BareValues::kCollectKey);
    lua_pushnil(ready);
    lua_rawset(ready, BareValues::kMetatable);
    for (int i = 1; i <= kReadyBatch; ++i) {
      lua_pushvalue(ready, BareValues::kMetatable);
      lua_setmetatable(ready, BareValues::kCollect + i);
    }
    lua_pushvalue(ready, BareValues::kCollectKey);
    lua_pushvalue(ready, BareValues::kCollect);
    lua_rawset(ready, BareValues::kMetatable);
    std::copy(std::begin(places), std::end(places), bare.ready_places);
    bare.ready_count = kReadyBatch;
  }
  lua_settop(L, before);
}

struct Push {
  ScriptState* state;
  LuaObject* object;
  unsigned slot;
};

/// Protected: (light userdata of a Push) -> userdata. The object enters Lua behind the last call that can fail.
int make_userdata(lua_State* L) {
  auto* push = static_cast<Push*>(lua_touserdata(L, 1));
  ObjectSlot* place = new_space(L, kObjectSlotSize);
  zplua_classtable(L, class_info(push->slot).cls_name.c_str());
  lua_setmetatable(L, 2);
  push_guardian(L, 2, push->state);
  guard(L, 2, place, push->object);
  LuaObjectAccess::Watch(push->state, push->object);
  enter(push->state, place, push->slot, push->object);
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
  if (object->State() != nullptr) {
    bool out_of_memory = false;
    try {
      object = object->Clone();
    } catch (const std::bad_alloc&) {
      out_of_memory = true;  // raised outside the handler
    }
    if (out_of_memory) {
      return luaL_error(L, "not enough memory");
    }
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

void zplua_barevalues(lua_State* L, const char* cls_name, BareValueMaker make) {
  BareValues& bare = zplua_state(L)->bare[zplua_classslot(cls_name)];
  bare.make = make;
  if (bare.ready == nullptr) {
    lua_State* ready = lua_newthread(L);
    if (lua_checkstack(ready, kReadyBatch + LUA_MINSTACK) == 0) {
      luaL_error(L, "not enough memory");
    }
    zplua_classtable(L, cls_name);
    lua_pushliteral(L, "__gc");
    lua_xmove(L, ready, 2);
    lua_pushnil(ready);
    lua_rawsetp(L, LUA_REGISTRYINDEX, &bare);
    bare.ready = ready;
  }
  lua_pushvalue(bare.ready, BareValues::kCollectKey);
  lua_rawget(bare.ready, BareValues::kMetatable);
  bare.collect = lua_topointer(bare.ready, -1);
  lua_replace(bare.ready, BareValues::kCollect);
}

ObjectSlot* zplua_makebarevalue(lua_State* L, ScriptState* state, unsigned slot, std::size_t size) {
  BareValues& bare = state->bare[slot];
  if (bare.ready_count == 0 && bare.CollectsPlainly() && lua_checkstack(L, kReadyBatch + 1) != 0) {
    make_ready(L, bare, size);
    if (bare.ready_count > 0) {
      return zplua_newbarevalue(L, state, slot, size);
    }
  }
  ObjectSlot* place = new_space(L, size);
  lua_pushvalue(bare.ready, BareValues::kMetatable);
  lua_xmove(bare.ready, L, 1);
  lua_setmetatable(L, -2);
  place->tag = &bare;
  return place;
}

LuaObject* zplua_toluaobject(lua_State* L, int index) {
  ScriptState* state = zplua_state(L);
  ObjectSlot* place = object_slot(L, index, state);
  if (place == nullptr || state->closed) {
    return nullptr;
  }
  if (holds_bare_value(state, place)) {
    make_object(L, lua_absindex(L, index), state, place);
  }
  return place->object;
}

int zplua_collectluaobject(lua_State* L) {
  ScriptState* state = zplua_upvaluestate(L);
  if (ObjectSlot* place = object_slot(L, 1, state)) {
    LuaObjectAccess::Remove(state, place);
  }
  return 0;
}

int zplua_clearluaobject(lua_State* L) {
  ScriptState* state = zplua_upvaluestate(L);
  ObjectSlot* place = object_slot(L, 1, state);
  if (place != nullptr && stands(state, place)) {
    if (!holds_bare_value(state, place)) {
      place->object->Recycle();
    }
    LuaObjectAccess::Remove(state, place);
  }
  return 0;
}
