// The model of a session: what it makes and keeps, and that nothing is left of it.
#include "platform/model/KORModel.h"

#include <gmock/gmock.h>

#include <string>
#include <thread>
#include <vector>

#include "platform/system/KORSession.h"
#include "tests/model/ModelTest.h"

namespace {

using modeltest::Analysis_var;
using modeltest::AppendLine;
using modeltest::NewAnalysis;
using modeltest::RowCountOf;

void Reuse(VEXTimeAnalysisRepReference& analysis, const KORBaseUnknown_var& reused) {
  VEXTimeAnalysisLineData line;
  line.SetValue("TimeAnalysis", reused);
  ASSERT_EQ(analysis.SetLine(RowCountOf(analysis) + 1, line), S_OK);
}

// Every way round: each analysis reuses itself and all others.
void ReuseAllOf(const std::vector<Analysis_var>& analyses) {
  for (const Analysis_var& analysis : analyses) {
    for (const Analysis_var& reused : analyses) Reuse(*analysis, reused);
  }
}

template <class Object>
std::vector<std::string> IdentifiersOf(const std::vector<KORHandle<Object>>& objects) {
  std::vector<std::string> identifiers;
  for (const KORHandle<Object>& object : objects) {
    KORUnicodeString identifier("none");
    (void)object->GetAttributes().Get("PLM_ExternalID", identifier);
    identifiers.emplace_back(identifier.Bytes());
  }
  return identifiers;
}

TEST(KORModelTest, KeepsWhatItMadeInOrder) {
  const KORFreshSession session;
  KORModel& model = KORModel::Current();
  for (const char* identifier : {"B", "A", "B"}) {
    const auto operation = model.CreateOperation(identifier);
    const auto analysis = model.CreateTimeAnalysis(identifier);
    EXPECT_TRUE(analysis == model.GetTimeAnalyses().back());
    model.CreateOtherRepReference(identifier);
    model.CreateOccurrence(KORIPLMNavReference_var(operation));
  }
  EXPECT_THAT(IdentifiersOf(model.GetTimeAnalyses()), testing::ElementsAre("B", "A", "B"));
  EXPECT_THAT(IdentifiersOf(model.GetOperations()), testing::ElementsAre("B", "A", "B"));
  EXPECT_THAT(IdentifiersOf(model.GetOtherRepReferences()), testing::ElementsAre("B", "A", "B"));
  EXPECT_EQ(model.GetOccurrences().size(), 3u);
}

TEST(KORModelTest, BelongsToTheCurrentSession) {
  const KORFreshSession outer;
  KORModel& of_outer = KORModel::Current();
  of_outer.CreateTimeAnalysis("TA");
  {
    const KORFreshSession inner;
    EXPECT_NE(&KORModel::Current(), &of_outer);
    EXPECT_TRUE(KORModel::Current().GetTimeAnalyses().empty());
  }
  EXPECT_EQ(&KORModel::Current(), &of_outer);
  EXPECT_EQ(of_outer.GetTimeAnalyses().size(), 1u);
}

TEST(KORModelTest, NothingIsLeftOfASessionForTheNext) {
  const long before = KORBaseUnknown::CountLiveObjects();
  for (int round = 0; round < 3; ++round) {
    const KORFreshSession session;
    KORModel& model = KORModel::Current();
    EXPECT_TRUE(model.GetTimeAnalyses().empty());
    std::vector<Analysis_var> analyses;
    for (const char* identifier : {"A", "B", "C"}) analyses.push_back(model.CreateTimeAnalysis(identifier));
    ReuseAllOf(analyses);
    EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 3);
  }
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

TEST(KORModelTest, AnalysisThatIsStillHeldLosesItsLines) {
  Analysis_var held;
  {
    const KORFreshSession session;
    held = KORModel::Current().CreateTimeAnalysis("TA");
    Reuse(*held, held);
    AppendLine(*held, "A");
  }
  EXPECT_EQ(RowCountOf(*held), 0);
  KORUnicodeString identifier;
  EXPECT_EQ(held->GetValue("PLM_ExternalID", identifier), S_OK);
  EXPECT_EQ(identifier, "TA");
}

constexpr int ChainLength = 100000;

TEST(ReuseChainTest, OfTheModelEndsWithoutTheStack) {
  const KORFreshSession session;
  Analysis_var below = KORModel::Current().CreateTimeAnalysis("0");
  for (int level = 1; level < ChainLength; ++level) {
    const auto analysis = KORModel::Current().CreateTimeAnalysis(KORUnicodeString::FromInteger(level));
    Reuse(*analysis, below);
    below = analysis;
  }
}

TEST(ReuseChainTest, HeldAtItsTopAloneEndsWithoutTheStack) {
  const long before = KORBaseUnknown::CountLiveObjects();
  Analysis_var top = NewAnalysis("0");
  for (int level = 1; level < ChainLength; ++level) {
    const Analysis_var analysis = NewAnalysis("block");
    Reuse(*analysis, top);
    top = analysis;
  }
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + ChainLength);
  top = nullptr;
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

TEST(ReuseChainTest, LosesItsTopByRemovalReplacementAndRecord) {
  const long before = KORBaseUnknown::CountLiveObjects();
  for (int way = 0; way < 3; ++way) {
    Analysis_var top = NewAnalysis("0");
    for (int level = 1; level < 1000; ++level) {
      const Analysis_var analysis = NewAnalysis("block");
      Reuse(*analysis, top);
      top = analysis;
    }
    const Analysis_var user = NewAnalysis("user");
    Reuse(*user, std::exchange(top, nullptr));
    VEXTimeAnalysisLineData line;
    if (way == 0) {
      ASSERT_EQ(user->RemoveAllLines(), S_OK);
    } else if (way == 1) {
      ASSERT_EQ(user->SetLine(1, line), S_OK);
    } else {
      ASSERT_EQ(user->GetLine(1, line), S_OK);
      ASSERT_EQ(user->RemoveAllLines(), S_OK);
      EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 1002);  // the chain, its user and the record
      line.SetValue("TimeAnalysis", KORBaseUnknown_var());
    }
    EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 2) << "way " << way;
  }
}

// The default session ends with the process, when the thread that ran it is past its own end.
TEST(KORModelDeathTest, DefaultSessionEndsWithTheProcess) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  EXPECT_EXIT(
      {
        // One object ends with the thread still running, the others when it has ended.
        KORBaseUnknown_var::Adopt(new KORBaseUnknown);
        std::vector<Analysis_var> analyses;
        for (const char* identifier : {"A", "B"})
          analyses.push_back(KORModel::Current().CreateTimeAnalysis(identifier));
        ReuseAllOf(analyses);
        analyses.clear();
        std::exit(KORModel::Current().GetTimeAnalyses().size() == 2 ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
}

}  // namespace
