/// Axis-aligned bounding box.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <type_traits>

#include <zeph/export.h>
#include <zeph/math3d/single.h>
#include <zeph/math3d/vector3.h>

namespace zeph {

/// Half of the largest float, so that max - min of the empty box stays finite.
inline constexpr float kEmptyBoxBound = 0.5F * std::numeric_limits<float>::max();

/// The upper corner comes first. A box as built is empty: inside out, so that any point widens it.
struct ZEPH_MATH3D_API AABB {
  math3d::_Vector3<float> max{-kEmptyBoxBound, -kEmptyBoxBound, -kEmptyBoxBound};
  math3d::_Vector3<float> min{kEmptyBoxBound, kEmptyBoxBound, kEmptyBoxBound};
  /// Half the size as last built or transformed; it does not follow a later change of max or min.
  math3d::_Vector3<float> half_extents{kEmptyBoxBound, kEmptyBoxBound, kEmptyBoxBound};
  /// Not interpreted here; copied with the box.
  std::int32_t tag{1};
};
static_assert(sizeof(AABB) == 40 && std::is_trivially_copyable_v<AABB> && std::is_standard_layout_v<AABB>);
static_assert(offsetof(AABB, max) == 0 && offsetof(AABB, min) == 12 && offsetof(AABB, half_extents) == 24);

/// Box of a full size about its centre. A negative size leaves max below min on that axis.
[[nodiscard]] constexpr AABB aabb_around(const math3d::_Vector3<float>& center,
                                         const math3d::_Vector3<float>& size) noexcept {
  const math3d::_Vector3<float> half = size * 0.5F;
  return {center + half, center - half, half, 1};
}

/// max and min near as vectors are; half_extents and tag are not compared.
[[nodiscard]] constexpr bool near(const AABB& a, const AABB& b) noexcept {
  return near(a.min, b.min) && near(a.max, b.max);
}

/// min + half_extents, so it keeps the old half size after a change of min or max.
[[nodiscard]] constexpr math3d::_Vector3<float> center(const AABB& box) noexcept { return box.min + box.half_extents; }
/// (max - min) * 0.5, whatever half_extents says.
[[nodiscard]] constexpr math3d::_Vector3<float> extents(const AABB& box) noexcept { return (box.max - box.min) * 0.5F; }

/// Corners 0 to 3 are the face at max.z, 4 to 7 the face at min.z, both in the turn (min, min), (max, min), (max, max),
/// (min, max) of x and y. Each is extents * sign + middle; half_extents plays no part.
[[nodiscard]] constexpr std::array<math3d::_Vector3<float>, 8> corners(const AABB& box) noexcept {
  const math3d::_Vector3<float> middle = (box.min + box.max) * 0.5F;
  const math3d::_Vector3<float> extent = extents(box);
  const auto corner = [&](float x, float y, float z) { return extent * math3d::_Vector3<float>{x, y, z} + middle; };
  return {corner(-1, -1, +1), corner(+1, -1, +1), corner(+1, +1, +1), corner(-1, +1, +1),
          corner(-1, -1, -1), corner(+1, -1, -1), corner(+1, +1, -1), corner(-1, +1, -1)};
}

}  // namespace zeph
