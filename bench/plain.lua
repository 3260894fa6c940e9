-- The calls of operations.lua in plain Lua with tables, as a script would have them without the library: no checks,
-- doubles, methods by `__index`, a matrix as a list of its elements by rows.
local sqrt, sin, cos, acos, atan, abs, floor, pi = math.sqrt, math.sin, math.cos, math.acos, math.atan,
  math.abs, math.floor, math.pi
local setmetatable, format = setmetatable, string.format
local min, max = math.min, math.max
local m = {}

-- A class, with properties if there are getters.
local function class(getters, setters)
  local c = {}
  c.__index = getters and function(self, key)
    local get = getters[key]
    if get then return get(self) end
    return c[key]
  end or c
  c.__newindex = setters and function(self, key, value)
    local set = setters[key]
    if set then set(self, value) else rawset(self, key, value) end
  end or nil
  return c
end

local V2 = class({length = function(v) return sqrt(v.x * v.x + v.y * v.y) end})
local V = class({
  length = function(v) return sqrt(v.x * v.x + v.y * v.y + v.z * v.z) end,
  is_zero = function(v) return abs(v.x) <= 1e-6 and abs(v.y) <= 1e-6 and abs(v.z) <= 1e-6 end,
  yaw = function(v) return atan(v.x, v.z) end,
})
local V4 = class({length = function(v) return sqrt(v.x * v.x + v.y * v.y + v.z * v.z + v.w * v.w) end})
local function v2(x, y) return setmetatable({x = x, y = y}, V2) end
local function v3(x, y, z) return setmetatable({x = x, y = y, z = z}, V) end
local function v4(x, y, z, w) return setmetatable({x = x, y = y, z = z, w = w}, V4) end
local Q = class({
  forward = function(q)
    return v3(2 * (q.x * q.z + q.y * q.w), 2 * (q.z * q.y - q.x * q.w), 1 - 2 * (q.x * q.x + q.y * q.y))
  end,
})
local function quat(x, y, z, w) return setmetatable({x = x, y = y, z = z, w = w}, Q) end
local Plane, Ray, RectOffset, Color32, ColorF, Matrix33 = class(), class(), class(), class(), class(), class()
local Rect = class({width = function(r) return r.right - r.left end, min = function(r) return v2(r.left, r.top) end}, {
  width = function(r, width) r.right = r.left + width end,
  min = function(r, corner) r.left, r.top = corner.x, corner.y end,
})
local function rect(l, t, r, b) return setmetatable({left = l, top = t, right = r, bottom = b}, Rect) end
local function c32(a, r, g, b) return setmetatable({r = r, g = g, b = b, a = a}, Color32) end
local function cf(a, r, g, b) return setmetatable({r = r, g = g, b = b, a = a}, ColorF) end
local function plane(normal, dist) return setmetatable({normal = normal, dist = dist}, Plane) end

local function cross(a, b) return v3(a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x) end
local function dot(a, b) return a.x * b.x + a.y * b.y + a.z * b.z end
local function lerp(a, b, t) return v3((b.x - a.x) * t + a.x, (b.y - a.y) * t + a.y, (b.z - a.z) * t + a.z) end

m.Vector2, m.Vector3, m.Vector4, m.Rotation, m.RectF, m.Color32, m.ColorF = V2, V, V4, Q, Rect, Color32, ColorF
m.Plane, m.Ray, m.RectOffset, m.Matrix33 = Plane, Ray, RectOffset, Matrix33
V2.new, V4.new, Q.new, Rect.new = v2, nil, quat, rect
V2.__add = function(a, b) return v2(a.x + b.x, a.y + b.y) end
V2.__mul = function(a, b)
  if type(b) == "number" then return v2(a.x * b, a.y * b) end
  return v2(a.x * b.x, a.y * b.y)
end
V2.dot = function(a, b) return a.x * b.x + a.y * b.y end

V.new = function(x, y, z)
  if not x then return v3(0, 0, 0) end
  if not y then return v3(x.x, x.y, x.z) end
  return v3(x, y, z)
end
V.__add = function(a, b) return v3(a.x + b.x, a.y + b.y, a.z + b.z) end
V.__eq = function(a, b) return abs(a.x - b.x) <= 1e-6 and abs(a.y - b.y) <= 1e-6 and abs(a.z - b.z) <= 1e-6 end
V.__div = function(a, n) return v3(a.x / n, a.y / n, a.z / n) end
V.set = function(v, x, y, z) v.x, v.y, v.z = x, y, z end
V.normalize = function(v)
  local size = sqrt(dot(v, v))
  if size > 0 then v.x, v.y, v.z = v.x / size, v.y / size, v.z / size end
end
V.intrp = function(v, a, b, t)
  v.x, v.y, v.z = (b.x - a.x) * t + a.x, (b.y - a.y) * t + a.y, (b.z - a.z) * t + a.z
end
V.cross = cross
V.distance = function(a, b)
  local x, y, z = a.x - b.x, a.y - b.y, a.z - b.z
  return sqrt(x * x + y * y + z * z)
end
V.to_list = function(v) return {v.x, v.y, v.z} end
V.to_string = function(v) return format("%f,%f,%f", v.x, v.y, v.z) end
V.__tostring = function(v) return format("Vector3(%f, %f, %f)", v.x, v.y, v.z) end
V4.new = function(x, y, z, w)
  if not z then return v4(x.x, x.y, x.z, y) end
  return v4(x, y, z, w)
end
V4.__add = function(a, b) return v4(a.x + b.x, a.y + b.y, a.z + b.z, a.w + b.w) end
V4.__mul = function(a, b) return v4(a.x * b.x, a.y * b.y, a.z * b.z, a.w * b.w) end

local function product(a, b)
  return quat(b.x * a.w + a.x * b.w + a.y * b.z - a.z * b.y, b.y * a.w - b.z * a.x + a.y * b.w + a.z * b.x,
    b.y * a.x + b.z * a.w - a.y * b.x + a.z * b.w, b.w * a.w - a.x * b.x - b.y * a.y - a.z * b.z)
end
local function rotate(v, q)
  local x, y, z, w = q.x, q.y, q.z, q.w
  local tx, ty, tz = 2 * (y * v.z - z * v.y), 2 * (z * v.x - x * v.z), 2 * (x * v.y - y * v.x)
  return v3(v.x + w * tx + y * tz - z * ty, v.y + w * ty + z * tx - x * tz, v.z + w * tz + x * ty - y * tx)
end
local function slerp(a, b, t)
  local cosine, sign = a.x * b.x + a.y * b.y + a.z * b.z + a.w * b.w, 1
  if cosine < 0 then cosine, sign = -cosine, -1 end
  local k0, k1 = 1 - t, t
  if cosine < 0.99999 then
    local omega = acos(cosine)
    local sine = sin(omega)
    k0, k1 = sin(k0 * omega) / sine, sin(k1 * omega) / sine
  end
  k1 = k1 * sign
  return b.x * k1 + a.x * k0, b.y * k1 + a.y * k0, b.z * k1 + a.z * k0, b.w * k1 + a.w * k0
end
Q.__mul = product
Q.slerp = function(q, a, b, t) q.x, q.y, q.z, q.w = slerp(a, b, t) end
Q.rotate_vector = function(q, v) return rotate(v, q) end
Q.get_axis_angle = function(q) return {v3(q.x, q.y, q.z), 2 * acos(q.w)} end

Plane.new = function(a, b, c, d)
  if d then return plane(v3(a, b, c), d) end
  if b then return plane(v3(a.x, a.y, a.z), b) end
  return plane(v3(a.normal.x, a.normal.y, a.normal.z), a.dist)
end
Plane.__eq = function(a, b) return a.normal == b.normal and abs(a.dist - b.dist) < 1e-6 end
Plane.distance_to = function(p, v) return dot(v, p.normal) - p.dist end
Plane.project_point = function(p, out, v)
  local n = p.normal
  local d = dot(v, n) - p.dist
  out.x, out.y, out.z = v.x - n.x * d, v.y - n.y * d, v.z - n.z * d
end
Ray.new = function(o, d)
  return setmetatable({origin = v3(o.x, o.y, o.z), direction = v3(d.x, d.y, d.z)}, Ray)
end
RectOffset.new = function(l, t, r, b) return setmetatable({left = l, top = t, right = r, bottom = b}, RectOffset) end
Rect.__add = function(r, v) return rect(r.left + v.x, r.top + v.y, r.right + v.x, r.bottom + v.y) end

local function byte(x) return floor(max(0, min(255, x))) end
Color32.new = function(a, r, g, b)
  if r then return c32(a, r, g, b) end
  return c32(byte(a.a * 255 + 0.5), byte(a.r * 255 + 0.5), byte(a.g * 255 + 0.5), byte(a.b * 255 + 0.5))
end
Color32.__eq = function(a, b) return a.r == b.r and a.g == b.g and a.b == b.b and a.a == b.a end
Color32.intrp = function(c, a, b, t)
  c.r, c.g, c.b, c.a = byte((b.r - a.r) * t + a.r), byte((b.g - a.g) * t + a.g), byte((b.b - a.b) * t + a.b),
    byte((b.a - a.a) * t + a.a)
end
ColorF.new = cf
ColorF.__add = function(a, b) return cf(a.a, a.r + b.r, a.g + b.g, a.b + b.b) end
ColorF.clamp = function(c) c.r, c.g, c.b = max(0, min(1, c.r)), max(0, min(1, c.g)), max(0, min(1, c.b)) end

-- Matrices.
local M = class({
  translation = function(a) return v3(a[13], a[14], a[15]) end,
  yaw = function(a) return atan(a[9], a[11]) end,
  m33 = function(a) return setmetatable({a[1], a[2], a[3], a[5], a[6], a[7], a[9], a[10], a[11]}, Matrix33) end,
}, {translation = function(a, v) a[13], a[14], a[15] = v.x, v.y, v.z end})
m.Matrix = M
local function identity() return setmetatable({1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}, M) end
local function each(a, b, f)
  local r = {}
  for i = 1, 16 do r[i] = f(a[i], b and b[i]) end
  return setmetatable(r, M)
end
local function inverse(from)
  local a, b, c, d, e, f, g, h, i, j, k, l, n, o, p, q = table.unpack(from, 1, 16)
  local s0, s1, s2 = a * f - e * b, a * g - e * c, a * h - e * d
  local s3, s4, s5 = b * g - f * c, b * h - f * d, c * h - g * d
  local t5, t4, t3 = k * q - p * l, j * q - o * l, j * p - o * k
  local t2, t1, t0 = i * q - n * l, i * p - n * k, i * o - n * j
  local s = 1 / (s0 * t5 - s1 * t4 + s2 * t3 + s3 * t2 - s4 * t1 + s5 * t0)
  return setmetatable({
    (f * t5 - g * t4 + h * t3) * s, (-b * t5 + c * t4 - d * t3) * s, (o * s5 - p * s4 + q * s3) * s,
    (-j * s5 + k * s4 - l * s3) * s, (-e * t5 + g * t2 - h * t1) * s, (a * t5 - c * t2 + d * t1) * s,
    (-n * s5 + p * s2 - q * s1) * s, (i * s5 - k * s2 + l * s1) * s, (e * t4 - f * t2 + h * t0) * s,
    (-a * t4 + b * t2 - d * t0) * s, (n * s4 - o * s2 + q * s0) * s, (-i * s4 + j * s2 - l * s0) * s,
    (-e * t3 + f * t1 - g * t0) * s, (a * t3 - b * t1 + c * t0) * s, (-n * s3 + o * s1 - p * s0) * s,
    (i * s3 - j * s1 + k * s0) * s}, M)
end
M.new = function(a) return a and each(a, nil, function(x) return x end) or identity() end
M.__add = function(a, b) return each(a, b, function(x, y) return x + y end) end
M.__mul = function(a, b)
  local r = {}
  if type(b) == "number" then
    for i = 1, 16 do r[i] = a[i] * b end
  else
    for i = 1, 13, 4 do
      local x, y, z, w = a[i], a[i + 1], a[i + 2], a[i + 3]
      for c = 0, 3 do r[i + c] = x * b[1 + c] + y * b[5 + c] + z * b[9 + c] + w * b[13 + c] end
    end
  end
  return setmetatable(r, M)
end
M.get = function(a, row, column) return a[4 * row + column + 1] end
M.set = function(a, row, column, value) a[4 * row + column + 1] = value end
M.set_identity = function(a)
  for i = 1, 16 do a[i] = (i % 5 == 1) and 1 or 0 end
end
M.do_translate = function(a, v) a[13], a[14], a[15] = a[13] + v.x, a[14] + v.y, a[15] + v.z end
M.inverse = function(a)
  table.move(inverse(a), 1, 16, 1, a)
  return true
end
M.mulvec3x3 = function(a, v)
  return v3(v.x * a[1] + v.y * a[5] + v.z * a[9], v.x * a[2] + v.y * a[6] + v.z * a[10],
    v.x * a[3] + v.y * a[7] + v.z * a[11])
end
M.__tostring = function(a)
  return format("Matrix((%f, %f, %f, %f), (%f, %f, %f, %f), (%f, %f, %f, %f), (%f, %f, %f, %f))",
    table.unpack(a, 1, 16))
end
local function transformed(x, y, z, a)
  return x * a[1] + y * a[5] + z * a[9] + a[13], x * a[2] + y * a[6] + z * a[10] + a[14],
    x * a[3] + y * a[7] + z * a[11] + a[15]
end
V.__mul = function(a, b)
  if type(b) == "number" then return v3(a.x * b, a.y * b, a.z * b) end
  if getmetatable(b) == M then return v3(transformed(a.x, a.y, a.z, b)) end
  return v3(a.x * b.x, a.y * b.y, a.z * b.z)
end
Matrix33.new = function() return setmetatable({1, 0, 0, 0, 1, 0, 0, 0, 1}, Matrix33) end
Matrix33.get = function(a, row, column) return a[3 * row + column + 1] end
Matrix33.Transpose = function(a) a[2], a[3], a[4], a[6], a[7], a[8] = a[4], a[7], a[2], a[8], a[3], a[6] end
Matrix33.__mul = function(a, b)
  local r = {}
  for i = 1, 7, 3 do
    for c = 0, 2 do r[i + c] = a[i] * b[1 + c] + a[i + 1] * b[4 + c] + a[i + 2] * b[7 + c] end
  end
  local x, y, z = v3(r[1], r[2], r[3]), v3(r[4], r[5], r[6]), v3(r[7], r[8], r[9])
  x:normalize()
  local d = dot(x, y)
  y = v3(y.x - x.x * d, y.y - x.y * d, y.z - x.z * d)
  y:normalize()
  local e = dot(z, y)
  d = dot(z, x)
  z = v3(z.x - x.x * d - y.x * e, z.y - x.y * d - y.y * e, z.z - x.z * d - y.z * e)
  z:normalize()
  return setmetatable({x.x, x.y, x.z, y.x, y.y, y.z, z.x, z.y, z.z}, Matrix33)
end

local Aabb = class({
  min = function(b) return v3(b.lo.x, b.lo.y, b.lo.z) end,
  center = function(b) return lerp(b.lo, b.hi, 0.5) end,
}, {min = function(b, v) b.lo = v3(v.x, v.y, v.z) end})
m.Aabb = Aabb
local function box(lo, hi) return setmetatable({lo = lo, hi = hi}, Aabb) end
Aabb.new = function(c, s)
  return box(v3(c.x - s.x / 2, c.y - s.y / 2, c.z - s.z / 2), v3(c.x + s.x / 2, c.y + s.y / 2, c.z + s.z / 2))
end
Aabb.__eq = function(a, b) return a.lo == b.lo and a.hi == b.hi end
Aabb.get_corners = function(b)
  local l, h = b.lo, b.hi
  return {[0] = v3(l.x, l.y, h.z), v3(h.x, l.y, h.z), v3(h.x, h.y, h.z), v3(l.x, h.y, h.z), v3(l.x, l.y, l.z),
    v3(h.x, l.y, l.z), v3(h.x, h.y, l.z), v3(l.x, h.y, l.z)}
end

-- Functions.
local function clamp(x, a, b) return max(min(x, max(a, b)), min(a, b)) end
local function damp(current, target, velocity, time, limit, dt)
  local omega = 2 / max(0.0001, time)
  local x = omega * dt
  local decay = 1 / (1 + x + 0.48 * x * x + 0.235 * x * x * x)
  local change = clamp(current - target, -limit * time, limit * time)
  local temp = (velocity + omega * change) * dt
  local value = current - change + (change + temp) * decay
  if (target - current > 0) == (value > target) then return target, 0 end
  return value, (velocity - omega * temp) * decay
end
m.radians = function(x) return x * pi / 180 end
m.clamp = clamp
m.lerp_angle = function(a, b, t)
  local turn = (b - a) % (2 * pi)
  if turn > pi then turn = turn - 2 * pi end
  return max(0, min(1, t)) * turn + a
end
m.smooth_damp = function(c, t, v, time, limit, dt) return damp(c, t, v, time, limit or 3.4e38, dt) end
m.vector3_smooth_damp = function(c, t, v, time, limit, dt)
  local lx, ly, lz = 3.4e38, 3.4e38, 3.4e38
  if limit then lx, ly, lz = limit.x, limit.y, limit.z end
  local x, vx = damp(c.x, t.x, v.x, time, lx, dt)
  local y, vy = damp(c.y, t.y, v.y, time, ly, dt)
  local z, vz = damp(c.z, t.z, v.z, time, lz, dt)
  return v3(x, y, z), v3(vx, vy, vz)
end
m.vector3_dot, m.vector3_cross, m.vector3_lerp, m.vector3_rotate = dot, cross, lerp, rotate
m.vector3_length = function(v) return sqrt(v.x * v.x + v.y * v.y + v.z * v.z) end
m.vector3_transform_coord = function(v, a)
  local x, y, z = transformed(v.x, v.y, v.z, a)
  local w = v.x * a[4] + v.y * a[8] + v.z * a[12] + a[16]
  return v3(x / w, y / w, z / w)
end
m.vector4_dot = function(a, b) return a.x * b.x + a.y * b.y + a.z * b.z + a.w * b.w end
m.vector4_transform = function(v, a)
  local x, y, z, w = v.x, v.y, v.z, v.w
  return v4(x * a[1] + y * a[5] + z * a[9] + w * a[13], x * a[2] + y * a[6] + z * a[10] + w * a[14],
    x * a[3] + y * a[7] + z * a[11] + w * a[15], x * a[4] + y * a[8] + z * a[12] + w * a[16])
end
m.quaternion_multiply = function(a, b) return product(b, a) end
m.quaternion_slerp = function(a, b, t) return quat(slerp(a, b, t)) end
m.quaternion_identity = function() return quat(0, 0, 0, 1) end
m.quaternion_rotation_zxy = function(x, y, z)
  x, y, z = x / 2, y / 2, z / 2
  local sx, cx, sy, cy, sz, cz = sin(x), cos(x), sin(y), cos(y), sin(z), cos(z)
  return quat(sx * cy * cz + cx * sy * sz, cx * sy * cz - sx * cy * sz, cx * cy * sz - sx * sy * cz,
    cx * cy * cz + sx * sy * sz)
end
m.quaternion_rotation_matrix = function(a)
  local w = sqrt(max(0, 1 + a[1] + a[6] + a[11])) / 2
  return quat((a[7] - a[10]) / (4 * w), (a[9] - a[3]) / (4 * w), (a[2] - a[5]) / (4 * w), w)
end
m.quaternion_to_axis_angle = function(q) return v3(q.x, q.y, q.z), 2 * acos(q.w) end
m.plane_from_points = function(a, b, c)
  local n = cross(v3(a.x - b.x, a.y - b.y, a.z - b.z), v3(a.x - c.x, a.y - c.y, a.z - c.z))
  n:normalize()
  return plane(n, -dot(n, a))
end
m.plane_dist_from_point = function(p, v) return dot(p.normal, v) + p.dist end
m.plane_intersect_plane = function(a, b)
  local along = cross(b.normal, a.normal)
  local squared = dot(along, along)
  if squared <= 1e-7 then return nil end
  local s, t = cross(b.normal, along), cross(along, a.normal)
  local x, y, z = (s.x * a.dist + t.x * b.dist) / squared, (s.y * a.dist + t.y * b.dist) / squared,
    (s.z * a.dist + t.z * b.dist) / squared
  return v3(x, y, z), v3(x + along.x, y + along.y, z + along.z)
end
m.color32_to_int = function(c) return c.a << 24 | c.r << 16 | c.g << 8 | c.b end
m.color32_blend = function(a, b)
  local w = b.a
  return c32(a.a * w // 255, (a.r * (255 - w) + b.r * w) // 255, (a.g * (255 - w) + b.g * w) // 255,
    (a.b * (255 - w) + b.b * w) // 255)
end
m.color_lerp = function(a, b, t)
  local s = 1 - t
  return cf(s * a.a + t * b.a, s * a.r + t * b.r, s * a.g + t * b.g, s * a.b + t * b.b)
end
m.matrix_identity, m.matrix_inverse = identity, inverse
m.matrix_translation = function(x, y, z) return setmetatable({1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, x, y, z, 1}, M) end
m.matrix_rotation_quaternion = function(q)
  local x, y, z, w = q.x, q.y, q.z, q.w
  return setmetatable({
    1 - 2 * (y * y + z * z), 2 * (x * y + w * z), 2 * (x * z - w * y), 0, 2 * (x * y - w * z),
    1 - 2 * (x * x + z * z), 2 * (y * z + w * x), 0, 2 * (x * z + w * y), 2 * (y * z - w * x),
    1 - 2 * (x * x + y * y), 0, 0, 0, 0, 1}, M)
end
m.matrix_transformation_prs = function(p, q, s)
  local r = m.matrix_rotation_quaternion(q)
  r[1], r[2], r[3] = r[1] * s.x, r[2] * s.x, r[3] * s.x
  r[5], r[6], r[7] = r[5] * s.y, r[6] * s.y, r[7] * s.y
  r[9], r[10], r[11] = r[9] * s.z, r[10] * s.z, r[11] * s.z
  r[13], r[14], r[15] = p.x, p.y, p.z
  return r
end
m.aabb_transform = function(b, a)
  local lx, ly, lz, hx, hy, hz = math.huge, math.huge, math.huge, -math.huge, -math.huge, -math.huge
  for i = 0, 7 do
    local x, y, z = transformed(i & 1 == 0 and b.lo.x or b.hi.x, i & 2 == 0 and b.lo.y or b.hi.y,
      i & 4 == 0 and b.lo.z or b.hi.z, a)
    lx, ly, lz, hx, hy, hz = min(lx, x), min(ly, y), min(lz, z), max(hx, x), max(hy, y), max(hz, z)
  end
  return box(v3(lx, ly, lz), v3(hx, hy, hz))
end
return m
