/// Functions of 4-vectors, on copies; the class's own operations stand in math3d/vector4.h and differ in the degenerate
/// cases.
#pragma once

#include <bit>
#include <cmath>
#include <type_traits>

#include <zeph/math3d/lanes.h>
#include <zeph/math3d/matrix.h>
#include <zeph/math3d/single.h>
#include <zeph/math3d/vector4.h>

namespace zeph::math3d {

/// Sign bits cleared, of zeros and NaN too.
[[nodiscard]] inline Vector4<float> vector4_abs(const Vector4<float>& v) noexcept {
  return {std::fabs(v.x), std::fabs(v.y), std::fabs(v.z), std::fabs(v.w)};
}

[[nodiscard]] constexpr float vector4_dot(const Vector4<float>& a, const Vector4<float>& b) noexcept {
  return dot(a, b);
}

/// The vector orthogonal to all three: component i is (-1)^i times the determinant of rows a, b, c without column i.
[[nodiscard]] constexpr Vector4<float> vector4_cross(const Vector4<float>& a, const Vector4<float>& b,
                                                     const Vector4<float>& c) noexcept {
  const float xy = b.x * c.y - b.y * c.x;
  const float xz = b.x * c.z - b.z * c.x;
  const float xw = b.x * c.w - b.w * c.x;
  const float yz = b.y * c.z - b.z * c.y;
  const float yw = b.y * c.w - b.w * c.y;
  const float zw = b.z * c.w - b.w * c.z;
  // A difference first in all four: where the components alternate product + product and product - product, GCC 12 with
  // FMA instructions fuses them in spite of -ffp-contract=off.
  return {(a.y * zw - a.z * yw) + a.w * yz, (a.z * xw - a.x * zw) - a.w * xz, (a.x * yw - a.y * xw) + a.w * xy,
          (a.y * xz - a.x * yz) - a.z * xy};
}

/// (b - a) * t + a, t not clamped.
[[nodiscard]] constexpr Vector4<float> vector4_lerp(const Vector4<float>& a, const Vector4<float>& b,
                                                    float t) noexcept {
  return lerp(a, b, t);
}
[[nodiscard]] constexpr float vector4_length_sq(const Vector4<float>& v) noexcept { return length_squared(v); }
[[nodiscard]] inline float vector4_length(const Vector4<float>& v) noexcept { return length(v); }

/// Component-wise; the other operand where one is NaN.
[[nodiscard]] constexpr Vector4<float> vector4_min(const Vector4<float>& a, const Vector4<float>& b) noexcept {
  return {fmin_ordered(a.x, b.x), fmin_ordered(a.y, b.y), fmin_ordered(a.z, b.z), fmin_ordered(a.w, b.w)};
}
/// Component-wise; the other operand where one is NaN.
[[nodiscard]] constexpr Vector4<float> vector4_max(const Vector4<float>& a, const Vector4<float>& b) noexcept {
  return {fmax_ordered(a.x, b.x), fmax_ordered(a.y, b.y), fmax_ordered(a.z, b.z), fmax_ordered(a.w, b.w)};
}
/// The upper bound first, so that lo wins where lo > hi. A NaN component becomes hi, then is held by lo.
[[nodiscard]] constexpr Vector4<float> vector4_clamp(const Vector4<float>& v, const Vector4<float>& lo,
                                                     const Vector4<float>& hi) noexcept {
  return vector4_max(vector4_min(v, hi), lo);
}

/// Guarded normalisation: v / |v|; zeros for a zero length, NaN in all components when the squared length overflows.
[[nodiscard]] inline Vector4<float> vector4_normalize(const Vector4<float>& v) noexcept {
  const float squared = length_squared(v);
  if (squared == kInfinity) {
    return {kQuietNan, kQuietNan, kQuietNan, kQuietNan};
  }
  const float size = std::sqrt(squared);
  if (size == 0.0F) {
    return {};
  }
  return v / size;
}

template <typename L>
[[nodiscard]] constexpr Vector4<float> transform_by_lanes(const Vector4<float>& v, const _Matrix<float>& m) noexcept {
  const L xyzw = std::bit_cast<L>(v);
  return std::bit_cast<Vector4<float>>(
      ((spread<0>(xyzw) * L::load(&m.elements[0]) + spread<1>(xyzw) * L::load(&m.elements[4])) +
       spread<2>(xyzw) * L::load(&m.elements[8])) +
      spread<3>(xyzw) * L::load(&m.elements[12]));
}
/// x * row 0 + y * row 1 + z * row 2 + w * row 3, from the left.
[[nodiscard]] constexpr Vector4<float> vector4_transform(const Vector4<float>& v, const _Matrix<float>& m) noexcept {
  return std::is_constant_evaluated() ? transform_by_lanes<PlainLanes>(v, m) : transform_by_lanes<Lanes>(v, m);
}

}  // namespace zeph::math3d
