/// 4x4 transform of row vectors: rows 0 to 2 are the right, up and forward axes, row 3 is the translation. A point is
/// x * row 0 + y * row 1 + z * row 2 + row 3, and in a product a * b, a applies first.
#pragma once

#include <cstddef>
#include <type_traits>

#include <zeph/export.h>
#include <zeph/math3d/lanes.h>
#include <zeph/math3d/rotation.h>
#include <zeph/math3d/vector3.h>

namespace zeph::math3d {

/// Row-major: element (row, column) is elements[4 * row + column]. The default is sixteen zeros, not the identity.
template <typename Scalar>
struct ZEPH_MATH3D_API _Matrix {
  Scalar elements[16]{};

  /// Unchecked: both indices lie in 0 to 3.
  [[nodiscard]] constexpr Scalar& operator()(std::size_t row, std::size_t column) noexcept {
    return elements[4 * row + column];
  }
  [[nodiscard]] constexpr const Scalar& operator()(std::size_t row, std::size_t column) const noexcept {
    return elements[4 * row + column];
  }
};
static_assert(sizeof(_Matrix<float>) == 64 && std::is_trivially_copyable_v<_Matrix<float>>);

inline constexpr _Matrix<float> kIdentityMatrix{{1.0F, 0.0F, 0.0F, 0.0F,  //
                                                 0.0F, 1.0F, 0.0F, 0.0F,  //
                                                 0.0F, 0.0F, 1.0F, 0.0F,  //
                                                 0.0F, 0.0F, 0.0F, 1.0F}};

[[nodiscard]] constexpr _Matrix<float> operator+(const _Matrix<float>& a, const _Matrix<float>& b) noexcept {
  _Matrix<float> sum;
  for (std::size_t i = 0; i < 16; ++i) {
    sum.elements[i] = a.elements[i] + b.elements[i];
  }
  return sum;
}
[[nodiscard]] constexpr _Matrix<float> operator-(const _Matrix<float>& a, const _Matrix<float>& b) noexcept {
  _Matrix<float> difference;
  for (std::size_t i = 0; i < 16; ++i) {
    difference.elements[i] = a.elements[i] - b.elements[i];
  }
  return difference;
}
/// All sixteen elements times n, the translation and column 3 too.
[[nodiscard]] constexpr _Matrix<float> operator*(const _Matrix<float>& m, float n) noexcept {
  _Matrix<float> scaled;
  for (std::size_t i = 0; i < 16; ++i) {
    scaled.elements[i] = m.elements[i] * n;
  }
  return scaled;
}
/// Row i is (a[i][3] * b row 3 + a[i][1] * b row 1) + (a[i][2] * b row 2 + a[i][0] * b row 0).
template <typename L>
[[nodiscard]] constexpr _Matrix<float> product_by_lanes(const _Matrix<float>& a, const _Matrix<float>& b) noexcept {
  const L b0 = L::load(&b.elements[0]);
  const L b1 = L::load(&b.elements[4]);
  const L b2 = L::load(&b.elements[8]);
  const L b3 = L::load(&b.elements[12]);
  const auto row = [&](const float* from) {
    const L r = L::load(from);
    return (spread<3>(r) * b3 + spread<1>(r) * b1) + (spread<2>(r) * b2 + spread<0>(r) * b0);
  };
  _Matrix<float> product;
  row(&a.elements[0]).store(&product.elements[0]);
  row(&a.elements[4]).store(&product.elements[4]);
  row(&a.elements[8]).store(&product.elements[8]);
  row(&a.elements[12]).store(&product.elements[12]);
  return product;
}
[[nodiscard]] constexpr _Matrix<float> operator*(const _Matrix<float>& a, const _Matrix<float>& b) noexcept {
  return std::is_constant_evaluated() ? product_by_lanes<PlainLanes>(a, b) : product_by_lanes<Lanes>(a, b);
}
/// The point v, w taken as 1: ((z * row 2 + row 3) + y * row 1) + x * row 0. Column 3 plays no part.
template <typename L>
[[nodiscard]] constexpr _Vector3<float> point_by_lanes(const _Vector3<float>& v, const _Matrix<float>& m) noexcept {
  const L xy = L::of(v.x, v.y);
  const L point =
      ((L::all(v.z) * L::load(&m.elements[8]) + L::load(&m.elements[12])) + spread<1>(xy) * L::load(&m.elements[4])) +
      spread<0>(xy) * L::load(&m.elements[0]);
  return {point[0], point[1], point[2]};
}
[[nodiscard]] constexpr _Vector3<float> operator*(const _Vector3<float>& v, const _Matrix<float>& m) noexcept {
  return std::is_constant_evaluated() ? point_by_lanes<PlainLanes>(v, m) : point_by_lanes<Lanes>(v, m);
}

/// True when no pair of elements differs by more than the tolerance; a pair with a NaN passes.
[[nodiscard]] inline bool near(const _Matrix<float>& a, const _Matrix<float>& b, float tolerance) noexcept {
  for (std::size_t i = 0; i < 16; ++i) {
    if (std::fabs(a.elements[i] - b.elements[i]) > tolerance) {
      return false;
    }
  }
  return true;
}

/// Element (row, column), 0 when either index is outside 0 to 3. A negative index is a large unsigned one.
[[nodiscard]] constexpr float element(const _Matrix<float>& m, int row, int column) noexcept {
  const auto r = static_cast<unsigned>(row);
  const auto c = static_cast<unsigned>(column);
  return r < 4 && c < 4 ? m(r, c) : 0.0F;
}
/// Does nothing when either index is outside 0 to 3.
constexpr void set_element(_Matrix<float>& m, int row, int column, float value) noexcept {
  const auto r = static_cast<unsigned>(row);
  const auto c = static_cast<unsigned>(column);
  if (r < 4 && c < 4) {
    m(r, c) = value;
  }
}

/// x, y, z of a row, 0 to 3.
[[nodiscard]] constexpr _Vector3<float> row(const _Matrix<float>& m, std::size_t index) noexcept {
  return {m(index, 0), m(index, 1), m(index, 2)};
}
/// Column 3 of the row stays.
constexpr void set_row(_Matrix<float>& m, std::size_t index, const _Vector3<float>& v) noexcept {
  m(index, 0) = v.x;
  m(index, 1) = v.y;
  m(index, 2) = v.z;
}
/// Axes and translation as stored, not normalised.
[[nodiscard]] constexpr _Vector3<float> right(const _Matrix<float>& m) noexcept { return row(m, 0); }
[[nodiscard]] constexpr _Vector3<float> up(const _Matrix<float>& m) noexcept { return row(m, 1); }
[[nodiscard]] constexpr _Vector3<float> forward(const _Matrix<float>& m) noexcept { return row(m, 2); }
[[nodiscard]] constexpr _Vector3<float> translation(const _Matrix<float>& m) noexcept { return row(m, 3); }
constexpr void set_translation(_Matrix<float>& m, const _Vector3<float>& v) noexcept { set_row(m, 3, v); }

/// Affine matrix of three axes and a translation: column 3 is (0, 0, 0, 1).
[[nodiscard]] constexpr _Matrix<float> matrix_from_rows(const _Vector3<float>& right, const _Vector3<float>& up,
                                                        const _Vector3<float>& forward,
                                                        const _Vector3<float>& translation = {}) noexcept {
  return {{right.x, right.y, right.z, 0.0F,        //
           up.x, up.y, up.z, 0.0F,                 //
           forward.x, forward.y, forward.z, 0.0F,  //
           translation.x, translation.y, translation.z, 1.0F}};
}

/// A row vector times this matrix turns as `rotate` turns it. q is not normalised: a q that is not unit gives rows that
/// are not unit.
[[nodiscard]] constexpr _Matrix<float> matrix_from_rotation(const _Rotation<float>& q) noexcept {
  const float x2 = q.x + q.x;
  const float y2 = q.y + q.y;
  const float z2 = q.z + q.z;
  return matrix_from_rows({1.0F - q.y * y2 - q.z * z2, q.x * y2 + q.w * z2, q.x * z2 - q.w * y2},
                          {q.x * y2 - q.w * z2, 1.0F - q.x * x2 - q.z * z2, q.y * z2 + q.w * x2},
                          {q.x * z2 + q.w * y2, q.y * z2 - q.w * x2, 1.0F - q.x * x2 - q.y * y2});
}

/// The row of 4 * q * transpose(q) that divides best, q being the quaternion of the rotation block of m. xx, yy, zz, ww
/// are its diagonal, four times the squares; the other elements are sums and differences across m's diagonal.
template <typename Block>
[[nodiscard]] constexpr _Rotation<float> dominant_quaternion_row(const Block& m, float xx, float yy, float zz,
                                                                 float ww) noexcept {
  const float xy = m(0, 1) + m(1, 0);
  const float xz = m(0, 2) + m(2, 0);
  const float yz = m(1, 2) + m(2, 1);
  const float xw = m(1, 2) - m(2, 1);
  const float yw = m(2, 0) - m(0, 2);
  const float zw = m(0, 1) - m(1, 0);
  if (m(2, 2) <= 0.0F) {
    return m(1, 1) - m(0, 0) <= 0.0F ? _Rotation<float>{xx, xy, xz, xw} : _Rotation<float>{xy, yy, yz, yw};
  }
  return m(1, 1) + m(0, 0) <= 0.0F ? _Rotation<float>{xz, yz, zz, zw} : _Rotation<float>{xw, yw, zw, ww};
}

/// Quaternion of the upper left 3x3 block, which is taken to be a rotation: scale is not taken out. A zero matrix gives
/// (1, 0, 0, 0).
[[nodiscard]] inline _Rotation<float> rotation_from_matrix(const _Matrix<float>& m) noexcept {
  const float xx = ((m(0, 0) + 1.0F) - m(2, 2)) - m(1, 1);
  const float yy = ((1.0F - m(0, 0)) - m(2, 2)) + m(1, 1);
  const float zz = ((1.0F - m(0, 0)) + m(2, 2)) - m(1, 1);
  const float ww = ((m(0, 0) + 1.0F) + m(2, 2)) + m(1, 1);
  const _Rotation<float> t = dominant_quaternion_row(m, xx, yy, zz, ww);
  const float size = std::sqrt((t.x * t.x + t.z * t.z) + (t.y * t.y + t.w * t.w));
  return {t.x / size, t.y / size, t.z / size, t.w / size};
}

}  // namespace zeph::math3d
