/// Free functions on quaternions; none changes an argument.
///
/// With Qx, Qy, Qz the turns about the axes, three Euler conventions stand here. A triple always holds the angles about
/// x, y, z in radians, whatever the order of application:
///   zxy  Qy * Qx * Qz  z first, then x, then y (roll, pitch, yaw)
///   xyz  Qx * Qy * Qz  z first, then y, then x
///   zyx  Qz * Qy * Qx  x first, then y, then z
#pragma once

#include <zeph/math3d/matrix.h>
#include <zeph/math3d/rotation.h>
#include <zeph/math3d/sin_cos.h>

namespace zeph::math3d {

/// Hamilton's product b * a: a applies first, then b. The operator has the opposite order.
[[nodiscard]] constexpr _Rotation<float> quaternion_multiply(const _Rotation<float>& a,
                                                             const _Rotation<float>& b) noexcept {
  return b * a;
}

[[nodiscard]] constexpr float quaternion_dot(const _Rotation<float>& a, const _Rotation<float>& b) noexcept {
  return dot(a, b);
}

/// (b - a) * t + a, t not clamped, no sign flipped, not normalised: q and -q blend through zero.
[[nodiscard]] constexpr _Rotation<float> quaternion_lerp(const _Rotation<float>& a, const _Rotation<float>& b,
                                                         float t) noexcept {
  return (b - a) * t + a;
}

[[nodiscard]] inline _Rotation<float> quaternion_slerp(const _Rotation<float>& a, const _Rotation<float>& b,
                                                       float t) noexcept {
  return slerp(a, b, t);
}

[[nodiscard]] constexpr _Rotation<float> quaternion_conjugate(const _Rotation<float>& q) noexcept {
  return {q.x * -1.0F, q.y * -1.0F, q.z * -1.0F, q.w * 1.0F};
}

[[nodiscard]] constexpr float quaternion_length_sq(const _Rotation<float>& q) noexcept { return length_squared(q); }
[[nodiscard]] inline float quaternion_length(const _Rotation<float>& q) noexcept { return length(q); }
[[nodiscard]] inline _Rotation<float> quaternion_normalize(const _Rotation<float>& q) noexcept { return normalized(q); }

/// conjugate / |q|^2; zeros up to a squared length of 1.1920929e-7, which is a length of about 3.45e-4.
[[nodiscard]] constexpr _Rotation<float> quaternion_inverse(const _Rotation<float>& q) noexcept {
  const float squared = length_squared(q);
  if (squared <= kFloatEpsilon) {
    return {};
  }
  return {-q.x / squared, -q.y / squared, -q.z / squared, q.w / squared};
}

[[nodiscard]] constexpr _Rotation<float> quaternion_identity() noexcept { return kIdentityRotation; }

/// Turn about the axis, which is normalised. A zero axis gives (0, 0, 0, cos(angle / 2)), which is not unit.
[[nodiscard]] inline _Rotation<float> quaternion_rotation_axis(const _Vector3<float>& axis, float angle) noexcept {
  const _Vector3<float> n = normalized(axis);
  const auto [sine, cosine] = vector_sin_cos(angle * 0.5F);
  return {n.x * sine, n.y * sine, n.z * sine, cosine};
}

[[nodiscard]] inline _Rotation<float> quaternion_rotation_matrix(const _Matrix<float>& m) noexcept {
  return rotation_from_matrix(m);
}

/// Qy(y) * Qx(x) * Qz(z).
[[nodiscard]] inline _Rotation<float> quaternion_rotation_zxy(float x, float y, float z) noexcept {
  const auto [sx, cx] = vector_sin_cos(x * 0.5F);
  const auto [sy, cy] = vector_sin_cos(y * 0.5F);
  const auto [sz, cz] = vector_sin_cos(z * 0.5F);
  return {sx * cy * cz + cx * sy * sz, cx * sy * cz - sx * cy * sz, cx * cy * sz - sx * sy * cz,
          cx * cy * cz + sx * sy * sz};
}
[[nodiscard]] inline _Rotation<float> quaternion_rotation_zxy_from_vector(const _Vector3<float>& angles) noexcept {
  return quaternion_rotation_zxy(angles.x, angles.y, angles.z);
}

/// Shortest turn from one direction to the other. The tolerance of 1e-4 is absolute, on products of the lengths:
/// vectors that agree, and short or zero ones, give the identity; opposed ones the half turn about +y, whatever they
/// are.
[[nodiscard]] inline _Rotation<float> quaternion_rotation_fromto(const _Vector3<float>& from,
                                                                 const _Vector3<float>& to) noexcept {
  constexpr float tolerance = 0.0001F;
  const float d = dot(from, to);
  const float k = std::sqrt(dot(from, from) * dot(to, to));
  if (d > k - tolerance) {
    return kIdentityRotation;
  }
  if (d <= tolerance - k) {
    return quaternion_rotation_axis({0.0F, 1.0F, 0.0F}, kPi);
  }
  const _Vector3<float> c = cross(from, to);
  return normalized(_Rotation<float>{c.x, c.y, c.z, k + d});
}

/// The axis is x, y, z as stored, not normalised.
[[nodiscard]] inline AxisAngle quaternion_to_axis_angle(const _Rotation<float>& q) noexcept { return axis_angle(q); }

/// Arcsine of a value held in [-1, 1]; a NaN counts as -1.
[[nodiscard]] inline float arcsine_clamped(float value) noexcept {
  return std::asin(lesser(greater(value, -1.0F), 1.0F));
}

/// The zxy triple, inverse of quaternion_rotation_zxy_from_vector in spite of the name. At a pitch of +-pi/2, where z
/// and y turn about one axis, z is 0 and y takes what is left. The x angle wants a unit q, the others take any length.
[[nodiscard]] inline _Vector3<float> quaternion_to_rotation_xzy(const _Rotation<float>& q) noexcept {
  constexpr float pole = 0.499999F;
  const float p = q.y * q.z - q.x * q.w;
  const float pitch = -arcsine_clamped(2.0F * p);
  if (std::fabs(p) < pole) {
    return {pitch, std::atan2(2.0F * (q.w * q.y + q.x * q.z), q.z * q.z - q.x * q.x - q.y * q.y + q.w * q.w),
            std::atan2(2.0F * (q.x * q.y + q.w * q.z), q.y * q.y - q.z * q.z - q.x * q.x + q.w * q.w)};
  }
  const float e = q.x * q.y - q.w * q.z;
  const float f = q.x * q.y + q.w * q.z;
  const float g = q.x * q.w - q.y * q.z;
  const float h = q.x * q.w + q.y * q.z;
  return {pitch, std::atan2(e * g + h * f, h * g - e * f), 0.0F};
}

/// The zyx triple of a unit q; no special case at the poles of y.
[[nodiscard]] inline _Vector3<float> quaternion_to_euler_zyx(const _Rotation<float>& q) noexcept {
  return {std::atan2(2.0F * (q.y * q.z + q.w * q.x), 1.0F - 2.0F * (q.x * q.x + q.y * q.y)),
          arcsine_clamped(2.0F * (q.w * q.y - q.x * q.z)),
          std::atan2(2.0F * (q.w * q.z + q.x * q.y), 1.0F - 2.0F * (q.y * q.y + q.z * q.z))};
}

/// The xyz triple of a unit q; no special case at the poles of y.
[[nodiscard]] inline _Vector3<float> quaternion_to_euler_xyz(const _Rotation<float>& q) noexcept {
  return {std::atan2(-2.0F * (q.y * q.z - q.w * q.x), 1.0F - 2.0F * (q.x * q.x + q.y * q.y)),
          arcsine_clamped(2.0F * (q.w * q.y + q.x * q.z)),
          std::atan2(2.0F * (q.w * q.z - q.x * q.y), 1.0F - 2.0F * (q.y * q.y + q.z * q.z))};
}

}  // namespace zeph::math3d
