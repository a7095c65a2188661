// The place where the bodies of formulas are compiled and run, and which they can't leave.
//
// Bodies are texts in the language Lua. They see their arguments, the functions of KORCkeSandboxLibrary.h, and what
// they make themselves; all of that is gone with the end of the run. The bounds of KORCkeLimits.h hold whatever a body
// does.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/base/KORUnicodeString.h"
#include "platform/knowledge/KORCke.h"
#include "platform/knowledge/KORCkeFormula.h"
#include "platform/knowledge/KORCkeLimits.h"
#include "platform/knowledge/KORCkeRunClock.h"
#include "platform/knowledge/KORCkeSandboxMemory.h"

struct lua_State;

/// Where a sandbox keeps a compiled body, and how it hands its arguments over.
struct KORCkeBody {
  int Reference = 0;
  bool IsExpression = false;   // the body is the value of the only output, rather than statements that assign it
  std::vector<int> Arguments;  // for each argument its place among the body's outer variables; 0: not in the body
  int Globals = 0;             // the place of all other names; 0: the body has none
};

/// The value of an argument in a run. Of the three values those count that a kind names.
struct KORCkeVariable {
  KORCke::ValueKind Kind = KORCke::ValueKind::Real;        // as the body sees it
  KORCke::ValueKind ResultKind = KORCke::ValueKind::Real;  // as which it comes out
  int Integer = 0;
  double Real = 0.0;
  KORUnicodeString Text;
};

/// A sandbox serves one thread, and works with "." as decimal character whatever the thread's locale.
class KORCkeSandbox {
 public:
  /// most_bytes_of_compilation  memory that the compilation of one body uses at a time
  explicit KORCkeSandbox(std::size_t most_bytes_of_compilation = korcke::MostBytesOfCompilation);
  ~KORCkeSandbox();
  KORCkeSandbox(const KORCkeSandbox&) = delete;
  KORCkeSandbox& operator=(const KORCkeSandbox&) = delete;

  struct Compilation {
    KORCkeBody Body;
    std::string Problem;  // for people; empty if the body was compiled
  };
  /// Compiles the body of a formula and keeps it as long as the sandbox lives. Where the formula has one output alone,
  /// a body that can be read as an expression is one.
  Compilation Compile(const KORCkeFormula& formula, std::string_view body);

  /// Runs a body with the values of its arguments, one for each, and gives the outputs among them the values that it
  /// worked out. True; else `problem` tells, for people, why not, and the values are of no use.
  bool Run(const KORCkeFormula& formula, const KORCkeBody& body, std::span<KORCkeVariable> variables,
           std::string& problem);

  /// Memory taken by the sandbox and the bodies that it keeps, at most; what compiling has left behind is among it
  /// until the next collection.
  std::size_t GetBytesKept() const { return _BytesKept; }

  /// What a run has done so far; for the sandbox's own counting.
  struct Meter {
    int Instructions = 0;
    bool HasNewGlobals = false;
    KORCkeRunClock Clock;
  };

 private:
  int Load(std::string_view ahead, std::string_view body, std::string_view behind);
  bool RunOnce(const KORCkeFormula& formula, const KORCkeBody& body, std::span<KORCkeVariable> variables,
               const KORCkeMemoryLimits& limits, std::string& problem);
  int LoadExpression(const std::string& declaration, std::string_view body);
  int LoadStatements(const std::string& declaration, std::string_view body);
  void FindArguments(const KORCkeFormula& formula, KORCkeBody& body);
  std::string TakeMessage(int status);
  bool TakeResults(const KORCkeFormula& formula, const KORCkeBody& body, std::span<KORCkeVariable> variables,
                   std::string& problem);
  void ForgetRun(const KORCkeBody& body);
  void CollectGarbageBeyond(std::size_t bytes_allowed);
  void CollectGarbage();

  std::size_t _MostBytesOfCompilation;
  Meter _Meter;
  KORCkeSandboxMemory _Memory{_Meter.Clock};
  std::size_t _BytesKept = 0;
  int _NextReference;
  lua_State* _State;
};
