// Short ways to write analyses down in the tests of the yardstick, and to read them.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "CalculationOracle.h"

namespace oracle {

/// A line with a code and these values.
inline Line LineOf(std::map<std::string, KeyValue> values) {
  Line line;
  line.values = std::move(values);
  line.values.emplace("Code", std::string("A1"));
  return line;
}

/// A text as the value of a key; a bare literal would become something else.
inline std::string Text(const char* text) {
  return text;
}

/// The only parameter of a formula with one output.
inline FormulaParameter ParameterOf(const char* owner_id, const char* owner_row, const char* name, const char* body) {
  FormulaParameter parameter;
  parameter.name = name;
  parameter.value_type = "Real";
  parameter.value_text = "0";
  parameter.signature = Text("out ") + name + " : Real";
  parameter.body = body;
  parameter.owner_id = owner_id;
  parameter.owner_row = owner_row;
  return parameter;
}

/// An analysis that offers every interface.
inline Analysis AnalysisOf(const char* identifier, std::vector<Line> lines) {
  Analysis analysis;
  analysis.identifier = identifier;
  analysis.lines = std::move(lines);
  return analysis;
}

/// A line that reuses an analysis and holds nothing else but a code.
inline Line Reusing(Analysis& reused) {
  Line line = LineOf({});
  line.reused = &reused;
  return line;
}

/// A key as it stands; -777.0 or "unset" if it isn't there.
inline double RealAttribute(const Analysis& analysis, const char* key) {
  double value = -777.0;
  ReadKey(analysis.attributes, key, value);
  return value;
}

inline std::string TextKey(const Line& line, const char* key) {
  std::string value = "unset";
  ReadKey(line.values, key, value);
  return value;
}

inline double RealKey(const Line& line, const char* key) {
  double value = -777.0;
  ReadKey(line.values, key, value);
  return value;
}

/// The name of a row of test cases.
template <typename Case>
std::string NameOf(const Case& row) {
  return row.param.name;
}

}  // namespace oracle
