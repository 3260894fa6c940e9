/// Prints a digest of the bits of many results of every native function: a line for each function, so that a
/// difference between two builds tells where it comes from. Arguments are random and special values; all NaNs count as
/// one.
#include <array>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <random>
#include <tuple>
#include <type_traits>

#include <zeph/functions/aabb.h>
#include <zeph/functions/color.h>
#include <zeph/functions/matrix.h>
#include <zeph/functions/plane.h>
#include <zeph/functions/quaternion.h>
#include <zeph/functions/scalar.h>
#include <zeph/functions/smooth_damp.h>
#include <zeph/functions/vector3.h>
#include <zeph/functions/vector4.h>
#include <zeph/math3d/matrix_decomposition.h>
#include <zeph/math3d/matrix_transforms.h>
#include <zeph/math3d/ray.h>
#include <zeph/math3d/rect.h>
#include <zeph/math3d/vector2.h>

namespace {

using namespace zeph::math3d;
using zeph::AABB;
using V2 = _Point2<float>;
using V3 = _Vector3<float>;
using V4 = Vector4<float>;
using Q = _Rotation<float>;
using M = _Matrix<float>;
using P = _Plane<float>;
using R = _Rect<float>;

/// FNV-1a, 64 bits.
class Digest {
 public:
  void add(std::uint32_t word) {
    for (int i = 0; i < 4; ++i) {
      m_hash = (m_hash ^ (word >> (8 * i) & 0xFFU)) * 0x100000001b3;
    }
  }
  void add(float value) { add(value == value ? std::bit_cast<std::uint32_t>(value) : 0x7FC00000U); }
  void add(bool value) { add(value ? 1U : 0U); }
  void add(unsigned char value) { add(std::uint32_t{value}); }
  void add(std::int32_t value) { add(static_cast<std::uint32_t>(value)); }
  void add(const Color32& c) { add(to_word(c)); }
  void add(const AABB& box) {
    add(box.max);
    add(box.min);
    add(box.half_extents);
  }
  template <typename T>
  void add(const std::optional<T>& value) {
    add(value.has_value());
    if (value.has_value()) {
      add(*value);
    }
  }
  template <typename T, std::size_t N>
  void add(const std::array<T, N>& values) {
    for (const T& value : values) {
      add(value);
    }
  }
  void add(const Decomposition& parts) {
    add(parts.scale);
    add(parts.rotation);
    add(parts.succeeded);
  }
  /// Whatever is made of floats alone.
  template <typename T>
    requires std::is_class_v<T>
  void add(const T& value) {
    for (const float part : std::bit_cast<std::array<float, sizeof(T) / sizeof(float)>>(value)) {
      add(part);
    }
  }
  [[nodiscard]] std::uint64_t value() const { return m_hash; }

 private:
  std::uint64_t m_hash = 0xcbf29ce484222325;
};

class Inputs {
 public:
  explicit Inputs(std::uint32_t seed) : m_engine(seed) {}

  float number() {
    static constexpr float special[] = {0.0F,          -0.0F,   1.0F,      -1.0F,      0.5F,       2.0F,
                                        kPi,           -kPi,    kHalfPi,   kTwoPi,     kEpsilon,   -kEpsilon,
                                        1e-4F,         0.0001F, 0.99999F,  0.999999F,  0.499999F,  1e20F,
                                        -1e20F,        3.4e38F, 1e-20F,    1e-40F,     8388608.0F, -8388609.0F,
                                        2147483648.0F, 255.0F,  kInfinity, -kInfinity, kQuietNan};
    const std::uint32_t bits = m_engine();
    switch (m_kind) {
      case 0:
        return unit() * 2.0F - 1.0F;
      case 1:
        return unit() * 200.0F - 100.0F;
      case 2:
        return bits % 4 == 0 ? special[(bits >> 8) % std::size(special)] : unit() * 4.0F - 2.0F;
      case 3:
        return special[(bits >> 8) % std::size(special)];
      default:
        return std::bit_cast<float>(bits);
    }
  }
  void next() { m_kind = m_engine() % 5; }

  void fill(float& value) { value = number(); }
  void fill(int& value) { value = static_cast<int>(m_engine() >> (m_engine() % 32)); }
  void fill(std::uint32_t& value) { value = m_engine(); }
  void fill(Color32& value) { value = from_word(m_engine()); }
  void fill(std::optional<float>& value) { value = m_engine() % 4 == 0 ? std::nullopt : std::optional(number()); }
  void fill(std::optional<V3>& value) {
    value = std::nullopt;
    if (m_engine() % 4 != 0) {
      fill(value.emplace());
    }
  }
  void fill(AABB& box) {
    fill(box.max);
    fill(box.min);
    fill(box.half_extents);
  }
  void fill(Q& q) {
    fill_floats(q);
    if (m_engine() % 2 == 0) {
      q = normalized(q);
    }
  }
  void fill(M& m) {
    fill_floats(m);
    if (m_engine() % 2 == 0) {
      Q q;
      fill(q);
      V3 scales;
      fill(scales);
      m = matrix_transformation_prs(row(m, 3), normalized(q), scales);
    }
  }
  template <typename T>
    requires std::is_class_v<T>
  void fill(T& value) { fill_floats(value); }

 private:
  float unit() { return static_cast<float>(m_engine() >> 8) / 16777216.0F; }
  template <typename T>
  void fill_floats(T& value) {
    std::array<float, sizeof(T) / sizeof(float)> parts{};
    for (float& part : parts) {
      part = number();
    }
    value = std::bit_cast<T>(parts);
  }

  std::mt19937 m_engine;
  std::uint32_t m_kind = 0;
};

Digest total;
int results = 0;

/// Calls the function with many arguments. A parameter taken by reference to non-const is part of the result.
template <typename Result, typename... Parameters>
void sweep(const char* name, Result (*function)(Parameters...)) {
  Inputs inputs(20240613U + static_cast<std::uint32_t>(name[0]));
  Digest digest;
  for (int i = 0; i < 4000; ++i) {
    inputs.next();
    std::tuple<std::remove_cvref_t<Parameters>...> arguments;
    std::apply([&](auto&... argument) { (inputs.fill(argument), ...); }, arguments);
    if constexpr (std::is_void_v<Result>) {
      std::apply(function, arguments);
      std::apply([&](auto&... argument) { (digest.add(argument), ...); }, arguments);
    } else {
      digest.add(std::apply(function, arguments));
    }
    ++results;
  }
  total.add(static_cast<std::uint32_t>(digest.value()));
  total.add(static_cast<std::uint32_t>(digest.value() >> 32));
  std::printf("%-36s %016llx\n", name, static_cast<unsigned long long>(digest.value()));
}

}  // namespace

int main() {
  sweep("scalar_sin_cos", &scalar_sin_cos);
  sweep("vector_sin_cos", &vector_sin_cos);
  sweep("radians", &radians);
  sweep("degrees", &degrees);
  sweep("clamp", &clamp);
  sweep("repeat", &repeat);
  sweep("lerp_angle", &lerp_angle);
  sweep("delta_angle", &delta_angle);
  sweep(
      "lerp", +[](float a, float b, float t) { return lerp(a, b, t); });
  sweep("smooth_damp", &smooth_damp);
  sweep("vector3_smooth_damp", &vector3_smooth_damp);

  sweep(
      "V2.arithmetic", +[](V2 a, V2 b, float n) { return std::array{a + b, a - b, a * b, a * n, a / b, a / n}; });
  sweep(
      "V2.measures", +[](V2 a, V2 b) {
        return std::array{dot(a, b), length(a), length_squared(a)};
      });
  sweep(
      "V2.tests", +[](V2 a, V2 b) {
        return std::array{a == b, is_zero(a)};
      });
  sweep(
      "V2.normalized", +[](V2 a, float scale) { return normalized(a, scale); });
  sweep(
      "V2.lerp", +[](V2 a, V2 b, float t) { return lerp(a, b, t); });
  sweep(
      "V3.arithmetic", +[](V3 a, V3 b, float n) { return std::array{a + b, a - b, a * b, a * n, a / b, a / n}; });
  sweep(
      "V3.measures", +[](V3 a, V3 b) {
        return std::array{dot(a, b), length(a), yaw(a), pitch(a)};
      });
  sweep(
      "V3.tests", +[](V3 a, V3 b) {
        return std::array{near(a, b), near_zero(a)};
      });
  sweep(
      "V3.products", +[](V3 a, V3 b, float t) {
        return std::array{cross(a, b), lerp(a, b, t), normalized(a) * t};
      });
  sweep(
      "V3.transform", +[](V3 v, M m) { return v * m; });
  sweep(
      "V4.arithmetic", +[](V4 a, V4 b, float n) { return std::array{a + b, a - b, a - n, a * b, a * n, a / n}; });
  sweep(
      "V4.measures", +[](V4 a, V4 b) {
        return std::array{dot(a, b), length(a)};
      });
  sweep(
      "V4.normalized", +[](V4 a) { return normalized(a); });

  sweep("vector3_abs", &vector3_abs);
  sweep("vector3_min", &vector3_min);
  sweep("vector3_max", &vector3_max);
  sweep("vector3_clamp", &vector3_clamp);
  sweep("vector3_normalize", &vector3_normalize);
  sweep("vector3_rotate", &vector3_rotate);
  sweep("vector3_transform_coord", &vector3_transform_coord);
  sweep("vector3_transform_normal", &vector3_transform_normal);
  sweep("vector3_delta_angle_zxy", &vector3_delta_angle_zxy);
  sweep("vector4_abs", &vector4_abs);
  sweep("vector4_cross", &vector4_cross);
  sweep("vector4_lerp", &vector4_lerp);
  sweep("vector4_min", &vector4_min);
  sweep("vector4_max", &vector4_max);
  sweep("vector4_clamp", &vector4_clamp);
  sweep("vector4_normalize", &vector4_normalize);
  sweep("vector4_transform", &vector4_transform);

  sweep(
      "Q.arithmetic", +[](Q a, Q b, float n) { return std::array{a + b, a - b, a * b, a * n, a / n, normalized(a)}; });
  sweep(
      "Q.axis_angle", +[](Q q, V3 axis, float a) {
        return std::array{rotation_from_axis_angle(axis, a), Q{angle(q)}};
      });
  sweep(
      "Q.axes", +[](Q q, V3 v) {
        return std::array{forward(q), up(q), right(q), rotate(q, v)};
      });
  sweep("quaternion_multiply", &quaternion_multiply);
  sweep("quaternion_dot", &quaternion_dot);
  sweep("quaternion_lerp", &quaternion_lerp);
  sweep("quaternion_slerp", &quaternion_slerp);
  sweep("quaternion_conjugate", &quaternion_conjugate);
  sweep("quaternion_inverse", &quaternion_inverse);
  sweep("quaternion_rotation_axis", &quaternion_rotation_axis);
  sweep("quaternion_rotation_matrix", &quaternion_rotation_matrix);
  sweep("quaternion_rotation_zxy", &quaternion_rotation_zxy);
  sweep("quaternion_rotation_fromto", &quaternion_rotation_fromto);
  sweep("quaternion_to_rotation_xzy", &quaternion_to_rotation_xzy);
  sweep("quaternion_to_euler_zyx", &quaternion_to_euler_zyx);
  sweep("quaternion_to_euler_xyz", &quaternion_to_euler_xyz);

  sweep(
      "M.arithmetic", +[](M a, M b, float n) {
        return std::array{a + b, a - b, a * b, a * n};
      });
  sweep("M.decompose", &decompose);
  sweep(
      "M.rotation", +[](M m) { return rotation(m); });
  sweep(
      "M.set_rotation", +[](M& m, const M& r) { set_rotation(m, r); });
  sweep(
      "M.set_scale", +[](M& m, V3 v) { set_scale(m, v); });
  sweep(
      "M.angles", +[](M m) {
        return std::array{yaw(m), pitch(m), roll(m)};
      });
  sweep(
      "M.tests", +[](M m) {
        return std::array{is_orthogonal(m), has_scale(m), is_mirrored(m)};
      });
  sweep(
      "M.do_rotation", +[](M& m, const M& other) { do_rotation(m, other); });
  sweep(
      "M.normalize", +[](M& m) { normalize(m); });
  sweep(
      "M.orthogonalize", +[](M& m) { orthogonalize(m); });
  sweep("M.mulvec3x3", &mulvec3x3);
  sweep(
      "M.make_rotations", +[](float a) {
        return std::array{make_rotation_x(a), make_rotation_y(a), make_rotation_z(a)};
      });
  sweep("M.make_rotation_between", &make_rotation_between);
  sweep("M.make_orient", &make_orient);
  sweep("M.make_reflection", &make_reflection);
  sweep(
      "M33.multiply", +[](Matrix33 a, Matrix33 b) { return a * b; });
  sweep("matrix_inverse", &matrix_inverse);
  sweep("matrix_rotation_quaternion", &matrix_rotation_quaternion);
  sweep("matrix_rotation_axis", &matrix_rotation_axis);
  sweep("matrix_rotation_normal", &matrix_rotation_normal);
  sweep("matrix_rotation_zxy", &matrix_rotation_zxy);
  sweep("matrix_rotation_look", &matrix_rotation_look);
  sweep("matrix_transformation_prs", &matrix_transformation_prs);

  sweep("P.through", &plane_through);
  sweep(
      "P.queries", +[](P p, V3 v) {
        return std::array{V3{distance(p, v)}, projected(p, v)};
      });
  sweep(
      "P.near", +[](P a, P b) { return near(a, b); });
  sweep("plane_from_points", &plane_from_points);
  sweep("plane_dist_from_point", &plane_dist_from_point);
  sweep("plane_intersect_line", &plane_intersect_line);
  sweep("plane_intersect_plane", &plane_intersect_plane);
  sweep("plane_intersect_planes", &plane_intersect_planes);
  sweep(
      "RectF", +[](R r, V2 v, float n) {
        return std::array{rect_at(v, {n, n}), r + v, r * n};
      });
  sweep(
      "Aabb", +[](AABB box) {
        return std::array{zeph::center(box), zeph::extents(box)};
      });
  sweep(
      "Aabb.corners", +[](AABB box) { return zeph::corners(box); });
  sweep("aabb_transform", &aabb_transform);

  sweep(
      "Color32", +[](Color32 a, Color32 b, float t) {
        return std::array{lerp(a, b, t), color32_lerp(a, b, t), color32_blend(a, b), color32_multiply(a, b)};
      });
  sweep(
      "ColorF", +[](ColorF a, ColorF b, float t) {
        return std::array{
            a + b, a * t, lerp(a, b, t), clamped(a), color_lerp(a, b, t), color_blend(a, b), color_multiply(a, b)};
      });
  sweep("color_to_color32", &color_to_color32);
  sweep("color_from_color32", &color_from_color32);
  sweep("color_from_rgba", &color_from_rgba);

  std::printf("%d calls %41s %016llx\n", results, "", static_cast<unsigned long long>(total.value()));
}
