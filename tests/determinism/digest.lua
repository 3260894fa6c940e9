-- A digest of the bits of results of every function, method, operator and property of the module, with random and
-- special arguments: a line for each, so that a difference between two builds tells where it comes from.
--
--     digest.lua             prints the lines, as golden.txt has them
--     digest.lua GOLDEN      compares with them, and prints the two groups
--
-- What can be called, and with what, the annotations tell; that they are complete is checked here again. All NaNs count
-- as one. Entries that call the C library's trigonometry are a group apart, "platform": the environment variable
-- PLATFORM_CALLS names a library, loaded before all others, that tells of such calls. Without it golden.txt says which
-- entries these are.
require "math3d"
local m = math3d
local root = arg[0]:match("^(.*)/") .. "/../../"
local model = assert(loadfile(root .. "tools/reference"))("reader")(root .. "lua/library/math3d.lua")
local calls_an_entry = 3200

local golden, golden_order = {}, {}
for line in arg[1] and io.lines(arg[1]) or function() end do
  local name, rest = line:match("^(%S+)%s+(.*)$")
  golden[name], golden_order[#golden_order + 1] = rest, name
end
local function uses_platform(name) return golden[name] ~= nil and golden[name]:find("platform") ~= nil end
local library = os.getenv("PLATFORM_CALLS")
if library then
  local take_calls = assert(package.loadlib(library, "take_platform_calls"))
  function uses_platform() return take_calls() end
end

-- The digest: 64 bits, a word at a time.

local seed = 0x6C62272E07BB0142
local nan, hash = (string.unpack("<f", "\0\0\xC0\x7F")), seed
local add_value, math_type = {}, math.type
-- Floats gather till there are many: one call then gives the bits of all.
local floats, gathered, many = {}, 0, 200
local as_floats, as_words = "<" .. ("d"):rep(many), "<" .. ("i8"):rep(many)

local function add_word(word)
  hash = (hash ~ word) * 0x2545F4914F6CDD1D
  hash = hash ~ hash >> 32
end

local function add_float(value)
  gathered = gathered + 1
  floats[gathered] = value == value and value or nan
  if gathered == many then
    gathered = 0
    local words = {string.unpack(as_words, string.pack(as_floats, table.unpack(floats)))}
    for i = 1, many do add_word(words[i]) end
  end
end
local function take_hash()
  while gathered > 0 do add_float(0.0) end
  local taken = hash
  hash = seed
  return ("%016x"):format(taken)
end

local function add(value)
  local kind = math_type(value) or type(value)
  if kind == "float" then return add_float(value) end
  if kind == "integer" then return add_word(value) end
  if kind == "nil" or kind == "boolean" then return add_word(value and 2 or kind == "nil" and 1 or 0) end
  if kind == "string" then
    value = value:gsub("%-nan", "nan")
    add_word(#value)
    return add_word(string.unpack("<i8", value .. ("\0"):rep(8))) or #value > 8 and add(value:sub(9))
  end
  local class = getmetatable(value)
  if class then return add_value[class](value) end
  local names = {}
  for name in pairs(value) do names[#names + 1] = name end
  table.sort(names, function(a, b) return tostring(a) < tostring(b) end)
  for _, name in ipairs(names) do
    add(name)
    add(value[name])
  end
end

-- Arguments.

local state, spread = 0, 0
local function bits()
  state = state * 6364136223846793005 + 1442695040888963407
  return state >> 32
end
local function chance(n) return bits() % n == 0 end

local specials = {0.0, -0.0, 1.0, -1.0, 0.5, 2.0, m.PI, -m.PI, m.HALF_PI, m.PI * 2, m.EPSILON, -m.EPSILON, 1e-4, 0.1,
  0.99999, 0.999999, 0.499999, 1e20, -1e20, 3.4e38, 3.4028235677973366e38, 1e300, 1e-20, 1e-40, -1e-45, 7e-46, 1e-320,
  8388608.0, -8388609.0, 2147483648.0, 255.0, 1 / 0, -1 / 0, nan}
local function range(low, high) return low + (high - low) * ((bits() >> 8) / 16777216) end
local function number()
  if spread == 0 then return range(-1, 1) end
  if spread == 1 then return range(-100, 100) end
  if spread == 2 and not chance(4) then return range(-2, 2) end
  if spread < 4 then return specials[bits() % #specials + 1] end
  local value = string.unpack("<f", string.pack("<I4", bits()))
  return value == value and value or nan
end

local pieces = {"", "x", " 7", "1e39", "-1e-46", "0x1.8p1", "inf", "-inf", "nan", "1,", "12345678901234567890.5",
  "3.14abc"}
local make
make = {
  number = number,
  integer = function()
    if chance(2) then return bits() % 6 - 1 end
    local value = (bits() << bits() % 40 >> bits() % 40) * (chance(4) and -1 or 1)
    return chance(4) and bits() + 0.0 or value
  end,
  boolean = function() return chance(2) end,
  string = function()
    local list = {}
    for i = 1, chance(8) and bits() % 8 or 4 do
      list[i] = chance(4) and pieces[bits() % #pieces + 1] or ("%.9g"):format(number())
    end
    return table.concat(list, ",")
  end,
}
local function bare(kind) return (kind:gsub("^math3d%.", ""):gsub("%?$", "")) end

--- How values of a class are made and read: by the fields that stand in a table; by the elements of what has such; by
--- what can be assigned, and with it all that can be read.
local function add_class(class)
  local live, sample, filled, read = m[class.name], m[class.name].new(), {}, {}
  for _, field in ipairs(class.fields) do
    if type(sample) ~= "table" or rawget(sample, field.name) ~= nil then
      read[#read + 1] = field.name
      if not field.read_only then filled[#filled + 1] = {field.name, bare(field.type)} end
    end
  end
  local elements = {}
  for _, entry in ipairs(class.functions) do
    for i, param in ipairs(entry.name == "set_all" and entry.params or {}) do
      local row, column = param.name:match("(%d)(%d)")
      elements[i] = {math.tointeger(row), math.tointeger(column)}
    end
  end

  add_value[live] = function(value)
    for i = 1, #read do add(value[read[i]]) end
  end
  local function fill(value)
    for i = 1, #filled do value[filled[i][1]] = make[filled[i][2]]() end
  end
  if #elements > 0 then
    local get, set_all = live.get, live.set_all
    add_value[live] = function(value)
      for i = 1, #elements do add_float(get(value, elements[i][1], elements[i][2])) end
    end
    function fill(value)
      local numbers = {}
      for i = 1, #elements do numbers[i] = number() end
      set_all(value, table.unpack(numbers))
    end
  end
  local normalize = live.normalize or class.name == "Rotation" and m.quaternion_normalize
  make[class.name] = function()
    local value = live.new()
    fill(value)
    -- Frames and directions, where that makes no NaN, whose sign would differ.
    if spread < 2 and chance(2) then
      if live.orthogonalize then value:orthogonalize() end
      if normalize then value = normalize(value) or value end
    end
    return value
  end
end

-- The sweep.

local order, digest_of, count_of, is_platform, swept = {}, {}, {}, {}, {}

local function sweep(name, count, call)
  state = 0
  for byte in name:gmatch(".") do state = state * 31 + byte:byte() end
  uses_platform(name)
  for _ = 1, count do
    spread = bits() % 5
    call()
  end
  is_platform[name] = uses_platform(name)
  order[#order + 1], digest_of[name], count_of[name] = name, take_hash(), count
end

local function add_results(...)
  for i = 1, select("#", ...) do add((select(i, ...))) end
end

--- All forms in turn; optional arguments are left out, nil or there. What a call leaves of its arguments counts too.
local function sweep_function(name, f, forms)
  swept[f] = true
  for _, form in ipairs(forms) do
    for i, param in ipairs(form) do
      form[i] = {make = make[bare(param.type)], optional = param.optional, type = param.type,
        nullable = param.optional or param.type:find("%?$")}
    end
  end
  local n = 0
  sweep(name, calls_an_entry, function()
    n = n % #forms + 1
    local form, arguments = forms[n], {}
    local count = #form
    while count > 0 and form[count].optional and chance(4) do count = count - 1 end
    for i = 1, count do
      if not (form[i].nullable and chance(4)) then arguments[i] = form[i].make() end
    end
    add_results(f(table.unpack(arguments, 1, count)))
    for i = 1, count do
      if type(arguments[i]) == "table" or type(arguments[i]) == "userdata" then add(arguments[i]) end
    end
  end)
end

local function forms_of(entry)
  local forms = {}
  for i, written in ipairs {entry, table.unpack(entry.overloads)} do
    forms[i] = {table.unpack(written.params)}
    if entry.method then table.insert(forms[i], 1, {type = entry.owner}) end
  end
  return forms
end

local function sweep_class(class)
  local live = m[class.name]
  local operators, names = {}, {}
  for _, operator in ipairs(class.operators) do
    local name = "__" .. operator.name
    if not operators[name] then operators[name], names[#names + 1] = {}, name end
    table.insert(operators[name], {{type = class.name}, {type = operator.operand}})
  end
  for _, name in ipairs(names) do sweep_function(class.name .. "." .. name, live[name], operators[name]) end
  for _, entry in ipairs(class.functions) do
    sweep_function(class.name .. "." .. entry.name, live[entry.name], forms_of(entry))
  end
  for _, field in ipairs(class.fields) do
    sweep(class.name .. "." .. field.name, calls_an_entry, function() add(make[class.name]()[field.name]) end)
    if not field.read_only then
      sweep(class.name .. "." .. field.name .. "=", calls_an_entry, function()
        local value = make[class.name]()
        value[field.name] = make[bare(field.type)]()
        add(value)
      end)
    end
  end
  sweep_function(class.name .. ".__tostring", live.__tostring, {{{type = class.name}}})
  if live.__asstring then sweep_function(class.name .. ".__asstring", live.__asstring, {{{type = class.name}}}) end
  local value = live.new()
  for _, entry in ipairs(model.class_of.Value.functions) do
    if not swept[live[entry.name]] then
      swept[live[entry.name]] = true
      sweep(class.name .. "." .. entry.name, 1, function() add(live[entry.name](value)) end)
    end
  end
  for _, field in ipairs(model.class_of.Value.fields) do
    sweep(class.name .. "." .. field.name, 1, function() add(value[field.name]) end)
  end
end
local function check_swept(owner, without)
  for name, entry in pairs(owner) do
    assert(type(entry) ~= "function" or swept[entry] or without[name], name .. " was not called")
  end
end

local classes = {}
for _, class in ipairs(model.order) do
  if class.base == "math3d.Value" then
    classes[#classes + 1] = class
    add_class(class)
  end
end
for _, class in ipairs(classes) do sweep_class(class) end
for _, family in ipairs(model.families) do
  for _, entry in ipairs(family.functions) do sweep_function(entry.name, m[entry.name], forms_of(entry)) end
end
for _, constant in ipairs(model.constants) do sweep(constant.name, 1, function() add(m[constant.name]) end) end

-- Access is what properties go by, and an object's end has no result.
for _, class in ipairs(classes) do
  check_swept(m[class.name], {__index = true, __newindex = true, __gc = true, __clear = true})
end
check_swept(m, {})

-- What came out.

local lines, failed = {}, false
local groups = {exact = {names = {}, results = 0}, platform = {names = {}, results = 0}}
for i, name in ipairs(order) do
  local kind = is_platform[name] and "platform" or "exact"
  local group = groups[kind]
  group.names[#group.names + 1], group.results = name, group.results + count_of[name]
  lines[i] = ("%d %s %s"):format(count_of[name], digest_of[name], kind)
end
if not arg[1] then
  for i, name in ipairs(order) do print(("%-36s %s"):format(name, lines[i])) end
  return
end
for i, name in ipairs(order) do
  if lines[i] ~= golden[name] then
    local only_platform = is_platform[name] and golden[name] and golden[name]:find("platform$")
    failed = failed or not only_platform
    if not only_platform then print(name, lines[i], "recorded", golden[name]) end
    local group = groups[is_platform[name] and "platform" or "exact"]
    group.differing = (group.differing or "") .. " " .. name
  end
  golden[name] = nil
end
for name in pairs(golden) do
  print(name, "recorded, and no more there")
  failed = true
end
for kind, group in pairs(groups) do
  for _, name in ipairs(group.names) do add(digest_of[name]) end
  group.text = ("%-8s %d entries, %d results, digest %s, "):format(kind, #group.names, group.results, take_hash()) ..
    (group.differing and "not as recorded:" .. group.differing or "as recorded")
end
print(groups.exact.text)
print(groups.platform.text)
os.exit(not failed)
