# shellcheck shell=bash
# What bench/run, bench/check and tools/instructions share; they set `root` and source this file.
# shellcheck disable=SC2154  # root
source "$root/tools/setup.sh"

bench_packages=(
  libbenchmark-dev:/usr/include/benchmark/benchmark.h
  libglm-dev:/usr/include/glm/glm.hpp
  libeigen3-dev:/usr/include/eigen3/Eigen/Dense
  valgrind:valgrind
)

# Builds TARGET of the benchmarks for Lua LUA_VERSION, and sets `version`, `bench`, where the build stands, and Lua's
# search paths. BUILD_DIR in the environment is another build to take the library from.
prepare() {
  version=${LUA_VERSION:-5.4}
  local lua_of_version name=bench-lua$version
  mapfile -t lua_of_version < <(lua_packages "$version")
  need "${build_packages[@]}" "${bench_packages[@]}" "${lua_of_version[@]}"
  lock "$name"
  build "$name" "$1" --preset bench -D MATH3D_LUA_VERSION="$version" -D MATH3D_WERROR=OFF
  unlock

  bench=$root/build/$name
  library=${BUILD_DIR:-$bench}
  [[ -e $library/lua/math3d.so ]] || die "no lua/math3d.so in $library"
  unset "LUA_CPATH_${version/./_}" "LUA_PATH_${version/./_}" LUA_INIT
  export LUA_CPATH="$library/lua/?.so;$bench/bench/?.so" LUA_PATH="$root/bench/?.lua"
}
