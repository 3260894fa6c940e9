-- smooth_damp and vector3_smooth_damp: two results, and an optional speed limit in the middle of the arguments.
require "math3d"
local t = require "harness"
local nan = 0 / 0
local v = math3d.Vector3.new
local damp = math3d.smooth_damp

t.calls(math3d, {
  {"smooth_damp", {0, 10, 0, 1, nil, 0.1, n = 6}, 0.1726341, 3.2757885},
  {"smooth_damp", {0, 10, 0, 1, "-2", 0.1}, 0.0345268, 0.6551577},
  {"smooth_damp", {1, 5, -2, 0.5, 3, 0.1}, 0.9582797, 0.8043758},
  {"smooth_damp", {0, 1, 100, 1, 9, 0.1}, 1.0, 0.0}, {"smooth_damp", {7, 7, 0, 1, 9, 0.1}, 7.0, 0.0},
  {"smooth_damp", {1, 1, 0, 1, nil, 0, n = 6}, 1.0, nan}, {"smooth_damp", {0.5, 1, 0, 1, nil, 0, n = 6}, 0.5, 0.0},
  -- A negative limit of a component replaces the offset, of whichever sign.
  {"vector3_smooth_damp", {v(), v(9, 9, 9), v(), 1, v(2, -2, 0), 0.1}, v(0.0345268, -0.0345268, 0),
    v(0.6551577, -0.6551577, 0)},
  {"vector3_smooth_damp", {v(1, 2, 3), v(1, 2, 3), v(), 1, nil, 0, n = 6}, v(1, 2, 3), v(nan, nan, nan)},
}, 1e-6)
t.eq({damp(0, 10, 0, -1, 2, 1e-4)}, {damp(0, 10, 0, 1e-4, 2, 1e-4)}, "smallest smooth time")

-- Else the components are scalars of their own.
local random = t.random(11)
local function any(low, high) return v(random(low, high), random(low, high), random(low, high)) end
for round = 1, 300 do
  local from, to, velocity, speed = any(-9, 9), any(-9, 9), any(-5, 5), round % 2 == 0 and any(0.1, 4) or nil
  local smooth_time, delta_time = random(0.01, 2), random(0.001, 0.2)
  local value, rate = math3d.vector3_smooth_damp(from, to, velocity, smooth_time, speed, delta_time)
  for _, axis in ipairs {"x", "y", "z"} do
    local limit = speed and speed[axis]
    t.eq({value[axis], rate[axis]}, {damp(from[axis], to[axis], velocity[axis], smooth_time, limit, delta_time)})
  end
end

for name, case in pairs {smooth_damp = {0, 2, "float"}, vector3_smooth_damp = {v(), v(), t.needed.Vector3}} do
  local f, start, limit, needed = math3d[name], table.unpack(case)
  t.raises(t.bad_count(3, "[4-6]"), f, start, start, start)
  t.raises(t.bad_count(7, "[4-6]"), f, start, start, start, 1, limit, 1, 1)
  t.raises(t.bad_argument("no value", 6, "float"), f, start, start, start, 1)
  t.raises(t.bad_argument("nil", 6, "float"), f, start, start, start, 1, nil, nil)
  local nullable = "class zeph::binding::Nullable<" .. needed .. ">"
  t.raises(t.bad_argument("boolean", 5, nullable), f, start, start, start, 1, false, 1)
  t.raises(t.bad_argument("table", 3, needed), f, start, start, {}, 1, nil, 1)
end

t.done()
