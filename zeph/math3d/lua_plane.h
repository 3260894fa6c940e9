/// Script class of a plane. Its distance has the sign of plane.h, unlike that of the plane_* functions.
#pragma once

#include <zeph/binding/type_traits.h>
#include <zeph/export.h>
#include <zeph/math3d/lua_vector3.h>
#include <zeph/math3d/plane.h>

namespace zeph::math3d {
class ZEPH_MATH3D_API LuaPlane;
}

template <>
struct zeph::binding::ScriptClass<zeph::math3d::_Plane<float>> {
  using T = math3d::_Plane<float>;
  using Type = math3d::LuaPlane;
  static constexpr bool kIsDummyType = true;
  static constexpr char kNativeName[] = "struct zeph::math3d::_Plane<float>";
  static constexpr char kClsName[] = "class zeph::math3d::LuaPlane";
  static constexpr char kLuaName[] = "Plane";
  static constexpr char kDefaultName[] = "Plane";
  using Fields = FieldList<Field<"normal", &T::normal>, Field<"dist", &T::dist>>;
  static constexpr T kMissing{};
  static constexpr T kDeadReference{};
};

namespace zeph::math3d {

class ZEPH_MATH3D_API LuaPlane final : public binding::DummyClass<LuaPlane, _Plane<float>> {
 public:
  static void InitializeLuaClass(lua_State* L);
};

}  // namespace zeph::math3d

extern template struct ZEPH_MATH3D_API zeph::binding::TypeTraits<zeph::math3d::_Plane<float>>;
