/// Colour functions: color32_* on bytes with 255 as full scale, in integers but where a formula says float, and color_*
/// on floats with 1 as full scale. The two families blend in opposite senses. Words are 0xAARRGGBB.
#pragma once

#include <cstdint>

#include <zeph/math3d/color.h>

namespace zeph::math3d {

/// Each argument cut to its low 8 bits.
[[nodiscard]] constexpr Color32 color32_from_rgba(std::int32_t r, std::int32_t g, std::int32_t b,
                                                  std::int32_t a) noexcept {
  const auto byte = [](std::int32_t value) { return low_byte(static_cast<std::uint32_t>(value)); };
  return {.b = byte(b), .g = byte(g), .r = byte(r), .a = byte(a)};
}
[[nodiscard]] constexpr Color32 color32_from_int(std::uint32_t word) noexcept { return from_word(word); }
[[nodiscard]] constexpr std::uint32_t color32_to_int(const Color32& color) noexcept { return to_word(color); }
[[nodiscard]] constexpr Color32 color32_black() noexcept { return {.b = 0, .g = 0, .r = 0, .a = 255}; }
[[nodiscard]] constexpr Color32 color32_white() noexcept { return {}; }

/// a * (1 - t) + b * t in float on each channel, cut towards zero and saturated. A sum that no signed 32-bit integer
/// can hold gives 0, on the upper side too, and so does a NaN. Rounds otherwise than lerp.
[[nodiscard]] constexpr Color32 color32_lerp(const Color32& a, const Color32& b, float t) noexcept {
  const auto channel = [t](unsigned char from, unsigned char to) {
    constexpr float integer_limit = 2147483648.0F;
    const float sum = static_cast<float>(from) * (1.0F - t) + static_cast<float>(to) * t;
    return sum < integer_limit ? saturated_byte(sum) : low_byte(0);
  };
  return {.b = channel(a.b, b.b), .g = channel(a.g, b.g), .r = channel(a.r, b.r), .a = channel(a.a, b.a)};
}

/// b over a: (a * (255 - b.a) + b * b.a) / 255, and a.a * b.a / 255 for the alpha; quotients cut. An opaque b shows b.
[[nodiscard]] constexpr Color32 color32_blend(const Color32& a, const Color32& b) noexcept {
  const std::uint32_t weight = b.a;
  const auto channel = [weight](std::uint32_t under, std::uint32_t over) {
    return low_byte((under * (255U - weight) + over * weight) / 255U);
  };
  return {.b = channel(a.b, b.b), .g = channel(a.g, b.g), .r = channel(a.r, b.r), .a = low_byte(a.a * weight / 255U)};
}

/// a * b / 256 on all channels, cut: white times white is 254.
[[nodiscard]] constexpr Color32 color32_multiply(const Color32& a, const Color32& b) noexcept {
  const auto channel = [](std::uint32_t x, std::uint32_t y) { return low_byte(x * y >> 8); };
  return {.b = channel(a.b, b.b), .g = channel(a.g, b.g), .r = channel(a.r, b.r), .a = channel(a.a, b.a)};
}

/// Each argument / 255, neither cut to a byte nor clamped.
[[nodiscard]] constexpr ColorF color_from_rgba(std::int32_t r, std::int32_t g, std::int32_t b,
                                               std::int32_t a) noexcept {
  const auto channel = [](std::int32_t value) { return static_cast<float>(value) / 255.0F; };
  return {channel(r), channel(g), channel(b), channel(a)};
}
[[nodiscard]] constexpr ColorF color_from_color32(const Color32& color) noexcept { return to_color_f(color); }
[[nodiscard]] constexpr Color32 color_to_color32(const ColorF& color) noexcept { return to_color32(color); }
[[nodiscard]] constexpr ColorF color_from_int(std::uint32_t word) noexcept { return to_color_f(from_word(word)); }
[[nodiscard]] constexpr std::uint32_t color_to_int(const ColorF& color) noexcept { return to_word(to_color32(color)); }
[[nodiscard]] constexpr ColorF color_white() noexcept { return {}; }
[[nodiscard]] constexpr ColorF color_black() noexcept { return {0.0F, 0.0F, 0.0F, 1.0F}; }

/// (1 - t) * a + b * t on all channels; neither t nor the result is clamped. Rounds otherwise than lerp.
[[nodiscard]] constexpr ColorF color_lerp(const ColorF& a, const ColorF& b, float t) noexcept {
  const auto channel = [t](float from, float to) { return (1.0F - t) * from + to * t; };
  return {channel(a.r, b.r), channel(a.g, b.g), channel(a.b, b.b), channel(a.a, b.a)};
}

/// b.a * a + (1 - b.a) * b, and b.a * a.a for the alpha: an opaque b shows a, the reverse of color32_blend.
[[nodiscard]] constexpr ColorF color_blend(const ColorF& a, const ColorF& b) noexcept {
  const float t = b.a;
  const auto channel = [t](float x, float y) { return t * x + (1.0F - t) * y; };
  return {channel(a.r, b.r), channel(a.g, b.g), channel(a.b, b.b), t * a.a};
}

/// a * b on all channels.
[[nodiscard]] constexpr ColorF color_multiply(const ColorF& a, const ColorF& b) noexcept {
  return {a.r * b.r, a.g * b.g, a.b * b.b, a.a * b.a};
}

}  // namespace zeph::math3d
