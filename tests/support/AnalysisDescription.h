// Writes an analysis as text, one key per line, with every bit of its numbers, so that two analyses are equal where
// their texts are and a failing comparison shows where they differ.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <map>
#include <optional>
#include <string>
#include <variant>

#include "tests/oracle/CalculationOracle.h"

namespace support {

/// A number with 17 digits; all that is no number looks alike.
inline std::string Digits(double number) {
  if (std::isnan(number)) return "nan";
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.17g", number);
  return buffer;
}

/// A value with its type ahead of it.
inline std::string Describe(const oracle::KeyValue& value) {
  if (const double* real = std::get_if<double>(&value)) return "real " + Digits(*real);
  if (const int* integer = std::get_if<int>(&value)) return "integer " + std::to_string(*integer);
  if (const unsigned char* flag = std::get_if<unsigned char>(&value)) return "boolean " + std::to_string(*flag);
  return "text \"" + std::get<std::string>(value) + "\"";
}

/// Keys in the order of their names.
inline std::string Describe(const std::map<std::string, oracle::KeyValue>& values, const std::string& indent) {
  std::string text;
  for (const auto& [key, value] : values) text += indent + key + ": " + Describe(value) + "\n";
  return text;
}

/// A parameter in one line, its fields in the order of their declaration.
inline std::string Describe(const std::optional<oracle::FormulaParameter>& parameter) {
  if (!parameter) return "null";
  std::string text = std::to_string(parameter->kind);
  for (const std::string* field : {&parameter->value_text, &parameter->name, &parameter->signature, &parameter->body,
                                   &parameter->value_type, &parameter->owner_id, &parameter->owner_row}) {
    text += " [" + *field + "]";
  }
  return text;
}

inline std::string Describe(const oracle::Line& line) {
  std::string text = Describe(line.values, "    ");
  if (line.reused != nullptr) text += "    reuses " + line.reused->identifier + "\n";
  for (const auto& parameter : line.parameters) text += "    parameter " + Describe(parameter) + "\n";
  return text;
}

inline std::string Describe(const oracle::Analysis& analysis) {
  std::string text = "analysis " + analysis.identifier + "\n" + Describe(analysis.attributes, "  ");
  for (std::size_t index = 0; index < analysis.lines.size(); ++index) {
    text += "  row " + std::to_string(index + 1) + "\n" + Describe(analysis.lines[index]);
  }
  return text;
}

}  // namespace support
