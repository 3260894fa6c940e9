#include <zeph/math3d/lua_matrix33.h>

#include <zeph/binding/meta_class.h>
#include <zeph/binding/table.h>
#include <zeph/math3d/float_text.h>

namespace zeph::math3d {

namespace {

using M = Matrix33;
using binding::Function;
using binding::Method;
using binding::Overload;
using binding::Row;

M make_identity() { return {}; }
M make_copy(const M& m) { return m; }

bool equal(M* self, const M& other, float tolerance) { return near(*self, other, tolerance); }
M multiply(const M& a, const M& b) { return a * b; }
float get(const M& m, int row, int column) { return element(m, row, column); }
void set(M& m, int row, int column, float value) { set_element(m, row, column, value); }
void set_all(M* self, float e00, float e01, float e02, float e10, float e11, float e12, float e20, float e21,
             float e22) {
  *self = {{e00, e01, e02, e10, e11, e12, e20, e21, e22}};
}
void set_identity(M* self) { *self = {}; }
void orthogonalize_in_place(M* self) { orthogonalize(*self); }
bool has_mirrored_rows(M* self) { return is_mirrored(*self); }
void mirror_in_place(M* self) { mirror(*self); }
void transpose_in_place(M* self) { transpose(*self); }

// clang-format off
using Table = binding::ClassTable<
    M,
    Row<"new", Overload<Function<&make_identity>, Function<&make_copy>>>,
    Row<"__eq", Method<&equal>>,
    Row<"__mul", Function<&multiply>>,
    Row<"get", Function<&get>>,
    Row<"set", Function<&set>>,
    Row<"set_all", Method<&set_all>>,
    Row<"set_identity", Method<&set_identity>>,
    Row<"orthogonalize", Method<&orthogonalize_in_place>>,
    Row<"is_mirrored", Method<&has_mirrored_rows>>,
    Row<"mirror", Method<&mirror_in_place>>,
    Row<"Transpose", Method<&transpose_in_place>>>;
// clang-format on

}  // namespace

void LuaMatrix33::InitializeLuaClass(lua_State* L) { Table::Register(L); }

/// Rows in parentheses; the outer one stays open, and 199 characters are the most.
std::string LuaMatrix33::AsString() const {
  double e[9];
  std::copy_n(m_value.elements, 9, e);
  const auto text = print_limited<200>("Matrix33((%f, %f, %f), (%f, %f, %f), (%f, %f, %f)", e[0], e[1], e[2], e[3],
                                       e[4], e[5], e[6], e[7], e[8]);
  return {text.text, text.size};
}

}  // namespace zeph::math3d

template class zeph::binding::WrappedClass<zeph::math3d::LuaMatrix33, zeph::math3d::Matrix33>;
template struct zeph::binding::TypeTraits<zeph::math3d::Matrix33>;
