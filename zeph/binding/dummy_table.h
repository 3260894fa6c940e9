/// Dummy values as Lua tables: building, reading, writing back.
///
/// A table has, raw and in this order, "__dummy_type" (the ClsName) and the fields of the class; a member that is a
/// dummy value itself is a table of its own. `Keys` says where keys and metatables come from.
#pragma once

#include <concepts>

#include <zeph/binding/keys.h>

namespace zeph::binding {

/// Most stack slots that a read leaves behind, for a value of T.
template <typename T>
inline constexpr int kReadSlots = 1;
template <typename T>
inline constexpr int kFieldReadSlots = 1;

template <typename Fields>
struct SlotCount;
template <typename... Fields>
struct SlotCount<FieldList<Fields...>> {
  static constexpr int kCount = 1 + (0 + ... + kFieldReadSlots<typename Fields::Value>);
};
template <DummyType T>
inline constexpr int kReadSlots<T> = SlotCount<typename ScriptClass<T>::Fields>::kCount;
template <DummyType T>
inline constexpr int kFieldReadSlots<T> = 1 + kReadSlots<T>;

/// Most stack slots that building a value of T takes.
template <typename T>
inline constexpr int kBuildSlots = 1;
template <typename Fields>
struct BuildSlotCount;
template <typename... Fields>
struct BuildSlotCount<FieldList<Fields...>> {
  static constexpr int kCount = 2 + std::max({kBuildSlots<typename Fields::Value>...});
};
template <DummyType T>
inline constexpr int kBuildSlots<T> = BuildSlotCount<typename ScriptClass<T>::Fields>::kCount;

template <typename Keys, DummyType T>
void build_table(lua_State* L, const T& value);

template <typename Keys>
inline void push_member(lua_State* L, float value) {
  lua_pushnumber(L, static_cast<lua_Number>(value));
}
template <typename Keys>
inline void push_member(lua_State* L, unsigned char value) {
  lua_pushinteger(L, value);
}
template <typename Keys, DummyType T>
inline void push_member(lua_State* L, const T& value) {
  build_table<typename Keys::template Only<typename WriteItems<T>::Type>>(L, value);
}

template <typename Keys, typename T, typename... Fields>
inline void store_members(lua_State* L, int table, const T& value, FieldList<Fields...>) {
  (...,
   (Keys::template Push<Key<Fields::kKey>>(L), push_member<Keys>(L, value.*Fields::kMember), lua_rawset(L, table)));
}

/// Pushes a new table with the value. No metamethod runs: the metatable is set last. One function for all handlers that
/// have the keys at the same places; beside what it does the call is nothing.
template <typename Keys, DummyType T>
[[gnu::noinline]] void build_table(lua_State* L, const T& value) {
  using Fields = typename ScriptClass<T>::Fields;
  lua_createtable(L, 0, Fields::kCount + 1);
  Keys::template Push<Key<kDummyTypeKey>>(L);
  Keys::template Push<ClsNameOf<T>>(L);
  lua_rawset(L, -3);
  store_members<Keys>(L, -3, value, Fields{});
  Keys::template PushMetatable<T>(L);
  lua_setmetatable(L, -2);
}

/// Where a value takes this many fields or has values inside, the calls of Lua's that read it weigh so much that one
/// function for all handlers costs nothing beside them.
template <typename T>
inline constexpr bool kReadApart = kReadSlots<T> > 4;

/// Reads a table of class T. A field that is missing or of the wrong type leaves that member of `value` as it is.
/// Pushes at most kReadSlots<T> - 1 values and leaves them. False when a field was nil.
template <typename Keys, DummyType T>
bool read_table(lua_State* L, const ScriptState* state, int table, T& value);

/// The member whose raw field is no number: a text that says one. Rare, so it stays out of the handlers.
[[gnu::noinline, gnu::cold]] inline void read_text_member(lua_State* L, float& member) {
  int is_number = 0;
  const lua_Number number = lua_tonumberx(L, -1, &is_number);
  if (is_number != 0) {
    member = static_cast<float>(number);
  }
}
/// The member whose raw field, of Lua type `type`, is on top of the stack.
inline void read_member(lua_State* L, int type, float& member) {
  if (type == LUA_TNUMBER) {
    member = static_cast<float>(lua_tonumberx(L, -1, nullptr));
  } else {
    read_text_member(L, member);
  }
}
/// Integers keep their low bits. A float is none, not even one with an integral value.
template <std::integral Integer>
inline void read_member(lua_State* L, int, Integer& member) {
  if (lua_isinteger(L, -1) != 0) {
    member = static_cast<Integer>(lua_tointegerx(L, -1, nullptr));
  }
}
template <typename Keys, DummyType T>
inline void read_nested(lua_State* L, const ScriptState* state, T& member) {
  const int table = lua_gettop(L);
  if (zplua_tableofclass(L, table, state, kClassSlot<T>)) {
    member = ScriptClass<T>::kMissing;
    read_table<Keys>(L, state, table, member);
  }
}

template <typename Keys, typename F, typename T>
inline bool read_field(lua_State* L, const ScriptState* state, int table, T& value) {
  Keys::template Push<Key<F::kKey>>(L);
  const int type = lua_rawget(L, table);
  if constexpr (DummyType<typename F::Value>) {
    read_nested<Keys>(L, state, value.*F::kMember);
  } else {
    read_member(L, type, value.*F::kMember);
  }
  return type != LUA_TNIL;
}

template <typename Keys, typename T, typename... Fields>
inline bool read_fields(lua_State* L, const ScriptState* state, int table, T& value, FieldList<Fields...>) {
  bool complete = true;
  (..., (complete &= read_field<Keys, Fields>(L, state, table, value)));
  return complete;
}

template <typename Keys, DummyType T>
[[gnu::noinline]] bool read_apart(lua_State* L, const ScriptState* state, int table, T& value) {
  return read_fields<Keys>(L, state, table, value, typename ScriptClass<T>::Fields{});
}

template <typename Keys, DummyType T>
inline bool read_table(lua_State* L, const ScriptState* state, int table, T& value) {
  if constexpr (kReadApart<T>) {
    return read_apart<typename Keys::template Only<typename ReadItems<T>::Type>>(L, state, table, value);
  } else {
    return read_fields<Keys>(L, state, table, value, typename ScriptClass<T>::Fields{});
  }
}

template <typename Keys, typename T, typename... Fields>
[[gnu::noinline, gnu::cold]] void fill_missing_fields(lua_State* L, int table, FieldList<Fields...>) {
  const auto fill = [L, table](auto field) {
    using F = decltype(field);
    Keys::template Push<Key<F::kKey>>(L);
    const int type = lua_rawget(L, table);
    lua_pop(L, 1);
    if (type == LUA_TNIL) {
      Keys::template Push<Key<F::kKey>>(L);
      push_member<Keys>(L, ScriptClass<T>::kMissing.*F::kMember);
      lua_rawset(L, table);
    }
  };
  (..., fill(Fields{}));
}

template <typename F>
inline constexpr bool kAllocates = DummyType<typename F::Value>;

/// Writes the value into the table at the absolute index `table`, whole or, when memory runs out, not at all: whatever
/// has to be made is made before the first member is replaced. `complete` says that no field is nil.
template <typename Keys, typename T, typename... Fields>
inline void write_fields(lua_State* L, int table, const T& value, bool complete, FieldList<Fields...> fields) {
  if (!complete) {
    fill_missing_fields<Keys, T>(L, table, fields);
  }
  if constexpr ((kAllocates<Fields> || ...)) {
    const int first = lua_gettop(L) + 1;
    (push_member<Keys>(L, value.*Fields::kMember), ...);
    int made = first;
    (..., (Keys::template Push<Key<Fields::kKey>>(L), lua_pushvalue(L, made++), lua_rawset(L, table)));
  } else {
    store_members<Keys>(L, table, value, fields);
  }
}

template <typename Keys, DummyType T>
[[gnu::noinline]] void write_apart(lua_State* L, int table, const T& value, bool complete) {
  write_fields<Keys>(L, table, value, complete, typename ScriptClass<T>::Fields{});
}
template <typename Keys, DummyType T>
inline void write_table(lua_State* L, int table, const T& value, bool complete) {
  write_apart<typename Keys::template Only<typename FieldItems<typename ScriptClass<T>::Fields>::Write>>(
      L, table, value, complete);
}

}  // namespace zeph::binding
