/// The calls by which classes, functions and values reach a Lua state.
///
/// A module or class is open while its table stands on top of the stack: `lua_rawset(L, -3)` after two pushes stores
/// into it. Everything here belongs to the thread that runs the state. Calls that touch the stack may raise Lua errors.
#pragma once

#include <zeph/platform/export.h>
#include <zeph/platform/lua_api.h>

namespace zeph::binding {
class LuaObject;
}

/// Opens the module `name`: makes it on the first call, as a global and for `require`.
ZEPH_PLATFORM_API void zplua_initmodule(lua_State* L, const char* name);
/// Opens a table of the open table.
ZEPH_PLATFORM_API void zplua_beginmodule(lua_State* L, const char* name);
/// Closes the open table. The name is for the reader.
ZEPH_PLATFORM_API void zplua_endmodule(lua_State* L, const char* name);

/// Makes the class in the open module, or finds it again. Its table is the metatable of its values and stands in the
/// registry at `cls_name`. A class with a base ("" for none) starts with the entries and properties of the base.
ZEPH_PLATFORM_API void zplua_cclass(lua_State* L, const char* lua_name, const char* cls_name, const char* base);
/// The class of the open module that is called `name` answers to `alias` too.
ZEPH_PLATFORM_API void zplua_remodule(lua_State* L, const char* name, const char* alias);
/// Pushes the table of a class, empty if the class has yet to come.
ZEPH_PLATFORM_API void zplua_classtable(lua_State* L, const char* cls_name);

/// Adds a function to the open table. It finds the state's ScriptState as its first upvalue and the `upvalues` values
/// on top of the stack, which are popped, behind it.
ZEPH_PLATFORM_API void zplua_function(lua_State* L, const char* name, lua_CFunction function, int upvalues = 0);
/// Adds a property to the open class; a null setter makes it read-only. A getter finds the object at 1; a setter the
/// object at 1 and the value at 3. Both run in the frame of the class's access function, so an error has the script's
/// own position.
ZEPH_PLATFORM_API void zplua_variable(lua_State* L, const char* name, lua_CFunction getter, lua_CFunction setter);
/// Gives the accessors of the open class upvalues: the `upvalues` values on top of the stack, which are popped.
ZEPH_PLATFORM_API void zplua_accessorvalues(lua_State* L, int upvalues);

/// Where the upvalues of a function and of an accessor begin.
inline constexpr int kFirstFunctionUpvalue = 2;
inline constexpr int kFirstAccessorUpvalue = 4;

/// Numbers and integers are taken as Lua's own functions take them: a numeric string is a number, a float with an
/// integral value is an integer. With `nullable`, nil and absence pass too.
ZEPH_PLATFORM_API bool zplua_isnumber(lua_State* L, int index, bool nullable);
ZEPH_PLATFORM_API bool zplua_isinterger(lua_State* L, int index, bool nullable);
ZEPH_PLATFORM_API bool zplua_isboolean(lua_State* L, int index, bool nullable);
ZEPH_PLATFORM_API bool zplua_isstring(lua_State* L, int index, bool nullable);
/// A table whose metatable is that of the class. The field `__dummy_type` does not count.
ZEPH_PLATFORM_API bool zplua_isdummytype(lua_State* L, int index, const char* cls_name, bool nullable);
/// A userdata that this layer made for the class, that still has the class's metatable and its native object.
ZEPH_PLATFORM_API bool zplua_isluaobject(lua_State* L, int index, const char* cls_name, bool nullable);

/// The Lua name of a value of a class ("Vector3"), its ClsName if `qualified`; for the rest what Lua calls it.
ZEPH_PLATFORM_API const char* zplua_typename(lua_State* L, int index, bool qualified);

/// Pushes the object and returns the count, 1. The state owns the object from the call on, also when the call raises an
/// error. An object that is in the state already is pushed as what it is there; one of another state is copied.
ZEPH_PLATFORM_API int zplua_pushluaobject(lua_State* L, zeph::binding::LuaObject* object, const char* cls_name);
/// The native object of the slot, or null. From then on zplua_pushluaobject can find its userdata again.
ZEPH_PLATFORM_API zeph::binding::LuaObject* zplua_toluaobject(lua_State* L, int index);

/// Standard entries of a class. Each may be called by hand with anything.
ZEPH_PLATFORM_API int zplua_collectluaobject(lua_State* L);
ZEPH_PLATFORM_API int zplua_clearluaobject(lua_State* L);
ZEPH_PLATFORM_API int zplua_luaobjecttostr(lua_State* L);
ZEPH_PLATFORM_API int zplua_luaobjectmro(lua_State* L);
ZEPH_PLATFORM_API int zplua_luaobjecttype(lua_State* L);
ZEPH_PLATFORM_API int zplua_classproperties(lua_State* L);
