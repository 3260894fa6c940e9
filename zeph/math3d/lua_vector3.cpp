#include <zeph/math3d/lua_vector3.h>

#include <zeph/binding/meta_class.h>
#include <zeph/binding/table.h>
#include <zeph/math3d/float_text.h>
#include <zeph/math3d/lua_matrix.h>

namespace zeph::math3d {

namespace {

using V = _Vector3<float>;
using binding::Change;
using binding::Function;
using binding::Method;
using binding::Nullable;
using binding::Overload;
using binding::Property;
using binding::Row;
using binding::TableText;

V make_zero() { return {}; }
V make_copy(const V& v) { return v; }
V make_uniform(float n) { return {n, n, n}; }
V make(float x, float y, float z) { return {x, y, z}; }

bool equal(const V& a, const V& b) { return near(a, b); }
V plus(const V& a, const V& b) { return a + b; }
V minus(const V& a, const V& b) { return a - b; }
V multiply(const V& a, const V& b) { return a * b; }
V scale(const V& v, float n) { return v * n; }
V transform(const V& v, const _Matrix<float>& m) { return v * m; }
V divide(const V& a, const V& b) { return a / b; }
V divide_by(const V& v, float n) { return v / n; }

float get_length(const V& v) { return length(v); }
float get_length_squared(const V& v) { return length_squared(v); }
bool get_is_zero(const V& v) { return near_zero(v); }
float get_yaw(const V& v) { return yaw(v); }
float get_pitch(const V& v) { return pitch(v); }

void set(V& self, float x, float y, float z) { self = {x, y, z}; }
void normalize(V& self, Nullable<float> scale) { self = normalized(self) * scale.value_or(1.0F); }
V cross_product(const V& a, const V& b) { return cross(a, b); }
void interpolate(V& self, const V& a, const V& b, float t) { self = lerp(a, b, t); }
float distance(const V& a, const V& b) { return length(a - b); }

Change from_string(V& self, const char* text) {
  const auto values = split_floats<3, 63>(text);
  if (!values) {
    return Change::none;
  }
  self = {(*values)[0], (*values)[1], (*values)[2]};
  return Change::made;
}
LimitedText<256> to_string(const V& v) { return join_floats(std::array{v.x, v.y, v.z}); }
std::array<float, 3> to_list(const V& v) { return {v.x, v.y, v.z}; }
LimitedText<100> as_string(const V& v) {
  return print_limited<100>("Vector3(%f, %f, %f)", static_cast<double>(v.x), static_cast<double>(v.y),
                            static_cast<double>(v.z));
}

// clang-format off
using Table = binding::ClassTable<
    V,
    Row<"new", Overload<Function<&make_zero>, Function<&make_copy>, Function<&make_uniform>, Function<&make>>>,
    Row<"__asstring", TableText<&as_string, V>>,
    Row<"__eq", Method<&equal>>,
    Row<"__add", Method<&plus>>,
    Row<"__sub", Method<&minus>>,
    Row<"__mul", Overload<Method<&multiply>, Method<&scale>, Function<&transform>>>,
    Row<"__div", Overload<Method<&divide>, Method<&divide_by>>>,
    Row<"set", Function<&set>>,
    Row<"normalize", Function<&normalize>>,
    Row<"cross", Function<&cross_product>>,
    Row<"intrp", Function<&interpolate>>,
    Row<"distance", Method<&distance>>,
    Row<"from_string", Function<&from_string>>,
    Row<"to_string", Function<&to_string>>,
    Row<"to_list", Function<&to_list>>,
    Property<"length", &get_length>,
    Property<"length_sqr", &get_length_squared>,
    Property<"is_zero", &get_is_zero>,
    Property<"yaw", &get_yaw>,
    Property<"pitch", &get_pitch>>;
// clang-format on

}  // namespace

void LuaVector3::InitializeLuaClass(lua_State* L) {
  binding::UnboxingRegistration<V>::Ensure();
  Table::Register(L);
}

}  // namespace zeph::math3d

template class zeph::binding::DummyClass<zeph::math3d::LuaVector3, zeph::math3d::_Vector3<float>>;
template struct zeph::binding::TypeTraits<zeph::math3d::_Vector3<float>>;
