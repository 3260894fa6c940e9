-- Counts calls under callgrind: `lua count.lua CALLS FILTER SIDES`. Each measurement is a dump of its own, named
-- "SIDE CALL". FILTER is a part of a line of the list of operations, or several with semicolons between.
local counter = require "counter"
local operations = require "operations"
local n, filter = tonumber(arg[1]), arg[2]
local sides = {"floor", "math3d"}
for side in arg[3]:gmatch("%S+") do
  sides[#sides + 1] = side
end

local function count(name, run)
  run(n // 4)
  collectgarbage()
  collectgarbage()
  run(n // 4)  -- the collector at its pace
  counter.start()
  run(n)
  counter.stop(name)
end

local function wanted(line)
  for part in (filter .. ";"):gmatch("(.-);") do
    if line:find(part, 1, true) then
      return true
    end
  end
end

count("loop", (operations.compile("")))
count("empty", (operations.compile("empty()", require "floor")))
for _, operation in ipairs(operations.list) do
  local call = operation[3]
  if wanted(table.concat(operation, " ", 1, 3)) then
    for _, side in ipairs(sides) do
      local wrapped = operation[2] == "wrapped"
      local where = {
        naive = operation.twelve or false,
        checked = operation.twelve and not wrapped or false,
        floor_without_gc = wrapped,
      }
      if where[side] ~= false then
        count(side .. " " .. call, (operations.compile(call, require(side))))
      end
    end
  end
end
