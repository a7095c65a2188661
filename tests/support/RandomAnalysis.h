// Draws models of a few analyses that reuse each other, with lines of every kind and with formula parameters as they
// come from use and from neglect: mixed owners, stale rows, null entries, lists that end too early.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/oracle/CalculationOracle.h"
#include "tests/support/RandomFormula.h"
#include "tests/support/RandomText.h"

namespace support {

/// What may occur in a drawn model.
struct RandomAnalysisOptions {
  int most_analyses = 8;
  int most_lines = 8;
  bool cycles = false;              // an analysis may reuse itself or a later one
  bool odd_numbers = false;         // no numbers and infinities as times, frequencies, values and conversions
  bool wrong_types = true;          // keys set under another type than theirs
  bool broken_formulas = true;      // signatures and bodies that can't be read, bodies that fail when run
  bool unknown_magnitudes = false;  // value types that are no type and no magnitude
  bool barred_identifiers = false;  // identifiers and row texts with a bar inside
  bool missing_interfaces = false;  // analyses that lack one of their interfaces
};

/// Analyses that point at each other, and the conversion of the site. The last one usually has most below it.
struct RandomModel {
  std::vector<std::unique_ptr<oracle::Analysis>> analyses;
  double tmu_per_minute = 0.0;
};

class RandomAnalysis {
 public:
  explicit RandomAnalysis(unsigned seed, const RandomAnalysisOptions& options = {})
      : _Random(seed), _Options(options), _Formula(_Random) {}
  RandomAnalysis(const RandomAnalysis&) = delete;
  RandomAnalysis& operator=(const RandomAnalysis&) = delete;

  /// Another model on each call.
  RandomModel Draw() {
    _Model = RandomModel();
    _Model.tmu_per_minute = Conversion();
    const int count = _Random.Below(_Options.most_analyses) + 1;
    for (int number = 1; number <= count; ++number) AppendAnalysis(number);
    for (std::size_t index = 0; index < _Model.analyses.size(); ++index) FillAnalysis(index);
    return std::move(_Model);
  }

 private:
  void AppendAnalysis(int number) {
    auto analysis = std::make_unique<oracle::Analysis>();
    analysis->identifier = "A" + std::to_string(number);
    if (_Random.OneIn(16)) analysis->identifier = "A1";
    if (_Random.OneIn(24)) analysis->identifier.clear();
    if (_Options.barred_identifiers && _Random.OneIn(4)) analysis->identifier += _Random.OneIn(2) ? "|2" : "|";
    if (_Options.missing_interfaces && _Random.OneIn(8)) {
      analysis->offers_properties = _Random.OneIn(2);
      analysis->offers_rep_reference = !_Random.OneIn(3);
      analysis->offers_lines = !_Random.OneIn(3);
    }
    _Model.analyses.push_back(std::move(analysis));
  }

  void FillAnalysis(std::size_t index) {
    oracle::Analysis& analysis = *_Model.analyses[index];
    if (_Random.OneIn(4)) analysis.attributes["V_TotalTime"] = Time();
    if (_Random.OneIn(4)) analysis.attributes["V_Name"] = std::string("name");
    // Bounds the number of ways down, which multiply from level to level.
    int reusing_lines_left = 3;
    const int count = _Random.Below(_Options.most_lines + 1);
    for (int row = 1; row <= count; ++row) {
      oracle::Line line = DrawLine(row);
      if (reusing_lines_left > 0 && _Random.OneIn(3)) {
        line.reused = DrawReused(index);
        if (line.reused != nullptr) --reusing_lines_left;
      }
      if (_Random.OneIn(2)) line.parameters = DrawParameters(analysis, line.reused);
      if (_Options.wrong_types) MistypeLists(line);
      analysis.lines.push_back(line);
    }
  }

  oracle::Analysis* DrawReused(std::size_t index) {
    const std::size_t bound = _Options.cycles ? _Model.analyses.size() : index;
    if (bound == 0) return nullptr;
    return _Model.analyses[static_cast<std::size_t>(_Random.Below(static_cast<int>(bound)))].get();
  }

  oracle::Line DrawLine(int row) {
    static const std::array<std::string, 12> types = {"TTB", "TTB", "TTB", "TTU", "TTU", "TW",
                                                      "TRG", "TRG", "T**", "T**", "",    "TXX"};
    static const std::array<std::string, 8> codes = {"M10B", "G1A", "P2SE", "R30E", "A1", " ", "", "*"};
    oracle::Line line;
    Set(line, "RowNum", row);
    Set(line, "Code", std::string(_Random.AnyOf(codes)));
    Set(line, "TimeType", std::string(_Random.AnyOf(types)));
    Set(line, "Description", std::string(_Random.OneIn(2) ? "grasp" : ""));
    Set(line, "IsStandardTextFlag", static_cast<unsigned char>(_Random.Below(2)));
    Set(line, "Factor", Frequency());
    if (_Random.OneIn(3)) Set(line, "FrequencyString", std::string("7"));
    for (const char* key : {"TTBTime", "TTUTime", "TWTime", "TRGTime", "TotalTime"}) Set(line, key, Time());
    return line;
  }

  // Now and then a key is missing, or has another type than its own.
  void Set(oracle::Line& line, const char* key, oracle::KeyValue value) {
    if (_Random.OneIn(10)) return;
    if (_Options.wrong_types && _Random.OneIn(24)) value = OfAnotherType(value);
    line.values[key] = std::move(value);
  }

  oracle::KeyValue OfAnotherType(const oracle::KeyValue& value) {
    static const std::array<oracle::KeyValue, 4> others = {std::string("2"), 2.0, 2, static_cast<unsigned char>(1)};
    return others[(value.index() + 1 + static_cast<std::size_t>(_Random.Below(3))) % others.size()];
  }

  // The keys of the lists and of the reused analysis may be set as a text or a number instead.
  void MistypeLists(oracle::Line& line) {
    if (line.parameters.empty() && _Random.OneIn(24)) line.values["FormulaParameter"] = std::string("x");
    if (line.reused == nullptr && _Random.OneIn(24)) line.values["TimeAnalysis"] = 1;
  }

  oracle::FormulaParameters DrawParameters(const oracle::Analysis& holder, const oracle::Analysis* reused) {
    oracle::FormulaParameters parameters;
    if (_Random.OneIn(60)) return {std::nullopt};
    // A line that reuses an analysis carries the parameters of the lines of that one ahead of its own.
    if (reused != nullptr && _Random.OneIn(2)) {
      for (const oracle::Line& line : reused->lines) Append(parameters, line.parameters);
      // What cycles multiply is cut.
      if (parameters.size() > 24) parameters.resize(24);
    }
    // Few owners and few rows, so that occurrences repeat and owners return.
    const std::array<std::string, 3> owners = {DrawOwner(holder, reused), DrawOwner(holder, reused), holder.identifier};
    for (int left = _Random.Below(4) + 1; left > 0; --left) {
      oracle::FormulaParameter common;
      common.owner_id = _Random.AnyOf(owners);
      common.owner_row = DrawRow();
      common.kind = DrawKind();
      Append(parameters, _Formula.Draw(common, FormulaChoice()));
    }
    Disturb(parameters);
    return parameters;
  }

  RandomFormulaOptions FormulaChoice() const {
    return {_Options.odd_numbers, _Options.broken_formulas, _Options.unknown_magnitudes};
  }

  static void Append(oracle::FormulaParameters& parameters, const oracle::FormulaParameters& more) {
    // The list may grow by itself where an analysis reuses itself.
    const oracle::FormulaParameters copy = more;
    parameters.insert(parameters.end(), copy.begin(), copy.end());
  }

  std::string DrawOwner(const oracle::Analysis& holder, const oracle::Analysis* reused) {
    switch (_Random.Below(12)) {
      case 0:
        return "nowhere";
      case 1:
        return {};
      case 2:
      case 3:
      case 4:
        return holder.identifier;
      case 5:
      case 6:
        return _Random.AnyOf(_Model.analyses)->identifier;
      default:
        return OwnerBelow(reused == nullptr ? &holder : reused);
    }
  }

  // The analysis itself or one that it reuses directly.
  std::string OwnerBelow(const oracle::Analysis* analysis) {
    std::vector<std::string> owners = {analysis->identifier};
    for (const oracle::Line& line : analysis->lines) {
      if (line.reused != nullptr) owners.push_back(line.reused->identifier);
    }
    return _Random.AnyOf(owners);
  }

  std::string DrawRow() {
    static const std::array<std::string, 14> odd = {"0",          "-1",
                                                    "999",        "abc",
                                                    "",           "2x",
                                                    " 3",         "+2",
                                                    "0x2",        "1.9",
                                                    "2147483647", "-2147483648",
                                                    "4294967298", "99999999999999999999"};
    if (_Options.barred_identifiers && _Random.OneIn(6)) return "2|3";
    if (_Random.OneIn(6)) return _Random.AnyOf(odd);
    return std::to_string(_Random.Below(_Random.OneIn(2) ? 3 : _Options.most_lines) + 1);
  }

  int DrawKind() {
    static const std::array<int, 8> kinds = {0, 0, 0, 4, 4, 7, 7, 1};
    return _Random.AnyOf(kinds);
  }

  void Disturb(oracle::FormulaParameters& parameters) {
    if (parameters.size() >= 2 && _Random.OneIn(6)) {
      std::swap(parameters[AnyIndex(parameters.size())], parameters[AnyIndex(parameters.size())]);
    }
    if (_Random.OneIn(10)) parameters.pop_back();
    if (_Random.OneIn(10)) {
      const auto at = static_cast<std::ptrdiff_t>(AnyIndex(parameters.size() + 1));
      parameters.insert(parameters.begin() + at, std::nullopt);
    }
  }

  std::size_t AnyIndex(std::size_t size) { return static_cast<std::size_t>(_Random.Below(static_cast<int>(size))); }

  double Time() {
    static const std::array<double, 8> usual = {0.0, 0.0, -0.036, 0.036, 0.36, -1.0, 1e-9, 1e12};
    if (_Options.odd_numbers && _Random.OneIn(10)) return OddNumber();
    if (_Random.OneIn(2)) return _Random.AnyOf(usual);
    return _Random.Below(100000) / 997.0;
  }

  double Frequency() {
    static const std::array<double, 9> usual = {1.0, 1.0, 2.0, 0.5, -1.0, -1.0, 0.0, -2.5, 1e-7};
    if (_Options.odd_numbers && _Random.OneIn(10)) return OddNumber();
    if (_Random.OneIn(2)) return _Random.AnyOf(usual);
    return _Random.Below(1000) / 7.0;
  }

  double Conversion() {
    static const std::array<double, 8> usual = {0.0, 0.0, 1666.67, 1662.0, 1672.0, 2000.0, -1500.0, 600.0};
    if (_Options.odd_numbers && _Random.OneIn(16)) return OddNumber();
    return _Random.AnyOf(usual);
  }

  double OddNumber() {
    using Limits = std::numeric_limits<double>;
    static const std::array<double, 6> odd = {
        Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(), 1e308, Limits::denorm_min(), -0.0};
    return _Random.AnyOf(odd);
  }

  RandomText _Random;
  RandomAnalysisOptions _Options;
  RandomFormula _Formula;
  RandomModel _Model;
};

}  // namespace support
