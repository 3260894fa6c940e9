/// What CONTRIBUTING.md adds, as a library of its own: `require "additions"` puts it into the module math3d.
// [additions]
#include <zeph/binding/meta_class.h>
#include <zeph/binding/table.h>
#include <zeph/math3d.h>
#include <zeph/math3d/lua_vector3.h>

#include "lua_interval.h"
#include "midpoint.h"

namespace {

using zeph::binding::Function;
using zeph::binding::Row;
using zeph::math3d::vector3_midpoint;

// clang-format off
using Functions = zeph::binding::FunctionTable<
    Row<"vector3_midpoint", Function<&vector3_midpoint>>>;
// clang-format on

}  // namespace

extern "C" __attribute__((visibility("default"))) int luaopen_additions(lua_State* L);

int luaopen_additions(lua_State* L) {
  zeph::math3d::InitLuaMath3d(L);  // the classes that arguments are of have to be there
  lua_pop(L, 1);
  zplua_initmodule(L, "math3d");
  zeph::binding::register_class<zeph::math3d::Interval>(L, nullptr);
  Functions::Register(L);
  lua_pushvalue(L, -1);  // stays for the caller when the module is closed
  zplua_endmodule(L, "math3d");
  return 1;
}
// [end]
