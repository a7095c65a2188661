// What the tests of the model share: values of each type, keys with their type, parameters and lists of them.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>

#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"
#include "platform/base/KORStatus.h"
#include "platform/base/KORString.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/model/VEXTimeAnalysisLineData.h"
#include "platform/model/VEXTimeAnalysisRepReference.h"

namespace modeltest {

using Parameter = VEXTimeAnalysisFormulaParameter;
using Analysis_var = KORHandle<VEXTimeAnalysisRepReference>;

/// A value of one of the types that a key can have.
using Value = std::variant<KORUnicodeString, double, int, unsigned char, KORBaseUnknown_var, KORRawCollPV>;

inline KORUnicodeString Unicode(std::string_view text) {
  return KORUnicodeString(text);
}

/// Names the rows of a table of test cases by their member Name.
struct NameOfRow {
  template <class Row>
  std::string operator()(const testing::TestParamInfo<Row>& row) const {
    return row.param.Name;
  }
};

inline Analysis_var NewAnalysis(const char* identifier) {
  return Analysis_var::Adopt(new VEXTimeAnalysisRepReference(KORUnicodeString(identifier)));
}

/// A parameter on the heap that belongs to nobody yet.
inline Parameter* NewParameter(const char* name) {
  auto* const parameter = new Parameter;
  parameter->_ParameterName = name;
  return parameter;
}

inline KORRawCollPV ListOf(std::initializer_list<Parameter*> parameters) {
  KORRawCollPV list;
  for (Parameter* const parameter : parameters) list.Append(parameter);
  return list;
}

inline KORRawCollPV ParametersOf(const VEXTimeAnalysisLineData& line) {
  KORRawCollPV list;
  (void)line.GetValue(KORFormulaParameterKey, list);
  return list;
}

/// The names of the parameters in a list, with a blank behind each; "null" for a null entry.
inline std::string NamesIn(const KORRawCollPV& list) {
  std::string names;
  for (const void* const entry : list) {
    const auto* const parameter = static_cast<const Parameter*>(entry);
    names += parameter == nullptr ? "null" : std::string(parameter->_ParameterName.Bytes());
    names += ' ';
  }
  return names;
}

inline std::string NamesOn(const VEXTimeAnalysisLineData& line) {
  return NamesIn(ParametersOf(line));
}

inline int RowCountOf(VEXTimeAnalysisRepReference& analysis) {
  int count = -1;
  EXPECT_EQ(analysis.GetLineCount(count), S_OK);
  return count;
}

inline KORUnicodeString CodeOf(const VEXTimeAnalysisLineData& line) {
  KORUnicodeString code("default");
  (void)line.GetValue("Code", code);
  return code;
}

/// Appends a line with that code.
inline void AppendLine(VEXTimeAnalysisRepReference& analysis, const char* code) {
  VEXTimeAnalysisLineData line;
  line.SetValue("Code", KORUnicodeString(code));
  ASSERT_EQ(analysis.SetLine(RowCountOf(analysis) + 1, line), S_OK);
}

/// The codes of all rows, with a blank behind each.
inline std::string CodesOf(VEXTimeAnalysisRepReference& analysis) {
  std::string codes;
  for (int row = 1; row <= RowCountOf(analysis); ++row) {
    VEXTimeAnalysisLineData line;
    EXPECT_EQ(analysis.GetLine(row, line), S_OK);
    codes += std::string(CodeOf(line).Bytes()) + ' ';
  }
  return codes;
}

}  // namespace modeltest
