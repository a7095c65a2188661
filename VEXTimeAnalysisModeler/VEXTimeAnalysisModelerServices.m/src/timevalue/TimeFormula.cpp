// The time formula of a data card: the decimal character and the floor rules around the evaluator.
#include "timevalue/TimeFormula.h"

#include <cmath>
#include <string_view>

#include "formula/FormulaEvaluator.h"
#include "timevalue/DecimalCharacter.h"

namespace timevalue {
namespace {

constexpr const char* FloorWord = "floor";
constexpr const char* MostFunctionName = "MOST";

bool Holds(const KORUnicodeString& text, const char* word) {
  return text.Bytes().find(word) != std::string_view::npos;
}

}  // namespace

bool IsMostSystem(const KORUnicodeString& system) {
  return system == "MOST" || system == "MiniMOST" || system == "MaxiMOST";
}

double TimeOfFormula(KORUnicodeString formula, const KORUnicodeString& system, int& status) {
  if (formula.IsEmpty()) return 0.0;
  // The word stands before one bracket, but the rule acts on the whole value.
  const bool floor_by_word = system == "MTM2" && Holds(formula, FloorWord);
  if (floor_by_word) formula.ReplaceAll(FloorWord, "");
  // The evaluator reads numbers in the locale of the process. A failure means that there is nothing to convert.
  (void)ToLocalDecimalCharacter(formula);
  double value = EvaluateFormula(formula.ConvertToWideChar().c_str(), status);
  if (floor_by_word) value = std::floor(value);
  // Takes off the small fractions that the function leaves.
  if (IsMostSystem(system) && Holds(formula, MostFunctionName)) value = std::floor(value);
  return value;
}

}  // namespace timevalue
