# How everything here is compiled, and what is built.

set(MATH3D_SANITIZE "" CACHE STRING "Sanitizers to build with, as for -fsanitize=")
set(MATH3D_PLATFORM_TARGET "" CACHE STRING "Target of an engine's own libraries in the place of zeph/platform")
option(MATH3D_BUILD_MODULE "Build the module for stock interpreters" ${PROJECT_IS_TOP_LEVEL})
include(CMakeDependentOption)
cmake_dependent_option(MATH3D_INSTALL "Install the libraries, their headers and the module" ${PROJECT_IS_TOP_LEVEL}
  "NOT MATH3D_PLATFORM_TARGET" OFF)

option(MATH3D_BUILD_TESTS "Build tests and examples" ${PROJECT_IS_TOP_LEVEL})
set(MATH3D_TEST_PREFIX "" CACHE STRING "Put before the names of tests, to tell builds apart")
option(MATH3D_BUILD_BENCHMARKS "Build the benchmarks" OFF)
option(MATH3D_TEST_INSTALL "Test programs and scripts of others against what this build installs" OFF)
option(MATH3D_TEST_PACKAGING "Test the packages, and a platform other than ours" OFF)
option(MATH3D_TEST_SOURCES "Test what does not depend on the build: style, documents, debuggers' views" OFF)
option(MATH3D_TEST_INSTRUCTIONS "Test that script calls take hardly more instructions than calls written by hand" OFF)
option(MATH3D_WERROR "Treat warnings as errors" OFF)

# Shared, unless the project around this one or the command line says otherwise.
if(NOT DEFINED BUILD_SHARED_LIBS)
  set(BUILD_SHARED_LIBS ON)
endif()

# As part of another project: the build type and its flags are that project's business.
if(PROJECT_IS_TOP_LEVEL)
  if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release)
  endif()
  # -O3 gains nothing over -O2 on the road of a call, and costs size.
  set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
  set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
endif()

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# The same bits from every compiler: no contraction, no value-changing option. Whoever compiles the inline functions of
# the headers needs the same. Not setting errno for square roots changes no value.
add_library(math3d_arithmetic INTERFACE)
set_target_properties(math3d_arithmetic PROPERTIES EXPORT_NAME arithmetic)
target_compile_features(math3d_arithmetic INTERFACE cxx_std_20)
target_compile_options(math3d_arithmetic INTERFACE "$<$<COMPILE_LANGUAGE:CXX>:-ffp-contract=off;-fno-math-errno>")
# GCC 12 fuses products whose sum and difference alternate between vector lanes into one instruction (vfmaddsub), in
# spite of -ffp-contract=off. Without the instruction sets that have it, it can't; nothing here may use it anyway.
if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64|i.86")
  set(MATH3D_GCC_ARITHMETIC -mno-fma -mno-fma4 -mno-avx512f)
  target_compile_options(math3d_arithmetic INTERFACE "$<$<COMPILE_LANG_AND_ID:CXX,GNU>:${MATH3D_GCC_ARITHMETIC}>")
endif()

add_library(math3d_warnings INTERFACE)
target_compile_options(math3d_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wdouble-promotion -Wold-style-cast
  -Wcast-qual -Wformat=2 -Wno-format-nonliteral -Wnon-virtual-dtor -Woverloaded-virtual -Wundef
  -Wcast-align -Wextra-semi -Wmissing-declarations -Wsuggest-override -Wswitch-enum -Wunused-macros
  -Wzero-as-null-pointer-constant
  $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-branches -Wduplicated-cond -Wlogical-op -Wredundant-decls -Wuseless-cast>
  $<$<CXX_COMPILER_ID:Clang>:-Wcomma -Wextra-semi-stmt -Wshadow-all -Wunreachable-code-aggressive>
  $<$<BOOL:${MATH3D_WERROR}>:-Werror>
  # Calls between the libraries go straight through the global offset table.
  -fno-plt
  # A unique symbol would keep the library from ever being unloaded.
  $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)

if(MATH3D_SANITIZE)
  add_compile_options(-fsanitize=${MATH3D_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${MATH3D_SANITIZE})
endif()
