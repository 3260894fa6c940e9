#include <zeph/math3d/lua_ray.h>

#include <zeph/binding/meta_class.h>
#include <zeph/binding/table.h>
#include <zeph/math3d/float_text.h>

namespace zeph::math3d {

namespace {

using V = _Vector3<float>;
using binding::Function;
using binding::Overload;
using binding::Row;
using binding::TableText;

Ray make_zero() { return {}; }
Ray make_copy(const Ray& ray) { return ray; }
Ray make(const V& origin, const V& direction) { return {origin, direction}; }

/// Blanks stand where a negative number has its sign.
ClassText as_string(const Ray& ray) {
  const auto& [origin, direction] = ray;
  return print_floats("Ray((% f, % f, % f), (% f, % f, % f))", origin.x, origin.y, origin.z, direction.x, direction.y,
                      direction.z);
}

// clang-format off
using Table = binding::ClassTable<
    Ray,
    Row<"new", Overload<Function<&make_zero>, Function<&make_copy>, Function<&make>>>,
    Row<"__asstring", TableText<&as_string, Ray>>>;
// clang-format on

}  // namespace

void LuaRay::InitializeLuaClass(lua_State* L) {
  binding::UnboxingRegistration<Ray>::Ensure();
  Table::Register(L);
}

}  // namespace zeph::math3d

template class zeph::binding::DummyClass<zeph::math3d::LuaRay, zeph::math3d::Ray>;
template struct zeph::binding::TypeTraits<zeph::math3d::Ray>;
