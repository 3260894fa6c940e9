-- The script of values.cpp: `teleport` and `recoil` are the host's, `aim` is for the host.
-- [script]
local Vector3 = math3d.Vector3

local home = Vector3.new(1, 2, 3)
print("teleport", teleport(home), teleport(home, Vector3.new(0, 0, 5)))

local pose = math3d.matrix_translation(0, 0, 10)
recoil(pose, 4)
print("recoil", pose.translation)

print("error", select(2, pcall(teleport, 7)))

function aim(from, target)
  local direction = target - from.translation
  direction:normalize()
  return direction
end
-- [end]
