-- Plots what comes between: smooth_damp, slerp and lerp_angle.
--
--     ./run examples/curves.lua [PICTURE.svg]
--
-- Without an argument it makes docs/pictures/curves.svg of this checkout. Every point of a curve is a result of the
-- module, and a matrix takes it into the picture.

local here = arg[0]:match("^.*/") or ""
package.path = here .. "lib/?.lua;" .. package.path

local math3d = require "math3d"
local svg = require "svg"
local Vector2, Vector3 = math3d.Vector2, math3d.Vector3
local radians, degrees = math3d.radians, math3d.degrees
local colour = svg.colour

local panel_width, panel_height = 304, 404
local plot_left, plot_top, plot_width, plot_height = 52, 66, 228, 196

-- The points (x, f(x)) for x from low to high.
local function samples(low, high, count, f)
  local points = {}
  for i = 0, count do
    local x = math3d.lerp(low, high, i / count)
    points[#points + 1] = Vector3.new(x, f(x), 0)
  end
  return points
end

-- plot: title, the ranges x and y as {low, high, step}, what they count, and curves as {name, points, style}.
local function draw_plot(drawing, left, plot)
  drawing:panel(left, 16, panel_width, panel_height, plot.title)
  local x, y = plot.x, plot.y
  local to_picture = math3d.matrix_translation(-x[1], -y[1], 0)
    * math3d.matrix_scaling(plot_width / (x[2] - x[1]), -plot_height / (y[2] - y[1]), 1)
    * math3d.matrix_translation(left + plot_left, 16 + plot_top + plot_height, 0)
  local function place(at_x, at_y)
    return Vector3.new(at_x, at_y, 0) * to_picture
  end

  -- The grid, with the axes where they are 0 or at the edge.
  local small = {fill = colour.muted, font_size = 12}
  for at = x[1], x[2] + x[3] / 2, x[3] do
    local zero = math.abs(at) < 1e-6
    drawing:line({place(at, y[1]), place(at, y[2])}, {stroke = zero and colour.muted or colour.faint, stroke_width = 1})
    local foot = place(at, y[1])
    small.align = "middle"
    drawing:text(Vector2.new(foot.x, foot.y + 17), ("%g"):format(at), small)
  end
  for at = y[1], y[2] + y[3] / 2, y[3] do
    local zero = math.abs(at) < 1e-6
    drawing:line({place(x[1], at), place(x[2], at)}, {stroke = zero and colour.muted or colour.faint, stroke_width = 1})
    local side = place(x[1], at)
    small.align = "end"
    drawing:text(Vector2.new(side.x - 7, side.y + 4), ("%g"):format(at), small)
  end
  small.align = "middle"
  local foot = place((x[1] + x[2]) / 2, y[1])
  drawing:text(Vector2.new(foot.x, foot.y + 34), plot.x_name, small)
  small.align = "start"
  drawing:text(Vector2.new(left + 16, 16 + plot_top - 14), plot.y_name, small)

  -- A jump by more than half the height ends a line and begins another.
  for i, curve in ipairs(plot.curves) do
    local line = {}
    local function finish()
      if #line > 1 then
        drawing:line(line, curve[3])
      end
      line = {}
    end
    for j, point in ipairs(curve[2]) do
      if j > 1 and math.abs(point.y - curve[2][j - 1].y) > (y[2] - y[1]) / 2 and curve.breaks then
        finish()
      end
      line[#line + 1] = point * to_picture
    end
    finish()

    local key = Vector2.new(left + 18, 16 + plot_top + plot_height + 43 + 21 * i)
    drawing:line({key, key + Vector2.new(26, 0)}, curve[3])
    drawing:text(key + Vector2.new(36, 4.5), curve[1], {font_size = 13})
  end
end

-- What a value does that follows a target, in steps of a frame.
local function target_at(time)
  return time < 2 and 1 or 0.25
end
local frame = 1 / 60
local function following(smooth_time, max_speed)
  local value, velocity = 0, 0
  local points = {Vector3.new()}
  for i = 1, 240 do
    value, velocity = math3d.smooth_damp(value, target_at((i - 1) * frame), velocity, smooth_time, max_speed, frame)
    points[#points + 1] = Vector3.new(i * frame, value, 0)
  end
  return points
end

-- Turns about +z: the roll of a rotation, in degrees.
local function about_z(angle)
  return math3d.quaternion_rotation_axis(Vector3.new(0, 0, 1), radians(angle))
end
local function roll(rotation)
  return degrees(math3d.matrix_rotation_quaternion(rotation).roll)
end
local still = math3d.quaternion_identity()

local function solid(name, width)
  return {stroke = colour[name], stroke_width = width or 2.5}
end
local function dashed(name)
  return {stroke = colour[name], stroke_width = 2, stroke_dasharray = "6 5"}
end

local drawing = svg.new(960, 436, "Curves of smooth_damp, slerp and lerp_angle")
draw_plot(drawing, 16, {
  title = "smooth_damp", x = {0, 4, 1}, y = {0, 1.25, 0.25}, x_name = "seconds", y_name = "value",
  curves = {
    {"target", {Vector3.new(0, target_at(0), 0), Vector3.new(2, target_at(0), 0), Vector3.new(2, target_at(2), 0),
      Vector3.new(4, target_at(2), 0)}, dashed("muted")},
    {"smooth time 0.2", following(0.2), solid("x")},
    {"smooth time 0.5", following(0.5), solid("z")},
    {"smooth time 0.5, max speed 0.6", following(0.5, 0.6), solid("y")},
  },
})
draw_plot(drawing, 328, {
  title = "quaternion_slerp", x = {0, 1, 0.25}, y = {-180, 180, 60}, x_name = "t", y_name = "degrees from the start",
  curves = {
    {"slerp to 170°", samples(0, 1, 100, function(t)
      return roll(math3d.quaternion_slerp(still, about_z(170), t))
    end), solid("z")},
    {"lerp to 170°, normalised", samples(0, 1, 100, function(t)
      return roll(math3d.quaternion_normalize(math3d.quaternion_lerp(still, about_z(170), t)))
    end), solid("amber")},
    {"slerp to 200°: the short way", samples(0, 1, 100, function(t)
      return roll(math3d.quaternion_slerp(still, about_z(200), t))
    end), solid("x")},
  },
})
draw_plot(drawing, 640, {
  title = "lerp_angle, 300° to 60°", x = {-0.25, 1.25, 0.25}, y = {0, 450, 90}, x_name = "t", y_name = "degrees",
  curves = {
    {"lerp: the long way, and beyond", samples(-0.25, 1.25, 60, function(t)
      return math3d.lerp(300, 60, t)
    end), solid("amber")},
    {"lerp_angle: the short way, t held", samples(-0.25, 1.25, 120, function(t)
      return degrees(math3d.lerp_angle(radians(300), radians(60), t))
    end), solid("z")},
    {"... wrapped by repeat", breaks = true, samples(-0.25, 1.25, 120, function(t)
      return math3d["repeat"](degrees(math3d.lerp_angle(radians(300), radians(60), t)), 360)
    end), dashed("x")},
  },
})
drawing:write(arg[1] or here .. "../docs/pictures/curves.svg")
