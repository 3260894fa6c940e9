/// Functions of 3-vectors, on copies; the class's own operations stand in math3d/vector3.h and differ in the degenerate
/// cases.
#pragma once

#include <cmath>
#include <type_traits>

#include <zeph/functions/scalar.h>
#include <zeph/math3d/lanes.h>
#include <zeph/math3d/matrix.h>
#include <zeph/math3d/rotation.h>
#include <zeph/math3d/single.h>
#include <zeph/math3d/vector3.h>

namespace zeph::math3d {

[[nodiscard]] inline _Vector3<float> vector3_abs(const _Vector3<float>& v) noexcept {
  return {std::fabs(v.x), std::fabs(v.y), std::fabs(v.z)};
}
[[nodiscard]] constexpr float vector3_dot(const _Vector3<float>& a, const _Vector3<float>& b) noexcept {
  return dot(a, b);
}
[[nodiscard]] constexpr _Vector3<float> vector3_cross(const _Vector3<float>& a, const _Vector3<float>& b) noexcept {
  return cross(a, b);
}
/// (b - a) * t + a, t not clamped.
[[nodiscard]] constexpr _Vector3<float> vector3_lerp(const _Vector3<float>& a, const _Vector3<float>& b,
                                                     float t) noexcept {
  return lerp(a, b, t);
}
[[nodiscard]] constexpr float vector3_length_sq(const _Vector3<float>& v) noexcept { return length_squared(v); }
[[nodiscard]] inline float vector3_length(const _Vector3<float>& v) noexcept { return length(v); }

/// Component-wise; the other operand where one is NaN.
[[nodiscard]] constexpr _Vector3<float> vector3_min(const _Vector3<float>& a, const _Vector3<float>& b) noexcept {
  return {fmin_ordered(a.x, b.x), fmin_ordered(a.y, b.y), fmin_ordered(a.z, b.z)};
}
/// Component-wise; the other operand where one is NaN.
[[nodiscard]] constexpr _Vector3<float> vector3_max(const _Vector3<float>& a, const _Vector3<float>& b) noexcept {
  return {fmax_ordered(a.x, b.x), fmax_ordered(a.y, b.y), fmax_ordered(a.z, b.z)};
}
/// The upper bound first, so that lo wins where lo > hi. A NaN component becomes hi, then is held by lo.
[[nodiscard]] constexpr _Vector3<float> vector3_clamp(const _Vector3<float>& v, const _Vector3<float>& lo,
                                                      const _Vector3<float>& hi) noexcept {
  return vector3_max(vector3_min(v, hi), lo);
}

/// v * (1 / |v|), unguarded: the zero vector gives NaN in all components.
[[nodiscard]] inline _Vector3<float> vector3_normalize(const _Vector3<float>& v) noexcept {
  return v * (1.0F / length(v));
}

/// Vector part of q * ((v, 0) * conjugate(q)) in Hamilton's product: scaled by the squared length of q. The grouping is
/// not that of rotate(q, v), so the last bits can differ.
[[nodiscard]] constexpr _Vector3<float> vector3_rotate(const _Vector3<float>& v, const _Rotation<float>& q) noexcept {
  const _Rotation<float> turned = q * (_Rotation<float>{v.x, v.y, v.z, 0.0F} * _Rotation<float>{-q.x, -q.y, -q.z, q.w});
  return {turned.x, turned.y, turned.z};
}

/// (x * row 0 + y * row 1) + z * row 2, all four columns.
template <typename L>
[[nodiscard]] constexpr L sum_of_rows(const _Vector3<float>& v, const _Matrix<float>& m) noexcept {
  const L xy = L::of(v.x, v.y);
  return (spread<0>(xy) * L::load(&m.elements[0]) + spread<1>(xy) * L::load(&m.elements[4])) +
         L::all(v.z) * L::load(&m.elements[8]);
}

template <typename L>
[[nodiscard]] constexpr _Vector3<float> transform_coord_by_lanes(const _Vector3<float>& v,
                                                                 const _Matrix<float>& m) noexcept {
  const L product = sum_of_rows<L>(v, m) + L::load(&m.elements[12]);
  const L point = product / spread<3>(product);
  return {point[0], point[1], point[2]};
}
/// (v, 1) * m from the left, divided by the w of the product, which is not tested: a w of 0 gives infinities or NaN.
[[nodiscard]] constexpr _Vector3<float> vector3_transform_coord(const _Vector3<float>& v,
                                                                const _Matrix<float>& m) noexcept {
  return std::is_constant_evaluated() ? transform_coord_by_lanes<PlainLanes>(v, m)
                                      : transform_coord_by_lanes<Lanes>(v, m);
}

template <typename L>
[[nodiscard]] constexpr _Vector3<float> transform_normal_by_lanes(const _Vector3<float>& v,
                                                                  const _Matrix<float>& m) noexcept {
  const L normal = sum_of_rows<L>(v, m);
  return {normal[0], normal[1], normal[2]};
}
/// x * row 0 + y * row 1 + z * row 2, from the left; the translation plays no part.
[[nodiscard]] constexpr _Vector3<float> vector3_transform_normal(const _Vector3<float>& v,
                                                                 const _Matrix<float>& m) noexcept {
  return std::is_constant_evaluated() ? transform_normal_by_lanes<PlainLanes>(v, m)
                                      : transform_normal_by_lanes<Lanes>(v, m);
}

/// Shortest turn from the zxy angle triple a to the triple b or to its second form (pi - x, y + pi, z + pi), which is
/// the same rotation; the second form wins a tie.
[[nodiscard]] inline _Vector3<float> vector3_delta_angle_zxy(const _Vector3<float>& a,
                                                             const _Vector3<float>& b) noexcept {
  const auto size = [](const _Vector3<float>& turn) {
    return std::fabs(turn.y) + std::fabs(turn.x) + std::fabs(turn.z);
  };
  const auto turn_to = [&a](const _Vector3<float>& triple) -> _Vector3<float> {
    return {delta_angle(a.x, triple.x), delta_angle(a.y, triple.y), delta_angle(a.z, triple.z)};
  };
  const _Vector3<float> first = turn_to(b);
  const _Vector3<float> second = turn_to({kPi - b.x, b.y + kPi, b.z + kPi});
  return size(second) > size(first) ? first : second;
}

}  // namespace zeph::math3d
