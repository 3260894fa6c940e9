/// The floor: a module with the surface that the benchmarks need, written by hand. `require "floor"`, and once more
/// with wrapped classes that have no "__gc" at all, `require "floor_without_gc"`.
#include "floor.h"

#include <algorithm>
#include <iterator>
#include <span>

#include <zeph/functions/aabb.h>
#include <zeph/functions/color.h>
#include <zeph/functions/matrix.h>
#include <zeph/functions/plane.h>
#include <zeph/functions/quaternion.h>
#include <zeph/functions/smooth_damp.h>
#include <zeph/functions/vector3.h>
#include <zeph/functions/vector4.h>
#include <zeph/math3d/matrix_decomposition.h>

namespace zeph::math3d::by_hand {

int fail(lua_State* L) { return luaL_error(L, "invalid call"); }

namespace {

// Overloads: by count, then by what an argument is, each looked at once.

template <typename... Numbers>
bool numbers(lua_State* L, int first, Numbers&... slots) {
  return (take(L, nullptr, first++, 0, slots) && ...);
}

[[gnu::flatten]] int vector3_new(lua_State* L) {
  const Block* block = get_block(L);
  Vector3 v;
  switch (lua_gettop(L)) {
    case 0:
      return push(L, block, Vector3{});
    case 1:
      if (lua_type(L, 1) == LUA_TTABLE) {
        return take(L, block, 1, 1, v) ? push(L, block, v) : fail(L);
      }
      return numbers(L, 1, v.x) ? push(L, block, Vector3{v.x, v.x, v.x}) : fail(L);
    case 3:
      return numbers(L, 1, v.x, v.y, v.z) ? push(L, block, v) : fail(L);
    default:
      return fail(L);
  }
}
[[gnu::flatten]] int vector2_new(lua_State* L) {
  const Block* block = get_block(L);
  Vector2 v;
  switch (lua_gettop(L)) {
    case 0:
      return push(L, block, v);
    case 1:
      return take(L, block, 1, 1, v) ? push(L, block, v) : fail(L);
    case 2:
      return numbers(L, 1, v.x, v.y) ? push(L, block, v) : fail(L);
    default:
      return fail(L);
  }
}
[[gnu::flatten]] int vector4_new(lua_State* L) {
  const Block* block = get_block(L);
  Vector4 v;
  Vector3 part;
  switch (lua_gettop(L)) {
    case 0:
      return push(L, block, v);
    case 2:
      return take(L, block, 1, 2, part) && numbers(L, 2, v.w) ? push(L, block, extended(part, v.w)) : fail(L);
    case 4:
      return numbers(L, 1, v.x, v.y, v.z, v.w) ? push(L, block, v) : fail(L);
    default:
      return fail(L);
  }
}
template <typename T>
[[gnu::flatten]] int four_numbers_new(lua_State* L) {
  const Block* block = get_block(L);
  T v;
  float a = 0;
  float b = 0;
  float c = 0;
  float d = 0;
  switch (lua_gettop(L)) {
    case 0:
      return push(L, block, v);
    case 1:
      if constexpr (std::is_same_v<T, Rotation>) {
        return take(L, block, 1, 1, v) ? push(L, block, v) : fail(L);
      }
      return fail(L);
    case 4:
      return numbers(L, 1, a, b, c, d) ? push(L, block, T{a, b, c, d}) : fail(L);
    default:
      return fail(L);
  }
}
[[gnu::flatten]] int rect_new(lua_State* L) {
  const Block* block = get_block(L);
  if (lua_gettop(L) != 2) {
    return four_numbers_new<RectF>(L);
  }
  Vector2 position;
  Vector2 size;
  return take(L, block, 1, 2, position) && take(L, block, 2, 2, size) ? push(L, block, rect_at(position, size))
                                                                      : fail(L);
}
[[gnu::flatten]] int plane_new(lua_State* L) {
  const Block* block = get_block(L);
  Plane plane;
  Vector3 a;
  Vector3 b;
  Vector3 c;
  float d = 0;
  const int top = lua_gettop(L);
  switch (top) {
    case 0:
      return push(L, block, plane);
    case 1:
      return take(L, block, 1, 1, plane) ? push(L, block, plane) : fail(L);
    case 2:
      if (!take(L, block, 1, 2, a)) {
        return fail(L);
      }
      if (numbers(L, 2, d)) {
        return push(L, block, Plane{a, d});
      }
      return take(L, block, 2, 2, b) ? push(L, block, plane_at(a, b)) : fail(L);
    case 3:
      return take(L, block, 1, 3, a) && take(L, block, 2, 3, b) && take(L, block, 3, 3, c)
                 ? push(L, block, plane_through(a, b, c))
                 : fail(L);
    case 4:
      return numbers(L, 1, a.x, a.y, a.z, d) ? push(L, block, Plane{a, d}) : fail(L);
    default:
      return fail(L);
  }
}
[[gnu::flatten]] int ray_new(lua_State* L) {
  const Block* block = get_block(L);
  Ray ray;
  switch (lua_gettop(L)) {
    case 0:
      return push(L, block, ray);
    case 1:
      return take(L, block, 1, 1, ray) ? push(L, block, ray) : fail(L);
    case 2:
      return take(L, block, 1, 2, ray.origin) && take(L, block, 2, 2, ray.direction) ? push(L, block, ray) : fail(L);
    default:
      return fail(L);
  }
}
template <typename T>
int one_argument_new(lua_State* L, const Block* block) {
  switch (lua_type(L, 1)) {
    case LUA_TTABLE: {
      using Other = std::conditional_t<std::is_same_v<T, Color32>, ColorF, Color32>;
      if (lua_getmetatable(L, 1) == 0) {
        return fail(L);
      }
      const void* metatable = lua_topointer(L, -1);
      if (metatable == block->metatable[kClassOf<T>]) {
        T color;
        read_members(L, block, 1, color);
        return push(L, block, color);
      }
      Other other;
      if (metatable != block->metatable[kClassOf<Other>]) {
        return fail(L);
      }
      read_members(L, block, 1, other);
      if constexpr (std::is_same_v<T, Color32>) {
        return push(L, block, to_color32(other));
      } else {
        return push(L, block, to_color_f(other));
      }
    }
    default: {
      unsigned word = 0;
      if (!take(L, block, 1, 1, word)) {
        return fail(L);
      }
      if constexpr (std::is_same_v<T, Color32>) {
        return push(L, block, from_word(word));
      } else {
        return push(L, block, to_color_f(from_word(word)));
      }
    }
  }
}
[[gnu::flatten]] int color32_new(lua_State* L) {
  const Block* block = get_block(L);
  Color32 c;
  switch (lua_gettop(L)) {
    case 0:
      return push(L, block, c);
    case 1:
      return one_argument_new<Color32>(L, block);
    case 4:
      return numbers(L, 1, c.a, c.r, c.g, c.b) ? push(L, block, c) : fail(L);
    default:
      return fail(L);
  }
}
[[gnu::flatten]] int color_f_new(lua_State* L) {
  const Block* block = get_block(L);
  ColorF c;
  switch (lua_gettop(L)) {
    case 0:
      return push(L, block, c);
    case 1:
      return one_argument_new<ColorF>(L, block);
    case 4:
      return numbers(L, 1, c.a, c.r, c.g, c.b) ? push(L, block, c) : fail(L);
    default:
      return fail(L);
  }
}
[[gnu::flatten]] int matrix_new(lua_State* L) {
  const Block* block = get_block(L);
  switch (lua_gettop(L)) {
    case 0:
      return push(L, block, kIdentityMatrix);
    case 1:
      if (const Matrix* m = lua_type(L, 1) == LUA_TUSERDATA ? unwrap<Matrix>(L, block, 1) : nullptr) {
        return push(L, block, *m);
      }
      if (std::optional<int> kind; take(L, block, 1, 1, kind)) {
        return push(L, block, kind.value_or(1) == 1 ? kIdentityMatrix : Matrix{});
      }
      return fail(L);
    default:
      return fail(L);
  }
}
[[gnu::flatten]] int matrix33_new(lua_State* L) {
  const Block* block = get_block(L);
  switch (lua_gettop(L)) {
    case 0:
      return push(L, block, Matrix33{});
    case 1: {
      const Matrix33* m = unwrap<Matrix33>(L, block, 1);
      return m != nullptr ? push(L, block, *m) : fail(L);
    }
    default:
      return fail(L);
  }
}
[[gnu::flatten]] int aabb_new(lua_State* L) {
  const Block* block = get_block(L);
  switch (lua_gettop(L)) {
    case 0:
      return push(L, block, Aabb{});
    case 1: {
      const Aabb* box = unwrap<Aabb>(L, block, 1);
      return box != nullptr ? push(L, block, *box) : fail(L);
    }
    case 2: {
      Vector3 center;
      Vector3 size;
      return take(L, block, 1, 2, center) && take(L, block, 2, 2, size) ? push(L, block, aabb_around(center, size))
                                                                        : fail(L);
    }
    default:
      return fail(L);
  }
}

/// An operator of two values of T, or of a T and a number.
template <typename T, auto kBoth, auto kScalar>
[[gnu::flatten]] int either(lua_State* L) {
  const Block* block = get_block(L);
  const int top = lua_gettop(L);
  T a;
  if (!take(L, block, 1, top, a) || top != 2) {
    return fail(L);
  }
  if (lua_type(L, 2) == LUA_TTABLE) {
    T b;
    return take(L, block, 2, 2, b) ? push(L, block, kBoth(a, b)) : fail(L);
  }
  float n = 0;
  return numbers(L, 2, n) ? push(L, block, kScalar(a, n)) : fail(L);
}
[[gnu::flatten]] int vector3_mul(lua_State* L) {
  const Block* block = get_block(L);
  const int top = lua_gettop(L);
  Vector3 a;
  if (!take(L, block, 1, top, a) || top != 2) {
    return fail(L);
  }
  switch (lua_type(L, 2)) {
    case LUA_TTABLE: {
      Vector3 b;
      return take(L, block, 2, 2, b) ? push(L, block, a * b) : fail(L);
    }
    case LUA_TUSERDATA: {
      const Matrix* m = unwrap<Matrix>(L, block, 2);
      return m != nullptr ? push(L, block, a * *m) : fail(L);
    }
    default: {
      float n = 0;
      return numbers(L, 2, n) ? push(L, block, a * n) : fail(L);
    }
  }
}
[[gnu::flatten]] int matrix_mul(lua_State* L) {
  const Block* block = get_block(L);
  const Matrix* a = nullptr;
  if (lua_gettop(L) != 2 || (a = unwrap<Matrix>(L, block, 1)) == nullptr) {
    return fail(L);
  }
  if (lua_type(L, 2) == LUA_TUSERDATA) {
    const Matrix* b = unwrap<Matrix>(L, block, 2);
    return b != nullptr ? push(L, block, *a * *b) : fail(L);
  }
  float n = 0;
  return numbers(L, 2, n) ? push(L, block, *a * n) : fail(L);
}

/// Keys 0 to 7.
[[gnu::flatten]] int aabb_get_corners(lua_State* L) {
  const Block* block = get_block(L);
  const Aabb* box = nullptr;
  if (lua_gettop(L) != 1 || (box = unwrap<Aabb>(L, block, 1)) == nullptr) {
    return fail(L);
  }
  const auto all = corners(*box);
  lua_createtable(L, 7, 1);
  for (int i = 0; i < 8; ++i) {
    build(L, all[static_cast<std::size_t>(i)]);
    lua_rawseti(L, -2, i);
  }
  return 1;
}
[[gnu::flatten]] int rotation_get_axis_angle(lua_State* L) {
  const Block* block = get_block(L);
  Rotation q;
  if (lua_gettop(L) != 1 || !take(L, block, 1, 1, q)) {
    return fail(L);
  }
  const AxisAngle parts = axis_angle(q);
  lua_createtable(L, 2, 0);
  build(L, parts.axis);
  lua_rawseti(L, -2, 1);
  lua_pushnumber(L, static_cast<lua_Number>(parts.angle));
  lua_rawseti(L, -2, 2);
  return 1;
}

/// `__tostring` of tables: what the class has as "__asstring", which scripts may replace.
template <Class kClass>
[[gnu::flatten]] int table_text(lua_State* L) {
  const Block* block = get_block(L);
  if (lua_type(L, 1) != LUA_TTABLE || lua_getmetatable(L, 1) == 0 || lua_topointer(L, -1) != block->metatable[kClass]) {
    return fail(L);
  }
  lua_pushvalue(L, lua_upvalueindex(kAsString));
  lua_rawget(L, -2);
  lua_pushvalue(L, 1);
  lua_call(L, 1, 1);
  return 1;
}
[[gnu::flatten]] int vector3_asstring(lua_State* L) {
  Vector3 v;
  if (lua_type(L, 1) != LUA_TTABLE) {
    return fail(L);
  }
  read_members(L, get_block(L), 1, v);
  return push(L, nullptr, print_floats("Vector3(%f, %f, %f)", v.x, v.y, v.z));
}
[[gnu::flatten]] int matrix_text(lua_State* L) {
  const Matrix* m = unwrap<Matrix>(L, get_block(L), 1);
  if (m == nullptr) {
    return fail(L);
  }
  double e[16];
  std::copy_n(m->elements, 16, e);
  return push(
      L, nullptr,
      print_limited<200>("Matrix((%f, %f, %f, %f), (%f, %f, %f, %f), (%f, %f, %f, %f), (%f, %f, %f, %f)", e[0], e[1],
                         e[2], e[3], e[4], e[5], e[6], e[7], e[8], e[9], e[10], e[11], e[12], e[13], e[14], e[15]));
}

/// `__index` of a class with properties: what the class table holds comes first.
template <Class kClass>
[[gnu::flatten]] int index_value(lua_State* L) {
  lua_pushvalue(L, 2);
  if (lua_rawget(L, lua_upvalueindex(metatable_of(kClass))) != LUA_TNIL) {
    return 1;
  }
  lua_pushvalue(L, 2);
  if (lua_rawget(L, lua_upvalueindex(getters_of(kClass))) == LUA_TLIGHTUSERDATA) {
    return reinterpret_cast<lua_CFunction>(lua_touserdata(L, -1))(L);
  }
  return 1;
}
template <Class kClass>
[[gnu::flatten]] int assign_value(lua_State* L) {
  if (lua_gettop(L) != 3) {
    lua_settop(L, 3);
  }
  lua_pushvalue(L, 2);
  if (lua_rawget(L, lua_upvalueindex(setters_of(kClass))) == LUA_TLIGHTUSERDATA) {
    return reinterpret_cast<lua_CFunction>(lua_touserdata(L, -1))(L);
  }
  return fail(L);  // no benchmark adds a field
}

int empty(lua_State*) { return 0; }

// Registration.

struct Row {
  const char* name;
  lua_CFunction function;
};
struct PropertyRow {
  const char* name;
  lua_CFunction get;
  lua_CFunction set;
};

constexpr Row kFunctions[] = {
    {"radians", function<&radians>},
    {"clamp", function<+[](float v, float a, float b) { return math3d::clamp(v, a, b); }>},
    {"lerp_angle", function<&lerp_angle>},
    {"smooth_damp",
     function<+[](float current, float target, float velocity, float time, std::optional<float> speed, float dt) {
       const auto damped = math3d::smooth_damp(current, target, velocity, time, speed, dt);
       return std::pair{damped.value, damped.velocity};
     }>},
    {"vector3_smooth_damp", function<+[](const Vector3& current, const Vector3& target, const Vector3& velocity,
                                         float time, const std::optional<Vector3>& speed, float dt) {
       const auto damped = vector3_smooth_damp(current, target, velocity, time, speed, dt);
       return std::pair{damped.value, damped.velocity};
     }>},
    {"vector3_dot", function<&vector3_dot>},
    {"vector3_cross", function<&vector3_cross>},
    {"vector3_lerp", function<&vector3_lerp>},
    {"vector3_length", function<&vector3_length>},
    {"vector3_rotate", function<&vector3_rotate>},
    {"vector3_transform_coord", function<&vector3_transform_coord>},
    {"vector4_dot", function<&vector4_dot>},
    {"vector4_transform", function<&vector4_transform>},
    {"quaternion_multiply", function<&quaternion_multiply>},
    {"quaternion_slerp", function<&quaternion_slerp>},
    {"quaternion_identity", function<&quaternion_identity>},
    {"quaternion_rotation_zxy", function<&quaternion_rotation_zxy>},
    {"quaternion_rotation_matrix", function<&quaternion_rotation_matrix>},
    {"quaternion_to_axis_angle", function<+[](const Rotation& q) {
       const AxisAngle parts = quaternion_to_axis_angle(q);
       return std::pair{parts.axis, parts.angle};
     }>},
    {"plane_from_points", function<&plane_from_points>},
    {"plane_dist_from_point", function<&plane_dist_from_point>},
    {"plane_intersect_plane", function<+[](const Plane& a, const Plane& b) {
       const auto line = plane_intersect_plane(a, b);
       return line ? std::optional(std::pair{line->first, line->second}) : std::nullopt;
     }>},
    {"color32_to_int", function<&color32_to_int>},
    {"color32_blend", function<&color32_blend>},
    {"color_lerp", function<&color_lerp>},
    {"matrix_identity", function<&matrix_identity>},
    {"matrix_inverse", function<&matrix_inverse>},
    {"matrix_translation", function<&matrix_translation>},
    {"matrix_rotation_quaternion", function<&matrix_rotation_quaternion>},
    {"matrix_transformation_prs", function<&matrix_transformation_prs>},
    {"aabb_transform", function<&aabb_transform>},
    {"empty", empty},
};

constexpr Row kVector2Rows[] = {
    {"new", vector2_new},
    {"__add", method<+[](const Vector2& a, const Vector2& b) { return a + b; }>},
    {"__mul", either<Vector2, +[](const Vector2& a, const Vector2& b) { return a * b; },
                     +[](const Vector2& a, float n) { return a * n; }>},
    {"dot", method<+[](const Vector2& a, const Vector2& b) { return dot(a, b); }>},
};
constexpr PropertyRow kVector2Properties[] = {
    {"length", accessor<+[](const Vector2& v) { return length(v); }>, nullptr},
};
constexpr Row kVector3Rows[] = {
    {"new", vector3_new},
    {"__add", method<+[](const Vector3& a, const Vector3& b) { return a + b; }>},
    {"__eq", method<+[](const Vector3& a, const Vector3& b) { return near(a, b); }>},
    {"__mul", vector3_mul},
    {"__div", either<Vector3, +[](const Vector3& a, const Vector3& b) { return a / b; },
                     +[](const Vector3& a, float n) { return a / n; }>},
    {"set", function<+[](Vector3& self, float x, float y, float z) {
       self = {x, y, z};
     }>},
    {"normalize",
     function<+[](Vector3& self, std::optional<float> scale) { self = normalized(self) * scale.value_or(1.0F); }>},
    {"intrp", function<+[](Vector3& self, const Vector3& a, const Vector3& b, float t) { self = lerp(a, b, t); }>},
    {"cross", function<+[](const Vector3& a, const Vector3& b) { return cross(a, b); }>},
    {"distance", method<+[](const Vector3& a, const Vector3& b) { return length(a - b); }>},
    {"to_list", function<+[](const Vector3& v) {
       return std::array{v.x, v.y, v.z};
     }>},
    {"to_string", function<+[](const Vector3& v) {
       return join_floats(std::array{v.x, v.y, v.z});
     }>},
    {"__asstring", vector3_asstring},
    {"__tostring", table_text<kVector3>},
};
constexpr PropertyRow kVector3Properties[] = {
    {"length", accessor<+[](const Vector3& v) { return length(v); }>, nullptr},
    {"is_zero", accessor<+[](const Vector3& v) { return near_zero(v); }>, nullptr},
    {"yaw", accessor<+[](const Vector3& v) { return yaw(v); }>, nullptr},
};
constexpr Row kVector4Rows[] = {
    {"new", vector4_new},
    {"__add", method<+[](const Vector4& a, const Vector4& b) { return a + b; }>},
    {"__mul", either<Vector4, +[](const Vector4& a, const Vector4& b) { return a * b; },
                     +[](const Vector4& a, float n) { return a * n; }>},
    {"dot", method<+[](const Vector4& a, const Vector4& b) { return dot(a, b); }>},
};
constexpr PropertyRow kVector4Properties[] = {
    {"length", accessor<+[](const Vector4& v) { return length(v); }>, nullptr},
};
constexpr Row kRotationRows[] = {
    {"new", four_numbers_new<Rotation>},
    {"__mul", either<Rotation, +[](const Rotation& a, const Rotation& b) { return a * b; },
                     +[](const Rotation& a, float n) { return a * n; }>},
    {"set", function<+[](Rotation& self, float x, float y, float z, float w) {
       self = {x, y, z, w};
     }>},
    {"slerp", function<+[](Rotation& self, const Rotation& a, const Rotation& b, float t, std::optional<bool>) {
       self = slerp(a, b, t);
     }>},
    {"rotate_vector", function<+[](const Rotation& q, const Vector3& v) { return rotate(q, v); }>},
    {"get_axis_angle", rotation_get_axis_angle},
};
constexpr PropertyRow kRotationProperties[] = {
    {"forward", accessor<+[](const Rotation& q) { return forward(q); }>, nullptr},
};
constexpr Row kPlaneRows[] = {
    {"new", plane_new},
    {"__eq", method<+[](const Plane& a, const Plane& b) { return near(a, b); }>},
    {"distance_to", method<+[](const Plane& plane, const Vector3& point) { return distance(plane, point); }>},
    {"project_point",
     method<+[](const Plane& plane, Vector3& out, const Vector3& point) { out = projected(plane, point); }>},
};
constexpr Row kRayRows[] = {{"new", ray_new}};
constexpr Row kRectRows[] = {
    {"new", rect_new},
    {"__add", method<+[](const RectF& rect, const Vector2& offset) { return rect + offset; }>},
    {"__mul", method<+[](const RectF& rect, float n) { return rect * n; }>},
};
constexpr PropertyRow kRectProperties[] = {
    {"width", accessor<+[](const RectF& rect) { return width(rect); }>,
     accessor<+[](RectF& rect, float value) { set_width(rect, value); }>},
    {"min", accessor<+[](const RectF& rect) { return min_corner(rect); }>,
     accessor<+[](RectF& rect, const Vector2& corner) { set_min_corner(rect, corner); }>},
};
constexpr Row kRectOffsetRows[] = {{"new", four_numbers_new<RectOffset>}};
constexpr Row kColor32Rows[] = {
    {"new", color32_new},
    {"__eq", method<+[](const Color32& a, const Color32& b) { return a == b; }>},
    {"intrp", function<+[](Color32& self, const Color32& a, const Color32& b, float t) { self = lerp(a, b, t); }>},
};
constexpr Row kColorFRows[] = {
    {"new", color_f_new},
    {"__add", method<+[](const ColorF& a, const ColorF& b) { return a + b; }>},
    {"__mul", method<+[](const ColorF& color, float n) { return color * n; }>},
    {"clamp", function<+[](ColorF& self) { self = clamped(self); }>},
};
constexpr Row kMatrixRows[] = {
    {"new", matrix_new},
    {"__add", function<+[](const Matrix& a, const Matrix& b) { return a + b; }>},
    {"__mul", matrix_mul},
    {"get", function<+[](const Matrix& m, int row, int column) { return element(m, row, column); }>},
    {"set", function<+[](Matrix& m, int row, int column, float value) { set_element(m, row, column, value); }>},
    {"set_identity", method<+[](Matrix& m) { m = kIdentityMatrix; }>},
    {"do_translate", method<+[](Matrix& m, const Vector3& v) { do_translate(m, v); }>},
    {"inverse", method<+[](Matrix& m) { return invert(m); }>},
    {"mulvec3x3", function<&mulvec3x3>},
    {"__tostring", matrix_text},
};
constexpr PropertyRow kMatrixProperties[] = {
    {"translation", accessor<+[](const Matrix& m) { return translation(m); }>,
     accessor<+[](Matrix& m, const Vector3& v) { set_translation(m, v); }>},
    {"rotation", accessor<+[](const Matrix& m) { return rotation(m); }>, nullptr},
    {"m33", accessor<+[](const Matrix& m) { return m33(m); }>, nullptr},
    {"yaw", accessor<+[](const Matrix& m) { return yaw(m); }>, nullptr},
};
constexpr Row kMatrix33Rows[] = {
    {"new", matrix33_new},
    {"__mul", function<+[](const Matrix33& a, const Matrix33& b) { return a * b; }>},
    {"get", function<+[](const Matrix33& m, int row, int column) { return element(m, row, column); }>},
    {"set_identity", method<+[](Matrix33& m) { m = {}; }>},
    {"Transpose", method<+[](Matrix33& m) { transpose(m); }>},
};
constexpr Row kAabbRows[] = {
    {"new", aabb_new},
    {"__eq", function<+[](const Aabb& a, const Aabb& b) { return near(a, b); }>},
    {"get_corners", aabb_get_corners},
};
constexpr PropertyRow kAabbProperties[] = {
    {"min", accessor<+[](const Aabb& box) { return box.min; }>,
     accessor<+[](Aabb& box, const Vector3& v) { box.min = v; }>},
    {"center", accessor<+[](const Aabb& box) { return center(box); }>, nullptr},
};

#ifndef MATH3D_FLOOR_WITHOUT_GC
int collect(lua_State*) { return 0; }

/// Gives the class whose table is on top of the stack its "__gc".
void add_collect(lua_State* L, Ready& ready) {
  const int table = lua_gettop(L);
  ready.thread = lua_newthread(L);
  lua_checkstack(ready.thread, Ready::kMost + LUA_MINSTACK);
  lua_rawsetp(L, LUA_REGISTRYINDEX, &ready);
  lua_pushlightuserdata(L, &ready);  // a closure of its own, as the library's entries are
  lua_pushcclosure(L, collect, 1);
  ready.standard = lua_topointer(L, -1);
  lua_pushvalue(L, -1);
  lua_setfield(L, table, "__gc");
  lua_pushvalue(L, table);
  lua_insert(L, -2);
  lua_pushliteral(L, "__gc");
  lua_insert(L, -2);
  lua_xmove(L, ready.thread, 3);
  ready.count = 0;
}
#endif

/// Pushes the upvalues: the copies of them that stand at `shared`, 1 to kEnd - 1.
void add_function(lua_State* L, int table, int shared, const char* name, lua_CFunction function) {
  luaL_checkstack(L, kEnd + LUA_MINSTACK, name);
  lua_pushstring(L, name);
  for (int i = 1; i < kEnd; ++i) {
    lua_rawgeti(L, shared, i);
  }
  lua_pushcclosure(L, function, kEnd - 1);
  lua_rawset(L, table);
}

template <Class kClass>
void add_class(lua_State* L, int shared, std::span<const Row> rows, std::span<const PropertyRow> properties = {}) {
  lua_rawgeti(L, shared, metatable_of(kClass));
  const int table = lua_gettop(L);
  for (const Row& row : rows) {
    add_function(L, table, shared, row.name, row.function);
  }
  for (const PropertyRow& property : properties) {
    lua_rawgeti(L, shared, getters_of(kClass));
    lua_pushlightuserdata(L, reinterpret_cast<void*>(property.get));
    lua_setfield(L, -2, property.name);
    if (property.set != nullptr) {
      lua_rawgeti(L, shared, setters_of(kClass));
      lua_pushlightuserdata(L, reinterpret_cast<void*>(property.set));
      lua_setfield(L, -2, property.name);
    }
  }
  if (!properties.empty()) {
    add_function(L, table, shared, "__index", index_value<kClass>);
    add_function(L, table, shared, "__newindex", assign_value<kClass>);
  } else {
    lua_pushvalue(L, table);  // no property: Lua finds the methods by itself
    lua_setfield(L, table, "__index");
  }
  lua_settop(L, table - 1);
}

}  // namespace

void* make_ready(lua_State* L, Ready& ready, std::size_t size) {
  lua_State* thread = ready.thread;
  void* boxes[Ready::kMost];
  const int before = lua_gettop(L);
  if (ready.count == 0 && ready.is_standard() && lua_checkstack(L, Ready::kMost) != 0) {
    for (void*& box : boxes) {
      box = lua_newuserdatauv(L, size, 0);
    }
    // Making them may have run finalizers, which may have been here.
    if (ready.count == 0 && ready.is_standard()) {
      lua_xmove(L, thread, Ready::kMost);
      lua_pushvalue(thread, Ready::kKey);
      lua_pushnil(thread);
      lua_rawset(thread, Ready::kMetatable);
      for (int i = 1; i <= Ready::kMost; ++i) {
        lua_pushvalue(thread, Ready::kMetatable);
        lua_setmetatable(thread, Ready::kStandard + i);
      }
      lua_pushvalue(thread, Ready::kKey);
      lua_pushvalue(thread, Ready::kStandard);
      lua_rawset(thread, Ready::kMetatable);
      std::copy(std::begin(boxes), std::end(boxes), ready.boxes);
      ready.count = Ready::kMost - 1;
      lua_xmove(thread, L, 1);
      return ready.boxes[ready.count];
    }
    lua_settop(L, before);
  }
  void* box = lua_newuserdatauv(L, size, 0);
  lua_pushvalue(thread, Ready::kMetatable);
  lua_xmove(thread, L, 1);
  lua_setmetatable(L, -2);
  return box;
}

}  // namespace zeph::math3d::by_hand

#ifdef MATH3D_FLOOR_WITHOUT_GC
#define LUAOPEN_FLOOR luaopen_floor_without_gc
#else
#define LUAOPEN_FLOOR luaopen_floor
#endif
extern "C" __attribute__((visibility("default"))) int LUAOPEN_FLOOR(lua_State* L);

int LUAOPEN_FLOOR(lua_State* L) {
  using namespace zeph::math3d::by_hand;
  lua_createtable(L, 0, 64);
  const int module = lua_gettop(L);
  lua_createtable(L, kEnd, 0);
  const int shared = module + 1;
  auto* block = static_cast<Block*>(lua_newuserdatauv(L, sizeof(Block), 0));
  lua_rawseti(L, shared, kBlock);
  const char* const keys[] = {
      "__dummy_type", "x",   "y",     "z",      "w",      "r",    "g",      "b",         "a",
      "left",         "top", "right", "bottom", "normal", "dist", "origin", "direction", "__asstring"};
  for (int key = kDummyType; key <= kAsString; ++key) {
    lua_pushstring(L, keys[key - kDummyType]);
    lua_rawseti(L, shared, key);
  }
  const char* const names[] = {"Vector2",    "Vector3", "Vector4", "Rotation", "Plane",    "Ray", "RectF",
                               "RectOffset", "Color32", "ColorF",  "Matrix",   "Matrix33", "Aabb"};
  for (int i = 0; i < kClasses; ++i) {
    lua_pushfstring(L, "class floor::%s", names[i]);
    lua_rawseti(L, shared, kName + i);
    lua_createtable(L, 0, 32);
    block->metatable[i] = lua_topointer(L, -1);
#ifndef MATH3D_FLOOR_WITHOUT_GC
    if (i >= kMatrix) {
      add_collect(L, block->ready[i - kMatrix]);
    }
#endif
    lua_pushvalue(L, -1);
    lua_rawseti(L, shared, kMetatable + i);
    lua_setfield(L, module, names[i]);
    for (const int accessors : {kGetters + i, kSetters + i}) {
      lua_createtable(L, 0, 0);
      lua_rawseti(L, shared, accessors);
    }
  }
  for (const Row& row : kFunctions) {
    add_function(L, module, shared, row.name, row.function);
  }
  add_class<kVector2>(L, shared, kVector2Rows, kVector2Properties);
  add_class<kVector3>(L, shared, kVector3Rows, kVector3Properties);
  add_class<kVector4>(L, shared, kVector4Rows, kVector4Properties);
  add_class<kRotation>(L, shared, kRotationRows, kRotationProperties);
  add_class<kPlane>(L, shared, kPlaneRows);
  add_class<kRay>(L, shared, kRayRows);
  add_class<kRectF>(L, shared, kRectRows, kRectProperties);
  add_class<kRectOffset>(L, shared, kRectOffsetRows);
  add_class<kColor32>(L, shared, kColor32Rows);
  add_class<kColorF>(L, shared, kColorFRows);
  add_class<kMatrix>(L, shared, kMatrixRows, kMatrixProperties);
  add_class<kMatrix33>(L, shared, kMatrix33Rows);
  add_class<kAabb>(L, shared, kAabbRows, kAabbProperties);
  lua_settop(L, module);
  return 1;
}
