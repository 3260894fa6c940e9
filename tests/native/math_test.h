/// What the tests of rotations and matrices share: random values with fixed seeds, and bounds on differences.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <random>
#include <type_traits>

#include <gtest/gtest.h>

#include <zeph/functions/matrix.h>
#include <zeph/functions/quaternion.h>

#include <zeph/math3d/matrix_decomposition.h>

namespace zeph::math3d {

using Vector = _Vector3<float>;
using Quaternion = _Rotation<float>;
using Matrix = _Matrix<float>;

inline constexpr int kCases = 1000;
inline constexpr float kNan = kQuietNan;
inline constexpr Vector kRight{1, 0, 0}, kUp{0, 1, 0}, kForward{0, 0, 1}, kLeft{-1, 0, 0}, kDown{0, -1, 0},
    kBack{0, 0, -1};
inline constexpr Matrix kCounting{{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}};

inline double wide(float value) { return static_cast<double>(value); }
constexpr Quaternion only_w(float w) { return {0, 0, 0, w}; }

class Random {
 public:
  explicit Random(std::uint32_t seed) : engine_(seed) {}
  float in(float low, float high) { return low + (high - low) * (static_cast<float>(engine_() >> 8U) / 16777216.0F); }
  Vector vector(float low, float high) { return {in(low, high), in(low, high), in(low, high)}; }
  Vector direction() {
    const Vector v = vector(-1, 1);
    return length(v) > 0.1F ? normalized(v) : direction();
  }
  Quaternion rotation() {
    const Quaternion q{in(-1, 1), in(-1, 1), in(-1, 1), in(-1, 1)};
    return length(q) > 0.1F ? normalized(q) : rotation();
  }

 private:
  std::mt19937 engine_;
};

/// Fails at the end of its life if two values it saw, numbers or made of floats, were further apart than the bound. NaN
/// on one side alone is infinitely far, NaN on both sides is the same value.
class Within {
 public:
  explicit Within(double bound, int line = __builtin_LINE()) : bound_(bound), line_(line) {}
  Within(const Within&) = delete;
  Within& operator=(const Within&) = delete;
  ~Within() { EXPECT_LE(worst_, bound_) << "line " << line_; }
  void see(double a, double b) {
    const double gap = a == b || (std::isnan(a) && std::isnan(b)) ? 0.0 : std::fabs(a - b);
    worst_ = std::max(worst_, std::isnan(gap) ? HUGE_VAL : gap);
  }
  template <typename T>
  void see(const T& a, const std::type_identity_t<T>& b) {
    const auto x = std::bit_cast<std::array<float, sizeof(T) / sizeof(float)>>(a);
    const auto y = std::bit_cast<std::array<float, sizeof(T) / sizeof(float)>>(b);
    for (std::size_t i = 0; i < x.size(); ++i) {
      see(wide(x[i]), wide(y[i]));
    }
  }
  /// q and -q are one rotation.
  void see_rotation(const Quaternion& a, const Quaternion& b) { see(a, dot(a, b) < 0.0F ? b * -1.0F : b); }
  /// Angles that differ by whole turns are one angle.
  void see_angles(const Vector& a, const Vector& b) {
    for (const float angle : {a.x - b.x, a.y - b.y, a.z - b.z}) {
      see(std::remainder(wide(angle), 2.0 * std::numbers::pi), 0.0);
    }
  }
  [[nodiscard]] double worst() const { return worst_; }

 private:
  double bound_, worst_ = 0.0;
  int line_;
};

template <typename T>
bool same(const T& a, const std::type_identity_t<T>& b, double tolerance = 0.0) {
  Within pair(HUGE_VAL);
  pair.see(a, b);
  return pair.worst() <= tolerance;
}

}  // namespace zeph::math3d
