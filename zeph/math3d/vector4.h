/// Vector of four floats. Unlike _Vector3: equality is exact and scalar division divides.
#pragma once

#include <cmath>
#include <type_traits>

#include <zeph/export.h>
#include <zeph/math3d/single.h>
#include <zeph/math3d/vector3.h>

namespace zeph::math3d {

template <typename Scalar>
class ZEPH_MATH3D_API Vector4 {
 public:
  Scalar x{};
  Scalar y{};
  Scalar z{};
  Scalar w{};
};
static_assert(sizeof(Vector4<float>) == 16 && std::is_trivially_copyable_v<Vector4<float>>);
static_assert(std::is_aggregate_v<Vector4<float>>);

/// (v.x, v.y, v.z, w)
[[nodiscard]] constexpr Vector4<float> extended(const _Vector3<float>& v, float w) noexcept {
  return {v.x, v.y, v.z, w};
}

/// Exact: a NaN component makes any two values unequal.
[[nodiscard]] constexpr bool operator==(const Vector4<float>& a, const Vector4<float>& b) noexcept {
  return a.x == b.x && a.y == b.y && a.z == b.z && a.w == b.w;
}

[[nodiscard]] constexpr Vector4<float> operator+(const Vector4<float>& a, const Vector4<float>& b) noexcept {
  return {a.x + b.x, a.y + b.y, a.z + b.z, a.w + b.w};
}
[[nodiscard]] constexpr Vector4<float> operator-(const Vector4<float>& a, const Vector4<float>& b) noexcept {
  return {a.x - b.x, a.y - b.y, a.z - b.z, a.w - b.w};
}
/// n off every component.
[[nodiscard]] constexpr Vector4<float> operator-(const Vector4<float>& v, float n) noexcept {
  return {v.x - n, v.y - n, v.z - n, v.w - n};
}
/// Component-wise product.
[[nodiscard]] constexpr Vector4<float> operator*(const Vector4<float>& a, const Vector4<float>& b) noexcept {
  return {a.x * b.x, a.y * b.y, a.z * b.z, a.w * b.w};
}
[[nodiscard]] constexpr Vector4<float> operator*(const Vector4<float>& v, float n) noexcept {
  return {v.x * n, v.y * n, v.z * n, v.w * n};
}
/// Four quotients, no reciprocal.
[[nodiscard]] constexpr Vector4<float> operator/(const Vector4<float>& v, float n) noexcept {
  return {v.x / n, v.y / n, v.z / n, v.w / n};
}

/// ((a.x*b.x + a.y*b.y) + a.z*b.z) + a.w*b.w
[[nodiscard]] constexpr float dot(const Vector4<float>& a, const Vector4<float>& b) noexcept {
  return ((a.x * b.x + a.y * b.y) + a.z * b.z) + a.w * b.w;
}
[[nodiscard]] constexpr float length_squared(const Vector4<float>& v) noexcept { return dot(v, v); }
[[nodiscard]] inline float length(const Vector4<float>& v) noexcept { return std::sqrt(length_squared(v)); }
/// (b - a) * t + a, t not clamped.
[[nodiscard]] constexpr Vector4<float> lerp(const Vector4<float>& a, const Vector4<float>& b, float t) noexcept {
  return (b - a) * t + a;
}

/// v * (1 / |v|); zeros for a length of 1e-6 or less, and for a NaN length.
[[nodiscard]] inline Vector4<float> normalized(const Vector4<float>& v) noexcept {
  const float size = length(v);
  return size > kEpsilon ? v * (1.0F / size) : Vector4<float>{};
}

}  // namespace zeph::math3d
