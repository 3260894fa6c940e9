/// Vector of three floats: a point, a direction or a triple of angles.
/// Axes: +x right, +y up, +z forward (left-handed). Vectors are row vectors. Angles are radians.
#pragma once

#include <type_traits>

#include <zeph/export.h>
#include <zeph/math3d/single.h>

namespace zeph::math3d {

template <typename Scalar>
struct ZEPH_MATH3D_API _Vector3 {
  Scalar x{};
  Scalar y{};
  Scalar z{};
};
static_assert(sizeof(_Vector3<float>) == 12 && std::is_trivially_copyable_v<_Vector3<float>>);

[[nodiscard]] constexpr _Vector3<float> operator+(const _Vector3<float>& a, const _Vector3<float>& b) noexcept {
  return {a.x + b.x, a.y + b.y, a.z + b.z};
}
[[nodiscard]] constexpr _Vector3<float> operator-(const _Vector3<float>& a, const _Vector3<float>& b) noexcept {
  return {a.x - b.x, a.y - b.y, a.z - b.z};
}
/// Component-wise product.
[[nodiscard]] constexpr _Vector3<float> operator*(const _Vector3<float>& a, const _Vector3<float>& b) noexcept {
  return {a.x * b.x, a.y * b.y, a.z * b.z};
}
[[nodiscard]] constexpr _Vector3<float> operator*(const _Vector3<float>& v, float n) noexcept {
  return {v.x * n, v.y * n, v.z * n};
}
/// Component-wise quotient, unguarded.
[[nodiscard]] constexpr _Vector3<float> operator/(const _Vector3<float>& a, const _Vector3<float>& b) noexcept {
  return {a.x / b.x, a.y / b.y, a.z / b.z};
}
/// Product with the single-precision reciprocal of n, not three quotients.
[[nodiscard]] constexpr _Vector3<float> operator/(const _Vector3<float>& v, float n) noexcept {
  const float reciprocal = 1.0F / n;
  return v * reciprocal;
}

/// Equal within 1e-6 in each component, both bounds included; a NaN difference counts as equal.
[[nodiscard]] constexpr bool near(const _Vector3<float>& a, const _Vector3<float>& b) noexcept {
  return near(a.x, b.x) && near(a.y, b.y) && near(a.z, b.z);
}
/// No component beyond 1e-6 in size; a NaN component counts as zero.
[[nodiscard]] constexpr bool near_zero(const _Vector3<float>& v) noexcept { return near(v, {}); }

/// (a.x*b.x + a.y*b.y) + a.z*b.z
[[nodiscard]] constexpr float dot(const _Vector3<float>& a, const _Vector3<float>& b) noexcept {
  return (a.x * b.x + a.y * b.y) + a.z * b.z;
}
[[nodiscard]] constexpr _Vector3<float> cross(const _Vector3<float>& a, const _Vector3<float>& b) noexcept {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
[[nodiscard]] constexpr float length_squared(const _Vector3<float>& v) noexcept { return dot(v, v); }
[[nodiscard]] inline float length(const _Vector3<float>& v) noexcept { return std::sqrt(length_squared(v)); }
/// (b - a) * t + a, t not clamped.
[[nodiscard]] constexpr _Vector3<float> lerp(const _Vector3<float>& a, const _Vector3<float>& b, float t) noexcept {
  return (b - a) * t + a;
}

/// Guarded normalisation: v / |v|; zeros for a zero length, NaN in all components when the squared length overflows.
[[nodiscard]] inline _Vector3<float> normalized(const _Vector3<float>& v) noexcept {
  const float squared = length_squared(v);
  if (squared == kInfinity) {
    return {kQuietNan, kQuietNan, kQuietNan};
  }
  const float size = std::sqrt(squared);
  if (size == 0.0F) {
    return {};
  }
  return {v.x / size, v.y / size, v.z / size};
}

/// Turn about +y that takes +z to the direction, in (-pi, pi]; positive from +z toward +x. Zero vector: 0.
[[nodiscard]] inline float yaw(const _Vector3<float>& direction) noexcept {
  return std::atan2(direction.x, direction.z);
}
/// Slope below the horizon, in [-pi/2, pi/2]; positive toward -y. Zero vector: -0.
[[nodiscard]] inline float pitch(const _Vector3<float>& direction) noexcept {
  return -std::atan2(direction.y, std::sqrt(direction.x * direction.x + direction.z * direction.z));
}

}  // namespace zeph::math3d
