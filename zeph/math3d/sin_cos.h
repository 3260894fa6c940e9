/// The library's own sine and cosine: minimax polynomials of degree 11 and 10 on [-pi/2, pi/2], in float.
/// Two entry points differ in how they bring the angle into that range; near odd multiples of pi they can differ.
#pragma once

#include <zeph/math3d/single.h>

namespace zeph::math3d {

/// Sine and cosine of one angle.
struct SinCos {
  float sine;
  float cosine;
};

/// Sine polynomial on [-pi/2, pi/2], with g = y * y.
[[nodiscard]] inline float sine_polynomial(float y, float g) noexcept {
  return y *
         (((((-2.3889859e-08F * g + 2.7525562e-06F) * g - 0.00019840874F) * g + 0.008333331F) * g - 0.16666667F) * g +
          1.0F);
}

/// Cosine polynomial on [-pi/2, pi/2], with g = y * y.
[[nodiscard]] inline float cosine_polynomial(float g) noexcept {
  return ((((-2.6051615e-07F * g + 2.4760495e-05F) * g - 0.0013888378F) * g + 0.041666638F) * g - 0.5F) * g + 1.0F;
}

/// Sine and cosine of `angle` less `turns` whole turns, which has to lie in [-pi, pi].
[[nodiscard]] inline SinCos sin_cos_reduced(float angle, float turns) noexcept {
  float y = angle - kTwoPi * turns;
  float sign = 1.0F;
  if (y > kHalfPi) {
    y = kPi - y;
    sign = -1.0F;
  } else if (y < -kHalfPi) {
    y = -kPi - y;
    sign = -1.0F;
  }
  const float g = y * y;
  return {sine_polynomial(y, g), sign * cosine_polynomial(g)};
}

/// Sine and cosine in radians; whole turns are counted by adding a half away from zero and cutting.
[[nodiscard]] inline SinCos scalar_sin_cos(float angle) noexcept {
  const float quotient = angle * kInverseTwoPi;
  return sin_cos_reduced(angle, truncate(angle >= 0.0F ? quotient + 0.5F : quotient - 0.5F));
}

/// Sine and cosine in radians; whole turns are counted by rounding half to even.
[[nodiscard]] inline SinCos vector_sin_cos(float angle) noexcept {
  return sin_cos_reduced(angle, round_half_even(angle * kInverseTwoPi));
}

}  // namespace zeph::math3d
