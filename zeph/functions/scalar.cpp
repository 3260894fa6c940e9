#include <zeph/functions/scalar.h>

#include <zeph/binding/table.h>
#include <zeph/functions/register.h>

namespace zeph::math3d {

using binding::Function;
using binding::FunctionTable;
using binding::Row;

// clang-format off
using ScalarTable = FunctionTable<
    Row<"radians", Function<&radians>>,
    Row<"degrees", Function<&degrees>>,
    Row<"clamp", Function<&clamp>>,
    Row<"lerp", Function<&lerp>>,
    Row<"repeat", Function<&repeat>>,
    Row<"lerp_angle", Function<&lerp_angle>>,
    Row<"delta_angle", Function<&delta_angle>>>;
// clang-format on

void register_scalar_functions(lua_State* L) { ScalarTable::Register(L); }

}  // namespace zeph::math3d
