/// Script class of an interval.
// [script-class]
#pragma once

#include <zeph/binding/type_traits.h>
#include <zeph/export.h>

#include "interval.h"

namespace zeph::math3d {
class ZEPH_MATH3D_API LuaInterval;
}

template <>
struct zeph::binding::ScriptClass<zeph::math3d::Interval> {
  using T = math3d::Interval;
  using Type = math3d::LuaInterval;
  static constexpr bool kIsDummyType = true;
  static constexpr char kNativeName[] = "struct zeph::math3d::Interval";
  static constexpr char kClsName[] = "class zeph::math3d::LuaInterval";
  static constexpr char kLuaName[] = "Interval";
  static constexpr char kDefaultName[] = "Interval";
  using Fields = FieldList<Field<"low", &T::low>, Field<"high", &T::high>>;
  static constexpr T kMissing{};
  static constexpr T kDeadReference{};
};

namespace zeph::math3d {

class ZEPH_MATH3D_API LuaInterval final : public binding::DummyClass<LuaInterval, Interval> {
 public:
  static void InitializeLuaClass(lua_State* L);
};

}  // namespace zeph::math3d

extern template struct ZEPH_MATH3D_API zeph::binding::TypeTraits<zeph::math3d::Interval>;
// [end]
