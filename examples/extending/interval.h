/// Closed range of numbers, the native type of the class that CONTRIBUTING.md adds.
// [native-type]
#pragma once

#include <type_traits>

#include <zeph/export.h>
#include <zeph/math3d/single.h>

namespace zeph::math3d {

/// The numbers x with low <= x <= high; none when low > high.
struct ZEPH_MATH3D_API Interval {
  float low{};
  float high{};
};
static_assert(sizeof(Interval) == 8 && std::is_trivially_copyable_v<Interval>);

/// Both bounds included; a NaN is in no interval.
[[nodiscard]] constexpr bool contains(const Interval& interval, float x) noexcept {
  return interval.low <= x && x <= interval.high;
}
/// The smallest interval around both. Where a bound is NaN, it is that of b.
[[nodiscard]] constexpr Interval hull(const Interval& a, const Interval& b) noexcept {
  return {lesser(a.low, b.low), greater(a.high, b.high)};
}
/// high - low; negative when there is nothing inside.
[[nodiscard]] constexpr float size(const Interval& interval) noexcept { return interval.high - interval.low; }
/// Moves high; low stays.
constexpr void set_size(Interval& interval, float size) noexcept { interval.high = interval.low + size; }

}  // namespace zeph::math3d
// [end]
