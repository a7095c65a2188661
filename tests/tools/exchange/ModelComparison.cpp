// What two analyses differ in.
#include "tests/tools/exchange/ModelComparison.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <optional>
#include <vector>

namespace {

using Values = std::map<std::string, std::string>;

// The value with its type ahead.
struct Writer {
  std::string operator()(std::string_view text) const { return "text " + std::string(text); }
  std::string operator()(double number) const {
    char text[64];
    std::snprintf(text, sizeof text, "real %a", number);
    return text;
  }
  std::string operator()(int number) const { return "integer " + std::to_string(number); }
  std::string operator()(unsigned char truth) const { return truth != 0 ? "yes" : "no"; }
  std::string operator()(const KORBaseUnknown_var& object) const {
    KORUnicodeString identifier;
    const VEXITimeAnalysisProperties_var properties = object;
    properties->GetValue("PLM_ExternalID", identifier);
    return "analysis " + std::string(identifier.Bytes());
  }
};

void Collect(const KORKeyedValues& table, const std::string& ahead, Values& values) {
  table.ForEach([&](std::string_view key, const KORKeyedValues::View& value) {
    const auto* const object = std::get_if<KORBaseUnknown_var>(&value);
    if (object == nullptr || !object->IsNull()) values[ahead + std::string(key)] = std::visit(Writer(), value);
  });
}

std::string TextOf(const KORStoredParameters& parameters) {
  std::string text = "parameters";
  for (const auto& parameter : parameters) {
    if (!parameter) {
      text += "|null";
      continue;
    }
    text += "|" + std::to_string(parameter->_ParameterKind);
    for (const KORUnicodeString& field :
         {parameter->_ValueText, parameter->_ParameterName, parameter->_Signature, parameter->_Body,
          parameter->_ValueType, parameter->_OwnerPLMId, parameter->_OwnerRow}) {
      text += "|" + std::string(field.Bytes());
    }
  }
  return text;
}

Values CollectLines(VEXTimeAnalysisRepReference& analysis) {
  Values values;
  int count = 0;
  analysis.GetLineCount(count);
  values["lines"] = std::to_string(count);
  VEXTimeAnalysisLineData line;
  for (int row = 1; row <= count; ++row) {
    analysis.GetLine(row, line);
    const VEXTimeAnalysisLineData::Content content = line.GetContent();
    const std::string ahead = std::to_string(row) + " ";
    Collect(content.Values, ahead, values);
    const bool has_parameters = content.Parameters != nullptr && !content.Parameters->empty();
    if (has_parameters) values[ahead + KORFormulaParameterKey] = TextOf(*content.Parameters);
  }
  return values;
}

const std::vector<std::vector<std::string>> twins{{"V_description", "V_LongDescription", "AnalysisDescription"},
                                                  {"V_TimeType", "TimeType"},
                                                  {"V_AnalysisType", "AnalysisType"},
                                                  {"V_Subsystem", "Subsystem"}};

bool HasTwin(const Values& values, const std::string& name, const std::string& value) {
  for (const std::vector<std::string>& group : twins) {
    if (std::find(group.begin(), group.end(), name) == group.end()) continue;
    for (const std::string& twin : group) {
      const auto found = values.find(twin);
      if (found != values.end() && found->second == value) return true;
    }
  }
  return false;
}

std::set<std::string> Compare(const Values& left, const Values& right, bool with_twins) {
  std::set<std::string> differences;
  for (const auto& [place, value] : left) {
    const auto found = right.find(place);
    if (found == right.end() || found->second != value) differences.insert(place);
  }
  for (const auto& [place, value] : right) {
    if (left.count(place) == 0 && !(with_twins && HasTwin(left, place, value))) differences.insert(place);
  }
  return differences;
}

}  // namespace

std::set<std::string> Differences(VEXTimeAnalysisRepReference& left, VEXTimeAnalysisRepReference& right) {
  Values left_values, right_values;
  Collect(left.GetAttributes(), "", left_values);
  Collect(right.GetAttributes(), "", right_values);
  std::set<std::string> differences = Compare(left_values, right_values, true);
  differences.merge(Compare(CollectLines(left), CollectLines(right), false));
  return differences;
}

KORHandle<VEXTimeAnalysisRepReference> FindAnalysis(KORSession& session, const std::string& identifier) {
  const KORSession::Scope scope(session);
  for (const KORHandle<VEXTimeAnalysisRepReference>& analysis : KORModel::Current().GetTimeAnalyses()) {
    KORUnicodeString value;
    analysis->GetValue("PLM_ExternalID", value);
    if (value.Bytes() == identifier) return analysis;
  }
  return {};
}
