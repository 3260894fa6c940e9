/// Script class of a quaternion.
#pragma once

#include <zeph/binding/type_traits.h>
#include <zeph/export.h>
#include <zeph/math3d/rotation.h>

namespace zeph::math3d {
class ZEPH_MATH3D_API LuaRotation;
}

template <>
struct zeph::binding::ScriptClass<zeph::math3d::_Rotation<float>> {
  using T = math3d::_Rotation<float>;
  using Type = math3d::LuaRotation;
  static constexpr bool kIsDummyType = true;
  static constexpr char kNativeName[] = "struct zeph::math3d::_Rotation<float>";
  static constexpr char kClsName[] = "class zeph::math3d::LuaRotation";
  static constexpr char kLuaName[] = "Rotation";
  static constexpr char kDefaultName[] = "Rotation";
  using Fields = FieldList<Field<"x", &T::x>, Field<"y", &T::y>, Field<"z", &T::z>, Field<"w", &T::w>>;
  static constexpr T kMissing{1.0F, 1.0F, 1.0F, 1.0F};
  static constexpr T kDeadReference{};
};

namespace zeph::math3d {

class ZEPH_MATH3D_API LuaRotation final : public binding::DummyClass<LuaRotation, _Rotation<float>> {
 public:
  static void InitializeLuaClass(lua_State* L);
};

}  // namespace zeph::math3d

extern template struct ZEPH_MATH3D_API zeph::binding::TypeTraits<zeph::math3d::_Rotation<float>>;
