// Scalars, vectors, colours and damping as native code sees them: degenerate values, and what holds for any.
// Chosen values of each function stand in the script tests.
#include "math_values.h"

#include <cstdint>

#include <zeph/functions/color.h>
#include <zeph/functions/quaternion.h>
#include <zeph/functions/scalar.h>
#include <zeph/functions/smooth_damp.h>
#include <zeph/functions/vector3.h>
#include <zeph/functions/vector4.h>

namespace zeph::math3d {
namespace {

using Vec4 = Vector4<float>;
constexpr float Vec3::*kAxes[] = {&Vec3::x, &Vec3::y, &Vec3::z};

void expect_bytes(const Color32& color, int r, int g, int b, int a) {
  EXPECT_EQ((std::array<int, 4>{color.r, color.g, color.b, color.a}), (std::array<int, 4>{r, g, b, a}));
}
Vec4 random_vector4(Random& random) {
  return {random.number(-10, 10), random.number(-10, 10), random.number(-10, 10), random.number(-10, 10)};
}

TEST(Angles, DeltaAngleIsTheShortTurn) {
  each_round(101, [](Random& random) {
    const float a = random.number(-50.0F, 50.0F);
    const float b = random.number(-50.0F, 50.0F);
    const float turn = delta_angle(a, b);
    ASSERT_TRUE(turn > -kPi && turn <= kPi) << turn;
    const double error = static_cast<double>(turn) - (static_cast<double>(b) - static_cast<double>(a));
    ASSERT_NEAR(std::remainder(error, 2.0 * std::acos(-1.0)), 0.0, 2e-5) << a << " to " << b;
  });
  // The remainder of a number just below 0 rounds up to the length, and stays there.
  EXPECT_EQ(repeat(-1e-9F, 3), 3.0F);
}

TEST(Angles, DeltaAngleZxyLeadsToTheSameRotation) {
  each_round(102, [](Random& random) {
    const Vec3 from = random.vector(6.0F);
    const Vec3 to = random.vector(6.0F);
    const Vec3 turn = vector3_delta_angle_zxy(from, to);
    const _Rotation<float> reached = quaternion_rotation_zxy_from_vector(from + turn);
    ASSERT_NEAR(std::fabs(quaternion_dot(reached, quaternion_rotation_zxy_from_vector(to))), 1.0F, 1e-5F);
    // The two ways are at most 4 pi long together, and the shorter one is taken.
    ASSERT_LE(std::fabs(turn.x) + std::fabs(turn.y) + std::fabs(turn.z), 2.0F * kPi);
  });
}

TEST(Vectors, Vector4CrossIsOrthogonalToItsArguments) {
  each_round(109, [](Random& random) {
    const Vec4 v[] = {random_vector4(random), random_vector4(random), random_vector4(random)};
    const Vec4 product = vector4_cross(v[0], v[1], v[2]);
    for (const Vec4& argument : v) {
      ASSERT_NEAR(dot(product, argument) / (length(v[0]) * length(v[1]) * length(v[2])), 0.0F, 2e-5F);
    }
  });
}

TEST(Vectors, RotationIsThatOfTheClassUpToRounding) {
  each_round(103, [](Random& random) {
    const Vec3 v = random.vector(10.0F);
    const Vec4 q = random_vector4(random) * 0.1F;
    const Vec3 expected = rotate(_Rotation<float>{q.x, q.y, q.z, q.w}, v);
    expect_floats(vector3_rotate(v, {q.x, q.y, q.z, q.w}), {expected.x, expected.y, expected.z}, 2e-5F);
  });
}

TEST(Colours, WordsAndBytesComeBack) {
  each_round(107, [](Random& random) {
    const auto word = static_cast<std::uint32_t>(random.bits());
    ASSERT_EQ(color32_to_int(color32_from_int(word)), word);
    ASSERT_EQ(color_to_int(color_from_int(word)), word);
    if constexpr (std::endian::native == std::endian::little) {
      ASSERT_EQ(std::bit_cast<std::uint32_t>(color32_from_int(word)), word);
    }
  });
  for (int i = 0; i < 256; ++i) {
    expect_bytes(to_color32(to_color_f(color32_from_rgba(i, 255 - i, -i, i + 256))), i, 255 - i, -i & 255, i);
  }
  expect_floats(color_from_rgba(300, -1, 0, 255), {1.1764706F, -0.003921569F, 0, 1});
}

TEST(Colours, ConversionsSaturate) {
  expect_bytes(to_color32({1.0F, 0.5F, 0.0F, 0.25F}), 255, 128, 0, 64);
  expect_bytes(to_color32({2.0F, -0.3F, kNan, 0.998F}), 255, 0, 0, 254);
  expect_bytes(to_color32({kInf, -kInf, kMax, -kMax}), 255, 0, 255, 0);
  expect_floats(clamped({-1.0F, kNan, 2.0F, 5.0F}), {0, kNan, 1, 5});
  expect_floats(ColorF{0.5F, 0.5F, 0.5F, 0.5F} + ColorF{0.75F, 0, 0, 1}, {1.25F, 0.5F, 0.5F, 0.5F});
  expect_floats(ColorF{0.5F, 0, 1, 0.5F} * 3.0F, {1.5F, 0, 3, 0.5F});

  const Color32 low = color32_from_rgba(0, 100, 200, 255);
  const Color32 high = color32_from_rgba(255, 0, 100, 0);
  expect_bytes(color32_lerp(low, high, 1.5F), 255, 0, 50, 0);
  // Beyond 2^31 this blend falls to 0 where the other one saturates; a NaN is 0 in both.
  expect_bytes(color32_lerp(low, high, 8.0e6F), 255, 0, 0, 0);
  expect_bytes(color32_lerp(low, high, 8.5e6F), 0, 0, 0, 0);
  expect_bytes(lerp(low, high, 8.5e6F), 255, 0, 0, 0);
  EXPECT_TRUE(lerp(low, high, kNan) == from_word(0) && color32_lerp(low, high, kNan) == from_word(0));
  const Color32 grey = color32_from_rgba(29, 29, 29, 29);
  expect_bytes(color32_lerp(grey, grey, 0.04800437F), 28, 28, 28, 28);
}

TEST(Damping, SettlesWithoutOvershootAndLanesAgree) {
  each_round(108, [](Random& random) {
    const Vec3 start = random.vector(100.0F);
    const Vec3 target = random.vector(100.0F);
    const float smooth_time = random.number(0.05F, 0.5F);
    Damped<Vec3> lanes{start, {}};
    for (int step = 0; step < 400; ++step) {
      const Damped<Vec3> before = lanes;
      lanes = vector3_smooth_damp(before.value, target, before.velocity, smooth_time, std::nullopt, 0.02F);
      for (const auto axis : kAxes) {
        const float goal = target.*axis;
        const Damped<float> scalar =
            smooth_damp(before.value.*axis, goal, before.velocity.*axis, smooth_time, std::nullopt, 0.02F);
        ASSERT_EQ(lanes.value.*axis, scalar.value);
        ASSERT_EQ(lanes.velocity.*axis, scalar.velocity);
        ASSERT_GE((goal - scalar.value) * (goal - start.*axis), 0.0F) << "overshoot in step " << step;
        ASSERT_LE(std::fabs(goal - scalar.value), std::fabs(goal - before.value.*axis));
      }
    }
    expect_floats(lanes.value, {target.x, target.y, target.z}, 1e-3F);
  });
}

TEST(Damping, LimitsAndDegenerateSteps) {
  EXPECT_EQ(smooth_damp(0, 10, 0, 1, std::nullopt, 0.1F).velocity, 3.2757885F);
  EXPECT_EQ(smooth_damp(0, 10, 0, 1, 2.0F, 0.1F).velocity, 0.65515774F);
  // Half the time at twice the limit: the same steps at twice the speed.
  EXPECT_EQ(smooth_damp(0, 10, 0, 0.5F, -4.0F, 0.05F).velocity, 2 * 0.65515774F);
  EXPECT_EQ(smooth_damp(0, 10, 0, -1, 2.0F, 1e-4F).value, smooth_damp(0, 10, 0, 1e-4F, 2.0F, 1e-4F).value);
  expect_floats(smooth_damp(1, 1, 0, 1, std::nullopt, 0), {1, kNan});
  expect_floats(smooth_damp(0.5F, 1, 0, 1, std::nullopt, 0), {0.5F, 0});

  // A negative limit of a component replaces the offset, here -10, by 2: the value starts away from the target.
  const Damped<Vec3> lanes = vector3_smooth_damp({}, {10, 10, 10}, {}, 1, Vec3{2, -2, 0}, 0.1F);
  expect_floats(lanes.velocity, {0.65515774F, -0.65515774F, 0});
  EXPECT_LT(lanes.value.y, 0.0F);
  EXPECT_EQ(lanes.value.z, 0.0F);
}

}  // namespace
}  // namespace zeph::math3d
