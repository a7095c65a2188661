// A drawn model as real analyses, and read back as plain data.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/calculation/AnalysisShell.h"
#include "tests/oracle/CalculationOracle.h"
#include "tests/support/AnalysisBuilder.h"
#include "tests/support/RandomAnalysis.h"
#include "tests/support/ServiceTest.h"

namespace calculationtest {

/// The real analyses of a model, in its order. Analyses that lack interfaces are shells. The model lives longer.
class ModelTwin {
 public:
  /// Makes a real analysis without lines under an identifier.
  using Maker = std::function<support::TimeAnalysis_var(const std::string& identifier)>;

  explicit ModelTwin(support::RandomModel& model) : ModelTwin(model, &ModelTwin::MakeOfNoModel) {}
  ModelTwin(support::RandomModel& model, const Maker& maker) {
    for (const auto& plain : model.analyses) Make(*plain, maker);
    for (std::size_t index = 0; index < _Plain.size(); ++index) Fill(index);
  }
  ModelTwin(const ModelTwin&) = delete;
  ModelTwin& operator=(const ModelTwin&) = delete;
  ~ModelTwin() {
    for (const support::TimeAnalysis_var& analysis : _Inside) (void)analysis->RemoveAllLines();
  }

  std::size_t Size() const { return _Plain.size(); }
  oracle::Analysis* Plain(std::size_t index) const { return _Plain[index]; }
  VEXTimeAnalysisRepReference& Inside(std::size_t index) const { return *_Inside[index]; }

  /// What an analysis of the model is here; null for null.
  KORBaseUnknown_var Of(const oracle::Analysis* plain) const {
    for (std::size_t index = 0; index < _Plain.size(); ++index) {
      if (_Plain[index] == plain) return _Outside[index];
    }
    return NULL_var;
  }
  /// The analysis of the model that an object is here; null if it is none.
  oracle::Analysis* PlainOf(const KORBaseUnknown_var& object) const {
    for (std::size_t index = 0; index < _Plain.size(); ++index) {
      if (!object.IsNull() && _Outside[index] == object) return _Plain[index];
    }
    return nullptr;
  }

  /// The present content of a real analysis.
  oracle::Analysis ReadBack(std::size_t index) const {
    oracle::Analysis analysis;
    KORListValKORUnicodeString names, texts;
    (void)Inside(index).GetAllValues(names, texts);
    for (const KORUnicodeString& name : names) {
      analysis.attributes[support::Text(name)] = *ValueOf(Inside(index), support::Text(name).c_str());
    }
    analysis.identifier = std::get<std::string>(analysis.attributes.at("PLM_ExternalID"));
    analysis.attributes.erase("PLM_ExternalID");
    int count = 0;
    (void)Inside(index).GetLineCount(count);
    for (int row = 1; row <= count; ++row) analysis.lines.push_back(ReadLine(Inside(index), row));
    return analysis;
  }

  /// Parameters of the model as a list of records.
  static support::ParameterList Parameters(const oracle::FormulaParameters& plain) {
    support::ParameterList parameters;
    for (const std::optional<oracle::FormulaParameter>& one : plain) {
      if (one) {
        parameters.Add({one->owner_id, one->owner_row, one->signature, one->body, one->kind},
                       {{one->name, one->value_type, one->value_text}});
      } else {
        parameters.AddNull();
      }
    }
    return parameters;
  }

 private:
  static support::TimeAnalysis_var MakeOfNoModel(const std::string& identifier) {
    return support::MakeAnalysis(identifier);
  }

  void Make(oracle::Analysis& plain, const Maker& maker) {
    // A record takes nothing but a list under this key.
    for (oracle::Line& line : plain.lines) line.values.erase("FormulaParameter");
    _Plain.push_back(&plain);
    _Inside.push_back(maker(plain.identifier));
    for (const auto& [key, value] : plain.attributes) Set(*_Inside.back(), key, value);
    if (plain.offers_lines && plain.offers_properties && plain.offers_rep_reference) {
      _Outside.emplace_back(_Inside.back());
      return;
    }
    const AnalysisShell_var shell = MakeShell(_Inside.back());
    if (!plain.offers_lines) shell->Hide<VEXITimeAnalysisLines>();
    if (!plain.offers_properties) shell->Hide<VEXITimeAnalysisProperties>();
    if (!plain.offers_rep_reference) shell->Hide<VEXITimeAnalysisRepReference>();
    _Outside.emplace_back(shell);
  }

  void Fill(std::size_t index) {
    for (const oracle::Line& plain : _Plain[index]->lines) {
      support::Line line;
      for (const auto& [key, value] : plain.values) Set(line.Record(), key, value);
      if (plain.reused != nullptr) line.Reuses(Of(plain.reused));
      if (!plain.parameters.empty()) line.Formula(Parameters(plain.parameters));
      support::AppendLines(*_Inside[index], {line});
    }
  }

  template <class Holder>
  static void Set(Holder& holder, const std::string& key, const oracle::KeyValue& value) {
    if (const auto* text = std::get_if<std::string>(&value)) {
      (void)holder.SetValue(KORString(key), KORUnicodeString(*text));
    } else if (const auto* real = std::get_if<double>(&value)) {
      (void)holder.SetValue(KORString(key), *real);
    } else if (const auto* integer = std::get_if<int>(&value)) {
      (void)holder.SetValue(KORString(key), *integer);
    } else {
      (void)holder.SetValue(KORString(key), std::get<unsigned char>(value));
    }
  }

  // The value of a key under whichever type it is set; nothing for an object.
  template <class Holder>
  static std::optional<oracle::KeyValue> ValueOf(Holder& holder, const char* key) {
    if (const auto text = support::Read<KORUnicodeString>(holder, key)) return support::Text(*text);
    if (const auto real = support::Read<double>(holder, key)) return *real;
    if (const auto integer = support::Read<int>(holder, key)) return *integer;
    if (const auto flag = support::Read<unsigned char>(holder, key)) return *flag;
    return std::nullopt;
  }

  oracle::Line ReadLine(VEXITimeAnalysisLines& table, int row) const {
    oracle::Line line;
    VEXTimeAnalysisLineData record;
    (void)table.GetLine(row, record);
    KORListValKORUnicodeString names, texts;
    (void)table.GetLineAttributes(row, names, texts);
    for (const KORUnicodeString& name : names) {
      if (const auto value = ValueOf(record, support::Text(name).c_str())) line.values[support::Text(name)] = *value;
    }
    line.reused = PlainOf(support::Read<KORBaseUnknown_var>(record, "TimeAnalysis").value_or(NULL_var));
    for (const void* const entry : support::Read<KORRawCollPV>(record, "FormulaParameter").value_or(KORRawCollPV())) {
      line.parameters.push_back(ReadParameter(static_cast<const VEXTimeAnalysisFormulaParameter*>(entry)));
    }
    return line;
  }

  static std::optional<oracle::FormulaParameter> ReadParameter(const VEXTimeAnalysisFormulaParameter* parameter) {
    if (parameter == nullptr) return std::nullopt;
    return oracle::FormulaParameter{parameter->_ParameterKind,
                                    support::Text(parameter->_ValueText),
                                    support::Text(parameter->_ParameterName),
                                    support::Text(parameter->_Signature),
                                    support::Text(parameter->_Body),
                                    support::Text(parameter->_ValueType),
                                    support::Text(parameter->_OwnerPLMId),
                                    support::Text(parameter->_OwnerRow)};
  }

  std::vector<oracle::Analysis*> _Plain;
  std::vector<support::TimeAnalysis_var> _Inside;
  std::vector<KORBaseUnknown_var> _Outside;
};

}  // namespace calculationtest
