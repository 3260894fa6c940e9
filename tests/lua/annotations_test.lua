-- lua/library/math3d.lua against the live module: names, counts and types of arguments, results, properties, examples.
require "math3d"
local t = require "harness"
local m = math3d
local root = assert(package.searchpath("harness", package.path)):gsub("tests/lua/harness%.lua$", "")
local library = root .. "lua/library/math3d.lua"
local model = assert(loadfile(root .. "tools/reference"))("reader")(library)
local common, classes = model.class_of.Value, {}

-- A value of each type, for the place i of a call: points and planes differ by place, so that lines and planes meet.
local samples = {
  number = function(i) return i + 0.5 end, integer = function(i) return i end, string = function() return "x" end,
  boolean = function() return true end, Vector3 = function(i) return m.Vector3.new(i * i, i, 1) end,
  Plane = function(i) return m.Plane.new(i == 1 and 1 or 0, i == 2 and 1 or 0, i == 3 and 1 or 0, 4) end,
}
for _, class in ipairs(model.order) do
  if class.base == "math3d.Value" then
    classes[#classes + 1] = class
    samples[class.name] = samples[class.name] or function() return m[class.name].new() end
  end
end

local function add_names(set, ...)
  for _, list in ipairs {...} do
    for _, entry in ipairs(list) do set[entry.name or entry] = true end
  end
  return set
end
local function same_names(what, live, written)
  for name in pairs(live) do t.ok(written[name], what .. ": an annotation of " .. name) end
  for name in pairs(written) do t.ok(live[name] ~= nil, what .. ": a live " .. name) end
end

local function bare(kind) return (kind:gsub("^math3d%.", ""):gsub("%?$", "")) end
local function nullable(param) return param.optional or param.type:find("%?$") ~= nil end
local function takes(param, given)
  local kind = bare(param.type)
  return kind == given or given == "nil" and nullable(param) or kind == "number" and given == "integer" or
    kind == "string" and (given == "integer" or given == "number")
end
local function fits(value, kind)
  if value == nil then return kind:find("%?$") ~= nil end
  if m[bare(kind)] then return getmetatable(value) == m[bare(kind)] end
  if kind:find("[%[<{]") then return type(value) == "table" and not getmetatable(value) end
  return bare(kind) == (({float = "number", integer = "integer"})[math.type(value)] or type(value))
end

--- A form of a call: its parameters with the object in front. The first optional one and all behind it can be left out.
local function form_of(written, object)
  local form = {lowest = 0, returns = written.returns, object and {type = "math3d." .. object} or nil}
  table.move(written.params, 1, #written.params, #form + 1, form)
  for i, param in ipairs(form) do form.lowest = param.optional and form.lowest or i end
  return form
end

--- A call with values of the given kinds passes if a form has them, and then has that form's results. With a `place`
--- all values of a kind are alike: parallel planes, a line of one point.
local function try(label, f, forms, kinds, place)
  local arguments, found = {}, nil
  for i, kind in ipairs(kinds) do arguments[i] = samples[kind] and samples[kind](place or i) end
  for _, form in ipairs(forms) do
    local good = form.lowest <= #kinds and #kinds <= #form
    for i, kind in ipairs(kinds) do good = good and takes(form[i], kind) end
    found = found or good and form or nil
  end
  local results = table.pack(pcall(f, table.unpack(arguments, 1, #kinds)))
  local what = ("%s with (%s)"):format(label, table.concat(kinds, ", "))
  t.eq(results[1], found ~= nil, what .. " passes")
  local returns = found and found.returns or {}
  t.ok(not found or results.n == #returns + 1 or results.n == 2 and not results[2], what .. " has the written results")
  for i, result in ipairs(returns) do t.ok(fits(results[i + 1], result.type), what .. " gives " .. result.type) end
end

--- What the module itself says of the count when it gets far too many arguments, against the one form.
local function check_count(label, f, form, object)
  local _, message = pcall(f, object and samples[object](1) or nil, table.unpack({}, 1, 39))
  local given, lowest, highest = message:match("number (%d+), needed %[?(%d+)%-?(%d*)")
  local uncounted, needed = 40 - given, #form
  for i = #form, 1, -1 do needed = nullable(form[i]) and i - 1 or needed end
  highest = tonumber(highest) or lowest
  t.eq({lowest + uncounted, highest + uncounted}, {needed, #form}, label .. ", message of the count")
end

--- Each form with arguments left out or added, and with each of them replaced; overloads with anything.
local function check_function(entry, f)
  local object, forms = entry.method and entry.owner, {}
  for i, written in ipairs {entry, table.unpack(entry.overloads)} do forms[i] = form_of(written, object) end
  for _, form in ipairs(forms) do
    for count = 0, #form + 3 do
      local kinds = {}
      for i = 1, count do kinds[i] = form[i] and bare(form[i].type) or "nil" end
      try(entry.label, f, forms, kinds)
      try(entry.label, f, forms, kinds, 1)
      for i, kind in ipairs {table.unpack(kinds)} do
        for other in pairs(samples) do kinds[i] = other try(entry.label, f, forms, kinds) end
        kinds[i] = kind
      end
    end
  end
  if #forms == 1 then return check_count(entry.label, f, forms[1], object) end
  for a in pairs(samples) do
    for b in pairs(samples) do
      for c in pairs(samples) do try(entry.label, f, forms, {a, b, c}) end
      try(entry.label, f, forms, {a, b})
    end
  end
end

--- The names of the operators, which take what stands on their right and nothing else.
local function check_operators(class)
  local forms_of = {}
  for _, operator in ipairs(class.operators) do
    local name = "__" .. operator.name
    local written = {params = {{type = operator.operand}}, returns = {{type = operator.result}}}
    forms_of[name] = forms_of[name] or {}
    table.insert(forms_of[name], form_of(written, class.name))
  end
  for name, forms in pairs(forms_of) do
    for other in pairs(samples) do try(class.name .. "." .. name, m[class.name][name], forms, {class.name, other}) end
  end
  return forms_of
end

--- Fields of a table, and properties with whether they can be assigned.
local function check_fields(class, sample)
  local writable, raw = sample:getProperties(), type(sample) == "table"
  for name in next, raw and sample or {} do writable[name] = true end
  same_names(class.name, writable, add_names({}, class.fields, {raw and "__dummy_type" or nil}))
  for _, field in ipairs(class.fields) do
    local what = class.name .. "." .. field.name
    t.eq(writable[field.name], not field.read_only, what .. " can be assigned")
    t.ok(fits(sample[field.name], field.type), what .. " is a " .. field.type)
  end
end

local of_module, aliases = add_names({}, classes, model.constants), {}
for _, class in ipairs(classes) do
  local live, sample = m[class.name], samples[class.name](1)
  -- What stands in a class and is not called by scripts.
  local unwritten = type(sample) == "table" and {"__asstring"} or {"__gc", "__clear"}
  local written = add_names(check_operators(class), class.functions, common.functions, common.fields, unwritten)
  same_names(class.name, live, add_names(written, {"__index", "__newindex", "__zplua_class"}))
  check_fields(class, sample)
  for _, entry in ipairs(class.functions) do check_function(entry, live[entry.name]) end
  for _, entry in ipairs(common.functions) do
    t.ok(fits(live[entry.name](sample), entry.returns[1].type), class.name .. ":" .. entry.name)
  end
  for _, alias in ipairs(class.aliases) do
    t.eq(m[alias], live, alias)
    of_module[alias], aliases[alias] = true, class.name
  end
end
same_names("types", aliases, model.type_aliases)
for alias, name in pairs(aliases) do t.eq(model.type_aliases[alias], name, alias) end
for _, constant in ipairs(model.constants) do t.eq(m[constant.name], constant.value, constant.name) end
for _, family in ipairs(model.families) do add_names(of_module, family.functions) end
same_names("math3d", m, of_module)
for _, family in ipairs(model.families) do
  for _, entry in ipairs(family.functions) do check_function(entry, m[entry.name]) end
end

-- Examples: `code --> text`, a float with six digits.
local function show(value) return math.type(value) == "float" and ("%.6g"):format(value) or tostring(value) end
for _, path in ipairs {library, root .. "docs/choose.md"} do
  local before = t.checks
  for example in ("\n" .. assert(io.open(path)):read("a"):gsub("\n%-%-%-", "\n")):gmatch("\n```lua\n(.-\n)```\n") do
    local code = example:gsub("([^\n]-) +%-%-> ([^\n]*)\n", function(expression, expected)
      return ("_expect(%q, %s)\n"):format(expected, expression)
    end)
    local function expect(expected, value) t.eq(show(value), expected, path .. ":\n" .. code) end
    assert(load(code, "=" .. path, "t", setmetatable({_expect = expect}, {__index = _G})))()
  end
  t.ok(t.checks > before, "an example in " .. path)
end

t.done()
