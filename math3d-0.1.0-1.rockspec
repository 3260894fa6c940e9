-- `luarocks make` in a checkout installs the module into a tree of rocks, with the library inside it.
rockspec_format = "3.0"
package = "math3d"
version = "0.1.0-1"
source = {
  url = "git+file://.", -- nowhere yet: it is made from a checkout
}
description = {
  summary = "3D game maths for Lua scripts",
  detailed = [[
Vectors, rotations, matrices, planes, rays, boxes and colours in single precision, made in C++20. A host whose native
code shares these values with its scripts links the library instead: see README.md.]],
}
supported_platforms = { "linux" }
dependencies = { "lua >= 5.3, < 5.5" }
build = {
  type = "command",
  -- The headers say which Lua it is. One file that needs no other, so that the tree can be moved.
  build_command = 'cmake -S . -B build.luarocks -D "MATH3D_LUA_INCLUDE_DIR=$(LUA_INCDIR)" -D BUILD_SHARED_LIBS=OFF '
    .. "-D MATH3D_BUILD_TESTS=OFF && cmake --build build.luarocks --parallel `nproc` --target math3d_module",
  install = { lib = { "build.luarocks/lua/math3d.so" } },
  copy_directories = { "docs" },
}
