/// Half-line from a point. It carries data only.
#pragma once

#include <type_traits>

#include <zeph/export.h>
#include <zeph/math3d/vector3.h>

namespace zeph::math3d {

/// The direction may have any length, zero too.
struct ZEPH_MATH3D_API Ray {
  _Vector3<float> origin{};
  _Vector3<float> direction{};
};
static_assert(sizeof(Ray) == 24 && std::is_trivially_copyable_v<Ray>);

}  // namespace zeph::math3d
