-- Vector4: every name of it. It has no mutator.
require "math3d"
local t = require "harness"
local eq, raises = t.eq, t.raises
local V, needed = math3d.Vector4, t.needed.Vector4
local inf, nan = math.huge, 0 / 0
local v, v3 = V.new, math3d.Vector3.new(7, 8, 9)

eq({t.fields(v()), V.class_name, V.lua_name}, {"__dummy_type w x y z", "class zeph::math3d::LuaVector4", "Vector4f"})
local a, b = v(1, 2, 3, 4), v(5, 6, 7, 8)
t.calls(V, {
  {"new", {}, {x = 0.0, y = 0.0, z = 0.0, w = 0.0, __dummy_type = V.class_name}},
  {"new", {1, 2, "3", 4}, {x = 1.0, y = 2.0, z = 3.0, w = 4.0}}, {"new", {v3, "1"}, v(7, 8, 9, 1)},
  {"__add", {a, b}, v(6, 8, 10, 12)}, {"__sub", {a, b}, v(-4, -4, -4, -4)}, {"__sub", {a, 1}, v(0, 1, 2, 3)},
  {"__mul", {a, b}, v(5, 12, 21, 32)}, {"__mul", {a, -2}, v(-2, -4, -6, -8)},
  {"__div", {v(1, -1, 0, nan), 0}, v(inf, -inf, nan, nan)},
  -- Quotients, not products with the reciprocal.
  {"__div", {v(5, 10, 20, 40), 49}, v(5 / 49, 10 / 49, 20 / 49, 40 / 49)},
  {"__eq", {a, v(1, 2, 3, 4)}, true}, {"__eq", {a, v(1, 2, 3, 4.0000005)}, false},
  {"__eq", {v(nan, 0, 0, 0), v(nan, 0, 0, 0)}, false}, {"dot", {a, b}, 70.0}, {"to_list", {a}, {1.0, 2.0, 3.0, 4.0}},
  {"normalize", {v(0, 3, 0, 4)}, v(0, 3 * t.float(1 / 5), 0, 4 * t.float(1 / 5))}, {"normalize", {v()}, v()},
  {"normalize", {v(0, 0, 0, math3d.EPSILON)}, v()}, {"normalize", {v(nan, 1, 1, 1)}, v()},
  {"__tostring", {a}, "Vector4(1.000000, 2.000000, 3.000000, 4.000000)"},
  {"__asstring", {{x = {}, w = "-1"}}, "Vector4(0.000000, 0.000000, 0.000000, -1.000000)"},
})
t.near(v(0, 0, 0, 1.01e-6):normalize(), v(0, 0, 0, 1))
eq({#a:to_list(), getmetatable(a:to_list()), #tostring(v(3e38, 3e38, 3e38, 3e38))}, {4, nil, 99})
t.fits_none(v, {{a}, {1, 2}, {1, 2, 3}, {v3}, {v3, "x"}, {v3, 1, 2}, {1, 2, 3, {}}, {v3, v3}})
eq(a:getProperties(), {length = false, length_sqr = false})
eq({v(2, 4, 5, 6).length, v(2, 4, 5, 6).length_sqr}, {9.0, 81.0})

local odd = v(1, 2, 3, 4)
odd.y, odd.w = nil, "5"
eq(odd + v(), v(1, 0, 3, 5), "a missing field counts as 0")

t.orders(V, needed, a, {__eq = "1", __add = "1", __div = "1", dot = "1", normalize = "0"}, {to_list = "1"})
raises(t.bad_argument("number", 2, needed), function() return a + 1 end)
raises(t.bad_argument("Vector4f", 2, "float"), function() return a / b end)
for _, name in ipairs {"__sub", "__mul"} do
  raises(t.bad_self("number", "Vector4"), V[name], 2, a)
  t.fits_none(V[name], {{a}, {a, {}}})
end

t.done()
