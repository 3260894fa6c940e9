// [class-table]
#include "lua_interval.h"

#include <zeph/binding/meta_class.h>
#include <zeph/binding/table.h>
#include <zeph/math3d/float_text.h>

namespace zeph::math3d {

namespace {

using binding::Function;
using binding::Method;
using binding::Overload;
using binding::Property;
using binding::Row;
using binding::TableText;

Interval make_zero() { return {}; }
Interval make_copy(const Interval& interval) { return interval; }
Interval make(float low, float high) { return {low, high}; }
bool equal(const Interval& a, const Interval& b) { return a.low == b.low && a.high == b.high; }
void set(Interval& self, float low, float high) { self = {low, high}; }
LimitedText<64> as_string(const Interval& interval) {
  return print_limited<64>("Interval(%f, %f)", static_cast<double>(interval.low), static_cast<double>(interval.high));
}

// clang-format off
using Table = binding::ClassTable<
    Interval,
    Row<"new", Overload<Function<&make_zero>, Function<&make_copy>, Function<&make>>>,
    Row<"__asstring", TableText<&as_string, Interval>>,
    Row<"__eq", Method<&equal>>,
    Row<"set", Function<&set>>,
    Row<"contains", Method<&contains>>,
    Row<"hull", Method<&hull>>,
    Property<"size", &size, &set_size>>;
// clang-format on

}  // namespace

void LuaInterval::InitializeLuaClass(lua_State* L) {
  binding::UnboxingRegistration<Interval>::Ensure();
  Table::Register(L);
}

}  // namespace zeph::math3d

template class zeph::binding::DummyClass<zeph::math3d::LuaInterval, zeph::math3d::Interval>;
template struct zeph::binding::TypeTraits<zeph::math3d::Interval>;
// [end]
