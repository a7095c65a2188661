// What the tool learns of the names of the exchange by asking it.
#include "tools/exchange/ExchangeVocabulary.h"

#include <gtest/gtest.h>

#include "platform/model/KORModel.h"
#include "platform/system/KORSession.h"

namespace {

using tool::ExchangeType;

struct NameRow {
  const char* name;
  const char* key;
  ExchangeType type;
  int column;
};

class LineNamesTest : public testing::TestWithParam<NameRow> {};

TEST_P(LineNamesTest, AreThoseOfTheExchange) {
  const KORFreshSession session;
  tool::ExchangeVocabulary vocabulary;
  const tool::ExchangeName& name = vocabulary.OfLineKey(GetParam().name);
  EXPECT_EQ(name.Key, GetParam().key);
  EXPECT_EQ(name.Type, GetParam().type);
  EXPECT_EQ(name.Column, GetParam().column);
  EXPECT_EQ(vocabulary.TypeOfCell(GetParam().key), GetParam().type);
}

INSTANTIATE_TEST_SUITE_P(Rows, LineNamesTest,
                         testing::Values(NameRow{"IsStandardTextFlag", "standardtextflag", ExchangeType::Boolean, 0},
                                         NameRow{"RowNum", "rowno", ExchangeType::Integer, 2},
                                         NameRow{"Description", "analysisdescription", ExchangeType::Text, 3},
                                         NameRow{"TimeType", "timetype", ExchangeType::Text, 5},
                                         NameRow{"TotalTime", "totaltime", ExchangeType::Real, 7},
                                         NameRow{"TimeAnalysis", "subanalysis", ExchangeType::Analysis, 25},
                                         NameRow{"ParamFactorString", "text1", ExchangeType::Text, 34}),
                         [](const auto& row) { return std::string(row.param.name); });

class AttributeNamesTest : public testing::TestWithParam<NameRow> {};

TEST_P(AttributeNamesTest, AreThoseOfTheExchange) {
  const KORFreshSession session;
  tool::ExchangeVocabulary vocabulary;
  const tool::ExchangeName& name = vocabulary.OfAttribute(GetParam().name);
  EXPECT_EQ(name.Key, GetParam().key);
  EXPECT_EQ(name.Type, GetParam().type);
  EXPECT_EQ(vocabulary.TypeOfAttribute(GetParam().key), GetParam().type);
}

INSTANTIATE_TEST_SUITE_P(Rows, AttributeNamesTest,
                         testing::Values(NameRow{"V_description", "analysisdescription", ExchangeType::Text, 0},
                                         NameRow{"AnalysisDescription", "analysisdescription", ExchangeType::Text, 0},
                                         NameRow{"State", "state", ExchangeType::Integer, 0},
                                         NameRow{"IsDirty", "isdirty", ExchangeType::Boolean, 0},
                                         NameRow{"EffectivityBegin", "effectivity.begin", ExchangeType::Real, 0},
                                         NameRow{"V_ValueAdded", "valueadded", ExchangeType::Text, 0}),
                         [](const auto& row) { return std::string(row.param.name); });

// One of them is the number of the analysis that a probe is given.
TEST(Vocabulary, IsTheSameWhateverAnalysesThereAre) {
  const KORFreshSession session;
  const auto analysis = KORModel::Current().CreateTimeAnalysis("2");
  EXPECT_EQ(tool::ExchangeVocabulary().TypeOfCell("subanalysis"), ExchangeType::Analysis);
  EXPECT_EQ(tool::ExchangeVocabulary().TypeOfCell("rowno"), ExchangeType::Integer);
}

TEST(Vocabulary, AsksOnceForWhatIsUnknown) {
  const KORFreshSession session;
  tool::ExchangeVocabulary vocabulary;
  testing::internal::CaptureStderr();
  for (int time = 0; time < 2; ++time) {
    EXPECT_EQ(vocabulary.OfAttribute("MyOwn").Key, "");
    EXPECT_EQ(vocabulary.OfLineKey("MyKey").Key, "");
    EXPECT_EQ(vocabulary.TypeOfAttribute("my.own"), ExchangeType::None);
    EXPECT_EQ(vocabulary.TypeOfCell("my.key"), ExchangeType::None);
    EXPECT_EQ(vocabulary.OfLineKey("MyKey").Type, ExchangeType::None);
  }
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "Failed to map attribute <MyOwn>\nFailed to map line attribute <MyKey>\n"
            "Failed to map attribute <my.own>\nFailed to map line attribute <my.key>\n");
}

TEST(Vocabulary, AsksNotAtAllForWhatIsKnownToHaveNoName) {
  const KORFreshSession session;
  tool::ExchangeVocabulary vocabulary;
  testing::internal::CaptureStderr();
  for (const char* name : {"PLM_ExternalID", "V_HumanTime", "V_TotalTime"}) {
    EXPECT_EQ(vocabulary.OfAttribute(name).Key, "") << name;
  }
  for (const char* name : {"FrequencyString", "FormulaPicture"}) EXPECT_EQ(vocabulary.OfLineKey(name).Key, "") << name;
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
