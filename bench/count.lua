-- Counts under callgrind: `lua count.lua FILTER`. Each measurement is a dump of its own, named SIDE CALL.
local counter = require "counter"
local operations = require "operations"
local sides = {{"floor", require "floor"}, {"ours", require "math3d"}}
local n = tonumber(arg[2])
local filter = arg[1] or ""

local function measure(side, call, m)
  local run = operations.compile(call, m)
  run(n // 4)
  collectgarbage()
  collectgarbage()
  run(n // 4)
  counter.start()
  run(n)
  counter.stop(side .. " " .. call)
end

measure("loop", "", nil)
measure("empty", "empty()", sides[1][2])
for _, operation in ipairs(operations.list) do
  local call = operation[3]
  if (table.concat(operation, " ", 1, 2) .. " " .. call):find(filter, 1, true) then
    for _, side in ipairs(sides) do
      measure(side[1], call, side[2])
    end
  end
end
