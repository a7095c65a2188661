// Short ways to make time analyses with lines, reuse and formulas, and to read them.
//
//   const auto grasp = MakeAnalysis("Grasp", {Line("G1A").Timed("TTB", 0.072)});
//   const auto pick = MakeAnalysis("Pick", {Line("M10B").Timed("TTB", 0.36, 2.0), Line("Grasp").Reuses(grasp)});
#pragma once

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/model/VEXTimeAnalysisRepReference.h"

namespace support {

using TimeAnalysis_var = KORHandle<VEXTimeAnalysisRepReference>;

/// What all parameters of one formula share.
struct FormulaText {
  std::string owner;  // identifier of the analysis that owns the formula
  std::string row;    // decimal text
  std::string signature;
  std::string body;
  int kind = 0;
};

/// What a parameter has of its own.
struct ArgumentValue {
  std::string name;
  std::string type;
  std::string text;
};

/// A list of formula parameters, which it owns. Null entries may be among them.
class ParameterList {
 public:
  /// Adds one parameter per value.
  ParameterList& Add(const FormulaText& formula, const std::vector<ArgumentValue>& values) {
    for (const ArgumentValue& value : values) {
      VEXTimeAnalysisFormulaParameter parameter;
      parameter._ParameterKind = formula.kind;
      parameter._OwnerPLMId = KORUnicodeString(formula.owner);
      parameter._OwnerRow = KORUnicodeString(formula.row);
      parameter._Signature = KORUnicodeString(formula.signature);
      parameter._Body = KORUnicodeString(formula.body);
      parameter._ParameterName = KORUnicodeString(value.name);
      parameter._ValueType = KORUnicodeString(value.type);
      parameter._ValueText = KORUnicodeString(value.text);
      _Parameters.emplace_back(parameter);
    }
    return *this;
  }

  ParameterList& AddNull() {
    _Parameters.emplace_back();
    return *this;
  }

  ParameterList& Append(const ParameterList& more) {
    _Parameters.insert(_Parameters.end(), more._Parameters.begin(), more._Parameters.end());
    return *this;
  }

  /// Pointers to the parameters, which stay the list's. They live until the list does not, or is added to.
  KORRawCollPV Lend() {
    KORRawCollPV pointers;
    for (auto& parameter : _Parameters) pointers.Append(parameter ? &*parameter : nullptr);
    return pointers;
  }

  /// Pointers to new copies on the heap, which are the caller's.
  KORRawCollPV Copy() const {
    KORRawCollPV pointers;
    for (const auto& parameter : _Parameters) {
      pointers.Append(parameter ? new VEXTimeAnalysisFormulaParameter(*parameter) : nullptr);
    }
    return pointers;
  }

 private:
  std::deque<std::optional<VEXTimeAnalysisFormulaParameter>> _Parameters;
};

/// A formula at a row of its owner whose arguments are the outputs named, out of "Time", "Frequency" and "Description".
/// They start at 0, 0 and an empty text.
inline ParameterList Outputs(const std::string& owner, const std::string& row, const std::vector<std::string>& names,
                             const std::string& body, int kind = 0) {
  static const std::map<std::string, ArgumentValue> arguments{{"Time", {"Time", "Time", "0"}},
                                                              {"Frequency", {"Frequency", "Real", "0"}},
                                                              {"Description", {"Description", "String", ""}}};
  FormulaText formula{owner, row, "", body, kind};
  std::vector<ArgumentValue> values;
  for (const std::string& name : names) {
    values.push_back(arguments.at(name));
    if (!formula.signature.empty()) formula.signature += ", ";
    formula.signature += "out " + name + " : " + values.back().type;
  }
  ParameterList parameters;
  return parameters.Add(formula, values);
}

/// A formula with the one output "Time".
inline ParameterList TimeFormula(const std::string& owner, const std::string& row, const std::string& time,
                                 int kind = 0) {
  return Outputs(owner, row, {"Time"}, "Time = " + time, kind);
}

/// A line under construction.
class Line {
 public:
  Line() = default;
  explicit Line(std::string_view code) { Set("Code", KORUnicodeString(code)); }

  template <class Value>
  Line& Set(const char* key, const Value& value) {
    (void)_Record.SetValue(key, value);
    return *this;
  }
  Line& Set(const char* key, const char* text) { return Set(key, KORUnicodeString(text)); }

  /// Sets the time type, the time under its key (under "TTBTime" for "T**"), the frequency, and the time by frequency
  /// as the total.
  Line& Timed(const std::string& type, double seconds, double frequency = 1.0) {
    Set("TimeType", KORUnicodeString(type));
    const std::string key = type == "T**" ? "TTBTime" : type + "Time";
    (void)_Record.SetValue(KORString(key), seconds);
    return Set("Factor", frequency).Set("TotalTime", seconds * frequency);
  }

  Line& Reuses(const KORBaseUnknown_var& analysis) { return Set("TimeAnalysis", analysis); }

  /// Replaces the formula parameters by copies of these.
  Line& Formula(const ParameterList& parameters) {
    (void)_Record.SetValue("FormulaParameter", parameters.Copy());
    return *this;
  }

  VEXTimeAnalysisLineData& Record() { return _Record; }

 private:
  VEXTimeAnalysisLineData _Record;
};

/// Appends lines to a table.
inline void AppendLines(VEXITimeAnalysisLines& table, std::vector<Line> lines) {
  int row = 0;
  (void)table.GetLineCount(row);
  for (Line& line : lines) (void)table.SetLine(++row, line.Record());
}

/// A new analysis that belongs to no model. Those that reuse each other in a circle are to lose their lines at the end.
inline TimeAnalysis_var MakeAnalysis(std::string_view identifier, const std::vector<Line>& lines = {}) {
  auto analysis = TimeAnalysis_var::Adopt(new VEXTimeAnalysisRepReference(KORUnicodeString(identifier)));
  AppendLines(*analysis, lines);
  return analysis;
}

/// Takes the lines off analyses that reuse each other in a circle, at the end of a test.
class CircleBreaker {
 public:
  explicit CircleBreaker(std::vector<TimeAnalysis_var> analyses) : _Analyses(std::move(analyses)) {}
  CircleBreaker(const CircleBreaker&) = delete;
  CircleBreaker& operator=(const CircleBreaker&) = delete;
  ~CircleBreaker() {
    for (const TimeAnalysis_var& analysis : _Analyses) (void)analysis->RemoveAllLines();
  }

 private:
  std::vector<TimeAnalysis_var> _Analyses;
};

/// The value of a key; nothing if it is not set, or set under another type.
template <class Value, class Holder>
std::optional<Value> Read(Holder& holder, const char* key) {
  Value value{};
  if (Failed(holder.GetValue(key, value))) return std::nullopt;
  return value;
}

/// The value of a key of a row.
template <class Value>
std::optional<Value> ReadLine(VEXITimeAnalysisLines& table, int row, const char* key) {
  VEXTimeAnalysisLineData line;
  (void)table.GetLine(row, line);
  return Read<Value>(line, key);
}
inline std::optional<double> RealOfLine(VEXITimeAnalysisLines& table, int row, const char* key) {
  return ReadLine<double>(table, row, key);
}
inline std::optional<std::string> TextOfLine(VEXITimeAnalysisLines& table, int row, const char* key) {
  const auto text = ReadLine<KORUnicodeString>(table, row, key);
  if (!text) return std::nullopt;
  return std::string(text->Bytes());
}
inline std::optional<double> RealOf(VEXITimeAnalysisRepReference& attributes, const char* key) {
  return Read<double>(attributes, key);
}

/// A parameter as one line of text.
inline std::string Describe(const VEXTimeAnalysisFormulaParameter* parameter) {
  if (parameter == nullptr) return "null";
  std::string text = std::to_string(parameter->_ParameterKind);
  for (const KORUnicodeString* field :
       {&parameter->_ValueText, &parameter->_ParameterName, &parameter->_Signature, &parameter->_Body,
        &parameter->_ValueType, &parameter->_OwnerPLMId, &parameter->_OwnerRow}) {
    text.append(" [").append(field->Bytes()).append("]");
  }
  return text;
}

inline std::string Describe(const KORRawCollPV& parameters) {
  std::string text;
  for (const void* const parameter : parameters) {
    text += "    " + Describe(static_cast<const VEXTimeAnalysisFormulaParameter*>(parameter)) + "\n";
  }
  return text;
}

inline std::string Describe(const KORListValKORUnicodeString& names, const KORListValKORUnicodeString& values) {
  std::string text;
  for (int position = 1; position <= names.Size(); ++position) {
    text.append("  ").append(names[position].Bytes()).append(": ").append(values[position].Bytes()).append("\n");
  }
  return text;
}

/// Everything in a row, with all digits.
inline std::string DescribeLine(VEXITimeAnalysisLines& table, int row) {
  KORListValKORUnicodeString names, values;
  (void)table.GetLineAttributes(row, names, values);
  VEXTimeAnalysisLineData line;
  (void)table.GetLine(row, line);
  KORRawCollPV parameters;
  (void)line.GetValue("FormulaParameter", parameters);
  return Describe(names, values) + Describe(parameters);
}

/// Everything in an analysis, with all digits.
inline std::string DescribeAnalysis(VEXTimeAnalysisRepReference& analysis) {
  KORListValKORUnicodeString names, values;
  (void)analysis.GetAllValues(names, values);
  std::string text = Describe(names, values);
  int count = 0;
  (void)analysis.GetLineCount(count);
  for (int row = 1; row <= count; ++row) text += "row " + std::to_string(row) + "\n" + DescribeLine(analysis, row);
  return text;
}

}  // namespace support
