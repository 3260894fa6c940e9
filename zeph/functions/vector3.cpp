#include <zeph/functions/vector3.h>

#include <zeph/binding/table.h>
#include <zeph/functions/register.h>
#include <zeph/math3d/lua_matrix.h>
#include <zeph/math3d/lua_rotation.h>
#include <zeph/math3d/lua_vector3.h>

namespace zeph::math3d {

using binding::Function;
using binding::FunctionTable;
using binding::Row;

// clang-format off
using Vector3Table = FunctionTable<
    Row<"vector3_abs", Function<&vector3_abs>>,
    Row<"vector3_dot", Function<&vector3_dot>>,
    Row<"vector3_cross", Function<&vector3_cross>>,
    Row<"vector3_lerp", Function<&vector3_lerp>>,
    Row<"vector3_length_sq", Function<&vector3_length_sq>>,
    Row<"vector3_length", Function<&vector3_length>>,
    Row<"vector3_min", Function<&vector3_min>>,
    Row<"vector3_max", Function<&vector3_max>>,
    Row<"vector3_clamp", Function<&vector3_clamp>>,
    Row<"vector3_normalize", Function<&vector3_normalize>>,
    Row<"vector3_rotate", Function<&vector3_rotate>>,
    Row<"vector3_transform_coord", Function<&vector3_transform_coord>>,
    Row<"vector3_transform_normal", Function<&vector3_transform_normal>>,
    Row<"vector3_delta_angle_zxy", Function<&vector3_delta_angle_zxy>>>;
// clang-format on

void register_vector3_functions(lua_State* L) { Vector3Table::Register(L); }

}  // namespace zeph::math3d
