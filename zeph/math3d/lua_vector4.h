/// Script class of a vector of four floats.
#pragma once

#include <zeph/binding/type_traits.h>
#include <zeph/export.h>
#include <zeph/math3d/lua_vector3.h>
#include <zeph/math3d/vector4.h>

namespace zeph::math3d {
class ZEPH_MATH3D_API LuaVector4;
}

/// Registered as Vector4f; scripts know it as Vector4.
template <>
struct zeph::binding::ScriptClass<zeph::math3d::Vector4<float>> {
  using T = math3d::Vector4<float>;
  using Type = math3d::LuaVector4;
  static constexpr bool kIsDummyType = true;
  static constexpr char kNativeName[] = "class zeph::math3d::Vector4<float>";
  static constexpr char kClsName[] = "class zeph::math3d::LuaVector4";
  static constexpr char kLuaName[] = "Vector4f";
  static constexpr char kDefaultName[] = "Vector4";
  using Fields = FieldList<Field<"x", &T::x>, Field<"y", &T::y>, Field<"z", &T::z>, Field<"w", &T::w>>;
  static constexpr T kMissing{};
  static constexpr T kDeadReference{};
};

namespace zeph::math3d {

class ZEPH_MATH3D_API LuaVector4 final : public binding::DummyClass<LuaVector4, Vector4<float>> {
 public:
  static void InitializeLuaClass(lua_State* L);
};

}  // namespace zeph::math3d

extern template struct ZEPH_MATH3D_API zeph::binding::TypeTraits<zeph::math3d::Vector4<float>>;
