-- Draws the conventions of math3d: axes.svg, angles.svg, rows.svg and corners.svg.
--
--     ./run examples/conventions.lua [DIRECTORY]
--
-- Without a directory the pictures go to docs/pictures of this checkout. Nothing in them is drawn by hand: points are
-- turned, moved and projected by the module, and the words (which axis turns toward which, which number a corner has)
-- are read off its results. If a convention changed, so would the picture.

local here = arg[0]:match("^.*/") or ""
package.path = here .. "lib/?.lua;" .. package.path

local math3d = require "math3d"
local svg = require "svg"
local Vector2, Vector3, Matrix, Aabb = math3d.Vector2, math3d.Vector3, math3d.Matrix, math3d.Aabb
local colour = svg.colour

local directory = arg[1] or here .. "../docs/pictures"
local identity = Matrix.new()
local axes = {x = identity.right, y = identity.up, z = identity.forward}
local origin = Vector3.new()

-- World to picture as one matrix: into the space of a camera, which is the inverse of where the camera stands, then
-- larger, y down, and to its place in the picture.
local function view(yaw, pitch, scale, x, y)
  local camera = math3d.matrix_rotation_zxy(math3d.radians(pitch), math3d.radians(yaw), 0)
  return math3d.matrix_inverse(camera) * math3d.matrix_scaling(scale, -scale, 1) * math3d.matrix_translation(x, y, 0)
end

local function all_times(points, matrix)
  local moved = {}
  for i, point in ipairs(points) do
    moved[i] = point * matrix
  end
  return moved
end

-- "+x" for a vector along +x, "-y" for one that is mostly down.
local function axis_name(vector)
  local best, name = 0, nil
  for _, axis in ipairs { "x", "y", "z" } do
    local size = math.abs(vector[axis])
    if size > best then
      best, name = size, (vector[axis] > 0 and "+" or "-") .. axis
    end
  end
  return name
end

local meaning = {x = "right", y = "up", z = "forward"}

local function draw_axes(drawing, to_picture, length, style)
  for _, name in ipairs(style.names or {"z", "x", "y"}) do
    local along = axes[name] * length
    drawing:arrow(all_times({origin, along}, to_picture),
      {stroke = style.stroke or colour[name], stroke_width = style.width or 3})
    local label = along * (style.label_at or 1.1) * to_picture
    local words = style.long and ("+%s %s"):format(name, meaning[name]) or "+" .. name
    drawing:text(Vector2.new(label.x, label.y + 5), words,
      {fill = style.stroke or colour[name], font_weight = "bold", font_size = style.font_size or 15, halo = true,
        align = style.long and name ~= "y" and "start" or "middle"})
  end
end

-- The ground, y = 0, in squares of length 1.
local function draw_ground(drawing, to_picture, low, high)
  for i = low, high do
    for _, ends in ipairs {
      {axes.x * low + axes.z * i, axes.x * high + axes.z * i},
      {axes.z * low + axes.x * i, axes.z * high + axes.x * i},
    } do
      drawing:line(all_times(ends, to_picture), {stroke = colour.faint, stroke_width = 1})
    end
  end
end

-- A paper plane in the frame of a matrix: nose forward, wings to the right and to the left, fin up.
local function draw_plane(drawing, to_picture, matrix, size, ghost)
  local nose, tail = axes.z * size, axes.z * (-0.55 * size)
  local wing = axes.x * (0.62 * size) + axes.z * (-0.75 * size)
  local fin = axes.y * (0.4 * size) + axes.z * (-0.75 * size)
  local port = wing * Matrix.make_reflection(axes.x, origin)
  local faces = {}
  for i, corners in ipairs {{nose, tail, port}, {nose, tail, wing}, {nose * 0.2, tail, fin}} do
    local points = all_times(corners, matrix * to_picture)
    faces[i] = {points = points, fill = colour.paper[i], depth = points[1].z + points[2].z + points[3].z}
  end
  table.sort(faces, function(a, b) return a.depth > b.depth end)
  for _, face in ipairs(faces) do
    drawing:polygon(face.points, ghost and {fill = "none", stroke = colour.muted, stroke_dasharray = "4 3"}
      or {fill = face.fill, stroke = colour.ink, stroke_width = 1.2, opacity = 0.92})
  end
end

-- The way of a point under ever larger rotations: `turn(part)` for part from 0 to 1.
local function arc(point, turn, steps)
  local points = {}
  for i = 0, steps do
    points[#points + 1] = point * turn(i / steps)
  end
  return points
end

local function draw_axes_picture()
  local drawing = svg.new(640, 420, "The axes: +x right, +y up, +z forward")
  drawing:panel(16, 16, 608, 388)
  local to_picture = view(-28, 24, 112, 262, 248)
  draw_ground(drawing, to_picture, -1, 2)
  draw_plane(drawing, to_picture, identity, 1)
  draw_axes(drawing, to_picture, 1.8, {long = true, font_size = 18, label_at = 1.08})

  local across = axis_name(axes.x:cross(axes.y))
  drawing:text(Vector2.new(36, 366), "left-handed: +x, +y, +z as thumb, index and middle finger of the left hand",
    {fill = colour.muted, font_size = 14})
  drawing:text(Vector2.new(36, 388), ("right:cross(up) == %s"):format(meaning[across:sub(2)]),
    {fill = colour.muted, font_size = 14, mono = true})
  drawing:write(directory .. "/axes.svg")
end

local function draw_angles_picture()
  local drawing = svg.new(960, 388, "The sense of yaw, pitch and roll")
  local angle = math3d.radians(40)
  for i, turning in ipairs {
    {name = "yaw", make = "make_rotation_y", about = "y", of = "z", camera = {-32, 26}},
    {name = "pitch", make = "make_rotation_x", about = "x", of = "z", camera = {-32, 26}},
    {name = "roll", make = "make_rotation_z", about = "z", of = "x", camera = {-14, 26}},
  } do
    local left = 16 + (i - 1) * 312
    drawing:panel(left, 16, 304, 356, turning.name)
    drawing:text(Vector2.new(left + 288, 44), turning.make .. "(a)", {align = "end", mono = true, fill = colour.muted})

    local function turn(part)
      return Matrix[turning.make](angle * part)
    end
    local turned = turn(1)
    local from, about = axes[turning.of], axes[turning.about]
    local target = axis_name(from * Matrix[turning.make](math3d.HALF_PI))

    local to_picture = view(turning.camera[1], turning.camera[2], 92, left + 132, 210)
    draw_axes(drawing, to_picture, 1.4, {stroke = colour.muted, width = 1.5, label_at = 1.13})
    drawing:line(all_times({about * -1, about * 1.3}, to_picture),
      {stroke = colour[turning.about], stroke_width = 2.5, stroke_dasharray = "7 6"})
    draw_plane(drawing, to_picture, identity, 0.95, true)
    draw_plane(drawing, to_picture, turned, 0.95)
    drawing:arrow(all_times(arc(from * 1.15, turn, 24), to_picture), {stroke = colour.amber, stroke_width = 3})

    drawing:text(Vector2.new(left + 152, 334), ("a > 0 turns +%s toward %s"):format(turning.of, target),
      {align = "middle", font_weight = "bold"})
    drawing:text(Vector2.new(left + 152, 356), ("here degrees(m.%s) is %.0f"):format(turning.name,
      math3d.degrees(turned[turning.name])), {align = "middle", fill = colour.muted, font_size = 13, mono = true})
  end
  drawing:write(directory .. "/angles.svg")
end

local row_colours = {[0] = colour.x, colour.y, colour.z, colour.violet}

local function draw_matrix(drawing, matrix, left, top)
  local names = {[0] = "right", "up", "forward", "translation"}
  for row = 0, 3 do
    local y = top + row * 26
    drawing:text(Vector2.new(left, y), ("row %d"):format(row), {fill = colour.muted, font_size = 13})
    for column = 0, 3 do
      drawing:text(Vector2.new(left + 92 + column * 44, y), ("%.1f"):format(matrix:get(row, column)),
        {align = "end", mono = true, fill = column < 3 and row_colours[row] or colour.muted})
    end
    drawing:text(Vector2.new(left + 244, y), names[row], {fill = row_colours[row], font_weight = "bold"})
  end
end

-- A point by the rows of a matrix, as a chain of arrows from the origin.
local function draw_chain(drawing)
  drawing:panel(16, 16, 508, 428, "p * m  =  x·right + y·up + z·forward + translation")
  local m = math3d.matrix_transformation_prs(Vector3.new(1.2, 0.7, 0.3),
    math3d.quaternion_rotation_axis(axes.y, math3d.radians(-15)), Vector3.new(1))
  local p = Vector3.new(1.6, 0.9, 1.4)
  draw_matrix(drawing, m, 36, 76)
  drawing:text(Vector2.new(36, 184), ("p = (%.1f, %.1f, %.1f)"):format(p.x, p.y, p.z), {mono = true})

  local to_picture = view(-26, 30, 94, 72, 354)
  draw_ground(drawing, to_picture, 0, 3)
  draw_axes(drawing, to_picture, 0.9, {stroke = colour.muted, label_at = 1.25, width = 1.5, font_size = 13})
  local at = origin
  for _, step in ipairs {
    {"translation", m.translation, 3}, {"x·right", m.right * p.x, 0}, {"z·forward", m.forward * p.z, 2},
    {"y·up", m.up * p.y, 1},
  } do
    local ends = all_times({at, at + step[2]}, to_picture)
    drawing:arrow(ends, {stroke = row_colours[step[3]], stroke_width = 3.5})
    local along = ends[2] - ends[1]
    local aside = Vector2.new(math.abs(along.y), along.y > 0 and -along.x or along.x)
    aside:normalize(14)
    local middle = (ends[1] + ends[2]) / 2
    drawing:text(Vector2.new(middle.x + aside.x, middle.y + aside.y + 5), step[1],
      {fill = row_colours[step[3]], font_weight = "bold", halo = true})
    at = at + step[2]
  end
  assert(at == p * m)
  local there = p * m * to_picture
  drawing:circle(there, 6, {fill = colour.ink})
  drawing:text(Vector2.new(there.x + 13, there.y + 2), "p * m", {font_weight = "bold", halo = true, mono = true})
end

-- A plane at the origin, after one step and after the other, seen from above. A step is a function like `turn` of arc.
local function draw_product(drawing, top, title, first, second)
  drawing:panel(532, top, 412, 210, title)
  drawing:text(Vector2.new(928, top + 28), "from above", {fill = colour.muted, font_size = 13, align = "end"})
  draw_axes(drawing, view(0, 90, 34, 872, top + 184), 1,
    {width = 2, label_at = 1.35, names = {"x", "z"}, font_size = 13})
  local from_above = view(0, 90, 46, 592, top + 100)
  local function then_second(part)
    return first.step(1) * second.step(part)
  end
  draw_plane(drawing, from_above, identity, 0.7, true)
  draw_plane(drawing, from_above, first.step(1), 0.7, true)
  draw_plane(drawing, from_above, then_second(1), 0.7)
  for _, way in ipairs {{first.step, first.name}, {then_second, second.name}} do
    -- The way of the nose for a turn on the spot, of the middle otherwise.
    local start = axes.z * (origin * way[1](0) == origin * way[1](1) and 0.8 or 0)
    local points = all_times(arc(start, way[1], 16), from_above)
    drawing:arrow(points, {stroke = colour.amber, stroke_width = 3})
    local middle = Vector2.new(points[9].x, points[9].y)
    drawing:text(middle + Vector2.new(10, -10), way[2], {fill = colour.amber, font_weight = "bold", halo = true})
  end
end

local function draw_rows_picture()
  local drawing = svg.new(960, 460, "The rows of a matrix, and the order of a product")
  draw_chain(drawing)
  local turn = {name = "A", step = function(part) return Matrix.make_rotation_y(math3d.radians(30) * part) end}
  local move = {name = "B", step = function(part) return Matrix.make_translation(axes.x * (3.2 * part)) end}
  draw_product(drawing, 16, "A * B: A applies first", turn, move)
  drawing:text(Vector2.new(548, 190), "A = make_rotation_y(a)", {mono = true, font_size = 13, fill = colour.muted})
  drawing:text(Vector2.new(548, 210), "B = make_translation(v)", {mono = true, font_size = 13, fill = colour.muted})
  draw_product(drawing, 234, "B * A: B applies first", move, turn)
  drawing:write(directory .. "/rows.svg")
end

local function draw_corners_picture()
  local drawing = svg.new(640, 420, "The numbers of a box's corners")
  drawing:panel(16, 16, 608, 388, "Aabb:get_corners()")
  local box = Aabb.new(origin, Vector3.new(2.4, 1.8, 2))
  local corners = box:get_corners()
  local to_picture = view(-28, 24, 92, 210, 236)

  -- The sides of a corner: which of its coordinates are the box's largest.
  local function is_max(corner, axis)
    return corner[axis] == box.max[axis]
  end
  local function face_colour(i)
    return is_max(corners[i], "z") and colour.z or colour.ink
  end
  local deepest = 0
  for i = 1, 7 do
    if (corners[i] * to_picture).z > (corners[deepest] * to_picture).z then deepest = i end
  end

  for i = 0, 7 do
    for j = i + 1, 7 do
      local differing = 0
      for axis in pairs(axes) do
        differing = differing + (is_max(corners[i], axis) == is_max(corners[j], axis) and 0 or 1)
      end
      if differing == 1 then
        drawing:line(all_times({corners[i], corners[j]}, to_picture), {stroke_width = 2,
          stroke = (i == deepest or j == deepest) and colour.muted or colour.ink,
          stroke_dasharray = (i == deepest or j == deepest) and "5 5" or nil})
      end
    end
  end
  for i = 0, 7 do
    local at = corners[i] * to_picture
    drawing:circle(at, 14, {fill = face_colour(i), stroke = colour.panel, stroke_width = 2})
    drawing:text(Vector2.new(at.x, at.y + 5.5), i,
      {align = "middle", fill = colour.panel, font_weight = "bold", font_size = 16})
  end

  -- The same as a table.
  for column, name in ipairs {"corner", "x", "y", "z"} do
    drawing:text(Vector2.new(440 + (column - 1) * 46, 92), name,
      {align = "middle", fill = colour[name] or colour.muted, font_weight = "bold"})
  end
  for i = 0, 7 do
    local y = 120 + i * 26
    drawing:text(Vector2.new(440, y), i, {align = "middle", font_weight = "bold", fill = face_colour(i)})
    for column, axis in ipairs {"x", "y", "z"} do
      local max = is_max(corners[i], axis)
      drawing:text(Vector2.new(440 + column * 46, y), max and "max" or "min",
        {align = "middle", mono = true, font_size = 14, fill = max and colour[axis] or colour.muted})
    end
  end
  draw_axes(drawing, view(-28, 24, 42, 486, 376), 1, {label_at = 1.35, width = 2.5, font_size = 13})
  drawing:write(directory .. "/corners.svg")
end

draw_axes_picture()
draw_angles_picture()
draw_rows_picture()
draw_corners_picture()
