-- vector3_* and vector4_*, but for smooth damping: every name, and where they differ from the methods of the classes.
require "math3d"
local t = require "harness"
local inf, nan = math.huge, 0 / 0
local v, w = math3d.Vector3.new, math3d.Vector4.new

local a, b = v(1, -2, 3), v(4, 5, -6)
local rotation = math3d.Rotation.new(0.1, 0.2, 0.3, 0.9)
local matrix, flat = math3d.Matrix.new(), math3d.Matrix.new()
matrix:set_all(1, 2, 3, 1, 4, 5, 6, 0, 7, 8, 10, 1, 11, 12, 13, 2)
flat:set(3, 3, 0)

t.calls(math3d, {
  {"vector3_abs", {v(-1, 2, -0.0)}, v(1, 2, 0)}, {"vector3_dot", {a, b}, -24.0}, {"vector3_length_sq", {a}, 14.0},
  {"vector3_cross", {a, b}, v(-3, 18, 13)}, {"vector3_lerp", {a, b, 2}, v(7, 12, -15)},
  {"vector3_length", {v(3, 4, -12)}, 13.0},
  {"vector3_min", {v(nan, 1, 1), v(2, nan, 0)}, v(2, 1, 0)}, {"vector3_max", {v(nan, 1, 1), v(2, nan, 0)}, v(2, 1, 1)},
  {"vector3_clamp", {v(5, nan, -5), v(2, 2, 2), v(nan, 1, 1)}, v(5, 2, 2)},
  {"vector3_normalize", {v()}, v(nan, nan, nan)}, {"vector3_normalize", {v(1e-30, 0, 0)}, v(inf, nan, nan)},
  {"vector3_normalize", {v(1e20, 1, 0)}, v()},
  {"vector3_normalize", {v(0, 3, 4)}, v(0, 3 * t.float(1 / 5), 4 * t.float(1 / 5))},
  {"vector3_transform_coord", {v(1, 2, 3), matrix}, v(41 / 6, 48 / 6, 58 / 6)},
  {"vector3_transform_coord", {v(1, 1, -1), flat}, v(inf, inf, -inf)},
  {"vector3_transform_normal", {v(1, 2, 3), matrix}, v(30, 36, 45)},
  {"vector3_delta_angle_zxy", {v(), v(3, 3, 3)}, v(0.14159274, -0.1415925, -0.1415925)},

  {"vector4_abs", {w(-1, -0.0, 2, -inf)}, w(1, 0, 2, inf)}, {"vector4_dot", {w(1, 2, 3, 4), w(5, -6, 7, 8)}, 46.0},
  {"vector4_cross", {w(1, 2, 3, 4), w(2, 3, 1, 7), w(5, 1, 2, 9)}, w(-50, -42, 2, 32)},
  {"vector4_lerp", {w(1, 2, 3, 4), w(2, 4, 6, 9), -1}, w(0, 0, 0, -1)},
  {"vector4_length_sq", {w(1, 2, 3, 4)}, 30.0}, {"vector4_length", {w(2, 4, 5, 6)}, 9.0},
  {"vector4_min", {w(1, nan, 3, -1), w(2, 5, nan, -4)}, w(1, 5, 3, -4)},
  {"vector4_max", {w(1, nan, 3, -1), w(2, 5, nan, -4)}, w(2, 5, 3, -1)},
  {"vector4_clamp", {w(nan, nan, 3, -9), w(0, 8, nan, -1), w(5, 5, 2, nan)}, w(5, 8, 2, -1)},
  {"vector4_normalize", {w()}, w()}, {"vector4_normalize", {w(1e20, 1, 0, 0)}, w(nan, nan, nan, nan)},
  {"vector4_normalize", {w(2, 4, 5, 6)}, w(2 / 9, 4 / 9, 5 / 9, 6 / 9)},
  {"vector4_transform", {w(1, 2, 3, -1), matrix}, w(19, 24, 32, 2)},
})
t.calls(math3d, {
  {"vector3_rotate", {v(1, 2, 3), rotation}, v(0.95, 1.9, 2.85)},
  {"vector3_rotate", {v(1, 0, 0), math3d.Rotation.new(0, 0, 0.70710678, 0.70710678)}, v(0, 1, 0)},
  {"vector4_normalize", {w(0, 0, 1e-8, 0)}, w(0, 0, 1, 0)},
}, 1e-6)

t.orders(math3d, t.needed.Vector3, nil, {}, {
  vector3_abs = "1", vector3_dot = "2", vector3_cross = "2", vector3_lerp = "3", vector3_length_sq = "1",
  vector3_length = "1", vector3_min = "2", vector3_max = "2", vector3_clamp = "3", vector3_normalize = "1",
  vector3_rotate = "2", vector3_transform_coord = "2", vector3_transform_normal = "2", vector3_delta_angle_zxy = "2",
})
t.orders(math3d, t.needed.Vector4, nil, {}, {
  vector4_abs = "1", vector4_dot = "2", vector4_cross = "3", vector4_lerp = "3", vector4_length_sq = "1",
  vector4_length = "1", vector4_min = "2", vector4_max = "2", vector4_clamp = "3", vector4_normalize = "1",
  vector4_transform = "2",
})
for _, case in ipairs {
  {"vector3_clamp", {a, b, {}}, "table", 3, "Vector3"}, {"vector3_rotate", {a, w()}, "Vector4f", 2, "Rotation"},
  {"vector4_dot", {w(), a}, "Vector3", 2, "Vector4"}, {"vector4_transform", {w(), 1}, "number", 2, "Matrix"},
  {"vector3_transform_coord", {a, rotation}, "Rotation", 2, "Matrix"},
  {"vector3_transform_normal", {matrix, a}, "Matrix", 1, "Vector3"},
} do
  local name, arguments, got, index, class = table.unpack(case)
  t.raises(t.bad_argument(got, index, t.needed[class]), math3d[name], table.unpack(arguments))
end

t.done()
