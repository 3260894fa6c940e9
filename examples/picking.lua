-- What is under the pointer: a ray through a pixel, against the ground and against boxes that stand any way they like.
--
--     ./run examples/picking.lua [COLUMNS]
--
-- Prints what the camera sees, a ray for each character, and what a few clicks hit. The asserts hold what the comments
-- say.

local math3d = require "math3d"
local Vector3, Ray, Aabb = math3d.Vector3, math3d.Ray, math3d.Aabb
local dot = math3d.vector3_dot

local columns = math.tointeger(tonumber(arg[1] or 76))
local lines = columns * 3 // 8 -- a character is higher than wide

----------------------------------------------------------------------------------------------------------------------
-- The camera: where it stands, and how wide it sees.

local camera = math3d.matrix_rotation_look(Vector3.new(0, -0.35, 1), Vector3.new(0, 1, 0))
camera.translation = Vector3.new(0, 5, -10)
local half_width = math.tan(math3d.radians(60) / 2) -- of the picture at distance 1
local half_height = half_width * 3 / 4

-- The ray through a place in the picture: x from -1 (left) to 1, y from -1 (bottom) to 1. A direction is turned by the
-- camera's matrix and not moved.
local function ray_through(x, y)
  local direction = math3d.vector3_transform_normal(Vector3.new(x * half_width, y * half_height, 1), camera)
  direction:normalize()
  return Ray.new(camera.translation, direction)
end
assert(ray_through(0, 0).direction == camera.forward)

----------------------------------------------------------------------------------------------------------------------
-- A ray against a plane. The plane_* functions know lines, which go on behind the eye too: there it is not seen.

local function hit_plane(plane, ray)
  local point = math3d.plane_intersect_line(plane, ray.origin, ray.origin + ray.direction)
  local distance = point and dot(point - ray.origin, ray.direction)
  return distance and distance > 0 and distance or nil
end

local ground = math3d.plane_from_point_normal(Vector3.new(), Vector3.new(0, 1, 0))
assert(hit_plane(ground, Ray.new(Vector3.new(0, 2, 0), Vector3.new(0, -1, 0))) == 2)
assert(not hit_plane(ground, Ray.new(Vector3.new(0, 2, 0), Vector3.new(0, 1, 0))), "behind the eye")
assert(not hit_plane(ground, Ray.new(Vector3.new(0, 2, 0), Vector3.new(1, 0, 0))), "along the plane")

----------------------------------------------------------------------------------------------------------------------
-- A ray against a box, slab by slab: between its two planes of x the ray goes from one distance to another, so it does
-- for y and for z, and what is inside of all three is inside of the box. A ray along a slab divides by zero: that gives
-- infinities, which are right.

local function hit_box(box, ray)
  local low, high, origin, direction = box.min, box.max, ray.origin, ray.direction
  local near, far = 0, math.huge
  for _, axis in ipairs { "x", "y", "z" } do
    local one = (low[axis] - origin[axis]) / direction[axis]
    local other = (high[axis] - origin[axis]) / direction[axis]
    near = math.max(near, math.min(one, other))
    far = math.min(far, math.max(one, other))
  end
  return near <= far and near or nil
end

-- A box that is turned: the ray is taken into the space of the box, where it stands straight, by the inverse of the
-- box's pose. Lengths stay, and so do distances along the ray, since the pose does not scale.
local function hit_object(object, ray)
  local inverse = object.inverse
  return hit_box(object.box, Ray.new(ray.origin * inverse, math3d.vector3_transform_normal(ray.direction, inverse)))
end

local objects = {}
local function add(letter, size, position, yaw)
  local pose = math3d.matrix_rotation_zxy(0, math3d.radians(yaw), 0)
  pose.translation = position
  objects[#objects + 1] = {
    letter = letter, pose = pose, inverse = math3d.matrix_inverse(pose), box = Aabb.new(Vector3.new(), size),
  }
end
add("A", Vector3.new(2, 2, 2), Vector3.new(-3.5, 1, 0), 30)
add("B", Vector3.new(1, 5, 1), Vector3.new(0, 2.5, 3), 0)
add("C", Vector3.new(4, 1, 2), Vector3.new(3.5, 0.5, 1), -40)

----------------------------------------------------------------------------------------------------------------------
-- The nearest of all.

local function pick(ray)
  local nearest, found = hit_plane(ground, ray) or math.huge, nil
  for _, object in ipairs(objects) do
    local distance = hit_object(object, ray)
    if distance and distance < nearest then
      nearest, found = distance, object
    end
  end
  if nearest < math.huge then
    return nearest, found, ray.origin + ray.direction * nearest
  end
end

for line = 1, lines do
  local row = {}
  for column = 1, columns do
    local x, y = (column - 0.5) / columns * 2 - 1, 1 - (line - 0.5) / lines * 2
    local distance, object, point = pick(ray_through(x, y))
    -- The ground is a board of squares, and ends where it gets too far.
    row[column] = object and object.letter
      or distance and distance < 40 and (math.floor(point.x / 2) + math.floor(point.z / 2)) % 2 == 0 and "."
      or " "
  end
  print((table.concat(row):gsub("%s+$", "")))
end

for _, click in ipairs { {0, 0}, {0, 0.4}, {-0.6, -0.05}, {0.55, -0.1}, {0, 0.99} } do
  local distance, object, point = pick(ray_through(click[1], click[2]))
  local what = not distance and "nothing"
    or ("%s, %.2f away, at (%.2f, %.2f, %.2f)"):format(object and "box " .. object.letter or "the ground", distance,
      point.x, point.y, point.z)
  print(("click (%5.2f, %5.2f): %s"):format(click[1], click[2], what))
  -- A point on a box is on its surface: on the bounds of one axis in the box's own space, and within the others.
  if object then
    local inside, half = point * object.inverse, object.box.extents
    local x, y, z = math.abs(inside.x) / half.x, math.abs(inside.y) / half.y, math.abs(inside.z) / half.z
    assert(math.abs(math.max(x, y, z) - 1) < 1e-4)
  end
end

-- A first test for many boxes: around each one another that stands straight in the world. Who misses that misses both.
local missed = 0
for _, object in ipairs(objects) do
  local around = math3d.aabb_transform(object.box, object.pose)
  for i = 0, 99 do
    local ray = ray_through(math.cos(i) * i / 100, math.sin(i) * i / 100)
    local hit, hit_around = hit_object(object, ray), hit_box(around, ray)
    assert(not hit or hit_around and hit_around <= hit + 1e-4)
    missed = missed + (hit_around and 0 or 1)
  end
end
print(("%d of 300 rays need no second look"):format(missed))
