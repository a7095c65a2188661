// The MOST conversions, character by character.
#include "MostNormOracle.h"

#include "OracleText.h"

namespace oracle {
namespace {

struct Parameter {
  std::string Name;
  std::string Frequency;
};

// Cuts a code form without blanks at each letter, and each piece at its first "-".
std::vector<Parameter> CutIntoParameters(const std::string& code) {
  std::vector<std::string> pieces;
  for (const char c : code) {
    if (IsLetter(c)) pieces.emplace_back();
    if (!pieces.empty()) pieces.back() += c;
  }
  std::vector<Parameter> parameters;
  for (const std::string& piece : pieces) {
    const std::size_t dash = piece.find('-');
    if (dash == std::string::npos) {
      parameters.push_back({piece, ""});
    } else {
      parameters.push_back({piece.substr(0, dash), piece.substr(dash + 1)});
    }
  }
  return parameters;
}

void AppendParameter(std::string& norm, const std::string& name, bool bracketed, bool& is_open) {
  if (bracketed && !is_open) {
    is_open = true;
    norm += "(";
  } else if (!bracketed && is_open) {
    is_open = false;
    norm += ")";
  }
  norm += name;
}

}  // namespace

std::string ConvertToMostNorm(const std::string& code, const std::string& frequency,
                              const TimeFromFormula& time_from_formula) {
  if (code.empty()) return "";
  if (code[0] != 'A') return code;
  const std::string frequency_value = PrintReal(time_from_formula(frequency));
  std::string norm;
  bool is_open = false;
  for (const Parameter& parameter : CutIntoParameters(WithoutBlanks(code))) {
    AppendParameter(norm, parameter.Name, parameter.Frequency == frequency_value, is_open);
  }
  if (is_open) norm += ")";
  if (norm.front() == '(' && norm.back() == ')' && frequency_value == "1") {
    norm.erase(norm.find('('), 1);
    norm.erase(norm.find(')'), 1);
  }
  return norm;
}

std::string ConvertToMostNorm(const std::string& code, const std::string& frequency,
                              const std::vector<bool>& bracket_flags, const TimeFromFormula& time_from_formula) {
  if (code.empty()) return "";
  if (code[0] != 'A') return code;
  // The value has no use here; evaluating it is what a caller can observe.
  time_from_formula(frequency);
  std::string norm;
  bool is_open = false;
  std::size_t position = 1;
  for (const Parameter& parameter : CutIntoParameters(WithoutBlanks(code))) {
    if (position > bracket_flags.size()) break;
    AppendParameter(norm, parameter.Name, bracket_flags[position - 1], is_open);
    ++position;
  }
  if (is_open) norm += ")";
  return norm;
}

std::string GetMostCodeFromNorm(const std::string& norm, const std::string& frequency) {
  if (norm.empty()) return "";
  if (norm[0] != 'A' && norm[0] != '(') return norm;
  const std::string text = WithoutBlanks(norm);
  std::string code;
  std::string current = "1";
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '(') {
      if (!code.empty()) {
        ++i;
        code += "-1 " + CharacterAt(text, i);
      }
      current = frequency;
    } else if (c == ')') {
      ++i;
      code += "-" + current + " " + CharacterAt(text, i);
      current = "1";
      if (i == text.size()) return code;
    } else if (!IsLetter(c)) {
      code += c;
    } else if (i > 1) {
      code += "-" + current + " " + c;
    } else {
      code += c;
    }
  }
  return code + "-" + current;
}

}  // namespace oracle
