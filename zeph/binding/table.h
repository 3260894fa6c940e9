/// The tables that say what scripts can call: a script name beside a native function.
///
///     using Vector3Table = ClassTable<_Vector3<float>,
///         Row<"__mul", Overload<Method<&multiply>, Method<&scale>, Function<&transform>>>,
///         Row<"cross", Function<&cross_product>>,
///         Property<"length", &length_of>>;
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include <zeph/binding/property.h>

namespace zeph::binding {

/// Adds a function to the open table, with the items that `push_items` pushes as upvalues.
[[gnu::noinline, gnu::cold]] inline void add_function(lua_State* L, const char* name, lua_CFunction function,
                                                      void (*push_items)(lua_State*), int items) {
  luaL_checkstack(L, items + LUA_MINSTACK, name);
  push_items(L);
  zplua_function(L, name, function, items);
}

/// A function of a class or module.
template <FixedText kText, typename What>
struct Row {
  static constexpr std::string_view kName = kText.view();
  static constexpr bool kIsProperty = false;
  using AccessorItems = ItemList<>;

  static void Register(lua_State* L) {
    add_function(L, kText.text, &What::template Handle<UpvalueKeys<typename What::Items, kFirstFunctionUpvalue>>,
                 &What::Items::Push, What::Items::kCount);
  }
  template <typename Keys>
  static void RegisterProperty(lua_State*) {}
};

template <FixedText kText, typename Get, typename Set>
struct PropertyRow {
  static constexpr std::string_view kName = kText.view();
  static constexpr bool kIsProperty = true;
  using AccessorItems = typename Merge<typename Get::Items, typename Set::Items>::Type;

  static void Register(lua_State*) {}
  template <typename Keys>
  static void RegisterProperty(lua_State* L) {
    if constexpr (std::is_same_v<Set, ReadOnly>) {
      zplua_variable(L, kText.text, &Get::template Handle<Keys>, nullptr);
    } else {
      zplua_variable(L, kText.text, &Get::template Handle<Keys>, &Set::template Handle<Keys>);
    }
  }
};

template <auto kSet, Binding kBinding>
struct SetterOrNone {
  using Type = Setter<kSet, kBinding>;
};
template <Binding kBinding>
struct SetterOrNone<nullptr, kBinding> {
  using Type = ReadOnly;
};

/// A property of the value: native functions `V get(const T&)` and, if it can be assigned, `void set(T&, V)`.
template <FixedText kText, auto kGet, auto kSet = nullptr>
using Property = PropertyRow<kText, Getter<kGet, Binding::value>, typename SetterOrNone<kSet, Binding::value>::Type>;
/// A property that is an operation of the script class; errors name that class.
template <FixedText kText, auto kGet, auto kSet = nullptr>
using MemberProperty =
    PropertyRow<kText, Getter<kGet, Binding::member>, typename SetterOrNone<kSet, Binding::member>::Type>;
/// A field of a wrapped value.
template <FixedText kText, auto kMember>
using FieldProperty =
    PropertyRow<kText, Getter<&get_field<kMember>, Binding::field>, Setter<&set_field<kMember>, Binding::field>>;

template <std::size_t kCount>
[[nodiscard]] constexpr bool names_are_unique(const std::array<std::string_view, kCount>& names) {
  for (std::size_t i = 0; i < kCount; ++i) {
    for (std::size_t j = i + 1; j < kCount; ++j) {
      if (names[i] == names[j]) {
        return false;
      }
    }
  }
  return true;
}

/// Functions of a module.
template <typename... Rows>
struct FunctionTable {
  static_assert(names_are_unique(std::array{Rows::kName...}), "two rows have one name");

  [[gnu::cold]] static void Register(lua_State* L) { (Rows::Register(L), ...); }
};

/// Functions and properties of the class of T.
template <ScriptType T, typename... Rows>
struct ClassTable {
  static_assert(names_are_unique(std::array{Rows::kName...}), "two rows have one name");
  using AccessorItems = typename Merge<typename Rows::AccessorItems...>::Type;

  [[gnu::cold]] static void Register(lua_State* L) {
    (Rows::Register(L), ...);
    if constexpr (kHasProperties) {
      luaL_checkstack(L, AccessorItems::kCount + LUA_MINSTACK, ScriptClass<T>::kClsName);
      AccessorItems::Push(L);
      zplua_accessorvalues(L, AccessorItems::kCount);
      (Rows::template RegisterProperty<UpvalueKeys<AccessorItems, kFirstAccessorUpvalue>>(L), ...);
    }
  }

 private:
  static constexpr bool kHasProperties = (Rows::kIsProperty || ...);
};

}  // namespace zeph::binding
