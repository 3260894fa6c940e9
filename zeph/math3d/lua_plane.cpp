#include <zeph/math3d/lua_plane.h>

#include <zeph/binding/meta_class.h>
#include <zeph/binding/table.h>
#include <zeph/math3d/float_text.h>

namespace zeph::math3d {

namespace {

using P = _Plane<float>;
using V = _Vector3<float>;
using binding::Function;
using binding::Method;
using binding::Overload;
using binding::Row;
using binding::TableText;

P make_zero() { return {}; }
P make_copy(const P& plane) { return plane; }
P make(const V& normal, float dist) { return {normal, dist}; }
/// The points p with a * p.x + b * p.y + c * p.z == d.
P make_equation(float a, float b, float c, float d) { return {{a, b, c}, d}; }

bool equal(const P& a, const P& b) { return near(a, b); }
float distance_to(const P& plane, const V& point) { return distance(plane, point); }
/// The projection lands in the script's own table `out`; what that held plays no part.
void project_point(const P& plane, V& out, const V& point) { out = projected(plane, point); }

ClassText as_string(const P& plane) {
  return print_floats("Plane(%f, %f, %f, %f)", plane.normal.x, plane.normal.y, plane.normal.z, plane.dist);
}

// clang-format off
using Table = binding::ClassTable<
    P,
    Row<"new", Overload<Function<&make_zero>, Function<&make_copy>, Function<&make>, Function<&make_equation>,
                        Function<&plane_at>, Function<&plane_through>>>,
    Row<"__asstring", TableText<&as_string, P>>,
    Row<"__eq", Method<&equal>>,
    Row<"distance_to", Method<&distance_to>>,
    Row<"project_point", Method<&project_point>>>;
// clang-format on

}  // namespace

void LuaPlane::InitializeLuaClass(lua_State* L) {
  binding::UnboxingRegistration<P>::Ensure();
  Table::Register(L);
}

}  // namespace zeph::math3d

template class zeph::binding::DummyClass<zeph::math3d::LuaPlane, zeph::math3d::_Plane<float>>;
template struct zeph::binding::TypeTraits<zeph::math3d::_Plane<float>>;
