/// Values across the Lua stack, both ways: of a dummy type by copy, of a wrapped type by pointer.
#include <zeph/math3d.h>
#include <zeph/math3d/lua_matrix.h>
#include <zeph/math3d/lua_vector3.h>

#include "protect.h"

// [names]
using Vector3 = zeph::math3d::_Vector3<float>;
using Matrix = zeph::math3d::_Matrix<float>;
using VectorTraits = zeph::binding::TypeTraits<Vector3>;  // a dummy type: a table in Lua
using MatrixTraits = zeph::binding::TypeTraits<Matrix>;   // a wrapped type: a userdata in Lua
// [end]

namespace {

// [dummy]
/// teleport(position [, by]): ten above the position, and `by` further.
int teleport(lua_State* L) {
  luaL_argcheck(L, VectorTraits::Checking(L, 1, false), 1, "Vector3 needed");
  luaL_argcheck(L, VectorTraits::Checking(L, 2, true), 2, "Vector3 or nothing needed");
  Vector3 place = VectorTraits::Unboxing(L, 1);  // a copy: the script's table stays as it is
  place.y += 10.0F;
  if (!lua_isnoneornil(L, 2)) {
    place = place + VectorTraits::Unboxing(L, 2);
  }
  return VectorTraits::Boxing(L, &place, false);  // a new table
}
// [end]

// [wrapped]
/// recoil(pose, distance): moves the pose backwards, in place.
int recoil(lua_State* L) {
  luaL_argcheck(L, MatrixTraits::Checking(L, 1, false), 1, "Matrix needed");
  const auto distance = static_cast<float>(luaL_checknumber(L, 2));
  Matrix* pose = MatrixTraits::Unboxing(L, 1);  // the value inside the userdata
  set_translation(*pose, translation(*pose) - forward(*pose) * distance);
  return 0;
}
// [end]

// [call]
/// direction = aim(from, target), a function of the script. To be run protected.
Vector3 call_aim(lua_State* L, Matrix pose, Vector3 target) {
  lua_getglobal(L, "aim");
  MatrixTraits::Boxing(L, &pose, false);  // a new userdata with a copy
  VectorTraits::Boxing(L, &target, false);
  lua_call(L, 2, 1);
  if (!VectorTraits::Checking(L, -1, false)) {
    luaL_error(L, "aim gave a %s, not a Vector3", luaL_typename(L, -1));
  }
  return VectorTraits::Unboxing(L, -1);
}
// [end]

// [set-up]
void set_up(lua_State* L) {
  luaL_openlibs(L);
  zeph::math3d::InitLuaMath3d(L);
  lua_register(L, "teleport", teleport);
  lua_register(L, "recoil", recoil);
}
// [end]

}  // namespace

int main(int, char** argv) {
  lua_State* L = luaL_newstate();
  must(L, set_up);
  must(L, [&](lua_State* state) { load(state, argv[1]); });

  // [ask]
  const Vector3 target{0.0F, 3.0F, 4.0F};
  Vector3 direction{};
  const bool aimed =
      protect(L, [&](lua_State* state) { direction = call_aim(state, zeph::math3d::kIdentityMatrix, target); });
  // [end]
  if (aimed) {
    std::printf("aim\t(%g, %g, %g)\n", static_cast<double>(direction.x), static_cast<double>(direction.y),
                static_cast<double>(direction.z));
  }
  lua_close(L);
  return aimed ? 0 : 1;
}
