-- Draws a scene with a ray for every pixel, and writes it as a PNG file.
--
--     ./run examples/scene.lua [PICTURE.png [WIDTH]]
--
-- Without arguments it makes docs/pictures/scene.png of this checkout, 720 x 480 pixels, in a quarter of a minute; the
-- height is always two thirds of the width. Places, directions and colours are values of math3d throughout.

local here = arg[0]:match("^.*/") or ""
package.path = here .. "lib/?.lua;" .. package.path

local math3d = require "math3d"
local box_tree = require "box_tree"
local png = require "png"
local Vector3, Matrix, Aabb, ColorF = math3d.Vector3, math3d.Matrix, math3d.Aabb, math3d.ColorF
local transform_normal, dot = math3d.vector3_transform_normal, math3d.vector3_dot
local color_lerp, color_multiply = math3d.color_lerp, math3d.color_multiply

local path = arg[1] or here .. "../docs/pictures/scene.png"
local width = math.tointeger(tonumber(arg[2] or 720)) or 0
local height = width * 2 // 3
assert(height >= 1, "the width has to be a whole number of pixels, 2 or more")

-- Light adds up in proportion to its power, a screen's numbers are about the root of that: so colours are squared here,
-- and their roots go into the picture.
local function light(word)
  local color = math3d.color_from_int(word)
  return color_multiply(color, color)
end

----------------------------------------------------------------------------------------------------------------------
-- What there is

local up = Vector3.new(0, 1, 0)
local floor = math3d.plane_from_point_normal(Vector3.new(), up)
local floor_dark, floor_bright = light(0xFF7C8794), light(0xFFC9C6BF)

local boxes = {}

-- A box of this size, turned and moved by a matrix. Its bounds stand along the world's axes.
local function add_box(size, to_world, color)
  local box = Aabb.new(Vector3.new(), size)
  boxes[#boxes + 1] = {box = box, to_world = to_world, bounds = math3d.aabb_transform(box, to_world), color = color}
end

local function place(position, rotation)
  return math3d.matrix_transformation_prs(position, rotation, Vector3.new(1))
end

-- A winding stair: each step is turned further, and stands where its turn takes a point beside the pillar.
local steps = 24
local foot, middle, head = light(0xFFB3325B), light(0xFFE8703A), light(0xFFF7C65A)
for i = 0, steps - 1 do
  local turn = math3d.quaternion_rotation_axis(up, math3d.radians(20 * i - 150))
  local beside = turn:rotate_vector(Vector3.new(1.02, 0, 0))
  local part = 2 * i / (steps - 1)
  local color = part < 1 and color_lerp(foot, middle, part) or color_lerp(middle, head, part - 1)
  add_box(Vector3.new(1.75, 0.1, 0.42), place(beside + up * (0.1 + 0.155 * i), turn), color)
end
add_box(Vector3.new(0.32, 4.1, 0.32), place(up * 2.05, math3d.quaternion_rotation_axis(up, 0.5)), light(0xFFE4DED2))

-- Cubes, turned as they are and then lifted until the lowest point is at y.
local function add_cube(x, y, z, size, rotation, word)
  local cube = Aabb.new(Vector3.new(), Vector3.new(size))
  local lowest = math3d.aabb_transform(cube, math3d.matrix_rotation_quaternion(rotation)).min.y
  add_box(Vector3.new(size), place(Vector3.new(x, y - lowest, z), rotation), light(word))
end
local function yaw(degrees)
  return math3d.quaternion_rotation_axis(up, math3d.radians(degrees))
end
local corner_down = math3d.quaternion_rotation_fromto(Vector3.new(1, 1, 1), up)
add_cube(-2.9, 0, 0.9, 1.3, yaw(28), 0xFF2F8F8B)
add_cube(-2.85, 1.3, 0.95, 0.7, yaw(64), 0xFF6CB6A8)
add_cube(-2.3, 0, -1.5, 0.5, yaw(15), 0xFFD9A441)
add_cube(3.0, 0, 1.9, 1.5, yaw(35), 0xFF3C5A9A)
add_cube(2.35, 0, -0.9, 0.8, yaw(20) * corner_down, 0xFF5B8FD0)
add_cube(3.5, 0, -0.4, 0.45, yaw(50), 0xFFC5486A)

----------------------------------------------------------------------------------------------------------------------
-- The camera and the light

-- The camera's own matrix takes its directions into the world; the inverse brings the world's points before the camera.
local eye = Vector3.new(-1.9, 3.1, -8.8)
local camera = math3d.matrix_rotation_look(Vector3.new(0.3, 1.66, 0) - eye, up)
camera.translation = eye
local to_camera = math3d.matrix_inverse(camera)

-- The longest lens that shows every corner of every box.
local reach = 0
for _, item in ipairs(boxes) do
  local corners = item.box:get_corners()
  for i = 0, 7 do
    local corner = math3d.vector3_transform_coord(corners[i], item.to_world * to_camera)
    assert(corner.z > 0, "a box is behind the camera")
    reach = math.max(reach, math.abs(corner.x / corner.z) / width, math.abs(corner.y / corner.z) / height)
  end
end
local focus = 0.48 / reach

-- The direction from the eye through a place in the picture, whose y goes down.
local function direction_to(x, y)
  local direction = transform_normal(Vector3.new(x - width / 2, height / 2 - y, focus), camera)
  direction:normalize()
  return direction
end

local to_sun = math3d.vector3_normalize(Vector3.new(-0.8, 0.85, 0.05))
local sunlight = ColorF.new(1, 1.9, 1.6, 1.2)
local zenith, horizon, haze = light(0xFF2C66B4), light(0xFF8FBBE4), light(0xFFF7E6CC)

local function sky(direction)
  local high = math.max(direction.y, 0)
  return color_lerp(color_lerp(haze, horizon, math.min(high * 7, 1)), zenith, math.min(high * 2.4, 1))
end

----------------------------------------------------------------------------------------------------------------------
-- Rays

local each_box = box_tree.plant(boxes)

-- The box that a ray meets first, how far away, and the normal of the side that it meets.
local function first_box(origin, direction)
  local found, nearest, normal = nil, math.huge, nil
  each_box(origin, direction, function(item, enter, _, axis, inside)
    if enter > 0 and enter < nearest then
      found, nearest, normal = item, enter, Vector3.new()
      normal[axis] = inside[axis] > 0 and -1 or 1
    end
  end)
  return found, nearest, found and transform_normal(normal, found.to_world)
end

-- The part of the light that comes to a point from a direction, 0 to 1. A box takes the more of it the longer the way
-- through the box is, measured by how far away it is: so shadows are sharp where they begin and soft where they end.
local function light_from(point, direction, softness)
  local part = 1
  each_box(point, direction, function(_, enter, leave)
    enter = math.max(enter, 0)
    part = part * (1 - math.min((leave - enter) / (softness * (enter + 0.02)), 1))
    return part <= 0
  end)
  return part
end

-- A few directions stand for all of the sky.
local sky_rays = {Vector3.new(0, 1, 0)}
for i = 0, 2 do
  local slanted = math3d.vector3_normalize(Vector3.new(0.9, 0.8, 0))
  sky_rays[#sky_rays + 1] = slanted * Matrix.make_rotation_y(math3d.radians(20 + 120 * i))
end

-- The light that a surface of this colour sends back: of the sky, as far as it is open, and of the sun.
local from_below, from_above = haze * 0.16, horizon * 0.5
local function lit(color, point, normal, rays)
  local start = point + normal * 0.002
  local open, all = 0, 0.3
  for i = 1, rays do
    local slope = dot(normal, sky_rays[i])
    if slope > 0 then
      open, all = open + slope * light_from(start, sky_rays[i], 1.2), all + slope
    end
  end
  local sum = color_lerp(from_below, from_above, 0.5 + 0.5 * normal.y) * ((open + 0.3) / all)
  local slope = dot(normal, to_sun)
  if slope > 0 then
    sum = sum + sunlight * (slope * light_from(start, to_sun, 0.035))
  end
  return color_multiply(color, sum)
end

local trace
local mirror = Matrix.make_reflection(up, Vector3.new())

local function floor_light(point, direction)
  -- A pixel that covers whole tiles, as they do far away, has their mean.
  local distance = point:distance(eye)
  local tiles = math.min(distance * distance / (focus * eye.y), 1)
  local own = (math.floor(point.x) + math.floor(point.z)) % 2
  local color = lit(color_lerp(floor_dark, floor_bright, own + (0.5 - own) * tiles), point, up, #sky_rays)
  -- The flatter the view, the more the floor mirrors. What it mirrors is above it, so this ends here.
  local mirrored = trace(point + up * 0.002, transform_normal(direction, mirror), 1)
  color = color_lerp(color, mirrored, 0.06 + 0.5 * (1 + direction.y) ^ 4)
  local far = distance / 26
  return color_lerp(color, haze, far * far / (1 + far * far))
end

-- The light that comes against a ray; `rays` into the sky find out how open it is there.
trace = function(origin, direction, rays)
  local box, distance, normal = first_box(origin, direction)
  if box then
    return lit(box.color, origin + direction * distance, normal, rays)
  end
  -- The intersection is with the whole line, so the ray has to go down to meet the floor before it.
  local point = direction.y < 0 and math3d.plane_intersect_line(floor, origin, origin + direction)
  return point and floor_light(point, direction) or sky(direction)
end

----------------------------------------------------------------------------------------------------------------------
-- The picture

-- How far it is, on one line of standard error: for people who wait, not for a file or a pipe.
local shown, for_people = nil, nil
local function progress(part)
  if os.clock() < 1 then return end
  if for_people == nil then
    for_people = os.execute("test -t 2") == true
  end
  local text = part < 1 and ("\r%3d %%"):format(part * 100 // 1) or "\r     \r"
  if for_people and text ~= shown then
    io.stderr:write(text)
    shown = text
  end
end

local function sample(x, y)
  return trace(eye, direction_to(x, y), #sky_rays)
end

-- A ray through the middle of each pixel of a row; no row is above the first and below the last.
local function sample_row(y)
  local row = {}
  for x = 1, y <= height and width or 0 do
    row[x] = sample(x - 0.5, y - 0.5)
  end
  return row
end

-- Three more for a pixel that differs from its neighbours, so that edges are smooth.
local function differ(a, b)
  return b and math.abs(a.r - b.r) + math.abs(a.g - b.g) + math.abs(a.b - b.b) > 0.1
end

local rows = {}
local above, row = {}, sample_row(1)
for y = 1, height do
  local below = sample_row(y + 1)
  local bytes = {}
  for x = 1, width do
    local color = row[x]
    if differ(color, row[x - 1]) or differ(color, row[x + 1]) or differ(color, above[x]) or differ(color, below[x]) then
      color = (color + sample(x - 0.8, y - 0.65) + sample(x - 0.35, y - 0.2) + sample(x - 0.2, y - 0.85)) * 0.25
    end
    color = ColorF.new(1, math.sqrt(color.r), math.sqrt(color.g), math.sqrt(color.b))
    local pixel = math3d.color_to_color32(color) -- rounds, and holds every channel in 0 to 255
    bytes[3 * x - 2], bytes[3 * x - 1], bytes[3 * x] = pixel.r, pixel.g, pixel.b
  end
  rows[y] = bytes
  above, row = row, below
  progress(0.95 * y / height)
end

local file = assert(io.open(path, "wb"))
assert(file:write(png.encode(width, rows)))
assert(file:close())
progress(1)
