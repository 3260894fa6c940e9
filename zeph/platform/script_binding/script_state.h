/// What a handler asks of the platform on every call, inline: the state's classes and the objects behind userdata.
#pragma once

#include <zeph/platform/export.h>
#include <zeph/platform/lua_api.h>
#include <zeph/platform/script_binding/lua_object.h>

inline constexpr unsigned kMaxScriptClasses = 64;

struct ObjectSlot;
struct ScriptState;

/// An object that its state watches; stands in the guardian's userdata, which lives as long as the object's own.
struct WatchRecord {
  ScriptState* state;
  ObjectSlot* place;  ///< head of the object's userdata; null when there is nothing left to end
  WatchRecord* next;
  WatchRecord* previous;
};

/// One per Lua state; a userdata of the state, and the first upvalue of every function that zplua_function adds.
struct ScriptState {
  /// The metatable of each class that the state knows, by slot; null for the others. The last place stays null.
  const void* metatable[kMaxScriptClasses + 1] = {};
  /// Objects that may own something outside Lua: those on the native heap, and those that native code has looked at.
  /// Each has a guardian in Lua that ends it with its userdata, whatever a script does to the class's "__gc".
  WatchRecord* watched = nullptr;
  /// Set when the state's finalizer has run: it takes no more objects.
  bool closed = false;
};

/// Head of every userdata of this layer. The native object stands behind it or on the heap.
struct ObjectSlot {
  /// The state and class that the userdata was made for: the address of the class's place in ScriptState::metatable.
  const void* tag;
  /// Null before the object stands and after it has gone.
  zeph::binding::LuaObject* object;
};
inline constexpr std::size_t kObjectSlotSize = sizeof(ObjectSlot);

/// Number of a class in this process: the same for the same name, however often it is asked for. kMaxScriptClasses,
/// the place that never matches, when there are too many.
ZEPH_PLATFORM_API unsigned zplua_classslot(const char* cls_name);

/// The state of `L`, made on the first call.
ZEPH_PLATFORM_API ScriptState* zplua_state(lua_State* L);

/// The state as a handler finds it among its upvalues.
inline ScriptState* zplua_upvaluestate(lua_State* L) noexcept {
  return static_cast<ScriptState*>(lua_touserdata(L, lua_upvalueindex(1)));
}

/// True when the table at `index` is a value of the class. Leaves the metatable, if there is one, on the stack.
inline bool zplua_tableofclass(lua_State* L, int index, const ScriptState* state, unsigned slot) noexcept {
  return lua_type(L, index) == LUA_TTABLE && lua_getmetatable(L, index) != 0 &&
         lua_topointer(L, -1) == state->metatable[slot];
}

/// The live native object at `index` if it is one of the class in this state, else null. Leaves the metatable, if there
/// is one, on the stack.
inline zeph::binding::LuaObject* zplua_objectofclass(lua_State* L, int index, const ScriptState* state,
                                                     unsigned slot) noexcept {
  const auto* place = static_cast<const ObjectSlot*>(lua_touserdata(L, index));
  // A light userdata has length 0, another library's userdata another tag.
  if (place == nullptr || lua_rawlen(L, index) < kObjectSlotSize || place->tag != &state->metatable[slot] ||
      place->object == nullptr || lua_getmetatable(L, index) == 0 || lua_topointer(L, -1) != state->metatable[slot]) {
    return nullptr;
  }
  return place->object->IsValid() ? place->object : nullptr;
}

/// What only the platform and the makers of in-place objects touch of a LuaObject.
struct LuaObjectAccess {
  /// The object of a fresh userdata enters Lua. `place` is the userdata's head.
  static void Enter(ScriptState* state, ObjectSlot* place, unsigned slot, zeph::binding::LuaObject* object) {
    EnterUnseen(state, place, slot, object);
    See(object);
  }
  /// The same for an object that owns nothing as long as native code does not look at it: it may go without a word.
  static void EnterUnseen(ScriptState* state, ObjectSlot* place, unsigned slot, zeph::binding::LuaObject* object) {
    object->m_unseen = true;
    place->tag = &state->metatable[slot];
    place->object = object;
  }
  static void See(zeph::binding::LuaObject* object) {
    if (object->m_unseen) {
      object->m_unseen = false;
      object->OnBeforeLuaCreate();
    }
  }
  static void MarkInsideUserdata(zeph::binding::LuaObject* object) noexcept { object->m_inside_userdata = true; }
  static bool IsInsideUserdata(const zeph::binding::LuaObject* object) noexcept { return object->m_inside_userdata; }
  static bool IsWatched(const zeph::binding::LuaObject* object) noexcept { return object->m_watch != nullptr; }
  static void Watch(WatchRecord* record, ScriptState* state, ObjectSlot* place,
                    zeph::binding::LuaObject* object) noexcept;
  static void Unwatch(zeph::binding::LuaObject* object) noexcept;
  /// Ends the object of a userdata, if it is still there.
  static void Remove(ObjectSlot* place);
  static void RemoveWatched(ScriptState* state);
};

/// Room for an object of `size` bytes inside a new userdata, which is left on the stack without a metatable.
inline ObjectSlot* zplua_newobjectspace(lua_State* L, std::size_t size) {
  auto* place = static_cast<ObjectSlot*>(lua_newuserdatauv(L, kObjectSlotSize + size, 0));
  place->tag = nullptr;
  place->object = nullptr;
  return place;
}

/// Sets the metatable on top of the stack, of a wrapped class, for the userdata below it, and pops it: without the
/// finalizer if `key` ("__gc") holds the standard entry, which has nothing to do for an object that owns nothing. A
/// finalizer costs a call and a second collection cycle; what a script has put there instead is called as ever.
inline void zplua_setplainmetatable(lua_State* L, int userdata, int key, lua_CFunction collect) {
  const int metatable = userdata + 1;
  lua_pushvalue(L, key);
  lua_rawget(L, metatable);
  const bool standard = lua_tocfunction(L, -1) == collect;
  if (standard) {
    lua_pushvalue(L, key);
    lua_pushnil(L);
    lua_rawset(L, metatable);
  }
  lua_pushvalue(L, metatable);
  lua_setmetatable(L, userdata);
  if (standard) {
    // The entry's place in the table is still there: this allocates nothing and can't fail.
    lua_pushvalue(L, key);
    lua_pushvalue(L, metatable + 1);
    lua_rawset(L, metatable);
  }
  lua_settop(L, userdata);
}
