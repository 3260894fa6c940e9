-- Plane, Ray, RectF, RectOffset and Aabb: every name of theirs.
require "math3d"
local t = require "harness"
local eq, ok, raises, count = t.eq, t.ok, t.raises, t.count
local nan, epsilon = 0 / 0, math3d.EPSILON
local Plane, Ray, Rect, Offset, Aabb = math3d.Plane, math3d.Ray, math3d.RectF, math3d.RectOffset, math3d.Aabb
local p, v, v2 = Plane.new, math3d.Vector3.new, math3d.Vector2.new
local v3_needed, v2_needed = t.needed.Vector3, t.needed.Vector2

for name, fields in pairs {Plane = "dist normal", Ray = "direction origin", RectF = "bottom left right top",
                           RectOffset = "bottom left right top"} do
  local class, class_name = math3d[name], "class zeph::math3d::Lua" .. name
  eq({t.fields(class.new()), class.class_name, class.lua_name, class.new().__dummy_type},
    {"__dummy_type " .. fields, class_name, name, class_name})
end

-- Plane: dot(p, normal) == dist. Zeros of either sign are alike.
local floor = p(0, 1, 0, 2)
t.calls(Plane, {
  {"new", {}, {normal = v(), dist = 0.0}}, {"new", {1, 2, 3, 4}, {normal = v(1, 2, 3), dist = 4.0}},
  {"new", {floor}, floor}, {"new", {v(0, 2, 0), "1"}, p(0, 2, 0, 1)}, {"new", {v(0, 2, 0), v(9, 5, 9)}, p(0, 2, 0, 10)},
  {"new", {v(0, 0, 1), v(0, 1, 1), v(1, 0, 1)}, p(0, 0, -1, -1)}, {"new", {v(1, 2, 3), v(2, 4, 6), v(3, 6, 9)}, p()},
  {"distance_to", {p(0, 2, 0, 1), v(9, 3, 9)}, 5.0},
  {"__eq", {floor, p(epsilon, 1, nan, 2)}, true}, {"__eq", {floor, p(2e-6, 1, 0, 2)}, false},
  {"__eq", {p(), p(0, 0, 0, 9e-7)}, true}, {"__eq", {p(), p(0, 0, 0, epsilon)}, false},
  {"__eq", {floor, p(0, -1, 0, -2)}, false}, {"__tostring", {floor}, "Plane(0.000000, 1.000000, 0.000000, 2.000000)"},
  {"__asstring", {{normal = {x = 1}, dist = "3"}}, "Plane(0.000000, 0.000000, 0.000000, 3.000000)"},
}, 0)
t.fits_none(p, {{v()}, {1}, {v(), {}}, {v(), v(), 1}, {1, 2, 3}, {floor, 1}, {1, 2, 3, {}}, {v(), v(), v(), v()}})
-- The normal is a table of the plane's own.
local normal = v(0, 1, 0)
local plane = p(normal, 5)
normal.y = 9
plane.normal.x = 2
eq(plane, p(2, 1, 0, 5))
plane.normal, plane.dist = {x = 1}, nil
eq(plane:distance_to(v(1, 1, 1)), 0.0, "fields that do not fit")
-- The projection is written into the table that the script gives for it.
local out = v(9, 9, 9)
out.note = "kept"
eq(count(floor:project_point(out, v(4, 7, 5))), 0)
eq({out, floor}, {{x = 4.0, y = 2.0, z = 5.0, note = "kept"}, p(0, 1, 0, 2)})
out:set(3, 8, 3) floor:project_point(out, out) eq(out, v(3, 2, 3), "the point itself as the target")
local tilted = p(0, 0.5, 0, 1)
tilted:project_point(tilted.normal, v(0, 4, 0)) eq(tilted, p(0, 3.5, 0, 1), "the normal as the target")
t.orders(Plane, t.needed.Plane, floor, {__eq = "1", distance_to = "1", project_point = "2"}, {})
raises(t.bad_argument("table", 2, t.needed.Plane), function() return floor == {} end)
raises(t.bad_argument("table", 2, v3_needed), floor.project_point, floor, {}, v())
raises(t.bad_argument("Plane", 3, v3_needed), floor.project_point, floor, out, floor)
eq(out, v(3, 2, 3))

-- Ray
local ray = Ray.new(v(1, 2, 3), v(0, 0, -4))
t.calls(Ray, {
  {"new", {}, {origin = v(), direction = v()}}, {"new", {ray}, {origin = v(1, 2, 3), direction = v(0, 0, -4)}},
  {"__tostring", {ray}, "Ray(( 1.000000,  2.000000,  3.000000), ( 0.000000,  0.000000, -4.000000))"},
  {"__asstring", {{origin = v(1, -1, 0)}}, "Ray(( 1.000000, -1.000000,  0.000000), ( 0.000000,  0.000000,  0.000000))"},
})
ok(not rawequal(Ray.new(ray).origin, ray.origin))
eq(#tostring(Ray.new(v(3e38, 0, 0), v(3e38, 0, 0))), 99)
t.fits_none(Ray.new, {{v()}, {v(), 1}, {ray, ray}, {1, 2, 3, 4, 5, 6}})

-- RectF: position and size, or four edges that nothing sorts.
local r = Rect.new(v2(1, 2), v2(3, 4))
t.calls(Rect, {
  {"new", {}, {left = 0.0, top = 0.0, right = 0.0, bottom = 0.0}}, {"new", {1, 2, 4, "6"}, r},
  {"__eq", {r, Rect.new(1, 2, 4, 6)}, true}, {"__eq", {r, Rect.new(1, 2, 4, 6.0000005)}, false},
  {"__add", {r, v2(1, -1)}, Rect.new(2, 1, 5, 5)}, {"__mul", {r, -2}, Rect.new(-2, -4, -8, -12)},
  {"__tostring", {r}, "RectF(1.000000, 2.000000, 4.000000, 6.000000)"},
  {"__asstring", {{left = "7", top = {}}}, "RectF(7.000000, 0.000000, 0.000000, 0.000000)"},
})
eq({r.min, r.max, r.width, r.height, (r * -2).width}, {v2(1, 2), v2(4, 6), 3.0, 4.0, -6.0})
eq(r:getProperties(), {min = true, max = true, width = true, height = true})
t.fits_none(Rect.new, {{r}, {1}, {v2(), 1}, {1, 2, 3}, {v2()}, {v(), v()}})
-- An assignment reaches the table, through every reference; a corner that was read is a copy.
local same = r
r.note = "kept"
r.min = v2(0, 1) eq(same, {left = 0.0, top = 1.0, right = 4.0, bottom = 6.0, note = "kept"})
r.max = v2(-3, 8) eq(same, Rect.new(0, 1, -3, 8))
r.width = "2" r.min.x = 9 eq(same, Rect.new(0, 1, 2, 8))
r.left, r.top = "0.5", nil
r.height = -5 eq(r, Rect.new(0.5, 0, 2, -5), "a write heals the other fields")
for property, needed in pairs {min = v2_needed, max = v2_needed, width = "float", height = "float"} do
  raises(t.bad_object("number", Rect.class_name), Rect.__index, 1, property)
  raises(t.bad_object("RectOffset", Rect.class_name), Rect.__newindex, Offset.new(), property, 1)
  raises(t.bad_value("Vector3", needed), function() r[property] = v() end)
end
eq(r, Rect.new(0.5, 0, 2, -5))
t.orders(Rect, t.needed.RectF, r, {__eq = "1", __add = "1", __mul = "1"}, {})
raises(t.bad_argument("RectF", 2, v2_needed), function() return r + r end)
raises(t.bad_argument("Vector2", 2, "float"), function() return r * v2() end)

-- RectOffset: built and printed.
t.calls(Offset, {
  {"new", {1, 2, 3, 4}, {left = 1.0, top = 2.0, right = 3.0, bottom = 4.0}}, {"new", {}, Offset.new(0, 0, 0, 0)},
  {"__tostring", {Offset.new(1, 2, 3, 4)}, "RectOffset(1.000000, 2.000000, 3.000000, 4.000000)"},
})
t.fits_none(Offset.new, {{Offset.new()}, {v2(), v2()}, {1}})

-- Aabb: an object, changed in place. The centre goes by the half size of the last building, the extents by the corners.
local box = Aabb.new(v(0, 0, 0), v(2, 4, 6))
eq({type(box), Aabb.class_name, Aabb.lua_name}, {"userdata", "class zeph::math3d::LuaAABB", "Aabb"})
eq(box, {max = v(1, 2, 3), min = v(-1, -2, -3), center = v(), extents = v(1, 2, 3)})
eq(box:getProperties(), {min = true, max = true, center = false, extents = false})
local big = 1.7014117331926443e38
eq(Aabb.new(), {max = v(-big, -big, -big), min = v(big, big, big), center = v(2 * big, 2 * big, 2 * big)})
local copy = Aabb.new(box)
ok(copy == box and not rawequal(copy, box) and box ~= Aabb.new())
copy.min = v()
eq({copy, box.min}, {{min = v(), max = v(1, 2, 3), extents = v(0.5, 1, 1.5), center = v(1, 2, 3)}, v(-1, -2, -3)})
copy.max.x = 9 eq(copy.max, v(1, 2, 3))
local corners = box:get_corners()
ok(getmetatable(corners) == nil and t.fields(corners) == "0 1 2 3 4 5 6 7")
eq({corners[0], corners[1], corners[2], corners[4], corners[7]},
  {v(-1, -2, 3), v(1, -2, 3), v(1, 2, 3), v(-1, -2, -3), v(-1, 2, -3)})
local matrix = math3d.Matrix.new()
eq({math3d.aabb_transform(copy, matrix).center, copy.center}, {v(0.5, 1, 1.5), v(1, 2, 3)}, "a half size made anew")
matrix:set_all(0, 2, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0.25, 10, 20, 30, 1)
eq(math3d.aabb_transform(box, matrix), {min = v(8 / 1.75, 18 / 1.75, 33 / 1.75), max = v(48, 88, 108)})
copy.min, copy.max = box.min, v(1, 2 - epsilon / 2, nan) ok(copy == box)
copy.max = v(1, 2 + 2e-6, 3) ok(copy ~= box)
eq(tostring(box), "Aabb((-1.000000, -2.000000, -3.000000), (1.000000, 2.000000, 3.000000))")
eq(#tostring(Aabb.new()), 99)
t.fits_none(Aabb.new, {{v()}, {v(), 1}, {box, box}, {1, 2}, {v(), v(), v()}})
local pointer = t.needed.Aabb .. " *"
for property, writable in pairs(box:getProperties()) do
  raises(t.bad_object("Vector3", pointer), Aabb.__index, v(), property)
  if writable then
    raises(t.bad_value("number", v3_needed), function() box[property] = 1 end)
    raises(t.bad_object("nil", pointer), Aabb.__newindex, nil, property, v())
  end
end
t.orders(Aabb, t.needed.Aabb, nil, {}, {__eq = "2", get_corners = "1"})
t.orders(math3d, t.needed.Aabb, nil, {}, {aabb_transform = "2"})
raises(t.bad_argument("Vector3", 2, t.needed.Aabb), Aabb.__eq, box, v())
raises(t.bad_argument("Aabb", 2, t.needed.Matrix), math3d.aabb_transform, box, box)

t.done()
