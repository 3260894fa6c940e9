/// Free functions that build 4x4 matrices; none changes an argument.
#pragma once

#include <cstddef>

#include <zeph/functions/quaternion.h>
#include <zeph/math3d/matrix.h>
#include <zeph/math3d/matrix_transforms.h>

namespace zeph::math3d {

[[nodiscard]] constexpr _Matrix<float> matrix_identity() noexcept { return kIdentityMatrix; }
/// No test of the determinant: a singular matrix gives infinities and NaNs.
[[nodiscard]] constexpr _Matrix<float> matrix_inverse(const _Matrix<float>& m) noexcept { return inverse(m); }

[[nodiscard]] constexpr _Matrix<float> matrix_translation_from_vector(const _Vector3<float>& v) noexcept {
  return make_translation(v);
}
[[nodiscard]] constexpr _Matrix<float> matrix_translation(float x, float y, float z) noexcept {
  return make_translation({x, y, z});
}
[[nodiscard]] constexpr _Matrix<float> matrix_scaling_from_vector(const _Vector3<float>& v) noexcept {
  return matrix_from_rows({v.x, 0.0F, 0.0F}, {0.0F, v.y, 0.0F}, {0.0F, 0.0F, v.z});
}
[[nodiscard]] constexpr _Matrix<float> matrix_scaling(float x, float y, float z) noexcept {
  return matrix_scaling_from_vector({x, y, z});
}

[[nodiscard]] constexpr _Matrix<float> matrix_rotation_quaternion(const _Rotation<float>& q) noexcept {
  return matrix_from_rotation(q);
}
/// The axis is normalised; a zero one gives the diagonal (c, c, c, 1), which is no rotation.
[[nodiscard]] inline _Matrix<float> matrix_rotation_axis(const _Vector3<float>& axis, float angle) noexcept {
  return axis_rotation(normalized(axis), angle);
}
/// The normal has to be unit: it is taken as it comes.
[[nodiscard]] inline _Matrix<float> matrix_rotation_normal(const _Vector3<float>& normal, float angle) noexcept {
  return axis_rotation(normal, angle);
}
/// About z first, then x, then y, by way of the quaternion: make_rotation_z * make_rotation_x * make_rotation_y up to
/// rounding.
[[nodiscard]] inline _Matrix<float> matrix_rotation_zxy(float x, float y, float z) noexcept {
  return matrix_from_rotation(quaternion_rotation_zxy(x, y, z));
}
[[nodiscard]] inline _Matrix<float> matrix_rotation_zxy_from_vector(const _Vector3<float>& angles) noexcept {
  return matrix_rotation_zxy(angles.x, angles.y, angles.z);
}

/// Unit frame with row 2 along `forward` and row 1 towards `up`. Without the fallbacks of make_orient: an up along
/// forward gives zero rows 0 and 1, a zero forward three zero rows.
[[nodiscard]] inline _Matrix<float> matrix_rotation_look(const _Vector3<float>& forward,
                                                         const _Vector3<float>& up) noexcept {
  const _Vector3<float> f = normalized(forward);
  const _Vector3<float> r = normalized(cross(up, f));
  return matrix_from_rows(r, cross(f, r), f);
}

/// The three vectors as rows, as they come: nothing is normalised or tested.
[[nodiscard]] constexpr _Matrix<float> matrix_ortho_normal_basis(const _Vector3<float>& a, const _Vector3<float>& b,
                                                                 const _Vector3<float>& c) noexcept {
  return matrix_from_rows(a, b, c);
}

/// Scale first, then rotation, then translation; mind the order of the arguments. All four elements of a row are
/// scaled, so that a scale that is not finite reaches column 3 as 0 * scale.
[[nodiscard]] constexpr _Matrix<float> matrix_transformation_prs(const _Vector3<float>& position,
                                                                 const _Rotation<float>& rotation,
                                                                 const _Vector3<float>& scale) noexcept {
  _Matrix<float> m = matrix_from_rotation(rotation);
  const float factors[3]{scale.x, scale.y, scale.z};
  for (std::size_t r = 0; r < 3; ++r) {
    for (std::size_t c = 0; c < 4; ++c) {
      m(r, c) = factors[r] * m(r, c);
    }
  }
  set_translation(m, position);
  return m;
}

}  // namespace zeph::math3d
