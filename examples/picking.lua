-- What is under the pointer: a ray through a pixel, against the ground and against boxes that stand any way they like.
--
--     ./run examples/picking.lua [PICTURE.svg]
--
-- Prints what a few clicks hit, and draws what the camera sees, a ray for each square. Without an argument it makes
-- docs/pictures/picking.svg of this checkout. The asserts hold what the comments say.

local here = arg[0]:match("^.*/") or ""
package.path = here .. "lib/?.lua;" .. package.path

local math3d = require "math3d"
local svg = require "svg"
local Vector2, Vector3, Ray, Aabb = math3d.Vector2, math3d.Vector3, math3d.Ray, math3d.Aabb
local dot = math3d.vector3_dot

local path = arg[1] or here .. "../docs/pictures/picking.svg"
local columns, lines = 86, 48

----------------------------------------------------------------------------------------------------------------------
-- The camera: where it stands, and how wide it sees.

local camera = math3d.matrix_rotation_look(Vector3.new(0, -0.25, 1), Vector3.new(0, 1, 0))
camera.translation = Vector3.new(0, 5, -10)
local half_width = math.tan(math3d.radians(60) / 2) -- of the picture at distance 1
local half_height = half_width * lines / columns

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
local function add(name, word, size, position, yaw)
  local pose = math3d.matrix_rotation_zxy(0, math3d.radians(yaw), 0)
  pose.translation = position
  objects[#objects + 1] = {
    name = name, color = math3d.color_from_int(word), pose = pose, inverse = math3d.matrix_inverse(pose),
    box = Aabb.new(Vector3.new(), size),
  }
end
add("the crate", 0xFFE08A1E, Vector3.new(2, 2, 2), Vector3.new(-3.5, 1, 0), 30)
add("the pillar", 0xFF2F9E5B, Vector3.new(1, 4.5, 1), Vector3.new(0, 2.25, 3), 0)
add("the table", 0xFF2F6FD6, Vector3.new(4, 1, 2), Vector3.new(3.5, 0.5, 1), -40)

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

-- Where a point is on its box: on the bounds of one axis in the box's own space, which is 1, 2 or 3, and within the
-- others.
local function side_of(object, point)
  local inside, half = point * object.inverse, object.box.extents
  local parts = {math.abs(inside.x) / half.x, math.abs(inside.y) / half.y, math.abs(inside.z) / half.z}
  local furthest = math.max(table.unpack(parts))
  assert(math.abs(furthest - 1) < 1e-4)
  return parts[1] == furthest and 1 or parts[2] == furthest and 2 or 3
end

local clicks = { {-0.55, -0.3}, {0, 0.3}, {0.6, -0.5}, {-0.25, -0.88}, {0.6, 0.88} }
for _, click in ipairs(clicks) do
  local distance, object, point = pick(ray_through(click[1], click[2]))
  click.what = distance and ("%s, %.2f away"):format(object and object.name or "the ground", distance) or "nothing"
  print(("click (%5.2f, %5.2f): %-26s %s"):format(click[1], click[2], click.what, point or ""))
  if object then
    side_of(object, point)
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

----------------------------------------------------------------------------------------------------------------------
-- The picture.

local sky, shades = 0xFFDDE7F3, {0.25, 0, 0.42} -- how dark a side is, by its axis
local black, board = math3d.color_black(), {[0] = math3d.color_from_int(0xFFC9CFD8), math3d.color_from_int(0xFFB4BCC8)}

local function color_at(x, y)
  local distance, object, point = pick(ray_through(x, y))
  if not distance then
    return sky
  end
  local color = object and math3d.color_lerp(object.color, black, shades[side_of(object, point)])
    or board[(math.floor(point.x / 2) + math.floor(point.z / 2)) % 2]
  -- What is far fades into the sky.
  return math3d.color_to_int(math3d.color_lerp(color, math3d.color_from_int(sky), math3d.clamp(distance / 60, 0, 1)))
end

local size = 8
local title = "A crate, a pillar and a table, and what five clicks hit"
local drawing = svg.new(columns * size + 32, lines * size + 32, title)
for line = 1, lines do
  local y, start, last = 1 - (line - 0.5) / lines * 2, 1, nil
  for column = 1, columns + 1 do
    local word = column <= columns and color_at((column - 0.5) / columns * 2 - 1, y)
    if word ~= last then
      if last then
        drawing:rect(16 + (start - 1) * size, 16 + (line - 1) * size, (column - start) * size, size,
          {fill = ("#%06x"):format(last & 0xFFFFFF), shape_rendering = "crispEdges"})
      end
      start, last = column, word
    end
  end
end
for _, click in ipairs(clicks) do
  local place = Vector2.new(16 + (click[1] + 1) / 2 * columns * size, 16 + (1 - click[2]) / 2 * lines * size)
  drawing:circle(place, 4, {fill = svg.colour.panel, stroke = svg.colour.ink, stroke_width = 2})
  local aside, align = 10, "start"
  if click[1] > 0.3 then
    aside, align = -10, "end"
  end
  drawing:text(place + Vector2.new(aside, 5), click.what, {font_weight = "bold", halo = true, align = align})
end
drawing:write(path)
print("drawn: " .. path)
