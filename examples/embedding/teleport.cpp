/// The host in README.md.
// [program]
#include <lua.hpp>

#include <zeph/math3d.h>
#include <zeph/math3d/lua_vector3.h>

using Vector3 = zeph::math3d::_Vector3<float>;
using Traits = zeph::binding::TypeTraits<Vector3>;

// teleport(position): takes a vector and gives one back.
static int teleport(lua_State* L) {
  if (!Traits::Checking(L, 1, false)) {
    return luaL_error(L, "teleport needs a Vector3");
  }
  Vector3 position = Traits::Unboxing(L, 1);
  position.y += 10.0F;
  Traits::Boxing(L, &position, false);
  return 1;
}

int main() {
  lua_State* L = luaL_newstate();
  luaL_openlibs(L);
  zeph::math3d::InitLuaMath3d(L);
  lua_register(L, "teleport", teleport);
  const bool failed = luaL_dostring(L, "print(teleport(math3d.Vector3.new(1, 2, 3)))");
  lua_close(L);
  return failed ? 1 : 0;  // it printed Vector3(1.000000, 12.000000, 3.000000)
}
// [end]
