#include "scripting/lua_prelude.h"

namespace marvolin {

namespace {

constexpr std::string_view kPrelude = R"(
local G, native = ...
local error, next, select, tostring, type = G.error, G.next, G.select, G.tostring, G.type
local find, rep, concat, unpack, rawpairs = native.find, G.string.rep, native.concat, native.unpack, G.pairs
local sub, floor = G.string.sub, G.math.floor
local getmetatable, setmetatable, rawget = G.getmetatable, G.setmetatable, G.rawget

local function fail(name, n, wanted, got)
    error("bad argument #" .. n .. " to '" .. name .. "': " .. wanted .. " expected, got " .. type(got), 3)
end
local function list(name, t)
    if type(t) ~= "table" then fail(name, 1, "table", t) end
    return t
end
local function text(name, n, s)
    if type(s) == "number" then return tostring(s) end
    if type(s) ~= "string" then fail(name, n, "string", s) end
    return s
end
local function whole(name, n, i)
    if type(i) ~= "number" or floor(i) ~= i then fail(name, n, "whole number", i) end
    return i
end

-- An object that acts at the end of its life would do so at any time, and unseen.
function G.setmetatable(t, meta)
    if type(meta) == "table" and rawget(meta, "__gc") ~= nil then
        error("a script has no use for __gc", 2)
    end
    -- Which entries with weak keys are alive can take the square of their number to find out, in one go.
    local mode = type(meta) == "table" and rawget(meta, "__mode")
    if type(mode) == "string" and find(mode, "k", 1, true) then
        error("a script has no use for weak keys", 2)
    end
    if type(t) ~= "table" then fail("setmetatable", 1, "table", t) end
    if meta ~= nil and type(meta) ~= "table" then fail("setmetatable", 2, "nil or table", meta) end
    return setmetatable(t, meta)
end

-- The handler is called once the error has ended its call, where it is subject to the time like all else.
local pcall = G.pcall
local function handled(handler, done, ...)
    if done then return true, ... end
    return false, select(2, pcall(handler, ...))
end
function G.xpcall(f, handler, ...)
    if type(handler) ~= "function" then fail("xpcall", 2, "function", handler) end
    return handled(handler, pcall(f, ...))
end

-- A coroutine that has failed is left as it is: what it has to close would be closed with no limit of time.
local create, resume = G.coroutine.create, G.coroutine.resume
local function resumed(done, ...)
    if done then return ... end
    error((...), 0)
end
function G.coroutine.wrap(f)
    local thread = create(f)
    return function(...) return resumed(resume(thread, ...)) end
end

function G.pairs(t)
    if type(t) ~= "table" then fail("pairs", 1, "table", t) end
    return next, t, nil
end

local table = {}
G.table = table
function table.pack(...) return { n = select("#", ...), ... } end
function table.unpack(t, i, j)
    list("unpack", t)
    return unpack(t, whole("unpack", 2, i or 1), whole("unpack", 3, j or #t))
end
function table.concat(t, separator, i, j)
    list("concat", t)
    return concat(t, text("concat", 2, separator or ""), whole("concat", 3, i or 1), whole("concat", 4, j or #t))
end
function table.insert(t, ...)
    local size = #list("insert", t)
    local count, place, value = select("#", ...), ...
    if count == 1 then
        t[size + 1] = place
        return
    end
    if count ~= 2 then error("wrong number of arguments to 'insert'", 2) end
    whole("insert", 2, place)
    if place < 1 or place > size + 1 then error("bad argument #2 to 'insert': position out of bounds", 2) end
    for i = size, place, -1 do t[i + 1] = t[i] end
    t[place] = value
end
function table.remove(t, place)
    local size = #list("remove", t)
    if place == nil then
        place = size
    elseif size + 1 ~= whole("remove", 2, place) and (place < 1 or place > size + 1) and
        not (size == 0 and place == 0) then
        error("bad argument #2 to 'remove': position out of bounds", 2)
    end
    local value = t[place]
    for i = place, size - 1 do t[i] = t[i + 1] end
    if place <= size or size == 0 then t[size > place and size or place] = nil end
    return value
end
function table.move(a, from, to, at, b)
    list("move", a)
    b = b == nil and a or list("move", b)
    whole("move", 2, from)
    whole("move", 3, to)
    whole("move", 4, at)
    if at > to or at <= from or a ~= b then
        for i = from, to do b[at + i - from] = a[i] end
    else
        for i = to, from, -1 do b[at + i - from] = a[i] end
    end
    return b
end

-- Merges runs that double in length, so that a wrong order function does no harm.
function table.sort(t, before)
    local size = #list("sort", t)
    if before == nil then
        before = function(a, b) return a < b end
    elseif type(before) ~= "function" then
        fail("sort", 2, "function", before)
    end
    local from, to = {}, {}
    for i = 1, size do from[i] = t[i] end
    local run = 1
    while run < size do
        for low = 1, size, 2 * run do
            local left, right = low, low + run
            local leftEnd, rightEnd = right, low + 2 * run
            if leftEnd > size + 1 then leftEnd = size + 1 end
            if rightEnd > size + 1 then rightEnd = size + 1 end
            for i = low, rightEnd - 1 do
                if left < leftEnd and (right >= rightEnd or not before(from[right], from[left])) then
                    to[i] = from[left]
                    left = left + 1
                else
                    to[i] = from[right]
                    right = right + 1
                end
            end
        end
        from, to = to, from
        run = 2 * run
    end
    for i = 1, size do t[i] = from[i] end
end

local string = G.string
function string.find(s, pattern, from, plain)
    return find(text("find", 1, s), text("find", 2, pattern), from, plain)
end
local pack = table.pack
-- The captures of what find has found, or the whole match when it captured nothing.
local function captures(s, found)
    if found.n > 2 then return unpack(found, 3, found.n) end
    return sub(s, found[1], found[2])
end
function string.match(s, pattern, from)
    s = text("match", 1, s)
    local found = pack(find(s, text("match", 2, pattern), from))
    if not found[1] then return nil end
    return captures(s, found)
end
function string.gmatch(s, pattern, from)
    s, pattern = text("gmatch", 1, s), text("gmatch", 2, pattern)
    local at, last = from or 1, nil
    if at < 0 then at = #s + at + 1 end
    if at < 1 then at = 1 end
    return function()
        while at <= #s + 1 do
            local found = pack(find(s, pattern, at, false, true))
            if not found[1] then break end
            local behind = found[2] + 1
            if behind ~= last then
                at, last = behind, behind
                return captures(s, found)
            end
            at = at + 1
        end
        at = #s + 2
        return nil
    end
end

local function capture(s, found, n)
    if n == 0 or (n == 1 and found.n == 2) then return sub(s, found[1], found[2]) end
    if n > found.n - 2 then error("invalid capture index %" .. n .. " in replacement string", 4) end
    return found[n + 2]
end
local function expand(s, found, replacement)
    if not find(replacement, "%", 1, true) then return replacement end
    local pieces, n, at = {}, 0, 1
    while true do
        local mark = find(replacement, "%", at, true)
        if not mark then break end
        local c = sub(replacement, mark + 1, mark + 1)
        local piece
        if c == "%" then
            piece = "%"
        elseif find(c, "^%d$") then
            piece = capture(s, found, c + 0)
        else
            error("invalid use of '%' in replacement string", 3)
        end
        pieces[n + 1], pieces[n + 2] = sub(replacement, at, mark - 1), piece
        n, at = n + 2, mark + 2
    end
    pieces[n + 1] = sub(replacement, at)
    return concat(pieces, "", 1, n + 1)
end
local function replaced(s, found, replacement, kind)
    local value
    if kind == "string" then
        value = expand(s, found, replacement)
    elseif kind == "table" then
        value = replacement[capture(s, found, 1)]
    else
        value = replacement(captures(s, found))
    end
    if not value then return sub(s, found[1], found[2]) end
    if type(value) ~= "string" and type(value) ~= "number" then
        error("invalid replacement value: a " .. type(value), 3)
    end
    return value
end
function string.gsub(s, pattern, replacement, most)
    s, pattern = text("gsub", 1, s), text("gsub", 2, pattern)
    if type(replacement) == "number" then replacement = tostring(replacement) end
    local kind = type(replacement)
    if kind ~= "string" and kind ~= "table" and kind ~= "function" then
        fail("gsub", 3, "string/function/table", replacement)
    end
    most = most or #s + 1
    local pieces, n, count, at, last = {}, 0, 0, 1, nil
    local tied = sub(pattern, 1, 1) == "^"
    while count < most and at <= #s + 1 do
        local found = pack(find(s, pattern, at))
        if not found[1] then break end
        local behind = found[2] + 1
        if behind == last then
            pieces[n + 1] = sub(s, at, at)
            n, at = n + 1, at + 1
        else
            pieces[n + 1], pieces[n + 2] = sub(s, at, found[1] - 1), replaced(s, found, replacement, kind)
            n, count, at, last = n + 2, count + 1, behind, behind
        end
        if tied then break end
    end
    pieces[n + 1] = sub(s, at)
    return concat(pieces, "", 1, n + 1), count
end
)";

}  // namespace

std::string_view LuaPrelude() { return kPrelude; }

}  // namespace marvolin
