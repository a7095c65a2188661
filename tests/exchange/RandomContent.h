// Draws the content of analyses: attributes and lines under every name of the exchange and under others, of the right
// type and of another, with reused analyses of every kind and with formula parameters.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "tests/oracle/ExchangeOracle.h"
#include "tests/support/AnalysisBuilder.h"
#include "tests/support/RandomText.h"

namespace exchangetest {

/// What may occur in a drawn analysis.
struct RandomContentOptions {
  int most_lines = 5;
  int present_in = 6;        // a name of the exchange is set once in so many times
  bool wrong_types = true;   // names set under another type than theirs
  bool other_names = true;   // names that the exchange doesn't have
  bool separators = true;    // texts with ":" and "|"
  bool odd_booleans = true;  // booleans other than 0 and 1
  bool one_value = false;    // all names of one attribute hold the same value
  bool numbered_rows = false;
  bool parameters = true;
};

/// Two of the same seed and options draw the same.
class RandomContent {
 public:
  explicit RandomContent(unsigned seed, const RandomContentOptions& options = {}) : _Random(seed), _Options(options) {}

  void SetAttributes(VEXTimeAnalysisRepReference& analysis) {
    for (const oracle::ExchangeAttribute& row : oracle::ExchangeAttributes()) SetAttribute(analysis, row);
    if (!_Options.other_names) return;
    for (const char* name : {"V_TotalTime", "analysisdescription", "v_name", "V_TimeType|TimeType", "|", "Länge", ""}) {
      if (_Random.OneIn(_Options.present_in)) SetUnder(analysis, name, AnyType());
    }
  }

  /// Replaces the lines. What the lines may reuse may hold null.
  void SetLines(VEXTimeAnalysisRepReference& analysis, const std::vector<KORBaseUnknown_var>& reusable) {
    (void)analysis.RemoveAllLines();
    const int count = _Random.Below(_Options.most_lines + 1);
    for (int row = 1; row <= count; ++row) {
      support::Line line;
      for (const oracle::ExchangeLineKey& key : oracle::ExchangeLineKeys()) SetLineKey(line.Record(), key, reusable);
      SetOtherLineKeys(line);
      if (_Options.numbered_rows) line.Set("RowNum", row);
      support::AppendLines(analysis, {line});
    }
  }

 private:
  void SetAttribute(VEXTimeAnalysisRepReference& analysis, const oracle::ExchangeAttribute& row) {
    const auto same_seed = static_cast<unsigned>(_Random.Generator()());
    const bool all = _Options.one_value && _Random.OneIn(_Options.present_in);
    for (const std::string& name : NamesOf(row)) {
      if (_Options.one_value) {
        if (!all) continue;
        RandomContent same(same_seed, _Options);
        same.SetUnder(analysis, name, row.type);
      } else if (_Random.OneIn(_Options.present_in)) {
        SetUnder(analysis, name, DrawType(row.type));
      }
    }
  }

  // Cut once, since every drawn analysis needs them.
  static const std::vector<std::string>& NamesOf(const oracle::ExchangeAttribute& row) {
    static const auto names = [] {
      std::map<std::string, std::vector<std::string>> cut;
      for (const oracle::ExchangeAttribute& one : oracle::ExchangeAttributes()) {
        cut[one.key] = oracle::ExplodeString("|", one.names);
      }
      return cut;
    }();
    return names.at(row.key);
  }

  void SetLineKey(VEXTimeAnalysisLineData& line, const oracle::ExchangeLineKey& key,
                  const std::vector<KORBaseUnknown_var>& reusable) {
    if (!_Random.OneIn(_Options.present_in)) return;
    const int type = DrawType(key.type);
    if (type != 13) return SetUnder(line, key.line_key, type);
    if (!reusable.empty()) (void)line.SetValue(KORString(key.line_key), _Random.AnyOf(reusable));
  }

  void SetOtherLineKeys(support::Line& line) {
    if (_Options.parameters && _Random.OneIn(3)) line.Formula(support::TimeFormula("A1", "1", "0.5").AddNull());
    if (!_Options.other_names) return;
    for (const char* name : {"FrequencyString", "FormulaPicture", "timetype", "Maß", ""}) {
      if (_Random.OneIn(_Options.present_in)) SetUnder(line.Record(), name, AnyType());
    }
  }

  int AnyType() {
    static const std::array<int, 4> types = {3, 5, 8, 11};
    return _Random.AnyOf(types);
  }
  int DrawType(int own_type) { return _Options.wrong_types && _Random.OneIn(6) ? AnyType() : own_type; }

  template <class Holder>
  void SetUnder(Holder& holder, const std::string& name, int type) {
    const KORString key(name);
    if (type == 3) {
      (void)holder.SetValue(key, Integer());
    } else if (type == 5) {
      (void)holder.SetValue(key, Real());
    } else if (type == 11) {
      (void)holder.SetValue(key, static_cast<unsigned char>(_Random.Below(_Options.odd_booleans ? 256 : 2)));
    } else {
      (void)holder.SetValue(key, KORUnicodeString(Text()));
    }
  }

  int Integer() {
    if (_Random.OneIn(2)) return _Random.Below(20) - 5;
    return static_cast<int>(_Random.Generator()());
  }

  // Any number that there is: zeros of both signs, denormal ones, infinities and no numbers among them.
  double Real() {
    static const std::array<double, 8> usual = {0.0, -0.0, -0.036, 0.036, 1.0, 3.0, 2.952, 1.800000036};
    if (_Random.OneIn(2)) return _Random.AnyOf(usual);
    const std::uint64_t high = _Random.Generator()();
    const std::uint64_t low = _Random.Generator()();
    return std::bit_cast<double>(_Random.OneIn(8) ? (high << 52U) | (low & 3U) : (high << 32U) | low);
  }

  std::string Text() {
    static const std::array<std::string, 14> pieces = {"Get", " ", "TTB", "grasp", "Länge", "日本", "\n",
                                                       "1",   ",", "-",   ".5",    "|",     ":",    "LineData"};
    const int separators = _Options.separators ? 0 : 3;
    std::string text;
    for (int left = _Random.Below(4); left > 0; --left) {
      text += pieces[static_cast<std::size_t>(_Random.Below(static_cast<int>(pieces.size()) - separators))];
    }
    return text;
  }

  support::RandomText _Random;
  RandomContentOptions _Options;
};

}  // namespace exchangetest
