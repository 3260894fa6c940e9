-- The frame: orders of checks, overloads, optional arguments, properties, wrapped objects, standard entries.
require "math3d"
require "probe"
local t = require "harness"
local eq, ok, raises, count = t.eq, t.ok, t.raises, t.count
local P, V = probe.Probe, math3d.Vector3
local native, pointer, class = "struct zeph::test::Probe", "struct zeph::test::Probe *", "class zeph::test::LuaProbe"

-- A wrapped class.
local p = P.new(3)
ok(type(p) == "userdata" and getmetatable(p) == P and probe.Sonde == P)
ok(type(P.__gc) == "function" and type(P.__clear) == "function")
eq({P.class_name, P.lua_name, P.__zplua_class}, {"class zeph::test::LuaProbe", "Probe", true})
eq({tostring(p), p:type(), p.type(P), P:mro()[1], #p:mro()}, {"Probe(3.000000)", "Probe", "Probe", "Probe", 1})
eq(P:getProperties(), {number = true, twin = false, place = true, double = false, field = true})
local q = P.new(p)
q.number = 4
eq({p.number, q.number, (p + q).number, p.number}, {3.0, 4.0, 7.0, 3.0})

-- Method order: object, count, arguments. Function order: count, then all arguments.
raises(t.bad_object("number", pointer), P.set, 1)
raises(t.bad_object("no value", pointer), P.set)
raises(t.bad_object("Vector3", pointer), P.set, V.new(), 1)
raises(t.bad_count(0, "1"), P.set, p)
raises(t.bad_count(2, "1"), P.set, p, {}, {})
raises(t.bad_argument("table", 2, "float"), P.set, p, {})
raises(t.bad_argument("number", 2, native), p.add, p, 1)
raises(t.bad_argument("number", 2, t.needed.Vector3), p.place_at, p, 1)
raises(t.bad_argument("nil", 3, "float"), p.matches, p, q, nil)
raises(t.bad_count(1, "2"), P.__add, 1)
raises(t.bad_argument("number", 1, native), P.__add, 1, {})
raises(t.bad_argument("nil", 2, native), P.__add, p, nil)
eq({count(p:set(5)), p.number, p:matches(q, 1), p:matches(q, 0.5)}, {0, 5.0, true, false})
p:add(p)
eq(p.number, 10.0, "an object as its own argument")
p:name("12.5 and more") eq(p.number, 12.5)
p:name(3) eq(p.number, 3.0, "a number is a text")

-- Overloads: the first form that fits; only a dummy object that a method needs and does not get is told.
p:either(6) eq(p.number, 6.0)
p:either(V.new(1, 2, 3)) eq(p.place, {x = 1.0, y = 2.0, z = 3.0})
for _, arguments in ipairs {{p}, {p, {}}, {p, 1, 2}, {1, 2}, {V.new(), 1}} do
  raises(t.bad_overload, P.either, table.unpack(arguments))
end
p:either("7") eq(p.number, 7.0)

-- Properties: no count check; each kind of binding has its words.
p.number = 8
eq({p.number, p.double, p.field, p.twin.number}, {8.0, 16.0, 8.0, 8.0})
p.field = "9" eq(p.number, 9.0)
p.place = V.new(4, 5, 6)
p.place.x = 1
eq(p.place, {x = 4.0, y = 5.0, z = 6.0}, "a property gives a copy")
raises(t.bad_value("table", "float"), function() p.number = {} end)
raises(t.bad_value("number", t.needed.Vector3), function() p.place = 1 end)
raises("property 'double' of Probe is read-only", function() p.double = 1 end)
raises("Probe has no property 'nothing' to assign to", function() p.nothing = 1 end)
raises("Probe has no property 'boolean' to assign to", function() p[true] = 1 end)
eq({p.nothing, p[1], p[nil], p.number, p.place.z}, {nil, nil, nil, 9.0, 6.0})
for property, needed in pairs {number = pointer, place = class, double = class, field = pointer} do
  raises(t.bad_object("number", needed), P.__index, 1, property)
  if property ~= "double" then
    raises(t.bad_object("nil", needed), P.__newindex, nil, property, 1)
  end
end

-- Results of every kind, and their number.
local place = V.new(1, 2, 3)
p = P.new(2) p.place = place
eq({p:text(), count(p:text()), count(p:dead()), count(p:nothing())}, {"xx", 1, 0, 1})
eq(p:nothing(), nil)
for _, make in ipairs {p.tuple, p.results} do
  local number, vector, twin, extra = make(p)
  eq({number, vector.z, twin.number, extra, count(make(p))}, {2.0, 3.0, 2.0, nil, 3})
end
local list = p:table()
eq({list[1], list[2].x, list[3].number, getmetatable(list)}, {2.0, 1.0, 2.0, nil})
list = p:listing()
eq({list[0].y, list[1], list[2].number, #list, getmetatable(list)}, {2.0, 2.0, 2.0, 2, nil})
ok(p:maybe() == place and P.new(0):maybe() == nil)
eq(count(P.new(0):maybe()), 1)

-- Integers keep their low bits; floats with an integral value and numeric strings are integers.
eq(probe.integers(-1, -1, -1), {-1, 4294967295, 255})
eq(probe.integers(2 ^ 32 + 5, "7", 256.0), {5, 7, 0})
raises(t.bad_argument("number", 1, "int"), probe.integers, 1.5, 1, 1)
raises(t.bad_argument("number", 2, "unsigned int"), probe.integers, 1, 2 ^ 70, 1)
raises(t.bad_argument("string", 3, "unsigned char"), probe.integers, 1, 1, "1.5")

-- Optional arguments: nil and absence are the same, all behind the first may be missing as far as the count goes.
local optional = "class zeph::binding::Nullable<%s>"
eq({probe.optionals(1), probe.optionals(1, nil), probe.optionals(1, 2), probe.optionals(1, nil, false, place)},
  {1.0, 1.0, 21.0, 2002.0})
eq(probe.optionals(1, 0, true, nil), 1001.0)
raises(t.bad_count(0, "[1-4]"), probe.optionals)
raises(t.bad_count(5, "[1-4]"), probe.optionals, 1, 2, true, place, 5)
raises(t.bad_argument("number", 2, optional:format("int")), probe.optionals, 1, 1.5)
raises(t.bad_argument("number", 3, optional:format("bool")), probe.optionals, 1, nil, 1)
raises(t.bad_argument("table", 4, optional:format(t.needed.Vector3)), probe.optionals, 1, nil, nil, {})
raises(t.bad_argument("no value", 3, "float"), probe.nullable_first, place)
raises(t.bad_argument("no value", 3, "float"), probe.nullable_first, place, place)
eq({probe.nullable_first(place, nil, 5), probe.nullable_first(place, place, 5)}, {6.0, 7.0})

-- Arguments that a call changes, aliased too.
local a, b = V.new(1, 1, 1), V.new(2, 2, 2)
probe.swap_vectors(a, b) eq({a.x, b.x}, {2.0, 1.0})
probe.swap_vectors(a, a) eq(a.x, 2.0)

-- Standard entries by hand, on anything, twice.
local values = {nil, 1, "x", {}, print, a, P, io.stdout, coroutine.create(print), setmetatable({}, P)}
for i = 1, 10 do
  eq({count(P.__gc(values[i])), count(P.__clear(values[i]))}, {0, 0})
  for _, entry in ipairs {"mro", "type", "getProperties", "__tostring"} do
    pcall(P[entry], values[i])
  end
end
ok(io.stdout:write("") and V.new().is_zero)
raises("invalid number 'self', script class needed.", P.type, 1)
raises("invalid no value 'self', script class needed.", P.mro)
raises("invalid table 'self', script class needed.", P.__tostring, {})
for _, finish in ipairs {"__gc", "__clear"} do
  local gone = P.new(1)
  gone[finish](gone) gone[finish](gone)
  raises(t.bad_object("userdata", pointer), P.set, gone, 1)
  raises(t.bad_object("userdata", pointer), function() return gone.number end)
  raises(t.bad_object("userdata", class), function() return gone.double end)
  raises(t.bad_argument("userdata", 2, native), function() return p + gone end)
  raises("invalid userdata 'self', script class needed.", gone.type, gone)
  raises(t.bad_overload, P.new, gone)
  eq(tostring(gone), "(removed object)")
end

-- Whatever happens to metatables, only a userdata of the class with its object counts.
raises(t.bad_object("Probe", pointer), P.set, setmetatable({}, P), 1)
if debug then
  local other = debug.setmetatable(P.new(1), V)
  raises(t.bad_argument("userdata", 1, t.needed.Vector3), V.set, other, 1, 2, 3)
  raises(t.bad_object("userdata", pointer), P.set, other, 1)
  debug.setmetatable(other, P)
  eq(other.number, 1.0)
  local file = io.tmpfile()
  local file_class = getmetatable(file)
  debug.setmetatable(file, P)
  raises(t.bad_object("userdata", pointer), P.set, file, 1)
  P.__gc(file)
  debug.setmetatable(file, file_class)
  ok(file:close())
end

-- Class tables are open: methods can be replaced and added, the standard road still works.
function P:twice() return self.number * 2 end
eq(P.new(4):twice(), 8.0)
local set = P.set
P.set = function(self, n) set(self, n + 1) end
p:set(1) eq(p.number, 2.0)
P.set = set
local tostring_entry = P.__tostring
P.__tostring = nil
ok(tostring(p):find("^[%w]+: ") ~= nil)
P.__tostring = tostring_entry

-- Errors have the position of the script.
local _, message = pcall(function() return V.new() + 1 end)
ok(message:find("frame_test.lua:", 1, true))
_, message = pcall(function() p.number = {} end)
ok(message:find("frame_test.lua:", 1, true))

-- A finalizer that ends an object in the middle of a call that still holds it.
for _ = 1, 200 do
  local victim = P.new(1)
  setmetatable({}, {__gc = function() victim:__gc() end})
  pcall(victim.name, victim, 12345.678)
  collectgarbage("step")
end

t.done()
