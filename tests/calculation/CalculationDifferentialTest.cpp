// Random models: every operation on lines, reuse, formulas and whole analyses against the plain calculation, numbers
// bit for bit and all keys of all lines afterwards.
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "VEXSTMTimeAnalysisDlgServices.h"
#include "tests/calculation/EngineAdapter.h"
#include "tests/calculation/ModelTwin.h"
#include "tests/formula/FormulaTest.h"
#include "tests/oracle/CalculationOracle.h"
#include "tests/support/AnalysisDescription.h"
#include "tests/support/RandomAnalysis.h"
#include "tests/support/ServiceTest.h"

namespace {

using calculationtest::EngineAdapter;
using calculationtest::ModelTwin;
using formulatest::SameNumber;
using support::RandomAnalysis;
using support::RandomAnalysisOptions;
using support::RandomModel;
using support::RandomText;
using Services = VEXSTMTimeAnalysisDlgServices;

struct ModelRow {
  const char* name;
  unsigned seed;
  int models;
  RandomAnalysisOptions options;
};

// What an operation gave: that, or the null-handle error.
template <class Value>
struct Outcome {
  bool raised = false;
  Value value{};
};

template <class Operation>
auto Real(const Operation& operation) {
  Outcome<decltype(operation())> outcome;
  try {
    outcome.value = operation();
  } catch (const KORError&) {
    outcome.raised = true;
  }
  return outcome;
}

template <class Operation>
auto Expected(const Operation& operation) {
  Outcome<decltype(operation())> outcome;
  try {
    outcome.value = operation();
  } catch (const oracle::NullHandle&) {
    outcome.raised = true;
  }
  return outcome;
}

class CalculationDifferentialTest : public testing::TestWithParam<ModelRow> {
 protected:
  void CompareRows(std::size_t index);
  void CompareReuse(std::size_t index);
  void CompareFormulas(std::size_t index, RandomText& random);
  void CompareFormula(const oracle::FormulaParameters& parameters, const std::string& analysis_id,
                      const oracle::Analysis* reused);
  void CompareCalculation(std::size_t index);
  void CompareContent(std::size_t index);
  void CompareContentOfAll();
  void CompareModel(RandomModel& model, RandomText& random);

  Services _Services;
  EngineAdapter _Engine;
  const ModelTwin* _Twin = nullptr;
  double _TmuPerMinute = 0.0;
  // How much of what was compared says something.
  int _Formulas = 0;
  int _FormulasWithTime = 0;
  int _Calculated = 0;
};

void CalculationDifferentialTest::CompareRows(std::size_t index) {
  const oracle::Analysis* const plain = _Twin->Plain(index);
  const KORBaseUnknown_var analysis = _Twin->Of(plain);
  std::vector<int> rows{std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};
  for (int row = -1; row <= static_cast<int>(plain->lines.size()) + 2; ++row) rows.push_back(row);
  for (const int row : rows) {
    ASSERT_TRUE(SameNumber(oracle::TimeOfLine(row, plain), Services::GetTimeOfLine(row, analysis.Get()))) << row;
    ASSERT_TRUE(SameNumber(oracle::FrequencyOfLine(row, plain), Services::GetFrequencyOfLine(row, analysis.Get())))
        << row;
    ASSERT_EQ(_Twin->PlainOf(Services::GetReusedTAOfRow(row, analysis)), oracle::ReusedAnalysisOfRow(row, plain))
        << row;
  }
  const auto expected = Expected([&] { return oracle::TotalTimeOfNonFormulaCode(plain); });
  const auto real = Real([&] { return Services::CalcTotalTimeOfNonFormulaCode(analysis.Get()); });
  ASSERT_EQ(real.raised, expected.raised);
  ASSERT_TRUE(SameNumber(expected.value, real.value));
}

void CalculationDifferentialTest::CompareReuse(std::size_t index) {
  const oracle::Analysis* const plain = _Twin->Plain(index);
  const KORBaseUnknown_var analysis = _Twin->Of(plain);
  ASSERT_EQ(_Services.IsTAHasReusedLine(analysis) != 0, oracle::HasReusedLine(plain));
  ASSERT_EQ(support::Text(Services::GetTAPLMExternalID(analysis.Get())), oracle::IdentifierOf(plain));
  // Listed into the same tables twice in a row, for another analysis first.
  oracle::ReuseTables tables;
  KORListValKORUnicodeString identifiers;
  KORRawColldouble values;
  KORListValKORBaseUnknown_var analyses;
  for (const oracle::Analysis* const top : {static_cast<const oracle::Analysis*>(_Twin->Plain(0)), plain}) {
    const auto expected = Expected([&] { return oracle::AllLevelReusedIds(top, tables), true; });
    const auto real = Real([&] {
      Services::PrepareListOfAllLevelReusedPLMIds(_Twin->Of(top), identifiers, values, analyses);
      return true;
    });
    ASSERT_EQ(real.raised, expected.raised);
  }
  ASSERT_EQ(support::Texts(identifiers), tables.ids);
  ASSERT_EQ(std::vector<double>(values.begin(), values.end()), tables.times);
  std::vector<const oracle::Analysis*> listed;
  for (const KORBaseUnknown_var& one : analyses) listed.push_back(_Twin->PlainOf(one));
  ASSERT_EQ(listed, tables.analyses);
}

void CalculationDifferentialTest::CompareFormula(const oracle::FormulaParameters& parameters,
                                                 const std::string& analysis_id, const oracle::Analysis* reused) {
  double expected_frequency = 7.0;
  std::string expected_description = "before";
  const auto expected = Expected([&] {
    return oracle::FormulaOnLine(parameters, analysis_id, reused, expected_frequency, expected_description, _Engine);
  });
  double frequency = 7.0;
  KORUnicodeString description = "before";
  KORUnicodeString identifier(analysis_id);
  support::ParameterList records = ModelTwin::Parameters(parameters);
  KORRawCollPV lent = records.Lend();
  const auto real = Real([&] {
    return _Services.CalculateFormulaOnLineService(lent, identifier, _Twin->Of(reused), frequency, description);
  });
  ASSERT_EQ(real.raised, expected.raised);
  ASSERT_TRUE(SameNumber(expected.value, real.value));
  ASSERT_TRUE(SameNumber(expected_frequency, frequency));
  ASSERT_EQ(support::Text(description), expected_description);
  ++_Formulas;
  if (real.value != 0.0) ++_FormulasWithTime;
}

void CalculationDifferentialTest::CompareFormulas(std::size_t index, RandomText& random) {
  const oracle::Analysis* const plain = _Twin->Plain(index);
  for (const oracle::Line& line : plain->lines) {
    if (line.parameters.empty()) continue;
    SCOPED_TRACE(support::Describe(line));
    ASSERT_NO_FATAL_FAILURE(CompareFormula(line.parameters, plain->identifier, line.reused));
    // The same formulas on a line of another analysis, which reuses something else.
    const oracle::Analysis* const holder =
        _Twin->Plain(static_cast<std::size_t>(random.Below(static_cast<int>(_Twin->Size()))));
    const oracle::Analysis* const reused =
        _Twin->Plain(static_cast<std::size_t>(random.Below(static_cast<int>(_Twin->Size()))));
    ASSERT_NO_FATAL_FAILURE(CompareFormula(line.parameters, holder->identifier, reused))
        << "on " << holder->identifier << " over " << reused->identifier;
  }
}

void CalculationDifferentialTest::CompareContent(std::size_t index) {
  const oracle::Analysis& expected = *_Twin->Plain(index);
  const oracle::Analysis real = _Twin->ReadBack(index);
  ASSERT_EQ(support::Describe(real), support::Describe(expected));
  for (std::size_t row = 0; row < expected.lines.size(); ++row) {
    ASSERT_EQ(real.lines[row].reused, expected.lines[row].reused) << row + 1;
  }
}

void CalculationDifferentialTest::CompareContentOfAll() {
  for (std::size_t index = 0; index < _Twin->Size(); ++index) ASSERT_NO_FATAL_FAILURE(CompareContent(index));
}

void CalculationDifferentialTest::CompareCalculation(std::size_t index) {
  oracle::Analysis* const plain = _Twin->Plain(index);
  const std::string before = support::Describe(*plain);
  SCOPED_TRACE("calculation of " + before);
  const auto expected = Expected([&] { return oracle::AnalyzedTime(plain, _TmuPerMinute, _Engine); });
  const auto real = Real([&] { return _Services.CalculateAnalyzedTimeBG(_Twin->Of(plain)); });
  ASSERT_EQ(real.raised, expected.raised);
  ASSERT_EQ(real.value, expected.value);
  ASSERT_NO_FATAL_FAILURE(CompareContent(index));
  if (support::Describe(*plain) != before) ++_Calculated;
}

void CalculationDifferentialTest::CompareModel(RandomModel& model, RandomText& random) {
  const ModelTwin twin(model);
  _Twin = &twin;
  _TmuPerMinute = model.tmu_per_minute;
  _Services.SetMinToTMUConversionValue(_TmuPerMinute);
  ASSERT_NO_FATAL_FAILURE(CompareContentOfAll());
  for (std::size_t index = 0; index < twin.Size(); ++index) {
    SCOPED_TRACE("analysis " + std::to_string(index));
    ASSERT_NO_FATAL_FAILURE(CompareRows(index));
    ASSERT_NO_FATAL_FAILURE(CompareReuse(index));
    ASSERT_NO_FATAL_FAILURE(CompareFormulas(index, random));
  }
  for (int round = 0; round < 2; ++round) {
    for (std::size_t index = 0; index < twin.Size(); ++index) ASSERT_NO_FATAL_FAILURE(CompareCalculation(index));
    // Whatever it reuses, a calculation leaves all other analyses alone.
    ASSERT_NO_FATAL_FAILURE(CompareContentOfAll());
  }
}

TEST_P(CalculationDifferentialTest, AgreesWithThePlainCalculation) {
  RandomText random(GetParam().seed);
  RandomAnalysis models(GetParam().seed, GetParam().options);
  for (int number = 0; number < GetParam().models; ++number) {
    SCOPED_TRACE("model " + std::to_string(number));
    RandomModel model = models.Draw();
    ASSERT_NO_FATAL_FAILURE(CompareModel(model, random));
  }
  RecordProperty("formulas", _Formulas);
  RecordProperty("formulas_with_time", _FormulasWithTime);
  RecordProperty("calculated", _Calculated);
  // Comparisons are worth something only where many calculations have something to do.
  EXPECT_GT(_Formulas, 4 * GetParam().models);
  EXPECT_GT(_FormulasWithTime, _Formulas / 4);
  EXPECT_GT(_Calculated, GetParam().models);
}

INSTANTIATE_TEST_SUITE_P(
    Models, CalculationDifferentialTest,
    testing::Values(ModelRow{"WellFormed", 301, 200, {.wrong_types = false, .broken_formulas = false}},
                    ModelRow{"AsTheyCome", 302, 250, {}},
                    ModelRow{"Large", 303, 20, {.most_analyses = 10, .most_lines = 30}},
                    ModelRow{"Cycles", 304, 150, {.cycles = true}},
                    ModelRow{"OddNumbers", 305, 150, {.odd_numbers = true}},
                    ModelRow{"UnknownMagnitudes", 306, 100, {.unknown_magnitudes = true}},
                    ModelRow{"BarredIdentifiers", 307, 100, {.barred_identifiers = true}},
                    ModelRow{"MissingInterfaces", 308, 150, {.missing_interfaces = true}},
                    ModelRow{"All",
                             309,
                             250,
                             {.cycles = true,
                              .odd_numbers = true,
                              .unknown_magnitudes = true,
                              .barred_identifiers = true,
                              .missing_interfaces = true}}),
    support::RowName());

}  // namespace
