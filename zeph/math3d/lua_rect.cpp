#include <zeph/math3d/lua_rect.h>

#include <zeph/binding/meta_class.h>
#include <zeph/binding/table.h>
#include <zeph/math3d/float_text.h>

namespace zeph::math3d {

namespace {

using R = _Rect<float>;
using P = _Point2<float>;
using binding::Function;
using binding::MemberProperty;
using binding::Method;
using binding::Overload;
using binding::Row;
using binding::TableText;

R make_zero() { return {}; }
R make(float left, float top, float right, float bottom) { return {left, top, right, bottom}; }

bool equal(const R& a, const R& b) { return a == b; }
R move(const R& rect, const P& offset) { return rect + offset; }
R scale(const R& rect, float n) { return rect * n; }

ClassText as_string(const R& rect) {
  return print_floats("RectF(%f, %f, %f, %f)", rect.left, rect.top, rect.right, rect.bottom);
}

// clang-format off
using RectTable = binding::ClassTable<
    R,
    Row<"new", Overload<Function<&make_zero>, Function<&make>, Function<&rect_at>>>,
    Row<"__asstring", TableText<&as_string, R>>,
    Row<"__eq", Method<&equal>>,
    Row<"__add", Method<&move>>,
    Row<"__mul", Method<&scale>>,
    MemberProperty<"min", &min_corner, &set_min_corner>,
    MemberProperty<"max", &max_corner, &set_max_corner>,
    MemberProperty<"width", &width, &set_width>,
    MemberProperty<"height", &height, &set_height>>;
// clang-format on

RectOffset make_zero_offset() { return {}; }
RectOffset make_offset(float left, float top, float right, float bottom) { return {left, top, right, bottom}; }

ClassText offset_as_string(const RectOffset& offset) {
  return print_floats("RectOffset(%f, %f, %f, %f)", offset.left, offset.top, offset.right, offset.bottom);
}

// clang-format off
using OffsetTable = binding::ClassTable<
    RectOffset,
    Row<"new", Overload<Function<&make_zero_offset>, Function<&make_offset>>>,
    Row<"__asstring", TableText<&offset_as_string, RectOffset>>>;
// clang-format on

}  // namespace

void LuaRectF::InitializeLuaClass(lua_State* L) {
  binding::UnboxingRegistration<R>::Ensure();
  RectTable::Register(L);
}

_Point2<float> LuaRectF::get_min() const { return min_corner(m_value); }
_Point2<float> LuaRectF::get_max() const { return max_corner(m_value); }
float LuaRectF::get_width() const { return width(m_value); }
float LuaRectF::get_height() const { return height(m_value); }
void LuaRectF::set_min(const _Point2<float>& corner) { set_min_corner(m_value, corner); }
void LuaRectF::set_max(const _Point2<float>& corner) { set_max_corner(m_value, corner); }
void LuaRectF::set_width(float width) { math3d::set_width(m_value, width); }
void LuaRectF::set_height(float height) { math3d::set_height(m_value, height); }

void LuaRectOffset::InitializeLuaClass(lua_State* L) { OffsetTable::Register(L); }

}  // namespace zeph::math3d

template class zeph::binding::DummyClass<zeph::math3d::LuaRectF, zeph::math3d::_Rect<float>>;
template struct zeph::binding::TypeTraits<zeph::math3d::_Rect<float>>;
template class zeph::binding::DummyClass<zeph::math3d::LuaRectOffset, zeph::math3d::RectOffset>;
template struct zeph::binding::TypeTraits<zeph::math3d::RectOffset>;
