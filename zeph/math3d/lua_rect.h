/// Script classes of a rectangle and of four edge offsets.
#pragma once

#include <zeph/binding/type_traits.h>
#include <zeph/export.h>
#include <zeph/math3d/lua_vector2.h>
#include <zeph/math3d/rect.h>

namespace zeph::math3d {
class ZEPH_MATH3D_API LuaRectF;
class ZEPH_MATH3D_API LuaRectOffset;
}  // namespace zeph::math3d

template <>
struct zeph::binding::ScriptClass<zeph::math3d::_Rect<float>> {
  using T = math3d::_Rect<float>;
  using Type = math3d::LuaRectF;
  static constexpr bool kIsDummyType = true;
  static constexpr char kNativeName[] = "struct zeph::math3d::_Rect<float>";
  static constexpr char kClsName[] = "class zeph::math3d::LuaRectF";
  static constexpr char kLuaName[] = "RectF";
  static constexpr char kDefaultName[] = "RectF";
  using Fields =
      FieldList<Field<"left", &T::left>, Field<"top", &T::top>, Field<"right", &T::right>, Field<"bottom", &T::bottom>>;
  static constexpr T kMissing{};
  static constexpr T kDeadReference{};
};

template <>
struct zeph::binding::ScriptClass<zeph::math3d::RectOffset> {
  using T = math3d::RectOffset;
  using Type = math3d::LuaRectOffset;
  static constexpr bool kIsDummyType = true;
  static constexpr char kNativeName[] = "struct zeph::math3d::RectOffset";
  static constexpr char kClsName[] = "class zeph::math3d::LuaRectOffset";
  static constexpr char kLuaName[] = "RectOffset";
  static constexpr char kDefaultName[] = "RectOffset";
  using Fields =
      FieldList<Field<"left", &T::left>, Field<"top", &T::top>, Field<"right", &T::right>, Field<"bottom", &T::bottom>>;
  static constexpr T kMissing{};
  static constexpr T kDeadReference{};
};

namespace zeph::math3d {

/// The member operations work on m_value; a script's table is written by the properties of the same names.
class ZEPH_MATH3D_API LuaRectF final : public binding::DummyClass<LuaRectF, _Rect<float>> {
 public:
  static void InitializeLuaClass(lua_State* L);

  [[nodiscard]] _Point2<float> get_min() const;
  [[nodiscard]] _Point2<float> get_max() const;
  [[nodiscard]] float get_width() const;
  [[nodiscard]] float get_height() const;
  void set_min(const _Point2<float>& corner);
  void set_max(const _Point2<float>& corner);
  void set_width(float width);
  void set_height(float height);
};

/// It registers no unboxing constructor: Object::Unboxing makes nothing of its tables.
class ZEPH_MATH3D_API LuaRectOffset final : public binding::DummyClass<LuaRectOffset, RectOffset> {
 public:
  static void InitializeLuaClass(lua_State* L);
};

}  // namespace zeph::math3d

extern template struct ZEPH_MATH3D_API zeph::binding::TypeTraits<zeph::math3d::_Rect<float>>;
extern template struct ZEPH_MATH3D_API zeph::binding::TypeTraits<zeph::math3d::RectOffset>;
