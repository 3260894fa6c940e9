/// What a handler asks of the platform on every call, inline: the state's classes and the objects behind userdata.
#pragma once

#include <algorithm>
#include <cstddef>

#include <zeph/platform/export.h>
#include <zeph/platform/lua_api.h>
#include <zeph/platform/script_binding/lua_object.h>

inline constexpr unsigned kMaxScriptClasses = 64;

struct ObjectSlot;
struct ScriptState;

/// What the userdata of a guardian holds. It lives at least as long as the object's own, which it keeps in memory.
struct Guardian {
  zeph::binding::LuaObject* made;  ///< an object on its way into the userdata
  ScriptState* state;
  ObjectSlot* place;  ///< head of the object's userdata; null until the object stands there
};

/// Makes the script object on the native heap that a bare value turns into. Null when memory runs out.
using BareValueMaker = zeph::binding::LuaObject* (*)(const void* value);

/// As many userdata are made ready at a time.
inline constexpr int kReadyBatch = 32;

/// Values of a wrapped class that stand in their userdata without a script object: results that native code has not
/// looked at.
struct BareValues {
  BareValueMaker make = nullptr;
  /// Holds userdata that have their metatable and wait for a value, on its stack; it never runs. Below them stand the
  /// class's metatable, the text "__gc" and what the class was registered with under that name.
  lua_State* ready = nullptr;
  const void* collect = nullptr;  ///< identity of the latter
  int ready_count = 0;
  ObjectSlot* ready_places[kReadyBatch] = {};

  static constexpr int kMetatable = 1;
  static constexpr int kCollectKey = 2;
  static constexpr int kCollect = 3;

  /// Has no script replaced "__gc"?
  [[nodiscard]] bool CollectsPlainly() const {
    lua_pushvalue(ready, kCollectKey);
    lua_rawget(ready, kMetatable);
    const bool plainly = lua_topointer(ready, -1) == collect;
    lua_settop(ready, -2);
    return plainly;
  }
};

/// One per Lua state; a userdata of the state, and the first upvalue of every function that zplua_function adds.
struct ScriptState {
  /// The metatable of each class that the state knows, by slot; null for the others. The last place stays null.
  const void* metatable[kMaxScriptClasses + 1] = {};
  /// By slot.
  BareValues bare[kMaxScriptClasses + 1];
  /// All objects. Each has a guardian in Lua that ends it with its userdata, whatever a script does to the class's
  /// "__gc". When Lua has no memory left to call a finalizer, it frees the userdata without: so the list runs through
  /// the objects, and one whose guardian got lost ends with the state.
  zeph::binding::LuaObject* watched = nullptr;
  /// Set when the state's finalizer has run: it takes no more objects.
  bool closed = false;
};

/// What every userdata of this layer holds.
struct ObjectSlot {
  /// The state and class that the userdata was made for, and what follows: the address of the class's place in
  /// ScriptState::metatable if an object, in ScriptState::bare if a bare value.
  const void* tag;
  /// On the native heap; null before the object stands and after it has gone. A bare value begins here instead.
  zeph::binding::LuaObject* object;

  [[nodiscard]] void* value() noexcept { return &object; }
};
inline constexpr std::size_t kObjectSlotSize = sizeof(ObjectSlot);
template <typename T>
inline constexpr std::size_t kBareValueSize = std::max(kObjectSlotSize, offsetof(ObjectSlot, object) + sizeof(T));

/// Number of a class in this process: the same for the same name, however often it is asked for. kMaxScriptClasses,
/// the place that never matches, when there are too many.
ZEPH_PLATFORM_API unsigned zplua_classslot(const char* cls_name);

/// The state of `L`, made on the first call.
ZEPH_PLATFORM_API ScriptState* zplua_state(lua_State* L);

/// The state as a handler finds it among its upvalues.
inline ScriptState* zplua_upvaluestate(lua_State* L) {
  return static_cast<ScriptState*>(lua_touserdata(L, lua_upvalueindex(1)));
}

/// True when the table at `index` is a value of the class. Leaves the metatable, if there is one, on the stack.
inline bool zplua_tableofclass(lua_State* L, int index, const ScriptState* state, unsigned slot) {
  return lua_type(L, index) == LUA_TTABLE && lua_getmetatable(L, index) != 0 &&
         lua_topointer(L, -1) == state->metatable[slot];
}

/// The userdata at `index` if it holds a bare value or a live object of the class in this state, else null. Leaves the
/// metatable, if there is one, on the stack.
inline ObjectSlot* zplua_objectofclass(lua_State* L, int index, const ScriptState* state, unsigned slot) {
  auto* place = static_cast<ObjectSlot*>(lua_touserdata(L, index));
  // A light userdata has length 0, another library's userdata another tag.
  if (place == nullptr || lua_rawlen(L, index) < kObjectSlotSize) {
    return nullptr;
  }
  const bool bare = place->tag == &state->bare[slot];
  if ((!bare && (place->tag != &state->metatable[slot] || place->object == nullptr)) ||
      lua_getmetatable(L, index) == 0 || lua_topointer(L, -1) != state->metatable[slot]) {
    return nullptr;
  }
  return bare || place->object->IsValid() ? place : nullptr;
}
/// True for a userdata that zplua_objectofclass has found if there is no object behind the value.
inline bool zplua_isbarevalue(const ObjectSlot* place, const ScriptState* state, unsigned slot) noexcept {
  return place->tag == &state->bare[slot];
}

/// What only the platform touches of a LuaObject.
struct LuaObjectAccess {
  static bool IsWatched(const zeph::binding::LuaObject* object) noexcept { return object->m_state != nullptr; }
  static ObjectSlot*& Place(zeph::binding::LuaObject* object) noexcept { return object->m_place; }
  static zeph::binding::LuaObject* Next(const zeph::binding::LuaObject* object) noexcept { return object->m_next; }
  static void Watch(ScriptState* state, zeph::binding::LuaObject* object) noexcept;
  static void Unwatch(zeph::binding::LuaObject* object) noexcept;
  /// Ends what a userdata holds, if it is still there.
  static void Remove(ScriptState* state, ObjectSlot* place);
};

/// Results of a class may stand in Lua as bare values from now on: `make` turns one into an object when native code
/// looks at it. The class has its "__gc".
ZEPH_PLATFORM_API void zplua_barevalues(lua_State* L, const char* cls_name, BareValueMaker make);
/// As zplua_newbarevalue, when no userdata is ready or a script has replaced "__gc".
ZEPH_PLATFORM_API ObjectSlot* zplua_makebarevalue(lua_State* L, ScriptState* state, unsigned slot, std::size_t size);

/// Pushes a userdata of the class, of `size` bytes, tagged as a bare value; the caller puts the value there. It has no
/// finalizer as long as "__gc" is the standard entry, which would have nothing to do: a finalizer costs a call and a
/// second collection cycle. What a script has put there instead is called as ever.
inline ObjectSlot* zplua_newbarevalue(lua_State* L, ScriptState* state, unsigned slot, std::size_t size) {
  BareValues& bare = state->bare[slot];
  if (bare.ready_count == 0 || !bare.CollectsPlainly()) {
    return zplua_makebarevalue(L, state, slot, size);
  }
  lua_xmove(bare.ready, L, 1);
  return bare.ready_places[--bare.ready_count];
}
