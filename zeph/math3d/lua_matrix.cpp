#include <zeph/math3d/lua_matrix.h>

#include <zeph/binding/meta_class.h>
#include <zeph/binding/table.h>
#include <zeph/math3d/float_text.h>
#include <zeph/math3d/lua_matrix33.h>
#include <zeph/math3d/lua_vector3.h>
#include <zeph/math3d/matrix_decomposition.h>
#include <zeph/math3d/matrix_transforms.h>

namespace zeph::math3d {

namespace {

using M = _Matrix<float>;
using V = _Vector3<float>;
using binding::Function;
using binding::MemberProperty;
using binding::Method;
using binding::Nullable;
using binding::Overload;
using binding::Property;
using binding::Row;

M make_copy(const M& m) { return m; }
M make(Nullable<int> kind) { return kind.value_or(1) == 1 ? kIdentityMatrix : M{}; }

bool equal(M* self, const M& other, float tolerance) { return near(*self, other, tolerance); }
M plus(const M& a, const M& b) { return a + b; }
M minus(const M& a, const M& b) { return a - b; }
M multiply(const M& a, const M& b) { return a * b; }
M scale_all(const M& m, float n) { return m * n; }

float get(const M& m, int row, int column) { return element(m, row, column); }
void set(M& m, int row, int column, float value) { set_element(m, row, column, value); }
void set_all(M* self, float e00, float e01, float e02, float e03, float e10, float e11, float e12, float e13, float e20,
             float e21, float e22, float e23, float e30, float e31, float e32, float e33) {
  *self = {{e00, e01, e02, e03, e10, e11, e12, e13, e20, e21, e22, e23, e30, e31, e32, e33}};
}
void set_identity(M* self) { *self = kIdentityMatrix; }

void scale_rows(M* self, const V& lengths) { set_scale(*self, lengths); }
void rotate_by(M* self, const M& other) { do_rotation(*self, other); }
void translate_by(M* self, const V& v) { do_translate(*self, v); }
bool invert_in_place(M* self) { return invert(*self); }
void transpose_in_place(M* self) { transpose(*self); }
void normalize_in_place(M* self) { normalize(*self); }
void orthogonalize_in_place(M* self) { orthogonalize(*self); }
void mirror_in_place(M* self) { mirror(*self); }
bool has_orthogonal_rows(M* self) { return is_orthogonal(*self); }
bool has_scaled_rows(M* self) { return has_scale(*self); }
bool has_mirrored_rows(M* self) { return is_mirrored(*self); }

float get_yaw(const M& m) { return yaw(m); }
float get_pitch(const M& m) { return pitch(m); }
float get_roll(const M& m) { return roll(m); }

V get_translation(const M& m) { return translation(m); }
V get_scale(const M& m) { return scale(m); }
M get_rotation(const M& m) { return rotation(m); }
Matrix33 get_m33(const M& m) { return m33(m); }
V get_forward(const M& m) { return forward(m); }
V get_up(const M& m) { return up(m); }
V get_right(const M& m) { return right(m); }
void put_translation(M& m, const V& v) { set_translation(m, v); }
void put_scale(M& m, const V& v) { set_scale(m, v); }
void put_rotation(M& m, const M& r) { set_rotation(m, r); }
void put_m33(M& m, const Matrix33& block) { set_m33(m, block); }

// clang-format off
using Table = binding::ClassTable<
    M,
    Row<"new", Overload<Function<&make_copy>, Function<&make>>>,
    Row<"__eq", Method<&equal>>,
    Row<"__add", Function<&plus>>,
    Row<"__sub", Function<&minus>>,
    Row<"__mul", Overload<Function<&multiply>, Function<&scale_all>>>,
    Row<"get", Function<&get>>,
    Row<"set", Function<&set>>,
    Row<"set_all", Method<&set_all>>,
    Row<"set_identity", Method<&set_identity>>,
    Row<"do_scale", Method<&scale_rows>>,
    Row<"do_rotation", Method<&rotate_by>>,
    Row<"do_translate", Method<&translate_by>>,
    Row<"inverse", Method<&invert_in_place>>,
    Row<"transpose", Method<&transpose_in_place>>,
    Row<"normalize", Method<&normalize_in_place>>,
    Row<"orthogonalize", Method<&orthogonalize_in_place>>,
    Row<"is_orthogonal", Method<&has_orthogonal_rows>>,
    Row<"has_scale", Method<&has_scaled_rows>>,
    Row<"is_mirrored", Method<&has_mirrored_rows>>,
    Row<"mirror", Method<&mirror_in_place>>,
    Row<"mulvec3x3", Function<&mulvec3x3>>,
    Row<"make_translation", Function<&make_translation>>,
    Row<"make_rotation_x", Function<&make_rotation_x>>,
    Row<"make_rotation_y", Function<&make_rotation_y>>,
    Row<"make_rotation_z", Function<&make_rotation_z>>,
    Row<"make_rotation_between", Function<&make_rotation_between>>,
    Row<"make_orient", Function<&make_orient>>,
    Row<"make_reflection", Function<&make_reflection>>,
    MemberProperty<"translation", &get_translation, &put_translation>,
    MemberProperty<"scale", &get_scale, &put_scale>,
    MemberProperty<"rotation", &get_rotation, &put_rotation>,
    MemberProperty<"m33", &get_m33, &put_m33>,
    MemberProperty<"forward", &get_forward>,
    MemberProperty<"up", &get_up>,
    MemberProperty<"right", &get_right>,
    Property<"yaw", &get_yaw>,
    Property<"pitch", &get_pitch>,
    Property<"roll", &get_roll>>;
// clang-format on

}  // namespace

void LuaMatrix::InitializeLuaClass(lua_State* L) { Table::Register(L); }

/// Rows in parentheses; the outer one stays open, and 199 characters are the most.
std::string LuaMatrix::AsString() const {
  double e[16];
  std::copy_n(m_value.elements, 16, e);
  const auto text =
      print_limited<200>("Matrix((%f, %f, %f, %f), (%f, %f, %f, %f), (%f, %f, %f, %f), (%f, %f, %f, %f)", e[0], e[1],
                         e[2], e[3], e[4], e[5], e[6], e[7], e[8], e[9], e[10], e[11], e[12], e[13], e[14], e[15]);
  return {text.text, text.size};
}

V LuaMatrix::get_forward() const { return forward(m_value); }
V LuaMatrix::get_up() const { return up(m_value); }
V LuaMatrix::get_right() const { return right(m_value); }
V LuaMatrix::get_translation() const { return translation(m_value); }
V LuaMatrix::get_scale() const { return scale(m_value); }
M LuaMatrix::get_rotation() const { return rotation(m_value); }
Matrix33 LuaMatrix::get_m33() const { return m33(m_value); }
void LuaMatrix::set_translation(const V& value) { put_translation(m_value, value); }
void LuaMatrix::set_scale(const V& value) { put_scale(m_value, value); }
void LuaMatrix::set_rotation(const M& value) { put_rotation(m_value, value); }
void LuaMatrix::set_m33(const Matrix33& value) { put_m33(m_value, value); }

}  // namespace zeph::math3d

template class zeph::binding::WrappedClass<zeph::math3d::LuaMatrix, zeph::math3d::_Matrix<float>>;
template struct zeph::binding::TypeTraits<zeph::math3d::_Matrix<float>>;
