# Lua of the wanted version: headers for the library, which leaves Lua's symbols to its host, and the whole of it for
# programs that are a host.

# A Lua that is given by its headers says itself which version it is.
if(MATH3D_LUA_INCLUDE_DIR AND NOT DEFINED MATH3D_LUA_VERSION)
  include(Math3dFindLua)
  set(MATH3D_LUA_VERSION ${MATH3D_LUA_FOUND_VERSION})
else()
  set(MATH3D_LUA_VERSION "5.4" CACHE STRING "Version of Lua to build for: 5.3 or 5.4")
endif()
include(Math3dFindLua)
if(NOT MATH3D_LUA_FOUND_VERSION STREQUAL MATH3D_LUA_VERSION)
  message(FATAL_ERROR "math3d: no headers of Lua ${MATH3D_LUA_VERSION} found (MATH3D_LUA_INCLUDE_DIR: "
    "${MATH3D_LUA_INCLUDE_DIR}, version: ${MATH3D_LUA_FOUND_VERSION})")
endif()
find_library(MATH3D_LUA_CPP_LIBRARY NAMES lua${MATH3D_LUA_VERSION}-c++ NO_CACHE)
find_program(MATH3D_LUA_PROGRAM NAMES lua${MATH3D_LUA_VERSION} NO_CACHE)

# Once installed, both are filled in where they are used: there Lua may stand elsewhere.
add_library(math3d_lua_headers INTERFACE)
set_target_properties(math3d_lua_headers PROPERTIES EXPORT_NAME lua_headers)
target_include_directories(math3d_lua_headers SYSTEM INTERFACE "$<BUILD_INTERFACE:${MATH3D_LUA_INCLUDE_DIR}>")

add_library(math3d_lua_host INTERFACE)
set_target_properties(math3d_lua_host PROPERTIES EXPORT_NAME lua_host)
target_link_libraries(math3d_lua_host INTERFACE math3d_lua_headers)
if(MATH3D_LUA_LIBRARY)
  target_link_libraries(math3d_lua_host INTERFACE "$<BUILD_INTERFACE:${MATH3D_LUA_LIBRARY}>")
endif()
add_library(math3d::lua_host ALIAS math3d_lua_host)
