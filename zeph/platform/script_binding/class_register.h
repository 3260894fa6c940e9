/// What the parts of this layer share about classes; not installed.
#pragma once

#include <string>

#include <zeph/platform/script_binding/script_state.h>

namespace zeph::binding {

/// A class as the process knows it.
struct ClassInfo {
  std::string cls_name;
  std::string lua_name;
  unsigned base = kMaxScriptClasses;
};

/// By slot; the place behind the last is an empty class.
const ClassInfo& class_info(unsigned slot);
/// Notes the names that a class is registered under.
void describe_class(unsigned slot, const char* lua_name, unsigned base);

/// The slot whose class table is `table` in this state, kMaxScriptClasses if there is none.
unsigned slot_of_table(const ScriptState* state, const void* table);
/// The class of the value at `index`: of a table by its metatable, of a userdata only while its object lives.
unsigned slot_of_value(lua_State* L, int index, const ScriptState* state);
/// As slot_of_value, but a class table counts as its own class.
unsigned slot_of_value_or_class(lua_State* L, int index, const ScriptState* state);
/// The head of a userdata of this layer, whether its object lives or not; null for anything else.
ObjectSlot* object_slot(lua_State* L, int index, const ScriptState* state);
/// Of the head of a userdata: is there a value and no object?
bool holds_bare_value(const ScriptState* state, const ObjectSlot* place);
/// Is there a value or an object?
bool stands(const ScriptState* state, const ObjectSlot* place);
/// The class it was made for.
unsigned slot_of_place(const ScriptState* state, const ObjectSlot* place);

/// Keys of the hidden table of a class, which stands in the registry at the address of its place in the state.
inline constexpr int kGetters = 1;
inline constexpr int kSetters = 2;
inline constexpr int kComplete = 3;
/// Pushes the userdata of the state.
void push_state(lua_State* L);
/// Pushes the hidden table.
void push_hidden(lua_State* L, const ScriptState* state, unsigned slot);
/// Pushes the weak table from native objects to their userdata.
void push_identities(lua_State* L);
/// A guardian is a userdata that holds a Guardian: it ends the watched object together with the object's userdata,
/// which it keeps in memory until then. Pushes the metatable of guardians.
void push_guardian_metatable(lua_State* L);
/// Pushes the table from watched userdata to their guardians, weak in its keys.
void push_guardians(lua_State* L);

}  // namespace zeph::binding
