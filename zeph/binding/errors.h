/// Every sentence that a failed call can end in, out of the way of calls that succeed.
#pragma once

#include <zeph/platform/lua_api.h>

namespace zeph::binding {

/// The count of arguments differs from the only one allowed.
[[noreturn]] void raise_count(lua_State* L, int count, int needed);
/// The count is outside the range of a call with optional arguments.
[[noreturn]] void raise_count(lua_State* L, int count, int lowest, int highest);
/// The argument at stack index `index` is no `needed`.
[[noreturn]] void raise_argument(lua_State* L, int index, const char* needed);
/// The object is no value of the dummy type `needed`.
[[noreturn]] void raise_dummy_self(lua_State* L, const char* needed);
/// The object is no script object of `needed`, or the property is bound to the script class itself.
[[noreturn]] void raise_self(lua_State* L, const char* needed);
/// The value that a property is set to is no `needed`.
[[noreturn]] void raise_setter(lua_State* L, const char* needed);
[[noreturn]] void raise_overload(lua_State* L);

}  // namespace zeph::binding
