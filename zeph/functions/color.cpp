#include <zeph/functions/color.h>

#include <zeph/binding/table.h>
#include <zeph/functions/register.h>
#include <zeph/math3d/lua_color.h>

namespace zeph::math3d {

using binding::Function;
using binding::FunctionTable;
using binding::Row;

// clang-format off
using ColorTable = FunctionTable<
    Row<"color32_from_rgba", Function<&color32_from_rgba>>,
    Row<"color32_from_int", Function<&color32_from_int>>,
    Row<"color32_to_int", Function<&color32_to_int>>,
    Row<"color32_black", Function<&color32_black>>,
    Row<"color32_white", Function<&color32_white>>,
    Row<"color32_lerp", Function<&color32_lerp>>,
    Row<"color32_blend", Function<&color32_blend>>,
    Row<"color32_multiply", Function<&color32_multiply>>,
    Row<"color_from_rgba", Function<&color_from_rgba>>,
    Row<"color_from_color32", Function<&color_from_color32>>,
    Row<"color_to_color32", Function<&color_to_color32>>,
    Row<"color_from_int", Function<&color_from_int>>,
    Row<"color_to_int", Function<&color_to_int>>,
    Row<"color_white", Function<&color_white>>,
    Row<"color_black", Function<&color_black>>,
    Row<"color_lerp", Function<&color_lerp>>,
    Row<"color_blend", Function<&color_blend>>,
    Row<"color_multiply", Function<&color_multiply>>>;
// clang-format on

void register_color_functions(lua_State* L) { ColorTable::Register(L); }

}  // namespace zeph::math3d
