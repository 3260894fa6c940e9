/// Getters and setters. They test no count and run on the stack of the class's access function.
#pragma once

#include <zeph/binding/adapter.h>

namespace zeph::binding {

/// How a property reaches its object, which decides the words of its self error.
enum class Binding {
  value,   ///< native function of the value
  member,  ///< member function of the script class
  field,   ///< field of the native type
};

template <typename P>
using ObjectOf = std::remove_cv_t<std::remove_pointer_t<std::remove_cvref_t<P>>>;

template <typename T, Binding kBinding>
[[noreturn]] void raise_property_self(lua_State* L) {
  if constexpr (kBinding == Binding::member) {
    raise_self(L, ScriptClass<T>::kClsName);
  } else if constexpr (WrappedType<T>) {
    raise_self(L, PointerText<T>::kText);
  } else {
    raise_dummy_self(L, NeededText<T>::kText);
  }
}

template <auto kNative, Binding kBinding, typename Signature = typename SignatureOf<decltype(kNative)>::Type>
struct Getter;
template <auto kNative, Binding kBinding, typename R, typename Self>
struct Getter<kNative, kBinding, R(Self)> {
  using T = ObjectOf<Self>;
  using Value = std::remove_cvref_t<R>;
  using Items = typename SignatureItems<R(Self)>::Type;

  template <typename Keys>
  static int Handle(lua_State* L) {
    ScriptState* state = zplua_upvaluestate(L);
    typename Argument<Self>::Slot self;
    if (!Argument<Self>::template Take<Keys>(L, state, 1, self)) {
      raise_property_self<T, kBinding>(L);
    }
    const Value value = kNative(Argument<Self>::Pass(self));
    return Result<Value>::template Push<Keys>(L, state, value);
  }
};

template <auto kNative, Binding kBinding, typename Signature = typename SignatureOf<decltype(kNative)>::Type>
struct Setter;
template <auto kNative, Binding kBinding, typename Self, typename V>
struct Setter<kNative, kBinding, void(Self, V)> {
  using T = ObjectOf<Self>;
  using Items = typename SignatureItems<void(Self, V)>::Type;

  template <typename Keys>
  static int Handle(lua_State* L) {
    ScriptState* state = zplua_upvaluestate(L);
    typename Argument<Self>::Slot self;
    if (!Argument<Self>::template Take<Keys>(L, state, 1, self)) {
      raise_property_self<T, kBinding>(L);
    }
    typename Argument<V>::Slot value;
    if (!Argument<V>::template Take<Keys>(L, state, 3, value)) {
      raise_setter(L, Argument<V>::kNeeded);
    }
    kNative(Argument<Self>::Pass(self), Argument<V>::Pass(value));
    if constexpr (DummyType<T>) {
      Argument<Self>::template WriteBack<Keys>(L, 1, self);
    }
    return 0;
  }
};

/// A property without a setter.
struct ReadOnly {
  using Items = ItemList<>;
};

template <auto kMember>
[[nodiscard]] auto get_field(const typename MemberPointer<decltype(kMember)>::ClassType& object) {
  return object.*kMember;
}
template <auto kMember>
void set_field(typename MemberPointer<decltype(kMember)>::ClassType& object,
               typename MemberPointer<decltype(kMember)>::ValueType value) {
  object.*kMember = value;
}

}  // namespace zeph::binding
