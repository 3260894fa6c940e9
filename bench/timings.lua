-- What the benchmark program times in Lua: a function (filter, only_promises, add, add_tick), the last two of main.cpp.
-- The names are "OPERATION|SIDE".
local operations = require "operations"
local tick = require "tick"
local sides = {"floor", "math3d", "plain", "checked", "naive"}
local modules = {}
for _, side in ipairs(sides) do
  modules[side] = require(side)
end

return function(filter, only_promises, add, add_tick)
  local function wanted(text) return text:find(filter, 1, true) end

  if wanted("an empty function") then
    add("an empty function|floor", (operations.compile("empty()", modules.floor)))
  end
  for _, operation in ipairs(operations.list) do
    local kind, value, call = table.unpack(operation)
    local name = kind .. " " .. value .. " " .. call
    if wanted(name) and (operation.twelve or not only_promises) then
      for _, side in ipairs(sides) do
        local has_call = side ~= "checked" and side ~= "naive" or operation.twelve
        if has_call and not (side == "checked" and value == "wrapped") then
          add(name .. "|" .. (side == "math3d" and "ours" or side), (operations.compile(call, modules[side])))
        end
      end
    end
  end
  for _, count in ipairs({1000, 10000, 100000}) do
    local name = ("tick over %6d entities, a call"):format(count)
    if wanted(name) then
      for _, side in ipairs({"floor", "math3d", "plain"}) do
        add_tick(name .. "|" .. (side == "math3d" and "ours" or side), function() return tick(modules[side], count) end,
          count)
      end
    end
  end
end
