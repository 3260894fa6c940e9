/// Scale, rotation and Euler angles of a 4x4 matrix, worked out afresh at each read.
#pragma once

#include <cstddef>

#include <zeph/math3d/matrix33.h>

namespace zeph::math3d {

/// Row lengths and rotation of a matrix.
struct Decomposition {
  /// Row lengths; the longest is negative when the rows are mirrored.
  _Vector3<float> scale;
  /// Unit rows with a positive determinant: rows too short for a direction replaced, the mirror taken out.
  Matrix33 axes;
  /// Unit quaternion of the axes; zeros unless `succeeded`.
  _Rotation<float> rotation;
  /// False when the axes are too oblique for a rotation: (determinant - 1)^2 > 1e-4. NaN axes pass, and give NaN.
  bool succeeded;
};

/// Indices of three numbers by size; of equal ones the lower index counts as the longer.
struct Ranking {
  std::size_t longest;
  std::size_t middle;
  std::size_t shortest;
};

[[nodiscard]] constexpr Ranking ranked(float x, float y, float z) noexcept {
  if (x < y) {
    if (y < z) {
      return {2, 1, 0};
    }
    return x < z ? Ranking{1, 2, 0} : Ranking{1, 0, 2};
  }
  if (x < z) {
    return {2, 0, 1};
  }
  return y < z ? Ranking{0, 2, 1} : Ranking{0, 1, 2};
}

/// Splits rows 0 to 2 into lengths and directions. The translation and column 3 are not read. Rows shorter than 1e-4
/// have no direction of their own: the longest becomes its unit axis, the others are made perpendicular to those
/// before.
[[nodiscard]] inline Decomposition decompose(const _Matrix<float>& m) noexcept {
  constexpr float epsilon = 1e-4F;
  constexpr _Vector3<float> unit_axes[3]{{1.0F, 0.0F, 0.0F}, {0.0F, 1.0F, 0.0F}, {0.0F, 0.0F, 1.0F}};
  _Vector3<float> axes[3]{row(m, 0), row(m, 1), row(m, 2)};
  float size[3]{length(axes[0]), length(axes[1]), length(axes[2])};
  const auto [a, b, c] = ranked(size[0], size[1], size[2]);

  axes[a] = normalized(size[a] < epsilon ? unit_axes[a] : axes[a]);
  if (size[b] < epsilon) {
    const _Vector3<float>& longest = axes[a];
    const Ranking component = ranked(std::fabs(longest.x), std::fabs(longest.y), std::fabs(longest.z));
    axes[b] = cross(longest, unit_axes[component.shortest]);
  }
  axes[b] = normalized(axes[b]);
  axes[c] = normalized(size[c] < epsilon ? cross(axes[a], axes[b]) : axes[c]);

  float volume = dot(cross(axes[0], axes[1]), axes[2]);
  if (volume < 0.0F) {
    size[a] = -size[a];
    axes[a] = {-axes[a].x, -axes[a].y, -axes[a].z};
    volume = -volume;
  }

  Decomposition result{{size[0], size[1], size[2]}, {}, {}, !((volume - 1.0F) * (volume - 1.0F) > epsilon)};
  Matrix33& r = result.axes;
  for (std::size_t i = 0; i < 3; ++i) {
    set_row(r, i, axes[i]);
  }
  if (result.succeeded) {
    const _Rotation<float> t =
        dominant_quaternion_row(r, ((1.0F + r(0, 0)) - r(1, 1)) - r(2, 2), ((1.0F - r(0, 0)) + r(1, 1)) - r(2, 2),
                                ((1.0F - r(0, 0)) - r(1, 1)) + r(2, 2), ((1.0F + r(0, 0)) + r(1, 1)) + r(2, 2));
    const float t_length = length(t);
    result.rotation = {t.x / t_length, t.y / t_length, t.z / t_length, t.w / t_length};
  }
  return result;
}

/// Row lengths, the longest negative when the rows are mirrored. Shear is not taken out.
[[nodiscard]] inline _Vector3<float> scale(const _Matrix<float>& m) noexcept { return decompose(m).scale; }

/// The rotation matrix of a unit quaternion, without translation.
[[nodiscard]] constexpr _Matrix<float> unit_rotation_matrix(const _Rotation<float>& q) noexcept {
  const auto [x, y, z, w] = q;
  return matrix_from_rows({1.0F - 2.0F * (y * y + z * z), 2.0F * (x * y + z * w), 2.0F * (x * z - y * w)},
                          {2.0F * (x * y - z * w), 1.0F - 2.0F * (x * x + z * z), 2.0F * (y * z + x * w)},
                          {2.0F * (x * z + y * w), 2.0F * (y * z - x * w), 1.0F - 2.0F * (x * x + y * y)});
}

/// Rotation without scale or translation, never mirrored: the mirror goes with the sign of `scale`. Rows too oblique to
/// decompose are orthogonalised first, row 0 keeping its direction; rows that are so close to parallel that even this
/// leaves no rotation come out as orthogonalised.
[[nodiscard]] inline _Matrix<float> rotation(const _Matrix<float>& m) noexcept {
  Decomposition parts = decompose(m);
  if (parts.succeeded) {
    return unit_rotation_matrix(parts.rotation);
  }
  orthogonalize(parts.axes);
  const _Matrix<float> straightened = matrix_from_m33(parts.axes);
  parts = decompose(straightened);
  return parts.succeeded ? unit_rotation_matrix(parts.rotation) : straightened;
}

/// Replaces the directions of rows 0 to 2 by those of r, each row normalised by itself, and keeps `scale` with its
/// sign. Column 3 and row 3 stay.
inline void set_rotation(_Matrix<float>& m, const _Matrix<float>& r) noexcept {
  const _Vector3<float> directions[3]{normalized(row(r, 0)), normalized(row(r, 1)), normalized(row(r, 2))};
  const _Vector3<float> kept = scale(m);
  set_row(m, 0, directions[0] * kept.x);
  set_row(m, 1, directions[1] * kept.y);
  set_row(m, 2, directions[2] * kept.z);
}

/// Replaces the lengths of rows 0 to 2; the old ones are not multiplied. Signs of the rows survive, a zero row stays
/// zero. Column 3 and row 3 stay.
inline void set_scale(_Matrix<float>& m, const _Vector3<float>& lengths) noexcept {
  set_row(m, 0, normalized(row(m, 0)) * lengths.x);
  set_row(m, 1, normalized(row(m, 1)) * lengths.y);
  set_row(m, 2, normalized(row(m, 2)) * lengths.z);
}

/// The angles of rotation_z(roll) * rotation_x(pitch) * rotation_y(yaw), in that order on a row vector. Yaw in
/// [-pi, pi], pitch in [-pi/2, pi/2], roll in [-pi, pi]; no special case near the poles. A zero matrix: 0, -0, 0.
[[nodiscard]] inline float yaw(const _Matrix<float>& m) noexcept {
  const _Vector3<float> f = normalized(forward(m));
  return std::atan2(f.x, f.z);
}
[[nodiscard]] inline float pitch(const _Matrix<float>& m) noexcept { return -std::asin(normalized(forward(m)).y); }
/// acos of the cosine between right and the level right of the forward axis, signed by right's y. Exactly at a pole: 0.
[[nodiscard]] inline float roll(const _Matrix<float>& m) noexcept {
  const _Vector3<float> f = normalized(forward(m));
  const _Vector3<float> r = normalized(right(m));
  const float level = std::sqrt(f.x * f.x + f.z * f.z);
  if (level == 0.0F) {
    return 0.0F;
  }
  const float cosine = (r.x * f.z - r.z * f.x) / level;
  if (cosine > 1.0F) {
    return 0.0F;
  }
  if (cosine < -1.0F) {
    return kPi;
  }
  const float size = std::acos(cosine);
  return r.y < 0.0F ? -size : size;
}

}  // namespace zeph::math3d
