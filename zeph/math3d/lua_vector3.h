/// Script class of a vector of three floats.
#pragma once

#include <zeph/binding/type_traits.h>
#include <zeph/export.h>
#include <zeph/math3d/vector3.h>

namespace zeph::math3d {
class ZEPH_MATH3D_API LuaVector3;
}

template <>
struct zeph::binding::ScriptClass<zeph::math3d::_Vector3<float>> {
  using T = math3d::_Vector3<float>;
  using Type = math3d::LuaVector3;
  static constexpr bool kIsDummyType = true;
  static constexpr char kNativeName[] = "struct zeph::math3d::_Vector3<float>";
  static constexpr char kClsName[] = "class zeph::math3d::LuaVector3";
  static constexpr char kLuaName[] = "Vector3";
  static constexpr char kDefaultName[] = "Vector3";
  using Fields = FieldList<Field<"x", &T::x>, Field<"y", &T::y>, Field<"z", &T::z>>;
  static constexpr T kMissing{};
  static constexpr T kDeadReference{};
};

namespace zeph::math3d {

class ZEPH_MATH3D_API LuaVector3 final : public binding::DummyClass<LuaVector3, _Vector3<float>> {
 public:
  static void InitializeLuaClass(lua_State* L);
};

}  // namespace zeph::math3d

extern template struct ZEPH_MATH3D_API zeph::binding::TypeTraits<zeph::math3d::_Vector3<float>>;
