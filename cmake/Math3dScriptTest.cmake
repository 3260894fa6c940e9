# Tests that run a Lua script: in the stock interpreter, but for builds with sanitizers, of which it knows nothing.
# Those have a host of their own.

add_executable(script_host ${PROJECT_SOURCE_DIR}/tests/native/script_host.cpp)
target_link_libraries(script_host PRIVATE math3d_lua_host math3d_warnings)
if(MATH3D_SANITIZE)
  set(MATH3D_SCRIPT_HOST $<TARGET_FILE:script_host>)
else()
  set(MATH3D_SCRIPT_HOST ${MATH3D_LUA_PROGRAM})
endif()

function(math3d_add_script_test name host environment)
  add_test(NAME ${MATH3D_TEST_PREFIX}${name} COMMAND ${host} ${ARGN})
  set(paths "LUA_CPATH=${PROJECT_BINARY_DIR}/lua/?.so;LUA_PATH=${PROJECT_SOURCE_DIR}/tests/lua/?.lua")
  set_tests_properties(${MATH3D_TEST_PREFIX}${name} PROPERTIES
    ENVIRONMENT "${paths};LUA_INIT=require 'math3d';${environment}")
endfunction()

# math3d_script_test(NAME SCRIPT ARGUMENTS...)
function(math3d_script_test name script)
  math3d_add_script_test(${name} ${MATH3D_SCRIPT_HOST} "" ${CMAKE_CURRENT_SOURCE_DIR}/${script} ${ARGN})
endfunction()

# math3d_collection_test(NAME SCRIPT EVERY ARGUMENTS...): again with a full collection at each EVERY-th allocation, and
# with generational collection.
function(math3d_collection_test name script every)
  set(script ${CMAKE_CURRENT_SOURCE_DIR}/${script})
  math3d_add_script_test(collect/${name} script_host MATH3D_COLLECT=${every} ${script} ${ARGN})
  if(NOT MATH3D_LUA_VERSION STREQUAL "5.3")
    math3d_add_script_test(generational/${name} script_host MATH3D_COLLECT=generational ${script} ${ARGN})
  endif()
endfunction()
