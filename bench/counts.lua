-- Reads what callgrind wrote for count.lua: a function (side, call) that gives the instructions of a call without the
-- loop around it. Of several files, each from a process of its own, the mean: the seed of Lua's hashes changes the
-- length of look-ups from process to process.
return function(files, n)
  local sums = {}
  for _, file in ipairs(files) do
    local name
    for line in io.lines(file) do
      name = line:match("^desc: Trigger: Client Request: (.-)%s*$") or name
      local total = name and line:match("^summary: (%d+)")
      if total then
        sums[name] = (sums[name] or 0) + tonumber(total) / n / #files
        name = nil
      end
    end
  end
  local loops = sums["loop"]
  return function(side, call)
    local sum = sums[call == "" and side or side .. " " .. call]
    return sum and sum - loops
  end
end
