#include "surface.h"

#include <algorithm>
#include <bit>
#include <cstdio>
#include <cstring>
#include <string_view>

#include <zeph/math3d.h>

#include "probe.h"

namespace zeph::test {

namespace {

constexpr char kNoProperty[] = "(no property)";
constexpr int kMostArguments = 17;

/// Calls `use` for each entry of the table on top of the stack whose key is a text: key at -2, value at -1.
template <typename Use>
void for_each(lua_State* L, Use use) {
  for (lua_pushnil(L); lua_next(L, -2) != 0; lua_pop(L, 1)) {
    if (lua_type(L, -2) == LUA_TSTRING) {
      use(std::string(lua_tostring(L, -2)));
    }
  }
}

/// The class table on top of the stack.
void walk_class(lua_State* L, Surface& surface, const std::string& module, const std::string& name) {
  surface.classes.push_back({module, name, 0, 0, {}, {}});
  for_each(L, [&](const std::string& key) {
    if (lua_isfunction(L, -1) && key != "__index" && key != "__newindex") {
      surface.entries.push_back({name + "." + key, module, name, key, "", {}});
    }
  });
  const int table = lua_gettop(L);
  const auto add_property = [&](const std::string& property, bool writable) {
    if (lua_getfield(L, table, "__index") == LUA_TFUNCTION) {  // a class without properties is its own
      surface.entries.push_back({name + "." + property + " get", module, name, "__index", property, {}});
    }
    lua_pop(L, 1);
    if (writable) {
      surface.entries.push_back({name + "." + property + " set", module, name, "__newindex", property, {}});
    }
  };
  lua_getfield(L, -1, "getProperties");
  lua_pushvalue(L, -2);
  lua_call(L, 1, 1);
  for_each(L, [&](const std::string& property) { add_property(property, lua_toboolean(L, -1) != 0); });
  lua_pop(L, 1);
  lua_getfield(L, -1, "__gc");
  add_property(kNoProperty, lua_isnil(L, -1));  // a table takes any field
  lua_pop(L, 1);
}

void walk_module(lua_State* L, Surface& surface, const char* module) {
  std::vector<const void*> seen;  // a class may have a second name
  lua_getglobal(L, module);
  for_each(L, [&](const std::string& key) {
    if (lua_isfunction(L, -1)) {
      surface.entries.push_back({std::string(module) + "." + key, module, "", key, "", {}});
    } else if (lua_istable(L, -1) && std::find(seen.begin(), seen.end(), lua_topointer(L, -1)) == seen.end()) {
      seen.push_back(lua_topointer(L, -1));
      lua_getfield(L, -1, "lua_name");
      const std::string name = lua_tostring(L, -1);
      lua_pop(L, 1);
      walk_class(L, surface, module, name);
    }
  });
  lua_pop(L, 1);
}

/// The place of the argument that the error text blames, or 0.
int blamed(const char* text) {
  int place = 0;
  if (std::strstr(text, "'self'") != nullptr || std::strstr(text, "to assign to") != nullptr) {
    return 1;
  }
  if (std::strstr(text, "in setter") != nullptr) {
    return 3;
  }
  const char* in = std::strstr(text, " in ");
  return in != nullptr && std::sscanf(in, " in %d", &place) == 1 ? place : 0;
}

class Finder {
 public:
  Finder(lua_State* state, Surface& surface) : L(state), m_surface(surface), m_live(state, surface) {}

  void find_makers() {
    for (Class& c : m_surface.classes) {
      for (int count = kMostArguments; count >= 0; --count) {
        c.arguments.assign(static_cast<std::size_t>(count), kNumber);
        if (fits(c.maker, c.arguments)) {
          break;
        }
      }
    }
  }

  void find_calls(int number) {
    Entry& entry = m_surface.entries[static_cast<std::size_t>(number)];
    if (!entry.property.empty()) {
      find_by_blame(
          number, entry.key == "__index" ? std::vector<int>{kNumber, kKey} : std::vector<int>{kNumber, kKey, kNumber});
      return;
    }
    m_overloaded = false;
    for (std::size_t count = 0; count <= kMostArguments; ++count) {
      find_by_blame(number, std::vector<int>(count, kNumber));
    }
    if (m_overloaded) {
      std::vector<int> list;
      find_all(number, list);
    }
  }

  /// A class that can be made of nothing, but better of something: two values of it shall not look alike by chance.
  void prefer_longer_makers() {
    for (std::size_t i = 0; i < m_surface.classes.size(); ++i) {
      Class& c = m_surface.classes[i];
      if (c.arguments.empty()) {
        for (const auto& call : m_surface.entries[static_cast<std::size_t>(c.maker)].calls) {
          const bool of_itself = std::count(call.begin(), call.end(), kValues + static_cast<int>(i)) != 0;
          if (call.size() > c.arguments.size() && !of_itself) {
            c.arguments = call;
          }
        }
      }
    }
  }

 private:
  bool fits(int entry, const std::vector<int>& list) {
    lua_settop(L, 0);
    return m_live.call(L, entry, list) == LUA_OK;
  }

  void find_by_blame(int number, std::vector<int> list) {
    const int candidates = kValues + static_cast<int>(m_surface.classes.size());
    auto& calls = m_surface.entries[static_cast<std::size_t>(number)].calls;
    while (!fits(number, list)) {
      const char* text = lua_tostring(L, -1);
      m_overloaded = m_overloaded || (text != nullptr && std::strstr(text, "overload") != nullptr);
      const int place = text != nullptr ? blamed(text) : 0;
      if (place < 1 || place > static_cast<int>(list.size()) || list[static_cast<std::size_t>(place - 1)] == kKey ||
          ++list[static_cast<std::size_t>(place - 1)] == candidates) {
        return;
      }
    }
    // Functions that ignore what stands behind their arguments need no more than one example of that.
    if (calls.size() < 2 || calls.back().size() + 1 != list.size() || list.size() < 4 || list.back() != kNumber ||
        !std::equal(calls.back().begin(), calls.back().end(), list.begin())) {
      calls.push_back(std::move(list));
    }
  }

  /// Every list of up to three arguments.
  void find_all(int number, std::vector<int>& list) {
    auto& calls = m_surface.entries[static_cast<std::size_t>(number)].calls;
    if (fits(number, list) && std::find(calls.begin(), calls.end(), list) == calls.end()) {
      calls.push_back(list);
    }
    for (int candidate = 0; list.size() < 3 && candidate < kValues + static_cast<int>(m_surface.classes.size());
         ++candidate) {
      list.push_back(candidate);
      find_all(number, list);
      list.pop_back();
    }
  }

  lua_State* const L;
  Surface& m_surface;
  const LiveSurface m_live;
  bool m_overloaded = false;
};

Surface find_surface() {
  lua_State* L = luaL_newstate();
  math3d::InitLuaMath3d(L);
  open_probe(L);
  Surface surface;
  lua_settop(L, 0);
  walk_module(L, surface, "math3d");
  walk_module(L, surface, "probe");
  const auto by_name = [](const auto& a, const auto& b) { return a.name < b.name; };
  std::sort(surface.entries.begin(), surface.entries.end(), by_name);
  std::sort(surface.classes.begin(), surface.classes.end(), by_name);
  for (std::size_t i = 0; i < surface.entries.size(); ++i) {
    const Entry& entry = surface.entries[i];
    for (Class& c : surface.classes) {
      if (c.module == entry.module && c.name == entry.owner) {
        if (!entry.property.empty() && entry.key == "__index") {
          c.getters.push_back(static_cast<int>(i));
        } else if (entry.key == "new") {
          c.maker = static_cast<int>(i);
        } else if (entry.key == "__tostring") {
          c.text = static_cast<int>(i);
        }
      }
    }
  }
  Finder finder(L, surface);
  finder.find_makers();
  for (std::size_t i = 0; i < surface.entries.size(); ++i) {
    finder.find_calls(static_cast<int>(i));
  }
  finder.prefer_longer_makers();
  lua_close(L);
  return surface;
}

const char functions_key = 0;
const char classes_key = 0;

std::uint64_t mix(std::uint64_t a, std::uint64_t b) { return (a ^ b) * 0x9E3779B97F4A7C15U + (a >> 29U); }

}  // namespace

const Surface& Surface::get() {
  static const Surface surface = find_surface();
  return surface;
}

LiveSurface::LiveSurface(lua_State* L, const Surface& surface) : m_surface(surface) {
  const int top = lua_gettop(L);
  lua_createtable(L, static_cast<int>(surface.classes.size()), 0);
  for (std::size_t i = 0; i < surface.classes.size(); ++i) {
    lua_getglobal(L, surface.classes[i].module.c_str());
    lua_getfield(L, -1, surface.classes[i].name.c_str());
    m_tables.push_back(lua_topointer(L, -1));
    lua_rawseti(L, top + 1, static_cast<lua_Integer>(i));
    lua_settop(L, top + 1);
  }
  lua_rawsetp(L, LUA_REGISTRYINDEX, &classes_key);
  lua_createtable(L, static_cast<int>(surface.entries.size()), 0);
  for (std::size_t i = 0; i < surface.entries.size(); ++i) {
    const Entry& entry = surface.entries[i];
    lua_getglobal(L, entry.module.c_str());
    if (!entry.owner.empty()) {
      lua_getfield(L, -1, entry.owner.c_str());
    }
    lua_getfield(L, -1, entry.key.c_str());
    lua_rawseti(L, top + 1, static_cast<lua_Integer>(i));
    lua_settop(L, top + 1);
  }
  lua_rawsetp(L, LUA_REGISTRYINDEX, &functions_key);
}

void LiveSurface::push_function(lua_State* L, int entry) const {
  lua_rawgetp(L, LUA_REGISTRYINDEX, &functions_key);
  lua_rawgeti(L, -1, entry);
  lua_remove(L, -2);
}

void LiveSurface::push_class(lua_State* L, int number) const {
  lua_rawgetp(L, LUA_REGISTRYINDEX, &classes_key);
  lua_rawgeti(L, -1, number);
  lua_remove(L, -2);
}

void LiveSurface::push_value(lua_State* L, int number) const {
  luaL_checkstack(L, LUA_MINSTACK, nullptr);
  const Class& c = m_surface.classes[static_cast<std::size_t>(number)];
  push_function(L, c.maker);
  for (std::size_t i = 0; i < c.arguments.size(); ++i) {
    if (c.arguments[i] == kNumber) {
      lua_pushinteger(L, static_cast<lua_Integer>(i + 1));
    } else {
      push_argument(L, c.maker, c.arguments[i]);
    }
  }
  lua_call(L, static_cast<int>(c.arguments.size()), 1);
}

void LiveSurface::push_argument(lua_State* L, int entry, int candidate) const {
  switch (candidate) {
    case kKey:
      lua_pushstring(L, m_surface.entries[static_cast<std::size_t>(entry)].property.c_str());
      break;
    case kNumber:
      lua_pushinteger(L, 1);
      break;
    case kText:
      lua_pushliteral(L, "7,8,9");
      break;
    case kTrue:
      lua_pushboolean(L, 1);
      break;
    case kNil:
      lua_pushnil(L);
      break;
    default:
      push_value(L, candidate - kValues);
  }
}

int LiveSurface::call(lua_State* L, int entry, const std::vector<int>& arguments) const {
  luaL_checkstack(L, LUA_MINSTACK + static_cast<int>(arguments.size()), nullptr);
  push_function(L, entry);
  for (const int candidate : arguments) {
    push_argument(L, entry, candidate);
  }
  return lua_pcall(L, static_cast<int>(arguments.size()), LUA_MULTRET, 0);
}

int LiveSurface::class_of(lua_State* L, int index) const {
  if (lua_type(L, index) < LUA_TTABLE || lua_getmetatable(L, index) == 0) {
    return -1;
  }
  const auto found = std::find(m_tables.begin(), m_tables.end(), lua_topointer(L, -1));
  lua_pop(L, 1);
  return found == m_tables.end() ? -1 : static_cast<int>(found - m_tables.begin());
}

std::uint64_t LiveSurface::digest(lua_State* L, int index, bool raw) const {
  luaL_checkstack(L, 2 * LUA_MINSTACK, nullptr);
  return digest(L, lua_absindex(L, index), raw, 0);
}

std::uint64_t LiveSurface::digest(lua_State* L, int index, bool raw, int depth) const {
  const auto kind = static_cast<std::uint64_t>(lua_type(L, index));
  switch (lua_type(L, index)) {
    case LUA_TBOOLEAN:
      return mix(kind, static_cast<std::uint64_t>(lua_toboolean(L, index)));
    case LUA_TNUMBER:
      return mix(kind, std::bit_cast<std::uint64_t>(lua_tonumber(L, index)));
    case LUA_TSTRING:
      return mix(kind, std::hash<std::string_view>()(lua_tostring(L, index)));
    case LUA_TTABLE:
    case LUA_TUSERDATA:
      break;
    default:
      return kind;
  }
  std::uint64_t sum = kind;
  const int of_class = class_of(L, index);
  if (of_class >= 0) {
    const Class& c = m_surface.classes[static_cast<std::size_t>(of_class)];
    const auto add_call = [&](int entry) {
      push_function(L, entry);
      lua_pushvalue(L, index);
      lua_pushstring(L, m_surface.entries[static_cast<std::size_t>(entry)].property.c_str());
      sum = mix(sum, static_cast<std::uint64_t>(lua_pcall(L, 2, 1, 0)));
      sum = mix(sum, digest(L, lua_gettop(L), raw, depth + 1));
      lua_pop(L, 1);
    };
    add_call(c.text);
    if (depth == 0) {
      std::for_each(c.getters.begin(), c.getters.end(), add_call);
    }
  }
  if (raw && lua_istable(L, index) && depth < 3) {
    std::uint64_t fields = static_cast<std::uint64_t>(of_class);  // in any order
    for (lua_pushnil(L); lua_next(L, index) != 0; lua_pop(L, 1)) {
      fields += mix(digest(L, lua_gettop(L) - 1, raw, 3), digest(L, lua_gettop(L), raw, depth + 1));
    }
    sum = mix(sum, fields);
  }
  return sum;
}

}  // namespace zeph::test
