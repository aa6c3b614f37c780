-- The programs of ScriptBench.cpp in Lua; prints the median of five runs of each in milliseconds.

local function additions()
  local n = 0
  for _ = 1, 1000000 do
    n = n + 1
  end
  return n
end

-- Texts never change here, so pieces are gathered in a table.
local function texts()
  local pieces = {}
  for _ = 1, 100000 do
    pieces[#pieces + 1] = "piece"
  end
  return #table.concat(pieces)
end

local function lists()
  local list = {}
  for i = 1, 100000 do
    list[#list + 1] = i
  end
  local total = 0
  for _, x in ipairs(list) do
    total = total + x
  end
  return total
end

local function fib(n)
  if n < 2 then
    return n
  end
  return fib(n - 1) + fib(n - 2)
end

local function measure(name, program, expected)
  local times = {}
  for run = 1, 5 do
    local start = os.clock()
    local result = program()
    times[run] = (os.clock() - start) * 1000
    assert(result == expected)
  end
  table.sort(times)
  print(name, times[3])
end

measure("additions", additions, 1000000)
measure("texts", texts, 500000)
measure("lists", lists, 5000050000)
measure("fib", function() return fib(25) end, 75025)
