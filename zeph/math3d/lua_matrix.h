/// Script class of a 4x4 matrix.
#pragma once

#include <zeph/binding/type_traits.h>
#include <zeph/export.h>
#include <zeph/math3d/matrix33.h>

namespace zeph::math3d {
class ZEPH_MATH3D_API LuaMatrix;
}

template <>
struct zeph::binding::ScriptClass<zeph::math3d::_Matrix<float>> {
  using Type = math3d::LuaMatrix;
  static constexpr bool kIsDummyType = false;
  static constexpr bool kOwnsNothing = true;
  static constexpr char kNativeName[] = "struct zeph::math3d::_Matrix<float>";
  static constexpr char kClsName[] = "class zeph::math3d::LuaMatrix";
  static constexpr char kLuaName[] = "Matrix";
  static constexpr char kDefaultName[] = "Matrix";
};

namespace zeph::math3d {

/// A new one holds sixteen zeros.
class ZEPH_MATH3D_API LuaMatrix final : public binding::WrappedClass<LuaMatrix, _Matrix<float>> {
 public:
  std::string AsString() const override;
  static void InitializeLuaClass(lua_State* L);

  _Vector3<float> get_forward() const;
  _Vector3<float> get_up() const;
  _Vector3<float> get_right() const;
  _Vector3<float> get_translation() const;
  _Vector3<float> get_scale() const;
  _Matrix<float> get_rotation() const;
  Matrix33 get_m33() const;
  void set_translation(const _Vector3<float>& value);
  void set_scale(const _Vector3<float>& value);
  void set_rotation(const _Matrix<float>& value);
  void set_m33(const Matrix33& value);
};

}  // namespace zeph::math3d

extern template struct ZEPH_MATH3D_API zeph::binding::TypeTraits<zeph::math3d::_Matrix<float>>;
