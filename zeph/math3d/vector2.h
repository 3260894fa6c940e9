/// Vector of two floats. Unlike _Vector3: equality is exact, scalar division divides, normalisation has no guard.
#pragma once

#include <cmath>
#include <type_traits>

#include <zeph/export.h>
#include <zeph/math3d/single.h>

namespace zeph::math3d {

template <typename Scalar>
struct ZEPH_MATH3D_API _Point2 {
  Scalar x{};
  Scalar y{};
};
static_assert(sizeof(_Point2<float>) == 8 && std::is_trivially_copyable_v<_Point2<float>>);

/// Exact: a NaN component makes any two values unequal.
[[nodiscard]] constexpr bool operator==(const _Point2<float>& a, const _Point2<float>& b) noexcept {
  return a.x == b.x && a.y == b.y;
}
/// Both components exactly zero, of either sign.
[[nodiscard]] constexpr bool is_zero(const _Point2<float>& v) noexcept { return v == _Point2<float>{}; }

[[nodiscard]] constexpr _Point2<float> operator+(const _Point2<float>& a, const _Point2<float>& b) noexcept {
  return {a.x + b.x, a.y + b.y};
}
[[nodiscard]] constexpr _Point2<float> operator-(const _Point2<float>& a, const _Point2<float>& b) noexcept {
  return {a.x - b.x, a.y - b.y};
}
/// Component-wise product.
[[nodiscard]] constexpr _Point2<float> operator*(const _Point2<float>& a, const _Point2<float>& b) noexcept {
  return {a.x * b.x, a.y * b.y};
}
[[nodiscard]] constexpr _Point2<float> operator*(const _Point2<float>& v, float n) noexcept {
  return {v.x * n, v.y * n};
}
/// Component-wise quotient, unguarded.
[[nodiscard]] constexpr _Point2<float> operator/(const _Point2<float>& a, const _Point2<float>& b) noexcept {
  return {a.x / b.x, a.y / b.y};
}
/// Two quotients, no reciprocal.
[[nodiscard]] constexpr _Point2<float> operator/(const _Point2<float>& v, float n) noexcept {
  return {v.x / n, v.y / n};
}

[[nodiscard]] constexpr float dot(const _Point2<float>& a, const _Point2<float>& b) noexcept {
  return a.x * b.x + a.y * b.y;
}
[[nodiscard]] constexpr float length_squared(const _Point2<float>& v) noexcept { return dot(v, v); }
[[nodiscard]] inline float length(const _Point2<float>& v) noexcept { return std::sqrt(length_squared(v)); }
/// (b - a) * t + a, t not clamped.
[[nodiscard]] constexpr _Point2<float> lerp(const _Point2<float>& a, const _Point2<float>& b, float t) noexcept {
  return (b - a) * t + a;
}

/// v * (scale / |v|). The zero vector becomes NaN; a length that overflows gives zeros.
[[nodiscard]] inline _Point2<float> normalized(const _Point2<float>& v, float scale = 1.0F) noexcept {
  return v * (scale / length(v));
}

}  // namespace zeph::math3d
