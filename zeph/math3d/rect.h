/// Axis-aligned rectangle by its edges, and the four edge offsets of the same shape.
/// x grows from left to right, y from top to bottom. Nothing keeps the edges in order: a size may be negative.
#pragma once

#include <type_traits>

#include <zeph/export.h>
#include <zeph/math3d/vector2.h>

namespace zeph::math3d {

template <typename Scalar>
struct ZEPH_MATH3D_API _Rect {
  Scalar left{};
  Scalar top{};
  Scalar right{};
  Scalar bottom{};
};
static_assert(sizeof(_Rect<float>) == 16 && std::is_trivially_copyable_v<_Rect<float>>);

/// Distances from the four edges of some rectangle.
struct ZEPH_MATH3D_API RectOffset {
  float left{};
  float top{};
  float right{};
  float bottom{};
};
static_assert(sizeof(RectOffset) == 16 && std::is_trivially_copyable_v<RectOffset>);

/// Rectangle of a size, not of a far corner, from its left top corner.
[[nodiscard]] constexpr _Rect<float> rect_at(const _Point2<float>& position, const _Point2<float>& size) noexcept {
  return {position.x, position.y, position.x + size.x, position.y + size.y};
}

/// Exact: a NaN edge makes any two rectangles unequal.
[[nodiscard]] constexpr bool operator==(const _Rect<float>& a, const _Rect<float>& b) noexcept {
  return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

/// Moved by an offset.
[[nodiscard]] constexpr _Rect<float> operator+(const _Rect<float>& rect, const _Point2<float>& offset) noexcept {
  return {rect.left + offset.x, rect.top + offset.y, rect.right + offset.x, rect.bottom + offset.y};
}
/// Scaled about the origin, position and size alike; a negative factor swaps the edges.
[[nodiscard]] constexpr _Rect<float> operator*(const _Rect<float>& rect, float n) noexcept {
  return {rect.left * n, rect.top * n, rect.right * n, rect.bottom * n};
}

[[nodiscard]] constexpr _Point2<float> min_corner(const _Rect<float>& rect) noexcept { return {rect.left, rect.top}; }
[[nodiscard]] constexpr _Point2<float> max_corner(const _Rect<float>& rect) noexcept {
  return {rect.right, rect.bottom};
}
[[nodiscard]] constexpr float width(const _Rect<float>& rect) noexcept { return rect.right - rect.left; }
[[nodiscard]] constexpr float height(const _Rect<float>& rect) noexcept { return rect.bottom - rect.top; }

/// Moves left and top; the far corner stays, so the size changes.
constexpr void set_min_corner(_Rect<float>& rect, const _Point2<float>& corner) noexcept {
  rect.left = corner.x;
  rect.top = corner.y;
}
/// Moves right and bottom; the near corner stays, so the size changes.
constexpr void set_max_corner(_Rect<float>& rect, const _Point2<float>& corner) noexcept {
  rect.right = corner.x;
  rect.bottom = corner.y;
}
/// Moves right; left stays.
constexpr void set_width(_Rect<float>& rect, float width) noexcept { rect.right = rect.left + width; }
/// Moves bottom; top stays.
constexpr void set_height(_Rect<float>& rect, float height) noexcept { rect.bottom = rect.top + height; }

}  // namespace zeph::math3d
