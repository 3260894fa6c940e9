-- plane_*: planes of dot(normal, p) + dist == 0, the opposite of the class's sign.
require "math3d"
local t = require "harness"
local raises = t.raises
local nan = 0 / 0
local v, p = math3d.Vector3.new, math3d.Plane.new

local floor, wall, front = p(0, 1, 0, -2), p(1, 0, 0, -3), p(0, 0, 1, -4)
local ground, epsilon = p(0, 1, 0, 0), t.float(1.1920929e-7)

-- Zeros of either sign are alike here.
t.calls(math3d, {
  {"plane_from_point_normal", {v(1, 2, 3), v(0, 2, 0)}, p(0, 2, 0, -4)},
  {"plane_from_points", {v(0, 2, 0), v(1, 2, 0), v(0, 2, 1)}, p(0, -1, 0, 2)},
  {"plane_from_points", {v(0, 2, 0), v(0, 2, 1), v(1, 2, 0)}, floor},
  {"plane_from_points", {v(1, 1, 1), v(1, 1, 1), v(1, 1, 1)}, p()},
  {"plane_from_points", {v(1e15, 0, 0), v(0, 1e15, 0), v(0, 0, 1e15)}, p(nan, nan, nan, nan)},
  {"plane_dist_from_point", {p(0, 2, 0, -2), v(1, 5, 1)}, 8.0},
  {"plane_intersect_line", {floor, v(0, 3, 0), v(0, 4, 0)}, v(0, 2, 0)},
  {"plane_intersect_line", {floor, v(), v(4, 0, 0)}}, {"plane_intersect_line", {floor, v(1, 1, 1), v(1, 1, 1)}},
  {"plane_intersect_line", {ground, v(5, 0, 0), v(6, epsilon, 0)}},
  {"plane_intersect_line", {ground, v(5, 0, 0), v(6, 2 * epsilon, 0)}, v(5, 0, 0)},
  {"plane_intersect_line", {floor, v(nan, 0, 0), v(0, 4, 0)}},
  {"plane_intersect_plane", {floor, wall}, v(3, 2, 0), v(3, 2, 1)},
  {"plane_intersect_plane", {wall, floor}, v(3, 2, 0), v(3, 2, -1)},
  {"plane_intersect_plane", {floor, p(0, 1, 0, 9)}}, {"plane_intersect_plane", {floor, p(1, 0, 0, nan)}},
  {"plane_intersect_plane", {p(0, 2e-4, 0, -2), p(2e-4, 0, 0, -3)}},
  {"plane_intersect_planes", {floor, wall, front}, v(3, 2, 4)},
  {"plane_intersect_planes", {floor, wall, p(1, 1, 0, -4)}}, {"plane_intersect_planes", {floor, ground, front}},
}, 0)

-- The two families take the same four numbers for planes on opposite sides of the origin.
local plane = p(v(0, 1, 0), v(0, 5, 0))
t.eq({plane:distance_to(v(0, 5, 0)), math3d.plane_dist_from_point(plane, v(0, 5, 0))}, {0.0, 10.0})

t.orders(math3d, t.needed.Vector3, nil, {}, {plane_from_point_normal = "2", plane_from_points = "3"})
t.orders(math3d, t.needed.Plane, nil, {}, {
  plane_dist_from_point = "2", plane_intersect_line = "3", plane_intersect_plane = "2", plane_intersect_planes = "3",
})
raises(t.bad_argument("Plane", 2, t.needed.Vector3), math3d.plane_dist_from_point, floor, wall)
raises(t.bad_argument("Vector3", 3, t.needed.Plane), math3d.plane_intersect_planes, floor, wall, v())

t.done()
