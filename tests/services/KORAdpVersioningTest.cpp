// What the database tells of the revisions of objects.
#include "platform/services/KORAdpVersioning.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/base/KORStatus.h"
#include "platform/model/KORModel.h"
#include "platform/system/KORSession.h"

namespace {

using Analysis_var = KORHandle<VEXTimeAnalysisRepReference>;
using Order = KORVersioningDatabase::Order;

class KORAdpVersioningTest : public testing::Test {
 protected:
  static Analysis_var Create(const char* identifier, bool is_last = true) {
    Analysis_var analysis = KORModel::Current().CreateTimeAnalysis(identifier);
    analysis->GetContent().IsLastMajorRevision = is_last;
    return analysis;
  }

  static KORIAdpPLMIdentificator_var IdentificatorOf(KORIPLMComponent& component) {
    KORIAdpPLMIdentificator* identificator = nullptr;
    EXPECT_EQ(component.GetPLMIdentificator(identificator), S_OK);
    return KORIAdpPLMIdentificator_var::Adopt(identificator);
  }

  /// Asks for the identificators in their order.
  long AskFor(const std::vector<KORIAdpPLMIdentificator_var>& identificators) {
    KORListPtrKORIAdpPLMIdentificator list;
    for (const KORIAdpPLMIdentificator_var& identificator : identificators) list.Append(identificator.Get());
    return KORAdpProtectedVersioningServices::GetVersioningInfo(list, 1, 1, _Infos, nullptr);
  }

  long Ask(const std::vector<Analysis_var>& analyses) {
    std::vector<KORIAdpPLMIdentificator_var> identificators;
    for (const Analysis_var& analysis : analyses) identificators.push_back(IdentificatorOf(*analysis));
    return AskFor(identificators);
  }

  /// What an information tells: the identifier of its analysis, with "+" for a last major revision and "-" for another.
  static std::string TextOf(const KORAdpVersioningInfo& information) {
    KORAdpMajorInformation major;
    EXPECT_EQ(information.GetMajorVersioningInformation(major), S_OK);
    unsigned char is_last = 9;
    EXPECT_EQ(major.IsLastMajor(is_last), S_OK);
    KORIAdpPLMIdentificator* element = nullptr;
    EXPECT_EQ(information.GetElement(element), S_OK);
    const auto held = KORIAdpPLMIdentificator_var::Adopt(element);
    for (const Analysis_var& analysis : KORModel::Current().GetTimeAnalyses()) {
      unsigned char same = 0;
      EXPECT_EQ(IdentificatorOf(*analysis)->IsSameAs(element, same), S_OK);
      if (same == 0) continue;
      const auto value = KORIValue_var::Adopt(analysis->GetAttribute("PLM_ExternalID"));
      KORUnicodeString identifier;
      EXPECT_EQ(value->GetText(identifier), S_OK);
      return std::string(identifier.Bytes()) + (is_last == 1 ? "+" : "-");
    }
    return "?";
  }

  /// What all informations tell so far, with a blank behind each.
  std::string Told() const {
    std::string told;
    for (const KORAdpVersioningInfo& information : _Infos) told += TextOf(information) + " ";
    return told;
  }

  const KORFreshSession _Session;
  KORVersioningDatabase& _Database = KORVersioningDatabase::Current();
  KORListValKORAdpVersioningInfo _Infos;
};

TEST_F(KORAdpVersioningTest, TellsLastRevisionsFromOthers) {
  EXPECT_EQ(Ask({Create("A"), Create("B", false)}), S_OK);
  EXPECT_EQ(Told(), "A+ B- ");
}

TEST_F(KORAdpVersioningTest, TellsTheRevisionOfTheMomentOfTheQuery) {
  const Analysis_var analysis = Create("A");
  EXPECT_EQ(Ask({analysis}), S_OK);
  analysis->GetContent().IsLastMajorRevision = false;
  EXPECT_EQ(Ask({analysis}), S_OK);
  EXPECT_EQ(Told(), "A+ A- ");
}

TEST_F(KORAdpVersioningTest, AnswersAreAppendedOneForEachIdentificator) {
  const Analysis_var analysis = Create("A");
  EXPECT_EQ(Ask({Create("B")}), S_OK);
  EXPECT_EQ(Ask({analysis, analysis}), S_OK);
  EXPECT_EQ(Told(), "B+ A+ A+ ");
}

TEST_F(KORAdpVersioningTest, WhatTheDatabaseDoesNotKnowIsLeftOut) {
  const Analysis_var unknown = Create("new");
  unknown->GetContent().IsInDatabase = false;
  EXPECT_EQ(Ask({Create("A"), unknown, Create("B")}), S_OK);
  EXPECT_EQ(Told(), "A+ B+ ");
}

TEST_F(KORAdpVersioningTest, ObjectsThatAreGoneOrAreNoRepresentationsAreLeftOut) {
  KORIAdpPLMIdentificator_var of_gone;
  {
    const auto gone = Analysis_var::Adopt(new VEXTimeAnalysisRepReference("gone"));
    of_gone = IdentificatorOf(*gone);
  }
  const auto operation = KORModel::Current().CreateOperation("OP");
  const auto other = KORModel::Current().CreateOtherRepReference("shape");
  EXPECT_EQ(AskFor({of_gone, IdentificatorOf(*operation), IdentificatorOf(*other)}), S_OK);
  ASSERT_EQ(_Infos.Size(), 1);
  KORIAdpPLMIdentificator* element = nullptr;
  ASSERT_EQ(_Infos[1].GetElement(element), S_OK);
  EXPECT_TRUE(KORIAdpPLMIdentificator_var::Adopt(element) == IdentificatorOf(*other));
}

class ForeignIdentificator final : public KORImplements<KORIAdpPLMIdentificator> {
 public:
  long IsSameAs(KORIAdpPLMIdentificator* /*other*/, unsigned char& same) override {
    same = 0;
    return S_OK;
  }
};

TEST_F(KORAdpVersioningTest, IdentificatorsOfAnotherModelAreLeftOut) {
  const auto foreign = KORIAdpPLMIdentificator_var::Adopt(new ForeignIdentificator);
  EXPECT_EQ(AskFor({foreign}), S_OK);
  EXPECT_EQ(_Infos.Size(), 0);
}

TEST_F(KORAdpVersioningTest, AnswersInTheOrderOfTheDatabase) {
  const std::vector<Analysis_var> analyses = {Create("A"), Create("B"), Create("C")};
  _Database.SetOrder(Order::Reversed);
  EXPECT_EQ(Ask(analyses), S_OK);
  _Database.SetOrder(Order::AsAsked);
  EXPECT_EQ(Ask(analyses), S_OK);
  EXPECT_EQ(Told(), "C+ B+ A+ A+ B+ C+ ");
}

TEST_F(KORAdpVersioningTest, AnswersWithWhatWasNotAskedFor) {
  const std::vector<Analysis_var> asked = {Create("A"), Create("B")};
  _Database.AnswerBesides({IdentificatorOf(*Create("C")), false});
  _Database.AnswerBesides({IdentificatorOf(*asked[0]), false});
  _Database.SetOrder(Order::Reversed);
  EXPECT_EQ(Ask(asked), S_OK);
  EXPECT_EQ(Told(), "B+ A+ C- A- ");
  EXPECT_EQ(Ask({}), S_OK);
  EXPECT_EQ(Told(), "B+ A+ C- A- C- A- ");
}

TEST_F(KORAdpVersioningTest, CountsQueriesNotIdentificators) {
  const std::vector<Analysis_var> analyses = {Create("A"), Create("B")};
  EXPECT_EQ(_Database.GetQueryCount(), 0);
  EXPECT_EQ(Ask(analyses), S_OK);
  EXPECT_EQ(_Database.GetQueryCount(), 1);
  EXPECT_EQ(Ask({}), S_OK);
  EXPECT_EQ(_Database.GetQueryCount(), 2);
}

TEST_F(KORAdpVersioningTest, AFailedQueryWasAskedToo) {
  KORSession::Current().InjectFault("GetVersioningInfo", E_NOINTERFACE);
  EXPECT_EQ(Ask({Create("A")}), E_NOINTERFACE);
  EXPECT_EQ(_Infos.Size(), 0);
  EXPECT_EQ(_Database.GetQueryCount(), 1);
}

TEST_F(KORAdpVersioningTest, ANullIdentificatorIsRefused) {
  const KORIAdpPLMIdentificator_var known = IdentificatorOf(*Create("A"));
  EXPECT_EQ(AskFor({known, NULL_var, known}), E_INVALIDARG);
  EXPECT_EQ(_Infos.Size(), 0);
  EXPECT_EQ(_Database.GetQueryCount(), 1);
}

TEST_F(KORAdpVersioningTest, SessionsHaveDatabasesOfTheirOwn) {
  EXPECT_EQ(Ask({Create("A")}), S_OK);
  const KORFreshSession other;
  EXPECT_EQ(KORVersioningDatabase::Current().GetQueryCount(), 0);
}

TEST_F(KORAdpVersioningTest, InformationWithoutAnElementGivesNone) {
  const KORAdpVersioningInfo information(NULL_var, true);
  int anything = 0;
  auto* element = reinterpret_cast<KORIAdpPLMIdentificator*>(&anything);
  EXPECT_EQ(information.GetElement(element), E_FAIL);
  EXPECT_EQ(element, nullptr);
}

TEST_F(KORAdpVersioningTest, MajorInformationStartsAsThatOfAnEarlierRevision) {
  unsigned char is_last = 9;
  EXPECT_EQ(KORAdpMajorInformation().IsLastMajor(is_last), S_OK);
  EXPECT_EQ(is_last, 0);
}

TEST_F(KORAdpVersioningTest, ListOfInformationsLocatesByElement) {
  EXPECT_EQ(Ask({Create("A"), Create("B")}), S_OK);
  EXPECT_EQ(_Infos.Locate(_Infos[2]), 2);
  EXPECT_EQ(_Infos.Locate({IdentificatorOf(*Create("C")), true}), 0);
}

TEST_F(KORAdpVersioningTest, EveryRequestHasAMonitorOfItsOwn) {
  KORIAdpErrorMonitor* first = nullptr;
  KORIAdpErrorMonitor* second = nullptr;
  ASSERT_EQ(KORAdpErrorMonitorFactory::CreateErrorMonitor(KORUuid(), first), S_OK);
  ASSERT_EQ(KORAdpErrorMonitorFactory::CreateErrorMonitor(KORUuid(), second), S_OK);
  EXPECT_NE(first, second);
  EXPECT_EQ(first->Release(), 0u);
  EXPECT_EQ(second->Release(), 0u);
}

}  // namespace
