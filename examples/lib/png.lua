--- Pictures as PNG files, 24 bits a pixel: rows are filtered, and then packed by deflate with one block of matches and
--- of Huffman codes made for it. The same pixels give the same bytes on every machine.

local png = {}

-- CRC-32 of what stands in a chunk.
local crc_table = {}
for byte = 0, 255 do
  local crc = byte
  for _ = 1, 8 do
    crc = crc & 1 == 1 and crc >> 1 ~ 0xEDB88320 or crc >> 1
  end
  crc_table[byte] = crc
end

local function crc32(text)
  local crc = 0xFFFFFFFF
  for i = 1, #text do
    crc = crc >> 8 ~ crc_table[(crc ~ text:byte(i)) & 255]
  end
  return crc ~ 0xFFFFFFFF
end

-- Adler-32 of what was packed.
local function adler32(bytes)
  local a, b = 1, 0
  for i = 1, #bytes do
    a = (a + bytes[i]) % 65521
    b = (b + a) % 65521
  end
  return b << 16 | a
end

-- The pixels with each row as differences, by the filter of the five that leaves the smallest ones; its number goes
-- before the row.
local function filter(width, rows)
  local size = 3 * width
  local all, above = {}, {}
  for i = 1, size do
    above[i] = 0
  end
  for _, row in ipairs(rows) do
    local best, best_cost
    for kind = 0, 4 do
      local bytes, cost = {kind}, 0
      for i = 1, size do
        local left, up, corner = row[i - 3] or 0, above[i], above[i - 3] or 0
        local guess = 0
        if kind == 1 then
          guess = left
        elseif kind == 2 then
          guess = up
        elseif kind == 3 then
          guess = (left + up) >> 1
        elseif kind == 4 then
          -- The neighbour that is nearest to left + up - corner.
          local by_left, by_up = math.abs(up - corner), math.abs(left - corner)
          local by_corner = math.abs(left + up - 2 * corner)
          guess = by_left <= by_up and by_left <= by_corner and left or by_up <= by_corner and up or corner
        end
        local difference = (row[i] - guess) & 255
        bytes[i + 1] = difference
        cost = cost + (difference < 128 and difference or 256 - difference)
      end
      if not best or cost < best_cost then
        best, best_cost = bytes, cost
      end
    end
    table.move(best, 1, size + 1, #all + 1, all)
    above = row
  end
  return all
end

-- Symbols of lengths 3 to 258 and of distances 1 to 32768, each as {first = smallest value, bits = extra bits}.
local length_symbols, distance_symbols = {}, {}
do
  local first = 3
  for symbol = 257, 284 do
    local bits = math.max(0, (symbol - 257) // 4 - 1)
    length_symbols[symbol], first = {first = first, bits = bits}, first + (1 << bits)
  end
  length_symbols[285] = {first = 258, bits = 0}
  first = 1
  for symbol = 0, 29 do
    local bits = math.max(0, symbol // 2 - 1)
    distance_symbols[symbol], first = {first = first, bits = bits}, first + (1 << bits)
  end
end

local symbol_of_length, symbol_of_distance = {}, {}
for symbol = 257, 285 do
  local range = length_symbols[symbol]
  for value = range.first, math.min(range.first + (1 << range.bits) - 1, 258) do
    symbol_of_length[value] = symbol
  end
end
for symbol = 0, 29 do
  local range = distance_symbols[symbol]
  for value = range.first, range.first + (1 << range.bits) - 1 do
    symbol_of_distance[value] = symbol
  end
end

-- Literals as they are, and matches as 1000 + length, distance.
local function find_matches(bytes)
  local tokens, latest, earlier = {}, {}, {}
  local count, at = #bytes, 1
  while at <= count do
    local length, distance = 2, 0
    local key = at + 2 <= count and bytes[at] << 16 | bytes[at + 1] << 8 | bytes[at + 2]
    local candidate, tries = key and latest[key], 32
    while candidate and tries > 0 and at - candidate <= 32768 and length < 258 do
      if bytes[candidate + length] == bytes[at + length] then
        local same = 3
        while same < 258 and at + same <= count and bytes[candidate + same] == bytes[at + same] do
          same = same + 1
        end
        if same > length then
          length, distance = same, at - candidate
        end
      end
      candidate, tries = earlier[candidate], tries - 1
    end
    if distance == 0 then
      tokens[#tokens + 1], length = bytes[at], 1
    else
      tokens[#tokens + 1], tokens[#tokens + 2] = 1000 + length, distance
    end
    for i = at, math.min(at + length - 1, count - 2) do
      key = bytes[i] << 16 | bytes[i + 1] << 8 | bytes[i + 2]
      earlier[i], latest[key] = latest[key], i
    end
    at = at + length
  end
  return tokens
end

-- Huffman's code lengths for the symbols 0 to `last` with these counts; the counts are flattened until none is longer
-- than `limit`.
local function code_lengths(counts, last, limit)
  local lengths, longest = {}, 0
  local trees = {}
  for symbol = 0, last do
    lengths[symbol] = 0
    if counts[symbol] then
      trees[#trees + 1] = {weight = counts[symbol], symbol}
    end
  end
  if #trees == 1 then
    lengths[trees[1][1]] = 1
  end
  while #trees > 1 do
    table.sort(trees, function(a, b) return a.weight > b.weight or a.weight == b.weight and a[1] > b[1] end)
    local tree, other = table.remove(trees), table.remove(trees)
    table.move(other, 1, #other, #tree + 1, tree)
    tree.weight = tree.weight + other.weight
    for _, symbol in ipairs(tree) do
      lengths[symbol] = lengths[symbol] + 1
      longest = math.max(longest, lengths[symbol])
    end
    trees[#trees + 1] = tree
  end
  if longest <= limit then
    return lengths
  end
  local flatter = {}
  for symbol, count in pairs(counts) do
    flatter[symbol] = count // 2 + 1
  end
  return code_lengths(flatter, last, limit)
end

-- The codes that follow from the lengths, with the first bit lowest.
local function codes_of(lengths, last)
  local codes, code = {}, 0
  for length = 1, 15 do
    for symbol = 0, last do
      if lengths[symbol] == length then
        local reversed = 0
        for bit = 0, length - 1 do
          reversed = reversed << 1 | code >> bit & 1
        end
        codes[symbol], code = reversed, code + 1
      end
    end
    code = code << 1
  end
  return codes
end

local function deflate(bytes)
  local tokens = find_matches(bytes)
  tokens[#tokens + 1] = 256 -- the end of the block

  local counts, distance_counts = {}, {}
  local i = 1
  while i <= #tokens do
    local symbol = tokens[i]
    if symbol > 1000 then
      symbol, i = symbol_of_length[symbol - 1000], i + 1
      local distance_symbol = symbol_of_distance[tokens[i]]
      distance_counts[distance_symbol] = (distance_counts[distance_symbol] or 0) + 1
    end
    counts[symbol], i = (counts[symbol] or 0) + 1, i + 1
  end
  local lengths, distance_lengths = code_lengths(counts, 285, 15), code_lengths(distance_counts, 29, 15)
  local codes, distance_codes = codes_of(lengths, 285), codes_of(distance_lengths, 29)

  local out, pending, pending_bits = {}, 0, 0
  local function put(value, bits)
    pending, pending_bits = pending | value << pending_bits, pending_bits + bits
    if pending_bits >= 32 then
      out[#out + 1] = ("<I4"):pack(pending & 0xFFFFFFFF)
      pending, pending_bits = pending >> 32, pending_bits - 32
    end
  end

  -- The only block, with codes of its own: their lengths come first, which have codes too.
  put(1, 1) put(2, 2) put(285 - 256, 5) put(29, 5) put(19 - 4, 4)
  local all_lengths, length_counts = table.move(lengths, 0, 285, 1, {}), {}
  table.move(distance_lengths, 0, 29, #all_lengths + 1, all_lengths)
  for _, length in ipairs(all_lengths) do
    length_counts[length] = (length_counts[length] or 0) + 1
  end
  local length_lengths = code_lengths(length_counts, 18, 7)
  local length_codes = codes_of(length_lengths, 18)
  for _, length in ipairs {16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15} do
    put(length_lengths[length], 3)
  end
  for _, length in ipairs(all_lengths) do
    put(length_codes[length], length_lengths[length])
  end

  i = 1
  while i <= #tokens do
    local symbol = tokens[i]
    if symbol > 1000 then
      local length, distance = symbol - 1000, tokens[i + 1]
      symbol, i = symbol_of_length[length], i + 1
      local distance_symbol = symbol_of_distance[distance]
      local range, distance_range = length_symbols[symbol], distance_symbols[distance_symbol]
      put(codes[symbol], lengths[symbol])
      put(length - range.first, range.bits)
      put(distance_codes[distance_symbol], distance_lengths[distance_symbol])
      put(distance - distance_range.first, distance_range.bits)
    else
      put(codes[symbol], lengths[symbol])
    end
    i = i + 1
  end
  out[#out + 1] = ("<I4"):pack(pending):sub(1, (pending_bits + 7) // 8)
  return table.concat(out)
end

--- The file for rows from the top, each a list of 3 * width integers from 0 to 255: red, green, blue, red ...
function png.encode(width, rows)
  local function chunk(name, data)
    return (">I4"):pack(#data) .. name .. data .. (">I4"):pack(crc32(name .. data))
  end
  local bytes = filter(width, rows)
  return "\x89PNG\r\n\x1a\n"
    .. chunk("IHDR", (">I4I4BBBBB"):pack(width, #rows, 8, 2, 0, 0, 0))
    .. chunk("IDAT", "\x78\xda" .. deflate(bytes) .. (">I4"):pack(adler32(bytes)))
    .. chunk("IEND", "")
end

return png
