/// What the tests of native arithmetic share: comparison of values made of floats, and random input.
#pragma once

#include <array>
#include <bit>
#include <cmath>
#include <initializer_list>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include <zeph/math3d/vector3.h>

namespace zeph::math3d {

using Vec3 = _Vector3<float>;
inline constexpr float kNan = kQuietNan;
inline constexpr float kInf = kInfinity;
inline constexpr float kMax = std::numeric_limits<float>::max();

/// Floats of a value against the expected ones: exact unless a tolerance is given, NaN matching NaN.
template <typename Value>
void expect_floats(const Value& value, std::initializer_list<float> expected, float tolerance = 0.0F) {
  const auto actual = std::bit_cast<std::array<float, sizeof(Value) / sizeof(float)>>(value);
  ASSERT_EQ(actual.size(), expected.size());
  for (std::size_t i = 0; i < actual.size(); ++i) {
    const float wanted = expected.begin()[i];
    const bool same = actual[i] == wanted || (std::isnan(actual[i]) && std::isnan(wanted));
    EXPECT_TRUE(same || std::fabs(actual[i] - wanted) <= tolerance) << actual[i] << " is not " << wanted << ", " << i;
  }
}

/// Every draw is a statement or a braced element, so that all compilers draw in the same order.
struct Random {
  std::mt19937 bits;
  float number(float low, float high) { return std::uniform_real_distribution<float>(low, high)(bits); }
  Vec3 vector(float size) { return {number(-size, size), number(-size, size), number(-size, size)}; }
};

/// A thousand rounds of a test on its own random numbers.
template <typename Body>
void each_round(unsigned seed, Body body) {
  Random random{std::mt19937{seed}};
  for (int round = 0; round < 1000 && !testing::Test::HasFailure(); ++round) {
    body(random);
  }
}

}  // namespace zeph::math3d
