-- The script of objects.cpp: `remember` and `packed` are the host's.
-- [script]
print("packed", packed)

function on_report(report)
  print("report", report.frame, report.place)
end

function choose_table()
  local place = math3d.Vector3.new(1, 2, 3)
  remember(place)
  place.x = 100 -- the host has a copy
end

local pose = math3d.matrix_translation(4, 5, 6)
function choose_userdata()
  remember(pose)
  pose.translation = math3d.Vector3.new(40, 50, 60) -- the host has the pose itself
end

function forget()
  pose = nil
  collectgarbage()
end
-- [end]
