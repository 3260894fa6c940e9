-- The tables of tools/instructions: `lua count_report.lua CALLS FILE...`. Ends with 1 if a ratio is above 1.10 and
-- LIMITED is set in the environment.
local operations = require "operations"
local count = require "counts"(table.move(arg, 2, #arg, 1, {}), tonumber(arg[1]))

local columns = {"floor", "math3d"}
for _, side in ipairs({"floor_without_gc", "naive", "checked", "plain"}) do
  for _, operation in ipairs(operations.list) do
    if count(side, operation[3]) then
      columns[#columns + 1] = side
      break
    end
  end
end
local titles = {}
for i, side in ipairs(columns) do
  titles[i] = side:sub(1, 8) == "floor_wi" and "no __gc" or side
end
print(("%-12s %-8s %-50s"):format("kind", "value", "call") .. (" %8s"):rep(#titles):format(table.unpack(titles)) ..
  "   ratio")

local groups, order, over = {}, {}, 0
local function enter(key, ratio)
  if not groups[key] then
    groups[key] = {sum = 0, count = 0, most = 0}
    order[#order + 1] = key
  end
  local group = groups[key]
  group.sum, group.count, group.most = group.sum + math.log(ratio), group.count + 1, math.max(group.most, ratio)
end
for _, operation in ipairs(operations.list) do
  local kind, value, call = table.unpack(operation)
  local floor, ours = count("floor", call), count("math3d", call)
  if floor and ours then
    local line = ("%-12s %-8s %-50s"):format(kind, value, call)
    for _, side in ipairs(columns) do
      local instructions = count(side, call)
      line = line .. (instructions and (" %8.0f"):format(instructions) or "         ")
    end
    local ratio = ours / floor
    over = over + (ratio > 1.10 and 1 or 0)
    print(line .. ("   %.3f%s"):format(ratio, ratio > 1.10 and " >" or ""))
    enter(kind, ratio)
    enter("of " .. value, ratio)
    enter("all", ratio)
  end
end

print(("\n%-12s %5s %9s %9s"):format("ours / floor", "calls", "mean", "most"))
table.sort(order, function(a, b) return (a == "all" and "~" or a) < (b == "all" and "~" or b) end)
for _, key in ipairs(order) do
  local group = groups[key]
  print(("%-12s %5d %9.3f %9.3f"):format(key, group.count, math.exp(group.sum / group.count), group.most))
end
print(("an empty function %.0f; calls above 1.10: %d"):format(count("empty", ""), over))
os.exit(over == 0 or not os.getenv("LIMITED"))
