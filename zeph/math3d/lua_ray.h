/// Script class of a ray: origin and direction, built and printed.
#pragma once

#include <zeph/binding/type_traits.h>
#include <zeph/export.h>
#include <zeph/math3d/lua_vector3.h>
#include <zeph/math3d/ray.h>

namespace zeph::math3d {
class ZEPH_MATH3D_API LuaRay;
}

template <>
struct zeph::binding::ScriptClass<zeph::math3d::Ray> {
  using T = math3d::Ray;
  using Type = math3d::LuaRay;
  static constexpr bool kIsDummyType = true;
  static constexpr char kNativeName[] = "struct zeph::math3d::Ray";
  static constexpr char kClsName[] = "class zeph::math3d::LuaRay";
  static constexpr char kLuaName[] = "Ray";
  static constexpr char kDefaultName[] = "Ray";
  using Fields = FieldList<Field<"origin", &T::origin>, Field<"direction", &T::direction>>;
  static constexpr T kMissing{};
  static constexpr T kDeadReference{};
};

namespace zeph::math3d {

class ZEPH_MATH3D_API LuaRay final : public binding::DummyClass<LuaRay, Ray> {
 public:
  static void InitializeLuaClass(lua_State* L);
};

}  // namespace zeph::math3d

extern template struct ZEPH_MATH3D_API zeph::binding::TypeTraits<zeph::math3d::Ray>;
