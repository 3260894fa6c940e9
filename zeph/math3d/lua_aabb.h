/// Script class of a bounding box: a native object, used in place.
#pragma once

#include <zeph/binding/type_traits.h>
#include <zeph/export.h>
#include <zeph/math3d/aabb.h>
#include <zeph/math3d/lua_vector3.h>

namespace zeph::math3d {
class ZEPH_MATH3D_API LuaAABB;
}

template <>
struct zeph::binding::ScriptClass<zeph::AABB> {
  using Type = math3d::LuaAABB;
  static constexpr bool kIsDummyType = false;
  static constexpr bool kOwnsNothing = true;
  static constexpr char kNativeName[] = "struct zeph::AABB";
  static constexpr char kClsName[] = "class zeph::math3d::LuaAABB";
  static constexpr char kLuaName[] = "Aabb";
  static constexpr char kDefaultName[] = "Aabb";
};

namespace zeph::math3d {

/// Holds the empty box as built.
class ZEPH_MATH3D_API LuaAABB final : public binding::WrappedClass<LuaAABB, AABB> {
 public:
  /// min, then max, cut at 99 characters.
  std::string AsString() const override;
  static void InitializeLuaClass(lua_State* L);
};

}  // namespace zeph::math3d

extern template struct ZEPH_MATH3D_API zeph::binding::TypeTraits<zeph::AABB>;
