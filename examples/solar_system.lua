-- Worlds that turn about worlds: each body has a matrix into the space of the body that it circles, and their product
-- takes it into the picture.
--
--     ./run examples/solar_system.lua [PICTURE.svg [STEPS]]
--
-- Without an argument it makes docs/pictures/solar_system.svg of this checkout. The picture moves by itself in a
-- browser: it has each body's place at a number of steps of the round. Sizes and distances are made up.

local here = arg[0]:match("^.*/") or ""
package.path = here .. "lib/?.lua;" .. package.path

local math3d = require "math3d"
local svg = require "svg"
local Vector2, Vector3 = math3d.Vector2, math3d.Vector3

local path = arg[1] or here .. "../docs/pictures/solar_system.svg"
local steps = math.tointeger(tonumber(arg[2] or 240))
local seconds = 24 -- for a round
local width, height = 720, 420

----------------------------------------------------------------------------------------------------------------------
-- The bodies. `turns` is how often one goes around in a round, a whole number, so that the end meets the beginning;
-- `start` is the part of a turn where it begins, and `tilt` how steep its way is, in degrees.

local sun = {name = "sun", size = 1, color = 0xFFF2B705}
local bodies = {}

local function add(name, parent, body)
  body.name, body.parent = name, parent
  bodies[#bodies + 1] = body
  return body
end

add("ember", sun, {size = 0.16, color = 0xFFD9694F, distance = 1.9, turns = 5, start = 0.30, tilt = 7})
local azure = add("azure", sun, {size = 0.3, color = 0xFF4F93D9, distance = 3.3, turns = 3, start = 0.56, tilt = 2})
add("azure's moon", azure, {size = 0.09, color = 0xFF9AA4AE, distance = 0.62, turns = 11, start = 0.40, tilt = 20})
local giant = add("giant", sun, {size = 0.5, color = 0xFFC49A6C, distance = 5.6, turns = 1, start = 0.85, tilt = -4})
add("giant's inner moon", giant, {size = 0.1, color = 0xFFD9C08B, distance = 0.85, turns = 9, start = 0.45, tilt = 10})
add("giant's outer moon", giant, {size = 0.13, color = 0xFF7A8A99, distance = 1.3, turns = -5, start = 0.1, tilt = 10})

-- From a body into the space of its parent, at a part of the round: out to its distance, around the parent, and the
-- whole orbit tilted. In a product the left one applies first.
local function into_parent(body, part)
  local angle = 2 * math3d.PI * (body.start + body.turns * part)
  return math3d.matrix_translation(body.distance, 0, 0)
    * math3d.Matrix.make_rotation_y(angle)
    * math3d.Matrix.make_rotation_z(math3d.radians(body.tilt))
end

local function into_world(body, part)
  if not body.parent then
    return math3d.matrix_identity()
  end
  return into_parent(body, part) * into_world(body.parent, part)
end

local origin = Vector3.new()
local function place(body, part)
  return origin * into_world(body, part)
end

for _, body in ipairs(bodies) do
  for i = 0, 7 do
    local apart = place(body, i / 8):distance(place(body.parent, i / 8))
    assert(math.abs(apart - body.distance) < 1e-4, "a body keeps its distance")
  end
  assert(place(body, 0):distance(place(body, 1)) < 1e-3, "a round ends where it began")
end

----------------------------------------------------------------------------------------------------------------------
-- The picture. What is further away has a greater z in it.

local camera = math3d.matrix_rotation_zxy(math3d.radians(28), 0, 0)
local scale = 46
local to_picture = math3d.matrix_inverse(camera) * math3d.matrix_scaling(scale, -scale, scale)
  * math3d.matrix_translation(width / 2, height / 2 - 12, 0)

-- By a body: its places in the picture from step to step, the last one the first again.
local places = {[sun] = {}}
for i = 0, steps do
  places[sun][i] = origin * to_picture
  for _, body in ipairs(bodies) do
    places[body] = places[body] or {}
    places[body][i] = place(body, i / steps) * to_picture
  end
end

-- What an attribute is from step to step; `name` and further attributes of the animation first.
local function animate(attributes, texts)
  return ('<animate attributeName=%s dur="%ds" repeatCount="indefinite" values="%s"/>')
    :format(attributes, seconds, table.concat(texts, ";"))
end

local function along(body, axis)
  local texts = {}
  for i = 0, steps do
    texts[#texts + 1] = ("%.1f"):format(places[body][i][axis])
  end
  return animate(('"c%s"'):format(axis), texts)
end

-- Visible or not: only where that changes.
local function shown(is_seen)
  local texts, times, last = {}, {}, nil
  for i = 0, steps - 1 do
    if is_seen(i) ~= last then
      last = is_seen(i)
      texts[#texts + 1] = last and "visible" or "hidden"
      times[#times + 1] = ("%.4f"):format(i / steps)
    end
  end
  return animate(('"visibility" calcMode="discrete" keyTimes="%s"'):format(table.concat(times, ";")), texts)
end

local function css(word)
  return ("#%06x"):format(word & 0xFFFFFF)
end

local drawing = svg.new(width, height, "A sun with three planets and their moons")
drawing:rect(8, 8, width - 16, height - 16, {fill = "#0e1420", rx = 10})

-- Stars, anywhere: the low bits of squares look like chance.
for i = 1, 90 do
  local star = Vector2.new(16 + i * i * 37 % 688, 16 + i * i * 101 % 350)
  drawing:circle(star, 0.5 + i % 3 * 0.3, {fill = "#5b6a86"})
end

-- The half of a planet's way that is behind the sun, or before it.
local function draw_way(body, behind)
  local way = {}
  for i = 0, 48 do
    local turn = i / 96 + (behind and 0.5 or 0)
    way[#way + 1] = place(body, (turn - body.start) / body.turns) * to_picture
  end
  drawing:line(way, {stroke = "#33415c", stroke_width = 1})
end

-- A body as a circle that moves. It is seen at the steps where `is_seen(step)` holds.
local function draw(body, is_seen)
  -- What stands in the circle itself is for viewers that do not move pictures.
  local start = places[body][0]
  drawing:add("circle", ('cx="%.1f" cy="%.1f" r="%.1f"'):format(start.x, start.y, body.size * scale),
    {fill = css(body.color), visibility = is_seen(0) and "visible" or "hidden"},
    along(body, "x") .. along(body, "y") .. shown(is_seen))
end

-- Who is behind whom changes, but the order in a drawing does not: so each body stands in it on either side of what it
-- circles, and is seen on the side where it is.
local function is_behind(body, step)
  return places[body][step].z > places[body.parent][step].z
end

for _, behind_sun in ipairs { true, false } do
  for _, planet in ipairs(bodies) do
    if planet.parent == sun then
      draw_way(planet, behind_sun)
    end
  end
  for _, planet in ipairs(bodies) do
    if planet.parent == sun then
      for _, behind_planet in ipairs { true, false } do
        for _, moon in ipairs(bodies) do
          if moon.parent == planet then
            draw(moon, function(step)
              return is_behind(planet, step) == behind_sun and is_behind(moon, step) == behind_planet
            end)
          end
        end
        if behind_planet then
          draw(planet, function(step) return is_behind(planet, step) == behind_sun end)
        end
      end
    end
  end
  if behind_sun then
    local center = origin * to_picture
    drawing:circle(center, sun.size * scale * 1.25, {fill = css(sun.color), opacity = 0.2})
    drawing:circle(center, sun.size * scale, {fill = css(sun.color)})
  end
end

-- Whose circle is whose, by the colours.
local column = 40
for _, body in ipairs { sun, table.unpack(bodies) } do
  drawing:circle(Vector2.new(column, height - 28), 5, {fill = css(body.color)})
  drawing:text(Vector2.new(column + 10, height - 24), body.name, {fill = "#aab6c9", font_size = 12})
  column = column + 34 + 6.4 * #body.name
end

drawing:write(path)

print(("%-20s %-10s %8s  %s"):format("body", "around", "distance", "place at the start"))
for _, body in ipairs(bodies) do
  print(("%-20s %-10s %8.2f  %s"):format(body.name, body.parent.name, body.distance, place(body, 0)))
end
print("drawn: " .. path)
