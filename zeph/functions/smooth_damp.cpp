#include <zeph/functions/smooth_damp.h>

#include <zeph/binding/table.h>
#include <zeph/functions/register.h>
#include <zeph/math3d/lua_vector3.h>

namespace zeph::math3d {

namespace {

using V = _Vector3<float>;
using binding::Function;
using binding::FunctionTable;
using binding::Nullable;
using binding::Results;
using binding::Row;

template <typename Value>
std::optional<Value> limit(const Nullable<Value>& max_speed) {
  return max_speed.has_value ? std::optional(max_speed.value) : std::nullopt;
}
template <typename Value>
Results<Value, Value> value_and_velocity(const Damped<Value>& damped) {
  return {{damped.value, damped.velocity}};
}

Results<float, float> damp(float current, float target, float velocity, float smooth_time, Nullable<float> max_speed,
                           float delta_time) {
  return value_and_velocity(smooth_damp(current, target, velocity, smooth_time, limit(max_speed), delta_time));
}
Results<V, V> damp_vector(const V& current, const V& target, const V& velocity, float smooth_time,
                          const Nullable<V>& max_speed, float delta_time) {
  return value_and_velocity(vector3_smooth_damp(current, target, velocity, smooth_time, limit(max_speed), delta_time));
}

// clang-format off
using SmoothDampTable = FunctionTable<
    Row<"smooth_damp", Function<&damp>>,
    Row<"vector3_smooth_damp", Function<&damp_vector>>>;
// clang-format on

}  // namespace

void register_smooth_damp_functions(lua_State* L) { SmoothDampTable::Register(L); }

}  // namespace zeph::math3d
