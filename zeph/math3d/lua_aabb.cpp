#include <zeph/math3d/lua_aabb.h>

#include <zeph/binding/meta_class.h>
#include <zeph/binding/table.h>
#include <zeph/math3d/float_text.h>

namespace zeph::math3d {

namespace {

using binding::FieldProperty;
using binding::Function;
using binding::Listing;
using binding::Overload;
using binding::Property;
using binding::Row;

AABB make_empty() { return {}; }
AABB make_copy(const AABB& box) { return box; }

bool equal(const AABB& a, const AABB& b) { return near(a, b); }

/// Keys 0 to 7.
auto get_corners(const AABB& box) {
  const auto list = [](const auto&... corner) { return Listing<0, std::decay_t<decltype(corner)>...>{{corner...}}; };
  return std::apply(list, corners(box));
}

// clang-format off
using Table = binding::ClassTable<
    AABB,
    Row<"new", Overload<Function<&make_empty>, Function<&make_copy>, Function<&aabb_around>>>,
    Row<"__eq", Function<&equal>>,
    Row<"get_corners", Function<&get_corners>>,
    FieldProperty<"min", &AABB::min>,
    FieldProperty<"max", &AABB::max>,
    Property<"center", &center>,
    Property<"extents", &extents>>;
// clang-format on

}  // namespace

void LuaAABB::InitializeLuaClass(lua_State* L) { Table::Register(L); }

std::string LuaAABB::AsString() const {
  const auto& [max, min, half_extents, tag] = m_value;
  const ClassText text = print_floats("Aabb((%f, %f, %f), (%f, %f, %f))", min.x, min.y, min.z, max.x, max.y, max.z);
  return {text.text, text.size};
}

}  // namespace zeph::math3d

template class zeph::binding::WrappedClass<zeph::math3d::LuaAABB, zeph::AABB>;
template struct zeph::binding::TypeTraits<zeph::AABB>;
