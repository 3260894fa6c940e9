# Tests that run a Lua script: in the stock interpreter, but for builds with sanitizers, of which it knows nothing.
# Those have a host of their own.

if(MATH3D_SANITIZE)
  add_executable(script_host ${PROJECT_SOURCE_DIR}/tests/native/script_host.cpp)
  target_link_libraries(script_host PRIVATE math3d_lua_host math3d_warnings)
  set(MATH3D_SCRIPT_HOST $<TARGET_FILE:script_host>)
else()
  set(MATH3D_SCRIPT_HOST ${MATH3D_LUA_PROGRAM})
endif()

# math3d_script_test(NAME SCRIPT ARGUMENTS...)
function(math3d_script_test name script)
  add_test(NAME ${MATH3D_TEST_PREFIX}${name}
    COMMAND ${MATH3D_SCRIPT_HOST} ${CMAKE_CURRENT_SOURCE_DIR}/${script} ${ARGN})
  set_tests_properties(${MATH3D_TEST_PREFIX}${name} PROPERTIES ENVIRONMENT
    "LUA_CPATH=${PROJECT_BINARY_DIR}/lua/?.so;LUA_PATH=${PROJECT_SOURCE_DIR}/tests/lua/?.lua;LUA_INIT=require 'math3d'")
endfunction()
