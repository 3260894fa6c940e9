-- Whether the floor and plain Lua compute what the library computes: `lua agree.lua`. A floor that did less would be no
-- measure. Values are compared to five digits, since plain Lua has doubles.
local operations = require "operations"
local library = require "math3d"
local others = {floor = require "floor", naive = require "naive", plain = require "plain", checked = require "checked"}

-- What a value is, whatever it is made of.
local function shown(value)
  if math.type(value) then
    return ("%.5g"):format(value)
  end
  if type(value) ~= "table" then
    return type(value) == "userdata" and "userdata" or tostring(value)
  end
  local fields = {}
  for key, field in pairs(value) do
    if key ~= "__dummy_type" then
      fields[#fields + 1] = tostring(key) .. "=" .. shown(field)
    end
  end
  table.sort(fields)
  return "{" .. table.concat(fields, ", ") .. "}"
end
local function results(call, m)
  local _, once = operations.compile(call, m)
  local values = table.pack(once())
  for i = 1, values.n do
    values[i] = shown(values[i])
  end
  return table.concat(values, ", ")
end

local wrong, compared = 0, 0
for _, operation in ipairs(operations.list) do
  local call = operation[3]
  local expected = results(call, library)
  for side, m in pairs(others) do
    local ok, got = pcall(results, call, m)
    -- The wrapped values of plain Lua are tables, and the text of its matrix is not cut.
    local comparable = ok and not (side == "plain" and (expected == "userdata" or call == "tostring(M)"))
    comparable = comparable and (side == "floor" or side == "plain" or operation.twelve)
    if not ok and (side == "floor" or side == "plain") or comparable and got ~= expected then
      print(side, call, got, expected)
      wrong = wrong + 1
    end
    compared = compared + (comparable and 1 or 0)
  end
end
print(compared .. " compared, " .. wrong .. " wrong")
os.exit(wrong == 0)
