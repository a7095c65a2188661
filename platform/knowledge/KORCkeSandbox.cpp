// The place where the bodies of formulas are compiled and run, and which they can't leave.
//
// The language's machine leaves a function by a long jump where an error occurs. So whatever may raise one runs in a
// protected call, in functions that hold no object with a destructor.
#include "platform/knowledge/KORCkeSandbox.h"

#include <locale.h>

#include <array>
#include <lua.hpp>
#include <new>

#include "platform/base/KORTruncation.h"
#include "platform/knowledge/KORCkeSandboxLibrary.h"

namespace {

using KORCke::ValueKind;

// The run is looked at after so many instructions each; few bodies get that far.
constexpr int InstructionsPerLook = 100;

// How the machine ends its message on calls and pairs of parentheses that lie too deep.
constexpr std::string_view MachineOnNesting = "C stack overflow";

// Garbage that may lie about between runs.
constexpr std::size_t MostGarbage = std::size_t{1} << 20;

// What the machine keeps with a text.
constexpr std::size_t HeadOfText = 32;

// What a run may take on top of garbage that lies about. One that needs more begins again without any, so that what it
// gets does not depend on what ran before.
constexpr std::size_t MostBytesBesideGarbage = std::size_t{256} << 10;

// What the sandbox keeps ahead of the bodies: the metatable that shows the library, and the table of the globals that
// the next run may make (nil until it is needed).
constexpr int LibraryReference = LUA_RIDX_LAST + 1;
constexpr int GlobalsReference = LUA_RIDX_LAST + 2;
constexpr int FirstBodyReference = LUA_RIDX_LAST + 3;

// The decimal character "." on this thread until the end of the scope.
class ScopedNumberLocale {
 public:
  ScopedNumberLocale() : _Before(uselocale(PlainLocale())) {}
  ~ScopedNumberLocale() { uselocale(_Before); }
  ScopedNumberLocale(const ScopedNumberLocale&) = delete;
  ScopedNumberLocale& operator=(const ScopedNumberLocale&) = delete;

 private:
  static locale_t PlainLocale() {
    static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
    return plain;
  }

  locale_t _Before;
};

KORCkeSandbox::Meter& MeterOf(lua_State* state) {
  return **static_cast<KORCkeSandbox::Meter**>(lua_getextraspace(state));
}

// Called after each InstructionsPerLook instructions. Once it has found too much it is called at every instruction.
void LookAtTheRun(lua_State* state, lua_Debug* /*event*/) {
  KORCkeSandbox::Meter& meter = MeterOf(state);
  meter.Instructions += lua_gethookcount(state);
  const bool too_many = meter.Instructions >= korcke::MostInstructions;
  if (!too_many && !meter.Clock.IsOver()) return;
  lua_sethook(state, LookAtTheRun, LUA_MASKCOUNT, 1);
  luaL_where(state, 0);
  if (too_many) {
    lua_pushfstring(state, "more than %d instructions", korcke::MostInstructions);
  } else {
    lua_pushfstring(state, "more than %d milliseconds of processor time", static_cast<int>(korcke::LongestRun.count()));
  }
  lua_concat(state, 2);
  lua_error(state);
}

// A text in pieces, as the compiler asks for it.
struct Pieces {
  std::array<std::string_view, 3> Texts;
  std::size_t Next = 0;
};

const char* ReadPiece(lua_State* /*state*/, void* data, std::size_t* size) {
  auto& pieces = *static_cast<Pieces*>(data);
  while (pieces.Next < pieces.Texts.size()) {
    const std::string_view piece = pieces.Texts[pieces.Next++];
    *size = piece.size();
    if (!piece.empty()) return piece.data();
  }
  *size = 0;
  return nullptr;
}

// Called where a body assigns a global that is not there.
int AddGlobal(lua_State* state) {
  MeterOf(state).HasNewGlobals = true;
  lua_rawset(state, 1);
  return 0;
}

// Protected: prepares a new state.
int Furnish(lua_State* state) {
  lua_newtable(state);
  korcke::PushLibrary(state);
  lua_setfield(state, -2, "__index");
  lua_pushcfunction(state, AddGlobal);
  lua_setfield(state, -2, "__newindex");
  lua_rawseti(state, LUA_REGISTRYINDEX, LibraryReference);
  return 0;
}

// Protected: calls the chunk that is the first argument, which gives the body as a function, and keeps that as the
// second argument tells. Returns the function.
int KeepBody(lua_State* state) {
  const auto reference = lua_tointeger(state, 2);
  lua_pushvalue(state, 1);
  lua_call(state, 0, 1);
  lua_pushvalue(state, -1);
  lua_rawseti(state, LUA_REGISTRYINDEX, reference);
  return 1;
}

struct Request {
  const KORCkeBody* Body;
  std::span<const KORCkeVariable> Variables;
};

void PushValue(lua_State* state, const KORCkeVariable& variable) {
  switch (variable.Kind) {
    case ValueKind::Integer:
      lua_pushinteger(state, variable.Integer);
      return;
    case ValueKind::Real:
      lua_pushnumber(state, variable.Real);
      return;
    case ValueKind::Text:
      lua_pushlstring(state, variable.Text.Bytes().data(), variable.Text.Bytes().size());
      return;
  }
}

void PushGlobals(lua_State* state) {
  if (lua_rawgeti(state, LUA_REGISTRYINDEX, GlobalsReference) == LUA_TTABLE) return;
  lua_pop(state, 1);
  lua_newtable(state);
  lua_rawgeti(state, LUA_REGISTRYINDEX, LibraryReference);
  lua_setmetatable(state, -2);
  lua_pushvalue(state, -1);
  lua_rawseti(state, LUA_REGISTRYINDEX, GlobalsReference);
}

// Protected: runs a body, and returns its value if it is an expression. The argument is the Request.
int RunBody(lua_State* state) {
  const auto& request = *static_cast<const Request*>(lua_touserdata(state, 1));
  const KORCkeBody& body = *request.Body;
  lua_rawgeti(state, LUA_REGISTRYINDEX, body.Reference);
  const int function = lua_gettop(state);
  for (std::size_t index = 0; index < request.Variables.size(); ++index) {
    if (body.Arguments[index] == 0) continue;
    PushValue(state, request.Variables[index]);
    lua_setupvalue(state, function, body.Arguments[index]);
  }
  if (body.Globals != 0) {
    PushGlobals(state);
    lua_setupvalue(state, function, body.Globals);
  }
  const int results = body.IsExpression ? 1 : 0;
  lua_call(state, 0, results);
  return results;
}

// Takes the value on the top of the stack as the variable's result; false if it is none.
bool TakeResult(lua_State* state, KORCkeVariable& variable) {
  if (variable.ResultKind == ValueKind::Text) {
    if (lua_type(state, -1) != LUA_TSTRING) return false;
    std::size_t size = 0;
    const char* const bytes = lua_tolstring(state, -1, &size);
    variable.Text = KORUnicodeString(std::string_view(bytes, size));
    return true;
  }
  if (lua_type(state, -1) != LUA_TNUMBER) return false;
  variable.Real = lua_tonumber(state, -1);
  if (variable.ResultKind == ValueKind::Real) return true;
  variable.Integer = kornumber::TruncateToInt32(variable.Real);
  return variable.Integer == variable.Real;
}

std::string NoResult(const KORCkeArgument& argument, ValueKind kind) {
  const std::string name(argument.Name.Bytes());
  switch (kind) {
    case ValueKind::Integer:
      return "the result for " + name + " is no whole number of 32 bits";
    case ValueKind::Real:
      return "the result for " + name + " is no number";
    case ValueKind::Text:
      break;
  }
  return "the result for " + name + " is no text";
}

// The head of the chunk that makes a body: the arguments as variables around it. It has no line end, so that the lines
// of messages are those of the body.
std::string DeclareArguments(const KORCkeFormula& formula) {
  std::string declaration;
  for (const KORCkeArgument& argument : formula.Arguments) {
    declaration += declaration.empty() ? "local " : ",";
    declaration += argument.Name.Bytes();
  }
  return declaration + " return function(...) ";
}

}  // namespace

KORCkeSandbox::KORCkeSandbox(std::size_t most_bytes_of_compilation)
    : _MostBytesOfCompilation(most_bytes_of_compilation), _NextReference(FirstBodyReference) {
  _Memory.SetLimits({korcke::MostBytesOfCompilation});
  _State = lua_newstate(KORCkeSandboxMemory::Allocate, &_Memory);
  if (_State == nullptr) throw std::bad_alloc();
  *static_cast<Meter**>(lua_getextraspace(_State)) = &_Meter;
  lua_gc(_State, LUA_GCSTOP);  // garbage is collected between runs, and where a run comes to the end of its memory
  lua_pushcfunction(_State, Furnish);
  if (lua_pcall(_State, 0, 0, 0) != LUA_OK) {
    lua_close(_State);
    throw std::bad_alloc();
  }
  CollectGarbage();
}

KORCkeSandbox::~KORCkeSandbox() {
  lua_close(_State);
}

KORCkeSandbox::Compilation KORCkeSandbox::Compile(const KORCkeFormula& formula, std::string_view body) {
  const ScopedNumberLocale locale;
  lua_settop(_State, 0);
  CollectGarbageBeyond(MostGarbage);
  const std::size_t before = _Memory.GetBytesInUse();
  _Memory.SetLimits({_BytesKept + _MostBytesOfCompilation});
  _Meter.Clock.Restart();

  Compilation compilation;
  const std::string declaration = DeclareArguments(formula);
  int status = LUA_ERRSYNTAX;
  if (formula.CountOutputs() == 1) {
    status = LoadExpression(declaration, body);
    compilation.Body.IsExpression = status == LUA_OK;
    if (status != LUA_OK) compilation.Problem = "as an expression: " + TakeMessage(status) + "; as statements: ";
  }
  if (status == LUA_ERRSYNTAX) status = LoadStatements(declaration, body);
  if (status == LUA_OK) {
    compilation.Body.Reference = _NextReference;
    lua_pushcfunction(_State, KeepBody);
    lua_insert(_State, -2);
    lua_pushinteger(_State, _NextReference);
    status = lua_pcall(_State, 2, 1, 0);
  }
  if (status == LUA_OK) {
    ++_NextReference;
    FindArguments(formula, compilation.Body);
    compilation.Problem.clear();
    if (_Memory.GetBytesInUse() > before) _BytesKept += _Memory.GetBytesInUse() - before;
  } else {
    compilation.Problem += TakeMessage(status);
  }
  lua_settop(_State, 0);
  return compilation;
}

// The functions that load push the chunk, or a message, and return the state's status.

int KORCkeSandbox::Load(std::string_view ahead, std::string_view body, std::string_view behind) {
  Pieces pieces{{ahead, body, behind}};
  return lua_load(_State, ReadPiece, &pieces, "=body", "t");
}

// A body that is an expression by itself is one within parentheses, too, where it can't be a list of them.
int KORCkeSandbox::LoadExpression(const std::string& declaration, std::string_view body) {
  const int status = Load("return ", body, "");
  if (status != LUA_OK) return status;
  lua_pop(_State, 1);
  // On the same line, whose number messages tell, unless a comment would take it.
  const bool may_end_in_comment = body.find("--") != std::string_view::npos;
  return Load(declaration + "return (", body, may_end_in_comment ? "\n) end" : ") end");
}

// A body that is a block by itself is one within a function, too, and does not end ahead of the function's end.
int KORCkeSandbox::LoadStatements(const std::string& declaration, std::string_view body) {
  const int status = Load("", body, "");
  if (status != LUA_OK) return status;
  lua_pop(_State, 1);
  return Load(declaration, body, "\nend");
}

// Finds the places of the outer variables of the function on the top of the stack.
void KORCkeSandbox::FindArguments(const KORCkeFormula& formula, KORCkeBody& body) {
  body.Arguments.assign(formula.Arguments.size(), 0);
  int place = 1;
  while (const char* const name = lua_getupvalue(_State, -1, place)) {
    lua_pop(_State, 1);
    body.Globals = std::string_view(name) == "_ENV" ? place : body.Globals;
    for (std::size_t index = 0; index < formula.Arguments.size(); ++index) {
      if (formula.Arguments[index].Name.Bytes() == name) body.Arguments[index] = place;
    }
    ++place;
  }
}

std::string KORCkeSandbox::TakeMessage(int status) {
  std::string message = "the body ends with an error";
  if (status == LUA_ERRMEM && _Meter.Clock.IsOver()) {
    message = "more than " + std::to_string(korcke::LongestRun.count()) + " milliseconds of processor time";
  } else if (status == LUA_ERRMEM) {
    message = "not enough memory";
  } else if (lua_type(_State, -1) == LUA_TSTRING) {
    std::size_t size = 0;
    const char* const bytes = lua_tolstring(_State, -1, &size);
    message.assign(bytes, size);
    if (message.ends_with(MachineOnNesting)) {
      message.replace(message.size() - MachineOnNesting.size(), MachineOnNesting.size(), "nested too deeply");
    }
  }
  lua_pop(_State, 1);
  return message;
}

bool KORCkeSandbox::Run(const KORCkeFormula& formula, const KORCkeBody& body, std::span<KORCkeVariable> variables,
                        std::string& problem) {
  const ScopedNumberLocale locale;
  CollectGarbageBeyond(MostGarbage);
  _Meter.Clock.Restart();
  const std::size_t in_use = _Memory.GetBytesInUse();
  KORCkeMemoryLimits limits{in_use + MostBytesBesideGarbage, korcke::LargestPiece, korcke::LongestText + HeadOfText,
                            true};
  if (RunOnce(formula, body, variables, limits, problem)) return true;
  if (!_Memory.HasRefused() || _Meter.Clock.IsOver()) return false;
  problem.clear();
  CollectGarbage();
  limits.Total = _BytesKept + korcke::MostBytesOfRun;
  limits.IsFinal = false;
  return RunOnce(formula, body, variables, limits, problem);
}

bool KORCkeSandbox::RunOnce(const KORCkeFormula& formula, const KORCkeBody& body, std::span<KORCkeVariable> variables,
                            const KORCkeMemoryLimits& limits, std::string& problem) {
  // Whatever ends the run, nothing of it is there for the next one.
  struct End {
    KORCkeSandbox& Sandbox;
    const KORCkeBody& Body;
    ~End() { Sandbox.ForgetRun(Body); }
  };
  const End end{*this, body};
  lua_settop(_State, 0);
  _Memory.SetLimits(limits);
  _Meter.Instructions = 0;
  Request request{&body, variables};
  lua_sethook(_State, LookAtTheRun, LUA_MASKCOUNT, InstructionsPerLook);
  lua_pushcfunction(_State, RunBody);
  lua_pushlightuserdata(_State, &request);
  const int status = lua_pcall(_State, 1, LUA_MULTRET, 0);
  lua_sethook(_State, nullptr, 0, 0);
  if (status == LUA_OK) return TakeResults(formula, body, variables, problem);
  problem = TakeMessage(status);
  return false;
}

bool KORCkeSandbox::TakeResults(const KORCkeFormula& formula, const KORCkeBody& body,
                                std::span<KORCkeVariable> variables, std::string& problem) {
  if (!body.IsExpression) lua_rawgeti(_State, LUA_REGISTRYINDEX, body.Reference);
  for (std::size_t index = 0; index < variables.size(); ++index) {
    const KORCkeArgument& argument = formula.Arguments[index];
    if (argument.Mode != KORCke::OutputMode) continue;
    if (!body.IsExpression) {
      if (body.Arguments[index] == 0) continue;
      lua_getupvalue(_State, 1, body.Arguments[index]);
    }
    if (!TakeResult(_State, variables[index])) {
      problem = NoResult(argument, variables[index].ResultKind);
      return false;
    }
    lua_pop(_State, 1);
  }
  return true;
}

// Keeps the body without what the run has made.
void KORCkeSandbox::ForgetRun(const KORCkeBody& body) {
  lua_settop(_State, 0);
  lua_rawgeti(_State, LUA_REGISTRYINDEX, body.Reference);
  for (const int place : body.Arguments) {
    if (place == 0) continue;
    lua_pushnil(_State);
    lua_setupvalue(_State, 1, place);
  }
  if (body.Globals != 0) {
    lua_pushnil(_State);
    lua_setupvalue(_State, 1, body.Globals);
  }
  if (_Meter.HasNewGlobals) {
    lua_pushnil(_State);
    lua_rawseti(_State, LUA_REGISTRYINDEX, GlobalsReference);
    _Meter.HasNewGlobals = false;
  }
  lua_settop(_State, 0);
}

void KORCkeSandbox::CollectGarbageBeyond(std::size_t bytes_allowed) {
  if (_Memory.GetBytesInUse() > _BytesKept + bytes_allowed) CollectGarbage();
}

void KORCkeSandbox::CollectGarbage() {
  lua_gc(_State, LUA_GCCOLLECT);
  _BytesKept = _Memory.GetBytesInUse();
}
