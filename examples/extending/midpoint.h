/// The function that CONTRIBUTING.md adds.
#pragma once

#include <zeph/math3d/vector3.h>

namespace zeph::math3d {

// [function]
/// (a + b) * 0.5. Infinite where a + b overflows, though the middle would not.
[[nodiscard]] constexpr _Vector3<float> vector3_midpoint(const _Vector3<float>& a, const _Vector3<float>& b) noexcept {
  return (a + b) * 0.5F;
}
// [end]

}  // namespace zeph::math3d
