-- Reads what png.lua writes, by a reader that shares nothing with it, and compares the pixels.

package.path = (arg[0]:match("^.*/") or "") .. "?.lua;" .. package.path
local png = require "png"

-- The next symbol of a code whose lengths are given: bit by bit, as canonical codes are counted.
local function decoder(lengths, last)
  local symbols = {}
  local code = 0
  for length = 1, 15 do
    for symbol = 0, last do
      if lengths[symbol] == length then
        symbols[1 << length | code], code = symbol, code + 1
      end
    end
    assert(code <= 1 << length, "more codes than a length has")
    code = code << 1
  end
  return function(bits)
    local path = 1
    repeat
      path = path << 1 | bits(1)
      assert(path < 65536, "no such code")
    until symbols[path]
    return symbols[path]
  end
end

-- One block with codes of its own, which is all that png.lua makes.
local function inflate(data)
  local position = 0
  local function bits(count)
    local value = 0
    for i = 0, count - 1 do
      value = value | (data:byte((position >> 3) + 1) >> (position & 7) & 1) << i
      position = position + 1
    end
    return value
  end
  assert(bits(1) == 1 and bits(2) == 2)
  local literals, distances, sizes = bits(5) + 257, bits(5) + 1, bits(4) + 4
  local order = {16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15}
  local lengths = {}
  for i = 1, sizes do lengths[order[i]] = bits(3) end
  local next_length = decoder(lengths, 18)
  local literal_lengths, distance_lengths = {}, {}
  for i = 0, literals - 1 do literal_lengths[i] = next_length(bits) end
  for i = 0, distances - 1 do distance_lengths[i] = next_length(bits) end
  local next_literal, next_distance = decoder(literal_lengths, 285), decoder(distance_lengths, 29)
  local out = {}
  while true do
    local symbol = next_literal(bits)
    if symbol < 256 then
      out[#out + 1] = symbol
    elseif symbol == 256 then
      assert((position + 7) >> 3 == #data, "the block ends with the data")
      return out
    else
      local extra = symbol < 265 and 0 or symbol == 285 and 0 or (symbol - 261) >> 2
      local length = symbol < 265 and symbol - 254 or symbol == 285 and 258
        or (4 + (symbol - 265) % 4 << extra) + 3 + bits(extra)
      local code = next_distance(bits)
      extra = code < 4 and 0 or (code >> 1) - 1
      local distance = code < 4 and code + 1 or (2 + code % 2 << extra) + 1 + bits(extra)
      assert(distance <= #out, "a match before the beginning")
      for _ = 1, length do out[#out + 1] = out[#out + 1 - distance] end
    end
  end
end

local function check(name, width, height, value)
  local rows = {}
  for y = 1, height do
    rows[y] = {}
    for i = 1, 3 * width do rows[y][i] = value(i, y) & 255 end
  end
  local file = png.encode(width, rows)
  local size = (">I4"):unpack(file, 34)
  assert(file:sub(1, 8) == "\x89PNG\r\n\x1a\n" and file:sub(13, 16) == "IHDR" and file:sub(38, 41) == "IDAT", name)
  assert((">I4I4"):unpack(file, 17) == width and #file == 41 + size + 4 + 12, name)
  -- The checksum of an empty end is known: it vouches for the others' table.
  assert(file:sub(-12) == "\0\0\0\0IEND\xaeB`\x82", name)

  local bytes = inflate(file:sub(44, 41 + size - 4))
  assert(#bytes == height * (3 * width + 1), name)
  local a, b = 1, 0
  for _, byte in ipairs(bytes) do
    a, b = (a + byte) % 65521, (b + a + byte) % 65521
  end
  assert((">I4"):unpack(file, 42 + size - 4) == b * 65536 + a, name .. ": checksum")
  local above = {}
  for y = 1, height do
    local start = (y - 1) * (3 * width + 1) + 1
    local row, kind = {}, bytes[start]
    for i = 1, 3 * width do
      local left, up, corner = row[i - 3] or 0, above[i] or 0, above[i - 3] or 0
      local nearest, guess = math.huge, 0
      for _, candidate in ipairs {left, up, corner} do
        local off = math.abs(left + up - corner - candidate)
        if off < nearest then nearest, guess = off, candidate end
      end
      guess = ({[0] = 0, left, up, (left + up) // 2, guess})[kind]
      row[i] = bytes[start + i] + guess & 255
      assert(row[i] == rows[y][i], name)
    end
    above = row
  end
  return #file, file
end

local state = 1
local function noise()
  state = state * 1103515245 + 12345 & 0x7FFFFFFF
  return state >> 16
end
check("one pixel", 1, 1, function() return 200 end)
check("noise", 70, 50, noise)
check("few of many", 90, 60, function() return noise() % 50 == 0 and noise() or 0 end)
local tall = check("a slope, with matches from far back", 200, 150, function(i, y) return i // 5 + y * y // 40 end)
assert(tall < 1500, "packed")
local flat = check("one colour", 300, 100, function() return 17 end)
assert(flat < 500, "packed")
-- What comes again behind more than 32768 bytes is too far for a match.
local once = {}
check("too far", 400, 32, function(i, y)
  local key = y % 28 * 1200 + i
  once[key] = once[key] or noise()
  return once[key]
end)
-- Values of very different counts have codes of very different lengths.
check("long codes", 1200, 10, function()
  local value = 0
  while value < 40 and noise() % 8 < 5 do value = value + 1 end
  return value * 6
end)
print("pictures read back")
