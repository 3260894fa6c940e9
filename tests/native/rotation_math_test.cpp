/// Quaternions: independent roads to one result agree on random input, and the telling special values.
/// The bounds are some two to five times the largest difference measured.

#include <zeph/math3d/matrix_transforms.h>

#include "math_test.h"

namespace zeph::math3d {
namespace {

TEST(SinCosTest, FollowsDoublePrecision) {
  Random random(1);
  Within one_turn(6e-7), far(1.2e-4);  // far off, the multiples of the float 2 pi are off themselves
  for (int i = 0; i < 20 * kCases; ++i) {
    const float range = i % 2 == 0 ? 7.0F : 1000.0F;
    const float angle = random.in(-range, range);
    for (const SinCos& value : {scalar_sin_cos(angle), vector_sin_cos(angle)}) {
      Within& worst = i % 2 == 0 ? one_turn : far;
      worst.see(wide(value.sine), std::sin(wide(angle)));
      worst.see(wide(value.cosine), std::cos(wide(angle)));
    }
  }
}

TEST(RotationTest, QuaternionsAgreeWithMatrices) {
  Random random(2);
  Within vectors(1e-6), axes(2e-7), back(7e-7), products(1.5e-6), quaternions(6e-7), matrices(2e-6), angles(2e-6);
  for (int i = 0; i < kCases; ++i) {
    const Quaternion a = random.rotation();
    const Quaternion b = random.rotation();
    const Vector v = random.vector(-1, 1);
    const Matrix m = matrix_from_rotation(a);
    vectors.see(rotate(a, v), v * m);
    vectors.see(rotate(a, v), mulvec3x3(m, v));
    vectors.see(rotate(a * b, v), rotate(a, rotate(b, v)));
    axes.see(m, matrix_from_rows(right(a), up(a), forward(a)));
    back.see_rotation(rotation_from_matrix(m), a);
    back.see_rotation(decompose(m).rotation, a);
    products.see(matrix_from_rotation(a * b), matrix_from_rotation(b) * m);
    products.see(quaternion_multiply(b, a), a * b);
    products.see(a * quaternion_inverse(a), kIdentityRotation);
    products.see(quaternion_conjugate(a), quaternion_inverse(a));

    const Vector axis = random.direction();
    const float turn = random.in(-6, 6);
    const Quaternion q = rotation_from_axis_angle(axis, turn);
    quaternions.see(quaternion_rotation_axis(axis * 3.0F, turn), q);
    matrices.see(matrix_rotation_axis(axis * 3.0F, turn), matrix_from_rotation(q));
    matrices.see(matrix_rotation_normal(axis, turn), matrix_from_rotation(q));
    matrices.see(make_rotation_x(turn), matrix_rotation_axis(kRight, turn));
    matrices.see(make_rotation_y(turn), matrix_rotation_axis(kUp, turn));
    matrices.see(make_rotation_z(turn), matrix_rotation_axis(kForward, turn));
    angles.see(wide(angle(q)), 2.0 * std::acos(std::clamp(wide(q.w), -1.0, 1.0)));
  }
}

TEST(RotationTest, EulerTriplesComeBack) {
  Random random(4);
  Within triples(6e-6), products(1.5e-6), pitch_yaw_roll(3e-5);
  for (int i = 0; i < kCases; ++i) {
    const Vector v{random.in(-1.4F, 1.4F), random.in(-3, 3), random.in(-3, 3)};
    const Quaternion q = quaternion_rotation_zxy_from_vector(v);
    triples.see_angles(quaternion_to_rotation_xzy(q), v);
    products.see(matrix_rotation_zxy_from_vector(v),
                 make_rotation_z(v.z) * make_rotation_x(v.x) * make_rotation_y(v.y));
    const Matrix m = matrix_transformation_prs(kUp, q, random.vector(0.5F, 2));
    pitch_yaw_roll.see_angles({pitch(m), yaw(m), roll(m)}, v);

    const Vector w{v.z, v.x, v.y};  // in these two y is the angle that has poles
    const Quaternion x = rotation_from_axis_angle(kRight, w.x);
    const Quaternion y = rotation_from_axis_angle(kUp, w.y);
    const Quaternion z = rotation_from_axis_angle(kForward, w.z);
    triples.see_angles(quaternion_to_euler_xyz(x * y * z), w);
    triples.see_angles(quaternion_to_euler_zyx(z * y * x), w);
  }

  for (const float pole : {kHalfPi, -kHalfPi}) {  // one turn is left, and goes to y
    const Vector left{pole, pole > 0.0F ? 2.5F - 0.3F : 2.5F + 0.3F, 0};
    EXPECT_TRUE(same(quaternion_to_rotation_xzy(quaternion_rotation_zxy(pole, 2.5F, 0.3F)), left, 2e-3)) << pole;
  }
  const Matrix zero{};
  EXPECT_TRUE(yaw(zero) == 0.0F && pitch(zero) == 0.0F && std::signbit(pitch(zero)) && roll(zero) == 0.0F);
  EXPECT_EQ(roll(matrix_from_rows({}, {}, kForward)), kHalfPi);
  EXPECT_EQ(roll(matrix_from_rows(kForward, {}, kUp)), 0.0F);
  EXPECT_EQ(roll(matrix_from_rows(kLeft, {}, kForward)), kPi);
}

TEST(RotationTest, SlerpFollowsTheGreatArc) {
  Random random(5);
  Within worst(2e-6);
  for (int i = 0; i < kCases; ++i) {
    const Quaternion a = random.rotation();
    const Quaternion b = i % 2 == 0 ? random.rotation() : normalized(a + random.rotation() * 0.05F);
    const float t = random.in(-0.5F, 1.5F);
    const double cosine = wide(a.x) * wide(b.x) + wide(a.y) * wide(b.y) + wide(a.z) * wide(b.z) + wide(a.w) * wide(b.w);
    const double omega = std::acos(std::min(std::fabs(cosine), 1.0));
    const double k0 = std::sin((1.0 - wide(t)) * omega) / std::sin(omega);
    const double k1 = std::sin(wide(t) * omega) / std::sin(omega) * (cosine < 0.0 ? -1.0 : 1.0);
    const auto single = [=](float p, float q) { return static_cast<float>(k0 * wide(p) + k1 * wide(q)); };
    worst.see(slerp(a, b, t), {single(a.x, b.x), single(a.y, b.y), single(a.z, b.z), single(a.w, b.w)});
  }

  const Quaternion q{0.5F, -0.5F, 0.5F, 0.5F};
  EXPECT_TRUE(same(slerp(q, q * -1.0F, 0.3F), q));
  EXPECT_TRUE(same(slerp({}, {}, 0.3F), {}));
  EXPECT_TRUE(same(slerp({0, 0, 0, 1}, {0, -1, 0, 0}, 0.5F), {0, -0.70710677F, 0, 0.70710677F}));
}

TEST(RotationTest, SpecialValues) {
  EXPECT_TRUE(same(quaternion_multiply({1, 2, 3, 4}, {5, 6, 7, 8}), {32, 32, 56, -6}));
  EXPECT_TRUE(same(quaternion_lerp({1, 2, 3, 4}, {2, 4, 6, 8}, 3.0F), {4, 8, 12, 16}));
  EXPECT_TRUE(same(normalized(Quaternion{0, 1e-30F, 0, 0}), {}));
  EXPECT_TRUE(same(normalized(Quaternion{0, 1e20F, 0, 0}), {kNan, kNan, kNan, kNan}));
  EXPECT_TRUE(same(right(Quaternion{}), kRight) && same(rotate({}, kUp), {}));
  EXPECT_TRUE(same(rotation_from_matrix({}), {1, 0, 0, 0}));
  EXPECT_TRUE(same(quaternion_rotation_axis({}, 1.0F), only_w(0.87758255F)));
  EXPECT_TRUE(near(only_w(1e-6F), Quaternion{}) && near(only_w(kNan), Quaternion{}));
  EXPECT_FALSE(near(only_w(1.1e-6F), Quaternion{}) || near(only_w(1), only_w(-1)));

  const float edge = 0.000244140625F;  // two squares of it are 2^-23, the largest without an inverse
  EXPECT_TRUE(same(quaternion_inverse({edge, 0, edge, 0}), {}));
  EXPECT_LT(quaternion_inverse({edge, 0, edge * 1.001F, 0}).x, -2000.0F);

  const float angles[][2]{{1, 0}, {0, 3.1415925F}, {-1, 6.2831855F}, {2, 0}, {-2, 6.2831855F}, {kNan, kNan}};
  for (const auto& [w, expected] : angles) {
    EXPECT_TRUE(same(angle(only_w(w)), expected)) << w;
  }
}

TEST(RotationTest, TakesOneDirectionToTheOther) {
  Random random(6);
  Within quaternions(3e-6), matrices(3e-6);
  for (int i = 0; i < kCases; ++i) {
    const Vector from = random.direction();
    const Vector to = random.direction();
    if (std::fabs(dot(from, to)) < 0.99F) {
      quaternions.see(rotate(quaternion_rotation_fromto(from * 3.0F, to * 2.0F), from), to);
      matrices.see(from * make_rotation_between(from * 3.0F, to * 2.0F), to);
    }
    const Vector opposed = from * Vector{i % 2 == 0 ? 1.0F : 0.0F, 1, 1};
    matrices.see(opposed * make_rotation_between(opposed, opposed * -2.0F), opposed * -1.0F);
  }

  const Quaternion about_y{0, 0.9999999F, 0, -1.1920929e-7F};
  const struct {
    Vector from, to;
    Quaternion expected;
    double tolerance = 0.0;
  } turns[]{{kRight, kUp, {0, 0, 0.70710677F, 0.70710677F}},
            {kRight, {-2, 0, 0}, about_y},
            {kUp, kDown, about_y},
            {kRight, {0.99995F, 0.01F, 0}, kIdentityRotation},
            {kRight, {0.9998F, 0.02F, 0}, {0, 0, 0.01F, 0.99995F}, 1e-5},
            {kRight, {-0.99995F, 0.01F, 0}, about_y},
            {kRight, {-0.9998F, 0.02F, 0}, {0, 0, 0.99995F, 0.01F}, 1e-5},
            {{0.005F, 0, 0}, {0, 0.005F, 0}, kIdentityRotation},
            {{}, kUp, kIdentityRotation}};
  for (const auto& [from, to, expected, tolerance] : turns) {
    EXPECT_TRUE(same(quaternion_rotation_fromto(from, to), expected, tolerance)) << to.x << ' ' << to.y;
  }
  EXPECT_TRUE(same(make_rotation_between(kRight, kLeft), matrix_from_rows(kLeft, kForward, kUp), 2e-7));
  EXPECT_TRUE(same(make_rotation_between(kUp, kDown), matrix_from_rows(kForward, kDown, kRight), 2e-7));
  EXPECT_TRUE(same(make_rotation_between(kForward, kBack), matrix_from_rows(kUp, kRight, kBack), 2e-7));
  EXPECT_TRUE(same(make_rotation_between(kUp, kUp * 3.0F), kIdentityMatrix));
  EXPECT_TRUE(same(make_rotation_between(kUp, {}), kIdentityMatrix));
}

}  // namespace
}  // namespace zeph::math3d
