# Finds Lua, for this build and for projects that use what it installs.
#
# Reads MATH3D_LUA_VERSION. Sets MATH3D_LUA_INCLUDE_DIR, the directory of lua.hpp, MATH3D_LUA_LIBRARY, which may be
# missing, and MATH3D_LUA_FOUND_VERSION; either of the first two is used as it is where it is set already.

find_path(MATH3D_LUA_INCLUDE_DIR lua.hpp PATH_SUFFIXES lua${MATH3D_LUA_VERSION} lua-${MATH3D_LUA_VERSION} lua NO_CACHE)
find_library(MATH3D_LUA_LIBRARY NAMES lua${MATH3D_LUA_VERSION} lua-${MATH3D_LUA_VERSION} lua NO_CACHE)

# A directory called just "lua" may hold any version.
set(MATH3D_LUA_FOUND_VERSION NOTFOUND)
if(EXISTS "${MATH3D_LUA_INCLUDE_DIR}/lua.h")
  file(STRINGS "${MATH3D_LUA_INCLUDE_DIR}/lua.h" MATH3D_LUA_FOUND_VERSION
    REGEX "define[ \t]+LUA_VERSION_(MAJOR|MINOR)[ \t]")
  string(REGEX REPLACE "[^0-9]*([0-9]+)[^0-9]+([0-9]+).*" "\\1.\\2" MATH3D_LUA_FOUND_VERSION
    "${MATH3D_LUA_FOUND_VERSION}")
endif()
