/// Scalar functions. Angles are radians, but for the argument of radians and the result of degrees.
#pragma once

#include <cmath>

#include <zeph/math3d/single.h>

namespace zeph::math3d {

/// (x * pi) / 180
[[nodiscard]] constexpr float radians(float x) noexcept { return (x * kPi) / 180.0F; }
/// (x * 180) / pi
[[nodiscard]] constexpr float degrees(float x) noexcept { return (x * 180.0F) / kPi; }

/// Value held between a and b, whichever is the smaller. A NaN value gives the lower bound.
[[nodiscard]] constexpr float clamp(float value, float a, float b) noexcept {
  return lesser(greater(value, lesser(a, b)), greater(a, b));
}

/// (b - a) * t + a, t not clamped.
[[nodiscard]] constexpr float lerp(float a, float b, float t) noexcept { return (b - a) * t + a; }

/// t wrapped into [0, length], or into [length, 0] for a negative length. Length 0 gives 0.
/// Rounding can carry the remainder out of the range, hence the clamp.
[[nodiscard]] inline float repeat(float t, float length) noexcept {
  return clamp(t - std::floor(t / length) * length, 0.0F, length);
}

/// The same direction in (-pi, pi]; a NaN angle gives 0.
[[nodiscard]] inline float wrap_angle(float angle) noexcept {
  const float turn = clamp(angle - std::floor(angle / kTwoPi) * kTwoPi, 0.0F, kTwoPi);
  return turn > kPi ? turn - kTwoPi : turn;
}

/// Shortest signed turn from a to b, in (-pi, pi]; half a turn either way gives +pi.
[[nodiscard]] inline float delta_angle(float a, float b) noexcept { return wrap_angle(b - a); }

/// a + delta_angle(a, b) * t with t held in 0..1; not wrapped, so within pi of a.
[[nodiscard]] inline float lerp_angle(float a, float b, float t) noexcept {
  return lesser(greater(t, 0.0F), 1.0F) * delta_angle(a, b) + a;
}

}  // namespace zeph::math3d
