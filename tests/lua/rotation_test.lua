-- Rotation and the quaternion functions as scripts see them.
require "math3d"
local t = require "harness"
local eq, near, ok, raises, count = t.eq, t.near, t.ok, t.raises, t.count
local R, V, M, needed = math3d.Rotation, math3d.Vector3, math3d.Matrix, t.needed.Rotation
local nan, inf, pi = 0 / 0, math.huge, math.pi

local function q(x, y, z, w) return R.new(x, y, z, w) end
local function xyzw(x, y, z, w) return {x = x + 0.0, y = y + 0.0, z = z + 0.0, w = w + 0.0} end
local function xyz(x, y, z) return {x = x + 0.0, y = y + 0.0, z = z + 0.0} end

ok(math3d.Quaternion == R)
eq(t.fields(q(1, 2, 3, 4)), "__dummy_type w x y z")
eq({R.lua_name, R.class_name}, {"Rotation", "class zeph::math3d::LuaRotation"})
eq(R.new(), xyzw(0, 0, 0, 0), "not the identity")
local a, b = q(1, 2, 3, 4), q(5, 6, 7, 8)
eq(R.new(a), xyzw(1, 2, 3, 4))
raises(t.bad_overload, R.new, 1, 2, 3)
raises(t.bad_overload, R.new, V.new())

-- Operators.
eq(a + b, xyzw(6, 8, 10, 12))
eq(a - b, xyzw(-4, -4, -4, -4))
eq(a * b, xyzw(24, 48, 48, -6), "Hamilton's product")
eq(a * 2, xyzw(2, 4, 6, 8))
eq(b / 2, xyzw(2.5, 3, 3.5, 4))
eq((q(3, 0, 0, 0) / 7).x, t.float(3 * t.float(1 / 7)), "by the reciprocal, taken in double precision")
eq(a / 0, xyzw(inf, inf, inf, inf))
ok(a == q(1, 2, 3, 4.0000005) and a ~= q(1, 2, 3, 4.00001) and q(0, 0, 0, 1) ~= q(0, 0, 0, -1))
ok(q(nan, 0, 0, 1) == q(7, 0, 0, 1))
raises(t.bad_argument("number", 2, needed), function() return a + 1 end)
raises(t.bad_self("number", "Rotation"), function() return 2 * a end)
raises(t.bad_argument("Rotation", 2, "float"), function() return a / b end)
raises(t.bad_overload, function() return a * V.new() end)

-- Axes and vectors.
local h = 0.3
local turned = q(0, math.sin(h), 0, math.cos(h))
near(turned.forward, {x = math.sin(2 * h), y = 0, z = math.cos(2 * h)})
eq({R.new().up, R.new().forward, R.new().right}, {xyz(0, 1, 0), xyz(0, 0, 1), xyz(1, 0, 0)})
eq(R.new():rotate_vector(V.new(1, 2, 3)), xyz(0, 0, 0))
raises("property 'up' of Rotation is read-only", function() turned.up = V.new() end)
local random = t.random(11)
for _ = 1, 300 do
  local r = q(random(-1, 1), random(-1, 1), random(-1, 1), random(-1, 1))
  r = math3d.quaternion_normalize(r)
  local v = V.new(random(-9, 9), random(-9, 9), random(-9, 9))
  local m = math3d.matrix_rotation_quaternion(r)
  near(r:rotate_vector(v), {x = (v * m).x, y = (v * m).y, z = (v * m).z}, 1e-5)
  near(r.right, {x = m.right.x, y = m.right.y, z = m.right.z})
  near(r.up, {x = m.up.x, y = m.up.y, z = m.up.z})
  near(r.forward, {x = m.forward.x, y = m.forward.y, z = m.forward.z})
end

-- Mutators.
local r = q(9, 9, 9, 9)
local same = r
eq({count(r:set(1, 2, 3, 4)), count(r:set_axis_angle(V.new(0, 2, 0), pi))}, {0, 0})
near(same, {x = 0, y = 2, z = 0, w = 0})
r:set_axis_angle(V.new(1, 0, 0), pi / 2)
near(r:rotate_vector(V.new(0, 0, 1)), {x = 0, y = -1, z = 0}, 1e-6, "a positive angle about +x turns forward down")
r:slerp(q(0, 0, 0, 1), q(0, -1, 0, 0), 0.5)
eq(r, xyzw(0, -t.float(0.70710677), 0, t.float(0.70710677)), "the short way")
r:slerp(a, a * -1, 0.7) near(r, {x = 1, y = 2, z = 3, w = 4}, 2e-6)
for _, flag in ipairs {true, false} do
  r:slerp(R.new(), R.new(), 0.5, flag) eq(r, xyzw(0, 0, 0, 0))
end
r:slerp(r, a, 1) near(r, {x = 1, y = 2, z = 3, w = 4}, 1e-6, "self as an argument")
raises(t.bad_argument("number", 5, "class zeph::binding::Nullable<bool>"), r.slerp, r, a, b, 1, 1)
raises(t.bad_count(3, "[4-5]"), r.slerp, r, a, b)
raises(t.bad_count(4, "5"), r.set, r, 1, 2, 3)
raises(t.bad_argument("nil", 2, t.needed.Vector3), r.set_axis_angle, r, nil, 1)
raises(t.bad_count(0, "1"), R.get_axis_angle)

-- Axis and angle: the axis as stored, a table from the method, two results from the function.
for _, case in ipairs {
  {{0, 0, 0, 1}, 0}, {{0, 1, 0, 0}, pi}, {{0, 0, 0, -1}, 2 * pi}, {{0, 0, 0.70710678, 0.70710678}, pi / 2},
  {{0, 0, 0, 1.5}, 0}, {{0, 0, 0, -1.5}, 2 * pi}, {{0, 0, 0, nan}, nan},
} do
  local given = q(table.unpack(case[1]))
  local list = given:get_axis_angle()
  local axis, angle, extra = math3d.quaternion_to_axis_angle(given)
  ok(getmetatable(list) == nil and #list == 2 and extra == nil and list[1] == axis)
  eq(axis, xyz(given.x, given.y, given.z))
  eq(list[2], angle)
  if case[2] == case[2] then near(angle, case[2], 1e-6) else ok(angle ~= angle) end
end

-- Text.
eq(q(1, 2.5, -0.00001, 4):to_string(), "1.000000,2.500000,0.000000,4.000000")
r:from_string("1,2,3") near(r, {w = 4}, 1e-6)
r:from_string("1,2,3,4,5") eq(r, xyzw(1, 2, 3, 4))
r:from_string(("0"):rep(18) .. "78,2,3,4") eq(r.x, 7.0, "a piece counts up to 19 characters")
r:from_string(",,,") eq(r, xyzw(0, 0, 0, 0))
eq(tostring(q(1, 2, 3, 4)), "Rotation(1.000000, 2.000000, 3.000000, 4.000000)")
eq({#tostring(q(3e38, 3e38, 3e38, 3e38)), #q(3e38, 3e38, 3e38, 3e38):to_string()}, {99, 187})
-- A field that is missing or no number counts as 1, on reading and on printing.
local odd = q(1, 2, 3, 4)
odd.y, odd.w = nil, {}
eq(tostring(odd), "Rotation(1.000000, 1.000000, 3.000000, 1.000000)")
eq(odd + R.new(), xyzw(1, 1, 3, 1))

-- Functions.
local f = {}
for name in pairs(math3d) do
  local short = name:match("^quaternion_(.*)")
  if short then f[short] = math3d[name] end
end
eq(f.multiply(a, b), xyzw(32, 32, 56, -6))
ok(f.multiply(a, b) == b * a)
eq({f.dot(a, b), f.length_sq(a), f.length(q(2, 2, 2, 2))}, {70.0, 30.0, 4.0})
eq(f.lerp(a, b, 2), xyzw(9, 10, 11, 12))
eq(f.lerp(a, a * -1, 0.5), xyzw(0, 0, 0, 0))
eq(f.slerp(q(0, 0, 0, 1), q(0, -1, 0, 0), 0.5), xyzw(0, -t.float(0.70710677), 0, t.float(0.70710677)))
eq(f.conjugate(q(1, -2, 0, 4)), {x = -1.0, y = 2.0, z = -0.0, w = 4.0})
eq(f.normalize(q(0, 0, 0, 0)), xyzw(0, 0, 0, 0))
eq(f.normalize(q(1e30, 0, 0, 0)), xyzw(nan, nan, nan, nan))
eq(f.normalize(q(0, 3, 0, 4)), xyzw(0, t.float(0.6), 0, t.float(0.8)))
near(f.inverse(a), {x = -1 / 30, y = -2 / 30, z = -3 / 30, w = 4 / 30})
eq(f.inverse(q(3.4e-4, 0, 0, 0)), xyzw(0, 0, 0, 0), "a squared length up to the float epsilon has no inverse")
ok(f.inverse(q(3.5e-4, 0, 0, 0)).x < -2800)
eq(f.identity(), xyzw(0, 0, 0, 1))
eq(f.rotation_axis(V.new(0, 0, 2), 1), (function(x) return xyzw(x.x, x.y, x.z, x.w) end)(f.rotation_axis(V.new(0, 0, 1), 1)))
eq(f.rotation_axis(V.new(), 1), xyzw(0, 0, 0, t.float(0.87758255)))
eq(f.rotation_matrix(M.new()), xyzw(0, 0, 0, 1))
eq(f.rotation_matrix(M.new(0)), xyzw(1, 0, 0, 0))
near(f.rotation_zxy(0.1, 0.2, 0.3), {x = 0.064071, y = 0.091158, z = 0.143572, w = 0.983347})
ok(f.rotation_zxy_from_vector(V.new(0.1, 0.2, 0.3)) == f.rotation_zxy(0.1, 0.2, 0.3))
eq(f.rotation_fromto(V.new(1, 0, 0), V.new(2, 0, 0)), xyzw(0, 0, 0, 1))
eq(f.rotation_fromto(V.new(1, 0, 0), V.new(0, 1, 0)), xyzw(0, 0, t.float(0.70710677), t.float(0.70710677)))
near(f.rotation_fromto(V.new(0, 1, 0), V.new(0, -2, 0)), {x = 0, y = 1, z = 0, w = 0})
local angles = V.new(0.3, 0.5, 0.7)
near(f.to_rotation_xzy(f.rotation_zxy_from_vector(angles)), {x = 0.3, y = 0.5, z = 0.7})
local qx, qy, qz = f.rotation_axis(V.new(1, 0, 0), 0.3), f.rotation_axis(V.new(0, 1, 0), 0.5), f.rotation_axis(V.new(0, 0, 1), 0.7)
near(f.to_euler_xyz(qx * qy * qz), {x = 0.3, y = 0.5, z = 0.7})
near(f.to_euler_zyx(qz * qy * qx), {x = 0.3, y = 0.5, z = 0.7})
near(f.to_rotation_xzy(f.rotation_zxy(math3d.HALF_PI, 0.5, 0.2)), {x = pi / 2, y = 0.3, z = 0}, 1e-3, "at the pole z is 0")
for name, arguments in pairs {multiply = 2, dot = 2, lerp = 3, slerp = 3, conjugate = 1, inverse = 1, rotation_axis = 2,
  rotation_zxy = 3, to_axis_angle = 1, rotation_fromto = 2, rotation_matrix = 1, identity = 0} do
  raises(t.bad_count(5, tostring(arguments)), f[name], 1, 2, 3, 4, 5)
end
raises(t.bad_argument("number", 2, needed), f.multiply, a, 1)
raises(t.bad_argument("Rotation", 1, t.needed.Matrix), f.rotation_matrix, a)
eq(a, xyzw(1, 2, 3, 4), "no function changes an argument")

t.done()
