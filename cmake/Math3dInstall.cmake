# What is installed, in three parts: `runtime`, the shared libraries; `development`, what other projects are built with;
# `module`, what stock interpreters load. All of it can be moved as a whole.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(MATH3D_MODULE_INSTALL_DIR "" CACHE STRING "Where the module goes; empty: LIBDIR/lua/VERSION")
set(module_dir "${MATH3D_MODULE_INSTALL_DIR}")
if(NOT module_dir)
  set(module_dir ${CMAKE_INSTALL_LIBDIR}/lua/${MATH3D_LUA_VERSION})
endif()
set(config_dir ${CMAKE_INSTALL_LIBDIR}/cmake/math3d)

set_target_properties(zeph_platform libmath3d PROPERTIES INSTALL_RPATH "$ORIGIN")
install(TARGETS zeph_platform zeph_binding libmath3d math3d_arithmetic math3d_lua_headers math3d_lua_host
  EXPORT math3d_library_targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
foreach(library IN ITEMS zeph_platform zeph_binding libmath3d)
  target_include_directories(${library} PUBLIC "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>")
endforeach()
install(DIRECTORY zeph DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development FILES_MATCHING PATTERN "*.h"
  # For the libraries' own units.
  PATTERN class_register.h EXCLUDE
  PATTERN functions/register.h EXCLUDE)

# Projects that use CMake.
configure_package_config_file(cmake/math3dConfig.cmake.in "${PROJECT_BINARY_DIR}/math3dConfig.cmake"
  INSTALL_DESTINATION ${config_dir} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/math3dConfigVersion.cmake"
  COMPATIBILITY ${MATH3D_COMPATIBILITY})
install(EXPORT math3d_library_targets NAMESPACE math3d:: FILE math3dLibrary.cmake
  DESTINATION ${config_dir} COMPONENT development)
install(FILES "${PROJECT_BINARY_DIR}/math3dConfig.cmake" "${PROJECT_BINARY_DIR}/math3dConfigVersion.cmake"
  cmake/Math3dFindLua.cmake DESTINATION ${config_dir} COMPONENT development)

# Projects that use pkg-config. Lua's own file has one of several names, and is needed for its headers alone.
set(MATH3D_PC_LUA "")
set(MATH3D_PC_LUA_CFLAGS " -isystem \"${MATH3D_LUA_INCLUDE_DIR}\"")
find_program(MATH3D_PKG_CONFIG NAMES pkgconf pkg-config NO_CACHE)
if(MATH3D_PKG_CONFIG)
  string(REPLACE . "" short_version ${MATH3D_LUA_VERSION})
  foreach(name IN ITEMS lua${MATH3D_LUA_VERSION} lua-${MATH3D_LUA_VERSION} lua${short_version})
    execute_process(COMMAND ${MATH3D_PKG_CONFIG} --exists ${name} RESULT_VARIABLE failed ERROR_QUIET)
    if(NOT failed)
      set(MATH3D_PC_LUA ${name})
      set(MATH3D_PC_LUA_CFLAGS "")
      break()
    endif()
  endforeach()
endif()
set(MATH3D_PC_LIBRARIES "-lmath3d -lzeph_platform")
get_target_property(type libmath3d TYPE)
if(type STREQUAL STATIC_LIBRARY)
  set(MATH3D_PC_LIBRARIES "-lmath3d -lzeph_binding -lzeph_platform")
endif()
set(MATH3D_PC_FLAGS "-ffp-contract=off -fno-math-errno")
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  list(JOIN MATH3D_GCC_ARITHMETIC " " gcc_flags)
  string(APPEND MATH3D_PC_FLAGS " ${gcc_flags}")
endif()
# From where the file stands, so that it can be moved. A directory outside of the prefix stays where it is.
set(MATH3D_PC_PREFIX "${CMAKE_INSTALL_PREFIX}")
if(NOT IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
  set(here ".")
  cmake_path(RELATIVE_PATH here BASE_DIRECTORY "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
  set(MATH3D_PC_PREFIX "\${pcfiledir}/${here}")
endif()
foreach(dir IN ITEMS CMAKE_INSTALL_LIBDIR CMAKE_INSTALL_INCLUDEDIR module_dir)
  set(${dir}_PC "\${prefix}")
  cmake_path(APPEND ${dir}_PC "${${dir}}")
endforeach()
configure_file(cmake/math3d.pc.in "${PROJECT_BINARY_DIR}/math3d.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/math3d.pc" DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

if(TARGET math3d_module)
  # To the libraries, if there are any.
  if(type STREQUAL SHARED_LIBRARY)
    set(module_rpath "${CMAKE_INSTALL_FULL_LIBDIR}")
    if(NOT IS_ABSOLUTE "${module_dir}")
      cmake_path(RELATIVE_PATH CMAKE_INSTALL_LIBDIR BASE_DIRECTORY "${module_dir}" OUTPUT_VARIABLE up)
      set(module_rpath "$ORIGIN/${up}")
    endif()
    set_target_properties(math3d_module PROPERTIES INSTALL_RPATH "${module_rpath}")
  endif()
  install(TARGETS math3d_module EXPORT math3d_module_targets
    LIBRARY DESTINATION ${module_dir} COMPONENT module)
  install(EXPORT math3d_module_targets NAMESPACE math3d:: FILE math3dModule.cmake
    DESTINATION ${config_dir} COMPONENT module)
endif()
# For editors: the types of all that scripts see.
if(EXISTS "${PROJECT_SOURCE_DIR}/lua/library/math3d.lua")
  install(FILES lua/library/math3d.lua DESTINATION ${CMAKE_INSTALL_DATADIR}/math3d/lua/library COMPONENT module)
endif()

install(FILES README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development)
