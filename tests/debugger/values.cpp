/// Values for the debugger to print. Under each, as `// name => text`, stands what it has to print; further lines of
/// the text stand behind `//|`.
#include <zeph/binding/builtin_objects.h>
#include <zeph/binding/nullable.h>
#include <zeph/binding/result.h>
#include <zeph/math3d.h>
#include <zeph/math3d/lua_aabb.h>
#include <zeph/math3d/lua_color.h>
#include <zeph/math3d/lua_matrix.h>
#include <zeph/math3d/lua_plane.h>
#include <zeph/math3d/lua_ray.h>
#include <zeph/math3d/lua_rect.h>
#include <zeph/math3d/lua_rotation.h>
#include <zeph/math3d/lua_vector3.h>
#include <zeph/math3d/lua_vector4.h>

using namespace zeph;
using namespace zeph::binding;
using namespace zeph::math3d;

namespace {

// NOLINTBEGIN(performance-unnecessary-copy-initialization,clang-analyzer-deadcode.DeadStores): GDB uses them

/// The breakpoint. It takes the address of what the debugger looks at, so that no compiler leaves that out.
[[gnu::noinline]] void stop_here(const void* value) { asm volatile("" : : "r"(value) : "memory"); }

void native_values() {
  const _Point2<float> point{1, -0.0F};
  // point => (1, -0)
  const _Vector3<float> vector{0.1F, 1e-7F, 2.5F};
  // vector => (0.1, 1e-07, 2.5)
  const _Vector3<float>& reference = vector;
  // reference => (0.1, 1e-07, 2.5)
  const _Vector3<float> list[] = {vector, {}};
  // list => {(0.1, 1e-07, 2.5), (0, 0, 0)}
  const Vector4<float> four{1, 2, 3, kInfinity};
  // four => (1, 2, 3, inf)

  const _Rotation<float> turn = rotation_from_axis_angle({0, 1, 0}, kHalfPi);
  // turn => (0, 0.70710677, 0, 0.70710677), 90 deg about (0, 1, 0)
  const _Rotation<float> identity = kIdentityRotation;
  // identity => (0, 0, 0, 1), no turn
  const _Rotation<float> scaled{1, 2, 3, 4};
  // scaled => (1, 2, 3, 4), not unit
  const AxisAngle pair{{0, 1, 0}, kPi};
  // pair => 3.1415927 rad (180 deg) about (0, 1, 0)

  const _Matrix<float> matrix = matrix_from_rows({1, 0, 0}, {0, 0.5F, 0}, {0, 0, -1}, {10, 20, 30});
  // matrix => Matrix
  //|  right         1    0   0  0
  //|  up            0  0.5   0  0
  //|  forward       0    0  -1  0
  //|  translation  10   20  30  1
  const Matrix33 block;
  // block => Matrix33
  //|  right        1  0  0
  //|  up           0  1  0
  //|  forward      0  0  1

  const _Rect<float> rect{1, 2, 4, 6};
  // rect => (1, 2) to (4, 6), size (3, 4)
  const RectOffset offset{1, 2, 3, 4};
  // offset => left 1, top 2, right 3, bottom 4
  const Color32 color = from_word(0x80FF0102);
  // color => #80FF0102 (r 255, g 1, b 2, a 128)
  const ColorF color_f{1, 0.5F, 0, 1};
  // color_f => r 1, g 0.5, b 0, a 1
  const _Plane<float> plane{{0, 1, 0}, 2};
  // plane => dot(p, (0, 1, 0)) == 2
  const Ray ray{{1, 2, 3}, {0, 0, 1}};
  // ray => (1, 2, 3) + t * (0, 0, 1)
  const AABB box = aabb_around({0, 0, 0}, {2, 4, 6});
  // box => min (-1, -2, -3), max (1, 2, 3), half_extents (1, 2, 3)
  const AABB empty_box;
  // empty_box => empty, as built
  const AABB inside_out{{0, 0, 0}, {1, -1, -1}, {}, 7};
  // inside_out => inside out: min (1, -1, -1), max (0, 0, 0), half_extents (0, 0, 0), tag 7

  const Nullable<float> some{0.5F, true};
  // some => 0.5
  const Nullable<_Vector3<float>> some_vector{vector, true};
  // some_vector => (0.1, 1e-07, 2.5)
  const Nullable<int> none{};
  // none => none
  const LimitedText<8> text{3, {'a', 'b', 'c'}};
  // text => "abc", 3 of at most 8 bytes
  stop_here(&point);
}

void references_and_objects() {
  _Vector3<float> vector{1, 2, 3};
  _Matrix<float> matrix = kIdentityMatrix;

  const AutoRef<Object> empty;
  // empty => empty
  const AutoRef<Object> first = TypeTraits<_Vector3<float>>::Packing(&vector);
  const AutoRef<Object> second = first;
  // second => alive, strong count 2, at ADDRESS: Object of class zeph::math3d::LuaVector3
  const AutoRef<Object> number = new Number(0.25);
  // number => alive, strong count 1, at ADDRESS: Number 0.25
  const AutoRef<Str> string = new Str("hello");
  // string => alive, strong count 1, at ADDRESS: Str "hello"
  auto* ended = new None;
  const AutoRef<None> dead = ended;
  ended->DeleteAutoRefObj();
  // dead => not alive, strong count 0, was at ADDRESS

  LuaVector3 dummy;
  dummy.m_value = vector;
  // dummy => LuaVector3: (1, 2, 3)
  LuaMatrix in_lua;
  in_lua.m_value = matrix;
  // in_lua => LuaMatrix (no id): Matrix
  //|  right        1  0  0  0
  //|  up           0  1  0  0
  //|  forward      0  0  1  0
  //|  translation  0  0  0  1
  stop_here(&empty);
}

// NOLINTEND(performance-unnecessary-copy-initialization,clang-analyzer-deadcode.DeadStores)

}  // namespace

int main() {
  native_values();
  references_and_objects();
  return 0;
}
