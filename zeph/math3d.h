/// The library's one entry. A host calls it once for every Lua state.
#pragma once

#include <zeph/export.h>

struct lua_State;

namespace zeph::math3d {

/// Registers the module `math3d` on the state: as a global, and for `require`. Leaves the module table on the stack and
/// returns 1, so that it can be called as a lua_CFunction too. A second call on a state leaves the same module. The
/// thread of the first call in the process is the script thread. Memory errors are Lua errors.
ZEPH_MATH3D_API int InitLuaMath3d(lua_State* L);

}  // namespace zeph::math3d
