-- A game's load without the game: entities that live in coroutines for a while, move, turn and build their matrices and
-- boxes. The host calls frame(dt) and gets the number of calls into the module and a value of some entity.
local m = math3d
local gravity, size = m.Vector3.new(0, -9.81, 0), m.Vector3.new(1, 2, 1)
local unit_box, here, limit = m.Aabb.new(m.Vector3.new(0), size), m.Vector3.new(0), m.Vector3.new(100)

--- Every step makes the same calls, whatever the numbers.
local function live(steps)
  local position, velocity, drift = m.Vector3.new(steps, 0, 0), m.Vector3.new(0, 1, steps % 7), m.Vector3.new()
  local heading, colour = m.Rotation.new(), m.ColorF.new()
  local swarm, value = {}, nil -- luacheck: ignore swarm
  for i = 1, 10 do swarm[i] = m.Vector3.new(i) end
  for step = 1, steps do
    local dt = coroutine.yield(value)
    velocity = velocity + gravity * dt
    position = position + velocity * dt
    for i = 1, 10 do swarm[i] = swarm[i] + velocity * dt end
    velocity:set(velocity.x, -velocity.y, velocity.z * 0.99)
    position, drift = m.vector3_smooth_damp(position, here, drift, 0.3, limit, dt)
    heading = m.quaternion_slerp(heading, m.quaternion_rotation_zxy(dt, velocity.yaw, 0), 0.5)
    heading = m.quaternion_normalize(heading)
    local world = m.matrix_transformation_prs(position, heading, size)
    local parent = m.matrix_translation(0, dt, 0)
    world = world * parent
    world.translation = world.translation + heading.forward * 0.01
    local view = m.matrix_inverse(world)
    local box = m.aabb_transform(unit_box, world)
    local seen = m.vector3_transform_coord(box.max, view)
    local ground = m.plane_from_point_normal(position, heading.up)
    colour:intrp(colour, m.ColorF.new(0xFF336699), m.clamp(ground:distance_to(seen), 0, 1))
    local text = m.Vector3.new()
    text:from_string(seen:to_string())
    local values = {position, heading, world, box, colour, text, box:get_corners(), tostring(world)}
    value = values[(steps + step) % #values + 1]
  end
end

local function count_calls()
  local thread, calls = coroutine.create(live), -1  -- the yield behind the step
  coroutine.resume(thread, 2)
  debug.sethook(thread, function()
    calls = calls + (debug.getinfo(2, "S").what == "C" and 1 or 0)
  end, "c")
  assert(coroutine.resume(thread, 0.016))
  return calls
end
local calls_a_step = count_calls()

local threads, born = {}, 0
function frame(dt) -- luacheck: ignore
  local value
  for i = 1, 200 do
    if not threads[i] or coroutine.status(threads[i]) == "dead" then
      born = born + 1
      threads[i] = coroutine.create(live)
      assert(coroutine.resume(threads[i], 50 + born * 7919 % 400))
    end
    local _, result = assert(coroutine.resume(threads[i], dt))
    value = result or value
  end
  return #threads * calls_a_step, value
end
