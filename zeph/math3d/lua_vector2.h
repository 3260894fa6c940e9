/// Script class of a vector of two floats.
#pragma once

#include <zeph/binding/type_traits.h>
#include <zeph/export.h>
#include <zeph/math3d/vector2.h>

namespace zeph::math3d {
class ZEPH_MATH3D_API LuaVector2;
}

template <>
struct zeph::binding::ScriptClass<zeph::math3d::_Point2<float>> {
  using T = math3d::_Point2<float>;
  using Type = math3d::LuaVector2;
  static constexpr bool kIsDummyType = true;
  static constexpr char kNativeName[] = "struct zeph::math3d::_Point2<float>";
  static constexpr char kClsName[] = "class zeph::math3d::LuaVector2";
  static constexpr char kLuaName[] = "Vector2";
  static constexpr char kDefaultName[] = "Vector2";
  using Fields = FieldList<Field<"x", &T::x>, Field<"y", &T::y>>;
  static constexpr T kMissing{};
  static constexpr T kDeadReference{};
};

namespace zeph::math3d {

class ZEPH_MATH3D_API LuaVector2 final : public binding::DummyClass<LuaVector2, _Point2<float>> {
 public:
  static void InitializeLuaClass(lua_State* L);
};

}  // namespace zeph::math3d

extern template struct ZEPH_MATH3D_API zeph::binding::TypeTraits<zeph::math3d::_Point2<float>>;
