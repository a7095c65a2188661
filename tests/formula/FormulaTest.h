// What the tests of formulas share: evaluation in one step, calls written as formulas, and comparison bit for bit.
#pragma once

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "formula/FormulaEvaluator.h"

namespace formulatest {

struct Evaluation {
  double Value;
  int Status;
};

inline Evaluation Evaluate(const std::wstring& text) {
  Evaluation result{-1.0, 4711};
  result.Value = EvaluateFormula(text.c_str(), result.Status);
  return result;
}

inline std::wstring Wide(std::string_view ascii) {
  return {ascii.begin(), ascii.end()};
}

/// A formula as it can be printed: what is not printable ASCII stands as its code.
inline std::string Printable(const std::wstring& text) {
  std::string printable;
  for (const wchar_t character : text) {
    if (character >= 32 && character < 127) {
      printable += static_cast<char>(character);
    } else {
      char code[24];
      std::snprintf(code, sizeof code, "\\u{%lX}", static_cast<unsigned long>(character));
      printable += code;
    }
  }
  return printable;
}

/// A number that reads back bit for bit.
inline std::string Digits(double number) {
  char digits[40];
  std::snprintf(digits, sizeof digits, "%.17g", number);
  return digits;
}

/// Equal bit for bit; all that are no number count as one.
inline bool IsSame(double left, double right) {
  if (std::isnan(left) || std::isnan(right)) return std::isnan(left) && std::isnan(right);
  return std::bit_cast<std::uint64_t>(left) == std::bit_cast<std::uint64_t>(right);
}

inline testing::AssertionResult SameNumber(double expected, double actual) {
  if (IsSame(expected, actual)) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "expected " << Digits(expected) << ", got " << Digits(actual);
}

/// The formula that calls a function with these arguments.
inline std::string CallText(std::string_view name, const std::vector<double>& arguments) {
  std::string text(name);
  text += '(';
  for (std::size_t n = 0; n < arguments.size(); ++n) {
    if (n > 0) text += ',';
    text += Digits(arguments[n]);
  }
  return text + ')';
}

/// Evaluates a call and requires the number, bit for bit, and status 0.
inline void ExpectCall(std::string_view name, const std::vector<double>& arguments, double expected) {
  const std::string text = CallText(name, arguments);
  const Evaluation result = Evaluate(Wide(text));
  EXPECT_EQ(result.Status, 0) << text;
  EXPECT_TRUE(SameNumber(expected, result.Value)) << text;
}

/// Names a test after the row's field `name`.
struct RowName {
  template <class Row>
  std::string operator()(const testing::TestParamInfo<Row>& row) const {
    return row.param.name;
  }
};

/// A formula with the value and the status that it has.
struct FormulaCase {
  const char* name;
  const wchar_t* text;
  double value;
  int status;
};

inline void PrintTo(const FormulaCase& row, std::ostream* stream) {
  *stream << Printable(row.text);
}

inline void ExpectFormula(const FormulaCase& row) {
  const Evaluation result = Evaluate(row.text);
  EXPECT_EQ(result.Status, row.status) << Printable(row.text);
  EXPECT_TRUE(SameNumber(row.value, result.Value)) << Printable(row.text);
}

}  // namespace formulatest
