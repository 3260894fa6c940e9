-- The conventions of docs/conventions.md: something here fails if one of them is turned round.
local math3d = require "math3d"
local t = require "harness"
local eq, near, ok = t.eq, t.near, t.ok
local Vector2, Vector3, Vector4, Rotation = math3d.Vector2, math3d.Vector3, math3d.Vector4, math3d.Rotation
local Matrix, Matrix33, Plane, Aabb, RectF = math3d.Matrix, math3d.Matrix33, math3d.Plane, math3d.Aabb, math3d.RectF
local Color32, ColorF, half_pi = math3d.Color32, math3d.ColorF, math3d.HALF_PI
local axis_angle = math3d.quaternion_rotation_axis

local function xyz(vector, w) return {x = vector.x, y = vector.y, z = vector.z, w = w} end
local right, up, forward = Vector3.new(1, 0, 0), Vector3.new(0, 1, 0), Vector3.new(0, 0, 1)
local p, v, angles = Vector3.new(1.5, -2, 0.5), Vector3.new(0.3, 0.6, -0.9), Vector3.new(0.3, 0.5, 0.7)
local rx, ry, rz = Matrix.make_rotation_x(0.3), Matrix.make_rotation_y(0.5), Matrix.make_rotation_z(0.7)
local qx, qy, qz = axis_angle(right, 0.3), axis_angle(up, 0.5), axis_angle(forward, 0.7)

-- Every line of Lua in the page is true, but for those that set something.
local page = setmetatable({p = p, v = v, angles = angles, q = qx * qy, r = qz, qx = qx, qy = qy, qz = qz,
  A = rx * rz * Matrix.make_translation(v), B = ry * Matrix.make_translation(p)},
  {__index = function(_, name) return math3d[name] or _G[name] end})
local lines, file = 0, assert(io.open((arg[0]:match("^.*/") or "") .. "../../docs/conventions.md"))
for block in file:read("a"):gmatch "```lua\n(.-)```" do
  for line in block:gmatch "[^\n]+" do
    lines = lines + 1
    local claim = load("return " .. line, line, "t", page)
    if claim then ok(claim(), line) else assert(load(line, line, "t", page))() end
  end
end
ok(lines >= 36 and page.up == up, "the page has been read")

-- Numbers: what a script writes into a table stays a double, a matrix narrows it.
local written, matrix = Vector3.new(), Matrix.new()
written.x = 0.1 matrix:set(0, 0, 0.1)
eq({written.x, (written + Vector3.new()).x, matrix:get(0, 0)}, {0.1, t.float(0.1), t.float(0.1)})

-- The positive sense of yaw, pitch and roll, by every builder of rotations.
for _, sense in ipairs {{up, forward, right}, {right, forward, up * -1}, {forward, right, up}} do
  local axis, from, to = table.unpack(sense)
  local q = Rotation.new()
  q:set_axis_angle(axis, half_pi)
  for _, rotation in ipairs {q, axis_angle(axis * 2, half_pi), math3d.quaternion_rotation_fromto(from, to),
    math3d.quaternion_rotation_zxy_from_vector(axis * half_pi)} do
    near(rotation:rotate_vector(from), xyz(to))
    near(math3d.vector3_rotate(from, rotation), xyz(to))
  end
  near(from * math3d.matrix_rotation_axis(axis, half_pi), xyz(to))
  near(from * math3d.matrix_rotation_zxy_from_vector(axis * half_pi), xyz(to))
  near(from * Matrix.make_rotation_between(from, to), xyz(to))
end

-- Euler angles: the three orders as matrices, and the one of the properties of a matrix.
for reader, m in pairs {to_rotation_xzy = rz * rx * ry, to_euler_xyz = rz * ry * rx, to_euler_zyx = rx * ry * rz} do
  near(math3d["quaternion_" .. reader](math3d.quaternion_rotation_matrix(m)), xyz(angles), 1e-5, reader)
end
local zxy, q_zxy = rz * rx * ry, math3d.quaternion_rotation_zxy(0.3, 0.5, 0.7)
ok(math3d.matrix_rotation_zxy(0.3, 0.5, 0.7):__eq(zxy, 1e-6) and q_zxy == qy * qx * qz)
near({zxy.pitch, zxy.yaw, zxy.roll}, {0.3, 0.5, 0.7})
near(math3d.vector3_delta_angle_zxy(p * 0, Vector3.new(3)), {x = math.pi - 3, y = 3 - math.pi, z = 3 - math.pi})

-- Matrices and quaternions.
ok(not pcall(function() return rx * p end), "vectors stand on the left")
local prs = math3d.matrix_transformation_prs(p, qy, Vector3.new(2, 3, 4))
ok(prs:__eq(math3d.matrix_scaling(2, 3, 4) * ry * math3d.matrix_translation(p.x, p.y, p.z), 1e-6))
matrix:set_all(1, 2, 3, 0, 4, 5, 6, 0, 7, 8, 9, 0, 10, 11, 12, 1)
eq({matrix.right.y, matrix.up.x, matrix.forward.z, matrix.translation.x, matrix:get(3, 2)}, {2.0, 4.0, 9.0, 10.0, 12.0})
ok((rx.m33 * ry.m33):__eq((rx * ry).m33, 1e-6) and (prs.m33 * Matrix33.new()):__eq(ry.m33, 1e-6))
local camera = math3d.matrix_rotation_look(right, up) * Matrix.make_translation(p)
near((p + right * 5 + up * 2 + forward * -3) * math3d.matrix_inverse(camera), {x = 3, y = 2, z = 5}, 1e-5)
local long = Rotation.new()
long:set_axis_angle(up * 2, math.pi)
near(long, {y = 2, w = 0}, 1e-6, "the axis as it is")
near(qx * Rotation.new(v.x, v.y, v.z, 0) * math3d.quaternion_conjugate(qx), xyz(v * rx, 0))

-- Planes that meet, by the sign of the functions; the corners of a box by their numbers.
ok(math3d.plane_intersect_line(math3d.plane_from_point_normal(p, up), v, v + up) == Vector3.new(v.x, p.y, v.z))
local corners = Aabb.new(Vector3.new(), Vector3.new(2, 4, 6)):get_corners()
for i, at in pairs {[0] = "-1 -2 3", "1 -2 3", "1 2 3", "-1 2 3", "-1 -2 -3", "1 -2 -3", "1 2 -3", "-1 2 -3"} do
  eq(("%.0f %.0f %.0f"):format(corners[i].x, corners[i].y, corners[i].z), at)
end

-- Equality, with a tolerance or without, and what changes.
local near_one, nan = 1 + 5e-7, 0 / 0
ok(Rotation.new(near_one, 0, 0, nan) == Rotation.new(1, 0, 0, 0) and Vector3.new(nan) == v)
ok(Plane.new(up * near_one, 1) == Plane.new(up, near_one) and Plane.new(up, nan) ~= Plane.new(up, nan))
ok(Aabb.new(p, Vector3.new(near_one)) == Aabb.new(p, Vector3.new(1)) and Vector2.new(nan, 0) ~= Vector2.new(nan, 0))
ok(Vector4.new(up, near_one) ~= Vector4.new(up, 1) and RectF.new(0, 0, 0, near_one) ~= RectF.new(0, 0, 0, 1))
ok(ColorF.new(1, 1, 1, near_one) ~= ColorF.new() and Color32.new(9, 9, 9, 9) ~= Color32.new(9, 9, 9, 8))
local w = Vector4.new(v, 0)
ok(w:normalize() ~= w and w == Vector4.new(v, 0), "normalises a copy")

t.done()
