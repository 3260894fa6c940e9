/// A host of somebody else's: `consumer SCRIPT.lua` runs a script with math3d, and shares values with it.
#include <cstdio>
#include <cstdlib>
#include <typeinfo>

#include <lua.hpp>

#include <zeph/math3d.h>
#include <zeph/math3d/lua_aabb.h>
#include <zeph/math3d/lua_matrix.h>
#include <zeph/math3d/lua_matrix33.h>
#include <zeph/math3d/lua_vector3.h>

#if defined(__FMA__)
#error "the options that keep results the same did not reach this project"
#endif

namespace {

using zeph::binding::AutoRef;
using zeph::binding::Object;
using zeph::binding::TypeTraits;
using Vector3 = zeph::math3d::_Vector3<float>;
using Matrix = zeph::math3d::_Matrix<float>;

int failures = 0;

void expect(bool holds, const char* what) {
  if (!holds) {
    std::fprintf(stderr, "does not hold: %s\n", what);
    ++failures;
  }
}

/// Made at load: nothing has called the library yet.
template <typename T>
void expect_creator(const char* name) {
  zeph::binding::LuaObject* object = Object::CreateSpaceObjectWithPolymorphicTypeid(typeid(T).hash_code());
  expect(object != nullptr, name);
  if (object != nullptr) {
    object->OnBeforeLuaRemove();
  }
}

/// mirrored(position): takes a vector and gives one back.
int mirrored(lua_State* L) {
  if (!TypeTraits<Vector3>::Checking(L, 1, false)) {
    return luaL_error(L, "mirrored needs a Vector3");
  }
  Vector3 position = TypeTraits<Vector3>::Unboxing(L, 1);
  position.x = -position.x;
  return TypeTraits<Vector3>::Boxing(L, &position, false);
}

void expect_values(lua_State* L) {
  lua_getglobal(L, "position");
  expect(TypeTraits<Vector3>::Checking(L, -1, false), "position is a Vector3");
  const Vector3 position = TypeTraits<Vector3>::Unboxing(L, -1);
  expect(position.x == -4.0F && position.y == 2.0F && position.z == 6.5F, "position is (-4, 2, 6.5)");
  lua_getglobal(L, "matrix");
  expect(TypeTraits<Matrix>::Checking(L, -1, false), "matrix is a Matrix");
  Matrix* matrix = TypeTraits<Matrix>::Unboxing(L, -1);
  expect(matrix != nullptr && matrix->elements[13] == 8.0F, "the matrix moves up by 8");

  // Kept beyond the call, and copied.
  if (matrix != nullptr) {
    const AutoRef<Object> kept = TypeTraits<Matrix>::Packing(matrix);
    matrix->elements[13] = 9.0F;
    expect(TypeTraits<Matrix>::Unpacking(kept.get())->elements[13] == 8.0F, "the copy moves up by 8");
  }
  lua_pop(L, 2);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    return 2;
  }
  expect(TypeTraits<Matrix>::auto_reg_creator, "auto_reg_creator of Matrix");
  expect(TypeTraits<zeph::math3d::Matrix33>::auto_reg_creator, "auto_reg_creator of Matrix33");
  expect(TypeTraits<zeph::AABB>::auto_reg_creator, "auto_reg_creator of Aabb");
  expect_creator<Matrix>("the creator of Matrix");
  expect_creator<zeph::math3d::Matrix33>("the creator of Matrix33");
  expect_creator<zeph::AABB>("the creator of Aabb");

  lua_State* L = luaL_newstate();
  luaL_openlibs(L);
  zeph::math3d::InitLuaMath3d(L);
  lua_settop(L, 0);
  lua_register(L, "mirrored", mirrored);
  if (luaL_dofile(L, argv[1]) != LUA_OK) {
    std::fprintf(stderr, "%s\n", lua_tostring(L, -1));
    return 1;
  }
  expect_values(L);
  lua_close(L);
  if (failures == 0) {
    std::puts("consumed");
  }
  return failures == 0 ? 0 : 1;
}
