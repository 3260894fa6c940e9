-- From one colour to another, and why the same two ends give different middles.
--
--     ./run examples/color_ramp.lua [PICTURE.svg [COLUMNS]]
--
-- Without an argument it makes docs/pictures/color_ramp.svg of this checkout. The asserts hold what the comments say.

local here = arg[0]:match("^.*/") or ""
package.path = here .. "lib/?.lua;" .. package.path

local math3d = require "math3d"
local svg = require "svg"
local Vector2, Color32, ColorF = math3d.Vector2, math3d.Color32, math3d.ColorF

local path = arg[1] or here .. "../docs/pictures/color_ramp.svg"
local columns = math.tointeger(tonumber(arg[2] or 88))

-- Two kinds of colour: Color32 has bytes, ColorF floats with 1 as full. The integer form of both is 0xAARRGGBB.
local from, to = 0xFFD1434B, 0xFF2F6FD6
assert(Color32.new(255, 0xD1, 0x43, 0x4B) == math3d.color32_from_int(from), "new takes the alpha first")
assert(math3d.color_to_int(math3d.color_from_int(from)) == from, "there and back")

local function css(word)
  return ("#%06x"):format(word & 0xFFFFFF)
end

----------------------------------------------------------------------------------------------------------------------
-- Each ramp gives the integer of a colour for t from 0 to 1.

local ramps = {}
local function ramp(name, note, at)
  ramps[#ramps + 1] = {name = name, note = note, at = at}
end

local bytes_from, bytes_to = math3d.color32_from_int(from), math3d.color32_from_int(to)
local floats_from, floats_to = math3d.color_from_int(from), math3d.color_from_int(to)

ramp("color32_lerp", "in bytes, each cut", function(t)
  return math3d.color32_to_int(math3d.color32_lerp(bytes_from, bytes_to, t))
end)

ramp("color_lerp", "in floats, rounded at the end", function(t)
  return math3d.color_to_int(math3d.color_lerp(floats_from, floats_to, t))
end)

-- Light adds up in proportion to its power, and a screen's numbers are about the root of that. So the middle of two
-- lights is the root of the mean of squares, which is brighter than the mean of the numbers.
ramp("by light", "squared, lerp, root", function(t)
  local light = math3d.color_lerp(math3d.color_multiply(floats_from, floats_from),
    math3d.color_multiply(floats_to, floats_to), t)
  return math3d.color_to_int(ColorF.new(1, math.sqrt(light.r), math.sqrt(light.g), math.sqrt(light.b)))
end)

-- Over white, by an alpha that falls: color32_blend lays its second colour over the first. color_blend goes the other
-- way round.
ramp("color32_blend", "over white, alpha from 255 to 0", function(t)
  local over = math3d.color32_from_int(from & 0xFFFFFF | math.floor(255 * (1 - t) + 0.5) << 24)
  return math3d.color32_to_int(math3d.color32_blend(math3d.color32_white(), over))
end)
assert(math3d.color32_blend(bytes_from, bytes_to) == bytes_to, "an opaque second colour hides the first")
assert(math3d.color_blend(floats_from, floats_to) == floats_from, "and here the first hides the second")

-- Through a colour in between: t counts in parts of the way.
local stops = {}
for i, word in ipairs { 0xFF0B1B3A, 0xFF7D55C7, 0xFFE08A1E, 0xFFFFF1C9 } do
  stops[i] = math3d.color_from_int(word)
end
ramp("four stops", "color_lerp from stop to stop", function(t)
  local place = math3d.clamp(t * (#stops - 1), 0, #stops - 1)
  local stop = math.min(math.floor(place), #stops - 2)
  return math3d.color_to_int(math3d.color_lerp(stops[stop + 1], stops[stop + 2], place - stop))
end)

for _, each in ipairs(ramps) do
  print(("%-14s 0: %s  1/2: %s  1: %s  (%s)"):format(each.name, css(each.at(0)), css(each.at(0.5)), css(each.at(1)),
    each.note))
end

-- The ends are the ends; in the middle, bytes lose up to one to the cut, and light is brighter.
for i = 1, 3 do
  assert(ramps[i].at(0) & 0xFFFFFF == from & 0xFFFFFF and ramps[i].at(1) & 0xFFFFFF == to & 0xFFFFFF)
end
local function brightness(word)
  return (word >> 16 & 0xFF) + (word >> 8 & 0xFF) + (word & 0xFF)
end
assert(brightness(ramps[3].at(0.5)) > brightness(ramps[2].at(0.5)))
assert(brightness(ramps[2].at(0.5)) - brightness(ramps[1].at(0.5)) <= 3)

----------------------------------------------------------------------------------------------------------------------
-- The picture.

local left, top, line_height, ramp_width = 250, 64, 56, 440
local drawing = svg.new(720, top + line_height * #ramps + 24, "Ramps from one colour to another")
drawing:panel(16, 16, 688, top + line_height * #ramps - 8, "from one colour to another")
for row, each in ipairs(ramps) do
  local y = top + (row - 1) * line_height
  drawing:text(Vector2.new(36, y + 20), each.name, {mono = true, font_weight = "bold"})
  drawing:text(Vector2.new(36, y + 38), each.note, {fill = svg.colour.muted, font_size = 12})
  for column = 0, columns - 1 do
    -- With hard edges, so that no seam shows.
    drawing:rect(left + column * ramp_width / columns, y, ramp_width / columns, 40,
      {fill = css(each.at(column / math.max(columns - 1, 1))), shape_rendering = "crispEdges"})
  end
  drawing:rect(left - 0.5, y - 0.5, ramp_width + 1, 41, {fill = "none", stroke = svg.colour.faint})
end
drawing:write(path)
print("drawn: " .. path)
