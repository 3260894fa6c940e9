/// Optional argument of a native function.
#pragma once

namespace zeph::binding {

/// A script may leave the argument out or pass nil; then `value` is zero.
template <typename T>
struct Nullable {
  T value{};
  bool has_value = false;

  [[nodiscard]] constexpr T value_or(T fallback) const noexcept { return has_value ? value : fallback; }
};

}  // namespace zeph::binding
