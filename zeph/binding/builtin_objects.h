/// Generic values that native code hands to scripts: numbers, text, lists, several results, nothing.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include <zeph/binding/auto_ref.h>
#include <zeph/platform/script_binding/object.h>

namespace zeph::binding {

template <typename T>
struct TypeTraits;

/// printf into a text of at most `limit` bytes, the terminator included.
template <std::size_t kLimit, typename... Values>
std::string format_limited(const char* format, Values... values) {
  char buffer[kLimit];
  std::snprintf(buffer, kLimit, format, values...);
  return buffer;
}

class Integer final : public Object {
 public:
  explicit Integer(int number = 0) : Object("binding::Integer"), value(number) {}
  std::string AsString() const override { return format_limited<100>("Integer(%d)", value); }

  int value;

 private:
  int PushValue(lua_State* L, bool) override {
    lua_pushinteger(L, value);
    return 1;
  }
};

class Number final : public Object {
 public:
  explicit Number(double number = 0) : Object("binding::Number"), value(number) {}
  /// Two decimals: as a key, numbers that print alike are one.
  std::string AsString() const override { return format_limited<100>("Number(%.2f)", value); }

  double value;

 private:
  int PushValue(lua_State* L, bool) override {
    lua_pushnumber(L, value);
    return 1;
  }
};

class Str final : public Object {
 public:
  explicit Str(std::string text = {}) : Object("binding::Str"), value(std::move(text)) {}
  /// Cut at 1022 characters; the value stays whole.
  std::string AsString() const override { return format_limited<1023>("String(%s)", value.c_str()); }

  std::string value;

 private:
  int PushValue(lua_State* L, bool) override {
    lua_pushlstring(L, value.data(), value.size());
    return 1;
  }
};

class None final : public Object {
 public:
  None() : Object("binding::None") {}
  std::string AsString() const override { return "None"; }

 private:
  int PushValue(lua_State* L, bool) override {
    lua_pushnil(L);
    return 1;
  }
};

/// Text of a container by its address.
inline std::string address_text(const char* format, const Object* object) {
  return format_limited<1023>(format, static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(object)));
}

/// Several results of one call.
class Tuple final : public Object {
 public:
  explicit Tuple(std::size_t size) : Object("binding::Tuple"), items(size) {}
  std::string AsString() const override { return address_text("Tuple(0x%.12llX)", this); }

  void Set(std::size_t index, float number) { items[index] = new Number(static_cast<double>(number)); }
  /// A copy of a value of a script class.
  template <typename T>
  void Set(std::size_t index, T* value) {
    items[index] = TypeTraits<T>::Packing(value);
  }

  std::vector<AutoRef<Object>> items;

 private:
  /// One value an item, nil for an empty one; inside a table one list of them.
  int PushValue(lua_State* L, bool inside_table) override {
    luaL_checkstack(L, static_cast<int>(items.size()) + LUA_MINSTACK, "too many results");
    if (inside_table) {
      lua_createtable(L, static_cast<int>(items.size()), 0);
    }
    lua_Integer key = 0;
    for (const AutoRef<Object>& item : items) {
      if (Boxing(L, item, true) == 0) {
        lua_pushnil(L);
      }
      if (inside_table) {
        lua_rawseti(L, -2, ++key);
      }
    }
    return inside_table ? 1 : static_cast<int>(items.size());
  }
};

/// Lua table. Keys are one when their texts are one.
class Table final : public Object {
 public:
  Table() : Object("binding::Table"), m_items(8) {}
  std::string AsString() const override { return address_text("Table(0x%.12llX)", this); }

  void Set(const AutoRef<Object>& key, const AutoRef<Object>& value) { m_items.insert_or_assign(key, value); }
  void Set(int key, float number) { Set(new Integer(key), new Number(static_cast<double>(number))); }
  /// A copy of a value of a script class.
  template <typename T>
  void Set(int key, T* value) {
    Set(new Integer(key), TypeTraits<T>::Packing(value));
  }

  [[nodiscard]] std::size_t size() const noexcept { return m_items.size(); }

  /// Pushes a new plain table with every entry whose key and value are one Lua value each.
  int Push(lua_State* L) const {
    luaL_checkstack(L, LUA_MINSTACK, "nested too deeply");
    lua_createtable(L, 0, static_cast<int>(m_items.size()));
    const int table = lua_gettop(L);
    for (const auto& [key, value] : m_items) {
      // A key that Lua refuses (nil, NaN) is an entry that can't be.
      if (Boxing(L, key, true) == 1 && IsKey(L) && Boxing(L, value, true) == 1) {
        lua_rawset(L, table);
      }
      lua_settop(L, table);
    }
    return 1;
  }

 private:
  static bool IsKey(lua_State* L) { return !lua_isnil(L, -1) && lua_rawequal(L, -1, -1) != 0; }

  /// FNV-1a, 64 bits, of the key's text.
  struct KeyHash {
    std::size_t operator()(const AutoRef<Object>& key) const {
      if (!key.alive()) {
        return 0;
      }
      std::uint64_t hash = 0xcbf29ce484222325;
      for (const char character : key->AsString()) {
        hash = (hash ^ static_cast<unsigned char>(character)) * 0x100000001b3;
      }
      return hash;
    }
  };
  struct KeyEqual {
    bool operator()(const AutoRef<Object>& a, const AutoRef<Object>& b) const {
      if (a.get() == nullptr || b.get() == nullptr) {
        return a.get() == b.get();
      }
      return a.alive() && b.alive() ? a->AsString() == b->AsString() : a.get() == b.get();
    }
  };

  int PushValue(lua_State* L, bool) override { return Push(L); }

  std::unordered_map<AutoRef<Object>, AutoRef<Object>, KeyHash, KeyEqual> m_items;
};

}  // namespace zeph::binding
