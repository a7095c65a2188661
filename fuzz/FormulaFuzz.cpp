// The one-pass evaluator of formulas against the plain machine that reads each token twice.
// Input: the formula, one byte a character; it ends at a NUL.
#include <string>
#include <vector>

#include "formula/FormulaEvaluator.h"
#include "fuzz/FuzzSupport.h"
#include "tests/oracle/FormulaOracle.h"

namespace {

constexpr long StepLimit = 20000;

const std::vector<oracle::Function>& FunctionTable() {
  static const std::vector<oracle::Function> table = [] {
    std::vector<oracle::Function> functions;
    for (const FormulaFunction& function : FormulaFunctions()) functions.push_back({function.Name, function.Function});
    return functions;
  }();
  return table;
}

// A byte that no character class knows stands for a character beyond the classes.
wchar_t CharacterOf(char byte) {
  return byte == '\x7F' ? L'\u0416' : static_cast<wchar_t>(static_cast<unsigned char>(byte));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::wstring formula;
  for (const char byte : fuzz::CText(fuzz::BytesOf(data, size))) formula += CharacterOf(byte);
  int status = -1000;
  const double value = EvaluateFormula(formula.c_str(), status);
  const oracle::Result expected = oracle::EvaluateFormula(formula, FunctionTable(), StepLimit);
  if (expected.OutOfSteps) return 0;
  fuzz::RequireSame(expected.Status, status, "status");
  fuzz::RequireSameNumber(expected.Value, value, "value");
  return 0;
}
