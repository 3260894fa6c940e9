-- The script of the native host: called once a frame, with values that the host hands in.

local velocity = math3d.Vector3.new(1, 0, 2)

-- A new position from the old one: the host gets it back as a native value.
function on_frame(time, position)
  if time == 0 then
    position = spawn
  end
  local next_position = position + velocity * 0.25
  host.log(next_position)
  return next_position
end

function describe(position)
  return ("%s is %.3f away from the start"):format(position, position:distance(spawn))
end
