/// Modules, classes, functions and properties: how they are registered, and how a name is found on a value.
#include <zeph/platform/script_binding/class_register.h>
#include <zeph/platform/script_binding/zplua.h>

namespace {

using namespace zeph::binding;

constexpr int kClassUpvalue = 2;
constexpr int kAccessorsUpvalue = 3;

void* to_pointer(lua_CFunction function) { return reinterpret_cast<void*>(function); }
lua_CFunction to_function(void* pointer) { return reinterpret_cast<lua_CFunction>(pointer); }

/// `__index` of a class with properties: (value, name). First what the class table holds, then the properties, else
/// nil. Without properties it is the class table itself, which costs no call.
int index_value(lua_State* L) {
  lua_pushvalue(L, 2);
  if (lua_rawget(L, lua_upvalueindex(kClassUpvalue)) != LUA_TNIL) {
    return 1;
  }
  lua_pushvalue(L, 2);
  if (lua_rawget(L, lua_upvalueindex(kAccessorsUpvalue)) == LUA_TLIGHTUSERDATA) {
    return to_function(lua_touserdata(L, -1))(L);
  }
  return 1;
}

const char* upvalue_class_name(lua_State* L) {
  const ScriptState* state = zplua_upvaluestate(L);
  return class_info(slot_of_table(state, lua_topointer(L, lua_upvalueindex(kClassUpvalue)))).lua_name.c_str();
}

const char* key_text(lua_State* L, int index) {
  return lua_type(L, index) == LUA_TSTRING ? lua_tostring(L, index) : luaL_typename(L, index);
}

/// `__newindex` of every class: (value, name, new value). A property's setter; else a raw field of a table.
int assign_value(lua_State* L) {
  // Lua itself passes three.
  if (lua_gettop(L) != 3) {
    lua_settop(L, 3);
  }
  lua_pushvalue(L, 2);
  const int kind = lua_rawget(L, lua_upvalueindex(kAccessorsUpvalue));
  if (kind == LUA_TLIGHTUSERDATA) {
    return to_function(lua_touserdata(L, -1))(L);
  }
  if (kind == LUA_TBOOLEAN) {
    return luaL_error(L, "property '%s' of %s is read-only", key_text(L, 2), upvalue_class_name(L));
  }
  // Only a value of the class: the entry is no way round the metatable of another table.
  if (!lua_istable(L, 1) || lua_getmetatable(L, 1) == 0 ||
      lua_topointer(L, -1) != lua_topointer(L, lua_upvalueindex(kClassUpvalue))) {
    return luaL_error(L, "%s has no property '%s' to assign to", upvalue_class_name(L), key_text(L, 2));
  }
  lua_settop(L, 3);
  lua_rawset(L, 1);
  return 0;
}

void set_access_function(lua_State* L, const char* name, lua_CFunction function, int accessors, int extra_from,
                         int extra_count) {
  const int class_index = extra_from - 1;
  const ScriptState* state = zplua_state(L);
  lua_pushstring(L, name);
  push_state(L);
  lua_pushvalue(L, class_index);
  push_hidden(L, state, slot_of_table(state, lua_topointer(L, class_index)));
  lua_rawgeti(L, -1, accessors);
  lua_remove(L, -2);
  for (int i = 0; i < extra_count; ++i) {
    lua_pushvalue(L, extra_from + i);
  }
  lua_pushcclosure(L, function, 3 + extra_count);
  lua_rawset(L, class_index);
}

/// Copies what the table at `from` holds into the one at `to`, both absolute indices.
void copy_entries(lua_State* L, int from, int to) {
  lua_pushnil(L);
  while (lua_next(L, from) != 0) {
    lua_pushvalue(L, -2);
    lua_insert(L, -2);
    lua_rawset(L, to);
  }
}

/// Makes the hidden table of a new class, with the properties of its base.
void make_hidden(lua_State* L, const ScriptState* state, unsigned slot, unsigned base) {
  lua_createtable(L, 2, 0);
  const int hidden = lua_gettop(L);
  for (const int accessors : {kGetters, kSetters}) {
    lua_createtable(L, 0, 0);
    if (base < kMaxScriptClasses) {
      push_hidden(L, state, base);
      lua_rawgeti(L, -1, accessors);
      copy_entries(L, hidden + 3, hidden + 1);
      lua_settop(L, hidden + 1);
    }
    lua_rawseti(L, hidden, accessors);
  }
  lua_rawsetp(L, LUA_REGISTRYINDEX, &state->metatable[slot]);
}

/// False until the class's tables and access functions all stand; making a class may end in a memory error anywhere.
bool is_complete(lua_State* L, const ScriptState* state, unsigned slot) {
  const int top = lua_gettop(L);
  push_hidden(L, state, slot);
  const bool complete = lua_istable(L, -1) && lua_rawgeti(L, -1, kComplete) == LUA_TBOOLEAN;
  lua_settop(L, top);
  return complete;
}

}  // namespace

void zplua_initmodule(lua_State* L, const char* name) {
  zplua_state(L);
  luaL_getsubtable(L, LUA_REGISTRYINDEX, "zplua_modules");
  lua_pushstring(L, name);
  if (lua_rawget(L, -2) != LUA_TTABLE) {
    lua_pop(L, 1);
    lua_createtable(L, 0, 128);
    lua_pushstring(L, name);
    lua_pushvalue(L, -2);
    lua_rawset(L, -4);
  }
  lua_remove(L, -2);
  // Raw: a host's guard against new globals has no say in this one.
  lua_rawgeti(L, LUA_REGISTRYINDEX, LUA_RIDX_GLOBALS);
  lua_pushstring(L, name);
  lua_pushvalue(L, -3);
  lua_rawset(L, -3);
  lua_pop(L, 1);
  if (lua_getfield(L, LUA_REGISTRYINDEX, "_LOADED") == LUA_TTABLE) {
    lua_pushstring(L, name);
    lua_pushvalue(L, -3);
    lua_rawset(L, -3);
  }
  lua_pop(L, 1);
}

void zplua_beginmodule(lua_State* L, const char* name) {
  luaL_checkstack(L, LUA_MINSTACK, name);
  lua_pushstring(L, name);
  lua_rawget(L, -2);
}

void zplua_endmodule(lua_State* L, const char*) { lua_pop(L, 1); }

void zplua_classtable(lua_State* L, const char* cls_name) {
  lua_pushstring(L, cls_name);
  if (lua_rawget(L, LUA_REGISTRYINDEX) == LUA_TTABLE) {
    return;
  }
  lua_pop(L, 1);
  lua_createtable(L, 0, 32);
  lua_pushstring(L, cls_name);
  lua_pushvalue(L, -2);
  lua_rawset(L, LUA_REGISTRYINDEX);
}

void zplua_cclass(lua_State* L, const char* lua_name, const char* cls_name, const char* base) {
  luaL_checkstack(L, LUA_MINSTACK, cls_name);
  const int module = lua_gettop(L);
  ScriptState* state = zplua_state(L);
  const unsigned slot = zplua_classslot(cls_name);
  const unsigned base_slot = *base == '\0' ? kMaxScriptClasses : zplua_classslot(base);
  if (slot == kMaxScriptClasses) {
    luaL_error(L, "too many script classes: no room for %s", cls_name);
  }
  zplua_classtable(L, cls_name);
  const int table = module + 1;
  if (base_slot < kMaxScriptClasses) {
    if (state->metatable[base_slot] == nullptr) {
      luaL_error(L, "class %s is derived from %s, which is not registered", cls_name, base);
    }
    zplua_classtable(L, base);
    copy_entries(L, table + 1, table);
    lua_settop(L, table);
  }
  describe_class(slot, lua_name, base_slot);
  if (!is_complete(L, state, slot)) {
    make_hidden(L, state, slot, base_slot);
    state->metatable[slot] = lua_topointer(L, table);
    if (base_slot < kMaxScriptClasses) {
      set_access_function(L, "__index", index_value, kGetters, table + 1, 0);
    } else {
      lua_pushliteral(L, "__index");
      lua_pushvalue(L, table);
      lua_rawset(L, table);
    }
    set_access_function(L, "__newindex", assign_value, kSetters, table + 1, 0);
    push_hidden(L, state, slot);
    lua_pushboolean(L, 1);
    lua_rawseti(L, -2, kComplete);
    lua_pop(L, 1);
  }
  lua_pushstring(L, lua_name);
  lua_insert(L, -2);
  lua_rawset(L, module);
}

void zplua_remodule(lua_State* L, const char* name, const char* alias) {
  lua_pushstring(L, alias);
  lua_pushstring(L, name);
  lua_rawget(L, -3);
  lua_rawset(L, -3);
}

void zplua_function(lua_State* L, const char* name, lua_CFunction function, int upvalues) {
  luaL_checkstack(L, LUA_MINSTACK, name);
  push_state(L);
  lua_insert(L, -upvalues - 1);
  lua_pushcclosure(L, function, upvalues + 1);
  lua_pushstring(L, name);
  lua_insert(L, -2);
  lua_rawset(L, -3);
}

void zplua_variable(lua_State* L, const char* name, lua_CFunction getter, lua_CFunction setter) {
  luaL_checkstack(L, LUA_MINSTACK, name);
  const int table = lua_gettop(L);
  const ScriptState* state = zplua_state(L);
  const unsigned slot = slot_of_table(state, lua_topointer(L, table));
  if (slot == kMaxScriptClasses) {
    luaL_error(L, "property '%s' needs an open class", name);
  }
  lua_pushliteral(L, "__index");
  if (lua_rawget(L, table) == LUA_TTABLE) {
    set_access_function(L, "__index", index_value, kGetters, table + 1, 0);
  }
  lua_settop(L, table);
  push_hidden(L, state, slot);
  for (const int accessors : {kGetters, kSetters}) {
    lua_rawgeti(L, table + 1, accessors);
    lua_pushstring(L, name);
    if (const lua_CFunction accessor = accessors == kGetters ? getter : setter) {
      lua_pushlightuserdata(L, to_pointer(accessor));
    } else {
      lua_pushboolean(L, 0);
    }
    lua_rawset(L, -3);
  }
  lua_settop(L, table);
}

void zplua_accessorvalues(lua_State* L, int upvalues) {
  luaL_checkstack(L, upvalues + LUA_MINSTACK, "accessors");
  const int first = lua_gettop(L) - upvalues + 1;
  set_access_function(L, "__index", index_value, kGetters, first, upvalues);
  set_access_function(L, "__newindex", assign_value, kSetters, first, upvalues);
  lua_settop(L, first - 1);
}
