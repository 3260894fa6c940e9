-- Vector3 as scripts see it: values, messages, number of results, what changes and what does not.
require "math3d"
local t = require "harness"
local eq, near, ok, raises, count = t.eq, t.near, t.ok, t.raises, t.count
local V, needed = math3d.Vector3, t.needed.Vector3
local inf, nan = math.huge, 0 / 0

local function v(x, y, z) return V.new(x, y, z) end

-- Form in Lua.
local a, b = v(1, 2, 3), v(4, 5, 6)
eq(t.fields(a), "__dummy_type x y z")
eq(rawget(a, "__dummy_type"), "class zeph::math3d::LuaVector3")
eq(math.type(a.x), "float")
ok(getmetatable(a) == V and math3d.Vector == V and V.__gc == nil and V.__clear == nil)
eq({V.class_name, V.lua_name, V.__zplua_class}, {"class zeph::math3d::LuaVector3", "Vector3", true})
eq(v(0.1, 0, 0).x, t.float(0.1))

-- new
eq(V.new(), {x = 0.0, y = 0.0, z = 0.0})
eq(V.new(2), {x = 2.0, y = 2.0, z = 2.0})
local copy = V.new(a)
ok(copy == a and not rawequal(copy, a))
eq(V.new("1", " 0x10 ", "1e2"), {x = 1.0, y = 16.0, z = 100.0}, "numeric strings are numbers")
for _, arguments in ipairs {{1, 2}, {"x"}, {{}}, {a, 1}, {1, 2, 3, 4}, {1, nil, 3}, {true}} do
  raises(t.bad_overload, V.new, table.unpack(arguments, 1, #arguments))
end
raises(t.bad_overload, V.new, 1, 2, 3, 4)
raises(t.bad_overload, V.new, nil)

-- Operators leave their operands alone and give new values.
for _, case in ipairs {
  {a + b, 5, 7, 9}, {a - b, -3, -3, -3}, {a * b, 4, 10, 18}, {a * 2, 2, 4, 6}, {b / V.new(2, 5, 4), 2, 1, 1.5},
  {b / 2, 2, 2.5, 3}, {a:cross(b), -3, 6, -3}, {a / 0, inf, inf, inf}, {V.new() / 0, nan, nan, nan},
} do
  eq(case[1], {x = case[2] + 0.0, y = case[3] + 0.0, z = case[4] + 0.0})
  ok(getmetatable(case[1]) == V)
end
eq({a.x, a.y, a.z, b.x, b.y, b.z}, {1.0, 2.0, 3.0, 4.0, 5.0, 6.0})
-- Division is by the reciprocal in single precision: one rounding more than a quotient.
eq((v(1, 2, 3) / 7).z, t.float(3 * t.float(1 / 7)))
ok((v(1, 2, 3) / 7).z ~= t.float(3 / 7))

raises(t.bad_argument("number", 2, needed), function() return a + 1 end)
raises(t.bad_argument("table", 2, needed), function() return a - {} end)
raises(t.bad_self("number", "Vector3"), function() return 1 + a end)
raises(t.bad_self("number", "Vector3"), function() return 2 * a end)
raises(t.bad_self("table", "Vector3"), function() return {} / a end)
raises(t.bad_overload, function() return a * "x" end)
raises(t.bad_overload, function() return a / {} end)
raises(t.bad_count(0, "1"), V.__add, a)
raises(t.bad_count(2, "1"), V.__add, a, b, b)
raises(t.bad_self("no value", "Vector3"), V.__add)

-- Equality: 1e-6 a component, both bounds included, NaN passes.
local epsilon = math3d.EPSILON
for _, case in ipairs {
  {{0, 0, 0}, {epsilon, -epsilon, 0}, true}, {{0, 0, 0}, {2e-6, 0, 0}, false}, {{0, 0, 0}, {0, 0, -2e-6}, false},
  {{nan, 1, 2}, {5, 1, 2}, true}, {{nan, 1, 2}, {5, 1, 3}, false}, {{inf, 0, 0}, {inf, 0, 0}, true},
} do
  eq(v(table.unpack(case[1])) == v(table.unpack(case[2])), case[3])
end
ok(not (a == 1) and a ~= nil)
raises(t.bad_argument("table", 2, needed), function() return a == {} end)
raises(t.bad_self("table", "Vector3"), function() return setmetatable({}, {__eq = V.__eq}) == a end)

-- Properties.
eq({a.length_sqr, v(3, 4, 12).length, a.is_zero}, {14.0, 13.0, false})
eq({v(1e-7, 0, 0).is_zero, v(2e-6, 0, 0).is_zero, v(nan, 0, 0).is_zero, v(nan, 1, 0).is_zero}, {true, false, true, false})
eq({V.new().length, V.new().yaw, V.new().pitch}, {0.0, 0.0, -0.0})
near({v(1, 0, 0).yaw, v(0, 1, 0).pitch, v(0, -1, 0).pitch, v(0, 0, -1).yaw},
  {math.pi / 2, -math.pi / 2, math.pi / 2, math.pi})
for yaw = -3, 3 do
  for pitch = -1.5, 1.5, 0.25 do
    local d = v(math.sin(yaw) * math.cos(pitch), -math.sin(pitch), math.cos(yaw) * math.cos(pitch)) * 7
    near({d.yaw, d.pitch}, {yaw, pitch}, 2e-6)
  end
end
raises("property 'length' of Vector3 is read-only", function() a.length = 1 end)
raises(t.bad_self("number", "Vector3"), V.__index, 1, "length")
eq(a:getProperties(), {length = false, length_sqr = false, is_zero = false, yaw = false, pitch = false})
eq({a.nothing, V.nothing}, {nil, nil})
a.note = "raw"
eq(rawget(a, "note"), "raw")

-- Mutators write into the table, through every reference, and return nothing.
local c = v(1, 2, 3)
local same = c
c.note = "kept"
eq(count(c:set(4, 5, 6)), 0)
eq(same, {x = 4.0, y = 5.0, z = 6.0, note = "kept"})
eq(count(V.set(c, 0, 3, 4)), 0)
eq(count(c:normalize()), 0)
near(c, {x = 0, y = 0.6, z = 0.8})
c:normalize(nil) near(c.length, 1)
c:normalize(3) near(c.length, 3)
c:normalize(-1) near(c, {y = -0.6, z = -0.8})
c = V.new() c:normalize(5) eq(c, {x = 0.0, y = 0.0, z = 0.0})
c = v(nan, 1, 2) c:normalize() eq(c, {x = nan, y = nan, z = nan})
c = v(3e38, 1, 2) c:normalize() eq(c, {x = nan, y = nan, z = nan})
c = v(1e-30, 0, 0) c:normalize() eq(c, {x = 0.0, y = 0.0, z = 0.0}, "a squared length that underflows is zero")
c = v(1, 1, 1) c:intrp(c, v(3, 5, 7), 2) eq(c, {x = 5.0, y = 9.0, z = 13.0})
c:intrp(v(0, 0, 0), c, 0.5) eq(c, {x = 2.5, y = 4.5, z = 6.5})
raises(t.bad_argument("string", 2, "class zeph::binding::Nullable<float>"), c.normalize, c, "x")
raises(t.bad_count(0, "[1-2]"), V.normalize)
raises(t.bad_count(3, "[1-2]"), V.normalize, c, 1, 2)
raises(t.bad_count(3, "4"), c.set, c, 1, 2)
raises(t.bad_argument("nil", 1, needed), V.set, nil, 1, 2, 3)
raises(t.bad_argument("table", 3, "float"), c.set, c, 1, {}, 3)
raises(t.bad_argument("number", 3, needed), c.intrp, c, a, 1, 1)
raises(t.bad_count(1, "2"), c.cross, c)
raises(t.bad_count(0, "1"), c.distance, c)
eq(c, {x = 2.5, y = 4.5, z = 6.5}, "an error leaves the object as it was")
eq(v(1, 2, 3):distance(v(4, 6, 3)), 5.0)

-- In a coroutine the write goes to the table of the coroutine's own call.
local d = v(1, 2, 3)
coroutine.wrap(function(x) x:set(7, 8, 9) coroutine.yield() end)(d)
eq(d.x, 7.0)

-- Fields that a script has put there: numeric strings count, the rest is 0; a write heals them.
local odd = v(1, 2, 3)
odd.x, odd.y, odd.z = "1.5", nil, {}
eq({odd.length, tostring(odd)}, {1.5, "Vector3(1.500000, 0.000000, 0.000000)"})
odd:set(1, 2, 3)
eq(t.fields(odd), "__dummy_type x y z")
local by_hand = setmetatable({x = 1, y = 2}, V)
eq((by_hand + v(1, 1, 1)), {x = 2.0, y = 3.0, z = 1.0})
local forged = {__dummy_type = V.class_name, x = 1, y = 2, z = 3}
raises(t.bad_argument("table", 2, needed), function() return a + forged end)
local stripped = setmetatable(v(1, 2, 3), nil)
raises(t.bad_argument("table", 1, needed), V.set, stripped, 1, 2, 3)
eq(stripped.x, 1.0)

-- Text.
local s = v(1, 2.5, -0.00001)
eq({s:to_string(), count(s:to_string())}, {"1.000000,2.500000,0.000000", 1})
for _, case in ipairs {
  {0.00005, "0.000000"}, {-0.0001, "-0.000100"}, {0.0001, "0.000100"}, {-0.00005, "0.000000"}, {-0.0, "0.000000"},
  {123456.789, "123456.789062"}, {inf, "inf"}, {-inf, "-inf"},
} do
  eq(v(case[1], 0, 0):to_string(), case[2] .. ",0.000000,0.000000")
end
local huge = v(3e38, -3e38, 3e38):to_string()
eq(#huge, 46 + 1 + 47 + 1 + 46)
for _, case in ipairs {
  {"1,2,3", 1, 2, 3}, {"1,2,3,4", 1, 2, 3}, {" 1.5x, 2 ,3e1z", 1.5, 2, 30}, {",,", 0, 0, 0}, {"a,b,c", 0, 0, 0},
  {"1,2", 9, 9, 9}, {"", 9, 9, 9}, {"nonsense", 9, 9, 9}, {("0"):rep(62) .. "7,2," .. ("0"):rep(500) .. "3", 7, 2, 3},
  {("0"):rep(62) .. "78,2,3", 7, 2, 3},
} do
  local r = v(9, 9, 9)
  eq(count(r:from_string(case[1])), 0)
  eq(r, {x = case[2] + 0.0, y = case[3] + 0.0, z = case[4] + 0.0}, case[1])
end
local kept = v(0, 0, 0)
kept.x = 0.1
kept:from_string("1,2")
eq(kept.x, 0.1, "a text without enough commas writes nothing at all")
raises(t.bad_argument("table", 2, "char const *"), kept.from_string, kept, {})
kept:from_string(12)
eq(kept.x, 0.1)
local random = t.random(7)
for _ = 1, 1000 do
  local r = v(random(-1000, 1000), random(-1, 1), random(-1e-4, 1e-4))
  local text = r:to_string()
  r:from_string(text)
  eq(r:to_string(), text)
end
eq(tostring(v(1, 2, 3)), "Vector3(1.000000, 2.000000, 3.000000)")
eq(#tostring(v(3e38, 3e38, 3e38)), 99)
eq(V.__asstring({x = 1, y = "2"}), "Vector3(1.000000, 2.000000, 0.000000)")
raises(t.bad_self("number", "Vector3"), V.__asstring, 1)
raises(t.bad_self("no value", "Vector3"), V.__asstring)

local list = v(1, 2, 3):to_list()
eq(list, {1.0, 2.0, 3.0})
ok(#list == 3 and getmetatable(list) == nil)

t.done()
