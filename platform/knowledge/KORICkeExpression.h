// Expressions: formulas with typed inputs and outputs, and how they are run.
#pragma once

#include "platform/base/KORHandle.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/knowledge/KORCke.h"
#include "platform/knowledge/KORICkeParm.h"
#include "platform/knowledge/KORICkeSignature.h"

/// A formula: a signature, which names its arguments and their types, and a body, which works the outputs out.
///
///   signature   x : Real, n : Integer, out Time : Time, out Frequency : Real
///   body        Time = 0.5 * n + x; Frequency = 2
///
/// KORCkeFormula.h has the grammar of signatures, docs/formulas-on-lines.md the language of bodies, and KORCkeLimits.h
/// what both may use up.
///
/// One expression serves one thread at a time, any thread; distinct ones may be used on distinct threads at once.
class KORPLATFORM_API KORICkeExpression : public KORInterface<KORICkeExpression> {
 public:
  static constexpr const char* InterfaceName = "KORICkeExpression";

  /// The signature; a null handle if its text can't be read. It stands even where the body is wrong.
  virtual KORICkeSignature_var GetSignature() = 0;
  /// KORCke::True if signature and body can be read, so that the expression can be run.
  virtual KORCke::Boolean IsValid() const = 0;
  /// What is wrong, for people: with the signature or the body, else with the last run. Empty if nothing is.
  virtual KORUnicodeString GetProblem() const = 0;
};
using KORICkeExpression_var = KORHandle<KORICkeExpression>;

/// Runs an expression; every expression offers it.
///
/// Values belong to the arguments by position, in the order in which they were added, inputs and outputs alike. The
/// value that is added for an output is what the output starts with; a body that doesn't assign the output leaves it.
/// A run writes the results into the parameters that were added.
///
/// Which values fit which arguments: texts fit String arguments alone, and numbers all others. Integer takes numbers
/// without a fraction that 32 bits hold, be they integers or reals; Real and Number take every number; a magnitude
/// takes its own dimensions and plain numbers (Integer, Real, Number). A result has to fit its argument and its
/// parameter: an integer parameter takes no fraction, whatever its argument.
class KORPLATFORM_API KORICkeEvaluator : public KORInterface<KORICkeEvaluator> {
 public:
  static constexpr const char* InterfaceName = "KORICkeEvaluator";

  /// Takes all values away, and the problem of the last run.
  virtual void Reset() = 0;
  /// Adds the value of the next argument, and keeps a handle to it. S_OK; E_INVALIDARG, with nothing added, for null.
  virtual long AddValue(const KORICkeParm_var& value) = 0;

  /// Runs the formula with the values added; they stay for a next run. The argument is reserved and passed as null.
  ///
  /// S_OK  the outputs hold their results: numbers of any size, no numbers (NaN) and infinities among them.
  /// E_FAIL, with every value as it was, if the expression isn't valid; if there are fewer or more values than
  ///       arguments; if a value or a result doesn't fit its argument; if the body ends with an error, or goes beyond
  ///       its bounds. GetProblem tells which.
  virtual long Run(KORBaseUnknown* reserved) = 0;
  /// As KORICkeExpression::GetProblem.
  virtual KORUnicodeString GetProblem() const = 0;
};
using KORICkeEvaluator_var = KORHandle<KORICkeEvaluator>;
