// What the bodies of formulas find beside their arguments.
#include "platform/knowledge/KORCkeSandboxLibrary.h"

#include <array>
#include <lua.hpp>
#include <span>

namespace {

constexpr std::array BaseFunctions{"assert", "error", "ipairs", "select", "tonumber", "type"};

constexpr std::array MathNames{"abs",   "acos", "asin", "atan", "ceil",       "cos",        "deg",  "exp",
                               "floor", "fmod", "huge", "log",  "maxinteger", "mininteger", "modf", "pi",
                               "rad",   "sin",  "sqrt", "tan",  "tointeger",  "type",       "ult"};

// A text of what has one; the library's own would show the address of a table.
int ToString(lua_State* state) {
  luaL_checkany(state, 1);
  const int type = lua_type(state, 1);
  luaL_argcheck(state, type == LUA_TNIL || type == LUA_TBOOLEAN || type == LUA_TNUMBER || type == LUA_TSTRING, 1,
                "number, text, boolean or nil expected");
  luaL_tolstring(state, 1, nullptr);
  return 1;
}

// The greatest or the least of numbers. The library's own compares texts as well, which takes it any time.
int Extreme(lua_State* state, bool is_greatest) {
  const int count = lua_gettop(state);
  luaL_checkany(state, 1);
  int found = 1;
  for (int index = 1; index <= count; ++index) {
    luaL_checktype(state, index, LUA_TNUMBER);
    const bool is_less = lua_compare(state, index, found, LUA_OPLT) != 0;
    const bool is_greater = lua_compare(state, found, index, LUA_OPLT) != 0;
    if (is_greatest ? is_greater : is_less) found = index;
  }
  lua_pushvalue(state, found);
  return 1;
}

int Greatest(lua_State* state) {
  return Extreme(state, true);
}

int Least(lua_State* state) {
  return Extreme(state, false);
}

int RefuseChange(lua_State* state) {
  return luaL_error(state, "math can't be changed");
}

// Copies the named fields of the table at `from` to the table on the top.
void CopyFields(lua_State* state, int from, std::span<const char* const> names) {
  for (const char* const name : names) {
    lua_getfield(state, from, name);
    lua_setfield(state, -2, name);
  }
}

// Pushes an empty table that shows the fields of `math` and takes no others.
void PushMath(lua_State* state) {
  luaL_requiref(state, LUA_MATHLIBNAME, luaopen_math, 0);
  const int whole = lua_gettop(state);
  lua_newtable(state);  // what is seen
  lua_newtable(state);  // its metatable
  lua_newtable(state);  // what it shows
  CopyFields(state, whole, MathNames);
  lua_pushcfunction(state, Greatest);
  lua_setfield(state, -2, "max");
  lua_pushcfunction(state, Least);
  lua_setfield(state, -2, "min");
  lua_setfield(state, -2, "__index");
  lua_pushcfunction(state, RefuseChange);
  lua_setfield(state, -2, "__newindex");
  lua_setmetatable(state, -2);
  lua_remove(state, whole);
}

// Leaves the state's own tables without what the library does not show.
void ForgetTheRest(lua_State* state) {
  lua_newtable(state);
  lua_rawseti(state, LUA_REGISTRYINDEX, LUA_RIDX_GLOBALS);
  lua_pushnil(state);
  lua_setfield(state, LUA_REGISTRYINDEX, LUA_LOADED_TABLE);
}

}  // namespace

void korcke::PushLibrary(lua_State* state) {
  luaL_requiref(state, LUA_GNAME, luaopen_base, 0);
  const int base = lua_gettop(state);
  lua_newtable(state);
  CopyFields(state, base, BaseFunctions);
  lua_pushcfunction(state, ToString);
  lua_setfield(state, -2, "tostring");
  PushMath(state);
  lua_setfield(state, -2, LUA_MATHLIBNAME);
  lua_remove(state, base);
  ForgetTheRest(state);
}
