#include <zeph/functions/matrix.h>

#include <zeph/binding/table.h>
#include <zeph/functions/register.h>
#include <zeph/math3d/lua_matrix.h>
#include <zeph/math3d/lua_rotation.h>
#include <zeph/math3d/lua_vector3.h>

namespace zeph::math3d {

namespace {

using binding::Function;
using binding::FunctionTable;
using binding::Row;

// clang-format off
using MatrixTable = FunctionTable<
    Row<"matrix_identity", Function<&matrix_identity>>,
    Row<"matrix_inverse", Function<&matrix_inverse>>,
    Row<"matrix_translation", Function<&matrix_translation>>,
    Row<"matrix_translation_from_vector", Function<&matrix_translation_from_vector>>,
    Row<"matrix_scaling", Function<&matrix_scaling>>,
    Row<"matrix_scaling_from_vector", Function<&matrix_scaling_from_vector>>,
    Row<"matrix_rotation_quaternion", Function<&matrix_rotation_quaternion>>,
    Row<"matrix_rotation_axis", Function<&matrix_rotation_axis>>,
    Row<"matrix_rotation_normal", Function<&matrix_rotation_normal>>,
    Row<"matrix_rotation_zxy", Function<&matrix_rotation_zxy>>,
    Row<"matrix_rotation_zxy_from_vector", Function<&matrix_rotation_zxy_from_vector>>,
    Row<"matrix_rotation_look", Function<&matrix_rotation_look>>,
    Row<"matrix_ortho_normal_basis", Function<&matrix_ortho_normal_basis>>,
    Row<"matrix_transformation_prs", Function<&matrix_transformation_prs>>>;
// clang-format on

}  // namespace

void register_matrix_functions(lua_State* L) { MatrixTable::Register(L); }

}  // namespace zeph::math3d
