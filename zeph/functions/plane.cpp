#include <zeph/functions/plane.h>

#include <zeph/binding/table.h>
#include <zeph/functions/register.h>
#include <zeph/math3d/lua_plane.h>

namespace zeph::math3d {

namespace {

using P = _Plane<float>;
using V = _Vector3<float>;
using binding::Function;
using binding::FunctionTable;
using binding::Results;
using binding::Row;

/// Two results, or one nil.
std::optional<Results<V, V>> intersect_plane(const P& a, const P& b) {
  const auto line = plane_intersect_plane(a, b);
  return line ? std::optional(Results<V, V>{{line->first, line->second}}) : std::nullopt;
}

// clang-format off
using PlaneTable = FunctionTable<
    Row<"plane_from_point_normal", Function<&plane_from_point_normal>>,
    Row<"plane_from_points", Function<&plane_from_points>>,
    Row<"plane_dist_from_point", Function<&plane_dist_from_point>>,
    Row<"plane_intersect_line", Function<&plane_intersect_line>>,
    Row<"plane_intersect_plane", Function<&intersect_plane>>,
    Row<"plane_intersect_planes", Function<&plane_intersect_planes>>>;
// clang-format on

}  // namespace

void register_plane_functions(lua_State* L) { PlaneTable::Register(L); }

}  // namespace zeph::math3d
