/// What changes a 4x4 matrix in place, what tests it, and what builds one from angles and directions.
/// Sines and cosines are those of scalar_sin_cos.
#pragma once

#include <cstddef>

#include <zeph/math3d/matrix33.h>
#include <zeph/math3d/sin_cos.h>

namespace zeph::math3d {

/// m = m * r, r being the 3x3 block of `other`, scale included: the translation turns too, column 3 of m stays.
constexpr void do_rotation(_Matrix<float>& m, const _Matrix<float>& other) noexcept {
  m = m * matrix_from_m33(m33(other));
}
/// Adds to x, y, z of row 3.
constexpr void do_translate(_Matrix<float>& m, const _Vector3<float>& v) noexcept {
  set_translation(m, translation(m) + v);
}

/// The adjugate times 1/determinant, the reciprocal taken once. There is no test of the determinant: a singular matrix
/// gives infinities and NaNs, a zero matrix NaN throughout.
///
/// Lane i works out column i of the adjugate, the cofactors that leave row i out. Rows pair up as 0 with 1 and 2 with
/// 3; a cofactor is the row paired with i, expanded by the 2x2 determinants of the other pair. The twelve determinants
/// of the pairs serve all sixteen cofactors and the determinant (Laplace's expansion by two rows).
template <typename L>
[[nodiscard]] constexpr _Matrix<float> inverse_by_lanes(const _Matrix<float>& m) noexcept {
  const L r0 = L::load(&m.elements[0]);
  const L r1 = L::load(&m.elements[4]);
  const L r2 = L::load(&m.elements[8]);
  const L r3 = L::load(&m.elements[12]);

  // The determinants a[c] * b[d] - b[c] * a[d] of columns cd 01, 02, 03, 12 of a pair.
  const auto minors = [](const L& a, const L& b) {
    return shuffled<0, 0, 0, 1>(a) * shuffled<1, 2, 3, 2>(b) - shuffled<0, 0, 0, 1>(b) * shuffled<1, 2, 3, 2>(a);
  };
  const L upper = minors(r0, r1);
  const L lower = minors(r2, r3);
  // Those of columns 13 and 23, of the upper pair and of the lower one.
  const L rest = shuffled<1, 2, 1, 2>(r0, r2) * shuffled<3, 3, 3, 3>(r1, r3) -
                 shuffled<1, 2, 1, 2>(r1, r3) * shuffled<3, 3, 3, 3>(r0, r2);
  // The pair that row i is not in: rows 0 and 1 take the lower one.
  const L d01 = shuffled<0, 0, 0, 0>(lower, upper);
  const L d02 = shuffled<1, 1, 1, 1>(lower, upper);
  const L d03 = shuffled<2, 2, 2, 2>(lower, upper);
  const L d12 = shuffled<3, 3, 3, 3>(lower, upper);
  const L d13 = shuffled<2, 2, 0, 0>(rest);
  const L d23 = shuffled<3, 3, 1, 1>(rest);

  // Upper 01, 02, 03, 12 times lower 23, 13, 12, 03; upper 13, 23 times lower 02, 01.
  const L first = upper * shuffled<3, 2, 3, 2>(rest, lower);
  const L last = rest * shuffled<1, 0, 1, 0>(lower);
  const float determinant = ((((first[0] - first[1]) + first[2]) + first[3]) - last[0]) + last[1];
  const L reciprocal = L::all(1.0F / determinant);

  // Column c of the row paired with row i, signed as (-1)^i: rows 1, -0, 3, -2 turned into columns.
  const L n0 = -r0;
  const L n2 = -r2;
  const L low01 = shuffled<0, 1, 0, 1>(r1, n0);
  const L low23 = shuffled<0, 1, 0, 1>(r3, n2);
  const L high01 = shuffled<2, 3, 2, 3>(r1, n0);
  const L high23 = shuffled<2, 3, 2, 3>(r3, n2);
  const L p0 = shuffled<0, 2, 0, 2>(low01, low23);
  const L p1 = shuffled<1, 3, 1, 3>(low01, low23);
  const L p2 = shuffled<0, 2, 0, 2>(high01, high23);
  const L p3 = shuffled<1, 3, 1, 3>(high01, high23);

  _Matrix<float> result;
  (((p1 * d23 - p2 * d13) + p3 * d12) * reciprocal).store(&result.elements[0]);
  (((p2 * d03 - p0 * d23) - p3 * d02) * reciprocal).store(&result.elements[4]);
  (((p0 * d13 - p1 * d03) + p3 * d01) * reciprocal).store(&result.elements[8]);
  (((p1 * d02 - p0 * d12) - p2 * d01) * reciprocal).store(&result.elements[12]);
  return result;
}
[[nodiscard]] constexpr _Matrix<float> inverse(const _Matrix<float>& m) noexcept {
  return std::is_constant_evaluated() ? inverse_by_lanes<PlainLanes>(m) : inverse_by_lanes<Lanes>(m);
}
/// m = inverse(m). Always true, also for a singular matrix.
constexpr bool invert(_Matrix<float>& m) noexcept {
  m = inverse(m);
  return true;
}

/// Swaps rows and columns of all 4x4: row 3 and column 3 trade places.
constexpr void transpose(_Matrix<float>& m) noexcept {
  const _Matrix<float> old = m;
  for (std::size_t r = 0; r < 4; ++r) {
    for (std::size_t c = 0; c < 4; ++c) {
      m(r, c) = old(c, r);
    }
  }
}

/// Unit frame that keeps the forward direction and bends up to it. Row 0 is rebuilt, so a mirror is lost with the
/// scale. Column 3 and row 3 stay.
inline void normalize(_Matrix<float>& m) noexcept {
  const _Vector3<float> f = forward(m);
  const _Vector3<float> r = cross(up(m), f);
  set_row(m, 0, normalized(r));
  set_row(m, 1, normalized(cross(f, r)));
  set_row(m, 2, normalized(f));
}
/// Gram-Schmidt over rows 0, 1, 2, as of Matrix33. Column 3 and row 3 stay.
inline void orthogonalize(_Matrix<float>& m) noexcept {
  Matrix33 block = m33(m);
  orthogonalize(block);
  set_m33(m, block);
}

/// Rows 0 to 2 perpendicular: no dot product of two beyond 1e-6 in size. Lengths are not looked at.
[[nodiscard]] inline bool is_orthogonal(const _Matrix<float>& m) noexcept {
  return !(std::fabs(dot(up(m), right(m))) > kEpsilon || std::fabs(dot(forward(m), right(m))) > kEpsilon ||
           std::fabs(dot(up(m), forward(m))) > kEpsilon);
}
/// The squared length of one of rows 0 to 2 is more than 2e-6 from 1.
[[nodiscard]] inline bool has_scale(const _Matrix<float>& m) noexcept {
  constexpr float tolerance = 2e-6F;
  return std::fabs(length_squared(right(m)) - 1.0F) > tolerance ||
         std::fabs(length_squared(up(m)) - 1.0F) > tolerance ||
         std::fabs(length_squared(forward(m)) - 1.0F) > tolerance;
}
[[nodiscard]] constexpr bool is_mirrored(const _Matrix<float>& m) noexcept { return is_mirrored(m33(m)); }
/// Negates all four elements of row 0.
constexpr void mirror(_Matrix<float>& m) noexcept {
  for (std::size_t c = 0; c < 4; ++c) {
    m(0, c) = -m(0, c);
  }
}

/// The direction v: ((0 * row 3 + z * row 2) + y * row 1) + x * row 0. Row 3 counts only where it is not finite.
[[nodiscard]] constexpr _Vector3<float> mulvec3x3(const _Matrix<float>& m, const _Vector3<float>& v) noexcept {
  return ((row(m, 3) * 0.0F + row(m, 2) * v.z) + row(m, 1) * v.y) + row(m, 0) * v.x;
}

[[nodiscard]] constexpr _Matrix<float> make_translation(const _Vector3<float>& v) noexcept {
  return matrix_from_rows({1.0F, 0.0F, 0.0F}, {0.0F, 1.0F, 0.0F}, {0.0F, 0.0F, 1.0F}, v);
}
/// Positive angles turn forward towards down.
[[nodiscard]] inline _Matrix<float> make_rotation_x(float angle) noexcept {
  const auto [s, c] = scalar_sin_cos(angle);
  return matrix_from_rows({1.0F, 0.0F, 0.0F}, {0.0F, c, s}, {0.0F, -s, c});
}
/// Positive angles turn forward towards right.
[[nodiscard]] inline _Matrix<float> make_rotation_y(float angle) noexcept {
  const auto [s, c] = scalar_sin_cos(angle);
  return matrix_from_rows({c, 0.0F, -s}, {0.0F, 1.0F, 0.0F}, {s, 0.0F, c});
}
/// Positive angles turn right towards up.
[[nodiscard]] inline _Matrix<float> make_rotation_z(float angle) noexcept {
  const auto [s, c] = scalar_sin_cos(angle);
  return matrix_from_rows({c, s, 0.0F}, {-s, c, 0.0F}, {0.0F, 0.0F, 1.0F});
}

/// Turn about the axis n, which is taken as it comes: for a length L the skew part has L, the rest of the block L^2.
[[nodiscard]] inline _Matrix<float> axis_rotation(const _Vector3<float>& n, float angle) noexcept {
  const auto [s, c] = scalar_sin_cos(angle);
  const float t = 1.0F - c;
  return matrix_from_rows({t * n.x * n.x + c, t * n.x * n.y + s * n.z, t * n.x * n.z - s * n.y},
                          {t * n.x * n.y - s * n.z, t * n.y * n.y + c, t * n.y * n.z + s * n.x},
                          {t * n.x * n.z + s * n.y, t * n.y * n.z - s * n.x, t * n.z * n.z + c});
}

/// A direction across a, with components of 1 where a's larger parts allow; not normalised.
[[nodiscard]] inline _Vector3<float> perpendicular(const _Vector3<float>& a) noexcept {
  if (std::fabs(a.x) > kEpsilon) {
    return {(-a.y - a.z) / a.x, 1.0F, 1.0F};
  }
  if (std::fabs(a.y) > kEpsilon) {
    return {1.0F, (-a.x - a.z) / a.y, 1.0F};
  }
  return {1.0F, 1.0F, (-a.x - a.y) / a.z};
}

/// Rotation that takes the direction `from` to the direction `to`. Opposed vectors turn half a circle about an axis
/// across them; vectors that agree, or a zero vector, give the identity.
[[nodiscard]] inline _Matrix<float> make_rotation_between(const _Vector3<float>& from,
                                                          const _Vector3<float>& to) noexcept {
  const _Vector3<float> a = normalized(from);
  const _Vector3<float> b = normalized(to);
  const float cosine = dot(a, b);
  const _Vector3<float> n = cross(a, b);
  if (!near_zero(n)) {
    return axis_rotation(normalized(n), std::acos(cosine));
  }
  return cosine < 0.0F ? axis_rotation(normalized(perpendicular(a)), kPi) : kIdentityMatrix;
}

/// Unit frame with row 2 along `forward` and row 1 towards `up`. An up along forward is replaced by the unit axis on
/// which forward is smallest. A zero forward or up gives sixteen zeros.
[[nodiscard]] inline _Matrix<float> make_orient(const _Vector3<float>& forward, const _Vector3<float>& up) noexcept {
  constexpr float parallel = 0.999999F;
  if (near_zero(forward) || near_zero(up)) {
    return {};
  }
  const _Vector3<float> f = normalized(forward);
  _Vector3<float> u = normalized(up);
  const float cosine = dot(u, f);
  if (cosine > parallel || cosine < -parallel) {
    u = {1.0F, 0.0F, 0.0F};
    float smallest = std::fabs(f.x);
    if (smallest > std::fabs(f.y)) {
      u = {0.0F, 1.0F, 0.0F};
      smallest = std::fabs(f.y);
    }
    if (smallest > std::fabs(f.z)) {
      u = {0.0F, 0.0F, 1.0F};
    }
  }
  const _Vector3<float> r = normalized(cross(u, f));
  return matrix_from_rows(r, cross(f, r), f);
}

/// Reflection in the plane through `point`; the normal has to be unit, a zero one gives sixteen zeros. Worked out in
/// double precision from point . normal in single, each element rounded once.
[[nodiscard]] constexpr _Matrix<float> make_reflection(const _Vector3<float>& normal,
                                                       const _Vector3<float>& point) noexcept {
  if (near_zero(normal)) {
    return {};
  }
  const double x = static_cast<double>(normal.x);
  const double y = static_cast<double>(normal.y);
  const double z = static_cast<double>(normal.z);
  const double d = static_cast<double>(dot(point, normal));
  const auto single = [](double value) { return static_cast<float>(value); };
  return matrix_from_rows({single(1.0 - 2.0 * x * x), single(-2.0 * y * x), single(-2.0 * z * x)},
                          {single(-2.0 * x * y), single(1.0 - 2.0 * y * y), single(-2.0 * z * y)},
                          {single(-2.0 * x * z), single(-2.0 * y * z), single(1.0 - 2.0 * z * z)},
                          {single(2.0 * x * d), single(2.0 * y * d), single(2.0 * z * d)});
}

}  // namespace zeph::math3d
