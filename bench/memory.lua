-- Memory of results: what a million of each leave behind in Lua, and the bytes of a value beside the floor's. Ends with
-- 1 if anything is left.
local operations, m, floor = require "operations", require "math3d", require "floor"
local constructors = {"Vector2.new(1.5, 2.5)", "Vector3.new(1.5, 2.5, 3.5)", "Vector4.new(1.5, 2.5, 3.5, 4.5)",
  "Rotation.new(0, 0, 0, 1)", "Plane.new(v, 2.5)", "Ray.new(v, w)", "RectF.new(1, 2, 30, 40)",
  "RectOffset.new(1, 2, 3, 4)", "Color32.new(255, 10, 20, 30)", "ColorF.new(1, 0.5, 0.25, 0.125)", "Matrix.new()",
  "Matrix33.new()", "Aabb.new(v, w)"}

local function bytes()
  collectgarbage()
  collectgarbage()
  return collectgarbage("count") * 1024
end
local function bytes_of_value(call, module)
  local _, once = operations.compile(call, module)
  local values = table.move({}, 1, 1, 1000, {})
  for i = 1, 1000 do values[i] = false end
  local before = bytes()
  for i = 1, 1000 do values[i] = once() end
  return (bytes() - before) / 1000, values
end

local left_over = 0
print(("%-36s %8s %8s %14s"):format("", "bytes", "floor's", "left behind"))
for _, call in ipairs(constructors) do
  local ours, floors = bytes_of_value(call, m), bytes_of_value(call, floor)
  local run = operations.compile(call, m)
  run(1000)
  local before = bytes()
  run(1000000)
  local left = bytes() - before
  left_over = left_over + math.max(0, left)
  print(("%-36s %8.0f %8.0f %14.0f"):format(call, ours, floors, left))
end
os.exit(left_over < 1024)
