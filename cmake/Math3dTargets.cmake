# What our libraries have in common.

# Which releases can stand in for each other. By the rules of semantic versioning a minor release may break what is
# before 1.0.0, and may not from then on.
if(PROJECT_VERSION_MAJOR EQUAL 0)
  set(MATH3D_COMPATIBILITY SameMinorVersion)
  set(MATH3D_SOVERSION 0.${PROJECT_VERSION_MINOR})
else()
  set(MATH3D_COMPATIBILITY SameMajorVersion)
  set(MATH3D_SOVERSION ${PROJECT_VERSION_MAJOR})
endif()

# What the binding stands on: zeph/platform, or what an engine has in its place (docs/platform.md).
set(MATH3D_PLATFORM zeph_platform)
set(MATH3D_INCLUDE_ROOT "${PROJECT_SOURCE_DIR}")
if(MATH3D_PLATFORM_TARGET)
  if(NOT TARGET ${MATH3D_PLATFORM_TARGET})
    message(FATAL_ERROR "math3d: MATH3D_PLATFORM_TARGET is ${MATH3D_PLATFORM_TARGET}, and there is no such target")
  endif()
  set(MATH3D_PLATFORM ${MATH3D_PLATFORM_TARGET})
  # An include root without our own platform: a header that the other one lacks is then missing, not silently ours.
  set(MATH3D_INCLUDE_ROOT "${PROJECT_BINARY_DIR}/include")
  file(MAKE_DIRECTORY "${MATH3D_INCLUDE_ROOT}/zeph")
  foreach(part IN ITEMS binding export.h functions math3d math3d.h)
    file(CREATE_LINK "${PROJECT_SOURCE_DIR}/zeph/${part}" "${MATH3D_INCLUDE_ROOT}/zeph/${part}" SYMBOLIC)
  endforeach()
endif()

# math3d_library(TARGET NAME): NAME is what others call it behind math3d::.
function(math3d_library target name)
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${name})
  get_target_property(type ${target} TYPE)
  if(type STREQUAL SHARED_LIBRARY)
    set_target_properties(${target} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${MATH3D_SOVERSION})
  endif()
  target_include_directories(${target} PUBLIC "$<BUILD_INTERFACE:${MATH3D_INCLUDE_ROOT}>")
  target_link_libraries(${target} PUBLIC math3d_lua_headers math3d_arithmetic
    PRIVATE $<BUILD_INTERFACE:math3d_warnings>)
  add_library(math3d::${name} ALIAS ${target})
endfunction()
