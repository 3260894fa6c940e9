-- A game's tick over many entities: `tick(m, count)` makes them and returns a function that runs one tick, and how many
-- calls of `m` it makes for an entity. Every entity keeps the values that the last tick made.
return function(m, count)
  local Vector3, rotate, slerp = m.Vector3, m.vector3_rotate, m.quaternion_slerp
  local entities = {}
  for i = 1, count do
    entities[i] = {
      position = Vector3.new(i % 100, 0.5, i // 100),
      velocity = Vector3.new(1, 0, -0.5),
      heading = m.Rotation.new(0, 0, 0, 1),
      wanted = m.Rotation.new(0, 0.6, 0, 0.8),
      near = false,
    }
  end
  local goal, forward, dt = Vector3.new(50, 0, 50), Vector3.new(0, 0, 1), 0.016
  return function()
    for i = 1, count do
      local entity = entities[i]
      entity.heading = slerp(entity.heading, entity.wanted, 0.1)
      local thrust = rotate(forward, entity.heading)
      entity.velocity = entity.velocity + thrust * dt
      entity.position = entity.position + entity.velocity * dt
      entity.near = entity.position:distance(goal) < 10
    end
  end, 7
end
