// The time formula of a data card: the decimal character and the floor rules around the evaluator.
#include "timevalue/TimeFormula.h"

#include <array>
#include <cmath>
#include <string>

#include "formula/FormulaEvaluator.h"
#include "platform/base/KORLocale.h"
#include "platform/base/KORUnicodeString.h"
#include "timevalue/DecimalCharacter.h"

namespace timevalue {
namespace {

constexpr std::string_view FloorWord = "floor";
constexpr std::string_view MostFunctionName = "MOST";

bool Holds(std::string_view text, std::string_view word) {
  return text.find(word) != std::string_view::npos;
}

/// Evaluates a text whose decimal character is that of the locale. Short ASCII texts, the common case, need no memory.
double Evaluate(std::string_view text, int& status) {
  std::array<wchar_t, 256> characters;
  bool ascii = text.size() < characters.size();
  for (std::size_t index = 0; ascii && index < text.size(); ++index) {
    characters[index] = static_cast<unsigned char>(text[index]);
    ascii = characters[index] < 0x80;
  }
  if (!ascii) return EvaluateFormula(KORUnicodeString(text).ConvertToWideChar().c_str(), status);
  characters[text.size()] = L'\0';
  return EvaluateFormula(characters.data(), status);
}

/// The evaluator reads numbers in the locale of the process.
double EvaluateInLocale(std::string_view formula, int& status) {
  if (KORLocalDecimalCharacter() == L'.' || !Holds(formula, ".")) return Evaluate(formula, status);
  KORUnicodeString text{formula};
  (void)ToLocalDecimalCharacter(text);  // on failure the text goes on unchanged
  return Evaluate(text.Bytes(), status);
}

}  // namespace

bool IsMostSystem(std::string_view system) {
  return system == "MOST" || system == "MiniMOST" || system == "MaxiMOST";
}

double TimeOfFormula(std::string_view formula, std::string_view system, int& status) {
  if (formula.empty()) return 0.0;
  if (system == "MTM2" && Holds(formula, FloorWord)) {
    // The word stands before one bracket, but the rule acts on the whole value.
    std::string text(formula);
    for (std::size_t word = text.find(FloorWord); word != std::string::npos; word = text.find(FloorWord, word)) {
      text.erase(word, FloorWord.size());
    }
    return std::floor(EvaluateInLocale(text, status));
  }
  const double value = EvaluateInLocale(formula, status);
  // Takes off the small fractions that the function leaves.
  return IsMostSystem(system) && Holds(formula, MostFunctionName) ? std::floor(value) : value;
}

}  // namespace timevalue
