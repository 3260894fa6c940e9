-- Counts a game's tick under callgrind: `lua count_ticks.lua ENTITIES TICKS`. The dump's name is "tick"; how many calls
-- of the library were counted is printed.
local counter = require "counter"
local entities, ticks = tonumber(arg[1]), tonumber(arg[2])
local tick, calls = require "tick"(require "math3d", entities)
for _ = 1, 2 do
  tick()
end
counter.start()
for _ = 1, ticks do
  tick()
end
counter.stop("tick")
print(entities * ticks * calls)
