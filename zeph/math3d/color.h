/// Byte and float colours, and the way between them. The integer form of a colour is the word 0xAARRGGBB.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include <zeph/export.h>
#include <zeph/math3d/single.h>

namespace zeph::math3d {

/// Four bytes that read as one little-endian word 0xAARRGGBB. Opaque white as built.
struct ZEPH_MATH3D_API Color32 {
  unsigned char b{255};
  unsigned char g{255};
  unsigned char r{255};
  unsigned char a{255};
};
static_assert(sizeof(Color32) == 4 && std::is_trivially_copyable_v<Color32>);
static_assert(offsetof(Color32, b) == 0 && offsetof(Color32, g) == 1 && offsetof(Color32, r) == 2 &&
              offsetof(Color32, a) == 3);

/// Full scale is 1, and nothing holds a channel there. Opaque white as built.
struct ZEPH_MATH3D_API ColorF {
  float r{1.0F};
  float g{1.0F};
  float b{1.0F};
  float a{1.0F};
};
static_assert(sizeof(ColorF) == 16 && std::is_trivially_copyable_v<ColorF>);
static_assert(offsetof(ColorF, r) == 0 && offsetof(ColorF, g) == 4 && offsetof(ColorF, b) == 8 &&
              offsetof(ColorF, a) == 12);

/// The low 8 bits.
[[nodiscard]] constexpr unsigned char low_byte(std::uint32_t value) noexcept {
  return static_cast<unsigned char>(value & 0xFFU);
}
/// Cut towards zero and held in 0..255; a NaN gives 0.
[[nodiscard]] constexpr unsigned char saturated_byte(float value) noexcept {
  return static_cast<unsigned char>(lesser(greater(value, 0.0F), 255.0F));
}

[[nodiscard]] constexpr std::uint32_t to_word(const Color32& color) noexcept {
  return std::uint32_t{color.a} << 24 | std::uint32_t{color.r} << 16 | std::uint32_t{color.g} << 8 | color.b;
}
[[nodiscard]] constexpr Color32 from_word(std::uint32_t word) noexcept {
  return {.b = low_byte(word), .g = low_byte(word >> 8), .r = low_byte(word >> 16), .a = low_byte(word >> 24)};
}

/// Each channel c as c * 255 + 0.5 cut to a byte: rounded half up and saturated, NaN to 0.
[[nodiscard]] constexpr Color32 to_color32(const ColorF& color) noexcept {
  const auto byte = [](float channel) { return saturated_byte(channel * 255.0F + 0.5F); };
  return {.b = byte(color.b), .g = byte(color.g), .r = byte(color.r), .a = byte(color.a)};
}
/// Each byte / 255, so 255 is exactly 1.
[[nodiscard]] constexpr ColorF to_color_f(const Color32& color) noexcept {
  const auto channel = [](unsigned char byte) { return static_cast<float>(byte) / 255.0F; };
  return {channel(color.r), channel(color.g), channel(color.b), channel(color.a)};
}

[[nodiscard]] constexpr bool operator==(const Color32& a, const Color32& b) noexcept {
  return to_word(a) == to_word(b);
}
/// Exact: a NaN channel makes any two colours unequal.
[[nodiscard]] constexpr bool operator==(const ColorF& a, const ColorF& b) noexcept {
  return a.r == b.r && a.g == b.g && a.b == b.b && a.a == b.a;
}

/// Sum of r, g and b; the alpha is that of a.
[[nodiscard]] constexpr ColorF operator+(const ColorF& a, const ColorF& b) noexcept {
  return {a.r + b.r, a.g + b.g, a.b + b.b, a.a};
}
/// r, g and b times n; the alpha stays.
[[nodiscard]] constexpr ColorF operator*(const ColorF& color, float n) noexcept {
  return {color.r * n, color.g * n, color.b * n, color.a};
}

/// (b - a) * t + a on each channel, cut to a byte: t is not clamped, the result saturates, NaN gives 0.
[[nodiscard]] constexpr Color32 lerp(const Color32& a, const Color32& b, float t) noexcept {
  const auto channel = [t](int from, int to) {
    return saturated_byte(static_cast<float>(to - from) * t + static_cast<float>(from));
  };
  return {.b = channel(a.b, b.b), .g = channel(a.g, b.g), .r = channel(a.r, b.r), .a = channel(a.a, b.a)};
}
/// (b - a) * t + a on each channel; neither t nor the result is clamped.
[[nodiscard]] constexpr ColorF lerp(const ColorF& a, const ColorF& b, float t) noexcept {
  const auto channel = [t](float from, float to) { return (to - from) * t + from; };
  return {channel(a.r, b.r), channel(a.g, b.g), channel(a.b, b.b), channel(a.a, b.a)};
}

/// r, g and b held in 0..1, a NaN kept; the alpha stays.
[[nodiscard]] constexpr ColorF clamped(const ColorF& color) noexcept {
  const auto held = [](float channel) { return 0.0F > channel ? 0.0F : lesser(1.0F, channel); };
  return {held(color.r), held(color.g), held(color.b), color.a};
}

}  // namespace zeph::math3d
