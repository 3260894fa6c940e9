-- What CONTRIBUTING.md adds: a function and a class.
local math3d = require "additions"
local t = require "harness"
local Vector3, Interval = math3d.Vector3, math3d.Interval
assert(math3d == require "math3d")

-- [function-test]
t.calls(math3d, {
  {"vector3_midpoint", {Vector3.new(1, 2, 3), Vector3.new(3, 2, -3)}, {x = 2, y = 2, z = 0}},
  {"vector3_midpoint", {Vector3.new(3e38), Vector3.new(3e38)}, {x = math.huge, y = math.huge, z = math.huge}},
})
t.raises(t.bad_count(1, "2"), math3d.vector3_midpoint, Vector3.new())
t.raises(t.bad_argument("number", 2, t.needed.Vector3), math3d.vector3_midpoint, Vector3.new(), 1)
-- [end]

-- [class-test]
t.needed.Interval = "struct zeph::math3d::Interval"
local interval = Interval.new(2, 5)
t.eq(t.fields(interval), "__dummy_type high low")
t.eq(tostring(interval), "Interval(2.000000, 5.000000)")
t.ok(Interval.new() == Interval.new(0, 0) and Interval.new(interval) == interval and interval ~= Interval.new(2, 6))
t.eq({interval:contains(2), interval:contains(5), interval:contains(5.5), interval:contains(0 / 0)},
  {true, true, false, false})
t.eq(interval:hull(Interval.new(-1, 3)), {low = -1, high = 5})
interval.size = 1
t.eq({interval.low, interval.high, interval.size}, {2, 3, 1})
interval:set(7, 6)
t.eq({interval.size, interval:contains(6.5)}, {-1, false})

t.fits_none(Interval.new, {{1}, {1, {}}, {1, 2, 3}})
t.orders(Interval, t.needed.Interval, interval, {contains = "1", hull = "1"}, {set = "3"})
t.raises(t.bad_value("table", "float"), function() interval.size = {} end)
t.raises(t.bad_self("number", "Interval"), Interval.__index, 1, "size")
-- [end]

t.done()
