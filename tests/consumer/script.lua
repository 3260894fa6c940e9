-- Run by the consumer, and by a stock interpreter with the installed module; there it has to mirror by itself.
local math3d = require "math3d"
assert(math3d == _G.math3d)

mirrored = mirrored or function(v) return math3d.Vector3.new(-v.x, v.y, v.z) end

position = mirrored(math3d.Vector3.new(1, 2, 3) * 2 + math3d.Vector3.new(2, -2, 0.5))
assert(tostring(position) == "Vector3(-4.000000, 2.000000, 6.500000)", tostring(position))
assert(math3d.Vector3.new(3, 0, 4).length == 5)

matrix = math3d.Matrix.new(1)
matrix.translation = math3d.Vector3.new(0, 8, 0)
assert(matrix.translation.y == 8)

local ok, message = pcall(math3d.Vector3.cross, position)
assert(not ok and message:find("error invalid argument number 1, needed 2.", 1, true), message)
