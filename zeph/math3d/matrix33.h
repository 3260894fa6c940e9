/// 3x3 block of rotation and scale, without translation: rows are the right, up and forward axes of row vectors.
#pragma once

#include <cstddef>
#include <type_traits>

#include <zeph/export.h>
#include <zeph/math3d/matrix.h>

namespace zeph::math3d {

/// Row-major: element (row, column) is elements[3 * row + column]. The default is the identity.
struct ZEPH_MATH3D_API Matrix33 {
  float elements[9]{1.0F, 0.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 0.0F, 1.0F};

  /// Unchecked: both indices lie in 0 to 2.
  [[nodiscard]] constexpr float& operator()(std::size_t row, std::size_t column) noexcept {
    return elements[3 * row + column];
  }
  [[nodiscard]] constexpr const float& operator()(std::size_t row, std::size_t column) const noexcept {
    return elements[3 * row + column];
  }
};
static_assert(sizeof(Matrix33) == 36 && std::is_trivially_copyable_v<Matrix33>);

/// True when no pair of elements differs by more than the tolerance; a pair with a NaN passes.
[[nodiscard]] inline bool near(const Matrix33& a, const Matrix33& b, float tolerance) noexcept {
  for (std::size_t i = 0; i < 9; ++i) {
    if (std::fabs(a.elements[i] - b.elements[i]) > tolerance) {
      return false;
    }
  }
  return true;
}

/// Element (row, column), 0 when either index is outside 0 to 2. A negative index is a large unsigned one.
[[nodiscard]] constexpr float element(const Matrix33& m, int row, int column) noexcept {
  const auto r = static_cast<unsigned>(row);
  const auto c = static_cast<unsigned>(column);
  return r < 3 && c < 3 ? m(r, c) : 0.0F;
}
/// Does nothing when either index is outside 0 to 2.
constexpr void set_element(Matrix33& m, int row, int column, float value) noexcept {
  const auto r = static_cast<unsigned>(row);
  const auto c = static_cast<unsigned>(column);
  if (r < 3 && c < 3) {
    m(r, c) = value;
  }
}

[[nodiscard]] constexpr _Vector3<float> row(const Matrix33& m, std::size_t index) noexcept {
  return {m(index, 0), m(index, 1), m(index, 2)};
}
constexpr void set_row(Matrix33& m, std::size_t index, const _Vector3<float>& v) noexcept {
  m(index, 0) = v.x;
  m(index, 1) = v.y;
  m(index, 2) = v.z;
}

/// Gram-Schmidt over rows 0, 1, 2: row 0 keeps its direction, scale is lost, a mirrored frame stays mirrored.
/// A zero row stays zero; a row that depends on those before it becomes zero, or what rounding left of it.
inline void orthogonalize(Matrix33& m) noexcept {
  const _Vector3<float> r1 = row(m, 1);
  const _Vector3<float> r2 = row(m, 2);
  const _Vector3<float> a = normalized(row(m, 0));
  const _Vector3<float> b = normalized(r1 - a * dot(r1, a));
  const _Vector3<float> c = normalized(r2 - (a * dot(r2, a) + b * dot(r2, b)));
  set_row(m, 0, a);
  set_row(m, 1, b);
  set_row(m, 2, c);
}

/// (row 0 x row 1) . row 2
[[nodiscard]] constexpr float determinant(const Matrix33& m) noexcept {
  return dot(cross(row(m, 0), row(m, 1)), row(m, 2));
}
/// A determinant of exactly 0, or NaN, is not mirrored.
[[nodiscard]] constexpr bool is_mirrored(const Matrix33& m) noexcept { return 0.0F > determinant(m); }
/// Negates row 0.
constexpr void mirror(Matrix33& m) noexcept { set_row(m, 0, {-m(0, 0), -m(0, 1), -m(0, 2)}); }

/// Swaps rows and columns in place.
constexpr void transpose(Matrix33& m) noexcept {
  const Matrix33 old = m;
  for (std::size_t r = 0; r < 3; ++r) {
    for (std::size_t c = 0; c < 3; ++c) {
      m(r, c) = old(c, r);
    }
  }
}

/// The plain product, a applying first, then orthogonalised: the result never carries scale or shear.
[[nodiscard]] inline Matrix33 operator*(const Matrix33& a, const Matrix33& b) noexcept {
  Matrix33 product;
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t j = 0; j < 3; ++j) {
      product(i, j) = (a(i, 0) * b(0, j) + a(i, 1) * b(1, j)) + a(i, 2) * b(2, j);
    }
  }
  orthogonalize(product);
  return product;
}

/// Rows 0 to 2, columns 0 to 2 of a 4x4 matrix.
[[nodiscard]] constexpr Matrix33 m33(const _Matrix<float>& m) noexcept {
  return {{m(0, 0), m(0, 1), m(0, 2), m(1, 0), m(1, 1), m(1, 2), m(2, 0), m(2, 1), m(2, 2)}};
}
/// Column 3 and row 3 stay.
constexpr void set_m33(_Matrix<float>& m, const Matrix33& block) noexcept {
  for (std::size_t r = 0; r < 3; ++r) {
    set_row(m, r, row(block, r));
  }
}
/// The block padded with a column 3 and a row 3 of (0, 0, 0, 1).
[[nodiscard]] constexpr _Matrix<float> matrix_from_m33(const Matrix33& block) noexcept {
  return matrix_from_rows(row(block, 0), row(block, 1), row(block, 2));
}

}  // namespace zeph::math3d
