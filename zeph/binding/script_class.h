/// What a native type has to say of itself to be a script class.
#pragma once

#include <algorithm>
#include <array>
#include <concepts>
#include <cstddef>
#include <new>
#include <tuple>
#include <type_traits>

#include <zeph/binding/fixed_text.h>
#include <zeph/platform/script_binding/script_state.h>

namespace zeph::binding {

/// Specialised beside each script class:
///
///     using Type = LuaVector3;                    the script class
///     static constexpr bool kIsDummyType;         plain table in Lua, or userdata around a native value
///     static constexpr char kNativeName[];        "struct zeph::math3d::_Vector3<float>", for error messages
///     static constexpr char kClsName[];           "class zeph::math3d::LuaVector3", the identity of the class
///     static constexpr char kLuaName[];           name in the module
///     static constexpr char kDefaultName[];       name that the class also answers to
///
/// and for a dummy type also
///
///     using Fields = FieldList<Field<"x", &V::x>, ...>;   in the order in which the table is built
///     static constexpr T kMissing;                what a field counts as that is missing or of the wrong type
///     static constexpr T kDeadReference;          the value of a reference to an object that has ended
template <typename T>
struct ScriptClass;

template <typename T>
concept ScriptType = requires {
  typename ScriptClass<T>::Type;
};
template <typename T>
concept DummyType = ScriptType<T> && ScriptClass<T>::kIsDummyType;
template <typename T>
concept WrappedType = ScriptType<T> && !ScriptClass<T>::kIsDummyType;

/// A wrapped type may also say
///
///     static constexpr bool kOwnsNothing = true;
///
/// of its script class: an object that native code has not looked at has nothing to give back when it goes, so results
/// of calls are bare values (BareValues).
template <typename T>
inline constexpr bool kOwnsNothing = false;
template <WrappedType T>
  requires(ScriptClass<T>::kOwnsNothing)
inline constexpr bool kOwnsNothing<T> = true;

template <typename Member>
struct MemberPointer;
template <typename T, typename Value>
struct MemberPointer<Value T::*> {
  using ClassType = T;
  using ValueType = Value;
};

/// A member of a native type and its key in the Lua table.
template <FixedText kText, auto kMemberPointer>
struct Field {
  static constexpr auto kKey = kText;
  static constexpr auto kMember = kMemberPointer;
  using Value = typename MemberPointer<decltype(kMemberPointer)>::ValueType;
};

template <typename... Fields>
struct FieldList {
  static constexpr int kCount = sizeof...(Fields);
};

/// Number of the class in this process.
template <ScriptType T>
inline const unsigned kClassSlot = zplua_classslot(ScriptClass<T>::kClsName);

/// The value of a userdata that is known to hold one of the class.
template <WrappedType T>
T* value_inside(ObjectSlot* place, const ScriptState* state) noexcept {
  if constexpr (kOwnsNothing<T>) {
    if (zplua_isbarevalue(place, state, kClassSlot<T>)) {
      return std::launder(static_cast<T*>(place->value()));
    }
  }
  return &static_cast<typename ScriptClass<T>::Type*>(place->object)->m_value;
}

/// Text by which messages call a type that was needed.
template <typename T>
struct NeededText;
template <>
struct NeededText<float> {
  static constexpr char kText[] = "float";
};
template <>
struct NeededText<int> {
  static constexpr char kText[] = "int";
};
template <>
struct NeededText<unsigned> {
  static constexpr char kText[] = "unsigned int";
};
template <>
struct NeededText<unsigned char> {
  static constexpr char kText[] = "unsigned char";
};
template <>
struct NeededText<bool> {
  static constexpr char kText[] = "bool";
};
template <>
struct NeededText<const char*> {
  static constexpr char kText[] = "char const *";
};
template <ScriptType T>
struct NeededText<T> {
  static constexpr auto& kText = ScriptClass<T>::kNativeName;
};

/// Several texts as one.
template <const auto&... kParts>
struct JoinedText {
  static constexpr std::size_t kSize = ((sizeof(kParts) - 1) + ...);
  static constexpr auto kStorage = [] {
    std::array<char, kSize + 1> joined{};
    char* end = joined.data();
    ((end = std::copy_n(kParts, sizeof(kParts) - 1, end)), ...);
    return joined;
  }();
  static constexpr const char* kText = kStorage.data();
};

inline constexpr char kPointerMark[] = " *";
/// A wrapped type that is used in place.
template <typename T>
using PointerText = JoinedText<NeededText<T>::kText, kPointerMark>;

inline constexpr char kNullableBegin[] = "class zeph::binding::Nullable<";
inline constexpr char kNullableEnd[] = ">";
template <typename T>
using NullableText = JoinedText<kNullableBegin, NeededText<T>::kText, kNullableEnd>;

}  // namespace zeph::binding
