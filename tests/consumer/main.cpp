/// A host of somebody else's: `consumer SCRIPT.lua` runs a script with math3d, and shares values with it.
#include <cstdio>
#include <typeinfo>

#include <lua.hpp>

#include <zeph/math3d.h>
#include <zeph/math3d/lua_aabb.h>
#include <zeph/math3d/lua_matrix.h>
#include <zeph/math3d/lua_matrix33.h>
#include <zeph/math3d/lua_vector3.h>

#undef NDEBUG
#include <cassert>

#if defined(__FMA__)
#error "the options that keep results the same did not reach this project"
#endif

using zeph::binding::AutoRef;
using zeph::binding::Object;
using zeph::binding::TypeTraits;
using Vector3 = zeph::math3d::_Vector3<float>;
using Matrix = zeph::math3d::_Matrix<float>;

/// mirrored(position): takes a vector and gives one back.
static int mirrored(lua_State* L) {
  if (!TypeTraits<Vector3>::Checking(L, 1, false)) {
    return luaL_error(L, "mirrored needs a Vector3");
  }
  Vector3 position = TypeTraits<Vector3>::Unboxing(L, 1);
  position.x = -position.x;
  return TypeTraits<Vector3>::Boxing(L, &position, false);
}

int main(int, char** argv) {
  // Creators are made at load: nothing has called the library yet.
  assert(TypeTraits<zeph::math3d::Matrix33>::auto_reg_creator && TypeTraits<zeph::AABB>::auto_reg_creator);
  auto* made = Object::CreateSpaceObjectWithPolymorphicTypeid(typeid(Matrix).hash_code());
  assert(made != nullptr);
  made->OnBeforeLuaRemove();

  lua_State* L = luaL_newstate();
  luaL_openlibs(L);
  zeph::math3d::InitLuaMath3d(L);
  lua_register(L, "mirrored", mirrored);
  if (luaL_dofile(L, argv[1]) != LUA_OK) {
    std::fprintf(stderr, "%s\n", lua_tostring(L, -1));
    return 1;
  }

  lua_getglobal(L, "position");
  assert(TypeTraits<Vector3>::Checking(L, -1, false));
  const Vector3 position = TypeTraits<Vector3>::Unboxing(L, -1);
  assert(position.x == -4.0F && position.y == 2.0F && position.z == 6.5F);

  // Kept beyond the call, and copied.
  lua_getglobal(L, "matrix");
  assert(TypeTraits<Matrix>::Checking(L, -1, false));
  Matrix* matrix = TypeTraits<Matrix>::Unboxing(L, -1);
  {
    const AutoRef<Object> kept = TypeTraits<Matrix>::Packing(matrix);
    matrix->elements[13] = 9.0F;
    assert(TypeTraits<Matrix>::Unpacking(kept.get())->elements[13] == 8.0F);
  }
  lua_close(L);
  std::puts("consumed");
}
