#include <zeph/math3d/lua_color.h>

#include <zeph/binding/meta_class.h>
#include <zeph/binding/table.h>
#include <zeph/math3d/float_text.h>

namespace zeph::math3d {

namespace {

using binding::Function;
using binding::Method;
using binding::Overload;
using binding::Row;
using binding::TableText;

/// Channels of a Color32 table as its text shows them: what a script has put there, not cut to bytes.
struct RawChannels {
  int r;
  int g;
  int b;
  int a;
};

}  // namespace

}  // namespace zeph::math3d

template <>
struct zeph::binding::ScriptClass<zeph::math3d::RawChannels> : ScriptClass<zeph::math3d::Color32> {
  using T = math3d::RawChannels;
  using Fields = FieldList<Field<"r", &T::r>, Field<"g", &T::g>, Field<"b", &T::b>, Field<"a", &T::a>>;
  static constexpr T kMissing{};
};

namespace zeph::math3d {

namespace {

Color32 make_white() { return {}; }
Color32 make_channels(unsigned char a, unsigned char r, unsigned char g, unsigned char b) {
  return {.b = b, .g = g, .r = r, .a = a};
}
Color32 make_copy(const Color32& color) { return color; }
Color32 make_from_word(unsigned word) { return from_word(word); }

bool equal(const Color32& a, const Color32& b) { return a == b; }
void interpolate(Color32& self, const Color32& a, const Color32& b, float t) { self = lerp(a, b, t); }

ClassText as_string(const RawChannels& color) {
  return print_limited<100>("Color32(%d, %d, %d, %d)", color.r, color.g, color.b, color.a);
}

// clang-format off
using Color32Table = binding::ClassTable<
    Color32,
    Row<"new", Overload<Function<&make_white>, Function<&make_channels>, Function<&make_copy>, Function<&to_color32>,
                        Function<&make_from_word>>>,
    Row<"__asstring", TableText<&as_string, RawChannels>>,
    Row<"__eq", Method<&equal>>,
    Row<"intrp", Function<&interpolate>>>;
// clang-format on

ColorF make_white_f() { return {}; }
ColorF make_channels_f(float a, float r, float g, float b) { return {r, g, b, a}; }
ColorF make_copy_f(const ColorF& color) { return color; }
ColorF make_from_word_f(unsigned word) { return to_color_f(from_word(word)); }

bool equal_f(const ColorF& a, const ColorF& b) { return a == b; }
ColorF plus(const ColorF& a, const ColorF& b) { return a + b; }
ColorF scale(const ColorF& color, float n) { return color * n; }
void clamp(ColorF& self) { self = clamped(self); }
void interpolate_f(ColorF& self, const ColorF& a, const ColorF& b, float t) { self = lerp(a, b, t); }

ClassText as_string_f(const ColorF& color) {
  return print_floats("ColorF(%f, %f, %f, %f)", color.r, color.g, color.b, color.a);
}

// clang-format off
using ColorFTable = binding::ClassTable<
    ColorF,
    Row<"new", Overload<Function<&make_white_f>, Function<&make_channels_f>, Function<&make_copy_f>,
                        Function<&to_color_f>, Function<&make_from_word_f>>>,
    Row<"__asstring", TableText<&as_string_f, ColorF>>,
    Row<"__eq", Function<&equal_f>>,
    Row<"__add", Method<&plus>>,
    Row<"__mul", Method<&scale>>,
    Row<"clamp", Function<&clamp>>,
    Row<"intrp", Function<&interpolate_f>>>;
// clang-format on

}  // namespace

void LuaColor32::InitializeLuaClass(lua_State* L) {
  binding::UnboxingRegistration<Color32>::Ensure();
  Color32Table::Register(L);
}
void LuaColorF::InitializeLuaClass(lua_State* L) {
  binding::UnboxingRegistration<ColorF>::Ensure();
  ColorFTable::Register(L);
}

}  // namespace zeph::math3d

template class zeph::binding::DummyClass<zeph::math3d::LuaColor32, zeph::math3d::Color32>;
template struct zeph::binding::TypeTraits<zeph::math3d::Color32>;
template class zeph::binding::DummyClass<zeph::math3d::LuaColorF, zeph::math3d::ColorF>;
template struct zeph::binding::TypeTraits<zeph::math3d::ColorF>;
