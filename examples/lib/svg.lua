--- Drawings as SVG files. A point is anything with x and y: a Vector2, or a Vector3 that a matrix brought into the
--- picture. x goes right and y down, in pixels.
---
--- A style is a table of SVG's attributes, with _ for -: {stroke = "black", stroke_width = 2}. Numbers are written with
--- two decimals, so that a drawing is the same text on every machine.

local math3d = require "math3d"
local Vector2 = math3d.Vector2

local svg = {}

--- One palette for all drawings; the axes have the usual three.
svg.colour = {
  x = "#d1434b", y = "#2f9e5b", z = "#2f6fd6",
  ink = "#1f2a37", muted = "#6b7785", faint = "#d5dae1", panel = "#ffffff", page = "#f4f6f9",
  amber = "#e08a1e", violet = "#7d55c7", paper = {"#b9c3cf", "#d3dae2", "#8d9bab"},
}

local function number(value)
  local text = ("%.2f"):format(value):gsub("%.?0+$", "")
  return text == "-0" and "0" or text
end

local escapes = {["&"] = "&amp;", ["<"] = "&lt;", [">"] = "&gt;", ['"'] = "&quot;"}
local function escape(text)
  return (tostring(text):gsub('[&<>"]', escapes))
end

local function pair(point)
  return number(point.x) .. "," .. number(point.y)
end

local function pairs_of(points)
  local texts = {}
  for i, point in ipairs(points) do
    texts[i] = pair(point)
  end
  return table.concat(texts, " ")
end

local Drawing = {}
Drawing.__index = Drawing

--- A drawing with a light page and a rounded border; `title` is what a screen reader says.
function svg.new(width, height, title)
  local drawing = setmetatable({}, Drawing)
  drawing[1] = ('<svg xmlns="http://www.w3.org/2000/svg" width="%d" height="%d" viewBox="0 0 %d %d" role="img" '
    .. 'font-family="sans-serif" font-size="15" stroke-linecap="round" stroke-linejoin="round">')
    :format(width, height, width, height)
  drawing[2] = ("<title>%s</title>"):format(escape(title))
  drawing:rect(0.5, 0.5, width - 1, height - 1, {rx = 12, fill = svg.colour.page, stroke = svg.colour.faint})
  return drawing
end

-- Appends <name geometry style>content</name>, the style in the order of its names.
function Drawing:add(name, geometry, style, content)
  local names = {}
  for key in pairs(style or {}) do
    names[#names + 1] = key
  end
  table.sort(names)
  local parts = {"<" .. name, geometry}
  for _, key in ipairs(names) do
    local value = style[key]
    value = type(value) == "number" and number(value) or escape(value)
    parts[#parts + 1] = ('%s="%s"'):format(key:gsub("_", "-"), value)
  end
  self[#self + 1] = table.concat(parts, " ") .. (content and (">%s</%s>"):format(content, name) or "/>")
end

function Drawing:rect(x, y, width, height, style)
  local geometry = ('x="%s" y="%s" width="%s" height="%s"'):format(number(x), number(y), number(width), number(height))
  self:add("rect", geometry, style)
end

--- A white field for one part of a drawing, with its title at the top.
function Drawing:panel(x, y, width, height, title)
  self:rect(x, y, width, height, {rx = 8, fill = svg.colour.panel, stroke = svg.colour.faint})
  if title then
    self:text(Vector2.new(x + 16, y + 28), title, {font_weight = "bold", font_size = 17})
  end
end

function Drawing:circle(center, radius, style)
  self:add("circle", ('cx="%s" cy="%s" r="%s"'):format(number(center.x), number(center.y), number(radius)), style)
end

function Drawing:polygon(points, style)
  self:add("polygon", ('points="%s"'):format(pairs_of(points)), style)
end

--- Open, through all points; two of them make a line.
function Drawing:line(points, style)
  local all = {fill = "none", stroke = svg.colour.ink, stroke_width = 1.5}
  for key, value in pairs(style or {}) do
    all[key] = value
  end
  self:add("polyline", ('points="%s"'):format(pairs_of(points)), all)
end

--- A line with a head at its last point, filled with the colour of the line.
function Drawing:arrow(points, style)
  local width = style.stroke_width or 1.5
  local last, before = points[#points], points[#points - 1]
  local tip = Vector2.new(last.x, last.y)
  local ahead = tip - Vector2.new(before.x, before.y)
  ahead:normalize(5 + 3 * width)
  local aside = Vector2.new(-ahead.y, ahead.x) * 0.38
  local shaft = table.move(points, 1, #points - 1, 1, {})
  shaft[#points] = tip - ahead * 0.7
  self:line(shaft, style)
  self:polygon({tip, tip - ahead + aside, tip - ahead * 0.8, tip - ahead - aside},
    {fill = style.stroke or svg.colour.ink, opacity = style.opacity})
end

--- Text with the point at its baseline: `align` is "start", "middle" or "end", `mono` the type of code, and `halo` sets
--- it off from the lines behind it.
function Drawing:text(point, text, style)
  local all = {fill = svg.colour.ink}
  for key, value in pairs(style or {}) do
    if key == "align" then
      all.text_anchor = value
    elseif key == "mono" then
      all.font_family = value and "monospace" or nil
    elseif key == "halo" then
      all.stroke, all.stroke_width, all.paint_order = svg.colour.panel, 4, "stroke"
    else
      all[key] = value
    end
  end
  self:add("text", ('x="%s" y="%s"'):format(number(point.x), number(point.y)), all, escape(text))
end

function Drawing:write(path)
  local file = assert(io.open(path, "wb"))
  assert(file:write(table.concat(self, "\n"), "\n</svg>\n"))
  assert(file:close())
end

return svg
