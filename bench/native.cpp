#include "native.h"

#define GLM_FORCE_INTRINSICS
#define GLM_ENABLE_EXPERIMENTAL
#include <benchmark/benchmark.h>
#include <zeph/functions/quaternion.h>
#include <zeph/functions/vector3.h>
#include <zeph/functions/vector4.h>
#include <zeph/math3d/matrix_decomposition.h>
#include <zeph/math3d/matrix_transforms.h>

#include <Eigen/Dense>
#include <array>
#include <cstddef>
#include <cstring>
#include <glm/glm.hpp>
#include <glm/gtc/quaternion.hpp>
#include <glm/gtc/type_aligned.hpp>
#include <glm/gtx/matrix_decompose.hpp>
#include <memory>
#include <random>
#include <vector>

namespace {

namespace ours = zeph::math3d;

/// So many of each fit the first cache, and no store falls on a load soon to come modulo 4096.
constexpr std::size_t kCount = 120;

/// Sixteen numbers of an affine matrix near a rotation, alike for all sides.
std::array<float, 16> numbers(std::size_t seed) {
  std::mt19937 random(static_cast<unsigned>(seed));
  std::uniform_real_distribution<float> any(-1.0F, 1.0F);
  const auto q = ours::quaternion_rotation_axis({any(random), any(random), 1.5F + any(random)}, any(random) * 3.0F);
  auto m = ours::matrix_from_rotation(q);
  ours::set_scale(m, {1.5F + any(random), 1.5F + any(random), 1.5F + any(random)});
  ours::set_translation(m, {any(random), any(random), any(random)});
  std::array<float, 16> result;
  std::copy_n(m.elements, 16, result.begin());
  return result;
}
/// A unit quaternion.
std::array<float, 4> unit(std::size_t seed) {
  const auto m = numbers(seed);
  const auto q = ours::normalized(ours::_Rotation<float>{m[0], m[1], m[4], m[5]});
  return {q.x, q.y, q.z, q.w};
}

/// A value of a side's type from numbers; all of these types lay them out in the same order.
template <typename T, typename Numbers>
T from(const Numbers& numbers) {
  T value;
  static_assert(sizeof(T) <= sizeof numbers);
  std::memcpy(static_cast<void*>(&value), numbers.data(), sizeof(T));
  return value;
}

/// Times `out[i] = operation(a[i], b[i])`, with kOneB `operation(a[i], first)` of the first b.
template <typename A, typename B, bool kOneB = false, typename Make, typename MakeB, typename Operation>
void add(const std::string& filter, const std::string& name, Make make_a, MakeB make_b, Operation operation) {
  if (name.find(filter) == std::string::npos) {
    return;
  }
  benchmark::RegisterBenchmark(name.c_str(), [=](benchmark::State& state) {
    std::vector<A> a;
    std::vector<B> b;
    a.reserve(kCount);
    b.reserve(kCount);
    for (std::size_t i = 0; i < kCount; ++i) {
      a.push_back(from<A>(make_a(i)));
      b.push_back(from<B>(make_b(kCount + i)));
    }
    std::vector<std::decay_t<decltype(operation(a[0], b[0]))>> out(kCount);
    while (state.KeepRunningBatch(kCount)) {
      if constexpr (kOneB) {
        const B first = b[0];
        for (std::size_t i = 0; i < out.size(); ++i) {
          out[i] = operation(a[i], first);
        }
      } else {
        for (std::size_t i = 0; i < out.size(); ++i) {
          out[i] = operation(a[i], b[i]);
        }
      }
      benchmark::DoNotOptimize(out.data());
      benchmark::ClobberMemory();
    }
  });
}

/// A matrix of ours where an engine keeps it aligned, as GLM's aligned types and Eigen's are.
struct alignas(16) AlignedMatrix : ours::_Matrix<float> {};

struct GlmParts {
  glm::vec3 scale, translation, skew;
  glm::quat rotation;
  glm::vec4 perspective;
};
struct EigenParts {
  Eigen::Matrix3f rotation, scaling;
};

}  // namespace

void add_native_benchmarks(const std::string& filter) {
  using V = ours::_Vector3<float>;
  using Q = ours::_Rotation<float>;
  using M = ours::_Matrix<float>;
  using Transform = Eigen::Transform<float, 3, Eigen::Affine>;

  const auto multiply = [](const auto& a, const auto& b) { return a * b; };
  add<M, M>(filter, "native matrix multiply|ours", numbers, numbers, multiply);
  add<glm::mat4, glm::mat4>(filter, "native matrix multiply|glm", numbers, numbers, multiply);
  add<glm::aligned_mat4, glm::aligned_mat4>(filter, "native matrix multiply|glm simd", numbers, numbers, multiply);
  add<Eigen::Matrix4f, Eigen::Matrix4f>(filter, "native matrix multiply|eigen", numbers, numbers,
                                        [](const auto& a, const auto& b) -> Eigen::Matrix4f { return a * b; });

  add<M, M>(filter, "native matrix inverse|ours", numbers, numbers,
            [](const M& a, const M&) { return ours::inverse(a); });
  const auto glm_inverse = [](const auto& a, const auto&) { return glm::inverse(a); };
  add<glm::mat4, glm::mat4>(filter, "native matrix inverse|glm", numbers, numbers, glm_inverse);
  add<glm::aligned_mat4, glm::aligned_mat4>(filter, "native matrix inverse|glm simd", numbers, numbers, glm_inverse);
  add<Eigen::Matrix4f, Eigen::Matrix4f>(filter, "native matrix inverse|eigen", numbers, numbers,
                                        [](const auto& a, const auto&) -> Eigen::Matrix4f { return a.inverse(); });

  add<Q, Q>(filter, "native quaternion multiply|ours", unit, unit, multiply);
  add<glm::quat, glm::quat>(filter, "native quaternion multiply|glm", unit, unit, multiply);
  using AlignedQuat = glm::qua<float, glm::aligned_highp>;
  add<AlignedQuat, AlignedQuat>(filter, "native quaternion multiply|glm simd", unit, unit, multiply);
  add<Eigen::Quaternionf, Eigen::Quaternionf>(filter, "native quaternion multiply|eigen", unit, unit, multiply);

  const auto glm_point = [](const auto& v, const auto& m) { return glm::vec3(m * glm::vec4(v, 1.0F)); };
  const auto glm_aligned_point = [](const auto& v, const auto& m) { return glm::vec3(m * glm::aligned_vec4(v, 1.0F)); };
  const auto eigen_point = [](const auto& v, const auto& m) -> Eigen::Vector3f { return m * v; };
  add<V, M>(filter, "native point transform|ours", unit, numbers, multiply);
  add<V, AlignedMatrix>(filter, "native point transform|aligned", unit, numbers,
                        [](const V& v, const AlignedMatrix& m) { return v * *std::assume_aligned<16>(&m); });
  add<glm::vec3, glm::mat4>(filter, "native point transform|glm", unit, numbers, glm_point);
  add<glm::vec3, glm::aligned_mat4>(filter, "native point transform|glm simd", unit, numbers, glm_aligned_point);
  add<Eigen::Vector3f, Transform>(filter, "native point transform|eigen", unit, numbers, eigen_point);

  // Many points by one matrix, as they mostly come: the matrix is given by the first.
  const auto first = [](std::size_t) { return numbers(kCount); };
  add<V, M, true>(filter, "native points by one matrix|ours", unit, first, multiply);
  add<glm::vec3, glm::mat4, true>(filter, "native points by one matrix|glm", unit, first, glm_point);
  add<glm::vec3, glm::aligned_mat4, true>(filter, "native points by one matrix|glm simd", unit, first,
                                          glm_aligned_point);
  add<Eigen::Vector3f, Transform, true>(filter, "native points by one matrix|eigen", unit, first, eigen_point);

  add<V, M>(filter, "native normal transform|ours", unit, numbers,
            [](const V& v, const M& m) { return ours::vector3_transform_normal(v, m); });
  add<glm::vec3, glm::mat4>(filter, "native normal transform|glm", unit, numbers,
                            [](const auto& v, const auto& m) { return glm::vec3(m * glm::vec4(v, 0.0F)); });
  add<glm::vec3, glm::aligned_mat4>(
      filter, "native normal transform|glm simd", unit, numbers,
      [](const auto& v, const auto& m) { return glm::vec3(m * glm::aligned_vec4(v, 0.0F)); });
  add<Eigen::Vector3f, Transform>(filter, "native normal transform|eigen", unit, numbers,
                                  [](const auto& v, const auto& m) -> Eigen::Vector3f { return m.linear() * v; });

  using V4 = ours::Vector4<float>;
  add<V4, M>(filter, "native vector of four|ours", unit, numbers,
             [](const V4& v, const M& m) { return ours::vector4_transform(v, m); });
  const auto column_vector = [](const auto& v, const auto& m) { return m * v; };
  add<glm::vec4, glm::mat4>(filter, "native vector of four|glm", unit, numbers, column_vector);
  add<glm::aligned_vec4, glm::aligned_mat4>(filter, "native vector of four|glm simd", unit, numbers, column_vector);
  add<Eigen::Vector4f, Eigen::Matrix4f>(filter, "native vector of four|eigen", unit, numbers,
                                        [](const auto& v, const auto& m) -> Eigen::Vector4f { return m * v; });

  add<V, M>(filter, "native projection|ours", unit, numbers,
            [](const V& v, const M& m) { return ours::vector3_transform_coord(v, m); });
  add<glm::vec3, glm::mat4>(filter, "native projection|glm", unit, numbers, [](const auto& v, const auto& m) {
    const auto projected = m * glm::vec4(v, 1.0F);
    return glm::vec3(projected) / projected.w;
  });
  add<glm::vec3, glm::aligned_mat4>(filter, "native projection|glm simd", unit, numbers,
                                    [](const auto& v, const auto& m) {
                                      const auto projected = m * glm::aligned_vec4(v, 1.0F);
                                      return glm::vec3(projected / projected.w);
                                    });
  add<Eigen::Vector3f, Eigen::Matrix4f>(filter, "native projection|eigen", unit, numbers,
                                        [](const auto& v, const auto& m) -> Eigen::Vector3f {
                                          const Eigen::Vector4f projected = m * v.homogeneous();
                                          return projected.template head<3>() / projected.w();
                                        });

  add<Q, Q>(filter, "native slerp|ours", unit, unit, [](const Q& a, const Q& b) { return ours::slerp(a, b, 0.25F); });
  add<glm::quat, glm::quat>(filter, "native slerp|glm", unit, unit,
                            [](const auto& a, const auto& b) { return glm::slerp(a, b, 0.25F); });
  add<Eigen::Quaternionf, Eigen::Quaternionf>(filter, "native slerp|eigen", unit, unit,
                                              [](const auto& a, const auto& b) { return a.slerp(0.25F, b); });

  add<M, M>(filter, "native decomposition|ours", numbers, numbers,
            [](const M& m, const M&) { return ours::decompose(m); });
  add<glm::mat4, glm::mat4>(filter, "native decomposition|glm", numbers, numbers, [](const auto& m, const auto&) {
    GlmParts parts;
    glm::decompose(m, parts.scale, parts.rotation, parts.translation, parts.skew, parts.perspective);
    return parts;
  });
  add<Transform, Transform>(filter, "native decomposition|eigen", numbers, numbers, [](const auto& m, const auto&) {
    EigenParts parts;
    m.computeRotationScaling(&parts.rotation, &parts.scaling);
    return parts;
  });
}
