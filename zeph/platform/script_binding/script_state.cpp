#include <zeph/platform/script_binding/script_state.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <mutex>
#include <new>
#include <utility>

#include <zeph/platform/script_binding/class_register.h>
#include <zeph/platform/script_core/lua_engine.h>

namespace zeph::binding {

namespace {

// Registry keys: addresses that no other library can have.
const char state_key = 0;
const char identities_key = 0;
const char guardians_key = 0;
const char guardian_metatable_key = 0;

/// Leaves a new table with weak keys ("k") or values ("v") in the registry.
void make_weak_table(lua_State* L, const char* mode, const void* key) {
  lua_createtable(L, 0, 0);
  lua_createtable(L, 0, 1);
  lua_pushstring(L, mode);
  lua_setfield(L, -2, "__mode");
  lua_setmetatable(L, -2);
  lua_rawsetp(L, LUA_REGISTRYINDEX, key);
}

std::array<ClassInfo, kMaxScriptClasses + 1>& classes() {
  static std::array<ClassInfo, kMaxScriptClasses + 1> table;
  return table;
}

template <typename Element, std::size_t kCount>
bool points_into(const void* pointer, const Element (&array)[kCount]) {
  const auto address = reinterpret_cast<std::uintptr_t>(pointer);
  const auto first = reinterpret_cast<std::uintptr_t>(&array[0]);
  return address >= first && address < first + sizeof array;
}

/// Forgets the userdata that are no more: the state's table of guardians tells which are there.
void forget_lost_places(lua_State* L, const ScriptState* state) {
  for (LuaObject* object = state->watched; object != nullptr; object = LuaObjectAccess::Next(object)) {
    LuaObjectAccess::Place(object) = nullptr;
  }
  push_guardians(L);
  for (lua_pushnil(L); lua_next(L, -2) != 0; lua_pop(L, 1)) {
    ObjectSlot* place = static_cast<Guardian*>(lua_touserdata(L, -1))->place;
    if (place != nullptr && place->object != nullptr) {
      LuaObjectAccess::Place(place->object) = place;
    }
  }
}

/// Runs last of all finalizers of this layer, since its userdata is made first.
int close_state(lua_State* L) {
  auto* state = static_cast<ScriptState*>(lua_touserdata(L, 1));
  state->closed = true;
  forget_lost_places(L, state);
  while (LuaObject* object = state->watched) {
    LuaObjectAccess::Unwatch(object);
    object->OnBeforeLuaRemove();
  }
  lua::LuaEngine::getInstance().SetRunningState(nullptr);
  return 0;
}

int end_guardian(lua_State* L) {
  auto* guardian = static_cast<Guardian*>(lua_touserdata(L, 1));
  if (LuaObject* made = std::exchange(guardian->made, nullptr)) {
    made->OnBeforeLuaRemove();
  }
  if (guardian->place != nullptr) {
    LuaObjectAccess::Remove(guardian->state, guardian->place);
  }
  return 0;
}

/// Makes the ScriptState and what hangs on it, and only then shows it to the registry.
int make_state(lua_State* L) {
  make_weak_table(L, "v", &identities_key);
  make_weak_table(L, "k", &guardians_key);
  lua_createtable(L, 0, 1);
  lua_pushcfunction(L, end_guardian);
  lua_setfield(L, -2, "__gc");
  lua_rawsetp(L, LUA_REGISTRYINDEX, &guardian_metatable_key);
  void* memory = lua_newuserdatauv(L, sizeof(ScriptState), 0);
  new (memory) ScriptState;
  lua_createtable(L, 0, 1);
  lua_pushcfunction(L, close_state);
  lua_setfield(L, -2, "__gc");
  lua_setmetatable(L, -2);
  lua_rawsetp(L, LUA_REGISTRYINDEX, &state_key);
  return 0;
}

}  // namespace

const ClassInfo& class_info(unsigned slot) { return classes()[slot]; }

void describe_class(unsigned slot, const char* lua_name, unsigned base) {
  classes()[slot].lua_name = lua_name;
  classes()[slot].base = base;
}

unsigned slot_of_table(const ScriptState* state, const void* table) {
  unsigned slot = 0;
  while (slot < kMaxScriptClasses && (table == nullptr || state->metatable[slot] != table)) {
    ++slot;
  }
  return slot;
}

unsigned slot_of_value(lua_State* L, int index, const ScriptState* state) {
  const int type = lua_type(L, index);
  if ((type != LUA_TTABLE && type != LUA_TUSERDATA) || lua_getmetatable(L, index) == 0) {
    return kMaxScriptClasses;
  }
  const unsigned slot = slot_of_table(state, lua_topointer(L, -1));
  lua_pop(L, 1);
  if (type == LUA_TUSERDATA) {
    const ObjectSlot* place = object_slot(L, index, state);
    if (place == nullptr || !stands(state, place) || slot_of_place(state, place) != slot) {
      return kMaxScriptClasses;
    }
  }
  return slot;
}

unsigned slot_of_value_or_class(lua_State* L, int index, const ScriptState* state) {
  const unsigned slot = lua_istable(L, index) ? slot_of_table(state, lua_topointer(L, index)) : kMaxScriptClasses;
  return slot < kMaxScriptClasses ? slot : slot_of_value(L, index, state);
}

ObjectSlot* object_slot(lua_State* L, int index, const ScriptState* state) {
  auto* place = static_cast<ObjectSlot*>(lua_touserdata(L, index));
  if (place == nullptr || lua_rawlen(L, index) < kObjectSlotSize) {
    return nullptr;
  }
  return points_into(place->tag, state->metatable) || points_into(place->tag, state->bare) ? place : nullptr;
}

bool holds_bare_value(const ScriptState* state, const ObjectSlot* place) {
  return points_into(place->tag, state->bare);
}

bool stands(const ScriptState* state, const ObjectSlot* place) {
  return holds_bare_value(state, place) || place->object != nullptr;
}

unsigned slot_of_place(const ScriptState* state, const ObjectSlot* place) {
  return static_cast<unsigned>(holds_bare_value(state, place)
                                   ? static_cast<const BareValues*>(place->tag) - state->bare
                                   : static_cast<const void* const*>(place->tag) - state->metatable);
}

void push_hidden(lua_State* L, const ScriptState* state, unsigned slot) {
  lua_rawgetp(L, LUA_REGISTRYINDEX, &state->metatable[slot]);
}

void push_state(lua_State* L) { lua_rawgetp(L, LUA_REGISTRYINDEX, &state_key); }
void push_identities(lua_State* L) { lua_rawgetp(L, LUA_REGISTRYINDEX, &identities_key); }
void push_guardian_metatable(lua_State* L) { lua_rawgetp(L, LUA_REGISTRYINDEX, &guardian_metatable_key); }
void push_guardians(lua_State* L) { lua_rawgetp(L, LUA_REGISTRYINDEX, &guardians_key); }

}  // namespace zeph::binding

void LuaObjectAccess::Watch(ScriptState* state, zeph::binding::LuaObject* object) noexcept {
  object->m_state = state;
  object->m_next = state->watched;
  if (object->m_next != nullptr) {
    object->m_next->m_previous = object;
  }
  state->watched = object;
}

/// The userdata, if there is one, holds no object any more.
void LuaObjectAccess::Unwatch(zeph::binding::LuaObject* object) noexcept {
  if (ObjectSlot* place = std::exchange(object->m_place, nullptr)) {
    place->object = nullptr;
  }
  auto* next = std::exchange(object->m_next, nullptr);
  auto* previous = std::exchange(object->m_previous, nullptr);
  if (next != nullptr) {
    next->m_previous = previous;
  }
  (previous != nullptr ? previous->m_next : object->m_state->watched) = next;
  object->m_state = nullptr;
}

void LuaObjectAccess::Remove(ScriptState* state, ObjectSlot* place) {
  if (zeph::binding::holds_bare_value(state, place)) {
    place->tag = &state->metatable[zeph::binding::slot_of_place(state, place)];
    place->object = nullptr;
  } else if (zeph::binding::LuaObject* object = std::exchange(place->object, nullptr)) {
    if (IsWatched(object)) {
      Unwatch(object);
    }
    object->OnBeforeLuaRemove();
  }
}

unsigned zplua_classslot(const char* cls_name) {
  static std::mutex mutex;
  const std::lock_guard lock(mutex);
  auto& classes = zeph::binding::classes();
  unsigned slot = 0;
  while (slot < kMaxScriptClasses && !classes[slot].cls_name.empty() && classes[slot].cls_name != cls_name) {
    ++slot;
  }
  if (slot < kMaxScriptClasses) {
    classes[slot].cls_name = cls_name;
  }
  return slot;
}

ScriptState* zplua_state(lua_State* L) {
  using namespace zeph::binding;
  if (lua_rawgetp(L, LUA_REGISTRYINDEX, &state_key) == LUA_TNIL) {
    lua_pop(L, 1);
    lua_pushcfunction(L, make_state);
    lua_call(L, 0, 0);
    lua_rawgetp(L, LUA_REGISTRYINDEX, &state_key);
  }
  auto* state = static_cast<ScriptState*>(lua_touserdata(L, -1));
  lua_pop(L, 1);
  return state;
}
