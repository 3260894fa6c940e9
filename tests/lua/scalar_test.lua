-- The scalar functions and the constants.
require "math3d"
local t = require "harness"
local eq, raises = t.eq, t.raises
local nan, inf = 0 / 0, math.huge
local pi = 3.1415927410125732

eq({math3d.PI, math3d.HALF_PI, math3d.EPSILON}, {pi, 1.5707963705062866, 9.999999974752427e-07})
t.ok(math3d.HALF_PI * 2 == math3d.PI and math3d.PI ~= math.pi)

for _, case in ipairs {
  {"radians", {180}, pi}, {"radians", {"90"}, pi / 2}, {"degrees", {math3d.PI}, 180.0}, {"degrees", {-0.0}, -0.0},
  {"clamp", {5, 3, 1}, 3.0}, {"clamp", {2, 1, 3}, 2.0}, {"clamp", {0, 3, 1}, 1.0}, {"clamp", {nan, 3, 1}, 1.0},
  {"clamp", {2, nan, 1}, 1.0}, {"clamp", {2, 1, nan}, nan},
  {"lerp", {0, 10, 2}, 20.0}, {"lerp", {10, 0, 0.25}, 7.5}, {"lerp", {0, inf, 0}, nan},
  {"repeat", {5, 0}, 0.0}, {"repeat", {-1, 3}, 2.0}, {"repeat", {7, -3}, -2.0}, {"repeat", {3, 3}, 0.0},
  {"delta_angle", {0, pi}, pi}, {"delta_angle", {0, -pi}, pi}, {"delta_angle", {0, 2 * pi}, 0.0},
  {"delta_angle", {0, nan}, 0.0}, {"delta_angle", {1, 0.5}, -0.5},
  {"lerp_angle", {0, 1, 2}, 1.0}, {"lerp_angle", {0, 1, -1}, 0.0}, {"lerp_angle", {3, 4, nan}, 3.0},
} do
  local name, arguments, expected = table.unpack(case)
  local got = math3d[name](table.unpack(arguments))
  if name == "delta_angle" and arguments[2] == 0.5 then
    t.near(got, expected, 3e-7)
  else
    eq(got, expected, name .. "(" .. table.concat(arguments, ", ") .. ")")
  end
end

-- Against the same in double precision.
local random = t.random(3)
for _ = 1, 1000 do
  local a, b = t.float(random(-20, 20)), t.float(random(-20, 20))
  local turn = (b - a) - math.floor((b - a) / (2 * math.pi)) * 2 * math.pi
  turn = turn > math.pi and turn - 2 * math.pi or turn
  local got = math3d.delta_angle(a, b)
  t.ok(math.abs(got - turn) < 1e-5 or math.abs(math.abs(got - turn) - 2 * math.pi) < 1e-5, "delta_angle")
  local length = t.float(random(0.1, 5))
  t.near(math3d["repeat"](a, length), a - math.floor(a / length) * length, 2e-5)
end

-- Count first, then the arguments from the left.
raises(t.bad_count(0, "1"), math3d.radians)
raises(t.bad_count(2, "1"), math3d.radians, 1, 2)
raises(t.bad_count(4, "3"), math3d.clamp, {}, 1, 2, 3)
raises(t.bad_argument("nil", 1, "float"), math3d.radians, nil)
raises(t.bad_argument("table", 2, "float"), math3d.lerp, 1, {}, {})
raises(t.bad_argument("Vector3", 2, "float"), math3d.delta_angle, 1, math3d.Vector3.new())
raises(t.bad_argument("string", 1, "float"), math3d.degrees, "ten")
raises(t.bad_argument("boolean", 3, "float"), math3d.lerp_angle, 1, 2, true)

t.done()
