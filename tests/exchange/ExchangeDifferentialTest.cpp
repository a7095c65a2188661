// Random analyses and random lists of items: what the exchange gives, traces and leaves behind, against the plain
// exchange, bit for bit, with objects that fail and objects that lack interfaces; and the tables against the plain
// ones.
#include <gtest/gtest.h>

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "VEXTADataIO.h"
#include "exchange/DefaultStream.h"
#include "exchange/ExchangeTables.h"
#include "tests/exchange/ExchangeWorld.h"
#include "tests/exchange/FaultyAnalysis.h"
#include "tests/exchange/RandomItems.h"
#include "tests/exchange/TraceLines.h"
#include "tests/formula/ScopedLocale.h"
#include "tests/oracle/ExchangeOracle.h"
#include "tests/support/RandomText.h"
#include "tests/support/ServiceTest.h"

namespace {

using calculationtest::MakeShellWithout;
using exchangetest::ExchangeWorld;
using exchangetest::FaultyAnalysis;
using exchangetest::RandomContentOptions;
using exchangetest::RandomItems;
using exchangetest::TraceLines;
using oracle::ExchangeOutcome;
using support::RandomText;

// How the analysis to work on is told.
enum class Way { Given, GivenWithWrongIdentifier, FoundByIdentifier, NotFound, QueryFails, WithoutLines, Faulty };

struct ExchangeRow {
  const char* name;
  unsigned seed;
  int cases;
  std::vector<Way> ways;
  RandomContentOptions content = {};
  const char* locale = nullptr;
};

// What an operation gave, traced and left behind.
struct Effect {
  ExchangeOutcome outcome;
  std::vector<std::string> items;
  std::string world;
};

struct Call {
  KORUnicodeString identifier;
  KORBaseUnknown_var object;
};

// The place of the target. The second of the two analyses with one identifier is not found under it.
std::size_t PlaceOf(Way way, unsigned seed) {
  return way == Way::FoundByIdentifier ? seed % exchangetest::IdentifiersOfWorld().size() : 2;
}

Call CallOf(Way way, ExchangeWorld& world, unsigned seed) {
  const support::TimeAnalysis_var target = world.Target();
  switch (way) {
    case Way::GivenWithWrongIdentifier:
      return {"A1", target};
    case Way::FoundByIdentifier:
      return {KORUnicodeString(exchangetest::IdentifiersOfWorld()[PlaceOf(way, seed)]), NULL_var};
    case Way::QueryFails:
      world.Session().InjectFault("GetElementByIdentificationSet", E_FAIL);
      return {"Target", seed % 8 == 0 ? NULL_var : KORBaseUnknown_var(target)};
    case Way::NotFound:
      return {"Nirgendwo <>", NULL_var};
    case Way::WithoutLines:
      return {"", MakeShellWithout<VEXITimeAnalysisLines>(target)};
    case Way::Faulty:
      return {"", KORBaseUnknown_var::Adopt(new FaultyAnalysis(target, seed, seed % 2 == 0 ? 4 : 16))};
    default:
      return {"Target", target};
  }
}

template <class Operation>
Effect EffectIn(ExchangeWorld& world, Way way, unsigned seed, const std::vector<std::string>& items,
                const Operation& operation) {
  const KORSession::Scope inside(world.Session());
  const Call call = CallOf(way, world, seed);
  KORListValKORUnicodeString list = support::ListOf(items);
  Effect effect;
  effect.outcome = operation(call.identifier, list, call.object.Get());
  effect.items = support::Texts(list);
  effect.world = world.Describe();
  return effect;
}

using LibraryOperation = long (*)(const KORUnicodeString&, KORListValKORUnicodeString&, KORBaseUnknown*);

// An operation of the library with its trace, in a locale.
auto Traced(LibraryOperation operation, const char* locale) {
  return [operation, locale](const KORUnicodeString& identifier, KORListValKORUnicodeString& items,
                             KORBaseUnknown* analysis) {
    TraceLines trace;
    std::unique_ptr<formulatest::ScopedProcessLocale> in_force;
    if (locale != nullptr) {
      in_force = std::make_unique<formulatest::ScopedProcessLocale>(locale);
      EXPECT_TRUE(in_force->IsInForce());
    }
    ExchangeOutcome outcome;
    outcome.status = operation(identifier, items, analysis);
    outcome.trace = trace.Take();
    return outcome;
  };
}

void ExpectSame(const Effect& real, const Effect& expected) {
  ASSERT_EQ(expected.outcome.fatal_error, "");
  EXPECT_EQ(real.outcome.status, expected.outcome.status);
  EXPECT_EQ(real.outcome.trace, expected.outcome.trace);
  EXPECT_EQ(real.items, expected.items);
  EXPECT_EQ(real.world, expected.world);
}

class ExchangeDifferentialTest : public testing::TestWithParam<ExchangeRow> {
 protected:
  Way WayOf(unsigned number) const { return GetParam().ways[number % GetParam().ways.size()]; }

  std::map<long, int> _Statuses;  // how often each came
  int _Traces = 0;
  int _Changed = 0;
};

class ReadOutDifferentialTest : public ExchangeDifferentialTest {};
class WriteInDifferentialTest : public ExchangeDifferentialTest {
 protected:
  // Comparisons are worth something only where lists of every end come.
  void ExpectEveryEnd() {
    const int cases = GetParam().cases;
    if (WayOf(0) == Way::NotFound) {
      EXPECT_EQ(_Statuses[E_FAIL], cases);
      EXPECT_EQ(_Traces, cases);
      EXPECT_EQ(_Changed, 0);
      return;
    }
    if (WayOf(0) == Way::WithoutLines) {
      EXPECT_GT(_Statuses[E_NOINTERFACE], cases / 3);
    } else {
      EXPECT_GT(_Statuses[S_OK], cases / 3);
    }
    EXPECT_GT(_Statuses[E_INVALIDARG], cases / 25);
    EXPECT_GT(_Statuses[E_FAIL], cases / 50);
    EXPECT_GT(_Traces, cases / 8);
    EXPECT_GT(_Changed, cases / 2);
  }
};

TEST_P(ReadOutDifferentialTest, AgreesWithThePlainExchange) {
  const std::vector<std::string> before{"what stood", "in the list:before"};
  std::size_t items = 0;
  for (unsigned number = 0; number < static_cast<unsigned>(GetParam().cases); ++number) {
    SCOPED_TRACE("case " + std::to_string(number));
    const unsigned seed = GetParam().seed + number;
    const Way way = WayOf(number);
    ExchangeWorld expected_world(seed, GetParam().content, PlaceOf(way, seed));
    ExchangeWorld real_world(seed, GetParam().content, PlaceOf(way, seed));
    const std::string untouched = real_world.Describe();
    const Effect expected = EffectIn(expected_world, way, seed, before, oracle::GetAnalysisData);
    const Effect real =
        EffectIn(real_world, way, seed, before, Traced(VEXTADataIO::GetAnalysisData, GetParam().locale));
    ExpectSame(real, expected);
    EXPECT_EQ(real.world, untouched);
    if (HasFailure()) break;
    ++_Statuses[real.outcome.status];
    _Traces += real.outcome.trace.empty() ? 0 : 1;
    items += real.items.size();
  }
  RecordProperty("items", static_cast<int>(items));
  // Comparisons are worth something only where there is something to read out.
  if (WayOf(0) == Way::NotFound) {
    EXPECT_EQ(_Statuses[E_FAIL], GetParam().cases);
    EXPECT_EQ(_Traces, GetParam().cases);
  } else {
    EXPECT_EQ(_Statuses[S_OK], GetParam().cases);
    EXPECT_GT(items, 20U * static_cast<std::size_t>(GetParam().cases));
    EXPECT_GT(_Traces, GetParam().cases / 2);
  }
}

INSTANTIATE_TEST_SUITE_P(Analyses, ReadOutDifferentialTest,
                         testing::Values(ExchangeRow{"Given", 1000, 300, {Way::Given, Way::GivenWithWrongIdentifier}},
                                         ExchangeRow{
                                             "Full", 2000, 40, {Way::Given}, {.most_lines = 12, .present_in = 1}},
                                         ExchangeRow{"FoundByIdentifier", 3000, 150, {Way::FoundByIdentifier}},
                                         ExchangeRow{"NotFound", 4000, 5, {Way::NotFound}},
                                         ExchangeRow{"Faulty", 5000, 700, {Way::Faulty}, {.present_in = 3}},
                                         ExchangeRow{"CommaLocale", 6000, 30, {Way::Given}, {}, COMMA_LOCALE}),
                         support::RowName());

TEST_P(WriteInDifferentialTest, AgreesWithThePlainExchange) {
  RandomItems lists(GetParam().seed, exchangetest::IdentifiersOfWorld());
  for (unsigned number = 0; number < static_cast<unsigned>(GetParam().cases); ++number) {
    const unsigned seed = GetParam().seed + number;
    const Way way = WayOf(number);
    const std::vector<std::string> items = lists.Draw();
    SCOPED_TRACE("case " + std::to_string(number) + ": " + testing::PrintToString(items));
    ExchangeWorld expected_world(seed, GetParam().content, PlaceOf(way, seed));
    ExchangeWorld real_world(seed, GetParam().content, PlaceOf(way, seed));
    const std::string untouched = real_world.Describe();
    const Effect expected = EffectIn(expected_world, way, seed, items, oracle::SetAnalysisData);
    const Effect real = EffectIn(real_world, way, seed, items, Traced(VEXTADataIO::SetAnalysisData, GetParam().locale));
    ExpectSame(real, expected);
    if (HasFailure()) break;
    ++_Statuses[real.outcome.status];
    _Traces += real.outcome.trace.empty() ? 0 : 1;
    _Changed += real.world == untouched ? 0 : 1;
  }
  for (const auto& [status, count] : _Statuses) RecordProperty("status" + std::to_string(status), count);
  ExpectEveryEnd();
}

INSTANTIATE_TEST_SUITE_P(
    Lists, WriteInDifferentialTest,
    testing::Values(ExchangeRow{"Given", 11000, 1500, {Way::Given, Way::GivenWithWrongIdentifier}, {.present_in = 20}},
                    ExchangeRow{"IntoFullAnalyses", 12000, 100, {Way::Given}, {.most_lines = 12, .present_in = 1}},
                    ExchangeRow{"FoundByIdentifier", 13000, 300, {Way::FoundByIdentifier}, {.present_in = 20}},
                    ExchangeRow{"NotFound", 14000, 5, {Way::NotFound}, {.present_in = 20}},
                    ExchangeRow{"QueryFails", 18000, 200, {Way::QueryFails}, {.present_in = 20}},
                    ExchangeRow{"WithoutLines", 15000, 300, {Way::WithoutLines}, {.present_in = 20}},
                    ExchangeRow{"Faulty", 16000, 2000, {Way::Faulty}, {.present_in = 20}},
                    ExchangeRow{"CommaLocale", 17000, 100, {Way::Given}, {.present_in = 20}, COMMA_LOCALE}),
    support::RowName());

// ---- Tables and the default stream

TEST(ExchangeTablesDifferentialTest, AreThePlainOnesRowByRow) {
  ASSERT_EQ(exchange::AttributeTable.size(), oracle::ExchangeAttributes().size());
  for (std::size_t index = 0; index < exchange::AttributeTable.size(); ++index) {
    const oracle::ExchangeAttribute& expected = oracle::ExchangeAttributes()[index];
    EXPECT_EQ(exchange::AttributeTable[index].Key, expected.key);
    EXPECT_EQ(exchange::AttributeTable[index].Names, expected.names);
    EXPECT_EQ(static_cast<int>(exchange::AttributeTable[index].Type), expected.type) << expected.key;
  }
  ASSERT_EQ(exchange::LineTable.size(), oracle::ExchangeLineKeys().size());
  for (std::size_t index = 0; index < exchange::LineTable.size(); ++index) {
    const oracle::ExchangeLineKey& expected = oracle::ExchangeLineKeys()[index];
    EXPECT_EQ(exchange::LineTable[index].Key, expected.key);
    EXPECT_EQ(exchange::LineTable[index].LineKey, expected.line_key);
    EXPECT_EQ(exchange::LineTable[index].Column, expected.column) << expected.key;
    EXPECT_EQ(static_cast<int>(exchange::LineTable[index].Type), expected.type) << expected.key;
  }
}

TEST(ExchangeTablesDifferentialTest, DefaultStreamIsThePlainOneItemByItem) {
  const std::vector<std::string> expected = oracle::ExplodeString("|", oracle::ExchangeDefaultStream());
  EXPECT_EQ(support::Texts(VEXTADataIO::ExplodeString("|", exchange::DefaultStream())), expected);
  EXPECT_EQ(support::Text(exchange::DefaultStream()), oracle::ExchangeDefaultStream());
}

// ---- Cutting

TEST(ExplodeStringDifferentialTest, AgreesWithThePlainCutting) {
  static const std::vector<std::string> pieces = {":", "|", "a", "b", "ä", "日", ":|", "\xC4"};
  static const std::vector<std::string> separators = {":",  "|",  "a",  "ä",     "日", ":|",
                                                      "::", "aa", "äb", "日日:", "",   "\xC4"};
  RandomText random(21000);
  int cut = 0;
  for (int number = 0; number < 20000; ++number) {
    const KORUnicodeString text(random.Draw(pieces, 8));
    const KORUnicodeString separator(random.AnyOf(separators));
    const std::vector<std::string> expected = oracle::ExplodeString(support::Text(separator), support::Text(text));
    ASSERT_EQ(support::Texts(VEXTADataIO::ExplodeString(separator, text)), expected)
        << support::Text(text) << " at " << support::Text(separator);
    cut += expected.size() > 1 ? 1 : 0;
  }
  EXPECT_GT(cut, 4000);
}

// ---- Objects that are no time analysis

struct EndRow {
  const char* name;
  KORBaseUnknown_var (*object)(const support::TimeAnalysis_var&);
  std::vector<std::string> items;
  bool read_out;
};

KORBaseUnknown_var Bare(const support::TimeAnalysis_var& /*analysis*/) {
  return calculationtest::MakeBareObject();
}
KORBaseUnknown_var NoAttributes(const support::TimeAnalysis_var& analysis) {
  return MakeShellWithout<VEXITimeAnalysisRepReference>(analysis);
}
KORBaseUnknown_var NoLines(const support::TimeAnalysis_var& analysis) {
  return MakeShellWithout<VEXITimeAnalysisLines>(analysis);
}

class ExchangeEndTest : public testing::TestWithParam<EndRow> {};

TEST_P(ExchangeEndTest, EndsWhereThePlainExchangeEnds) {
  const auto [name, object_of, items, read_out] = GetParam();
  KORListValKORUnicodeString list = support::ListOf(items);
  const KORBaseUnknown_var object = object_of(support::MakeAnalysis("A1"));
  const ExchangeOutcome expected =
      read_out ? oracle::GetAnalysisData("A1", list, object.Get()) : oracle::SetAnalysisData("A1", list, object.Get());
  ASSERT_NE(expected.fatal_error, "");
  const LibraryOperation operation = read_out ? VEXTADataIO::GetAnalysisData : VEXTADataIO::SetAnalysisData;
  const std::string source = "VEXTimeAnalysisModeler/VEXTimeAnalysisModelerServices.m/src/VEXTADataIO";
  EXPECT_DEATH((void)operation("A1", list, object.Get()), expected.fatal_error + ".*" + source);
}

INSTANTIATE_TEST_SUITE_P(Objects, ExchangeEndTest,
                         testing::Values(EndRow{"BareReadOut", Bare, {}, true},
                                         EndRow{"NoAttributesReadOut", NoAttributes, {}, true},
                                         EndRow{"NoLinesReadOut", NoLines, {}, true},
                                         EndRow{"BareWriteIn", Bare, {"AttributeData:name:8:A"}, false},
                                         EndRow{"NoAttributesWriteIn", NoAttributes, {"LineData"}, false},
                                         EndRow{"NoAttributesWriteInOfNothing", NoAttributes, {}, false}),
                         support::RowName());

}  // namespace
