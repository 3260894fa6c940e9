#include <zeph/functions/aabb.h>

#include <zeph/binding/table.h>
#include <zeph/functions/register.h>
#include <zeph/math3d/lua_aabb.h>
#include <zeph/math3d/lua_matrix.h>

namespace zeph::math3d {

using binding::Function;
using binding::FunctionTable;
using binding::Row;

// clang-format off
using AabbTable = FunctionTable<Row<"aabb_transform", Function<&aabb_transform>>>;
// clang-format on

void register_aabb_functions(lua_State* L) { AabbTable::Register(L); }

}  // namespace zeph::math3d
