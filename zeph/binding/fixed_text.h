/// Text as a template argument: script names and field keys are types, so that tables of them check themselves.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace zeph::binding {

template <std::size_t N>
struct FixedText {
  char text[N]{};

  consteval FixedText(const char (&literal)[N]) { std::copy_n(literal, N, text); }  // NOLINT: a literal is one
  [[nodiscard]] constexpr std::string_view view() const { return {text, N - 1}; }
};

template <std::size_t N, std::size_t M>
[[nodiscard]] constexpr bool operator==(const FixedText<N>& a, const FixedText<M>& b) {
  return a.view() == b.view();
}

}  // namespace zeph::binding
