/// Matrices: independent roads to one result agree on random input, and the telling special values.
/// The bounds are some two to five times the largest difference measured.
#include <zeph/functions/vector3.h>
#include <zeph/functions/vector4.h>
#include <zeph/math3d/matrix_decomposition.h>

#include "math_test.h"

namespace zeph::math3d {
namespace {

long count_nan(const Matrix& m) {
  return std::count_if(std::begin(m.elements), std::end(m.elements), [](float value) { return std::isnan(value); });
}
long count_finite(const Matrix& m) { return 16 - count_nan(m * 0.0F); }

/// One NaN is as good as another.
template <typename T>
bool same_bits(const T& a, const T& b) {
  using Floats = std::array<float, sizeof(T) / sizeof(float)>;
  const auto left = std::bit_cast<Floats>(a);
  return std::equal(left.begin(), left.end(), std::bit_cast<Floats>(b).begin(), [](float x, float y) {
    return std::bit_cast<std::uint32_t>(x) == std::bit_cast<std::uint32_t>(y) || (std::isnan(x) && std::isnan(y));
  });
}

TEST(MatrixTest, InverseTimesOriginalIsTheIdentity) {
  Random random(7);
  Within relative(1e-6), exact(0.0);
  for (int i = 0; i < kCases; ++i) {
    Matrix m, lower = kIdentityMatrix, upper = kIdentityMatrix;
    for (std::size_t e = 0; e < 16; ++e) {
      m.elements[e] = random.in(-1, 1);
      if (e / 4 != e % 4) {
        (e % 4 < e / 4 ? lower : upper).elements[e] = std::round(random.in(-2, 2));
      }
    }
    const Matrix inverted = inverse(m);
    const auto [low, high] = std::minmax_element(std::begin(inverted.elements), std::end(inverted.elements));
    const float largest = std::max(-*low, *high);
    relative.see((m * inverted - kIdentityMatrix) * (1.0F / (largest * largest)), {});
    exact.see(lower * upper * inverse(lower * upper), kIdentityMatrix);  // integers, determinant 1: no step rounds
  }

  EXPECT_TRUE(same(inverse({{2, 0, 0, 0, 0, 4, 0, 0, 0, 0, 8, 0, 1, 2, 3, 1}}),
                   {{0.5F, 0, 0, 0, 0, 0.25F, 0, 0, 0, 0, 0.125F, 0, -0.5F, -0.5F, -0.375F, 1}}));
  EXPECT_EQ(count_nan(inverse({})), 16);
  EXPECT_EQ(count_finite(inverse(kCounting)), 0);
  Matrix flat = matrix_scaling(1, 1, 0);
  EXPECT_TRUE(invert(flat) && flat(2, 2) == kInfinity);
  EXPECT_EQ(count_finite(flat), 0);
}

/// What constant expressions take, and compilers without vectors: the same bits, zeros and infinities among them.
TEST(MatrixTest, ArraysAndVectorsOfLanesAgree) {
  Random random(8);
  const auto any = [&random] {
    const float special[] = {0.0F, -0.0F, kInfinity, -1e30F};
    const float value = random.in(-1, 1);
    return value > 0.75F ? special[static_cast<std::size_t>((value - 0.75F) * 15.9F)] : value;
  };
  for (int i = 0; i < kCases; ++i) {
    Matrix a, b;
    for (std::size_t e = 0; e < 16; ++e) {
      a.elements[e] = any();
      b.elements[e] = any();
    }
    const Quaternion q{a(0, 0), a(0, 1), a(0, 2), a(0, 3)}, r{b(0, 0), b(0, 1), b(0, 2), b(0, 3)};
    const Vector v{a(1, 0), a(1, 1), a(1, 2)};
    const Vector4<float> v4 = extended(v, a(1, 3));
    ASSERT_TRUE(same_bits(product_by_lanes<PlainLanes>(a, b), product_by_lanes<Lanes>(a, b)));
    ASSERT_TRUE(same_bits(inverse_by_lanes<PlainLanes>(a), inverse_by_lanes<Lanes>(a)));
    ASSERT_TRUE(same_bits(product_by_lanes<PlainLanes>(q, r), product_by_lanes<Lanes>(q, r)));
    ASSERT_TRUE(same_bits(point_by_lanes<PlainLanes>(v, b), point_by_lanes<Lanes>(v, b)));
    ASSERT_TRUE(same_bits(transform_by_lanes<PlainLanes>(v4, b), transform_by_lanes<Lanes>(v4, b)));
    ASSERT_TRUE(same_bits(transform_coord_by_lanes<PlainLanes>(v, b), transform_coord_by_lanes<Lanes>(v, b)));
    ASSERT_TRUE(same_bits(transform_normal_by_lanes<PlainLanes>(v, b), transform_normal_by_lanes<Lanes>(v, b)));
  }
}

TEST(MatrixTest, DecomposesAndRebuilds) {
  Random random(8);
  Within products(0.0), rebuilt(3e-6), signs(4e-5), setters(2e-6);
  for (int i = 0; i < kCases; ++i) {
    const Quaternion q = random.rotation();
    const Vector p = random.vector(-5, 5);
    const Vector s = random.vector(0.1F, 3) * Vector{i % 2 == 0 ? 1.0F : -1.0F, i % 3 == 0 ? 1.0F : -1.0F, 1};
    const Matrix m = matrix_transformation_prs(p, q, s);
    products.see(m, matrix_scaling_from_vector(s) * matrix_from_rotation(q) * matrix_translation_from_vector(p));
    rebuilt.see(matrix_scaling_from_vector(scale(m)) * rotation(m) * make_translation(p), m);
    signs.see(scale(m).x * scale(m).y * scale(m).z, s.x * s.y * s.z);

    Matrix other = matrix_transformation_prs(p, random.rotation(), {2, 3, 4});
    set_rotation(other, matrix_from_rotation(q) * 5.0F);
    set_scale(other, s);
    setters.see(other, m);
  }
}

TEST(MatrixTest, DecompositionRanksSignsAndShortRows) {
  const struct {
    const char* name;
    Vector rows[3], scale, axes[3];
  } cases[]{
      {"plain", {{2, 0, 0}, {0, 3, 0}, {0, 0, 4}}, {2, 3, 4}, {kRight, kUp, kForward}},
      {"mirror in the longest row", {{-5, 0, 0}, {0, 3, 0}, kForward}, {-5, 3, 1}, {kRight, kUp, kForward}},
      {"mirror in another row", {{-2, 0, 0}, {0, 3, 0}, kForward}, {2, -3, 1}, {kLeft, kDown, kForward}},
      {"equal rows, the first counts as longest", {kRight, kUp, kBack}, {-1, 1, 1}, {kLeft, kUp, kBack}},
      {"equal rows 1 and 2", {kRight, {0, 2, 0}, {0, 0, -2}}, {1, -2, 2}, {kRight, kDown, kBack}},
      {"all zero", {{}, {}, {}}, {}, {kRight, kDown, kBack}},
      {"one zero row", {{}, {0, 2, 0}, {0, 0, 3}}, {0, 2, -3}, {kLeft, kUp, kBack}},
      {"two zero rows", {{}, {0, 5, 0}, {}}, {0, -5, 0}, {kRight, kDown, kBack}},
      {"just long enough", {{2, 0, 0}, kUp, {0, 0, -1e-4F}}, {-2, 1, 1e-4F}, {kLeft, kUp, kBack}},
      {"just too short", {{2, 0, 0}, kUp, {0, 0, -9.9e-5F}}, {2, 1, 9.9e-5F}, {kRight, kUp, kForward}},
  };
  for (const auto& [name, rows, s, axes] : cases) {
    Matrix m = matrix_from_rows(rows[0], rows[1], rows[2], {7, 8, 9});
    EXPECT_TRUE(decompose(m).succeeded && same(scale(m), s)) << name;
    EXPECT_TRUE(same(rotation(m), matrix_from_rows(axes[0], axes[1], axes[2]))) << name;
    set_rotation(m, matrix_from_rows(kUp, kForward, kRight, {1, 2, 3}) * 2.0F);
    EXPECT_TRUE(same(m, matrix_from_rows(kUp * s.x, kForward * s.y, kRight * s.z, {7, 8, 9}))) << name;
  }
}

TEST(MatrixTest, ObliqueRowsFailToDecompose) {
  for (const float volume : {0.9902F, 0.9898F, 0.5F, -0.5F}) {  // of the unit rows; 0.99 is the bound
    const Matrix m = matrix_from_rows({3, 0, 0}, {std::sqrt(1.0F - volume * volume), volume, 0}, kForward);
    const float sign = volume < 0.0F ? -1.0F : 1.0F;
    EXPECT_EQ(decompose(m).succeeded, volume > 0.99F) << volume;
    EXPECT_TRUE(same(scale(m), {sign * 3.0F, 1, 1}, 2e-7)) << volume;
    const Matrix r = rotation(m);
    EXPECT_TRUE(is_orthogonal(r) && !has_scale(r) && !is_mirrored(r)) << volume;
    EXPECT_EQ(same(right(r), kRight * sign), volume < 0.99F) << volume;
  }
  for (const float bad : {kNan, kInfinity}) {
    const Matrix m = matrix_from_rows({2, 0, 0}, {0, bad, 0}, kForward);
    EXPECT_TRUE(decompose(m).succeeded && same(scale(m), {2, bad, 1}));
    EXPECT_EQ(count_nan(rotation(m)), 9);
  }
}

TEST(MatrixTest, FramesAreRightAngled) {
  Random random(9);
  Within frames(1e-6), straightened(3e-6), reflections(2e-6);
  for (int i = 0; i < kCases; ++i) {
    const Vector f = random.direction();
    const Vector u = random.direction();
    if (std::fabs(dot(f, u)) < 0.9F) {
      const Matrix look = matrix_rotation_look(f * 2.0F, u * 0.5F);
      frames.see(look, make_orient(f * 3.0F, u * 4.0F));
      frames.see(row(look, 2), f);
      Matrix bent = look;
      transpose(bent);
      straightened.see(bent, inverse(look));
      bent = matrix_from_rows({9, 9, 9}, u * 2.0F, f * 3.0F);
      normalize(bent);
      straightened.see(bent, look);
      bent = matrix_from_rows(f * 3.0F, u * 2.0F, cross(u, f) + f);
      orthogonalize(bent);
      straightened.see(bent, matrix_from_rows(row(look, 2), row(look, 1), row(look, 0)));
    }
    reflections.see(make_reflection(f, u) * make_reflection(f, u), kIdentityMatrix);
    reflections.see((u + f) * make_reflection(f, u), u - f);
  }

  const Vector nan{kNan, kNan, kNan};
  const Matrix aside = matrix_from_rows(kBack, kUp, kRight);
  const struct {
    Vector forward, up;
    Matrix orient, look;
  } cases[]{{kForward, kUp, kIdentityMatrix, kIdentityMatrix},
            {kRight, kUp, aside, aside},
            {kUp, kUp, matrix_from_rows(kForward, kRight, kUp), matrix_from_rows({}, {}, kUp)},
            {kRight, kLeft, matrix_from_rows(kBack, kUp, kRight), matrix_from_rows({}, {}, kRight)},
            {{}, kUp, {}, matrix_from_rows({}, {}, {})},
            {{1e-6F, 0, 0}, kUp, {}, aside},
            {{kInfinity, 0, 0}, kUp, matrix_from_rows(nan, nan, nan), matrix_from_rows(nan, nan, nan)}};
  for (const auto& [f, u, orient, look] : cases) {
    EXPECT_TRUE(same(make_orient(f, u), orient)) << f.x << ' ' << f.y << ' ' << u.x;
    EXPECT_TRUE(same(matrix_rotation_look(f, u), look)) << f.x << ' ' << f.y << ' ' << u.x;
  }
  EXPECT_TRUE(same(make_reflection({0, 1e-6F, 0}, kUp), {}));
  EXPECT_TRUE(same(make_reflection({0, 2, 0}, kUp), {{1, 0, 0, 0, 0, -7, 0, 0, 0, 0, 1, 0, 0, 8, 0, 1}}));
}

TEST(MatrixTest, TestsHaveTheirTolerances) {
  EXPECT_FALSE(is_orthogonal(matrix_from_rows(kRight, kUp, kForward + kUp * 1.1e-6F)));
  for (const Vector& along : {kUp, kForward}) {
    EXPECT_TRUE(is_orthogonal(matrix_from_rows(kRight + along * 1e-6F, kUp, kForward)));
    EXPECT_FALSE(is_orthogonal(matrix_from_rows(kRight + along * 1.1e-6F, kUp, kForward)));
  }
  for (std::size_t axis = 0; axis < 3; ++axis) {
    Matrix m = kIdentityMatrix;
    m(axis, axis) = 1.0000009F;  // of squared length: less than 2e-6 from 1
    EXPECT_FALSE(has_scale(m)) << axis;
    m(axis, axis) = 1.0000012F;
    EXPECT_TRUE(has_scale(m)) << axis;
  }
  const Matrix twice = kIdentityMatrix * 2.0F;
  EXPECT_TRUE(near(twice, kIdentityMatrix, 1.0F) && near(twice * kNan, twice, -1.0F));
  EXPECT_FALSE(near(twice, kIdentityMatrix, 0.999F) || near(twice, twice, -1.0F));
}

TEST(MatrixTest, TransformsKeepWhatIsNotTheirs) {
  EXPECT_TRUE(same(mulvec3x3(kCounting, {1, 1, 1}), {15, 18, 21}));
  EXPECT_TRUE(same(Vector{1, 1, 1} * kCounting, {28, 32, 36}));
  EXPECT_TRUE(same(kCounting + kCounting * 2.0F, kCounting * 3.0F));
  Matrix m = kCounting;
  mirror(m);
  EXPECT_TRUE(same(m, {{-1, -2, -3, -4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}}));
  m = kCounting;
  do_rotation(m, {{0, 1, 0, 9, -1, 0, 0, 9, 0, 0, 1, 9, 9, 9, 9, 9}});
  EXPECT_TRUE(same(m, {{-2, 1, 3, 4, -6, 5, 7, 8, -10, 9, 11, 12, -14, 13, 15, 16}}));
  m = {{2, 0, 0, 5, 1, 3, 0, 6, 0, 1, 4, 7, 8, 9, 10, 11}};
  orthogonalize(m);
  set_rotation(m, m);
  EXPECT_TRUE(same(m, {{1, 0, 0, 5, 0, 1, 0, 6, 0, 0, 1, 7, 8, 9, 10, 11}}));
  set_scale(m, {2, 0, -3});
  do_translate(m, kUp);
  EXPECT_TRUE(same(m, {{2, 0, 0, 5, 0, 0, 0, 6, 0, 0, -3, 7, 8, 10, 10, 11}}));
  EXPECT_EQ(count_nan(matrix_transformation_prs({}, kIdentityRotation, {1, kInfinity, 1})), 3);
}

TEST(Matrix33Test, ProductIsOrthogonalised) {
  Random random(10);
  Within worst(1.5e-6);
  for (int i = 0; i < kCases; ++i) {
    const Matrix a = matrix_from_rotation(random.rotation());
    const Matrix b = matrix_from_rotation(random.rotation());
    worst.see(matrix_from_m33(m33(a * 3.0F) * m33(b)), a * b);
    Matrix33 back = m33(b);
    transpose(back);
    worst.see(matrix_from_m33(m33(a) * m33(b) * back), a);
  }
  const float h = 0.70710677F;
  Matrix33 flipped{{1, 2, 3, 4, 5, 6, 7, 8, 9}};
  mirror(flipped);
  EXPECT_TRUE(near(flipped, {{-1, -2, -3, 4, 5, 6, 7, 8, 10}}, 1.0F) && !near(flipped, {}, 1.0F));
  EXPECT_TRUE(same(Matrix33{{1, 1, 0, 0, 1, 0, 0, 0, 1}} * Matrix33{}, {{h, h, 0, -h, h, 0, 0, 0, 1}}, 2e-7));
}

template <typename AnyMatrix>
int elements_in_reach(AnyMatrix m) {
  int found = 0;
  for (int i = 0; i < 36; ++i) {
    const int r = i / 6 - 1;
    const int c = i % 6 - 1;
    set_element(m, r, c, 7.0F);
    found += element(m, r, c) == 7.0F ? 1 : 0;
  }
  return found;
}
TEST(MatrixTest, ElementsOutsideAreIgnored) {
  EXPECT_EQ(elements_in_reach(Matrix{}), 16);
  EXPECT_EQ(elements_in_reach(Matrix33{}), 9);
}

}  // namespace
}  // namespace zeph::math3d
