-- What luacheck makes sure of in the scripts: `tools/lint`.
std = "lua53" -- scripts run in 5.3 and in 5.4
read_globals = {"math3d"}
max_line_length = 120
exclude_files = {"build"}

-- Declarations for editors: functions without bodies.
files["lua/library"] = {ignore = {".*"}, max_line_length = false}

-- The scripts of native hosts: they see what the host registers, and define what it calls.
files["examples/host/host.lua"] = {read_globals = {"host", "spawn"}, globals = {"on_frame", "describe"}}
files["examples/embedding/values.lua"] = {read_globals = {"recoil", "teleport"}, globals = {"aim"}}
files["examples/embedding/objects.lua"] = {
  read_globals = {"packed", "remember"},
  globals = {"choose_table", "choose_userdata", "forget", "on_report"},
}

files["tests/consumer/script.lua"] = {globals = {"matrix", "mirrored", "position"}}

files["tests"] = {
  read_globals = {"probe"},
  globals = {"math3d.Matrix", "probe.Probe"}, -- some tests replace entries of classes
  ignore = {"581"}, -- `not (a == b)` asks __eq for what `a ~= b` would
  max_line_length = 160, -- tables of cases keep a case a line
}
