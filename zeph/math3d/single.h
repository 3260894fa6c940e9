/// Single-precision ground rules that every native type shares.
///
/// Results are the same bits from every compiler and optimisation level: each operation is one IEEE 754 binary32
/// operation, in the order written. Compile code that uses these headers with -ffp-contract=off and without
/// -ffast-math.
#pragma once

#include <cmath>
#include <limits>

namespace zeph::math3d {

static_assert(std::numeric_limits<float>::is_iec559 && sizeof(float) == 4);
#if defined(__FAST_MATH__)
#error "zeph::math3d needs IEEE arithmetic: compile without -ffast-math"
#endif

inline constexpr float kPi = 3.1415927F;
inline constexpr float kHalfPi = 1.5707964F;
inline constexpr float kTwoPi = 6.2831855F;
inline constexpr float kInverseTwoPi = 0.15915494F;
/// Tolerance of the comparisons that have one.
inline constexpr float kEpsilon = 1e-6F;
/// Distance from 1 to the next float.
inline constexpr float kFloatEpsilon = 1.1920929e-7F;

inline constexpr float kQuietNan = std::numeric_limits<float>::quiet_NaN();
inline constexpr float kInfinity = std::numeric_limits<float>::infinity();

/// a if a < b, else b: a NaN in either operand gives b.
[[nodiscard]] constexpr float lesser(float a, float b) noexcept { return a < b ? a : b; }
/// a if a > b, else b: a NaN in either operand gives b.
[[nodiscard]] constexpr float greater(float a, float b) noexcept { return a > b ? a : b; }

/// The C library's fminf: the other operand when one is NaN. Spelled out, since compilers expand fminf differently for
/// zeros of opposite sign; here a tie gives b.
[[nodiscard]] constexpr float fmin_ordered(float a, float b) noexcept { return a < b || b != b ? a : b; }
/// The C library's fmaxf, as fmin_ordered.
[[nodiscard]] constexpr float fmax_ordered(float a, float b) noexcept { return a > b || b != b ? a : b; }

/// True when a and b differ by at most kEpsilon, both bounds included. A NaN difference counts as near.
[[nodiscard]] constexpr bool near(float a, float b) noexcept {
  const float difference = a - b;
  return !(difference > kEpsilon || -kEpsilon > difference);
}

/// Nearest integer, ties to even; unchanged above 2^23 in magnitude, where every float is one.
[[nodiscard]] inline float round_half_even(float value) noexcept {
  constexpr float no_fraction = 8388608.0F;
  const float magic = std::copysign(no_fraction, value);
  return std::fabs(value) <= no_fraction ? (value + magic) - magic : value;
}

/// Integer part, cut towards zero.
[[nodiscard]] inline float truncate(float value) noexcept {
  constexpr float no_fraction = 8388608.0F;
  return std::fabs(value) < no_fraction ? static_cast<float>(static_cast<int>(value)) : value;
}

}  // namespace zeph::math3d
