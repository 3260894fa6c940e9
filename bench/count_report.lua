-- The table of tools/instructions, from what callgrind wrote: `lua count_report.lua FILE CALLS`.
local operations = require "operations"
local counts, n = {}, tonumber(arg[2])
local name
for line in io.lines(arg[1]) do
  name = line:match("^desc: Trigger: Client Request: (.*)$") or name
  local total = line:match("^summary: (%d+)") or line:match("^totals: (%d+)")
  if name and total and not counts[name] then
    counts[name] = tonumber(total) / n
  end
end

local loop = counts["loop "]
local function geometric(sum, count) return count > 0 and math.exp(sum / count) or 0 / 0 end
local sums, order, all, lines, over = {}, {}, {sum = 0, count = 0, most = 0}, {}, 0
print(("%-12s %-8s %-50s %9s %9s %7s"):format("kind", "value", "call", "floor", "ours", "ratio"))
for _, operation in ipairs(operations.list) do
  local kind, value, call = table.unpack(operation)
  local floor, ours = counts["floor " .. call], counts["ours " .. call]
  if floor and ours then
    local ratio = (ours - loop) / (floor - loop)
    print(("%-12s %-8s %-50s %9.0f %9.0f %7.3f%s"):format(kind, value, call, floor - loop, ours - loop, ratio,
      ratio > 1.10 and " >" or ""))
    for _, key in ipairs({kind, value}) do
      if not sums[key] then
        sums[key] = {sum = 0, count = 0, most = 0}
        order[#order + 1] = key
      end
      for _, group in ipairs({sums[key]}) do
        group.sum, group.count, group.most = group.sum + math.log(ratio), group.count + 1, math.max(group.most, ratio)
      end
    end
    all.sum, all.count, all.most = all.sum + math.log(ratio), all.count + 1, math.max(all.most, ratio)
    over = over + (ratio > 1.10 and 1 or 0)
  end
end
print()
print(("%-12s %5s %9s %9s"):format("", "calls", "mean", "most"))
for _, key in ipairs(order) do
  local group = sums[key]
  print(("%-12s %5d %9.3f %9.3f"):format(key, group.count, geometric(group.sum, group.count), group.most))
end
print(("%-12s %5d %9.3f %9.3f"):format("all", all.count, geometric(all.sum, all.count), all.most))
print(("an empty function: %.0f; calls above 1.10: %d"):format(counts["empty empty()"] - loop, over))
