# Debian packages, by `cpack` in a build directory: libmath3d, libmath3d-dev and lua-math3d, for the usual Lua. The
# library is compiled for one version of Lua, so those for another one have its name behind theirs, and the same files
# in them, so that a system has either.
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME math3d)
set(CPACK_PACKAGE_VENDOR math3d)
set(CPACK_PACKAGE_CONTACT "The math3d developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL runtime development module)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)

set(usual_lua 5.4)
set(suffix "")
set(others libmath3d-lua5.3)
if(NOT MATH3D_LUA_VERSION STREQUAL usual_lua)
  set(suffix -lua${MATH3D_LUA_VERSION})
  set(others libmath3d)
endif()

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY =)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS runtime)
set(CPACK_COMPONENT_MODULE_DEPENDS runtime)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libmath3d${suffix})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONFLICTS ${others})
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
  "Vectors, rotations, matrices, planes, rays, boxes and colours in single precision,
for scripts of Lua ${MATH3D_LUA_VERSION} and the native code of the program that runs them.
.
This package has the shared libraries.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libmath3d${suffix}-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS liblua${MATH3D_LUA_VERSION}-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_CONFLICTS ${others}-dev)
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
  "Vectors, rotations, matrices, planes, rays, boxes and colours in single precision,
for scripts of Lua ${MATH3D_LUA_VERSION} and the native code of the program that runs them.
.
This package has the headers and what CMake and pkg-config need to find the library.")

set(CPACK_DEBIAN_MODULE_PACKAGE_NAME lua-math3d${suffix})
set(CPACK_DEBIAN_MODULE_PACKAGE_SECTION interpreters)
set(CPACK_DEBIAN_MODULE_PACKAGE_RECOMMENDS lua${MATH3D_LUA_VERSION})
string(REPLACE libmath3d lua-math3d CPACK_DEBIAN_MODULE_PACKAGE_CONFLICTS ${others})
set(CPACK_COMPONENT_MODULE_DESCRIPTION
  "Vectors, rotations, matrices, planes, rays, boxes and colours in single precision,
for scripts of Lua ${MATH3D_LUA_VERSION} and the native code of the program that runs them.
.
This package has the module that lua${MATH3D_LUA_VERSION} loads by require \"math3d\".")

include(CPack)
