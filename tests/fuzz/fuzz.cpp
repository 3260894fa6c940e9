/// Turns bytes into a sequence of script calls over everything that scripts can reach, for libFuzzer.
///
/// One input is one Lua state. Values live in a pool of slots, the first of which hold a value of each class; calls
/// take them from there, so that they are shared and aliased, and put results back. Besides, the input removes and
/// replaces fields, swaps and forges metatables, writes into class tables, collects, lets memory run out, and calls
/// back into itself from finalizers, metamethods and replaced entries. In the end everything is as if nothing had
/// happened: values that the input had no hand on are unchanged, the module works, and closing the state leaks nothing.
///
/// Environment: MATH3D_FUZZ_COUNTS names a file for the count of successes and failures of each entry; with
/// MATH3D_FUZZ_TRACE the calls are told on standard error.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include <zeph/binding/builtin_objects.h>
#include <zeph/math3d.h>

#include "allocator.h"
#include "probe.h"
#include "surface.h"

namespace {

using namespace zeph;
using test::Surface;

constexpr int kSlots = 48;
constexpr int kDeepest = 4;  ///< calls of callbacks inside one another
/// In bytes. An input that joins a string with itself again and again comes to the end of memory here, and not at the
/// end of the machine's.
constexpr std::size_t kLargestBlock = 1U << 18U;

const Surface& surface() { return Surface::get(); }
const bool g_trace = std::getenv("MATH3D_FUZZ_TRACE") != nullptr;

/// How often each entry passed and failed; written to a file in the end.
struct Counts {
  std::vector<unsigned long long> passed = std::vector<unsigned long long>(surface().entries.size());
  std::vector<unsigned long long> failed = passed;
  unsigned long long inputs = 0;

  Counts() = default;
  Counts(const Counts&) = delete;
  Counts& operator=(const Counts&) = delete;
  ~Counts() {
    const char* name = std::getenv("MATH3D_FUZZ_COUNTS");
    std::FILE* file = name != nullptr ? std::fopen(name, "w") : nullptr;
    if (file == nullptr) {
      return;
    }
    std::fprintf(file, "%llu 0 inputs\n", inputs);
    for (std::size_t i = 0; i < passed.size(); ++i) {
      std::fprintf(file, "%llu %llu %s\n", passed[i], failed[i], surface().entries[i].name.c_str());
    }
    std::fclose(file);
  }
};

Counts& counts() {
  static Counts counts;
  return counts;
}

[[noreturn]] void fail(const char* what, const std::string& detail = {}) {
  std::fprintf(stderr, "fuzz: %s%s\n", what, detail.c_str());
  std::abort();
}

/// Bytes to take from the front; zeros behind their end.
struct Input {
  const unsigned char* at;
  const unsigned char* end;

  [[nodiscard]] bool done() const { return at == end; }
  unsigned byte() { return at == end ? 0U : *at++; }
  int below(std::size_t limit) {
    unsigned value = byte();
    if (limit > 256) {
      value = value << 8U | byte();
    }
    return static_cast<int>(value % limit);
  }
};

/// Names that values and classes answer to, and some that none does.
const std::vector<std::string>& keys() {
  static const std::vector<std::string> names = [] {
    std::vector<std::string> all = {"__mode", "__metatable", "__name", "__len", "__close", "__dummy_type", "no", ""};
    for (const test::Entry& entry : surface().entries) {
      all.push_back(entry.property.empty() ? entry.key : entry.property);
    }
    lua_State* L = luaL_newstate();  // the fields of tables
    math3d::InitLuaMath3d(L);
    test::open_probe(L);
    const test::LiveSurface live(L, surface());
    for (std::size_t i = 0; i < surface().classes.size(); ++i) {
      live.push_value(L, static_cast<int>(i));
      if (lua_istable(L, -1)) {
        for (lua_pushnil(L); lua_next(L, -2) != 0; lua_pop(L, 1)) {
          all.insert(all.end(), 8, lua_tostring(L, -2));
        }
      }
      lua_settop(L, 0);
    }
    lua_close(L);
    return all;
  }();
  return names;
}

const char pool_key = 0;
const char sentinels_key = 0;
const char originals_key = 0;

class Session {
 public:
  explicit Session(Input input);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  ~Session();

  void run();

 private:
  static int run_one(lua_State* L);
  static int call_back(lua_State* L);
  void step(lua_State* L);

  // Each leaves one value.
  void push_slot(lua_State* L, int slot);
  void push_value(lua_State* L);
  void push_number(lua_State* L);
  void push_text(lua_State* L);
  void push_thing(lua_State* L);
  void push_key(lua_State* L);
  void push_metatable(lua_State* L);
  void keep(lua_State* L);

  void call_as_it_likes(lua_State* L);
  void call_with_anything(lua_State* L);
  void call_method(lua_State* L);
  void finish_call(lua_State* L, int entry, int count, unsigned how);
  int protect(lua_State* L, int count, unsigned how);
  void operate(lua_State* L);
  void write_field(lua_State* L);
  void change_metatable(lua_State* L);
  void write_class(lua_State* L);
  void collect(lua_State* L);
  void talk_to_host(lua_State* L);

  void save_classes(lua_State* L);
  void restore_classes();
  void check();

  Input m_input;
  test::Allocator m_allocator;
  const int m_live_before = test::LuaProbe::live;
  lua_State* const m_main;
  std::unique_ptr<test::LiveSurface> m_live;
  std::array<binding::AutoRef<binding::Object>, 8> m_handles;
  int m_depth = 0;
  bool m_classes_saved = false;
  bool m_finalizers_lost = false;  ///< a userdata or a class has other metamethods than it came with
  bool m_closing = false;
};

Session* g_session = nullptr;

Session::Session(Input input) : m_input(input), m_main(lua_newstate(&test::Allocator::allocate, &m_allocator)) {
  lua_State* const L = m_main;
  g_session = this;
  m_allocator.largest_block = kLargestBlock;
  luaL_requiref(L, "io", luaopen_io, 0);
#if LUA_VERSION_NUM >= 504
  if (g_trace) {
    lua_setwarnf(
        L, [](void*, const char* text, int) { std::fprintf(stderr, "warning: %s\n", text); }, nullptr);
  }
#endif
  math3d::InitLuaMath3d(L);
  test::open_probe(L);
  lua_settop(L, 0);
  m_live = std::make_unique<test::LiveSurface>(L, surface());

  const int classes = static_cast<int>(surface().classes.size());
  lua_createtable(L, kSlots, 0);
  lua_createtable(L, classes, 0);
  for (int i = 0; i < kSlots; ++i) {
    if (i < classes) {
      m_live->push_value(L, i);
      lua_rawseti(L, 2, i);
    }
    if (i < 2 * classes) {
      m_live->push_value(L, i % classes);
    } else {
      lua_pushinteger(L, i);
    }
    lua_rawseti(L, 1, i);
  }
  lua_rawsetp(L, LUA_REGISTRYINDEX, &sentinels_key);
  lua_rawsetp(L, LUA_REGISTRYINDEX, &pool_key);
}

Session::~Session() {
  m_closing = true;
  lua_close(m_main);
  if (m_allocator.bytes != 0) {
    fail("the closed state left memory behind");
  }
  m_handles = {};
  if (!m_finalizers_lost && test::LuaProbe::live != m_live_before) {
    fail("native objects outlived their state");
  }
  g_session = nullptr;
}

void Session::run() {
  for (int steps = 0; !m_input.done() && steps < 1000; ++steps) {
    lua_pushcfunction(m_main, run_one);
    lua_pcall(m_main, 0, 0, 0);
    lua_settop(m_main, 0);
  }
  m_input.at = m_input.end;
  check();
}

int Session::run_one(lua_State* L) {
  g_session->step(L);
  return 0;
}

/// A finalizer, metamethod or entry that a script wrote: the next step of the input, then one of its values.
int Session::call_back(lua_State* L) {
  Session& self = *g_session;
  if (self.m_depth >= kDeepest || self.m_input.done() || self.m_closing) {
    return 0;
  }
  ++self.m_depth;
  lua_settop(L, 3);
  lua_pushcfunction(L, run_one);
  lua_pcall(L, 0, 0, 0);
  --self.m_depth;
  self.push_value(L);
  return 1;
}

void Session::push_slot(lua_State* L, int slot) {
  lua_rawgetp(L, LUA_REGISTRYINDEX, &pool_key);
  lua_rawgeti(L, -1, slot);
  lua_remove(L, -2);
}

/// Pops a value into a slot.
void Session::keep(lua_State* L) {
  const int slot = m_input.below(kSlots);
  lua_rawgetp(L, LUA_REGISTRYINDEX, &pool_key);
  lua_insert(L, -2);
  lua_rawseti(L, -2, slot);
  lua_pop(L, 1);
}

void Session::push_number(lua_State* L) {
  using Limits = std::numeric_limits<double>;
  static constexpr double kNumbers[] = {0.0,
                                        -0.0,
                                        Limits::infinity(),
                                        -Limits::infinity(),
                                        Limits::quiet_NaN(),
                                        1e308,
                                        5e-324,
                                        1e-45,
                                        3.4028236e38,
                                        1e20,
                                        255,
                                        256,
                                        0.5,
                                        -1e-7,
                                        3.1415927410125732,
                                        9007199254740993.0,
                                        -2147483649.0,
                                        16.5};
  static constexpr lua_Integer kIntegers[] = {0, 1, 2, 3, 4, 5, 15, 16, -1, 255, 256, 2147483648, 0x7FFFFFFFFFFFFFFF};
  switch (m_input.below(4)) {
    case 0:
      lua_pushnumber(L, kNumbers[m_input.below(std::size(kNumbers))]);
      break;
    case 1:
      lua_pushinteger(L, kIntegers[m_input.below(std::size(kIntegers))]);
      break;
    case 2:
      lua_pushinteger(L, static_cast<signed char>(m_input.byte()));
      break;
    default: {
      unsigned char bytes[4];
      std::generate(std::begin(bytes), std::end(bytes), [&] { return static_cast<unsigned char>(m_input.byte()); });
      float number = 0.0F;
      std::memcpy(&number, bytes, sizeof number);
      lua_pushnumber(L, static_cast<lua_Number>(number));
    }
  }
}

void Session::push_text(lua_State* L) {
  static constexpr const char* kTexts[] = {"",    "1.5",   "1,2,3", "1,2,3,4", " 0x10 ", "-inf,nan,1e999",
                                           "nan", "1e999", "x"};
  switch (m_input.below(4)) {
    case 0:
    case 1:
      lua_pushstring(L, kTexts[m_input.below(std::size(kTexts))]);
      break;
    case 2: {
      char bytes[32];
      const auto size = static_cast<std::size_t>(m_input.below(sizeof bytes));
      std::generate_n(bytes, size, [&] { return static_cast<char>(m_input.byte()); });
      lua_pushlstring(L, bytes, size);
      break;
    }
    default: {
      luaL_Buffer buffer;  // long: digits, or one character
      luaL_buffinit(L, &buffer);
      const char filling = "19, .-e\0"[m_input.below(8)];
      for (unsigned size = m_input.byte() * 8; size > 0; --size) {
        luaL_addchar(&buffer, filling);
      }
      luaL_pushresult(&buffer);
    }
  }
}

/// Something that is no value of the modules: other libraries' things, and forgeries.
void Session::push_thing(lua_State* L) {
  switch (m_input.below(8)) {
    case 0:
      lua_newtable(L);
      break;
    case 1: {  // a table that claims to be of a class, with none or some of its fields
      lua_newtable(L);
      for (int fields = m_input.below(5); fields > 0; --fields) {
        lua_pushstring(L, keys()[static_cast<std::size_t>(m_input.below(keys().size()))].c_str());
        push_value(L);
        lua_rawset(L, -3);
      }
      m_live->push_class(L, m_input.below(surface().classes.size()));
      lua_setmetatable(L, -2);
      break;
    }
    case 2: {  // another library's userdata, of any length and content
      const auto size = static_cast<std::size_t>(m_input.below(80));
      auto* bytes = static_cast<unsigned char*>(lua_newuserdatauv(L, size, 1));
      std::memset(bytes, static_cast<int>(m_input.byte()), size);
      push_metatable(L);
      if (lua_isnil(L, -1)) {
        lua_pop(L, 1);
      } else {
        lua_setmetatable(L, -2);
      }
      break;
    }
    case 3:
      lua_getfield(L, LUA_REGISTRYINDEX, "_LOADED");
      lua_getfield(L, -1, "io");
      lua_getfield(L, -1, "stderr");
      lua_replace(L, -3);
      lua_pop(L, 1);
      break;
    case 4:
      lua_newthread(L);
      break;
    case 5:
      lua_pushlightuserdata(L, m_input.byte() % 2 == 0 ? nullptr : this);
      break;
    case 6:
      lua_pushcfunction(L, call_back);
      break;
    default:
      m_live->push_function(L, m_input.below(surface().entries.size()));
  }
}

void Session::push_value(lua_State* L) {
  luaL_checkstack(L, 2 * LUA_MINSTACK, nullptr);
  switch (m_input.below(16)) {
    case 8:
    case 9:
    case 10:
      push_number(L);
      break;
    case 11:
      push_text(L);
      break;
    case 12:
      push_thing(L);
      break;
    case 13:
      m_live->push_class(L, m_input.below(surface().classes.size()));
      break;
    case 14:
      m_live->push_value(L, m_input.below(surface().classes.size()));
      break;
    case 15:
      if (const int kind = m_input.below(3); kind == 2) {
        lua_pushnil(L);
      } else {
        lua_pushboolean(L, kind);
      }
      break;
    default:
      push_slot(L, m_input.below(kSlots));
  }
}

void Session::push_key(lua_State* L) {
  if (m_input.below(8) == 0) {
    push_value(L);
  } else {
    lua_pushstring(L, keys()[static_cast<std::size_t>(m_input.below(keys().size()))].c_str());
  }
}

/// A class table, a copy of one, a table of the script's own with callbacks, or nil.
void Session::push_metatable(lua_State* L) {
  const int kind = m_input.below(8);
  if (kind < 4) {
    m_live->push_class(L, m_input.below(surface().classes.size()));
    return;
  }
  if (kind == 4) {
    lua_pushnil(L);
    return;
  }
  lua_newtable(L);
  const int made = lua_gettop(L);
  if (kind == 5) {
    m_live->push_class(L, m_input.below(surface().classes.size()));
    for (lua_pushnil(L); lua_next(L, made + 1) != 0;) {
      lua_pushvalue(L, -2);
      lua_insert(L, -2);
      lua_rawset(L, made);
    }
    lua_settop(L, made);
  }
  static constexpr const char* kEvents[] = {"__gc",       "__index",    "__newindex", "__eq",
                                            "__asstring", "__tostring", "__len"};
  for (const char* event : kEvents) {
    if (m_input.below(2) == 1) {
      lua_pushcfunction(L, call_back);
      lua_setfield(L, made, event);
    }
  }
}

/// An entry with a list of arguments that fits; all of them from the pool where a value is needed, one of them
/// replaced, one too few or too many, as the input wants it.
void Session::call_as_it_likes(lua_State* L) {
  const int number = m_input.below(surface().entries.size());
  const test::Entry& entry = surface().entries[static_cast<std::size_t>(number)];
  const unsigned how = m_input.byte();
  if (entry.calls.empty()) {
    return;
  }
  const auto& list = entry.calls[static_cast<std::size_t>(m_input.below(entry.calls.size()))];
  const int replaced = (how & 1U) != 0 ? m_input.below(list.size() + 1) : -1;
  luaL_checkstack(L, 2 * LUA_MINSTACK, nullptr);
  m_live->push_function(L, number);
  int count = 0;
  for (const int candidate : list) {
    if (count++ == replaced) {
      push_value(L);
    } else if (candidate >= test::kValues && (how & 2U) == 0) {
      push_slot(L, candidate - test::kValues);
    } else if (candidate == test::kNumber && (how & 4U) != 0) {
      push_number(L);
    } else {
      m_live->push_argument(L, number, candidate);
    }
  }
  if (replaced == count) {
    push_value(L);
    ++count;
  }
  finish_call(L, number, count, how >> 3U);
}

void Session::call_with_anything(lua_State* L) {
  const int number = m_input.below(surface().entries.size());
  const unsigned how = m_input.byte();
  const int count = m_input.below(8);
  luaL_checkstack(L, 2 * LUA_MINSTACK, nullptr);
  m_live->push_function(L, number);
  for (int i = 0; i < count; ++i) {
    push_value(L);
  }
  finish_call(L, number, count, how);
}

/// As `value:name(...)` and `value(...)` do.
void Session::call_method(lua_State* L) {
  push_value(L);
  const unsigned how = m_input.byte();
  if ((how & 1U) != 0) {
    push_key(L);
    lua_gettable(L, -2);
    lua_insert(L, -2);
  } else {
    push_value(L);
  }
  const int count = m_input.below(4);
  for (int i = 0; i < count; ++i) {
    push_value(L);
  }
  finish_call(L, -1, count + 1, how >> 1U);
}

void Session::finish_call(lua_State* L, int entry, int count, unsigned how) {
  const int first = lua_gettop(L) - count;
  if (g_trace) {
    std::fprintf(stderr, "%*s%s(", 2 * m_depth, "",
                 entry < 0 ? "?" : surface().entries[static_cast<std::size_t>(entry)].name.c_str());
    for (int i = 1; i <= count; ++i) {
      const int of_class = m_live->class_of(L, first + i);
      std::fprintf(stderr, "%s%s", i > 1 ? ", " : "",
                   of_class < 0 ? luaL_typename(L, first + i)
                                : surface().classes[static_cast<std::size_t>(of_class)].name.c_str());
    }
    std::fprintf(stderr, ")%s\n", (how & 1U) != 0 ? " in a coroutine" : "");
  }
  const bool passed = protect(L, count, how) == LUA_OK;
  if (g_trace && !passed) {
    std::fprintf(stderr, "%*s  error: %s\n", 2 * m_depth, "", lua_isstring(L, -1) ? lua_tostring(L, -1) : "?");
  }
  if (entry >= 0) {
    ++(passed ? counts().passed : counts().failed)[static_cast<std::size_t>(entry)];
  }
  if (passed && lua_gettop(L) >= first && (how & 6U) == 6) {
    lua_settop(L, first);
    keep(L);
  }
}

/// As lua_pcall for all results; in a new coroutine, collecting at each allocation or out of memory, as the input
/// wants.
int Session::protect(lua_State* L, int count, unsigned how) {
  int status = LUA_OK;
  lua_State* coroutine = nullptr;
  const int function = lua_gettop(L) - count;
  if ((how & 1U) != 0) {
    coroutine = lua_newthread(L);
    lua_insert(L, function);
    lua_xmove(L, coroutine, count + 1);
  }
  const unsigned memory = m_input.byte();
  m_allocator.collect_every = memory >= 252 ? 1 : 0;
  if (memory >= 220 && memory < 252) {
    m_allocator.fail_at = static_cast<long>(memory - 220) / 2;
  }
  if (g_trace && memory >= 220) {
    std::fprintf(stderr, "%*s  %s\n", 2 * m_depth, "", m_allocator.collect_every != 0 ? "collecting" : "out of memory");
  }
  if (coroutine != nullptr) {
    int results = 0;
#if LUA_VERSION_NUM >= 504
    status = lua_resume(coroutine, L, count, &results);
#else
    status = lua_resume(coroutine, L, count);
    results = lua_gettop(coroutine);
#endif
    m_allocator.fail_at = -1;
    m_allocator.collect_every = 0;
    results = status == LUA_OK ? results : 1;
    luaL_checkstack(L, results + LUA_MINSTACK, nullptr);
    lua_xmove(coroutine, L, results);
    lua_remove(L, function);
  } else {
    status = lua_pcall(L, count, LUA_MULTRET, 0);
  }
  m_allocator.fail_at = -1;
  m_allocator.collect_every = 0;
  return status;
}

/// What scripts write as an operator, `#`, `..` or `tostring`.
void Session::operate(lua_State* L) {
  const int operation = m_input.below(22);
  push_value(L);
  push_value(L);
  if (operation < 14) {
    if (operation == LUA_OPUNM || operation == LUA_OPBNOT) {
      lua_pop(L, 1);
    }
    lua_arith(L, operation);
  } else if (operation < 17) {
    lua_pushboolean(L, lua_compare(L, -2, -1, operation - 14));
  } else if (operation == 17) {
    lua_concat(L, 2);
  } else if (operation == 18) {
    lua_len(L, -1);
  } else {
    luaL_tolstring(L, -1, nullptr);
  }
  keep(L);
}

void Session::write_field(lua_State* L) {
  push_value(L);
  if (lua_istable(L, -1)) {
    save_classes(L);
  }
  push_key(L);
  push_value(L);
  if (m_input.below(2) == 0 && lua_istable(L, -3)) {
    lua_rawset(L, -3);
  } else {
    lua_settable(L, -3);
  }
}

void Session::change_metatable(lua_State* L) {
  push_slot(L, m_input.below(kSlots));
  const int type = lua_type(L, -1);
  if (type != LUA_TTABLE && type != LUA_TUSERDATA) {
    return;
  }
  save_classes(L);
  m_finalizers_lost = m_finalizers_lost || type == LUA_TUSERDATA;
  push_metatable(L);
  lua_setmetatable(L, -2);
}

void Session::write_class(lua_State* L) {
  save_classes(L);
  m_finalizers_lost = true;
  m_live->push_class(L, m_input.below(surface().classes.size()));
  if (m_input.below(8) == 0) {
    push_metatable(L);
    lua_setmetatable(L, -2);
    return;
  }
  push_key(L);
  if (m_input.below(2) == 0) {
    lua_pushcfunction(L, call_back);
  } else {
    push_value(L);
  }
  lua_rawset(L, -3);
}

void Session::collect(lua_State* L) {
  switch (m_input.below(8)) {
    case 0:
    case 1:
      lua_gc(L, LUA_GCCOLLECT, 0);
      break;
#if LUA_VERSION_NUM >= 504
    case 2:
      lua_gc(L, LUA_GCGEN, 0, 0);
      break;
    case 3:
      lua_gc(L, LUA_GCINC, 100, 400, 8);
      break;
#endif
    case 4:
      lua_gc(L, LUA_GCSTOP, 0);
      break;
    case 5:
      lua_gc(L, LUA_GCRESTART, 0);
      break;
    default:
      lua_gc(L, LUA_GCSTEP, m_input.below(64));
  }
}

/// What native code of the host does with values that it is handed: keeps them, gives them back, lets go.
void Session::talk_to_host(lua_State* L) {
  auto& handle = m_handles[static_cast<std::size_t>(m_input.below(m_handles.size()))];
  switch (m_input.below(4)) {
    case 0:
    case 1: {
      push_value(L);
      binding::Object* object = binding::Object::Unboxing(L, -1);
      handle = object;
      break;
    }
    case 2:
      if (binding::Object::Boxing(L, handle, m_input.below(2) == 1) > 0) {
        keep(L);
      }
      break;
    default:
      handle = nullptr;
  }
}

void Session::step(lua_State* L) {
  luaL_checkstack(L, 2 * LUA_MINSTACK, nullptr);
  switch (const int what = m_input.below(32)) {
    default:
      call_as_it_likes(L);
      break;
    case 16:
    case 17:
    case 18:
      call_with_anything(L);
      break;
    case 19:
    case 20:
      operate(L);
      break;
    case 21:
    case 22:
      call_method(L);
      break;
    case 23:
      push_value(L);
      push_key(L);
      lua_gettable(L, -2);
      keep(L);
      break;
    case 24:
    case 25:
      write_field(L);
      break;
    case 26:
      change_metatable(L);
      break;
    case 27:
      write_class(L);
      break;
    case 28:
      collect(L);
      break;
    case 29:
      talk_to_host(L);
      break;
    case 30:
    case 31:
      push_value(L);
      keep(L);
      if (what == 31 && m_input.below(32) == 31) {
        math3d::InitLuaMath3d(L);
      }
  }
}

/// Copies the class tables before a script may write into one of them for the first time.
void Session::save_classes(lua_State* L) {
  if (m_classes_saved) {
    return;
  }
  const int top = lua_gettop(L);
  const int classes = static_cast<int>(surface().classes.size());
  lua_createtable(L, classes, 0);
  for (int i = 0; i < classes; ++i) {
    lua_createtable(L, 0, 64);
    m_live->push_class(L, i);
    for (lua_pushnil(L); lua_next(L, top + 3) != 0;) {
      lua_pushvalue(L, -2);
      lua_insert(L, -2);
      lua_rawset(L, top + 2);
    }
    lua_pop(L, 1);
    lua_rawseti(L, top + 1, i);
  }
  lua_rawsetp(L, LUA_REGISTRYINDEX, &originals_key);
  m_classes_saved = true;
}

void Session::restore_classes() {
  if (!m_classes_saved) {
    return;
  }
  lua_State* const L = m_main;
  lua_rawgetp(L, LUA_REGISTRYINDEX, &originals_key);
  for (int i = 0; i < static_cast<int>(surface().classes.size()); ++i) {
    m_live->push_class(L, i);
    lua_pushnil(L);
    lua_setmetatable(L, 2);
    for (lua_pushnil(L); lua_next(L, 2) != 0;) {
      lua_pop(L, 1);
      lua_pushvalue(L, -1);
      lua_pushnil(L);
      lua_rawset(L, 2);
    }
    lua_rawgeti(L, 1, i);
    for (lua_pushnil(L); lua_next(L, 3) != 0;) {
      lua_pushvalue(L, -2);
      lua_insert(L, -2);
      lua_rawset(L, 2);
    }
    lua_settop(L, 1);
  }
  lua_settop(L, 0);
}

/// Nothing that the input had no hand on has changed, and the module works.
void Session::check() {
  lua_State* const L = m_main;
  lua_gc(L, LUA_GCRESTART, 0);
  restore_classes();
  static std::vector<std::uint64_t> expected;
  lua_rawgetp(L, LUA_REGISTRYINDEX, &sentinels_key);
  for (std::size_t i = 0; i < surface().classes.size(); ++i) {
    lua_rawgeti(L, 1, static_cast<lua_Integer>(i));
    const std::uint64_t digest = m_live->digest(L, -1, true);
    if (expected.size() <= i) {
      expected.push_back(digest);
    } else if (expected[i] != digest) {
      fail("a value that nobody touched has changed: ", surface().classes[i].name);
    }
  }
  lua_settop(L, 0);
  static std::size_t next = 0;
  for (int i = 0; i < 4; ++i) {
    next = (next + 1) % surface().entries.size();
    const test::Entry& entry = surface().entries[next];
    if (!entry.calls.empty() && m_live->call(L, static_cast<int>(next), entry.calls.front()) != LUA_OK) {
      fail("does not work any more: ", entry.name + ": " + luaL_tolstring(L, -1, nullptr));
    }
    lua_settop(L, 0);
  }
}

}  // namespace

// Freed memory is kept from use for a while by the sanitizer: enough for many inputs, and it stays in the cache.
// Without a stack of their own for signals, errors of Lua take no system call.
extern "C" const char* __asan_default_options() {
  return "quarantine_size_mb=16:malloc_context_size=6:use_sigaltstack=0";
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  ++counts().inputs;
  static const bool warm = [] {
    keys();
    Session(Input{nullptr, nullptr}).run();
    return true;
  }();
  static_cast<void>(warm);
  Session session(Input{data, data + size});
  session.run();
  return 0;
}
