-- The ten table operations in plain Lua, with the tables and the checks of the library: count, class, fields. Numbers
-- stay doubles. A surplus argument counts only if it is not nil, which costs least.
local getmetatable, setmetatable, type, sqrt, sin, cos, acos = getmetatable, setmetatable, type, math.sqrt, math.sin,
  math.cos, math.acos
local Vector3, Rotation = {}, {}

local function fail(what) error("invalid " .. what, 3) end
-- A field that is no number.
local function converted(field, missing) return type(field) == "string" and tonumber(field) or missing end

local function vector(v)
  if type(v) ~= "table" or getmetatable(v) ~= Vector3 then fail("vector") end
  local x, y, z = v.x, v.y, v.z
  if type(x) ~= "number" then x = converted(x, 0) end
  if type(y) ~= "number" then y = converted(y, 0) end
  if type(z) ~= "number" then z = converted(z, 0) end
  return x, y, z
end
local function rotation(q)
  if type(q) ~= "table" or getmetatable(q) ~= Rotation then fail("rotation") end
  local x, y, z, w = q.x, q.y, q.z, q.w
  if type(x) ~= "number" then x = converted(x, 1) end
  if type(y) ~= "number" then y = converted(y, 1) end
  if type(z) ~= "number" then z = converted(z, 1) end
  if type(w) ~= "number" then w = converted(w, 1) end
  return x, y, z, w
end
local function new_vector(x, y, z)
  return setmetatable({__dummy_type = "checked.Vector3", x = x, y = y, z = z}, Vector3)
end
local function new_rotation(x, y, z, w)
  return setmetatable({__dummy_type = "checked.Rotation", x = x, y = y, z = z, w = w}, Rotation)
end
local function number(n)
  if type(n) ~= "number" then n = tonumber(n) or fail("number") end
  return n
end

function Vector3.new(x, y, z, surplus)
  if surplus ~= nil then fail("count") end
  return new_vector(number(x), number(y), number(z))
end
function Rotation.new(x, y, z, w, surplus)
  if surplus ~= nil then fail("count") end
  return new_rotation(number(x), number(y), number(z), number(w))
end
function Vector3.__add(a, b, surplus)
  local ax, ay, az = vector(a)
  if surplus ~= nil then fail("count") end
  local bx, by, bz = vector(b)
  return new_vector(ax + bx, ay + by, az + bz)
end

local checked = {Vector3 = Vector3, Rotation = Rotation}
function checked.vector3_dot(a, b, surplus)
  if surplus ~= nil then fail("count") end
  local ax, ay, az = vector(a)
  local bx, by, bz = vector(b)
  return ax * bx + ay * by + az * bz
end
function checked.vector3_cross(a, b, surplus)
  if surplus ~= nil then fail("count") end
  local ax, ay, az = vector(a)
  local bx, by, bz = vector(b)
  return new_vector(ay * bz - az * by, az * bx - ax * bz, ax * by - ay * bx)
end
function checked.vector3_length(v, surplus)
  if surplus ~= nil then fail("count") end
  local x, y, z = vector(v)
  return sqrt(x * x + y * y + z * z)
end
function checked.vector3_lerp(a, b, t, surplus)
  if surplus ~= nil then fail("count") end
  local ax, ay, az = vector(a)
  local bx, by, bz = vector(b)
  t = number(t)
  return new_vector((bx - ax) * t + ax, (by - ay) * t + ay, (bz - az) * t + az)
end
local function product(ax, ay, az, aw, bx, by, bz, bw)
  return bx * aw + ax * bw + ay * bz - az * by, by * aw - bz * ax + ay * bw + az * bx,
    by * ax + bz * aw - ay * bx + az * bw, bw * aw - ax * bx - by * ay - az * bz
end
function checked.quaternion_multiply(a, b, surplus)
  if surplus ~= nil then fail("count") end
  local ax, ay, az, aw = rotation(a)
  local bx, by, bz, bw = rotation(b)
  return new_rotation(product(bx, by, bz, bw, ax, ay, az, aw))
end
function checked.quaternion_slerp(a, b, t, surplus)
  if surplus ~= nil then fail("count") end
  local ax, ay, az, aw = rotation(a)
  local bx, by, bz, bw = rotation(b)
  t = number(t)
  local cosine, sign = ax * bx + ay * by + az * bz + aw * bw, 1
  if cosine < 0 then cosine, sign = -cosine, -1 end
  local k0, k1 = 1 - t, t
  if cosine < 0.99999 then
    local omega = acos(cosine)
    local sine = sin(omega)
    k0, k1 = sin(k0 * omega) / sine, sin(k1 * omega) / sine
  end
  k1 = k1 * sign
  return new_rotation(bx * k1 + ax * k0, by * k1 + ay * k0, bz * k1 + az * k0, bw * k1 + aw * k0)
end
function checked.vector3_rotate(v, q, surplus)
  if surplus ~= nil then fail("count") end
  local vx, vy, vz = vector(v)
  local x, y, z, w = rotation(q)
  local tx, ty, tz, tw = product(vx, vy, vz, 0, -x, -y, -z, w)
  local rx, ry, rz = product(x, y, z, w, tx, ty, tz, tw)
  return new_vector(rx, ry, rz)
end
function checked.quaternion_rotation_zxy(x, y, z, surplus)
  if surplus ~= nil then fail("count") end
  x, y, z = number(x) * 0.5, number(y) * 0.5, number(z) * 0.5
  local sx, cx, sy, cy, sz, cz = sin(x), cos(x), sin(y), cos(y), sin(z), cos(z)
  return new_rotation(sx * cy * cz + cx * sy * sz, cx * sy * cz - sx * cy * sz, cx * cy * sz - sx * sy * cz,
    cx * cy * cz + sx * sy * sz)
end
return checked
