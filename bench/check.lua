-- The promises about speed, each with its number: `lua check.lua LIBRARY_BYTES TIMES FEW MANY CALLS COUNTS...`, with
-- the benchmarks' JSON of some runs one after the other, and the instructions a call of a tick over few entities and
-- over many. Ends with 1 if one does not hold.
local operations = require "operations"
local library_bytes, times_file, few, many = tonumber(arg[1]), arg[2], tonumber(arg[3]), tonumber(arg[4])
local calls = tonumber(arg[5])
local count = require "counts"(table.move(arg, 6, #arg, 1, {}), calls)

-- The least time of all repetitions, by name.
local times, name = {}, nil
for line in io.lines(times_file) do
  name = line:match('"run_name": "(.*)",') or name
  if line:find('"run_type": "aggregate"', 1, true) then
    name = nil
  end
  local time = line:match('"cpu_time": ([^,]+)')
  if name and time then
    name = name:gsub("\\(.)", "%1")
    times[name] = math.min(times[name] or math.huge, tonumber(time))
    name = nil
  end
end
local function time(operation, side)
  return times[(type(operation) == "table" and table.concat(operation, " ", 1, 3) or operation) .. "|" .. side]
end

local failed = 0
local function claim(text, value, holds, limit)
  print(("%-4s %-78s %8.3f  %s"):format(holds and "ok" or "FAIL", text, value, limit))
  failed = failed + (holds and 0 or 1)
end
local function at_most(text, value, limit) claim(text, value, value <= limit, "at most " .. limit) end
local function at_least(text, value, limit) claim(text, value, value >= limit, "at least " .. limit) end
local function mean(list)
  local sum = 0
  for _, value in ipairs(list) do
    sum = sum + math.log(value)
  end
  return math.exp(sum / #list)
end

-- Instructions: ours beside the floor's, the worst call of each kind.
local all, worst = {}, {}
for _, operation in ipairs(operations.list) do
  local kind, value, call = table.unpack(operation)
  local ratio = count("math3d", call) / count("floor", call)
  all[#all + 1] = ratio
  for _, key in ipairs({kind, "of " .. value}) do
    if not worst[key] or ratio > worst[key].ratio then
      worst[key] = {ratio = ratio, call = call}
    end
  end
end
for _, key in ipairs({"function", "constructor", "operator", "overload", "method", "getter", "setter", "mutator",
  "of number", "of dummy", "of nested", "of wrapped", "of tuple", "of table", "of text"}) do
  at_most(("instructions / floor, worst %s: %s"):format(key, worst[key].call), worst[key].ratio, 1.10)
end
at_most(("instructions / floor, mean of %d calls"):format(#all), mean(all), 1.03)

-- The twelve operations beside other roads.
local naive, checked, naive_count, checked_count = {}, {}, {}, {}
for _, operation in ipairs(operations.list) do
  local call = operation[3]
  if operation.twelve then
    naive[#naive + 1] = time(operation, "naive") / time(operation, "ours")
    naive_count[#naive_count + 1] = count("naive", call) / count("math3d", call)
    if time(operation, "checked") then
      checked[#checked + 1] = time(operation, "ours") / time(operation, "checked")
      checked_count[#checked_count + 1] = count("math3d", call) / count("checked", call)
    end
  end
end
at_least(("times naive / ours, mean of %d"):format(#naive), mean(naive), 2.0)
at_least(("instructions naive / ours, mean of %d"):format(#naive), mean(naive_count), 2.0)
at_most(("times ours / plain Lua with the same checks, mean of %d"):format(#checked), mean(checked), 0.9)
at_most(("instructions ours / plain Lua with the same checks, mean of %d"):format(#checked), mean(checked_count), 0.9)
for _, call in ipairs({"M * N", "matrix_inverse(M)", "Matrix.new()", "Matrix.new(M)"}) do
  at_most("instructions / floor without __gc: " .. call, count("math3d", call) / count("floor_without_gc", call), 1.5)
end

-- Native code. Rows that stand on 16 bytes are operands of a multiplication, others are loaded first; a point's
-- transform is little more than that, so it is also compared where matrices are aligned alike.
for _, sides in ipairs({
  {"matrix multiply", "ours", "glm", "glm simd", "eigen"}, {"matrix inverse", "ours", "glm", "glm simd", "eigen"},
  {"quaternion multiply", "ours", "glm", "glm simd", "eigen"},
  {"point transform", "ours", "glm", "glm simd", "eigen"}, {"point transform", "ours", "glm"},
  {"point transform", "aligned", "glm simd", "eigen"},
  {"points by one matrix", "ours", "glm", "glm simd", "eigen"}}) do
  local operation, side = sides[1], sides[2]
  local others = table.move(sides, 3, #sides, 1, {})
  local best = math.huge
  for _, other in ipairs(others) do
    best = math.min(best, time("native " .. operation, other) or math.huge)
  end
  at_most(("native time, %s: %s / %s"):format(operation, side, table.concat(others, ", ")),
    time("native " .. operation, side) / best, 1.0)
end

-- A tick over more entities takes the same instructions. That it leaves the caches behind is told by the times, for
-- everybody alike.
local function tick(entities, side) return time(("tick over %6d entities, a call"):format(entities), side) end
local line = "     tick, ns a call, 1000 / 10000 / 100000 entities: ours %.0f / %.0f / %.0f, floor %.0f / %.0f / %.0f"
print(line:format(
  tick(1000, "ours"), tick(10000, "ours"), tick(100000, "ours"), tick(1000, "floor"), tick(10000, "floor"),
  tick(100000, "floor")))
at_most("instructions a call in a tick over 100,000 entities / over 1,000", many / few, 1.05)
at_most("stripped library, KB of 1024 bytes", library_bytes / 1024, 400)
print(failed == 0 and "all promises hold" or failed .. " promises do not hold")
os.exit(failed == 0)
