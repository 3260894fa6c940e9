#include <zeph/functions/quaternion.h>

#include <zeph/binding/table.h>
#include <zeph/functions/register.h>
#include <zeph/math3d/lua_matrix.h>
#include <zeph/math3d/lua_rotation.h>
#include <zeph/math3d/lua_vector3.h>

namespace zeph::math3d {

namespace {

using binding::Function;
using binding::FunctionTable;
using binding::Results;
using binding::Row;

Results<_Vector3<float>, float> to_axis_angle(const _Rotation<float>& q) {
  const AxisAngle parts = quaternion_to_axis_angle(q);
  return {{parts.axis, parts.angle}};
}

// clang-format off
using QuaternionTable = FunctionTable<
    Row<"quaternion_multiply", Function<&quaternion_multiply>>,
    Row<"quaternion_dot", Function<&quaternion_dot>>,
    Row<"quaternion_lerp", Function<&quaternion_lerp>>,
    Row<"quaternion_slerp", Function<&quaternion_slerp>>,
    Row<"quaternion_conjugate", Function<&quaternion_conjugate>>,
    Row<"quaternion_length_sq", Function<&quaternion_length_sq>>,
    Row<"quaternion_length", Function<&quaternion_length>>,
    Row<"quaternion_normalize", Function<&quaternion_normalize>>,
    Row<"quaternion_inverse", Function<&quaternion_inverse>>,
    Row<"quaternion_identity", Function<&quaternion_identity>>,
    Row<"quaternion_rotation_axis", Function<&quaternion_rotation_axis>>,
    Row<"quaternion_rotation_matrix", Function<&quaternion_rotation_matrix>>,
    Row<"quaternion_rotation_zxy", Function<&quaternion_rotation_zxy>>,
    Row<"quaternion_rotation_zxy_from_vector", Function<&quaternion_rotation_zxy_from_vector>>,
    Row<"quaternion_rotation_fromto", Function<&quaternion_rotation_fromto>>,
    Row<"quaternion_to_axis_angle", Function<&to_axis_angle>>,
    Row<"quaternion_to_rotation_xzy", Function<&quaternion_to_rotation_xzy>>,
    Row<"quaternion_to_euler_zyx", Function<&quaternion_to_euler_zyx>>,
    Row<"quaternion_to_euler_xyz", Function<&quaternion_to_euler_xyz>>>;
// clang-format on

}  // namespace

void register_quaternion_functions(lua_State* L) { QuaternionTable::Register(L); }

}  // namespace zeph::math3d
