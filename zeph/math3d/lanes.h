/// Four floats that one instruction takes together. Each lane is rounded as a float by itself would be, so that no bit
/// depends on how many lanes the processor has.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace zeph::math3d {

/// As an array: what constant expressions can take, and what compilers get that know no vectors.
struct PlainLanes {
  float lane[4]{};

  static constexpr PlainLanes load(const float* from) noexcept { return {{from[0], from[1], from[2], from[3]}}; }
  /// Zeros for the others. One load where the numbers stand one after the other in memory.
  static constexpr PlainLanes of(float x, float y) noexcept { return {{x, y}}; }
  static constexpr PlainLanes all(float value) noexcept { return {{value, value, value, value}}; }
  constexpr void store(float* to) const noexcept {
    for (std::size_t i = 0; i < 4; ++i) {
      to[i] = lane[i];
    }
  }
  [[nodiscard]] constexpr float operator[](std::size_t i) const noexcept { return lane[i]; }
};
[[nodiscard]] constexpr PlainLanes operator+(const PlainLanes& a, const PlainLanes& b) noexcept {
  return {{a[0] + b[0], a[1] + b[1], a[2] + b[2], a[3] + b[3]}};
}
[[nodiscard]] constexpr PlainLanes operator-(const PlainLanes& a, const PlainLanes& b) noexcept {
  return {{a[0] - b[0], a[1] - b[1], a[2] - b[2], a[3] - b[3]}};
}
[[nodiscard]] constexpr PlainLanes operator*(const PlainLanes& a, const PlainLanes& b) noexcept {
  return {{a[0] * b[0], a[1] * b[1], a[2] * b[2], a[3] * b[3]}};
}
[[nodiscard]] constexpr PlainLanes operator/(const PlainLanes& a, const PlainLanes& b) noexcept {
  return {{a[0] / b[0], a[1] / b[1], a[2] / b[2], a[3] / b[3]}};
}
[[nodiscard]] constexpr PlainLanes operator-(const PlainLanes& a) noexcept { return {{-a[0], -a[1], -a[2], -a[3]}}; }
/// Lanes k0 and k1 of a, then k2 and k3 of b.
template <std::size_t k0, std::size_t k1, std::size_t k2, std::size_t k3>
[[nodiscard]] constexpr PlainLanes shuffled(const PlainLanes& a, const PlainLanes& b) noexcept {
  return {{a[k0], a[k1], b[k2], b[k3]}};
}
/// Lanes of one value in another order.
template <std::size_t k0, std::size_t k1, std::size_t k2, std::size_t k3>
[[nodiscard]] constexpr PlainLanes shuffled(const PlainLanes& a) noexcept {
  return {{a[k0], a[k1], a[k2], a[k3]}};
}
/// The lanes whose flag is set with the other sign.
template <bool kMinus0, bool kMinus1, bool kMinus2, bool kMinus3>
[[nodiscard]] constexpr PlainLanes negated(const PlainLanes& a) noexcept {
  return {{kMinus0 ? -a[0] : a[0], kMinus1 ? -a[1] : a[1], kMinus2 ? -a[2] : a[2], kMinus3 ? -a[3] : a[3]}};
}

#if defined(__has_builtin) && defined(__GNUC__)
#if __has_builtin(__builtin_shufflevector)
#define ZEPH_MATH3D_VECTOR_LANES
#endif
#endif

#ifdef ZEPH_MATH3D_VECTOR_LANES
/// As a vector of the compiler's.
struct Lanes {
  using Vector [[gnu::vector_size(16)]] = float;
  using Bits [[gnu::vector_size(16)]] = std::uint32_t;
  using Half [[gnu::vector_size(8)]] = float;
  using Pair [[gnu::vector_size(16)]] = double;
  Vector vector;

  static Lanes load(const float* from) noexcept {
    Lanes lanes;
    std::memcpy(&lanes.vector, from, sizeof lanes.vector);
    return lanes;
  }
  static Lanes of(float x, float y) noexcept {
    return {std::bit_cast<Vector>(Pair{std::bit_cast<double>(Half{x, y}), 0.0})};
  }
  static Lanes all(float value) noexcept { return {Vector{value, value, value, value}}; }
  void store(float* to) const noexcept { std::memcpy(to, &vector, sizeof vector); }
  [[nodiscard]] float operator[](std::size_t i) const noexcept { return vector[i]; }
};
[[nodiscard]] inline Lanes operator+(const Lanes& a, const Lanes& b) noexcept { return {a.vector + b.vector}; }
[[nodiscard]] inline Lanes operator-(const Lanes& a, const Lanes& b) noexcept { return {a.vector - b.vector}; }
[[nodiscard]] inline Lanes operator*(const Lanes& a, const Lanes& b) noexcept { return {a.vector * b.vector}; }
[[nodiscard]] inline Lanes operator/(const Lanes& a, const Lanes& b) noexcept { return {a.vector / b.vector}; }
[[nodiscard]] inline Lanes operator-(const Lanes& a) noexcept { return {-a.vector}; }
template <std::size_t k0, std::size_t k1, std::size_t k2, std::size_t k3>
[[nodiscard]] inline Lanes shuffled(const Lanes& a, const Lanes& b) noexcept {
  return {__builtin_shufflevector(a.vector, b.vector, k0, k1, 4 + k2, 4 + k3)};
}
/// As integers, since g++ has an instruction for those that leaves a as it is, and copies a beforehand otherwise.
template <std::size_t k0, std::size_t k1, std::size_t k2, std::size_t k3>
[[nodiscard]] inline Lanes shuffled(const Lanes& a) noexcept {
  const auto bits = std::bit_cast<Lanes::Bits>(a.vector);
  return {std::bit_cast<Lanes::Vector>(__builtin_shufflevector(bits, bits, k0, k1, k2, k3))};
}
template <bool kMinus0, bool kMinus1, bool kMinus2, bool kMinus3>
[[nodiscard]] inline Lanes negated(const Lanes& a) noexcept {
  constexpr Lanes::Bits kSigns = {kMinus0 ? 1U << 31U : 0U, kMinus1 ? 1U << 31U : 0U, kMinus2 ? 1U << 31U : 0U,
                                  kMinus3 ? 1U << 31U : 0U};
  return {std::bit_cast<Lanes::Vector>(std::bit_cast<Lanes::Bits>(a.vector) ^ kSigns)};
}
#else
using Lanes = PlainLanes;
#endif

template <std::size_t k, typename L>
[[nodiscard]] constexpr L spread(const L& a) noexcept {
  return shuffled<k, k, k, k>(a);
}

}  // namespace zeph::math3d
