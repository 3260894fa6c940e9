# Lua of the wanted version: headers for the library, which leaves Lua's symbols to its host, and the whole of it for
# programs that are a host.

find_path(MATH3D_LUA_INCLUDE_DIR lua.hpp PATH_SUFFIXES lua${MATH3D_LUA_VERSION} lua-${MATH3D_LUA_VERSION} lua NO_CACHE REQUIRED)
find_library(MATH3D_LUA_LIBRARY NAMES lua${MATH3D_LUA_VERSION} lua-${MATH3D_LUA_VERSION} lua NO_CACHE)
find_program(MATH3D_LUA_PROGRAM NAMES lua${MATH3D_LUA_VERSION} NO_CACHE)

add_library(math3d_lua_headers INTERFACE)
target_include_directories(math3d_lua_headers SYSTEM INTERFACE ${MATH3D_LUA_INCLUDE_DIR})

add_library(math3d_lua_host INTERFACE)
target_link_libraries(math3d_lua_host INTERFACE math3d_lua_headers ${MATH3D_LUA_LIBRARY})
