// Planes and boxes as native code sees them: thresholds, and what holds for any of them.
#include "math_values.h"

#include <zeph/functions/aabb.h>
#include <zeph/functions/plane.h>
#include <zeph/functions/vector3.h>

namespace zeph::math3d {
namespace {

using Plane = _Plane<float>;

Plane random_plane(Random& random) {
  const Vec3 normal = normalized(random.vector(1.0F));
  return {normal * random.number(0.5F, 2.0F), random.number(-3.0F, 3.0F)};
}

TEST(Planes, BothFamiliesHoldTheirThreePoints) {
  int kept = 0;
  each_round(104, [&](Random& random) {
    const Vec3 p[] = {random.vector(10.0F), random.vector(10.0F), random.vector(10.0F)};
    const Vec3 up = cross(p[1] - p[0], p[2] - p[0]);
    if (length(up) < 0.1F * length(p[1] - p[0]) * length(p[2] - p[0])) {
      return;
    }
    ++kept;
    const Plane by_class = plane_through(p[0], p[1], p[2]);
    const Plane by_function = plane_from_points(p[0], p[1], p[2]);
    for (const float height : {0.0F, 3.0F}) {
      for (const Vec3& corner : p) {
        const Vec3 point = corner + normalized(up) * height;
        ASSERT_NEAR(distance(by_class, point), height, 1e-4F);
        ASSERT_NEAR(plane_dist_from_point(by_function, point), height, 1e-4F);
        ASSERT_NEAR(length(projected(by_class, point) - corner), 0.0F, 1e-4F);
      }
    }
    ASSERT_NEAR(by_class.dist, -by_function.dist, 1e-4F);
  });
  EXPECT_GT(kept, 900);
}

TEST(Planes, DegeneratePointsAndTolerances) {
  // Whichever edge is the longest, a sine of 1e-6 between the two shorter ones decides.
  for (const float height : {1.01e-6F, 0.99e-6F}) {
    const Vec3 p[] = {{0, 0, 0}, {3, 0, 0}, {4, height, 0}};
    for (const std::size_t i : {0U, 1U, 2U}) {
      const float z = height > 1e-6F ? 1.0F : 0.0F;
      expect_floats(plane_through(p[i], p[(i + 1) % 3], p[(i + 2) % 3]), {0, 0, z, 0}, 1e-6F * z);
    }
  }
  expect_floats(plane_from_points({1, 2, 3}, {2, 4, 6}, {3, 6, 9}), {0, 0, 0, 0});

  const Plane plane{{0, 1, 0}, 0};
  EXPECT_TRUE(near(plane, {{1e-6F, 1, kNan}, 0.99e-6F}));
  for (const Plane& other : {Plane{{1.1e-6F, 1, 0}, 0}, Plane{{0, 1, 0}, 1e-6F}, Plane{{0, 1, 0}, kNan}}) {
    EXPECT_FALSE(near(plane, other));
  }
}

TEST(Planes, IntersectionsLieOnTheirPlanes) {
  int kept = 0;
  each_round(105, [&](Random& random) {
    const Plane planes[] = {random_plane(random), random_plane(random), random_plane(random)};
    const auto& [a, b, c] = planes;
    const Vec3 p1 = random.vector(10.0F);
    const Vec3 p2 = random.vector(10.0F);
    const Vec3 along = cross(a.normal, b.normal);
    if (std::fabs(dot(a.normal, p1 - p2)) < 1.0F || length(along) < 0.2F || std::fabs(dot(along, c.normal)) < 0.2F) {
      return;
    }
    ++kept;
    const Vec3 meeting = plane_intersect_line(a, p1, p2).value();
    ASSERT_NEAR(plane_dist_from_point(a, meeting), 0.0F, 1e-3F);
    ASSERT_NEAR(length(cross(normalized(p2 - p1), meeting - p1)), 0.0F, 1e-3F);
    const PointPair line = plane_intersect_plane(a, b).value();
    for (const Vec3& point : {line.first, line.second}) {
      ASSERT_NEAR(plane_dist_from_point(a, point), 0.0F, 1e-3F);
      ASSERT_NEAR(plane_dist_from_point(b, point), 0.0F, 1e-3F);
    }
    const Vec3 common = plane_intersect_planes(a, b, c).value();
    for (const Plane& plane : planes) {
      ASSERT_NEAR(plane_dist_from_point(plane, common), 0.0F, 2e-3F);
    }
  });
  EXPECT_GT(kept, 500);
}

TEST(Planes, NoneAtTheThresholdAndForNan) {
  const Plane floor{{0, 1, 0}, -2};
  const Plane wall{{1, 0, 0}, -3};
  expect_floats(plane_intersect_line(floor, {0, 3, 0}, {0, 4, 0}).value(), {0, 2, 0});
  EXPECT_FALSE(plane_intersect_line(floor, {0, 0, 0}, {9, kFloatEpsilon, 0}));
  EXPECT_TRUE(plane_intersect_line(floor, {0, 0, 0}, {9, 1.01F * kFloatEpsilon, 0}));
  EXPECT_FALSE(plane_intersect_line(floor, {kNan, 0, 0}, {0, 4, 0}));

  expect_floats(plane_intersect_plane(floor, wall).value(), {3, 2, 0, 3, 2, 1});
  expect_floats(plane_intersect_plane(wall, floor).value(), {3, 2, 0, 3, 2, -1});
  // 1.85e-2 ^ 4 lies just below the threshold, 1.86e-2 ^ 4 just above.
  EXPECT_FALSE(plane_intersect_plane({{0, 1.85e-2F, 0}, -2}, {{1.85e-2F, 0, 0}, -3}));
  EXPECT_TRUE(plane_intersect_plane({{0, 1.86e-2F, 0}, -2}, {{1.86e-2F, 0, 0}, -3}));
  EXPECT_FALSE(plane_intersect_plane(floor, {{1, 0, 0}, kNan}));

  expect_floats(plane_intersect_planes(floor, wall, {{0, 0, 1}, -4}).value(), {3, 2, 4});
  EXPECT_FALSE(plane_intersect_planes(floor, wall, {{1, 1, 0}, -4}));
  EXPECT_FALSE(plane_intersect_planes(floor, {{0, 1, 0}, 7}, wall));
}

TEST(Boxes, AabbStoresItsHalfSizeApart) {
  expect_floats(extents(AABB{}), {-1.7014117e38F, -1.7014117e38F, -1.7014117e38F});
  expect_floats(center(AABB{}), {kMax, kMax, kMax});

  AABB box = aabb_around({0, 0, 0}, {2, 4, 6});
  expect_floats(corners(box), {-1, -2, 3,  1, -2, 3,  1, 2, 3,  -1, 2, 3,  //
                               -1, -2, -3, 1, -2, -3, 1, 2, -3, -1, 2, -3});
  box.min = {0, 0, 0};
  box.tag = 7;
  expect_floats(center(box), {1, 2, 3});
  expect_floats(corners(box)[4], {0, 0, 0});
  const AABB same = aabb_transform(box, kIdentityMatrix);
  EXPECT_TRUE(near(same, box) && same.tag == 7);
  expect_floats(same.half_extents, {0.5F, 1, 1.5F});
}

TEST(Boxes, TransformedAabbIsTheBoxOfItsCorners) {
  each_round(106, [](Random& random) {
    const Vec3 middle = random.vector(10.0F);
    const AABB box = aabb_around(middle, vector3_abs(random.vector(10.0F)));
    _Matrix<float> m;
    for (std::size_t e = 0; e < 16; ++e) {
      // A mild perspective in column 3: every corner has its own w, none of them near 0.
      m.elements[e] = e == 15 ? 2.0F : random.number(-2.0F, 2.0F) * (e % 4 == 3 ? 0.03F : 1.0F);
    }
    Vec3 low{kMax, kMax, kMax};
    Vec3 high{-kMax, -kMax, -kMax};
    for (const Vec3& corner : corners(box)) {
      low = vector3_min(low, vector3_transform_coord(corner, m));
      high = vector3_max(high, vector3_transform_coord(corner, m));
    }
    const AABB moved = aabb_transform(box, m);
    const float bound = 1e-5F * (length(low) + length(high));
    EXPECT_LT(length(moved.min - low) + length(moved.max - high), bound);
    EXPECT_LT(length(moved.half_extents - (high - low) * 0.5F), bound);
  });
}

}  // namespace
}  // namespace zeph::math3d
