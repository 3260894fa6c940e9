/// Script classes of byte and float colours.
#pragma once

#include <zeph/binding/type_traits.h>
#include <zeph/export.h>
#include <zeph/math3d/color.h>

namespace zeph::math3d {
class ZEPH_MATH3D_API LuaColor32;
class ZEPH_MATH3D_API LuaColorF;
}  // namespace zeph::math3d

/// A channel that is missing or no integer counts as 0, not as the native default of 255.
template <>
struct zeph::binding::ScriptClass<zeph::math3d::Color32> {
  using T = math3d::Color32;
  using Type = math3d::LuaColor32;
  static constexpr bool kIsDummyType = true;
  static constexpr char kNativeName[] = "struct zeph::math3d::Color32";
  static constexpr char kClsName[] = "class zeph::math3d::LuaColor32";
  static constexpr char kLuaName[] = "Color32";
  static constexpr char kDefaultName[] = "Color32";
  using Fields = FieldList<Field<"r", &T::r>, Field<"g", &T::g>, Field<"b", &T::b>, Field<"a", &T::a>>;
  static constexpr T kMissing = math3d::from_word(0);
  static constexpr T kDeadReference{};
};

template <>
struct zeph::binding::ScriptClass<zeph::math3d::ColorF> {
  using T = math3d::ColorF;
  using Type = math3d::LuaColorF;
  static constexpr bool kIsDummyType = true;
  static constexpr char kNativeName[] = "struct zeph::math3d::ColorF";
  static constexpr char kClsName[] = "class zeph::math3d::LuaColorF";
  static constexpr char kLuaName[] = "ColorF";
  static constexpr char kDefaultName[] = "ColorF";
  using Fields = FieldList<Field<"r", &T::r>, Field<"g", &T::g>, Field<"b", &T::b>, Field<"a", &T::a>>;
  static constexpr T kMissing{};
  static constexpr T kDeadReference{};
};

namespace zeph::math3d {

class ZEPH_MATH3D_API LuaColor32 final : public binding::DummyClass<LuaColor32, Color32> {
 public:
  static void InitializeLuaClass(lua_State* L);
};

class ZEPH_MATH3D_API LuaColorF final : public binding::DummyClass<LuaColorF, ColorF> {
 public:
  static void InitializeLuaClass(lua_State* L);
};

}  // namespace zeph::math3d

extern template struct ZEPH_MATH3D_API zeph::binding::TypeTraits<zeph::math3d::Color32>;
extern template struct ZEPH_MATH3D_API zeph::binding::TypeTraits<zeph::math3d::ColorF>;
