/// Bounding boxes under transforms.
#pragma once

#include <zeph/functions/vector3.h>
#include <zeph/math3d/aabb.h>
#include <zeph/math3d/matrix.h>
#include <zeph/math3d/vector3.h>

namespace zeph::math3d {

/// The box of the eight corners, each taken through vector3_transform_coord with a w of its own. half_extents is made
/// anew; the tag is kept.
[[nodiscard]] constexpr AABB aabb_transform(const AABB& box, const _Matrix<float>& m) noexcept {
  const _Vector3<float> ends[2] = {box.max, box.min};
  AABB result = box;
  result.max = result.min = vector3_transform_coord(box.max, m);
  for (unsigned i = 1; i < 8; ++i) {
    const _Vector3<float> corner{ends[i & 1U].x, ends[i >> 1 & 1U].y, ends[i >> 2].z};
    const _Vector3<float> moved = vector3_transform_coord(corner, m);
    result.max = {greater(moved.x, result.max.x), greater(moved.y, result.max.y), greater(moved.z, result.max.z)};
    result.min = {lesser(moved.x, result.min.x), lesser(moved.y, result.min.y), lesser(moved.z, result.min.z)};
  }
  result.half_extents = extents(result);
  return result;
}

}  // namespace zeph::math3d
