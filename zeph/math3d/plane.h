/// Infinite plane: the points p with dot(p, normal) == dist.
///
/// The functions of this header read dist with that sign. The plane_* functions of functions/plane.h read it as
/// the constant of dot(p, normal) + dist == 0; nothing converts between the two.
#pragma once

#include <cmath>
#include <type_traits>

#include <zeph/export.h>
#include <zeph/math3d/single.h>
#include <zeph/math3d/vector3.h>

namespace zeph::math3d {

/// The normal is kept as it comes; distances are in units of its length.
template <typename Scalar>
struct ZEPH_MATH3D_API _Plane {
  _Vector3<Scalar> normal{};
  Scalar dist{};
};
static_assert(sizeof(_Plane<float>) == 16 && std::is_trivially_copyable_v<_Plane<float>>);

/// The plane through `point`; the normal is not normalised.
[[nodiscard]] constexpr _Plane<float> plane_at(const _Vector3<float>& normal, const _Vector3<float>& point) noexcept {
  return {normal, dot(point, normal)};
}

/// The plane through three points, its unit normal along (p1 - p0) x (p2 - p0). The two shorter edges make the product,
/// which keeps slivers accurate. Edges within about 1e-6 radians of one line, or shorter than float can square, give
/// the plane of zeros.
[[nodiscard]] inline _Plane<float> plane_through(const _Vector3<float>& p0, const _Vector3<float>& p1,
                                                 const _Vector3<float>& p2) noexcept {
  const _Vector3<float> edge0 = p1 - p0;
  const _Vector3<float> edge1 = p2 - p1;
  const _Vector3<float> edge2 = p0 - p2;
  const float squared0 = length_squared(edge0);
  const float squared1 = length_squared(edge1);
  const float squared2 = length_squared(edge2);

  _Vector3<float> product;
  _Vector3<float> anchor;
  float bound = 0.0F;
  if (squared2 > squared0 && squared2 > squared1) {
    product = cross(edge0, edge1);
    bound = squared1 * squared0;
    anchor = p1;
  } else if (squared1 > squared0) {
    product = cross(edge2, edge0);
    bound = squared2 * squared0;
    anchor = p0;
  } else {
    product = cross(edge1, edge2);
    bound = squared2 * squared1;
    anchor = p2;
  }

  const float squared = length_squared(product);
  if ((bound * kEpsilon) * kEpsilon >= squared) {
    return {};
  }
  return plane_at(product * (1.0F / std::sqrt(squared)), anchor);
}

/// Normals near as vectors are, dist within 1e-6 with the bound excluded; a NaN dist differs from any.
/// (n, d) and (-n, -d) describe the same points and are not near.
[[nodiscard]] inline bool near(const _Plane<float>& a, const _Plane<float>& b) noexcept {
  return near(a.normal, b.normal) && kEpsilon > std::fabs(a.dist - b.dist);
}

/// dot(point, normal) - dist, positive on the side the normal points to.
[[nodiscard]] constexpr float distance(const _Plane<float>& plane, const _Vector3<float>& point) noexcept {
  return dot(point, plane.normal) - plane.dist;
}

/// point - normal * (dot(point, normal) - dist): the foot of the perpendicular, if the normal is a unit vector.
[[nodiscard]] constexpr _Vector3<float> projected(const _Plane<float>& plane, const _Vector3<float>& point) noexcept {
  return point - plane.normal * distance(plane, point);
}

}  // namespace zeph::math3d
