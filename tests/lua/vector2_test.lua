-- Vector2: every name of it, and where it is no shorter Vector3.
require "math3d"
local t = require "harness"
local eq, near, ok, raises, count = t.eq, t.near, t.ok, t.raises, t.count
local V, needed = math3d.Vector2, t.needed.Vector2
local inf, nan = math.huge, 0 / 0
local v = V.new

eq({t.fields(v()), V.class_name, V.lua_name}, {"__dummy_type x y", "class zeph::math3d::LuaVector2", "Vector2"})
local a, b = v(1, 2), v(4, 5)
t.calls(V, {
  {"new", {}, {x = 0.0, y = 0.0, __dummy_type = V.class_name}}, {"new", {1, "2"}, {x = 1.0, y = 2.0}}, {"new", {a}, a},
  {"__add", {a, b}, v(5, 7)}, {"__sub", {a, b}, v(-3, -3)}, {"__mul", {a, b}, v(4, 10)}, {"__mul", {a, "2"}, v(2, 4)},
  {"__div", {b, v(2, 0)}, v(2, inf)}, {"__div", {v(1, 0), 0}, v(inf, nan)},
  -- Two quotients: in single precision 5 * (1 / 49) is another number.
  {"__div", {v(5, 10), 49}, v(5 / 49, 10 / 49)},
  {"__eq", {a, v(1, 2)}, true}, {"__eq", {v(0.5, 0), v(0.5000001, 0)}, false}, {"__eq", {v(0, 1), v(-0.0, 1)}, true},
  {"__eq", {v(1, nan), v(1, nan)}, false}, {"__eq", {a, v(1, 3)}, false},
  {"dot", {a, b}, 14.0}, {"to_list", {b}, {4.0, 5.0}}, {"__tostring", {a}, "Vector2(1.000000, 2.000000)"},
  {"__asstring", {{y = "2.5"}}, "Vector2(0.000000, 2.500000)"},
})
ok(not rawequal(v(a), a) and #b:to_list() == 2 and getmetatable(b:to_list()) == nil)
t.fits_none(v, {{3}, {1, "x"}, {a, 1}, {a, b}, {1, 2, 3}, {math3d.Vector3.new()}})
t.fits_none(V.__div, {{a}, {a, {}}, {a, b, b}})
eq(a:getProperties(), {length = false, length_sqr = false, is_zero = false})
eq({v(3, -4).length, v(3, -4).length_sqr, v(3e38, 0).length}, {5.0, 25.0, inf})
eq({v(0, -0.0).is_zero, v(1e-30, 0).is_zero, v(0, nan).is_zero}, {true, false, false})

-- Mutators write into the table and return nothing. Normalisation has no guard.
local c = v(3, 4)
local same = c
c.note = "kept"
eq(count(c:normalize(7)), 0)
eq(same, {x = t.float(3 * t.float(7 / 5)), y = t.float(4 * t.float(7 / 5)), note = "kept"}, "times the one quotient")
c:normalize(-2) near(c, v(-1.2, -1.6))
c:normalize(nil) near(c.length, 1)
eq({count(c:set(0, -0.0)), c}, {0, v(0, -0.0)})
c:normalize(5) eq(c, v(nan, nan))
c:set(1e30, 1) c:normalize() eq(c, v(0, 0), "a length that overflows")
c:set(1, 2)
eq({count(c:intrp(c, v(3, 5), -1)), c}, {0, v(-1, -1)})

t.orders(V, needed, a, {__eq = "1", __add = "1", __sub = "1", dot = "1"},
  {set = "3", normalize = "[1-2]", intrp = "4", to_list = "1"})
raises(t.bad_argument("number", 2, needed), function() return a + 1 end)
raises(t.bad_argument("Vector3", 2, needed), a.dot, a, math3d.Vector3.new())
raises(t.bad_self("number", "Vector2"), function() return 2 * a end)
raises(t.bad_argument("Vector2", 2, "class zeph::binding::Nullable<float>"), a.normalize, a, b)
raises(t.bad_argument("string", 4, "float"), a.intrp, a, b, b, "x")
eq(a, v(1, 2), "an error leaves the object as it was")

t.done()
