/// Smooth damping: a critically damped spring towards a target. The caller carries the velocity from call to call.
#pragma once

#include <limits>
#include <optional>

#include <zeph/functions/scalar.h>
#include <zeph/math3d/single.h>
#include <zeph/math3d/vector3.h>

namespace zeph::math3d {

/// Limit on the speed when the caller names none.
inline constexpr float kUnlimitedSpeed = std::numeric_limits<float>::max();
/// Smooth times below this many seconds count as it.
inline constexpr float kSmallestSmoothTime = 0.0001F;

/// Value and velocity after one step.
template <typename Value>
struct Damped {
  Value value;
  Value velocity;
};

/// Spring over one time step, alike for all components.
struct DampingSpring {
  float smooth_time;
  float omega;
  float decay;
  float delta_time;
};

/// omega = 2 / smooth_time; decay approximates exp(-x) for x = omega * delta_time: 1 / (1 + x + 0.48 x^2 + 0.235 x^3).
[[nodiscard]] constexpr DampingSpring damping_spring(float smooth_time, float delta_time) noexcept {
  const float time = greater(kSmallestSmoothTime, smooth_time);
  const float omega = 2.0F / time;
  const float x = omega * delta_time;
  return {time, omega, 1.0F / (x * 0.48F * x + (x + 1.0F) + x * 0.235F * x * x), delta_time};
}

/// One step from an offset to the target that is already held within the speed limit. A step that would pass the target
/// stops on it with the velocity (target - target) / delta_time: 0, or NaN for a zero delta_time or an infinite target.
/// That holds for a start on the target too.
[[nodiscard]] constexpr Damped<float> damp_step(const DampingSpring& spring, float current, float target,
                                                float velocity, float change) noexcept {
  const float goal = current - change;
  const float temp = (change * spring.omega + velocity) * spring.delta_time;
  const float value = (temp + change) * spring.decay + goal;
  if ((target - current > 0.0F) == (value > target)) {
    return {target, (target - target) / spring.delta_time};
  }
  return {value, (velocity - temp * spring.omega) * spring.decay};
}

/// One step of delta_time seconds. The offset to the target is held within max_speed * smooth_time, whichever the sign
/// of max_speed.
[[nodiscard]] constexpr Damped<float> smooth_damp(float current, float target, float velocity, float smooth_time,
                                                  std::optional<float> max_speed, float delta_time) noexcept {
  const DampingSpring spring = damping_spring(smooth_time, delta_time);
  const float limit = max_speed.value_or(kUnlimitedSpeed) * spring.smooth_time;
  return damp_step(spring, current, target, velocity, clamp(current - target, -limit, limit));
}

/// One step of each component with its own limit, the upper bound applied before the lower: where max_speed is negative
/// the offset becomes |max_speed| * smooth_time outright instead of being held within it.
[[nodiscard]] constexpr Damped<_Vector3<float>> vector3_smooth_damp(const _Vector3<float>& current,
                                                                    const _Vector3<float>& target,
                                                                    const _Vector3<float>& velocity, float smooth_time,
                                                                    const std::optional<_Vector3<float>>& max_speed,
                                                                    float delta_time) noexcept {
  const DampingSpring spring = damping_spring(smooth_time, delta_time);
  const _Vector3<float> speed = max_speed.value_or(_Vector3<float>{kUnlimitedSpeed, kUnlimitedSpeed, kUnlimitedSpeed});
  const auto step = [&spring](float from, float to, float v, float component_speed) {
    const float limit = spring.smooth_time * component_speed;
    return damp_step(spring, from, to, v, fmax_ordered(fmin_ordered(from - to, limit), -limit));
  };
  const Damped<float> x = step(current.x, target.x, velocity.x, speed.x);
  const Damped<float> y = step(current.y, target.y, velocity.y, speed.y);
  const Damped<float> z = step(current.z, target.z, velocity.z, speed.z);
  return {{x.value, y.value, z.value}, {x.velocity, y.velocity, z.velocity}};
}

}  // namespace zeph::math3d
