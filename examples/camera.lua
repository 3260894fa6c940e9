-- A camera that follows a car: smooth damping of its place and of its angle, and what the camera sees of the car.
--
--     ./run examples/camera.lua [PICTURE.svg]
--
-- Prints a table and draws the ways of both from above. Without an argument it makes docs/pictures/camera.svg of this
-- checkout. The asserts hold what the comments say.

local here = arg[0]:match("^.*/") or ""
package.path = here .. "lib/?.lua;" .. package.path

local math3d = require "math3d"
local svg = require "svg"
local Vector3 = math3d.Vector3
local degrees = math3d.degrees

local path = arg[1] or here .. "../docs/pictures/camera.svg"
local seconds = 11.5
local up = Vector3.new(0, 1, 0)

-- The car drives an eight on the ground, one in 4 pi seconds.
local function car_at(time)
  return Vector3.new(14 * math.sin(time / 2), 0, 9 * math.sin(time))
end

-- Where it heads: an angle about +y, 0 along +z, positive towards +x. A vector reads it off as its yaw.
local function heading_at(time)
  return (car_at(time + 0.01) - car_at(time - 0.01)).yaw
end

----------------------------------------------------------------------------------------------------------------------
-- The camera keeps what damping needs from one frame to the next: values, and their velocities.

-- Where it wants to be: 8 behind the car and 3 above, when it looks along `yaw`.
local function wanted(time, yaw)
  local turn = math3d.quaternion_rotation_axis(up, yaw)
  return car_at(time) + math3d.vector3_rotate(Vector3.new(0, 3, -8), turn)
end

local function new_camera(time)
  local yaw = heading_at(time)
  return {eye = wanted(time, yaw), eye_velocity = Vector3.new(), yaw = yaw, yaw_velocity = 0}
end

local function follow(camera, time, delta_time)
  -- The angle first. From 179 to -179 degrees it is 2 degrees on, not 358 back: so not the heading is the target but
  -- the nearest angle that means the same.
  local nearest = camera.yaw + math3d.delta_angle(camera.yaw, heading_at(time))
  camera.yaw, camera.yaw_velocity = math3d.smooth_damp(camera.yaw, nearest, camera.yaw_velocity, 0.4, nil, delta_time)

  -- Then the place, behind the car as the camera sees "behind" by now. nil: as fast as it takes.
  camera.eye, camera.eye_velocity = math3d.vector3_smooth_damp(camera.eye, wanted(time, camera.yaw),
    camera.eye_velocity, 0.25, nil, delta_time)

  -- It looks at the car: rows 0 to 2 of its pose are its right, up and forward, row 3 is its place.
  camera.pose = math3d.matrix_rotation_look(car_at(time) - camera.eye, up)
  camera.pose.translation = camera.eye
end

----------------------------------------------------------------------------------------------------------------------
-- A ride at a rate of frames a second; calls `each` every `every` frames.

local function ride(rate, every, each)
  local camera = new_camera(0)
  for frame = 1, seconds * rate do
    local time = frame / rate
    follow(camera, time, 1 / rate)
    if frame % every == 0 then
      each(camera, time)
    end
  end
  return camera
end

local rows = {}
print(("%6s  %-18s %-24s %8s %9s %6s"):format("time", "car (x, z)", "camera", "distance", "ahead by", "angle"))
local last = ride(60, 30, function(camera, time)
  local car = car_at(time)
  -- Into the camera's space, by the inverse of its pose: there the car is straight ahead, on +z.
  local seen = car * math3d.matrix_inverse(camera.pose)
  assert(math.abs(seen.x) < 1e-3 and math.abs(seen.y) < 1e-3 and math.abs(seen.z - car:distance(camera.eye)) < 1e-3)
  -- How far the heading has turned on while the camera was coming after.
  local lag = degrees(math3d.delta_angle(camera.yaw, heading_at(time)))

  rows[#rows + 1] = {car = car, eye = camera.eye}
  print(("%5.1fs  (%6.2f, %6.2f)   (%6.2f, %4.2f, %6.2f)   %8.2f %7.1f deg %4.0f deg"):format(time, car.x, car.z,
    camera.eye.x, camera.eye.y, camera.eye.z, seen.z, lag, degrees(camera.yaw)))
  -- It neither runs into the car nor loses it.
  assert(time < 1 or seen.z > 5 and seen.z < 14)
end)

-- Damping goes by time, not by frames: at half and at twice the rate the camera comes to about the same place.
for _, rate in ipairs { 30, 120 } do
  local other = ride(rate, rate, function() end)
  local apart = other.eye:distance(last.eye)
  print(("at %3d frames a second the camera ends %.2f from there"):format(rate, apart))
  assert(apart < 0.5)
end

----------------------------------------------------------------------------------------------------------------------
-- The picture: from above, +z up the page.

local colour = svg.colour
local drawing = svg.new(720, 480, "The ways of the car and of the camera, from above")
drawing:panel(16, 16, 688, 448, "a camera that follows a car, from above")
-- x to the right, z up the page, 16 pixels a unit.
local to_picture = math3d.matrix_ortho_normal_basis(Vector3.new(16, 0, 0), Vector3.new(), Vector3.new(0, -16, 0))
  * math3d.matrix_translation(360, 258, 0)

local cars, eyes = {}, {}
ride(60, 5, function(camera, time)
  cars[#cars + 1] = car_at(time) * to_picture
  eyes[#eyes + 1] = camera.eye * to_picture
end)
for _, row in ipairs(rows) do
  drawing:line({row.eye * to_picture, row.car * to_picture}, {stroke = colour.faint, stroke_width = 1.5})
end
drawing:arrow(cars, {stroke = colour.amber, stroke_width = 3})
drawing:arrow(eyes, {stroke = colour.z, stroke_width = 3})
for i = 1, #rows - 1 do -- the heads of the arrows are the last ones
  drawing:circle(rows[i].car * to_picture, 4, {fill = colour.amber})
  drawing:circle(rows[i].eye * to_picture, 4, {fill = colour.z})
end
for _, way in ipairs { {"the car", cars, colour.amber}, {"the camera", eyes, colour.z} } do
  local name, points, paint = table.unpack(way)
  local beginning = math3d.Vector2.new(points[1].x + 10, points[1].y + 18)
  drawing:text(beginning, name, {fill = paint, font_weight = "bold", halo = true})
end
drawing:text(math3d.Vector2.new(36, 448), "grey: from the camera to the car, each half second", {fill = colour.muted})
drawing:write(path)
print("drawn: " .. path)
