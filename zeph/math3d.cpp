#include <zeph/math3d.h>

#include <zeph/binding/meta_class.h>
#include <zeph/functions/register.h>
#include <zeph/math3d/lua_aabb.h>
#include <zeph/math3d/lua_color.h>
#include <zeph/math3d/lua_matrix.h>
#include <zeph/math3d/lua_matrix33.h>
#include <zeph/math3d/lua_plane.h>
#include <zeph/math3d/lua_ray.h>
#include <zeph/math3d/lua_rect.h>
#include <zeph/math3d/lua_rotation.h>
#include <zeph/math3d/lua_vector2.h>
#include <zeph/math3d/lua_vector3.h>
#include <zeph/math3d/lua_vector4.h>
#include <zeph/platform/script_core/lua_engine.h>
#include <zeph/platform/zpthreading/zpthreading.h>

namespace zeph::math3d {

namespace {

/// Commands of this library that still wait in the queue when it is unloaded must run while its code is there.
class UnloadGuard {
 public:
  /// Made when the queue stands: then it ends before the queue does, also where both are linked into one file.
  static void Ensure() { static const UnloadGuard guard; }
  UnloadGuard(const UnloadGuard&) = delete;
  UnloadGuard& operator=(const UnloadGuard&) = delete;
  ~UnloadGuard() { zpthreading::zpThread<0>::Handle->drain(); }

 private:
  UnloadGuard() = default;
};

void set_constant(lua_State* L, const char* name, float value) {
  lua_pushstring(L, name);
  lua_pushnumber(L, static_cast<lua_Number>(value));
  lua_rawset(L, -3);
}

}  // namespace

int InitLuaMath3d(lua_State* L) {
  UnloadGuard::Ensure();
  zpthreading::ClaimScriptThread();
  luaL_checkstack(L, LUA_MINSTACK, "math3d");
  zplua_initmodule(L, "math3d");

  using binding::register_class;
  register_class<_Point2<float>>(L, "Vector2");
  register_class<_Vector3<float>>(L, "Vector");
  register_class<Vector4<float>>(L, "Vector4");
  register_class<_Rotation<float>>(L, "Rotation");
  register_class<_Matrix<float>>(L, "Matrix");
  register_class<Matrix33>(L, "Matrix33");
  register_class<_Rect<float>>(L, "RectF");
  register_class<RectOffset>(L, "RectOffset");
  register_class<Color32>(L, "Color32");
  register_class<ColorF>(L, "ColorF");
  register_class<_Plane<float>>(L, "Plane");
  register_class<Ray>(L, "Ray");
  register_class<AABB>(L, "Aabb");
  zplua_remodule(L, "Rotation", "Quaternion");

  set_constant(L, "PI", kPi);
  set_constant(L, "HALF_PI", kHalfPi);
  set_constant(L, "EPSILON", kEpsilon);

  register_scalar_functions(L);
  register_smooth_damp_functions(L);
  register_aabb_functions(L);
  register_vector3_functions(L);
  register_vector4_functions(L);
  register_quaternion_functions(L);
  register_matrix_functions(L);
  register_color_functions(L);
  register_plane_functions(L);

  lua_pushvalue(L, -1);  // stays for the caller when the module is closed
  zplua_endmodule(L, "math3d");
  return 1;
}

}  // namespace zeph::math3d
