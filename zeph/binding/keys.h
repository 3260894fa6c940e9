/// Where a call finds the texts and metatables that it needs: among its upvalues, or by name.
///
/// A handler gets the keys of the fields that it reads and writes as upvalues, so that no text is looked up on the road
/// of a call. Which ones follows from its signature, at compile time.
#pragma once

#include <type_traits>

#include <zeph/binding/script_class.h>
#include <zeph/platform/lua_api.h>
#include <zeph/platform/script_binding/zplua.h>

namespace zeph::binding {

inline constexpr FixedText kDummyTypeKey{"__dummy_type"};

/// A text.
template <FixedText kText>
struct Key {
  static void Push(lua_State* L) { lua_pushlstring(L, kText.text, kText.view().size()); }
};
/// The ClsName of a class.
template <typename T>
struct ClsNameOf {
  static void Push(lua_State* L) { lua_pushstring(L, ScriptClass<T>::kClsName); }
};
/// The metatable of a class.
template <typename T>
struct MetatableOf {
  static void Push(lua_State* L) { zplua_classtable(L, ScriptClass<T>::kClsName); }
};

/// List of items, each once.
template <typename... Items>
struct ItemList {
  static constexpr int kCount = sizeof...(Items);
  [[gnu::noinline, gnu::cold]] static void Push([[maybe_unused]] lua_State* L) { (Items::Push(L), ...); }

  template <typename Item>
  static consteval int IndexOf() {
    int index = 0;
    int found = -1;
    ((found = std::is_same_v<Items, Item> ? index : found, ++index), ...);
    return found;
  }
  /// Where the items of another list begin, if they stand here one behind the other; else -1.
  template <typename Part>
  static consteval int PlaceOf() {
    return PlaceOfItems(Part{});
  }
  template <typename Item>
  using With = std::conditional_t<(std::is_same_v<Items, Item> || ...), ItemList, ItemList<Items..., Item>>;

 private:
  template <typename First, typename... Rest>
  static consteval int PlaceOfItems(ItemList<First, Rest...>) {
    const int place = IndexOf<First>();
    int next = place;
    const bool together = (place >= 0) && (... && (IndexOf<Rest>() == ++next));
    return together ? place : -1;
  }
};

template <typename List, typename... Items>
struct AddItems {
  using Type = List;
};
template <typename List, typename Item, typename... Rest>
struct AddItems<List, Item, Rest...> : AddItems<typename List::template With<Item>, Rest...> {};

template <typename List, typename Other>
struct MergeItems;
template <typename List, typename... Items>
struct MergeItems<List, ItemList<Items...>> : AddItems<List, Items...> {};

template <typename... Lists>
struct Merge {
  using Type = ItemList<>;
};
template <typename List>
struct Merge<List> {
  using Type = List;
};
template <typename List, typename Other, typename... Rest>
struct Merge<List, Other, Rest...> : Merge<typename MergeItems<List, Other>::Type, Rest...> {};

/// Items that reading a dummy value takes.
template <typename T>
struct ReadItems {
  using Type = ItemList<>;
};
/// Items that building a result takes.
template <typename T>
struct WriteItems {
  using Type = ItemList<>;
};

template <typename Fields>
struct FieldItems;
template <typename... Fields>
struct FieldItems<FieldList<Fields...>> {
  using Read =
      typename Merge<ItemList<Key<Fields::kKey>>..., typename ReadItems<typename Fields::Value>::Type...>::Type;
  using Write =
      typename Merge<ItemList<Key<Fields::kKey>>..., typename WriteItems<typename Fields::Value>::Type...>::Type;
};

template <DummyType T>
struct ReadItems<T> {
  using Type = typename FieldItems<typename ScriptClass<T>::Fields>::Read;
};
template <DummyType T>
struct WriteItems<T> : Merge<ItemList<Key<kDummyTypeKey>, ClsNameOf<T>, MetatableOf<T>>,
                             typename FieldItems<typename ScriptClass<T>::Fields>::Write> {};

/// Items at their places among the upvalues of a handler.
template <typename Items, int kFirstUpvalue>
struct UpvalueKeys {
  template <typename Item>
  static void Push(lua_State* L) {
    constexpr int index = Items::template IndexOf<Item>();
    static_assert(index >= 0, "the handler was not given this item");
    lua_pushvalue(L, lua_upvalueindex(kFirstUpvalue + index));
  }
  /// The same items at the same places, of which only those in `Part` are asked for. Where they stand together, in
  /// their order, what stands around them makes no difference to the type.
  template <typename Part>
  using Only = std::conditional_t<(Items::template PlaceOf<Part>() >= 0),
                                  UpvalueKeys<Part, kFirstUpvalue + Items::template PlaceOf<Part>()>, UpvalueKeys>;
  /// The metatable of a class whose values the handler builds.
  template <typename T>
  static void PushMetatable(lua_State* L) {
    Push<MetatableOf<T>>(L);
  }
};

/// Items by name, for native code that is in no handler.
struct NamedKeys {
  template <typename>
  using Only = NamedKeys;
  template <typename Item>
  static void Push(lua_State* L) {
    Item::Push(L);
  }
  template <typename T>
  static void PushMetatable(lua_State* L) {
    if (lua_getfield(L, LUA_REGISTRYINDEX, ScriptClass<T>::kClsName) == LUA_TNIL) {
      lua_pop(L, 1);
      luaL_error(L, "Can not find [%s] in lua stack. Please register it!!!", ScriptClass<T>::kClsName);
    }
  }
};

}  // namespace zeph::binding
