--- Boxes for rays to meet: each is turned and moved by a matrix, and all stand in a tree of bounds.
---
--- Places and directions are values of math3d. Only the innermost loop, `slabs`, is written out in numbers: for one
--- picture it runs some twenty million times.

local math3d = require "math3d"
local transform_coord, transform_normal = math3d.vector3_transform_coord, math3d.vector3_transform_normal

local box_tree = {}

-- The stretch of a ray within a box that stands along the axes: where it enters and leaves, in lengths of the
-- direction, and the axis of the side by which it enters. It misses the box if it leaves before it enters. The ray is
-- given by its origin and by 1 / its direction.
local function slabs(x, y, z, per_x, per_y, per_z, low, high)
  local enter, leave, axis = (low.x - x) * per_x, (high.x - x) * per_x, "x"
  if enter > leave then enter, leave = leave, enter end
  local a, b = (low.y - y) * per_y, (high.y - y) * per_y
  if a > b then a, b = b, a end
  if a > enter then enter, axis = a, "y" end
  if b < leave then leave = b end
  if leave < 0 or enter > leave then return 0, -1 end
  a, b = (low.z - z) * per_z, (high.z - z) * per_z
  if a > b then a, b = b, a end
  if a > enter then enter, axis = a, "z" end
  if b < leave then leave = b end
  return enter, leave, axis
end

-- Most rays miss most boxes, so bounds are tested in fours within fours. The tree is a list: a ray that misses the
-- bounds of an entry goes on behind all that is inside, at `next`.
local function grow(tree, items, first, last)
  local low, high = items[first].bounds.min, items[first].bounds.max
  for i = first + 1, last do
    low, high = math3d.vector3_min(low, items[i].bounds.min), math3d.vector3_max(high, items[i].bounds.max)
  end
  local entry = {low = low, high = high}
  tree[#tree + 1] = entry
  if first == last then
    local item = items[first]
    entry.item, entry.to_box = item, math3d.matrix_inverse(item.to_world)
    entry.box_low, entry.box_high = item.box.min, item.box.max
  else
    local part = (last - first + 4) // 4
    for i = first, last, part do
      grow(tree, items, i, math.min(i + part - 1, last))
    end
  end
  entry.next = #tree + 1
end

--- Items are {box = an Aabb, to_world = its Matrix, bounds = the Aabb of both}. The result is a function
--- each_box(origin, direction, meet): it calls meet(item, enter, leave, axis, inside) for the boxes that a ray passes
--- through in front of its origin, in no order, till meet returns true. enter and leave count in lengths of the
--- direction, axis is that of the side by which the ray enters, inside its direction in the space of the box.
function box_tree.plant(items)
  local tree = {}
  grow(tree, items, 1, #items)
  local count = #tree

  return function(origin, direction, meet)
    local x, y, z = origin.x, origin.y, origin.z
    local per_x, per_y, per_z = 1 / direction.x, 1 / direction.y, 1 / direction.z
    local i = 1
    while i <= count do
      local entry = tree[i]
      local enter, leave = slabs(x, y, z, per_x, per_y, per_z, entry.low, entry.high)
      if leave > 0 and enter <= leave then
        local to_box = entry.to_box
        if to_box then
          -- The ray goes into the space of the box, where the box stands along the axes.
          local from, inside = transform_coord(origin, to_box), transform_normal(direction, to_box)
          local axis
          enter, leave, axis = slabs(from.x, from.y, from.z, 1 / inside.x, 1 / inside.y, 1 / inside.z,
            entry.box_low, entry.box_high)
          if leave > 0 and enter < leave and meet(entry.item, enter, leave, axis, inside) then return end
        end
        i = i + 1
      else
        i = entry.next
      end
    end
  end
end

return box_tree
