/// What a native function returns, as Lua values.
#pragma once

#include <array>
#include <cstddef>
#include <new>
#include <optional>
#include <tuple>
#include <type_traits>

#include <zeph/binding/type_traits.h>

namespace zeph::binding {

/// A text of limited length; longer texts are cut.
template <std::size_t kLimit>
struct LimitedText {
  std::size_t size = 0;
  char text[kLimit];
};

/// Several results, each one Lua value.
template <typename... Ts>
struct Results {
  std::tuple<Ts...> values;
};

/// A new plain Lua table of the values with the keys kFirstKey, kFirstKey + 1 ...
template <int kFirstKey, typename... Ts>
struct Listing {
  std::tuple<Ts...> values;
};

/// A function that changes its object and may leave it as it is after all.
enum class Change { none, made };

/// By native type: kSlots, the most stack slots that the push takes; Items, the keys; Push, which returns the count.
template <typename R>
struct Result;

template <>
struct Result<void> {
  static constexpr int kSlots = 0;
  using Items = ItemList<>;
};
template <>
struct Result<Change> : Result<void> {
  template <typename Keys>
  static int Push(lua_State*, ScriptState*, Change) {
    return 0;
  }
};

struct PlainResult {
  static constexpr int kSlots = 1;
  using Items = ItemList<>;
};
template <>
struct Result<bool> : PlainResult {
  template <typename Keys>
  static int Push(lua_State* L, ScriptState*, bool value) {
    lua_pushboolean(L, value ? 1 : 0);
    return 1;
  }
};
template <>
struct Result<float> : PlainResult {
  template <typename Keys>
  static int Push(lua_State* L, ScriptState*, float value) {
    lua_pushnumber(L, static_cast<lua_Number>(value));
    return 1;
  }
};
template <typename R>
  requires std::is_same_v<R, int> || std::is_same_v<R, unsigned>
struct Result<R> : PlainResult {
  template <typename Keys>
  static int Push(lua_State* L, ScriptState*, R value) {
    lua_pushinteger(L, static_cast<lua_Integer>(value));
    return 1;
  }
};
template <std::size_t kLimit>
struct Result<LimitedText<kLimit>> : PlainResult {
  template <typename Keys>
  static int Push(lua_State* L, ScriptState*, const LimitedText<kLimit>& value) {
    lua_pushlstring(L, value.text, value.size);
    return 1;
  }
};

template <DummyType T>
struct Result<T> {
  static constexpr int kSlots = kBuildSlots<T>;
  using Items = typename WriteItems<T>::Type;
  template <typename Keys>
  static int Push(lua_State* L, ScriptState*, const T& value) {
    build_table<typename Keys::template Only<typename WriteItems<T>::Type>>(L, value);
    return 1;
  }
};

/// A new script object around the value. One that owns nothing is a bare value until native code looks at it, unless a
/// creator of another module decides what is made.
template <WrappedType T>
struct Result<T> {
  static constexpr int kSlots = 3;
  using Items = ItemList<>;
  template <typename Keys>
  static int Push(lua_State* L, ScriptState* state, const T& value) {
    if constexpr (kOwnsNothing<T>) {
      static_assert(std::is_trivially_copyable_v<T> && alignof(T) <= alignof(ObjectSlot));
      if (!Object::CreatorsReplaced()) {
        ::new (zplua_newbarevalue(L, state, kClassSlot<T>, kBareValueSize<T>)->value()) T(value);
        return 1;
      }
    }
    return PushObject(L, value);
  }

 private:
  static int PushObject(lua_State* L, T value) {
    LuaObject* object = nullptr;
    try {
      object = ScriptClass<T>::Type::Wrapping(&value);
    } catch (const std::bad_alloc&) {
      // Reported below, outside the handler.
    }
    return object != nullptr ? zplua_pushluaobject(L, object, object->GetClsName())
                             : luaL_error(L, "not enough memory");
  }
};

/// No answer is one nil.
template <typename T>
struct Result<std::optional<T>> : Result<T> {
  template <typename Keys>
  static int Push(lua_State* L, ScriptState* state, const std::optional<T>& value) {
    if (!value.has_value()) {
      lua_pushnil(L);
      return 1;
    }
    return Result<T>::template Push<Keys>(L, state, *value);
  }
};

template <typename... Ts>
struct Result<Results<Ts...>> {
  static constexpr int kSlots = static_cast<int>(sizeof...(Ts)) + std::max({Result<Ts>::kSlots...});
  using Items = typename Merge<typename Result<Ts>::Items...>::Type;
  template <typename Keys>
  static int Push(lua_State* L, ScriptState* state, const Results<Ts...>& results) {
    std::apply([L, state](const Ts&... values) { (Result<Ts>::template Push<Keys>(L, state, values), ...); },
               results.values);
    return static_cast<int>(sizeof...(Ts));
  }
};

template <int kFirstKey, typename... Ts>
struct Result<Listing<kFirstKey, Ts...>> {
  static constexpr int kSlots = 1 + std::max({Result<Ts>::kSlots...});
  using Items = typename Merge<typename Result<Ts>::Items...>::Type;
  template <typename Keys>
  static int Push(lua_State* L, ScriptState* state, const Listing<kFirstKey, Ts...>& listing) {
    constexpr int outside = kFirstKey == 1 ? 0 : 1;
    lua_createtable(L, static_cast<int>(sizeof...(Ts)) - outside, outside);
    std::apply(
        [L, state](const Ts&... values) {
          int key = kFirstKey;
          (..., (Result<Ts>::template Push<Keys>(L, state, values), lua_rawseti(L, -2, key++)));
        },
        listing.values);
    return 1;
  }
};
template <typename T, std::size_t kCount>
struct Result<std::array<T, kCount>> {
  static constexpr int kSlots = 1 + Result<T>::kSlots;
  using Items = typename Result<T>::Items;
  template <typename Keys>
  static int Push(lua_State* L, ScriptState* state, const std::array<T, kCount>& values) {
    lua_createtable(L, static_cast<int>(kCount), 0);
    int key = 0;
    for (const T& value : values) {
      Result<T>::template Push<Keys>(L, state, value);
      lua_rawseti(L, -2, ++key);
    }
    return 1;
  }
};

/// Objects on the native heap. Their frame owns a reference, so nothing may jump over it: see push_owned.
template <typename R>
inline constexpr bool kOwns = false;
template <typename T>
inline constexpr bool kOwns<AutoRef<T>> = true;
template <typename T>
struct Result<AutoRef<T>> {
  static constexpr int kSlots = 2;
  using Items = ItemList<>;
};

/// Protected: (light userdata of an Object) -> its values.
inline int push_object(lua_State* L) {
  auto* object = static_cast<Object*>(lua_touserdata(L, 1));
  lua_settop(L, 0);
  return Object::Boxing(L, object, false);
}

/// Calls `make`, which returns an AutoRef, pushes what it holds and releases it, also when the push runs into an error.
/// A dead reference pushes nothing. Returns the count.
template <typename Make>
int push_owned(lua_State* L, const Make& make) {
  const int top = lua_gettop(L);
  bool pushed = false;
  try {
    const auto reference = make();
    if (!reference.alive()) {
      return 0;
    }
    lua_pushcfunction(L, push_object);
    lua_pushlightuserdata(L, static_cast<Object*>(reference.get()));
    pushed = lua_pcall(L, 1, LUA_MULTRET, 0) == LUA_OK;
  } catch (const std::bad_alloc&) {
    lua_settop(L, top);
  }
  if (!pushed) {
    if (lua_gettop(L) == top) {
      lua_pushliteral(L, "not enough memory");
    }
    lua_error(L);
  }
  return lua_gettop(L) - top;
}

}  // namespace zeph::binding
