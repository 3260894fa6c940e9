/// Quaternion: vector part x, y, z first, scalar part w last. Nothing here normalises unless its name says so.
/// A unit quaternion q rotates v to the vector part of q * (v, 0) * conjugate(q), in Hamilton's product: a positive
/// angle turns +z toward +x about +y, +z toward -y about +x, and +x toward +y about +z.
#pragma once

#include <bit>
#include <type_traits>

#include <zeph/export.h>
#include <zeph/math3d/lanes.h>
#include <zeph/math3d/sin_cos.h>
#include <zeph/math3d/vector3.h>

namespace zeph::math3d {

/// The default is four zeros, not the identity.
template <typename Scalar>
struct ZEPH_MATH3D_API _Rotation {
  Scalar x{};
  Scalar y{};
  Scalar z{};
  Scalar w{};
};
static_assert(sizeof(_Rotation<float>) == 16 && std::is_trivially_copyable_v<_Rotation<float>>);

/// Axis and angle of a quaternion, as axis_angle gives them.
struct AxisAngle {
  _Vector3<float> axis;
  float angle;
};

inline constexpr _Rotation<float> kIdentityRotation{0.0F, 0.0F, 0.0F, 1.0F};

[[nodiscard]] constexpr _Rotation<float> operator+(const _Rotation<float>& a, const _Rotation<float>& b) noexcept {
  return {a.x + b.x, a.y + b.y, a.z + b.z, a.w + b.w};
}
[[nodiscard]] constexpr _Rotation<float> operator-(const _Rotation<float>& a, const _Rotation<float>& b) noexcept {
  return {a.x - b.x, a.y - b.y, a.z - b.z, a.w - b.w};
}
/// ((a.w * b + a.x * (b.w, -b.z, b.y, -b.x)) + a.y * (b.z, b.w, -b.x, -b.y)) + a.z * (-b.y, b.x, b.w, -b.z). A negated
/// factor instead of a subtraction gives the same value, and keeps GCC 12 from contracting components that alternate
/// between sums and differences into fused operations, which it does even if told not to. The signs come from two
/// factors, the one of a.x, which is that of a.z in another order, and -a, a half of which negates a half of lanes.
template <typename L>
[[nodiscard]] constexpr _Rotation<float> product_by_lanes(const _Rotation<float>& a,
                                                          const _Rotation<float>& b) noexcept {
  const L left = std::bit_cast<L>(a);
  const L right = std::bit_cast<L>(b);
  const L minus_left = -left;
  const L right_by_x = negated<false, true, false, true>(shuffled<3, 2, 1, 0>(right));
  const L by_w = spread<3>(left) * right;
  const L by_x = spread<0>(left) * right_by_x;
  const L by_y = shuffled<1, 1, 1, 1>(left, minus_left) * shuffled<2, 3, 0, 1>(right);
  const L by_z = shuffled<2, 2, 2, 2>(minus_left, left) * shuffled<2, 3, 0, 1>(right_by_x);
  return std::bit_cast<_Rotation<float>>(((by_w + by_x) + by_y) + by_z);
}
/// Hamilton's product: rotating by a * b rotates by b first, then by a.
[[nodiscard]] constexpr _Rotation<float> operator*(const _Rotation<float>& a, const _Rotation<float>& b) noexcept {
  return std::is_constant_evaluated() ? product_by_lanes<PlainLanes>(a, b) : product_by_lanes<Lanes>(a, b);
}
[[nodiscard]] constexpr _Rotation<float> operator*(const _Rotation<float>& q, float n) noexcept {
  return {q.x * n, q.y * n, q.z * n, q.w * n};
}
/// Product with the reciprocal of n, which is taken in double precision and narrowed.
[[nodiscard]] constexpr _Rotation<float> operator/(const _Rotation<float>& q, float n) noexcept {
  return q * static_cast<float>(1.0 / static_cast<double>(n));
}

/// Equal within 1e-6 in each component, both bounds included; a NaN difference counts as equal. q and -q, one rotation
/// though they are, differ.
[[nodiscard]] constexpr bool near(const _Rotation<float>& a, const _Rotation<float>& b) noexcept {
  return near(a.x, b.x) && near(a.y, b.y) && near(a.z, b.z) && near(a.w, b.w);
}

[[nodiscard]] constexpr float dot(const _Rotation<float>& a, const _Rotation<float>& b) noexcept {
  return ((a.x * b.x + a.y * b.y) + a.z * b.z) + a.w * b.w;
}
[[nodiscard]] constexpr float length_squared(const _Rotation<float>& q) noexcept { return dot(q, q); }
[[nodiscard]] inline float length(const _Rotation<float>& q) noexcept { return std::sqrt(length_squared(q)); }

/// Guarded normalisation: q / |q|; zeros for a zero length, NaN in all components when the squared length overflows.
[[nodiscard]] inline _Rotation<float> normalized(const _Rotation<float>& q) noexcept {
  const float squared = length_squared(q);
  if (squared == kInfinity) {
    return {kQuietNan, kQuietNan, kQuietNan, kQuietNan};
  }
  const float size = std::sqrt(squared);
  if (size == 0.0F) {
    return {};
  }
  return {q.x / size, q.y / size, q.z / size, q.w / size};
}

/// (axis * sin(angle / 2), cos(angle / 2)) with the C library's sine and cosine. The axis is taken as it comes: one
/// that is not unit gives a quaternion that is not unit.
[[nodiscard]] inline _Rotation<float> rotation_from_axis_angle(const _Vector3<float>& axis, float angle) noexcept {
  const float half = angle * 0.5F;
  const float sine = std::sin(half);
  return {axis.x * sine, axis.y * sine, axis.z * sine, std::cos(half)};
}

/// 2 * acos(w) in [0, 2 pi], by a polynomial in |w|. A size of w above 1 counts as 1.
[[nodiscard]] inline float angle(const _Rotation<float>& q) noexcept {
  constexpr float below_half_pi = 1.5707963F;
  static_assert(below_half_pi < kHalfPi, "the polynomial wants the float just below pi/2, not the nearest one");
  const float a = std::fabs(q.w);
  const float root = std::sqrt(greater(0.0F, 1.0F - a));
  float p = 0.0066700899F - a * 0.0012624911F;
  p = p * a - 0.017088126F;
  p = p * a + 0.03089188F;
  p = p * a - 0.050174303F;
  p = p * a + 0.08897899F;
  p = p * a - 0.2145988F;
  p = p * a + below_half_pi;
  const float arc_cosine = p * root;
  const float half = q.w >= 0.0F ? arc_cosine : kPi - arc_cosine;
  return half + half;
}

/// The angle, and x, y, z as the axis: for a unit quaternion its length is sin(angle / 2), not 1.
[[nodiscard]] inline AxisAngle axis_angle(const _Rotation<float>& q) noexcept { return {{q.x, q.y, q.z}, angle(q)}; }

/// Image of +z under a unit quaternion: row 2 of matrix_from_rotation up to rounding.
[[nodiscard]] constexpr _Vector3<float> forward(const _Rotation<float>& q) noexcept {
  return {2.0F * (q.x * q.z + q.y * q.w), 2.0F * (q.z * q.y - q.x * q.w),
          static_cast<float>(1.0 - 2.0 * static_cast<double>(q.x * q.x + q.y * q.y))};
}
/// Image of +y, row 1.
[[nodiscard]] constexpr _Vector3<float> up(const _Rotation<float>& q) noexcept {
  return {2.0F * (q.x * q.y - q.z * q.w), static_cast<float>(1.0 - 2.0 * static_cast<double>(q.z * q.z + q.x * q.x)),
          2.0F * (q.w * q.x + q.z * q.y)};
}
/// Image of +x, row 0.
[[nodiscard]] constexpr _Vector3<float> right(const _Rotation<float>& q) noexcept {
  return {static_cast<float>(1.0 - 2.0 * static_cast<double>(q.y * q.y + q.z * q.z)), 2.0F * (q.x * q.y + q.w * q.z),
          2.0F * (q.x * q.z - q.w * q.y)};
}

/// Vector part of q * (v, 0) * conjugate(q): scaled by the squared length of q.
[[nodiscard]] constexpr _Vector3<float> rotate(const _Rotation<float>& q, const _Vector3<float>& v) noexcept {
  const _Rotation<float> t{(v.x * q.w + q.y * v.z) - q.z * v.y, (v.y * q.w - q.x * v.z) + q.z * v.x,
                           (q.x * v.y + q.w * v.z) - v.x * q.y, ((-q.x) * v.x - v.y * q.y) - q.z * v.z};
  const _Vector3<float> c{-q.x, -q.y, -q.z};
  return {((t.x * q.w + t.w * c.x) + t.y * c.z) - t.z * c.y, ((t.w * c.y - t.x * c.z) + t.y * q.w) + t.z * c.x,
          ((t.w * c.z + t.x * c.y) - t.y * c.x) + t.z * q.w};
}

/// Arctangent for v of 0 or more, infinity included: a polynomial on [0, 1], and pi/2 less the one of 1/v above.
[[nodiscard]] constexpr float arctangent_polynomial(float v) noexcept {
  const float e = v <= 1.0F ? v : 1.0F / v;
  const float g = e * e;
  float p = 0.0028662258F * g - 0.016165737F;
  p = p * g + 0.042909615F;
  p = p * g - 0.075289637F;
  p = p * g + 0.10656264F;
  p = p * g - 0.14208899F;
  p = p * g + 0.19993551F;
  p = p * g - 0.33333147F;
  p = p * g + 1.0F;
  const float arc = e * p;
  return v <= 1.0F ? arc : kHalfPi - arc;
}

/// Spherical interpolation from a to b the short way round, t not clamped: (k1 * sign) * b + k0 * a with
/// k0 = sin((1 - t) * omega) / sin(omega), k1 = sin(t * omega) / sin(omega). Linear when the cosine of omega is 0.99999
/// or more, or NaN. The result is not normalised.
[[nodiscard]] inline _Rotation<float> slerp(const _Rotation<float>& a, const _Rotation<float>& b, float t) noexcept {
  float cosine = (a.y * b.y + a.w * b.w) + (a.x * b.x + a.z * b.z);
  const float sign = cosine < 0.0F ? -1.0F : 1.0F;
  cosine = cosine * sign;
  float k0 = 1.0F - t;
  float k1 = t;
  if (cosine < 0.99999F) {
    const float sine = std::sqrt(1.0F - cosine * cosine);
    const float omega = cosine == 0.0F ? kHalfPi : arctangent_polynomial(sine / cosine);
    k0 = vector_sin_cos(k0 * omega).sine / sine;
    k1 = vector_sin_cos(k1 * omega).sine / sine;
  }
  return b * (k1 * sign) + a * k0;
}

}  // namespace zeph::math3d
