/// From a script call to a native function and back: count, arguments, call, result.
///
/// A native function sees values, never the lua_State, and raises nothing. Its type says what the call needs; it is a
/// template argument, so that it is inlined into its handler and named in backtraces. No frame here owns anything: a
/// Lua error may leave it at every Lua call.
#pragma once

#include <algorithm>
#include <functional>
#include <tuple>
#include <type_traits>
#include <utility>

#include <zeph/binding/argument.h>
#include <zeph/binding/errors.h>
#include <zeph/binding/result.h>

namespace zeph::binding {

template <typename F>
struct SignatureOf;
template <typename R, typename... Ps>
struct SignatureOf<R (*)(Ps...)> {
  using Type = R(Ps...);
};
template <typename R, typename... Ps>
struct SignatureOf<R (*)(Ps...) noexcept> : SignatureOf<R (*)(Ps...)> {};

template <typename Signature>
struct SignatureLength;
template <typename R, typename... Ps>
struct SignatureLength<R(Ps...)> {
  static constexpr int kCount = sizeof...(Ps);
};

/// Where the object of a call stands in its checks.
enum class Order {
  function,  ///< count, then every argument, the object as the first
  method,    ///< object, then count, then the other arguments
};

/// A dummy value that the native function changes.
template <typename P>
inline constexpr bool kIsChanged = false;
template <DummyType T>
  requires(!std::is_const_v<T>)
inline constexpr bool kIsChanged<T&> = true;

template <typename P>
inline constexpr bool kIsWrapped = WrappedType<std::remove_cv_t<std::remove_pointer_t<std::remove_cvref_t<P>>>>;
template <typename P>
inline constexpr bool kIsText = std::is_same_v<P, const char*>;

template <typename Keys, auto kNative, Order kOrder, typename Signature = typename SignatureOf<decltype(kNative)>::Type>
class Adapter;

template <typename Keys, auto kNative, Order kOrder, typename R, typename... Ps>
class Adapter<Keys, kNative, kOrder, R(Ps...)> {
  using Slots = std::tuple<typename Argument<Ps>::Slot...>;
  using Value = std::remove_cvref_t<R>;
  template <int kIndex>
  using ParameterAt = std::tuple_element_t<static_cast<std::size_t>(kIndex), std::tuple<Ps...>>;
  template <int kIndex>
  using ArgumentAt = Argument<ParameterAt<kIndex>>;

  static constexpr int kSelves = kOrder == Order::method ? 1 : 0;
  static constexpr int kHighest = static_cast<int>(sizeof...(Ps)) - kSelves;
  /// The first optional parameter and all behind it may be left out, as far as the count goes.
  static constexpr int kLowest = [] {
    int lowest = 0;
    bool counts = true;
    (..., (counts = counts && !Argument<Ps>::kOptional, lowest += counts ? 1 : 0));
    return lowest - kSelves;
  }();

  static constexpr bool kChanges = (kIsChanged<Ps> || ...);

  /// Nothing is popped where the slots that Lua guarantees are enough for the whole call, unless an argument may be
  /// absent: what was left on the stack must not take its place. An accessor runs on the stack of the access function,
  /// which has used some.
  static constexpr int kRoom = LUA_MINSTACK - 4;
  static constexpr int kArgumentSlots = (0 + ... + Argument<Ps>::kSlots);
  static constexpr int kResultSlots = kChanges ? 12 : Result<Value>::kSlots;
  static constexpr bool kPops = kArgumentSlots + kResultSlots > kRoom || kLowest != kHighest;
  static_assert(kResultSlots <= kRoom && ((Argument<Ps>::kSlots <= kRoom) && ...));

 public:
  using Items = ItemList<>;

  static int Call(lua_State* L) {
    ScriptState* state = zplua_upvaluestate(L);
    const int top = lua_gettop(L);
    Slots slots;
    if constexpr (kOrder == Order::method) {
      TakeSelf(L, state, top, std::get<0>(slots));
    }
    CheckCount(L, top - kSelves);
    TakeArguments(L, state, top, slots, std::make_index_sequence<sizeof...(Ps)>());
    return Finish(L, state, slots, std::make_index_sequence<sizeof...(Ps)>());
  }

  /// One form of an overload set: makes the call if count and arguments fit, and then leaves the count of results. Only
  /// a dummy object that a method needs and does not get raises an error.
  static bool Try(ArgumentViews& views, ScriptState* state, int& results) {
    if constexpr (kOrder == Order::method) {
      using Self = ArgumentAt<0>;
      if (!Self::Accepts(views, 1)) {
        if constexpr (!kIsWrapped<ParameterAt<0>>) {
          raise_dummy_self(views.L, Self::kNeeded);
        }
        return false;
      }
    }
    const int count = views.top - kSelves;
    if (count < kLowest || count > kHighest || !AcceptsAll(views, std::make_index_sequence<sizeof...(Ps)>())) {
      return false;
    }
    Slots slots;
    ReadArguments(views, state, slots, std::make_index_sequence<sizeof...(Ps)>());
    results = Finish(views.L, state, slots, std::make_index_sequence<sizeof...(Ps)>());
    return true;
  }

 private:
  static void CheckCount(lua_State* L, int count) {
    if constexpr (kLowest == kHighest) {
      if (count != kHighest) {
        raise_count(L, count, kHighest);
      }
    } else if (count < kLowest || count > kHighest) {
      raise_count(L, count, kLowest, kHighest);
    }
  }

  template <typename Slot>
  static void TakeSelf(lua_State* L, ScriptState* state, int top, Slot& slot) {
    using Self = ArgumentAt<0>;
    if (!Self::template Take<Keys>(L, state, 1, slot)) {
      if constexpr (kIsWrapped<ParameterAt<0>>) {
        raise_self(L, PointerText<std::remove_cvref_t<decltype(*slot)>>::kText);
      } else {
        raise_dummy_self(L, Self::kNeeded);
      }
    }
    Pop<Self>(L, top);
  }

  /// What the tests of an overload set have accepted.
  template <std::size_t... kIndices>
  static void ReadArguments(ArgumentViews& views, ScriptState* state, Slots& slots,
                            std::index_sequence<kIndices...> indices) {
    (ReadOne<static_cast<int>(kIndices)>(views, slots), ...);
    CheckObjectsAgain(views.L, state, views.top, slots, indices);
  }

  template <int kIndex>
  static void ReadOne(ArgumentViews& views, Slots& slots) {
    using P = ArgumentAt<kIndex>;
    P::template Read<Keys>(views, kIndex + 1, std::get<kIndex>(slots));
    Pop<P>(views.L, views.top);
  }

  template <std::size_t... kIndices>
  static void TakeArguments(lua_State* L, ScriptState* state, int top, Slots& slots,
                            std::index_sequence<kIndices...> indices) {
    (TakeOne<static_cast<int>(kIndices), kSelves>(L, state, top, slots), ...);
    CheckObjectsAgain(L, state, top, slots, indices);
  }

  template <std::size_t... kIndices>
  static void CheckObjectsAgain([[maybe_unused]] lua_State* L, [[maybe_unused]] ScriptState* state,
                                [[maybe_unused]] int top, [[maybe_unused]] Slots& slots,
                                std::index_sequence<kIndices...>) {
    if constexpr ((kIsText<Ps> || ...) && (kIsWrapped<Ps> || ...)) {
      // Reading a number as text may collect garbage, and a finalizer may end an object that was read before it.
      (TakeAgain<static_cast<int>(kIndices)>(L, state, top, slots), ...);
    }
  }

  template <int kIndex, int kFirst>
  static void TakeOne(lua_State* L, ScriptState* state, int top, Slots& slots) {
    if constexpr (kIndex >= kFirst) {
      using P = ArgumentAt<kIndex>;
      if (!P::template Take<Keys>(L, state, kIndex + 1, std::get<kIndex>(slots))) {
        raise_argument(L, kIndex + 1, P::kNeeded);
      }
      Pop<P>(L, top);
    }
  }

  template <int kIndex>
  static void TakeAgain(lua_State* L, ScriptState* state, int top, Slots& slots) {
    if constexpr (kIsWrapped<ParameterAt<kIndex>>) {
      TakeOne<kIndex, 0>(L, state, top, slots);
    }
  }

  template <typename P>
  static void Pop([[maybe_unused]] lua_State* L, [[maybe_unused]] int top) {
    if constexpr (kPops && P::kSlots > 0) {
      lua_settop(L, top);
    }
  }

  template <std::size_t... kIndices>
  static bool AcceptsAll(ArgumentViews& views, std::index_sequence<kIndices...>) {
    return ((static_cast<int>(kIndices) < kSelves || Argument<Ps>::Accepts(views, static_cast<int>(kIndices) + 1)) &&
            ...);
  }

  template <std::size_t... kIndices>
  static int Finish(lua_State* L, ScriptState* state, Slots& slots, std::index_sequence<kIndices...> indices) {
    const auto call = [&]() -> R { return kNative(Argument<Ps>::Pass(std::get<kIndices>(slots))...); };
    if constexpr (kOwns<Value>) {
      return push_owned(L, call);
    } else if constexpr (std::is_void_v<R>) {
      if constexpr (!kChanges) {
        // It may write to the table of its object by itself, through the engine.
        lua::LuaEngine::getInstance().SetRunningState(L);
      }
      call();
      WriteBack(L, slots, indices);
      return 0;
    } else {
      const Value result = call();
      if constexpr (std::is_same_v<Value, Change>) {
        if (result == Change::none) {
          return 0;
        }
      }
      WriteBack(L, slots, indices);
      return Result<Value>::template Push<Keys>(L, state, result);
    }
  }

  template <std::size_t... kIndices>
  static void WriteBack([[maybe_unused]] lua_State* L, [[maybe_unused]] Slots& slots,
                        std::index_sequence<kIndices...>) {
    (WriteBackOne<Ps, static_cast<int>(kIndices)>(L, slots), ...);
  }
  template <typename P, int kIndex>
  static void WriteBackOne(lua_State* L, Slots& slots) {
    if constexpr (kIsChanged<P>) {
      Argument<P>::template WriteBack<Keys>(L, kIndex + 1, std::get<kIndex>(slots));
    }
  }
};

/// Keys that a native function's arguments and result take.
template <typename Signature>
struct SignatureItems;
template <typename R, typename... Ps>
struct SignatureItems<R(Ps...)> {
  using Type =
      typename Merge<ItemList<>, typename Result<std::remove_cvref_t<R>>::Items, typename Argument<Ps>::Items...>::Type;
};

template <auto kNative, Order kOrder>
struct Call {
  static constexpr int kParameters = SignatureLength<typename SignatureOf<decltype(kNative)>::Type>::kCount;
  using Items = typename SignatureItems<typename SignatureOf<decltype(kNative)>::Type>::Type;

  template <typename Keys>
  static int Handle(lua_State* L) {
    return Adapter<Keys, kNative, kOrder>::Call(L);
  }
  template <typename Keys>
  static bool Try(ArgumentViews& views, ScriptState* state, int& results) {
    return Adapter<Keys, kNative, kOrder>::Try(views, state, results);
  }
};

/// Count first, then the arguments, the object among them as argument 1.
template <auto kNative>
using Function = Call<kNative, Order::function>;
/// The object first, then the count of the others, then the others.
template <auto kNative>
using Method = Call<kNative, Order::method>;

/// The first form whose count and arguments fit makes the call.
template <typename... Forms>
struct Overload {
  using Items = typename Merge<typename Forms::Items...>::Type;

  template <typename Keys>
  static int Handle(lua_State* L) {
    ScriptState* state = zplua_upvaluestate(L);
    ArgumentView storage[std::max({1, Forms::kParameters...})];
    ArgumentViews views(L, state, lua_gettop(L), storage);
    int results = 0;
    if (!(Forms::template Try<Keys>(views, state, results) || ...)) {
      raise_overload(L);
    }
    return results;
  }
};

/// The text of a table, whatever its class: fields that do not fit count as what the class has for missing ones. The
/// native function gets the value and returns a LimitedText.
template <auto kNative, typename T>
struct TableText {
  using Items = typename ReadItems<T>::Type;

  template <typename Keys>
  static int Handle(lua_State* L) {
    if (!lua_istable(L, 1)) {
      raise_dummy_self(L, NeededText<T>::kText);
    }
    lua_settop(L, 1);
    T value = ScriptClass<T>::kMissing;
    read_table<Keys>(L, zplua_upvaluestate(L), 1, value);
    const auto text = kNative(value);
    lua_pushlstring(L, text.text, text.size);
    return 1;
  }
};

}  // namespace zeph::binding
