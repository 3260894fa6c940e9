#include <zeph/math3d/lua_vector4.h>

#include <zeph/binding/meta_class.h>
#include <zeph/binding/table.h>
#include <zeph/math3d/float_text.h>

namespace zeph::math3d {

namespace {

using V = Vector4<float>;
using binding::Function;
using binding::Method;
using binding::Overload;
using binding::Property;
using binding::Row;
using binding::TableText;

V make_zero() { return {}; }
V make(float x, float y, float z, float w) { return {x, y, z, w}; }

bool equal(const V& a, const V& b) { return a == b; }
V plus(const V& a, const V& b) { return a + b; }
V minus(const V& a, const V& b) { return a - b; }
V minus_each(const V& v, float n) { return v - n; }
V multiply(const V& a, const V& b) { return a * b; }
V scale(const V& v, float n) { return v * n; }
V divide_by(const V& v, float n) { return v / n; }

float get_length(const V& v) { return length(v); }
float get_length_squared(const V& v) { return length_squared(v); }

float dot_product(const V& a, const V& b) { return dot(a, b); }
V normalize(const V& v) { return normalized(v); }

std::array<float, 4> to_list(const V& v) { return {v.x, v.y, v.z, v.w}; }
ClassText as_string(const V& v) { return print_floats("Vector4(%f, %f, %f, %f)", v.x, v.y, v.z, v.w); }

// clang-format off
using Table = binding::ClassTable<
    V,
    Row<"new", Overload<Function<&make_zero>, Function<&make>, Function<&extended>>>,
    Row<"__asstring", TableText<&as_string, V>>,
    Row<"__eq", Method<&equal>>,
    Row<"__add", Method<&plus>>,
    Row<"__sub", Overload<Method<&minus>, Method<&minus_each>>>,
    Row<"__mul", Overload<Method<&multiply>, Method<&scale>>>,
    Row<"__div", Method<&divide_by>>,
    Row<"dot", Method<&dot_product>>,
    Row<"normalize", Method<&normalize>>,
    Row<"to_list", Function<&to_list>>,
    Property<"length", &get_length>,
    Property<"length_sqr", &get_length_squared>>;
// clang-format on

}  // namespace

void LuaVector4::InitializeLuaClass(lua_State* L) {
  binding::UnboxingRegistration<V>::Ensure();
  Table::Register(L);
}

}  // namespace zeph::math3d

template class zeph::binding::DummyClass<zeph::math3d::LuaVector4, zeph::math3d::Vector4<float>>;
template struct zeph::binding::TypeTraits<zeph::math3d::Vector4<float>>;
