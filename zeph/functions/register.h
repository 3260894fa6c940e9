/// The families of free functions; each call adds its functions to the open module.
#pragma once

struct lua_State;

namespace zeph::math3d {

void register_scalar_functions(lua_State* L);
void register_smooth_damp_functions(lua_State* L);
void register_aabb_functions(lua_State* L);
void register_vector3_functions(lua_State* L);
void register_vector4_functions(lua_State* L);
void register_quaternion_functions(lua_State* L);
void register_matrix_functions(lua_State* L);
void register_color_functions(lua_State* L);
void register_plane_functions(lua_State* L);

}  // namespace zeph::math3d
