/// One argument of a call: the test whether the stack slot fits the parameter, and the read.
#pragma once

#include <type_traits>

#include <zeph/binding/dummy_table.h>
#include <zeph/binding/nullable.h>
#include <zeph/binding/script_class.h>

namespace zeph::binding {

/// What is known of one argument of an overloaded call.
struct ArgumentView {
  static constexpr int kUnknown = -2;

  int type = kUnknown;
  bool has_metatable = false;  ///< the next member is known
  const void* metatable = nullptr;
  unsigned asked = 0;  ///< the class slot that the object was looked for last, and one; 0 for none
  ObjectSlot* object = nullptr;
};

/// The arguments of an overloaded call, each looked at once. `views` has room for as many as the longest form takes.
class ArgumentViews {
 public:
  ArgumentViews(lua_State* lua, const ScriptState* script_state, int arguments, ArgumentView* views) noexcept
      : L(lua), state(script_state), top(arguments), m_views(views) {}

  int type(int index) {
    int& type = m_views[index - 1].type;
    if (type == ArgumentView::kUnknown) {
      type = lua_type(L, index);
    }
    return type;
  }
  /// False if the argument is known to be something else. Lua is not asked: to look for the object tells as much.
  [[nodiscard]] bool maybe_userdata(int index) const noexcept {
    const int type = m_views[index - 1].type;
    return type == ArgumentView::kUnknown || type == LUA_TUSERDATA;
  }
  /// Identity of the metatable of a table; null if it has none. Leaves a metatable on the stack.
  const void* metatable(int index) {
    ArgumentView& view = m_views[index - 1];
    if (!view.has_metatable) {
      view.has_metatable = true;
      view.metatable = lua_getmetatable(L, index) != 0 ? lua_topointer(L, -1) : nullptr;
    }
    return view.metatable;
  }
  /// The userdata of a class, null if the argument is none that lives.
  ObjectSlot* object(int index, unsigned slot) {
    ArgumentView& view = m_views[index - 1];
    if (view.asked != slot + 1) {
      view.asked = slot + 1;
      view.object = zplua_objectofclass(L, index, state, slot);
    }
    return view.object;
  }
  /// The userdata that the last test of the argument found.
  ObjectSlot* found(int index) const noexcept { return m_views[index - 1].object; }

  lua_State* const L;
  const ScriptState* const state;
  const int top;  ///< the last argument

 private:
  ArgumentView* const m_views;
};

/// By parameter type:
///
///     Slot                 what the read yields
///     kNeeded              text for the message when the test fails
///     kSlots               most stack slots that test and read leave behind
///     kOptional            nil and absence fit
///     Items                keys that the read takes
///     Take<Keys>           test and read at once; false if the test fails
///     Accepts              the test alone, on what is known of the argument
///     Read<Keys>           the read alone, of an argument that was accepted
///     Pass                 the slot as the parameter
///
/// A slot is trivially destructible: a Lua error leaves the frame that holds it without running destructors.
template <typename P>
struct Argument;

template <typename P>
struct PlainArgument {
  template <typename Keys>
  static void Read(ArgumentViews& views, int index, P& slot) {
    Argument<P>::template Take<Keys>(views.L, views.state, index, slot);
  }
  static constexpr const char* kNeeded = NeededText<P>::kText;
  static constexpr int kSlots = 0;
  static constexpr bool kOptional = false;
  using Slot = P;
  using Items = ItemList<>;
  static P Pass(Slot& slot) noexcept { return slot; }
};

template <>
struct Argument<float> : PlainArgument<float> {
  template <typename Keys>
  static bool Take(lua_State* L, const ScriptState*, int index, float& slot) {
    int is_number = 0;
    slot = static_cast<float>(lua_tonumberx(L, index, &is_number));
    return is_number != 0;
  }
  static bool Accepts(ArgumentViews& views, int index) {
    const int type = views.type(index);
    return type == LUA_TNUMBER || (type == LUA_TSTRING && lua_isnumber(views.L, index) != 0);
  }
};

/// Integers keep their low bits.
template <typename P>
  requires std::is_same_v<P, int> || std::is_same_v<P, unsigned> || std::is_same_v<P, unsigned char>
struct Argument<P> : PlainArgument<P> {
  template <typename Keys>
  static bool Take(lua_State* L, const ScriptState*, int index, P& slot) {
    int is_integer = 0;
    slot = static_cast<P>(lua_tointegerx(L, index, &is_integer));
    return is_integer != 0;
  }
  static bool Accepts(ArgumentViews& views, int index) {
    const int type = views.type(index);
    int is_integer = 0;
    if (type == LUA_TNUMBER || type == LUA_TSTRING) {
      lua_tointegerx(views.L, index, &is_integer);
    }
    return is_integer != 0;
  }
};

/// Good during the call. A number is turned into its text in the stack slot.
template <>
struct Argument<const char*> : PlainArgument<const char*> {
  template <typename Keys>
  static bool Take(lua_State* L, const ScriptState*, int index, const char*& slot) {
    slot = lua_tolstring(L, index, nullptr);
    return slot != nullptr;
  }
  static bool Accepts(ArgumentViews& views, int index) {
    const int type = views.type(index);
    return type == LUA_TSTRING || type == LUA_TNUMBER;
  }
};

/// A copy of a dummy value.
template <DummyType T>
struct Argument<T> {
  static constexpr const char* kNeeded = NeededText<T>::kText;
  static constexpr int kSlots = kReadSlots<T>;
  static constexpr bool kOptional = false;
  using Slot = T;
  using Items = typename ReadItems<T>::Type;

  template <typename Keys>
  static bool Take(lua_State* L, const ScriptState* state, int index, T& slot) {
    if (!zplua_tableofclass(L, index, state, kClassSlot<T>)) {
      return false;
    }
    slot = ScriptClass<T>::kMissing;
    read_table<Keys>(L, state, index, slot);
    return true;
  }
  template <typename Keys>
  static void Read(ArgumentViews& views, int index, T& slot) {
    slot = ScriptClass<T>::kMissing;
    read_table<Keys>(views.L, views.state, index, slot);
  }
  static bool Accepts(ArgumentViews& views, int index) {
    return views.type(index) == LUA_TTABLE && views.metatable(index) != nullptr &&
           views.metatable(index) == views.state->metatable[kClassSlot<T>];
  }
  static const T& Pass(T& slot) noexcept { return slot; }
};
template <DummyType T>
struct Argument<const T&> : Argument<T> {};

/// A dummy value that the call changes: a copy, written back into the table when the native function has returned.
template <DummyType T>
struct Argument<T&> {
  static constexpr const char* kNeeded = NeededText<T>::kText;
  static constexpr int kSlots = kReadSlots<T>;
  static constexpr bool kOptional = false;
  struct Slot {
    T value;
    bool complete;
  };
  using Items =
      typename Merge<typename ReadItems<T>::Type, typename FieldItems<typename ScriptClass<T>::Fields>::Write>::Type;

  template <typename Keys>
  static bool Take(lua_State* L, const ScriptState* state, int index, Slot& slot) {
    if (!zplua_tableofclass(L, index, state, kClassSlot<T>)) {
      return false;
    }
    slot.value = ScriptClass<T>::kMissing;
    slot.complete = read_table<Keys>(L, state, index, slot.value);
    return true;
  }
  static bool Accepts(ArgumentViews& views, int index) { return Argument<T>::Accepts(views, index); }
  template <typename Keys>
  static void Read(ArgumentViews& views, int index, Slot& slot) {
    slot.value = ScriptClass<T>::kMissing;
    slot.complete = read_table<Keys>(views.L, views.state, index, slot.value);
  }
  static T& Pass(Slot& slot) noexcept { return slot.value; }
  template <typename Keys>
  static void WriteBack(lua_State* L, int index, const Slot& slot) {
    write_table<Keys>(L, index, slot.value, slot.complete);
  }
};

/// The value inside a script object, used in place.
template <typename T>
struct WrappedArgument {
  static constexpr int kSlots = 1;
  static constexpr bool kOptional = false;
  using Slot = T*;
  using Items = ItemList<>;

  template <typename Keys>
  static bool Take(lua_State* L, const ScriptState* state, int index, Slot& slot) {
    ObjectSlot* place = zplua_objectofclass(L, index, state, kClassSlot<T>);
    if (place == nullptr) {
      return false;
    }
    slot = value_inside<T>(place, state);
    return true;
  }
  static bool Accepts(ArgumentViews& views, int index) {
    return views.maybe_userdata(index) && views.object(index, kClassSlot<T>) != nullptr;
  }
  template <typename Keys>
  static void Read(ArgumentViews& views, int index, Slot& slot) {
    slot = value_inside<T>(views.found(index), views.state);
  }
};
template <WrappedType T>
struct Argument<T> : WrappedArgument<T> {
  static constexpr const char* kNeeded = NeededText<T>::kText;
  static const T& Pass(T* slot) noexcept { return *slot; }
};
template <WrappedType T>
struct Argument<const T&> : Argument<T> {};
template <WrappedType T>
struct Argument<T&> : WrappedArgument<T> {
  static constexpr const char* kNeeded = NeededText<T>::kText;
  static T& Pass(T* slot) noexcept { return *slot; }
};
template <WrappedType T>
struct Argument<T*> : WrappedArgument<T> {
  static constexpr const char* kNeeded = PointerText<T>::kText;
  static T* Pass(T* slot) noexcept { return slot; }
};

/// Only ever inside a Nullable.
template <>
struct Argument<bool> : PlainArgument<bool> {
  template <typename Keys>
  static bool Take(lua_State* L, const ScriptState*, int index, bool& slot) {
    slot = lua_toboolean(L, index) != 0;
    return lua_isboolean(L, index);
  }
  static bool Accepts(ArgumentViews& views, int index) { return views.type(index) == LUA_TBOOLEAN; }
};

template <typename T>
struct Argument<Nullable<T>> {
  static constexpr const char* kNeeded = NullableText<T>::kText;
  static constexpr int kSlots = Argument<T>::kSlots;
  static constexpr bool kOptional = true;
  using Slot = Nullable<T>;
  using Items = typename Argument<T>::Items;

  template <typename Keys>
  static bool Take(lua_State* L, const ScriptState* state, int index, Slot& slot) {
    slot = {};
    if (lua_isnoneornil(L, index)) {
      return true;
    }
    slot.has_value = true;
    return Argument<T>::template Take<Keys>(L, state, index, slot.value);
  }
  static bool Accepts(ArgumentViews& views, int index) {
    return index > views.top || views.type(index) == LUA_TNIL || Argument<T>::Accepts(views, index);
  }
  template <typename Keys>
  static void Read(ArgumentViews& views, int index, Slot& slot) {
    slot = {};
    if (index <= views.top && views.type(index) != LUA_TNIL) {
      slot.has_value = true;
      Argument<T>::template Read<Keys>(views, index, slot.value);
    }
  }
  static const Slot& Pass(Slot& slot) noexcept { return slot; }
};
template <typename T>
struct Argument<const Nullable<T>&> : Argument<Nullable<T>> {};

}  // namespace zeph::binding
