/// What a module that is written by hand against Lua's C interface would use: the tables and checks of the script
/// classes by the shortest known road. Keys and metatables are upvalues, metatables are compared by address, tables are
/// made with room for their fields, nothing is popped, and each function is inlined as a whole (flatten).
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <tuple>
#include <type_traits>
#include <utility>

#include <zeph/math3d/aabb.h>
#include <zeph/math3d/color.h>
#include <zeph/math3d/float_text.h>
#include <zeph/math3d/matrix33.h>
#include <zeph/math3d/plane.h>
#include <zeph/math3d/ray.h>
#include <zeph/math3d/rect.h>
#include <zeph/math3d/vector2.h>
#include <zeph/math3d/vector4.h>
#include <zeph/platform/lua_api.h>

namespace zeph::math3d::by_hand {

using Vector2 = _Point2<float>;
using Vector3 = _Vector3<float>;
using Vector4 = math3d::Vector4<float>;
using Rotation = _Rotation<float>;
using Plane = _Plane<float>;
using RectF = _Rect<float>;
using Matrix = _Matrix<float>;
using Aabb = AABB;

enum Class : int {
  kVector2,
  kVector3,
  kVector4,
  kRotation,
  kPlane,
  kRay,
  kRectF,
  kRectOffset,
  kColor32,
  kColorF,  // tables
  kMatrix,
  kMatrix33,
  kAabb,  // userdata
  kClasses
};

/// Upvalues, the same for every function; how many there are costs nothing.
enum Upvalue : int {
  kBlock = 1,
  kDummyType,
  kX,
  kY,
  kZ,
  kW,
  kR,
  kG,
  kB,
  kA,
  kLeft,
  kTop,
  kRight,
  kBottom,
  kNormal,
  kDist,
  kOrigin,
  kDirection,
  kAsString,
  kName,
  kMetatable = kName + int{kClasses},
  kGetters = kMetatable + int{kClasses},
  kSetters = kGetters + int{kClasses},
  kEnd = kSetters + int{kClasses}
};

constexpr int name_of(Class of) { return kName + static_cast<int>(of); }
constexpr int metatable_of(Class of) { return kMetatable + static_cast<int>(of); }
constexpr int getters_of(Class of) { return kGetters + static_cast<int>(of); }
constexpr int setters_of(Class of) { return kSetters + static_cast<int>(of); }

/// A class of wrapped values has "__gc", which a script may replace; what the class comes with has nothing to do. So
/// results are to have a finalizer only once it is replaced, though Lua gives one to every userdata whose metatable has
/// the entry. The shortest known road: make many at a time, with the entry taken out meanwhile, and keep them on the
/// stack of a thread: metatable, "__gc", the standard entry, userdata.
struct Ready {
  static constexpr int kMetatable = 1;
  static constexpr int kKey = 2;
  static constexpr int kStandard = 3;
  static constexpr int kMost = 32;

  lua_State* thread;
  const void* standard;
  int count;
  void* boxes[kMost];

  [[nodiscard]] bool is_standard() const {
    lua_pushvalue(thread, kKey);
    lua_rawget(thread, kMetatable);
    const bool same = lua_topointer(thread, -1) == standard;
    lua_settop(thread, -2);
    return same;
  }
};

struct Block {
  const void* metatable[kClasses];
  mutable Ready ready[3];  // kMatrix and on
};

/// Makes userdata of `size` bytes ready, and pushes one.
[[gnu::noinline]] void* make_ready(lua_State* L, Ready& ready, std::size_t size);

/// A wrapped value in its userdata; the tag is gone when the value is.
template <typename T>
struct Box {
  const void* tag;
  T value;
};

template <typename T>
inline constexpr Class kClassOf = kClasses;
template <>
inline constexpr Class kClassOf<Vector2> = kVector2;
template <>
inline constexpr Class kClassOf<Vector3> = kVector3;
template <>
inline constexpr Class kClassOf<Vector4> = kVector4;
template <>
inline constexpr Class kClassOf<Rotation> = kRotation;
template <>
inline constexpr Class kClassOf<Plane> = kPlane;
template <>
inline constexpr Class kClassOf<Ray> = kRay;
template <>
inline constexpr Class kClassOf<RectF> = kRectF;
template <>
inline constexpr Class kClassOf<RectOffset> = kRectOffset;
template <>
inline constexpr Class kClassOf<Color32> = kColor32;
template <>
inline constexpr Class kClassOf<ColorF> = kColorF;
template <>
inline constexpr Class kClassOf<Matrix> = kMatrix;
template <>
inline constexpr Class kClassOf<Matrix33> = kMatrix33;
template <>
inline constexpr Class kClassOf<Aabb> = kAabb;
template <typename T>
concept Wrapped = kClassOf<T>
>= kMatrix&& kClassOf<T> < kClasses;
template <typename T>
concept Table = kClassOf<T> < kMatrix;

inline const Block* get_block(lua_State* L) {
  return static_cast<const Block*>(lua_touserdata(L, lua_upvalueindex(kBlock)));
}
[[gnu::cold, gnu::noinline]] int fail(lua_State* L);

// Members of a table.

inline bool read_member(lua_State* L, int key, int table, float& member) {
  lua_pushvalue(L, lua_upvalueindex(key));
  const int type = lua_rawget(L, table);
  if (type == LUA_TNUMBER) [[likely]] {
    member = static_cast<float>(lua_tonumberx(L, -1, nullptr));
  } else if (type == LUA_TSTRING) {
    int is_number = 0;
    const lua_Number number = lua_tonumberx(L, -1, &is_number);
    member = is_number != 0 ? static_cast<float>(number) : member;
  }
  return type != LUA_TNIL;
}
inline bool read_member(lua_State* L, int key, int table, unsigned char& member) {
  lua_pushvalue(L, lua_upvalueindex(key));
  const int type = lua_rawget(L, table);
  if (lua_isinteger(L, -1) != 0) {
    member = static_cast<unsigned char>(lua_tointegerx(L, -1, nullptr));
  }
  return type != LUA_TNIL;
}
inline void write_member(lua_State* L, int key, int table, float member) {
  lua_pushvalue(L, lua_upvalueindex(key));
  lua_pushnumber(L, static_cast<lua_Number>(member));
  lua_rawset(L, table);
}
inline void write_member(lua_State* L, int key, int table, unsigned char member) {
  lua_pushvalue(L, lua_upvalueindex(key));
  lua_pushinteger(L, member);
  lua_rawset(L, table);
}
template <Table T>
inline bool read_member(lua_State* L, const Block* block, int key, int table, T& member);
template <Table T>
inline void write_member(lua_State* L, int key, int table, const T& member);

// The members of each class: `each(key, member)` in the order of the table.

template <typename V, typename Each>
  requires std::is_same_v<std::remove_const_t<V>, Vector2>
inline void members(V& v, Each each) { each(kX, v.x), each(kY, v.y); }
template <typename V, typename Each>
  requires std::is_same_v<std::remove_const_t<V>, Vector3>
inline void members(V& v, Each each) { each(kX, v.x), each(kY, v.y), each(kZ, v.z); }
template <typename V, typename Each>
  requires std::is_same_v<std::remove_const_t<V>, Vector4> || std::is_same_v<std::remove_const_t<V>, Rotation>
inline void members(V& v, Each each) { each(kX, v.x), each(kY, v.y), each(kZ, v.z), each(kW, v.w); }
template <typename V, typename Each>
  requires std::is_same_v<std::remove_const_t<V>, RectF> || std::is_same_v<std::remove_const_t<V>, RectOffset>
inline void members(V& v, Each each) {
  each(kLeft, v.left), each(kTop, v.top), each(kRight, v.right), each(kBottom, v.bottom);
}
template <typename V, typename Each>
  requires std::is_same_v<std::remove_const_t<V>, Color32> || std::is_same_v<std::remove_const_t<V>, ColorF>
inline void members(V& v, Each each) { each(kR, v.r), each(kG, v.g), each(kB, v.b), each(kA, v.a); }
template <typename V, typename Each>
  requires std::is_same_v<std::remove_const_t<V>, Plane>
inline void members(V& v, Each each) { each(kNormal, v.normal), each(kDist, v.dist); }
template <typename V, typename Each>
  requires std::is_same_v<std::remove_const_t<V>, Ray>
inline void members(V& v, Each each) { each(kOrigin, v.origin), each(kDirection, v.direction); }

template <typename T>
inline constexpr int kFields = 4;
template <>
inline constexpr int kFields<Vector2> = 2;
template <>
inline constexpr int kFields<Vector3> = 3;
template <>
inline constexpr int kFields<Plane> = 2;
template <>
inline constexpr int kFields<Ray> = 2;

/// What missing fields count as.
template <typename T>
inline constexpr T kMissing{};
template <>
inline constexpr Rotation kMissing<Rotation>{1.0F, 1.0F, 1.0F, 1.0F};
template <>
inline constexpr Color32 kMissing<Color32>{0, 0, 0, 0};

// Whole values.

template <Table T>
inline bool is_value(lua_State* L, const Block* block, int index) {
  return lua_type(L, index) == LUA_TTABLE && lua_getmetatable(L, index) != 0 &&
         lua_topointer(L, -1) == block->metatable[kClassOf<T>];
}
/// False when a field is nil.
template <Table T>
inline bool read_members(lua_State* L, [[maybe_unused]] const Block* block, int table, T& value) {
  bool complete = true;
  value = kMissing<T>;
  members(value, [&](int key, auto& member) {
    if constexpr (Table<std::remove_reference_t<decltype(member)>>) {
      complete &= read_member(L, block, key, table, member);
    } else {
      complete &= read_member(L, key, table, member);
    }
  });
  return complete;
}
template <Table T>
inline bool read_member(lua_State* L, const Block* block, int key, int table, T& member) {
  lua_pushvalue(L, lua_upvalueindex(key));
  const int type = lua_rawget(L, table);
  const int inner = lua_gettop(L);
  if (type == LUA_TTABLE && lua_getmetatable(L, inner) != 0 && lua_topointer(L, -1) == block->metatable[kClassOf<T>]) {
    read_members(L, block, inner, member);
  }
  return type != LUA_TNIL;
}

template <Table T>
inline void build(lua_State* L, const T& value) {
  lua_createtable(L, 0, kFields<T> + 1);
  lua_pushvalue(L, lua_upvalueindex(kDummyType));
  lua_pushvalue(L, lua_upvalueindex(name_of(kClassOf<T>)));
  lua_rawset(L, -3);
  members(value, [&](int key, const auto& member) { write_member(L, key, -3, member); });
  lua_pushvalue(L, lua_upvalueindex(metatable_of(kClassOf<T>)));
  lua_setmetatable(L, -2);
}
template <Table T>
inline void write_member(lua_State* L, int key, int table, const T& member) {
  lua_pushvalue(L, lua_upvalueindex(key));
  build(L, member);
  lua_rawset(L, table);
}

template <Wrapped T>
inline T* unwrap(lua_State* L, const Block* block, int index) {
  auto* box = static_cast<Box<T>*>(lua_touserdata(L, index));
  if (box == nullptr || lua_rawlen(L, index) < sizeof(Box<T>) || box->tag != &block->metatable[kClassOf<T>] ||
      lua_getmetatable(L, index) == 0 || lua_topointer(L, -1) != block->metatable[kClassOf<T>]) {
    return nullptr;
  }
  return &box->value;
}

// Arguments: `take` tests and reads; Slot is what it yields.

/// A table that the call changes.
template <typename T>
struct Changed {
  T value;
  bool complete;
};

template <typename P>
struct Parameter {
  using Slot = std::remove_cvref_t<P>;
  static Slot& pass(Slot& slot) { return slot; }
};
template <Table T>
struct Parameter<T&> {
  using Slot = Changed<T>;
  static T& pass(Slot& slot) { return slot.value; }
};
template <Table T>
struct Parameter<const T&> {
  using Slot = T;
  static const T& pass(const T& slot) { return slot; }
};
template <typename P>
  requires Wrapped<std::remove_cvref_t<P>>
struct Parameter<P> {
  using Slot = std::remove_cvref_t<P>*;
  static std::remove_cvref_t<P>& pass(Slot slot) { return *slot; }
};

inline bool take(lua_State* L, const Block*, int index, int, float& slot) {
  int is_number = 0;
  slot = static_cast<float>(lua_tonumberx(L, index, &is_number));
  return is_number != 0;
}
inline bool take(lua_State* L, const Block*, int index, int, bool& slot) {
  slot = lua_toboolean(L, index) != 0;
  return lua_type(L, index) == LUA_TBOOLEAN;
}
template <typename Integer>
  requires std::is_integral_v<Integer>
inline bool take(lua_State* L, const Block*, int index, int, Integer& slot) {
  int is_integer = 0;
  slot = static_cast<Integer>(lua_tointegerx(L, index, &is_integer));
  return is_integer != 0;
}
inline bool take(lua_State* L, const Block*, int index, int, const char*& slot) {
  return (slot = lua_tolstring(L, index, nullptr)) != nullptr;
}
template <Table T>
inline bool take(lua_State* L, const Block* block, int index, int, T& slot) {
  if (!is_value<T>(L, block, index)) {
    return false;
  }
  read_members(L, block, index, slot);
  return true;
}
template <Table T>
inline bool take(lua_State* L, const Block* block, int index, int, Changed<T>& slot) {
  if (!is_value<T>(L, block, index)) {
    return false;
  }
  slot.complete = read_members(L, block, index, slot.value);
  return true;
}
template <Wrapped T>
inline bool take(lua_State* L, const Block* block, int index, int, T*& slot) {
  return (slot = unwrap<T>(L, block, index)) != nullptr;
}
/// Absent or nil is none. What reading left on the stack is no argument.
template <typename T>
inline bool take(lua_State* L, const Block* block, int index, int top, std::optional<T>& slot) {
  if (index > top || lua_type(L, index) == LUA_TNIL) {
    slot = std::nullopt;
    return true;
  }
  return take(L, block, index, top, slot.emplace());
}

// Results.

inline int push(lua_State* L, const Block*, float value) {
  lua_pushnumber(L, static_cast<lua_Number>(value));
  return 1;
}
inline int push(lua_State* L, const Block*, unsigned value) {
  lua_pushinteger(L, value);
  return 1;
}
inline int push(lua_State* L, const Block*, bool value) {
  lua_pushboolean(L, value ? 1 : 0);
  return 1;
}
template <std::size_t kLimit>
inline int push(lua_State* L, const Block*, const binding::LimitedText<kLimit>& value) {
  lua_pushlstring(L, value.text, value.size);
  return 1;
}
template <Table T>
inline int push(lua_State* L, const Block*, const T& value) {
  build(L, value);
  return 1;
}
template <Wrapped T>
inline int push(lua_State* L, const Block* block, const T& value) {
#ifdef MATH3D_FLOOR_WITHOUT_GC
  auto* box = static_cast<Box<T>*>(lua_newuserdatauv(L, sizeof(Box<T>), 0));
  lua_pushvalue(L, lua_upvalueindex(metatable_of(kClassOf<T>)));
  lua_setmetatable(L, -2);
#else
  Ready& ready = block->ready[kClassOf<T> - kMatrix];
  Box<T>* box = nullptr;
  if (ready.count > 0 && ready.is_standard()) [[likely]] {
    lua_xmove(ready.thread, L, 1);
    box = static_cast<Box<T>*>(ready.boxes[--ready.count]);
  } else {
    box = static_cast<Box<T>*>(make_ready(L, ready, sizeof(Box<T>)));
  }
#endif
  box->tag = &block->metatable[kClassOf<T>];
  box->value = value;
  return 1;
}
template <typename A, typename B>
inline int push(lua_State* L, const Block* block, const std::pair<A, B>& values) {
  push(L, block, values.first);
  push(L, block, values.second);
  return 2;
}
template <typename T>
inline int push(lua_State* L, const Block* block, const std::optional<T>& value) {
  if (!value) {
    lua_pushnil(L);
    return 1;
  }
  return push(L, block, *value);
}
template <typename T, std::size_t kCount>
inline int push(lua_State* L, const Block* block, const std::array<T, kCount>& values) {
  lua_createtable(L, static_cast<int>(kCount), 0);
  for (std::size_t i = 0; i < kCount; ++i) {
    push(L, block, values[i]);
    lua_rawseti(L, -2, static_cast<int>(i) + 1);
  }
  return 1;
}

inline void write_back(lua_State*, int, const auto&) {}
template <typename T>
inline void write_back(lua_State* L, int index, const Changed<T>& slot) {
  if (!slot.complete) {
    fail(L);  // no benchmark leaves a field out
  }
  members(slot.value, [&](int key, const auto& member) { write_member(L, key, index, member); });
}

// Handlers.

enum Order { kCountFirst, kSelfFirst };

template <typename F>
struct Handler;
template <typename R, typename... Ps>
struct Handler<R (*)(Ps...)> {
  static constexpr int kCount = sizeof...(Ps);
  static constexpr int kOptional =
      (0 + ... +
       (std::is_same_v<Ps, std::optional<float>> || std::is_same_v<Ps, std::optional<int>> ||
        std::is_same_v<Ps, std::optional<bool>> || std::is_same_v<Ps, const std::optional<Vector3>&>));

  template <auto kNative, Order kOrder, int... kIndices>
  static int call(lua_State* L, std::integer_sequence<int, kIndices...>) {
    const Block* block = get_block(L);
    const int top = lua_gettop(L);
    std::tuple<typename Parameter<Ps>::Slot...> slots;
    if constexpr (kOrder == kSelfFirst) {
      if (!take(L, block, 1, top, std::get<0>(slots))) {
        return fail(L);
      }
    }
    if (kOptional == 0 ? top != kCount : top > kCount) {
      return fail(L);
    }
    if (!(((kOrder == kSelfFirst && kIndices == 0) || take(L, block, kIndices + 1, top, std::get<kIndices>(slots))) &&
          ...)) {
      return fail(L);
    }
    return finish<kNative>(L, block, slots, std::integer_sequence<int, kIndices...>());
  }
  template <auto kNative, int... kIndices>
  static int finish(lua_State* L, const Block* block, auto& slots, std::integer_sequence<int, kIndices...>) {
    if constexpr (std::is_void_v<R>) {
      kNative(Parameter<Ps>::pass(std::get<kIndices>(slots))...);
      (..., write_back(L, kIndices + 1, std::get<kIndices>(slots)));
      return 0;
    } else {
      return push(L, block, kNative(Parameter<Ps>::pass(std::get<kIndices>(slots))...));
    }
  }
  /// A getter: no count. A setter: (object, key, value), and no count either.
  template <auto kNative>
  static int access(lua_State* L) {
    const Block* block = get_block(L);
    std::tuple<typename Parameter<Ps>::Slot...> slots;
    if (!take(L, block, 1, 3, std::get<0>(slots))) {
      return fail(L);
    }
    if constexpr (kCount == 2) {
      if (!take(L, block, 3, 3, std::get<1>(slots))) {
        return fail(L);
      }
    }
    return finish<kNative>(L, block, slots, std::make_integer_sequence<int, kCount>());
  }
};

template <typename R, typename... Ps>
struct Handler<R (*)(Ps...) noexcept> : Handler<R (*)(Ps...)> {};

/// Count, then arguments.
template <auto kNative>
[[gnu::flatten]] int function(lua_State* L) {
  using H = Handler<decltype(kNative)>;
  return H::template call<kNative, kCountFirst>(L, std::make_integer_sequence<int, H::kCount>());
}
/// Object, then count, then the other arguments.
template <auto kNative>
[[gnu::flatten]] int method(lua_State* L) {
  using H = Handler<decltype(kNative)>;
  return H::template call<kNative, kSelfFirst>(L, std::make_integer_sequence<int, H::kCount>());
}
template <auto kNative>
[[gnu::flatten]] int accessor(lua_State* L) {
  return Handler<decltype(kNative)>::template access<kNative>(L);
}

}  // namespace zeph::math3d::by_hand
