#include <zeph/math3d/lua_vector2.h>

#include <zeph/binding/meta_class.h>
#include <zeph/binding/table.h>
#include <zeph/math3d/float_text.h>

namespace zeph::math3d {

namespace {

using V = _Point2<float>;
using binding::Function;
using binding::Method;
using binding::Nullable;
using binding::Overload;
using binding::Property;
using binding::Row;
using binding::TableText;

V make_zero() { return {}; }
V make_copy(const V& v) { return v; }
V make(float x, float y) { return {x, y}; }

bool equal(const V& a, const V& b) { return a == b; }
V plus(const V& a, const V& b) { return a + b; }
V minus(const V& a, const V& b) { return a - b; }
V multiply(const V& a, const V& b) { return a * b; }
V scale(const V& v, float n) { return v * n; }
V divide(const V& a, const V& b) { return a / b; }
V divide_by(const V& v, float n) { return v / n; }

float get_length(const V& v) { return length(v); }
float get_length_squared(const V& v) { return length_squared(v); }
bool get_is_zero(const V& v) { return is_zero(v); }

void set(V& self, float x, float y) { self = {x, y}; }
float dot_product(const V& a, const V& b) { return dot(a, b); }
void normalize(V& self, Nullable<float> scale) { self = normalized(self, scale.value_or(1.0F)); }
void interpolate(V& self, const V& a, const V& b, float t) { self = lerp(a, b, t); }

std::array<float, 2> to_list(const V& v) { return {v.x, v.y}; }
ClassText as_string(const V& v) { return print_floats("Vector2(%f, %f)", v.x, v.y); }

// clang-format off
using Table = binding::ClassTable<
    V,
    Row<"new", Overload<Function<&make_zero>, Function<&make_copy>, Function<&make>>>,
    Row<"__asstring", TableText<&as_string, V>>,
    Row<"__eq", Method<&equal>>,
    Row<"__add", Method<&plus>>,
    Row<"__sub", Method<&minus>>,
    Row<"__mul", Overload<Method<&multiply>, Method<&scale>>>,
    Row<"__div", Overload<Method<&divide>, Method<&divide_by>>>,
    Row<"set", Function<&set>>,
    Row<"dot", Method<&dot_product>>,
    Row<"normalize", Function<&normalize>>,
    Row<"intrp", Function<&interpolate>>,
    Row<"to_list", Function<&to_list>>,
    Property<"length", &get_length>,
    Property<"length_sqr", &get_length_squared>,
    Property<"is_zero", &get_is_zero>>;
// clang-format on

}  // namespace

void LuaVector2::InitializeLuaClass(lua_State* L) {
  binding::UnboxingRegistration<V>::Ensure();
  Table::Register(L);
}

}  // namespace zeph::math3d

template class zeph::binding::DummyClass<zeph::math3d::LuaVector2, zeph::math3d::_Point2<float>>;
template struct zeph::binding::TypeTraits<zeph::math3d::_Point2<float>>;
