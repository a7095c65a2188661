// What the bodies of formulas find beside their arguments.
#pragma once

struct lua_State;

namespace korcke {

/// Pushes a table with the functions that a body may call: assert, error, ipairs, select, tonumber, tostring, type, and
/// `math` without its random numbers. None of them reaches a file, a process, the network, a clock or another formula,
/// catches an error, compiles a text, or gives an order or an address that differs from run to run. `math` can be read
/// and not changed. May raise an error in the state for want of memory.
void PushLibrary(lua_State* state);

}  // namespace korcke
