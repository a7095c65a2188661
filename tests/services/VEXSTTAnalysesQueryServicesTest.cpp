// Time analyses looked up by their attributes.
#include "platform/services/VEXSTTAnalysesQueryServices.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <utility>

#include "platform/base/KORHandle.h"
#include "platform/base/KORStatus.h"
#include "platform/model/KORModel.h"
#include "platform/system/KORSession.h"

namespace {

using Analysis_var = KORHandle<VEXTimeAnalysisRepReference>;
using Pairs = std::initializer_list<std::pair<const char*, const char*>>;

VEXSTTAdpIdentificationSet SetOf(Pairs pairs) {
  VEXSTTAdpIdentificationSet set;
  for (const auto& [name, value] : pairs) EXPECT_EQ(set.AddAttribute(name, value), S_OK);
  return set;
}

class AnalysesQueryTest : public testing::Test {
 protected:
  static Analysis_var Create(const char* identifier, Pairs attributes = {}) {
    Analysis_var analysis = KORModel::Current().CreateTimeAnalysis(identifier);
    for (const auto& [name, value] : attributes) (void)analysis->SetValue(name, KORUnicodeString(value));
    return analysis;
  }

  // What the set identifies; nothing, and `status`, if that is no object.
  static KORBaseUnknown_var Find(const VEXSTTAdpIdentificationSet& set, long status = S_OK) {
    KORBaseUnknown unrelated;
    KORBaseUnknown* element = &unrelated;
    EXPECT_EQ(VEXSTTAnalysesQueryServices::GetElementByIdentificationSet(set, element), status);
    EXPECT_EQ(element == nullptr, Failed(status));
    return KORBaseUnknown_var::Adopt(element);
  }

  // The identifiers of the listed analyses, with a blank behind each; the list is filled anew.
  static std::string Listed(const KORListValKORBaseUnknown_var& list) {
    std::string identifiers;
    for (const KORBaseUnknown_var& object : list) {
      const auto value = KORIValue_var::Adopt(KORIInstance_var(object)->GetAttribute("PLM_ExternalID"));
      KORUnicodeString identifier;
      EXPECT_EQ(value->GetText(identifier), S_OK);
      identifiers.append(identifier.Bytes()).append(" ");
    }
    return identifiers;
  }

  // The identifiers of the analyses that the set finds.
  std::string FindAll(const VEXSTTAdpIdentificationSet& set, long status = S_OK) {
    EXPECT_EQ(VEXSTTAnalysesQueryServices::GetElementsFromAttributes(set, _List, _Bag), status);
    return Listed(_List);
  }

  const KORFreshSession _Session;
  KOROmbLifeCycleRootsBag _Bag;
  KORListValKORBaseUnknown_var _List;
};

TEST_F(AnalysesQueryTest, FindsByOneAttribute) {
  Create("TA 1");
  const Analysis_var second = Create("TA 2");
  const KORBaseUnknown_var found = Find(SetOf({{"PLM_ExternalID", "TA 2"}}));
  EXPECT_TRUE(found == second);
  EXPECT_FALSE(VEXITimeAnalysisLines_var(found).IsNull());
}

TEST_F(AnalysesQueryTest, EveryAttributeHasToHold) {
  Create("TA", {{"revision", "A"}, {"V_Name", "grip"}});
  const Analysis_var second = Create("TA", {{"revision", "B"}, {"V_Name", "grip"}});
  EXPECT_TRUE(Find(SetOf({{"PLM_ExternalID", "TA"}, {"revision", "B"}})) == second);
  EXPECT_TRUE(Find(SetOf({{"revision", "B"}, {"V_Name", "grip"}, {"PLM_ExternalID", "TA"}})) == second);
  Find(SetOf({{"PLM_ExternalID", "TA"}, {"revision", "C"}}), E_FAIL);
}

TEST_F(AnalysesQueryTest, OfSeveralTheFirstOneMadeIsGiven) {
  const Analysis_var first = Create("TA", {{"revision", "B"}});
  Create("TA", {{"revision", "A"}});
  EXPECT_TRUE(Find(SetOf({{"PLM_ExternalID", "TA"}})) == first);
}

TEST_F(AnalysesQueryTest, PairsOfTheSameNameBothHaveToHold) {
  const Analysis_var analysis = Create("TA");
  EXPECT_TRUE(Find(SetOf({{"PLM_ExternalID", "TA"}, {"PLM_ExternalID", "TA"}})) == analysis);
  Find(SetOf({{"PLM_ExternalID", "TA"}, {"PLM_ExternalID", "TB"}}), E_FAIL);
}

TEST_F(AnalysesQueryTest, ValuesAreComparedLetterForLetter) {
  Create("Gr\xC3\xB6\xC3\x9F\x65");
  Find(SetOf({{"PLM_ExternalID", "gr\xC3\xB6\xC3\x9F\x65"}}), E_FAIL);
  Find(SetOf({{"PLM_ExternalID", "Gr\xC3\xB6\xC3\x9F"}}), E_FAIL);
  Find(SetOf({{"PLM_ExternalID", ""}}), E_FAIL);
  Find(SetOf({{"plm_externalid", "Gr\xC3\xB6\xC3\x9F\x65"}}), E_FAIL);
  EXPECT_FALSE(Find(SetOf({{"PLM_ExternalID", "Gr\xC3\xB6\xC3\x9F\x65"}})).IsNull());
}

TEST_F(AnalysesQueryTest, OnlyTextsAreCompared) {
  const Analysis_var analysis = Create("TA");
  (void)analysis->SetValue("count", 5);
  Find(SetOf({{"count", "5"}}), E_FAIL);
  (void)analysis->SetValue("count", KORUnicodeString("5"));
  EXPECT_TRUE(Find(SetOf({{"count", "5"}})) == analysis);
}

TEST_F(AnalysesQueryTest, AnAttributeThatIsNotSetIsNotEmpty) {
  Create("TA 1");
  const Analysis_var empty = Create("TA 2", {{"revision", ""}});
  EXPECT_TRUE(Find(SetOf({{"revision", ""}})) == empty);
}

TEST_F(AnalysesQueryTest, NothingIsFoundWhereNothingIs) {
  Find(SetOf({{"PLM_ExternalID", "TA"}}), E_FAIL);
  KORModel::Current().CreateOtherRepReference("TA");
  KORModel::Current().CreateOperation("TA");
  Find(SetOf({{"PLM_ExternalID", "TA"}}), E_FAIL);
}

TEST_F(AnalysesQueryTest, AnEmptySetIdentifiesNothing) {
  Create("TA");
  Find(VEXSTTAdpIdentificationSet(), E_INVALIDARG);
}

TEST_F(AnalysesQueryTest, SessionsDoNotSeeEachOther) {
  Create("TA");
  const KORFreshSession other;
  Find(SetOf({{"PLM_ExternalID", "TA"}}), E_FAIL);
}

TEST_F(AnalysesQueryTest, FaultsLeaveNothing) {
  Create("TA");
  VEXSTTAdpIdentificationSet set = SetOf({{"PLM_ExternalID", "TA"}});
  KORSession::Current().InjectFault("AddAttribute", E_NOINTERFACE);
  EXPECT_EQ(set.AddAttribute("revision", "A"), E_NOINTERFACE);
  EXPECT_EQ(set.GetAttributes().size(), 1u);
  KORSession::Current().InjectFault("GetElementByIdentificationSet", E_NOINTERFACE);
  Find(set, E_NOINTERFACE);
}

TEST_F(AnalysesQueryTest, FindsAllInTheOrderOfTheirMaking) {
  Create("TA 3", {{"revision", "A"}});
  Create("TA 1", {{"revision", "B"}});
  Create("TA 2", {{"revision", "A"}});
  EXPECT_EQ(FindAll(SetOf({{"revision", "A"}})), "TA 3 TA 2 ");
  EXPECT_EQ(_Bag.Size(), 2);
}

TEST_F(AnalysesQueryTest, FindsAllOfOneIdentifier) {
  const Analysis_var first = Create("TA");
  Create("TB");
  Create("TA");
  EXPECT_EQ(FindAll(SetOf({{"PLM_ExternalID", "TA"}})), "TA TA ");
  EXPECT_TRUE(_List[1] == first);
}

TEST_F(AnalysesQueryTest, FindingNoneOfAllIsASuccess) {
  Create("TA");
  _List.Append(NULL_var);
  EXPECT_EQ(FindAll(SetOf({{"PLM_ExternalID", "TB"}})), "");
  EXPECT_EQ(FindAll(SetOf({{"PLM_ExternalID", ""}})), "");
  EXPECT_EQ(_Bag.Size(), 0);
}

TEST_F(AnalysesQueryTest, AnEmptySetFindsNone) {
  Create("TA");
  _List.Append(NULL_var);
  EXPECT_EQ(FindAll(VEXSTTAdpIdentificationSet(), E_INVALIDARG), "");
  EXPECT_EQ(_Bag.Size(), 0);
}

TEST_F(AnalysesQueryTest, GivesAllAnalysesAndNothingElse) {
  Create("TA 2");
  KORModel::Current().CreateOtherRepReference("shape");
  KORModel::Current().CreateOperation("OP");
  Create("TA 1");
  _List.Append(NULL_var);
  EXPECT_EQ(VEXSTTAnalysesQueryServices::GetAllTimeAnalysis(_List, _Bag), S_OK);
  EXPECT_EQ(Listed(_List), "TA 2 TA 1 ");
  const KORFreshSession other;
  EXPECT_EQ(VEXSTTAnalysesQueryServices::GetAllTimeAnalysis(_List, _Bag), S_OK);
  EXPECT_EQ(_List.Size(), 0);
}

TEST_F(AnalysesQueryTest, TheBagKeepsWhatWasFoundAlive) {
  const long before = KORBaseUnknown::CountLiveObjects();
  {
    KOROmbLifeCycleRootsBag bag;
    {
      const KORFreshSession ended;
      Create("TA");
      KORListValKORBaseUnknown_var found;
      EXPECT_EQ(VEXSTTAnalysesQueryServices::GetAllTimeAnalysis(found, bag), S_OK);
    }
    EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 1);
  }
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

}  // namespace
