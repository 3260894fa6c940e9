-- Color32, ColorF, and the functions color32_* and color_*.
require "math3d"
local t = require "harness"
local eq, raises, count = t.eq, t.raises, t.count
local nan, inf = 0 / 0, math.huge
local m, C, F = math3d, math3d.Color32, math3d.ColorF
local bytes, floats = t.needed.Color32, t.needed.ColorF

--- Both in the order of the fields, where `new` has the alpha first.
local function c(r, g, b, a) return C.new(a, r, g, b) end
local function f(r, g, b, a) return F.new(a, r, g, b) end

for name, class in pairs {Color32 = C, ColorF = F} do
  local class_name = "class zeph::math3d::Lua" .. name
  eq({t.fields(class.new()), class.class_name, class.new().__dummy_type},
    {"__dummy_type a b g r", class_name, class_name})
  t.fits_none(class.new, {{1, 2}, {"x"}, {1.5}, {{}}, {1, 2, 3}, {1, 2, 3, {}}, {1, 2, 3, 4, 5}, {class.new(), 1}})
end
t.fits_none(C.new, {{1, 2, 3, 4.5}})
eq({math.type(C.new().r), math.type(F.new().r), math.type(m.color32_to_int(C.new()))}, {"integer", "float", "integer"})

-- Integers are cut to their low bits; a word is 0xAARRGGBB.
t.calls(C, {
  {"new", {}, {r = 255, g = 255, b = 255, a = 255}}, {"new", {257, -1, "3", 4.0}, {a = 1, r = 255, g = 3, b = 4}},
  {"new", {c(1, 2, 3, 4)}, c(1, 2, 3, 4)}, {"new", {f(2, 0.5, nan, 0.25)}, c(255, 128, 0, 64)},
  {"new", {0x04010203}, c(1, 2, 3, 4)}, {"new", {-1}, C.new()}, {"new", {2 ^ 40 + 5}, c(0, 0, 5, 0)},
  {"__eq", {c(1, 2, 3, 4), C.new("0x04010203")}, true}, {"__eq", {c(1, 2, 3, 4), c(1, 2, 3, 5)}, false},
})
t.calls(F, {
  {"new", {}, {r = 1.0, g = 1.0, b = 1.0, a = 1.0}}, {"new", {0.5, "1", 2, -3}, {a = 0.5, r = 1.0, g = 2.0, b = -3.0}},
  {"new", {f(1, 2, 3, 4)}, f(1, 2, 3, 4)}, {"new", {c(255, 128, 0, 64)}, f(1, 128 / 255, 0, 64 / 255)},
  {"new", {0x80FF0040}, f(1, 0, 64 / 255, 128 / 255)}, {"new", {-1}, F.new()},
  {"__eq", {f(1, 0, 3, 4), f(1, -0.0, 3, 4)}, true}, {"__eq", {f(1, 2, 3, 4), f(1, 2, 3, 4.0000005)}, false},
  {"__eq", {f(nan, 0, 0, 0), f(nan, 0, 0, 0)}, false}, {"__mul", {f(0.5, 1, -1, 0.5), 3}, f(1.5, 3, -3, 0.5)},
  {"__add", {f(0.5, 0.5, 0.5, 0.5), f(0.75, 0, 0, 1)}, f(1.25, 0.5, 0.5, 0.5)},
  {"__tostring", {f(1, 0.5, -2, 3)}, "ColorF(1.000000, 0.500000, -2.000000, 3.000000)"},
  {"__asstring", {{g = "0.5", b = {}}}, "ColorF(1.000000, 0.500000, 1.000000, 1.000000)"},
})

-- Fields that a script has put there. A text shows integers whole, a value has their low bytes, and what is no integer
-- counts as 0; channels of a ColorF that are no numbers count as 1.
local odd = C.new()
for _, case in ipairs {
  {263, "263", 7}, {-1, "-1", 255}, {0x280000001, "-2147483647", 1}, {1.0, "0", 0}, {"7", "0", 0}, {nil, "0", 0},
} do
  odd.r = case[1]
  eq({tostring(odd), m.color32_to_int(odd)}, {"Color32(" .. case[2] .. ", 255, 255, 255)", case[3] << 16 | 0xFF00FFFF})
end
odd:intrp(odd, odd, 0)
eq(odd, c(0, 255, 255, 255), "a write heals the field")
odd = f(0.5, 0.5, 0.5, 0.5)
odd.r, odd.g, odd.b = "0.25", nil, {}
eq(F.new(odd), f(0.25, 1, 1, 0.5))
raises(t.bad_self("number", "Color32"), C.__asstring, 1)

-- Mutators
local self = c(9, 9, 9, 9)
for _, case in ipairs {{0.5, 127, 50, 150}, {2, 255, 0, 0}, {-1, 0, 200, 255}, {nan, 0, 0, 0}, {8.5e6, 255, 0, 0}} do
  eq(count(self:intrp(c(0, 100, 200, 0), c(255, 0, 100, 255), case[1])), 0)
  eq(self, c(case[2], case[3], case[4], case[2]))
end
self = f(-1, 0.5, 2, 5)
eq({count(self:clamp()), self}, {0, f(0, 0.5, 1, 5)})
self = f(nan, inf, -inf, nan) self:clamp() eq(self, f(nan, 1, 0, nan))
self = f(1, 2, 3, 4)
eq({count(self:intrp(self, f(2, 4, 6, 9), -1)), self}, {0, f(0, 0, 0, -1)})

t.orders(C, bytes, C.new(), {__eq = "1"}, {intrp = "4"})
t.orders(F, floats, F.new(), {__add = "1", __mul = "1"}, {__eq = "2", clamp = "1", intrp = "4"})
raises(t.bad_self("table", "Color32"), function() return {} == C.new() end)
raises(t.bad_argument("table", 1, floats), function() return {} == F.new() end)
raises(t.bad_argument("ColorF", 2, "float"), function() return F.new() * F.new() end)
raises(t.bad_argument("Color32", 3, floats), self.intrp, self, self, C.new(), 1)
eq(self, f(0, 0, 0, -1), "an error leaves the object as it was")

-- The functions
local low, high = c(0, 100, 200, 255), c(255, 0, 100, 0)
t.calls(m, {
  {"color32_from_rgba", {257, -1, "3", 4}, c(1, 255, 3, 4)}, {"color32_from_int", {-2}, c(255, 255, 254, 255)},
  {"color32_to_int", {c(1, 2, 3, 4)}, 0x04010203}, {"color32_to_int", {C.new()}, 4294967295},
  {"color32_black", {}, c(0, 0, 0, 255)}, {"color32_white", {}, C.new()},
  {"color32_lerp", {low, high, 0.5}, c(127, 50, 150, 127)}, {"color32_lerp", {low, high, 8.5e6}, c(0, 0, 0, 0)},
  {"color32_blend", {c(10, 20, 30, 200), c(100, 200, 50, 100)}, c(45, 90, 37, 78)},
  {"color32_multiply", {c(255, 255, 128, 10), c(255, 1, 128, 20)}, c(254, 0, 64, 0)},
  {"color_from_rgba", {300, 4294967295, 0, 255}, f(300 / 255, -1 / 255, 0, 1)}, {"color_white", {}, F.new()},
  {"color_black", {}, f(0, 0, 0, 1)}, {"color_from_color32", {c(255, 128, 0, 64)}, f(1, 128 / 255, 0, 64 / 255)},
  {"color_to_color32", {f(0.1, 0.2, -0.3, 2)}, c(26, 51, 0, 255)}, {"color_to_int", {f(1, 0.5, 0, 0.25)}, 1090486272},
  {"color_from_int", {0x80FF0040}, f(1, 0, 64 / 255, 128 / 255)},
})
t.calls(m, {
  {"color_lerp", {f(0, 0, 0, 0), f(1, 2, 3, 4), 2}, f(2, 4, 6, 8)},
  {"color_blend", {f(0.1, 0.2, 0.3, 0.4), f(0.5, 0.6, 0.7, 0.25)}, f(0.4, 0.5, 0.6, 0.1)},
  {"color_multiply", {f(0.1, 0.2, 0.3, 0.4), f(0.5, 0.6, 0.7, 0.25)}, f(0.05, 0.12, 0.21, 0.1)},
}, 1e-7)
for needed, functions in pairs {
  [bytes] = {color32_to_int = "1", color32_lerp = "3", color32_blend = "2", color32_multiply = "2",
             color_from_color32 = "1"},
  [floats] = {color_to_color32 = "1", color_to_int = "1", color_lerp = "3", color_blend = "2", color_multiply = "2"},
  int = {color32_from_rgba = "4", color_from_rgba = "4"},
  ["unsigned int"] = {color32_from_int = "1", color_from_int = "1"},
} do
  t.orders(m, needed, nil, {}, functions)
end
for _, name in ipairs {"color32_black", "color32_white", "color_white", "color_black"} do
  raises(t.bad_count(1, "0"), m[name], nil)
end
raises(t.bad_argument("number", 3, "int"), m.color32_from_rgba, 1, 2, 3.5, 4)

t.done()
