// Time analyses looked up by their attributes.
#include "platform/services/VEXSTTAnalysesQueryServices.h"

#include <gtest/gtest.h>

#include <initializer_list>
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

  const KORFreshSession _Session;
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

}  // namespace
