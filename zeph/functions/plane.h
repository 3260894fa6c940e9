/// Plane functions. They read a plane as dot(normal, p) + dist == 0: the opposite sign of dist from math3d/plane.h.
/// No function normalises a plane it is given.
#pragma once

#include <cmath>
#include <optional>

#include <zeph/math3d/plane.h>
#include <zeph/math3d/single.h>
#include <zeph/math3d/vector3.h>

namespace zeph::math3d {

/// The normal as it comes, dist = -dot(point, normal).
[[nodiscard]] constexpr _Plane<float> plane_from_point_normal(const _Vector3<float>& point,
                                                              const _Vector3<float>& normal) noexcept {
  return {normal, -dot(point, normal)};
}

/// Unit normal along (a - b) x (a - c). Points in a line give the plane of zeros; an overflow, NaN.
[[nodiscard]] inline _Plane<float> plane_from_points(const _Vector3<float>& a, const _Vector3<float>& b,
                                                     const _Vector3<float>& c) noexcept {
  const _Vector3<float> normal = normalized(cross(a - b, a - c));
  return {normal, -dot(normal, a)};
}

/// dot(normal, point) + dist, in units of the normal's length.
[[nodiscard]] constexpr float plane_dist_from_point(const _Plane<float>& plane, const _Vector3<float>& point) noexcept {
  return dot(plane.normal, point) + plane.dist;
}

/// The point, unless its x is NaN: the mark of "no answer" among the intersections, NaN input included.
[[nodiscard]] constexpr std::optional<_Vector3<float>> point_if_any(const _Vector3<float>& point) noexcept {
  return point.x == point.x ? std::optional{point} : std::nullopt;
}

/// Meeting point of the plane with the infinite line through p1 and p2. None when the ends' heights above the plane
/// differ by kFloatEpsilon or less: a parallel line, or p1 == p2.
[[nodiscard]] inline std::optional<_Vector3<float>> plane_intersect_line(const _Plane<float>& plane,
                                                                         const _Vector3<float>& p1,
                                                                         const _Vector3<float>& p2) noexcept {
  const float height1 = dot(plane.normal, p1);
  const float drop = height1 - dot(plane.normal, p2);
  if (std::fabs(drop) <= kFloatEpsilon) {
    return std::nullopt;
  }
  return point_if_any(lerp(p1, p2, (height1 + plane.dist) / drop));
}

/// Two points of a line.
struct PointPair {
  _Vector3<float> first;
  _Vector3<float> second;
};

/// Line of two planes: first is its point nearest the origin, second lies one b.normal x a.normal further on. None when
/// that product's squared length is at most kFloatEpsilon: parallel planes, or short normals.
[[nodiscard]] constexpr std::optional<PointPair> plane_intersect_plane(const _Plane<float>& a,
                                                                       const _Plane<float>& b) noexcept {
  const _Vector3<float> along = cross(b.normal, a.normal);
  const float squared = length_squared(along);
  if (squared <= kFloatEpsilon) {
    return std::nullopt;
  }
  const _Vector3<float> sum = cross(b.normal, along) * a.dist + cross(along, a.normal) * b.dist;
  const auto point = point_if_any(sum / _Vector3<float>{squared, squared, squared});
  return point ? std::optional{PointPair{*point, *point + along}} : std::nullopt;
}

/// Point of three planes. None when a and b have no line, or that line misses c.
[[nodiscard]] inline std::optional<_Vector3<float>> plane_intersect_planes(const _Plane<float>& a,
                                                                           const _Plane<float>& b,
                                                                           const _Plane<float>& c) noexcept {
  const auto line = plane_intersect_plane(a, b);
  return line ? plane_intersect_line(c, line->first, line->second) : std::nullopt;
}

}  // namespace zeph::math3d
