// Representation references: what they hold beside their attributes, and how it is reached.
#include "platform/model/KORRepReference.h"

#include <gtest/gtest.h>

#include "platform/model/KOROperation.h"
#include "platform/system/KORSession.h"
#include "tests/model/ModelTest.h"

namespace {

using modeltest::Analysis_var;
using modeltest::NewAnalysis;

TEST(KORRepReferenceTest, NewOneIsTheLastMajorRevisionAndHoldsNothing) {
  const auto analysis = NewAnalysis("TA");
  const KORRepContent& content = analysis->GetContent();
  EXPECT_TRUE(content.IsLastMajorRevision);
  EXPECT_TRUE(content.Alias.IsEmpty());
  EXPECT_TRUE(content.LegacyStreamPath.IsEmpty());
  EXPECT_TRUE(content.Streams.IsEmpty());
  EXPECT_TRUE(content.Container.IsNull());
}

TEST(KORRepReferenceTest, EveryKindOffersItsDataToItsUsers) {
  const KORHandle<KORRepReference> other = KORHandle<KORRepReference>::Adopt(new KORRepReference("Shape"));
  for (const KORBaseUnknown_var& object : {KORBaseUnknown_var(NewAnalysis("TA")), KORBaseUnknown_var(other)}) {
    EXPECT_TRUE(PLMIRepReferenceApplicativeDataAccess_var(object) == object);
    EXPECT_TRUE(PLMIRepReferenceNonZENTADataAccess_var(object) == object);
  }
}

// The display name

TEST(AliasTest, IsOfferedByEveryKind) {
  const KORHandle<KORRepReference> other = KORHandle<KORRepReference>::Adopt(new KORRepReference("Shape"));
  for (const KORBaseUnknown_var& object : {KORBaseUnknown_var(NewAnalysis("TA")), KORBaseUnknown_var(other)}) {
    const KORIAlias_var named = object;
    ASSERT_FALSE(named.IsNull());
    EXPECT_TRUE(named == object);
    EXPECT_EQ(named->GetImpl(0), object.Get());
  }
}

TEST(AliasTest, IsTheOneThatWasSetLast) {
  const auto analysis = NewAnalysis("TA");
  const KORIAlias_var named = analysis;
  EXPECT_TRUE(named->GetAlias().IsEmpty()) << "the identifier is no display name";
  for (const char* const alias : {"Mounting the door", "Tür einhängen", ""}) {
    analysis->GetContent().Alias = alias;
    EXPECT_EQ(named->GetAlias(), alias);
  }
}

TEST(AliasTest, EachRepresentationHasItsOwn) {
  const auto first = NewAnalysis("TA1");
  const auto second = NewAnalysis("TA2");
  first->GetContent().Alias = "first";
  second->GetContent().Alias = "second";
  EXPECT_EQ(KORIAlias_var(first)->GetAlias(), "first");
  EXPECT_EQ(KORIAlias_var(second)->GetAlias(), "second");
}

TEST(AliasTest, IsNotOfferedByAnInstance) {
  const auto instance = KORHandle<KORRepInstance>::Adopt(new KORRepInstance(PLMIRepReference_var(NewAnalysis("TA"))));
  EXPECT_TRUE(KORIAlias_var(instance).IsNull());
}

// Applicative containers

KORIContainer_var Create(const Analysis_var& analysis, const KORUnicodeString& name, long expected = S_OK) {
  int anything = 0;
  void* out = &anything;
  const PLMIRepReferenceApplicativeDataAccess_var access = analysis;
  EXPECT_EQ(
      access->CreateApplicativeContainer(&out, "VEXTimeAnalysisModel", KORIContainer::ClassId(), "KORFeatCont", name),
      expected);
  return KORIContainer_var::Adopt(static_cast<KORIContainer*>(out));
}

KORIContainer_var Retrieve(const Analysis_var& analysis, const KORUnicodeString& name, long expected = S_OK) {
  int anything = 0;
  void* out = &anything;
  const PLMIRepReferenceApplicativeDataAccess_var access = analysis;
  EXPECT_EQ(access->RetrieveApplicativeContainer(name, KORIContainer::ClassId(), &out), expected);
  return KORIContainer_var::Adopt(static_cast<KORIContainer*>(out));
}

TEST(ApplicativeContainerTest, CreatedOneIsFoundByItsName) {
  const auto analysis = NewAnalysis("TA");
  const KORIContainer_var created = Create(analysis, "VEXTimeAnalysisCont");
  ASSERT_FALSE(created.IsNull());
  EXPECT_TRUE(Retrieve(analysis, "VEXTimeAnalysisCont") == created);
  EXPECT_TRUE(analysis->GetContent().Container == created);
  EXPECT_EQ(analysis->GetContent().Container->GetModel(), "VEXTimeAnalysisModel");
  EXPECT_EQ(analysis->GetContent().Container->GetName(), "VEXTimeAnalysisCont");
}

TEST(ApplicativeContainerTest, AnyTextIsAName) {
  const auto analysis = NewAnalysis("TA");
  const KORIContainer_var created = Create(analysis, "");
  EXPECT_TRUE(Retrieve(analysis, "") == created);
}

TEST(ApplicativeContainerTest, IsNotFoundUnderAnotherName) {
  const auto analysis = NewAnalysis("TA");
  EXPECT_TRUE(Retrieve(analysis, "VEXTimeAnalysisCont", E_FAIL).IsNull());
  EXPECT_TRUE(Retrieve(analysis, "", E_FAIL).IsNull());
  Create(analysis, "VEXTimeAnalysisCont");
  EXPECT_TRUE(Retrieve(analysis, "VEXTIMEANALYSISCONT", E_FAIL).IsNull());
  EXPECT_TRUE(Retrieve(analysis, "", E_FAIL).IsNull());
}

TEST(ApplicativeContainerTest, ASecondOneIsRefusedAndTheFirstStays) {
  const auto analysis = NewAnalysis("TA");
  const KORIContainer_var first = Create(analysis, "First");
  EXPECT_TRUE(Create(analysis, "First", E_FAIL).IsNull());
  EXPECT_TRUE(Create(analysis, "Second", E_FAIL).IsNull());
  EXPECT_TRUE(Retrieve(analysis, "First") == first);
  Retrieve(analysis, "Second", E_FAIL);
}

TEST(ApplicativeContainerTest, EachRepresentationHasItsOwn) {
  const auto first = NewAnalysis("TA1");
  const auto second = NewAnalysis("TA2");
  const KORIContainer_var of_first = Create(first, "Name");
  Retrieve(second, "Name", E_FAIL);
  EXPECT_FALSE(Create(second, "Name") == of_first);
}

struct RefusalRow {
  const char* Name;
  const char* Model;
  const char* Type;
  KORUuid Interface;
  long Status;
};

class RefusedContainerTest : public testing::TestWithParam<RefusalRow> {};

TEST_P(RefusedContainerTest, ChangesNothing) {
  const auto analysis = NewAnalysis("TA");
  int anything = 0;
  void* out = &anything;
  EXPECT_EQ(analysis->CreateApplicativeContainer(&out, GetParam().Model, GetParam().Interface, GetParam().Type, "Name"),
            GetParam().Status);
  EXPECT_EQ(out, nullptr);
  EXPECT_TRUE(analysis->GetContent().Container.IsNull());
  EXPECT_FALSE(Create(analysis, "Name").IsNull());
}

INSTANTIATE_TEST_SUITE_P(
    Arguments, RefusedContainerTest,
    testing::Values(RefusalRow{"NullModel", nullptr, "KORFeatCont", KORIContainer::ClassId(), E_INVALIDARG},
                    RefusalRow{"NullType", "Model", nullptr, KORIContainer::ClassId(), E_INVALIDARG},
                    RefusalRow{"EmptyType", "Model", "", KORIContainer::ClassId(), E_INVALIDARG},
                    RefusalRow{"OtherType", "Model", "KORData", KORIContainer::ClassId(), E_INVALIDARG},
                    RefusalRow{"TypeInOtherCase", "Model", "korfeatcont", KORIContainer::ClassId(), E_INVALIDARG},
                    RefusalRow{"OtherInterface", "Model", "KORFeatCont", KORISpecObject::ClassId(), E_NOINTERFACE}),
    modeltest::NameOfRow());

TEST(ApplicativeContainerTest, NullPlaceIsRefused) {
  const auto analysis = NewAnalysis("TA");
  EXPECT_EQ(analysis->CreateApplicativeContainer(nullptr, "Model", KORIContainer::ClassId(), "KORFeatCont", "Name"),
            E_INVALIDARG);
  EXPECT_TRUE(analysis->GetContent().Container.IsNull());
  Create(analysis, "Name");
  EXPECT_EQ(analysis->RetrieveApplicativeContainer("Name", KORIContainer::ClassId(), nullptr), E_INVALIDARG);
}

TEST(ApplicativeContainerTest, IsNotGivenByAnInterfaceThatItDoesNotOffer) {
  const auto analysis = NewAnalysis("TA");
  Create(analysis, "Name");
  int anything = 0;
  void* out = &anything;
  EXPECT_EQ(analysis->RetrieveApplicativeContainer("Name", KORISpecObject::ClassId(), &out), E_NOINTERFACE);
  EXPECT_EQ(out, nullptr);
}

TEST(ApplicativeContainerTest, LivesAsLongAsItsOwner) {
  const long before = KORBaseUnknown::CountLiveObjects();
  auto analysis = NewAnalysis("TA");
  Create(analysis, "Name");
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 2);
  analysis = nullptr;
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

TEST(ApplicativeContainerTest, DoesNotKeepItsOwnerAlive) {
  const long before = KORBaseUnknown::CountLiveObjects();
  auto analysis = NewAnalysis("TA");
  KORIContainer_var container = Create(analysis, "Name");
  analysis = nullptr;
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 1);
  EXPECT_EQ(container->ListMembers(KORISpecObject::ClassName())->Size(), 0);
  container = nullptr;
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
}

TEST(ApplicativeContainerTest, IsNotKeptWhereItsMakingFails) {
  KORFreshSession session;
  const auto analysis = NewAnalysis("TA");
  session.InjectFault("CreateApplicativeContainer", KORFault{E_FAIL, KORFault::Kind::NullAlone, KORFault::Life::Once});
  EXPECT_TRUE(Create(analysis, "Name").IsNull());
  EXPECT_TRUE(analysis->GetContent().Container.IsNull());
  EXPECT_FALSE(Create(analysis, "Name").IsNull());
}

// The legacy stream

TEST(LegacyStreamTest, IsTheFileThatWasSet) {
  const auto analysis = NewAnalysis("TA");
  analysis->GetContent().LegacyStreamPath = "/data/TA.txt";
  KORUnicodeString path("before");
  EXPECT_EQ(PLMIRepReferenceNonZENTADataAccess_var(analysis)->GetStreamFilePath(path), S_OK);
  EXPECT_EQ(path, "/data/TA.txt");
}

TEST(LegacyStreamTest, MissesOnARepresentationWithoutOne) {
  KORUnicodeString path("before");
  EXPECT_EQ(NewAnalysis("TA")->GetStreamFilePath(path), E_FAIL);
  EXPECT_TRUE(path.IsEmpty());
}

}  // namespace
