/// Text of floats, six places after the point: what to_string writes and from_string reads.
#pragma once

#include <algorithm>
#include <array>
#include <concepts>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>

#include <zeph/binding/result.h>

namespace zeph::math3d {

using binding::LimitedText;

/// printf into a text of at most kLimit bytes, the terminator included; what is longer is cut.
template <std::size_t kLimit, typename... Values>
LimitedText<kLimit> print_limited(const char* format, Values... values) noexcept {
  LimitedText<kLimit> text;
  const int size = std::snprintf(text.text, kLimit, format, values...);
  text.size = size < 0 ? 0 : std::min(static_cast<std::size_t>(size), kLimit - 1);
  return text;
}

/// What tostring gives for a value of a class: 99 characters at most.
using ClassText = LimitedText<100>;
/// print_limited for a ClassText of floats alone.
template <std::same_as<float>... Floats>
ClassText print_floats(const char* format, Floats... values) noexcept {
  return print_limited<100>(format, static_cast<double>(values)...);
}

/// The text that printing and reading back leaves unchanged. Values between -0.0001 and 0.0001 count as 0.
inline LimitedText<256> float_text(float value) noexcept {
  if (-0.0001F < value && value < 0.0001F) {
    value = 0.0F;
  }
  const auto once = print_limited<256>("%f", static_cast<double>(value));
  return print_limited<256>("%f", static_cast<double>(static_cast<float>(std::atof(once.text))));
}

/// The texts of the values, joined by commas.
template <std::size_t kCount>
LimitedText<256> join_floats(const std::array<float, kCount>& values) noexcept {
  LimitedText<256> joined;
  for (std::size_t i = 0; i < kCount; ++i) {
    const auto text = float_text(values[i]);
    const std::size_t room = sizeof joined.text - 1 - joined.size;
    const int printed = std::snprintf(joined.text + joined.size, room + 1, i == 0 ? "%s" : ",%s", text.text);
    joined.size += std::min(static_cast<std::size_t>(printed), room);
  }
  return joined;
}

/// Reads kCount numbers between commas; a number that is none is 0, and what follows the last is ignored. A piece
/// before a comma counts up to kPieceLimit characters. Nothing if there are fewer commas than it takes.
template <std::size_t kCount, std::size_t kPieceLimit>
std::optional<std::array<float, kCount>> split_floats(const char* text) noexcept {
  std::array<float, kCount> values{};
  for (std::size_t i = 0; i + 1 < kCount; ++i) {
    const char* comma = std::strchr(text, ',');
    if (comma == nullptr) {
      return std::nullopt;
    }
    char piece[kPieceLimit + 1];
    const std::size_t size = std::min(static_cast<std::size_t>(comma - text), kPieceLimit);
    std::memcpy(piece, text, size);
    piece[size] = '\0';
    values[i] = static_cast<float>(std::atof(piece));
    text = comma + 1;
  }
  values[kCount - 1] = static_cast<float>(std::atof(text));
  return values;
}

}  // namespace zeph::math3d
