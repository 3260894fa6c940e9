/// The road that a binding written without much thought takes to the same end: for each field a key pushed as text, a
/// read or a write, a pop; tables that grow; metatables by name; matrices as script objects on the heap, behind a
/// userdata with a finalizer and listed in a weak table.
#include <zeph/functions/matrix.h>
#include <zeph/functions/quaternion.h>
#include <zeph/functions/vector3.h>
#include <zeph/platform/lua_api.h>

#include <vector>

namespace zeph::math3d::naive {

namespace {

using V = _Vector3<float>;
using Q = _Rotation<float>;
using M = _Matrix<float>;

constexpr const char* kNames[] = {"naive.Vector3", "naive.Rotation", "naive.Matrix"};

void check_count(lua_State* L, int count) {
  if (lua_gettop(L) != count) {
    luaL_error(L, "invalid number of arguments");
  }
}
void check_class(lua_State* L, int index, const char* name) {
  luaL_checktype(L, index, LUA_TTABLE);
  luaL_getmetatable(L, name);
  if (lua_getmetatable(L, index) == 0 || lua_rawequal(L, -1, -2) == 0) {
    luaL_error(L, "%s needed", name);
  }
  lua_pop(L, 2);
}
float field(lua_State* L, int table, const char* key) {
  lua_pushstring(L, key);
  lua_rawget(L, table);
  const float value = lua_isnumber(L, -1) != 0 ? static_cast<float>(lua_tonumber(L, -1)) : 0.0F;
  lua_pop(L, 1);
  return value;
}
void set_field(lua_State* L, const char* key, float value) {
  lua_pushstring(L, key);
  lua_pushnumber(L, static_cast<lua_Number>(value));
  lua_rawset(L, -3);
}
void begin_table(lua_State* L, const char* type) {
  lua_newtable(L);
  lua_pushstring(L, "__dummy_type");
  lua_pushstring(L, type);
  lua_rawset(L, -3);
}

float number(lua_State* L, int index) { return static_cast<float>(luaL_checknumber(L, index)); }
V vector(lua_State* L, int index) {
  check_class(L, index, kNames[0]);
  return {field(L, index, "x"), field(L, index, "y"), field(L, index, "z")};
}
Q rotation(lua_State* L, int index) {
  check_class(L, index, kNames[1]);
  return {field(L, index, "x"), field(L, index, "y"), field(L, index, "z"), field(L, index, "w")};
}
/// A matrix as native code can hold it: an object with an id, which is one userdata however often it is pushed.
struct MatrixObject {
  explicit MatrixObject(const M& m) : value(m) {}
  virtual ~MatrixObject() = default;
  MatrixObject(const MatrixObject&) = delete;
  MatrixObject& operator=(const MatrixObject&) = delete;
  MatrixObject(MatrixObject&&) = delete;
  MatrixObject& operator=(MatrixObject&&) = delete;

  unsigned id = 0;
  M value;
};
constexpr const char* kObjects = "naive.objects";
unsigned next_id = 1;
std::vector<unsigned> free_ids;

MatrixObject*& object(lua_State* L, int index) {
  return *static_cast<MatrixObject**>(luaL_checkudata(L, index, kNames[2]));
}
const M& matrix(lua_State* L, int index) { return object(L, index)->value; }

int push(lua_State* L, float value) {
  lua_pushnumber(L, static_cast<lua_Number>(value));
  return 1;
}
int push(lua_State* L, const V& v) {
  begin_table(L, kNames[0]);
  set_field(L, "x", v.x);
  set_field(L, "y", v.y);
  set_field(L, "z", v.z);
  luaL_setmetatable(L, kNames[0]);
  return 1;
}
int push(lua_State* L, const Q& q) {
  begin_table(L, kNames[1]);
  set_field(L, "x", q.x);
  set_field(L, "y", q.y);
  set_field(L, "z", q.z);
  set_field(L, "w", q.w);
  luaL_setmetatable(L, kNames[1]);
  return 1;
}
int push(lua_State* L, MatrixObject* object) {
  lua_getfield(L, LUA_REGISTRYINDEX, kObjects);
  lua_pushlightuserdata(L, object);
  if (lua_rawget(L, -2) == LUA_TUSERDATA) {
    return 1;
  }
  lua_pop(L, 1);
  *static_cast<MatrixObject**>(lua_newuserdata(L, sizeof object)) = object;
  luaL_setmetatable(L, kNames[2]);
  lua_pushlightuserdata(L, object);
  lua_pushvalue(L, -2);
  lua_rawset(L, -4);
  return 1;
}
int push(lua_State* L, const M& m) {
  auto* made = new MatrixObject(m);
  if (free_ids.empty()) {
    made->id = next_id++;
  } else {
    made->id = free_ids.back();
    free_ids.pop_back();
  }
  return push(L, made);
}
int end_matrix(lua_State* L) {
  free_ids.push_back(object(L, 1)->id);
  delete object(L, 1);
  return 0;
}

constexpr luaL_Reg kFunctions[] = {
    {"vector3_dot", [](lua_State* L) { return check_count(L, 2), push(L, dot(vector(L, 1), vector(L, 2))); }},
    {"vector3_cross", [](lua_State* L) { return check_count(L, 2), push(L, cross(vector(L, 1), vector(L, 2))); }},
    {"vector3_length", [](lua_State* L) { return check_count(L, 1), push(L, length(vector(L, 1))); }},
    {"vector3_lerp",
     [](lua_State* L) { return check_count(L, 3), push(L, lerp(vector(L, 1), vector(L, 2), number(L, 3))); }},
    {"vector3_rotate",
     [](lua_State* L) { return check_count(L, 2), push(L, vector3_rotate(vector(L, 1), rotation(L, 2))); }},
    {"quaternion_multiply",
     [](lua_State* L) { return check_count(L, 2), push(L, quaternion_multiply(rotation(L, 1), rotation(L, 2))); }},
    {"quaternion_slerp",
     [](lua_State* L) { return check_count(L, 3), push(L, slerp(rotation(L, 1), rotation(L, 2), number(L, 3))); }},
    {"quaternion_rotation_zxy",
     [](lua_State* L) {
       return check_count(L, 3), push(L, quaternion_rotation_zxy(number(L, 1), number(L, 2), number(L, 3)));
     }},
    {"matrix_inverse", [](lua_State* L) { return check_count(L, 1), push(L, inverse(matrix(L, 1))); }},
    {"matrix_translation",
     [](lua_State* L) {
       return check_count(L, 3), push(L, matrix_translation(number(L, 1), number(L, 2), number(L, 3)));
     }},
    {nullptr, nullptr}};
constexpr luaL_Reg kVector3[] = {
    {"new",
     [](lua_State* L) {
       return check_count(L, 3), push(L, V{number(L, 1), number(L, 2), number(L, 3)});
     }},
    {"__add", [](lua_State* L) { return check_count(L, 2), push(L, vector(L, 1) + vector(L, 2)); }},
    {nullptr, nullptr}};
constexpr luaL_Reg kRotation[] = {
    {"new",
     [](lua_State* L) {
       return check_count(L, 4), push(L, Q{number(L, 1), number(L, 2), number(L, 3), number(L, 4)});
     }},
    {nullptr, nullptr}};
constexpr luaL_Reg kMatrix[] = {
    {"__mul", [](lua_State* L) { return check_count(L, 2), push(L, matrix(L, 1) * matrix(L, 2)); }},
    {"__gc", end_matrix},
    {nullptr, nullptr}};

}  // namespace

}  // namespace zeph::math3d::naive

extern "C" __attribute__((visibility("default"))) int luaopen_naive(lua_State* L);

int luaopen_naive(lua_State* L) {
  using namespace zeph::math3d::naive;
  lua_newtable(L);
  lua_newtable(L);
  lua_pushstring(L, "v");
  lua_setfield(L, -2, "__mode");
  lua_setmetatable(L, -2);
  lua_setfield(L, LUA_REGISTRYINDEX, kObjects);
  luaL_newlib(L, kFunctions);
  const luaL_Reg* const classes[] = {kVector3, kRotation, kMatrix};
  const char* const names[] = {"Vector3", "Rotation", "Matrix"};
  for (int i = 0; i < 3; ++i) {
    luaL_newmetatable(L, kNames[i]);
    luaL_setfuncs(L, classes[i], 0);
    lua_setfield(L, -2, names[i]);
  }
  return 1;
}
