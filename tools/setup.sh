# shellcheck shell=bash disable=SC2034,SC2154
# What ./run and ./test share; both set `root`, the checkout, and source this file.
#
# Everything here says what it does on standard error, and says nothing when there is nothing to do. No child reads the
# caller's standard input: that belongs to the script or the test.

say() { printf '%s: %s\n' "${0##*/}" "$*" >&2; }
die() { say "$@"; exit 1; }

# Keeps the noise of a command for the case that it fails.
quietly() {
  local noise
  noise=$("$@" 2>&1 </dev/null) || { printf '%s\n' "$noise" >&2; return 1; }
}

# Debian's packages, each with what shows that it is there: a program, or files by a pattern. Looking for these takes no
# process at all, and holds for tools that came by another road too.
build_packages=(g++:g++ cmake:cmake ninja-build:ninja)
lua_packages() { printf '%s\n' "lua$1:lua$1" "liblua$1-dev:/usr/include/lua$1/lua.hpp"; }
test_packages=(
  libgtest-dev:/usr/include/gtest/gtest.h
  clang:clang++
  libclang-rt-dev:'/usr/lib/llvm-*/lib/clang/*/lib/linux/libclang_rt.asan-*.a'
  llvm:llvm-symbolizer  # function names in the reports of the sanitizers
  pkgconf:pkg-config
  dpkg-dev:dpkg-shlibdeps
  fakeroot:fakeroot
  file:file  # by which cpack tells programs and libraries
  luarocks:luarocks
  gdb:gdb
  clang-format:clang-format
  lua-check:luacheck
  shellcheck:shellcheck
  valgrind:valgrind
)

# Sets `missing` to those of the packages that are not there.
find_missing() {
  local entry probe
  missing=()
  for entry; do
    probe=${entry#*:}
    case $probe in
      /*) compgen -G "$probe" >/dev/null || missing+=("${entry%%:*}") ;;
      *) type -P "$probe" >/dev/null || missing+=("${entry%%:*}") ;;
    esac
  done
}

# Installs those of the packages that are not there.
need() {
  find_missing "$@"
  ((${#missing[@]})) || return 0

  lock setup
  find_missing "$@"  # again: another run may have installed them while this one waited
  if ((${#missing[@]})); then
    type -P apt-get >/dev/null || die "needs these packages of Debian, and finds no apt-get: ${missing[*]}"
    local as_root=()
    if ((EUID != 0)); then
      type -P sudo >/dev/null || die "needs root or sudo to install: ${missing[*]}"
      as_root=(sudo)
    fi
    local apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=600)
    say "installing ${missing[*]}"
    quietly "${apt[@]}" update || say "apt-get update failed; installing by the package lists that are there"
    quietly "${apt[@]}" install -y --no-install-recommends "${missing[@]}" || die "cannot install ${missing[*]}"
    hash -r
    find_missing "$@"
    ((${#missing[@]} == 0)) || die "installed, and still not found: ${missing[*]}"
  fi
  unlock
}

# One process at a time holds the lock of a name, till unlock or till it and its children end. An open for reading is
# enough, so that a user who may not write here can still run what is built.
lock() {
  local file=$root/build/$1.lock
  mkdir -p "$root/build"
  [[ -e $file ]] || : >"$file"
  exec {lock_fd}<"$file"
  flock -w 1 "$lock_fd" || { say "waiting for another one at work in build/"; flock "$lock_fd"; }
}
unlock() { exec {lock_fd}<&-; }

has_work() { [[ $(ninja -C "$dir" -n "$@" 2>&1 </dev/null) != *'no work to do'* ]]; }

# build DIR TARGET ARGUMENTS...: configures build/DIR by `cmake ARGUMENTS` and builds the target there; in a few
# hundredths of a second when nothing has changed.
build() {
  local name=build/$1 dir=$root/build/$1 target=$2
  shift 2

  # The build files look after themselves when a CMakeLists.txt changes, not when the presets or these arguments do, nor
  # when the checkout has moved. The stamp tells.
  local stamp=$dir/.configured settings="$root $*" seen=''
  [[ ! -e $stamp ]] || seen=$(<"$stamp")
  if [[ $seen != "$settings" || ! -e $dir/build.ninja || $root/CMakePresets.json -nt $stamp ]]; then
    say "configuring $name"
    if [[ -e $dir/CMakeCache.txt ]] && ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$dir/CMakeCache.txt"; then
      set -- --fresh "$@"
    fi
    rm -f "$stamp"
    quietly cmake -S "$root" -B "$dir" "$@" || die "cannot configure $name"
    printf '%s\n' "$settings" >"$stamp"
  fi

  # A dry run tells whether there is work, except that it stops where the build files themselves may have to be made
  # anew: when a CMakeLists.txt has changed, and always when one of them looks for files by a pattern. So then these are
  # made, and the second look takes them as they are, which is what their absolute name does.
  if has_work "$target"; then
    quietly ninja -C "$dir" build.ninja || die "cannot configure $name"
    if has_work -f "$dir/build.ninja" "$target"; then
      say "compiling $name"
      quietly cmake --build "$dir" --target "$target" || die "cannot build $name"
    fi
  fi
}
