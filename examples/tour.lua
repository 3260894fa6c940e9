-- A tour of math3d, to be read along with what it prints: on the left the code, on the right what came of it.
--
--     ./run examples/tour.lua
--
-- The asserts hold what the comments claim.

local math3d = require "math3d"
local Vector3 = math3d.Vector3 -- math3d.Vector is the same class by its other name
local Matrix, Plane, Aabb, Color32, ColorF = math3d.Matrix, math3d.Plane, math3d.Aabb, math3d.Color32, math3d.ColorF

local function chapter(title)
  print(("\n%s\n%s"):format(title, ("-"):rep(#title)))
end

local function show(code, value)
  local text = math.type(value) == "float" and ("%.6g"):format(value) or tostring(value)
  print(("  %-36s %s"):format(code, text))
end

chapter "Making vectors"

-- +x points right, +y up and +z forward; lengths are in whatever unit your world has.
local nowhere = Vector3.new()
local ones = Vector3.new(1)
local tower = Vector3.new(0, 12, 0)
local drone = Vector3.new(3, 12, 4)
local copy = Vector3.new(drone)

show("Vector3.new()", nowhere)
show("Vector3.new(1)", ones)
show("Vector3.new(3, 12, 4)", drone)
assert(copy == drone and not rawequal(copy, drone))

-- A vector is a table, and its fields are yours to read and to write.
copy.y = 20
show("copy.y = 20", copy)
assert(drone.y == 12, "a copy shares nothing with its original")

chapter "Arithmetic"

-- Operators make new vectors. A number goes to the right of the vector.
local way = drone - tower
show("drone - tower", way)
show("tower + way * 2", tower + way * 2)
show("way / 2", way / 2)

-- Between two vectors, * and / go component by component, as scales do.
show("way * Vector3.new(1, 1, -1)", way * Vector3.new(1, 1, -1))
assert(way * Vector3.new(1, 1, -1) == Vector3.new(3, 0, -4))

-- Numbers are kept in single precision, and == allows for that: equal means within a millionth in each component.
assert(Vector3.new(0.1) + Vector3.new(0.2) == Vector3.new(0.3))
assert(Vector3.new(0.1) ~= Vector3.new(0.10001))

chapter "Properties"

-- Properties are computed when they are read: no parentheses, and nothing to assign.
show("way.length", way.length)
show("way.length_sqr", way.length_sqr)
show("nowhere.is_zero", nowhere.is_zero)
assert(way.length == 5 and way.length_sqr == 25)

-- As a direction, a vector has a yaw, which turns from forward to the right, and a pitch, which is positive downward.
-- Angles are radians.
show("math3d.degrees(way.yaw)", math3d.degrees(way.yaw))
local downhill = Vector3.new(0, -1, 1)
show("math3d.degrees(downhill.pitch)", math3d.degrees(downhill.pitch))
assert(Vector3.new(1, 0, 0).yaw == math3d.HALF_PI and Vector3.new(0, -1, 0).pitch == math3d.HALF_PI)

chapter "Methods"

-- Some answer and leave the vector alone ...
show("tower:distance(drone)", tower:distance(drone))
local right, up = Vector3.new(1, 0, 0), Vector3.new(0, 1, 0)
show("right:cross(up)", right:cross(up))
assert(right:cross(up) == Vector3.new(0, 0, 1))

-- ... and some change it in place and answer nothing: set, normalize, intrp, from_string.
local heading = Vector3.new(way)
assert(select("#", heading:normalize()) == 0)
show("heading:normalize()", heading)
assert(math.abs(heading.length - 1) < 1e-6)
heading:normalize(10)
show("heading:normalize(10)", heading)

-- intrp puts a vector on the line between two others: 0 is the first, 1 the second, and it goes on beyond both.
local place = Vector3.new()
for _, t in ipairs { 0, 0.5, 1, 1.5 } do
  place:intrp(tower, drone, t)
  show(("place:intrp(tower, drone, %g)"):format(t), place)
end
assert(place == Vector3.new(4.5, 12, 6))

chapter "Vectors as text and as lists"

-- tostring is for people, to_string for files: from_string reads it again.
show("tostring(drone)", tostring(drone))
local saved = drone:to_string()
show("drone:to_string()", saved)

local loaded = Vector3.new()
loaded:from_string(saved)
assert(loaded == drone)
loaded:from_string("7, 8.5, 9")
show('loaded:from_string("7, 8.5, 9")', loaded)

local x, y, z = table.unpack(drone:to_list())
assert(x == 3 and y == 12 and z == 4)

chapter "Numbers"

show("math3d.PI", math3d.PI)
show("math3d.radians(180)", math3d.radians(180))
show("math3d.clamp(12, 0, 10)", math3d.clamp(12, 0, 10))
show("math3d.lerp(20, 30, 0.25)", math3d.lerp(20, 30, 0.25))
show("math3d.repeat(7.5, 2)", math3d["repeat"](7.5, 2)) -- repeat is a word of Lua, so it stands in brackets
assert(math3d.radians(180) == math3d.PI and math3d["repeat"](7.5, 2) == 1.5)

-- From 350 to 10 degrees it is 20 degrees on, not 340 back. What lies between is not wrapped: 360, not 0.
local from, to = math3d.radians(350), math3d.radians(10)
show("degrees(delta_angle(350, 10))", math3d.degrees(math3d.delta_angle(from, to)))
show("degrees(lerp_angle(350, 10, 0.5))", math3d.degrees(math3d.lerp_angle(from, to, 0.5)))
assert(math.abs(math3d.degrees(math3d.delta_angle(from, to)) - 20) < 1e-3)

chapter "Rotations"

-- A rotation is a quaternion. This one turns a quarter about up, which takes forward to the right.
local forward = Vector3.new(0, 0, 1)
local quarter = math3d.quaternion_rotation_axis(up, math3d.HALF_PI)
show("quarter:rotate_vector(forward)", quarter:rotate_vector(forward))
show("quarter.right", quarter.right)
assert(quarter:rotate_vector(forward) == right)

-- slerp goes from one to the other at an even pace, and x, y, z angles are one of the ways to make one and to read it.
local some = math3d.quaternion_slerp(math3d.quaternion_identity(), quarter, 1 / 3)
show("slerp(identity, quarter, 1 / 3)", some)
show("quaternion_to_rotation_xzy(some)", math3d.quaternion_to_rotation_xzy(some))
assert(some == math3d.quaternion_rotation_zxy(0, math3d.radians(30), 0))

chapter "Matrices"

-- A matrix turns, scales and moves. Vectors stand on the left, and in a product the left factor applies first.
local there = Matrix.make_rotation_y(math3d.HALF_PI) * Matrix.make_translation(tower)
show("forward * there", forward * there)
show("there.translation", there.translation)
local back = math3d.matrix_inverse(there)
show("forward * there * back", forward * there * back)
assert(forward * there == right + tower and forward * there * back == forward)

-- Unlike a vector it is no table: there.translation is a copy, and what is assigned to it is copied in. Two matrices
-- compare by a call that is told how near is equal.
there.translation = drone
assert(there:__eq(math3d.matrix_transformation_prs(drone, quarter, ones), 1e-6))

chapter "Planes and boxes"

-- The class Plane has normal * p = dist on the plane; the plane functions have the opposite sign, see
-- docs/conventions.md. Stay within one of the two.
local roof = Plane.new(up, tower)
show("roof:distance_to(Vector3.new())", roof:distance_to(Vector3.new()))
local ceiling = math3d.plane_from_point_normal(tower, up)
local from_here, to_there = Vector3.new(1, 0, 1), Vector3.new(1, 3, 2)
show("plane_intersect_line(ceiling, ...)", math3d.plane_intersect_line(ceiling, from_here, to_there))
assert(roof.dist == 12 and ceiling.dist == -12)

-- A box is made of its centre and its whole size; a turned one has a larger box around it.
local box = Aabb.new(drone, Vector3.new(2, 2, 2))
show("box", box)
show("box.extents", box.extents)
show("aabb_transform(box, ...).extents", math3d.aabb_transform(box, Matrix.make_rotation_y(math3d.PI / 4)).extents)

chapter "Colours"

-- Color32 has bytes, ColorF floats up to 1; both are made from alpha, red, green, blue, or from a word 0xAARRGGBB.
local orange = Color32.new(255, 255, 128, 0)
show("orange", orange)
assert(orange == Color32.new(0xFFFF8000))
show("color_lerp(black, orange, 0.5)", math3d.color_lerp(math3d.color_black(), ColorF.new(orange), 0.5))

chapter "Mistakes"

-- A wrong argument is a Lua error that names the place; nothing has been changed by then.
local function try(code, call, ...)
  local ok, message = pcall(call, ...)
  assert(not ok, "should have failed: " .. code)
  print(("  %s\n    %s"):format(code, message))
end
try("way + 1", function() return way + 1 end)
try("2 * way", function() return 2 * way end)
try("way:set(1, 2)", function() way:set(1, 2) end)
try("Vector3.new(1, 2)", function() return Vector3.new(1, 2) end)
try("way.length = 1", function() way.length = 1 end)
assert(way == Vector3.new(3, 0, 4))

print("\nThat was the tour.")
