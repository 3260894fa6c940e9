/// Script class of a 3x3 matrix.
#pragma once

#include <zeph/binding/type_traits.h>
#include <zeph/export.h>
#include <zeph/math3d/matrix33.h>

namespace zeph::math3d {
class ZEPH_MATH3D_API LuaMatrix33;
}

template <>
struct zeph::binding::ScriptClass<zeph::math3d::Matrix33> {
  using Type = math3d::LuaMatrix33;
  static constexpr bool kIsDummyType = false;
  static constexpr bool kOwnsNothing = true;
  static constexpr char kNativeName[] = "struct zeph::math3d::Matrix33";
  static constexpr char kClsName[] = "class zeph::math3d::LuaMatrix33";
  static constexpr char kLuaName[] = "Matrix33";
  static constexpr char kDefaultName[] = "Matrix33";
};

namespace zeph::math3d {

/// A new one holds the identity.
class ZEPH_MATH3D_API LuaMatrix33 final : public binding::WrappedClass<LuaMatrix33, Matrix33> {
 public:
  std::string AsString() const override;
  static void InitializeLuaClass(lua_State* L);
};

}  // namespace zeph::math3d

extern template struct ZEPH_MATH3D_API zeph::binding::TypeTraits<zeph::math3d::Matrix33>;
