#include <zeph/math3d/lua_rotation.h>

#include <zeph/binding/meta_class.h>
#include <zeph/binding/table.h>
#include <zeph/math3d/float_text.h>
#include <zeph/math3d/lua_vector3.h>

namespace zeph::math3d {

namespace {

using Q = _Rotation<float>;
using V = _Vector3<float>;
using binding::Change;
using binding::Function;
using binding::Listing;
using binding::Method;
using binding::Nullable;
using binding::Overload;
using binding::Property;
using binding::Row;
using binding::TableText;

Q make_zero() { return {}; }
Q make_copy(const Q& q) { return q; }
Q make(float x, float y, float z, float w) { return {x, y, z, w}; }

bool equal(const Q& a, const Q& b) { return near(a, b); }
Q plus(const Q& a, const Q& b) { return a + b; }
Q minus(const Q& a, const Q& b) { return a - b; }
Q multiply(const Q& a, const Q& b) { return a * b; }
Q scale(const Q& q, float n) { return q * n; }
Q divide_by(const Q& q, float n) { return q / n; }

void set(Q& self, float x, float y, float z, float w) { self = {x, y, z, w}; }
Listing<1, V, float> get_axis_angle(const Q& q) {
  const AxisAngle parts = axis_angle(q);
  return {{parts.axis, parts.angle}};
}
void set_axis_angle(Q& self, const V& axis, float angle) { self = rotation_from_axis_angle(axis, angle); }
/// The last argument is taken for older scripts' sake and changes nothing.
void set_slerp(Q& self, const Q& a, const Q& b, float t, Nullable<bool>) { self = slerp(a, b, t); }
V rotate_vector(const Q& q, const V& v) { return rotate(q, v); }

V get_up(const Q& q) { return up(q); }
V get_forward(const Q& q) { return forward(q); }
V get_right(const Q& q) { return right(q); }

Change from_string(Q& self, const char* text) {
  const auto values = split_floats<4, 19>(text);
  if (!values) {
    return Change::none;
  }
  self = {(*values)[0], (*values)[1], (*values)[2], (*values)[3]};
  return Change::made;
}
LimitedText<256> to_string(const Q& q) { return join_floats(std::array{q.x, q.y, q.z, q.w}); }
LimitedText<100> as_string(const Q& q) {
  return print_limited<100>("Rotation(%f, %f, %f, %f)", static_cast<double>(q.x), static_cast<double>(q.y),
                            static_cast<double>(q.z), static_cast<double>(q.w));
}

// clang-format off
using Table = binding::ClassTable<
    Q,
    Row<"new", Overload<Function<&make_zero>, Function<&make_copy>, Function<&make>>>,
    Row<"__asstring", TableText<&as_string, Q>>,
    Row<"__eq", Method<&equal>>,
    Row<"__add", Method<&plus>>,
    Row<"__sub", Method<&minus>>,
    Row<"__mul", Overload<Method<&multiply>, Method<&scale>>>,
    Row<"__div", Method<&divide_by>>,
    Row<"set", Function<&set>>,
    Row<"get_axis_angle", Function<&get_axis_angle>>,
    Row<"set_axis_angle", Function<&set_axis_angle>>,
    Row<"slerp", Function<&set_slerp>>,
    Row<"rotate_vector", Function<&rotate_vector>>,
    Row<"from_string", Function<&from_string>>,
    Row<"to_string", Function<&to_string>>,
    Property<"up", &get_up>,
    Property<"forward", &get_forward>,
    Property<"right", &get_right>>;
// clang-format on

}  // namespace

void LuaRotation::InitializeLuaClass(lua_State* L) {
  binding::UnboxingRegistration<Q>::Ensure();
  Table::Register(L);
}

}  // namespace zeph::math3d

template class zeph::binding::DummyClass<zeph::math3d::LuaRotation, zeph::math3d::_Rotation<float>>;
template struct zeph::binding::TypeTraits<zeph::math3d::_Rotation<float>>;
