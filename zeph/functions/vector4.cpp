#include <zeph/functions/vector4.h>

#include <zeph/binding/table.h>
#include <zeph/functions/register.h>
#include <zeph/math3d/lua_matrix.h>
#include <zeph/math3d/lua_vector4.h>

namespace zeph::math3d {

using binding::Function;
using binding::FunctionTable;
using binding::Row;

// clang-format off
using Vector4Table = FunctionTable<
    Row<"vector4_abs", Function<&vector4_abs>>,
    Row<"vector4_dot", Function<&vector4_dot>>,
    Row<"vector4_cross", Function<&vector4_cross>>,
    Row<"vector4_lerp", Function<&vector4_lerp>>,
    Row<"vector4_length_sq", Function<&vector4_length_sq>>,
    Row<"vector4_length", Function<&vector4_length>>,
    Row<"vector4_min", Function<&vector4_min>>,
    Row<"vector4_max", Function<&vector4_max>>,
    Row<"vector4_clamp", Function<&vector4_clamp>>,
    Row<"vector4_normalize", Function<&vector4_normalize>>,
    Row<"vector4_transform", Function<&vector4_transform>>>;
// clang-format on

void register_vector4_functions(lua_State* L) { Vector4Table::Register(L); }

}  // namespace zeph::math3d
