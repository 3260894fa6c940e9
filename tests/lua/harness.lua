--- What the script tests share: checks that say what they compared, and a closing count.
local harness = {checks = 0}

local function text(value)
  if type(value) == "number" and value == 0 and 1 / value < 0 then
    return "-0"
  end
  if type(value) == "table" and not getmetatable(value) then
    local parts = {}
    for k, v in pairs(value) do
      parts[#parts + 1] = tostring(k) .. "=" .. text(v)
    end
    table.sort(parts)
    return "{" .. table.concat(parts, ", ") .. "}"
  end
  return tostring(value)
end

--- The float nearest to a number, as a Lua number.
function harness.float(number)
  return (string.unpack("f", string.pack("f", number)))
end

local function same_number(a, b)
  return a == b and 1 / a == 1 / b or a ~= a and b ~= b
end

--- Fields of a value whose expected numbers are given by name; numbers compare by their bits, NaN with NaN.
local function differs(actual, expected, bound)
  if type(expected) == "number" and type(actual) == "number" then
    if bound then
      return not (math.abs(actual - expected) <= bound or same_number(actual, expected))
    end
    return not same_number(actual, expected)
  elseif type(expected) == "table" and (type(actual) == "table" or type(actual) == "userdata") then
    for key, value in pairs(expected) do
      local found = actual[key]
      if differs(found, value, bound) then
        return true
      end
    end
    return false
  end
  return actual ~= expected
end

local function check(level, failed, ...)
  harness.checks = harness.checks + 1
  if failed then
    error(string.format(...), level + 1)
  end
end

--- actual is expected: numbers to the bit, tables field by field of what is expected.
function harness.eq(actual, expected, what)
  check(2, differs(actual, expected), "%s: got %s, expected %s", what or "value", text(actual), text(expected))
end

--- As eq, within a bound per number (1e-6 if none is given).
function harness.near(actual, expected, bound, what)
  check(2, differs(actual, expected, bound or 1e-6), "%s: got %s, expected about %s", what or "value", text(actual),
    text(expected))
end

function harness.ok(value, what)
  check(2, not value, "%s does not hold", what or "condition")
end

--- The call raises exactly `message`, behind the position of the script that made it.
function harness.raises(message, f, ...)
  local ok, err = pcall(f, ...)
  local got = not ok and tostring(err):gsub("^[^:]+:%d+: ", "") or nil
  check(2, ok or got ~= message, "expected the error\n  %s\ngot\n  %s", message, ok and "none" or tostring(err))
end

--- Number of results of a call.
function harness.count(...)
  return select("#", ...)
end

--- Each case {name, {arguments}, results ...}: the call gives these results, as eq or near compare them, and leaves its
--- arguments alone. A case without results expects one nil.
function harness.calls(owner, cases, bound)
  for _, case in ipairs(cases) do
    local name, arguments = case[1], case[2]
    local before = text(arguments)
    local results = table.pack(owner[name](table.unpack(arguments, 1, arguments.n or #arguments)))
    local what = name .. before
    check(2, results.n ~= math.max(#case - 2, 1), "%s: got %d results", what, results.n)
    for i = 1, results.n do
      local expected = case[i + 2]
      check(2, differs(results[i], expected, bound), "%s: got %s, expected %s", what, text(results[i]), text(expected))
    end
    check(2, text(arguments) ~= before, "%s: changed its arguments to %s", what, text(arguments))
  end
end

--- No form of an overloaded function takes any of these lists of arguments.
function harness.fits_none(f, lists)
  for _, arguments in ipairs(lists) do
    harness.raises(harness.bad_overload, f, table.unpack(arguments))
  end
end

--- Names of methods and of functions of an owner with the count of arguments that each one needs, behind its object or
--- in all: what stands first in a call is a `needed`, and the two kinds differ in what they test first.
function harness.orders(owner, needed, object, methods, functions)
  for name, needed_count in pairs(methods) do
    harness.raises(("invalid boolean 'self', %s needed"):format(needed), owner[name], false)
    harness.raises(harness.bad_count(9, needed_count), owner[name], object, 1, 2, 3, 4, 5, 6, 7, 8, 9)
  end
  for name, needed_count in pairs(functions) do
    harness.raises(harness.bad_count(9, needed_count), owner[name], false, 2, 3, 4, 5, 6, 7, 8, 9)
    local lowest = tonumber(needed_count:match("%d+"))
    harness.raises(harness.bad_argument("boolean", 1, needed), owner[name], table.unpack({false}, 1, lowest))
  end
end

--- The raw fields of a table as a sorted text of names.
function harness.fields(value)
  local names = {}
  for name in next, value do
    names[#names + 1] = tostring(name)
  end
  table.sort(names)
  return table.concat(names, " ")
end

--- A generator with a fixed seed: numbers in [low, high], the same on every Lua.
function harness.random(seed)
  local state = seed
  return function(low, high)
    state = (state * 1103515245 + 12345) % 2147483648
    return low + (high - low) * (state / 2147483648)
  end
end

harness.needed = setmetatable({
  Vector2 = "struct zeph::math3d::_Point2<float>",
  Vector3 = "struct zeph::math3d::_Vector3<float>",
  Vector4 = "class zeph::math3d::Vector4<float>",
  Rotation = "struct zeph::math3d::_Rotation<float>",
  Plane = "struct zeph::math3d::_Plane<float>",
  RectF = "struct zeph::math3d::_Rect<float>",
  Ray = "struct zeph::math3d::Ray",
  Color32 = "struct zeph::math3d::Color32",
  ColorF = "struct zeph::math3d::ColorF",
  Matrix = "struct zeph::math3d::_Matrix<float>",
  Matrix33 = "struct zeph::math3d::Matrix33",
  Aabb = "struct zeph::AABB",
}, {__index = function(_, name) error("no needed text for " .. name) end})

-- The fixed sentences of the module.
function harness.bad_argument(got, index, needed) return ("invalid argument %s in %d, %s needed."):format(got, index, needed) end
function harness.bad_self(got, class) return ("invalid %s 'self', %s needed"):format(got, harness.needed[class]) end
function harness.bad_object(got, needed) return ("invalid %s 'self', %s needed."):format(got, needed) end
function harness.bad_value(got, needed) return ("invalid arg %s in setter, %s needed."):format(got, needed) end
function harness.bad_count(got, needed) return ("error invalid argument number %d, needed %s."):format(got, needed) end
harness.bad_overload = "invalid arguments in overload functions."

function harness.done()
  assert(harness.checks > 0, "no check was made")
  print(harness.checks .. " checks passed")
end

return harness
