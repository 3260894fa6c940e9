-- Matrix, Matrix33 and the matrix functions as scripts see them.
require "math3d"
local t = require "harness"
local eq, near, ok, raises, count = t.eq, t.near, t.ok, t.raises, t.count
local M, M3, V, R = math3d.Matrix, math3d.Matrix33, math3d.Vector3, math3d.Rotation
local native, pointer, class = t.needed.Matrix, t.needed.Matrix .. " *", "class zeph::math3d::LuaMatrix"
local nan, inf, pi = 0 / 0, math.huge, math.pi

local function m4(...) local m = M.new(0) m:set_all(...) return m end
local function m3(...) local m = M3.new() m:set_all(...) return m end
local function elements(m, size)
  local list = {}
  for row = 0, size - 1 do
    for column = 0, size - 1 do
      list[#list + 1] = m:get(row, column)
    end
  end
  return list
end
local function is(m, ...) t.checks = t.checks + 1 local want = {...}
  for i, got in ipairs(elements(m, #want == 9 and 3 or 4)) do
    if not (got == want[i] or got ~= got and want[i] ~= want[i]) then
      error(("element %d: got %s, expected %s"):format(i - 1, got, want[i]), 2)
    end
  end
end
local function about(m, ...) near(elements(m, select("#", ...) == 9 and 3 or 4), {...}, 2e-6) end
local function xyz(x, y, z) return {x = x + 0.0, y = y + 0.0, z = z + 0.0} end

-- new
for _, arguments in ipairs {{}, {nil}, {1}, {1.0}, {"1"}} do
  is(M.new(table.unpack(arguments)), 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1)
end
is(M.new(nil), 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1)
is(M.new(0), table.unpack({0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}))
is(M.new(2), table.unpack(elements(M.new(0), 4)))
for _, bad in ipairs {{1, 2}, {1.5}, {{}}, {R.new()}, {R.new(), V.new()}, {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}, {M3.new()}} do
  raises(t.bad_overload, M.new, table.unpack(bad))
end
local numbered = m4(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16)
local m = M.new(numbered)
m:set(0, 0, 7)
eq({numbered:get(0, 0), m:get(0, 0), m:get(3, 3)}, {1.0, 7.0, 16.0})

-- Elements: out of range reads 0 and writes nothing.
for _, index in ipairs {{4, 0}, {0, 4}, {-1, 0}, {0, -1}} do
  eq(m:get(index[1], index[2]), 0.0)
  eq(count(m:set(index[1], index[2], 9)), 0)
end
is(m, 7, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16)
eq(count(m:set_identity()), 0)
is(m, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1)

-- Operators: new objects; the operands stay.
is(numbered + numbered, table.unpack(elements(numbered * 2, 4)))
is(numbered - numbered, table.unpack(elements(M.new(0), 4)))
is(M.new() * 2, 2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2)
is(numbered * M.make_translation(V.new(1, 2, 3)), 5, 10, 15, 4, 13, 22, 31, 8, 21, 34, 47, 12, 29, 46, 63, 16)
eq(V.new(1, 1, 1) * numbered, xyz(28, 32, 36))
eq(M.mulvec3x3(numbered, V.new(1, 1, 1)), xyz(15, 18, 21))
eq(M.mulvec3x3(m4(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, inf, 0, 0, 1), V.new(1, 2, 3)), xyz(nan, 2, 3))
raises(t.bad_overload, function() return 2 * numbered end)
raises(t.bad_overload, function() return numbered * V.new() end)
raises(t.bad_argument("number", 1, native), function() return 1 + numbered end)
raises(t.bad_argument("Vector3", 2, native), function() return numbered - V.new() end)
raises(t.bad_count(1, "2"), function() return numbered == M.new() end)
for _, case in ipairs {{0.0, true}, {-1, false}, {0.5, true}} do
  eq(numbered:__eq(M.new(numbered), case[1]), case[2])
end
eq({numbered:__eq(numbered + M.new(), 1), numbered:__eq(numbered + M.new(), 0.999)}, {true, false})
eq(m4(nan, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16):__eq(numbered, 0), true)

-- Properties.
local placed = M.new()
placed.translation = V.new(5, 6, 7)
placed.translation.x = 9
is(placed, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 5, 6, 7, 1)
eq({numbered.right, numbered.up, numbered.forward, numbered.translation},
  {xyz(1, 2, 3), xyz(5, 6, 7), xyz(9, 10, 11), xyz(13, 14, 15)})
local function rows(x, y, z)
  return m4(x[1], x[2], x[3], 0, y[1], y[2], y[3], 0, z[1], z[2], z[3], 0, 0, 0, 0, 1)
end
eq(rows({2, 0, 0}, {0, 3, 0}, {0, 0, 4}).scale, xyz(2, 3, 4))
eq(rows({-5, 0, 0}, {0, 3, 0}, {0, 0, 1}).scale, xyz(-5, 3, 1))
local flipped = rows({-2, 0, 0}, {0, 3, 0}, {0, 0, 1})
eq(flipped.scale, xyz(2, -3, 1))
about(flipped.rotation, -1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1)
about(M.new(0).rotation, 1, 0, 0, 0, 0, -1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1)
eq(M.new(0).scale, xyz(0, 0, 0))
near(rows({1, 1, 0}, {0, 1, 0}, {0, 0, 1}).scale, {x = math.sqrt(2), y = 1, z = 1})
about(rows({1, 1, 0}, {0, 1, 0}, {0, 0, 1}).rotation, 0.70710677, 0.70710677, 0, 0, -0.70710677, 0.70710677, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1)
local body = rows({2, 0, 0}, {0, 3, 0}, {0, 0, 4})
body.translation = V.new(5, 6, 7)
body.rotation = rows({0, 9, 0}, {-9, 0, 0}, {0, 0, 9})
is(body, 0, 2, 0, 0, -3, 0, 0, 0, 0, 0, 4, 0, 5, 6, 7, 1)
body.scale = V.new(1, -1, 2)
is(body, 0, 1, 0, 0, 1, 0, 0, 0, 0, 0, 2, 0, 5, 6, 7, 1)
body:do_scale(V.new(2, 2, 2))
eq(count(body:do_scale(V.new(2, 2, 2))), 0)
is(body, 0, 2, 0, 0, 2, 0, 0, 0, 0, 0, 2, 0, 5, 6, 7, 1)
local block = numbered.m33
is(block, 1, 2, 3, 5, 6, 7, 9, 10, 11)
block:set(0, 0, 99)
eq(numbered:get(0, 0), 1.0)
body.m33 = block
is(body, 99, 2, 3, 0, 5, 6, 7, 0, 9, 10, 11, 0, 5, 6, 7, 1)
for yaw = -3, 3, 0.7 do
  for pitch = -1.4, 1.4, 0.7 do
    for roll = -3, 3, 1.1 do
      local turned = M.make_rotation_z(roll) * M.make_rotation_x(pitch) * M.make_rotation_y(yaw)
      near({turned.yaw, turned.pitch, turned.roll}, {yaw, pitch, roll}, 4e-4)
      near(elements(turned, 4), elements(math3d.matrix_rotation_zxy(pitch, yaw, roll), 4), 2e-6)
    end
  end
end
eq({M.new(0).yaw, M.new(0).pitch, M.new(0).roll}, {0.0, -0.0, 0.0})
near(m4(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0).roll, pi / 2)
for name, needed in pairs {translation = class, scale = class, rotation = class, m33 = class, forward = class, up = class,
  right = class, yaw = pointer, pitch = pointer, roll = pointer} do
  raises(t.bad_object("number", needed), M.__index, 1, name)
end
raises(t.bad_value("number", t.needed.Vector3), function() body.translation = 1 end)
raises(t.bad_value("Matrix33", native), function() body.rotation = M3.new() end)
raises(t.bad_value("Matrix", t.needed.Matrix33), function() body.m33 = M.new() end)
raises("property 'yaw' of Matrix is read-only", function() body.yaw = 1 end)
is(body, 99, 2, 3, 0, 5, 6, 7, 0, 9, 10, 11, 0, 5, 6, 7, 1)

-- Methods in place.
m = M.new()
m:do_translate(V.new(1, 0, 0))
m:do_translate(V.new(0, 0, 0))
m:do_rotation(m4(0, 1, 0, 9, -1, 0, 0, 9, 0, 0, 1, 9, 9, 9, 9, 9))
is(m, 0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 0, 1, 0, 1)
m = m4(2, 0, 0, 0, 0, 4, 0, 0, 0, 0, 8, 0, 1, 2, 3, 1)
eq({m:inverse(), count(M.new():inverse())}, {true, 1})
is(m, 0.5, 0, 0, 0, 0, 0.25, 0, 0, 0, 0, 0.125, 0, -0.5, -0.5, -0.375, 1)
m = M.new(numbered)
eq(m:inverse(), true, "a singular matrix too")
for _, element in ipairs(elements(m, 4)) do ok(element ~= element or element == inf or element == -inf) end
m = M.new(numbered)
m:transpose()
is(m, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15, 4, 8, 12, 16)
m:mirror()
eq({m:get(0, 0), m:get(0, 3), m:get(1, 0)}, {-1.0, -13.0, 2.0})
m = m4(2, 0, 0, 9, 1, 3, 0, 9, 0, 1, 4, 9, 9, 9, 9, 9)
local straightened = M.new(m)
straightened:orthogonalize()
about(straightened, 1, 0, 0, 9, 0, 1, 0, 9, 0, 0, 1, 9, 9, 9, 9, 9)
m:normalize()
near(m.forward, {x = 0, y = 1 / math.sqrt(17), z = 4 / math.sqrt(17)})
eq({m:is_orthogonal(), m:get(0, 3), m:get(3, 0), M.new():is_mirrored(), flipped:is_mirrored()}, {true, 9.0, 9.0, false, true})
eq({rows({2, 0, 0}, {0, 3, 0}, {0, 0, 4}):is_orthogonal(), M.new(0):is_orthogonal(), rows({1, 0, 0}, {2e-6, 1, 0}, {0, 0, 1}):is_orthogonal()},
  {true, true, false})
eq({M.new():has_scale(), rows({1.0000005, 0, 0}, {0, 1, 0}, {0, 0, 1}):has_scale(), rows({1.000002, 0, 0}, {0, 1, 0}, {0, 0, 1}):has_scale()},
  {false, false, true})
raises(t.bad_object("number", pointer), M.inverse, 1)
raises(t.bad_object("Matrix33", pointer), M.transpose, M3.new())
raises(t.bad_count(1, "0"), m.inverse, m, 1)
raises(t.bad_count(15, "16"), m.set_all, m, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15)
raises(t.bad_argument("string", 9, "float"), m.set_all, m, 1, 2, 3, 4, 5, 6, 7, "x", 9, 10, 11, 12, 13, 14, 15, 16)
raises(t.bad_argument("number", 2, t.needed.Vector3), m.do_scale, m, 1)
raises(t.bad_count(2, "3"), m.get, m, 1)
raises(t.bad_argument("number", 2, "int"), m.get, m, 1.5, 1)
raises(t.bad_argument("nil", 1, native), M.set, nil, 1, 1, 1)

-- Builders of the class and of the module.
local fx = math3d
local f = t.float
about(M.make_rotation_x(pi / 2), 1, 0, 0, 0, 0, 0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1)
about(M.make_rotation_y(pi / 2), 0, 0, -1, 0, 0, 1, 0, 0, 1, 0, 0, 0, 0, 0, 0, 1)
is(M.make_rotation_z(fx.PI), -1, 0, 0, 0, -0.0, -1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1)
about(M.make_rotation_between(V.new(3, 0, 0), V.new(0, 5, 0)), 0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1)
about(M.make_rotation_between(V.new(1, 0, 0), V.new(-1, 0, 0)), -1, 0, 0, 0, 0, 0, 1, 0, 0, 1, 0, 0, 0, 0, 0, 1)
is(M.make_rotation_between(V.new(), V.new(1, 0, 0)), table.unpack(elements(M.new(), 4)))
is(M.make_orient(V.new(1, 0, 0), V.new(0, 1, 0)), 0, 0, -1, 0, 0, 1, 0, 0, 1, 0, 0, 0, 0, 0, 0, 1)
is(M.make_orient(V.new(0, 1, 0), V.new(0, 1, 0)), 0, 0, 1, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 1)
is(M.make_orient(V.new(0, 0, 1e-7), V.new(0, 1, 0)), table.unpack(elements(M.new(0), 4)))
is(M.make_reflection(V.new(0, 1, 0), V.new(0, 2, 0)), 1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1, 0, 0, 4, 0, 1)
is(M.make_reflection(V.new(), V.new(0, 2, 0)), table.unpack(elements(M.new(0), 4)))
is(fx.matrix_identity(), table.unpack(elements(M.new(), 4)))
is(fx.matrix_inverse(m4(2, 0, 0, 0, 0, 4, 0, 0, 0, 0, 8, 0, 1, 2, 3, 1)), 0.5, 0, 0, 0, 0, 0.25, 0, 0, 0, 0, 0.125, 0, -0.5, -0.5, -0.375, 1)
is(fx.matrix_inverse(M.new(0)), nan, nan, nan, nan, nan, nan, nan, nan, nan, nan, nan, nan, nan, nan, nan, nan)
is(fx.matrix_translation(1, 2, 3), 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 1, 2, 3, 1)
is(fx.matrix_translation_from_vector(V.new(1, 2, 3)), table.unpack(elements(M.make_translation(V.new(1, 2, 3)), 4)))
is(fx.matrix_scaling(2, 3, 4), 2, 0, 0, 0, 0, 3, 0, 0, 0, 0, 4, 0, 0, 0, 0, 1)
is(fx.matrix_scaling_from_vector(V.new(2, 3, 4)), table.unpack(elements(fx.matrix_scaling(2, 3, 4), 4)))
is(fx.matrix_rotation_quaternion(R.new(0, 0, 1, 1)), -1, 2, 0, 0, -2, -1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1)
about(fx.matrix_rotation_axis(V.new(0, 0, 2), pi / 2), 0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1)
about(fx.matrix_rotation_normal(V.new(0, 0, 2), pi / 2), 0, 2, 0, 0, -2, 0, 0, 0, 0, 0, 4, 0, 0, 0, 0, 1)
local cos1 = math.cos(1)
about(fx.matrix_rotation_axis(V.new(), 1), cos1, 0, 0, 0, 0, cos1, 0, 0, 0, 0, cos1, 0, 0, 0, 0, 1)
is(fx.matrix_rotation_zxy_from_vector(V.new(1, 2, 3)), table.unpack(elements(fx.matrix_rotation_zxy(1, 2, 3), 4)))
is(fx.matrix_rotation_look(V.new(2, 0, 0), V.new(0, 3, 0)), 0, 0, -1, 0, 0, 1, 0, 0, 1, 0, 0, 0, 0, 0, 0, 1)
is(fx.matrix_rotation_look(V.new(), V.new(0, 1, 0)), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1)
is(fx.matrix_ortho_normal_basis(V.new(1, 2, 3), V.new(4, 5, 6), V.new(7, 8, 9)), 1, 2, 3, 0, 4, 5, 6, 0, 7, 8, 9, 0, 0, 0, 0, 1)
about(fx.matrix_transformation_prs(V.new(1, 2, 3), R.new(0, 0, f(0.70710678), f(0.70710678)), V.new(2, 3, 4)), 0, 2, 0, 0, -3, 0, 0, 0, 0, 0, 4, 0, 1, 2, 3, 1)
raises(t.bad_argument("table", 1, t.needed.Vector3), M.make_translation, {})
raises(t.bad_argument("Vector3", 2, t.needed.Rotation), fx.matrix_transformation_prs, V.new(), V.new(), V.new())
raises(t.bad_count(2, "3"), fx.matrix_scaling, 1, 2)

-- Matrix33.
is(M3.new(), 1, 0, 0, 0, 1, 0, 0, 0, 1)
local small = m3(1, 2, 3, 4, 5, 6, 7, 8, 10)
local copy = M3.new(small)
copy:Transpose()
is(copy, 1, 4, 7, 2, 5, 8, 3, 6, 10)
copy:mirror()
is(copy, -1, -4, -7, 2, 5, 8, 3, 6, 10)
eq({small:is_mirrored(), copy:is_mirrored(), small:get(3, 0), small:get(2, -1), small:get(2, 2)}, {true, false, 0.0, 0.0, 10.0})
small:set(3, 3, 9) small:set(0, 0, 11)
is(small, 11, 2, 3, 4, 5, 6, 7, 8, 10)
about(m3(1, 1, 0, 0, 1, 0, 0, 0, 1) * M3.new(), 0.70710677, 0.70710677, 0, -0.70710677, 0.70710677, 0, 0, 0, 1)
is(m3(2, 0, 0, 0, 3, 0, 0, 0, 4) * M3.new(), 1, 0, 0, 0, 1, 0, 0, 0, 1)
copy:set_all(1, 2, 0, 0, 1, 3, 2, 0, 1)
copy:orthogonalize()
ok(copy:__eq(copy * M3.new(), 1e-6) and not copy:is_mirrored())
copy:set_identity()
is(copy, 1, 0, 0, 0, 1, 0, 0, 0, 1)
raises(t.bad_overload, M3.new, 1)
raises(t.bad_argument("number", 2, t.needed.Matrix33), function() return copy * 2 end)
raises(t.bad_count(1, "2"), function() return copy == M3.new() end)
raises(t.bad_object("Matrix", t.needed.Matrix33 .. " *"), M3.mirror, M.new())
eq(tostring(M3.new()), "Matrix33((1.000000, 0.000000, 0.000000), (0.000000, 1.000000, 0.000000), (0.000000, 0.000000, 1.000000)")
eq(tostring(M.new()), "Matrix((1.000000, 0.000000, 0.000000, 0.000000), (0.000000, 1.000000, 0.000000, 0.000000), "
  .. "(0.000000, 0.000000, 1.000000, 0.000000), (0.000000, 0.000000, 0.000000, 1.000000)")
eq({#tostring(M.new() * 1e38), #tostring(m3(1e38, 1e38, 1e38, 1e38, 1e38, 1, 1, 1, 1))}, {199, 199})
eq(M3:getProperties(), {})

-- The standard finalizer has nothing to do; one that a script puts in its place is called.
local ended, standard = 0, M.__gc
M.__gc = function(gone) ended = ended + 1 standard(gone) end
for _ = 1, 5 do M.new() end
collectgarbage() collectgarbage()
M.__gc = standard
eq(ended, 5)
local gone = M.new()
gone:__gc() gone:__gc() gone:__clear()
raises(t.bad_object("userdata", pointer), M.transpose, gone)
ok(rawget(M, "__gc") == standard)
-- A finalizer may make matrices while a matrix is being made.
local kept, finalized = {}, 0
for i = 1, 2000 do
  setmetatable({}, {__gc = function() finalized = finalized + 1 kept[-i] = M.make_translation(V.new(-i, 0, 0)) end})
  kept[i] = M.make_translation(V.new(i, 0, 0))
end
local whole = true
for i, value in pairs(kept) do whole = whole and value.translation.x == i and getmetatable(value) == M end
ok(whole and (finalized > 0 or os.getenv("MATH3D_COLLECT")))  -- the collection of a full memory finalizes nothing

t.done()
