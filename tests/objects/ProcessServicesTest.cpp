// What is fetched once for the process: the factory of time analyses and the table of kept components.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "VEXSTTProvider.h"
#include "tests/objects/ObjectsTest.h"

namespace {

using objectstest::AllFaults;
using objectstest::ExpectOutcomeUnderFault;
using objectstest::FaultCase;
using objectstest::FaultCaseName;
using objectstest::InjectedStatus;
using objectstest::NewAnalysis;
using objectstest::ObjectsRowTest;
using objectstest::ObjectsTest;
using objectstest::ReferencesOf;
using objectstest::StatusName;

using Factory_var = PLMIRepresentationReferenceFactory_var;
using Manager_var = VEXITimeAnalysisSessionServicesMgr_var;

// ---- The factory ----

// Leaves no factory to the tests that follow.
class GetRepRefFactoryTest : public ObjectsRowTest<FaultCase> {
 protected:
  static Factory_var Get() {
    PLMIRepresentationReferenceFactory* factory = nullptr;
    EXPECT_EQ(VEXSTTProvider::GetRepRefFactory(factory), S_OK);
    return Factory_var::Adopt(factory);
  }

  // The status, and whether there is a factory.
  static std::string Fetch() {
    int anything = 0;
    auto* factory = reinterpret_cast<PLMIRepresentationReferenceFactory*>(&anything);
    const long status = VEXSTTProvider::GetRepRefFactory(factory);
    return StatusName(status) + (Factory_var::Adopt(factory).IsNull() ? " null" : " factory");
  }

 private:
  const VEXSTTProvider _LetsGoOfTheFactory{};
};

TEST_F(GetRepRefFactoryTest, GivesTheSameOneEachTime) {
  const Factory_var factory = Get();
  EXPECT_FALSE(factory.IsNull());
  EXPECT_EQ(Get(), factory);
}

TEST_F(GetRepRefFactoryTest, EachComesWithAReference) {
  const Factory_var first = Get();
  const unsigned long references = ReferencesOf(*first);
  const Factory_var second = Get();
  EXPECT_EQ(ReferencesOf(*first), references + 1);
}

TEST_F(GetRepRefFactoryTest, OnceFetchedItIsNotAskedForAgain) {
  const Factory_var factory = Get();
  _Session.InjectFault("GetRepresentationReferenceFactory", InjectedStatus);
  EXPECT_EQ(Get(), factory);
}

TEST_F(GetRepRefFactoryTest, TheEndOfAnyProviderLetsItGo) {
  const Factory_var before = Get();
  { const VEXSTTProvider provider; }
  EXPECT_EQ(ReferencesOf(*before), 1u) << "who asked for it keeps it";
  const Factory_var after = Get();
  EXPECT_FALSE(after == before);
  {
    const VEXSTTProvider provider;
    const VEXSTTProvider copy(provider);
  }
  EXPECT_EQ(ReferencesOf(*after), 1u);
  _Session.InjectFault("GetRepresentationReferenceFactory", InjectedStatus);
  EXPECT_EQ(Fetch(), "E_FAIL null");
}

TEST_F(GetRepRefFactoryTest, OutlivesTheSessionAndServesTheNext) {
  Factory_var factory;
  {
    const KORFreshSession session;
    factory = Get();
  }
  const KORFreshSession session;
  EXPECT_EQ(Get(), factory);
}

TEST_P(GetRepRefFactoryTest, AFaultIsAFailureAndIsForgotten) {
  const auto fetch = [] {
    const std::string outcome = Fetch();
    const VEXSTTProvider lets_go;
    return outcome;
  };
  ExpectOutcomeUnderFault(_Session, GetParam(), fetch, "S_OK factory");
}

INSTANTIATE_TEST_SUITE_P(Calls, GetRepRefFactoryTest,
                         testing::ValuesIn(AllFaults({
                             {"GetRepresentationReferenceFactory", "E_FAIL null", "E_FAIL null", "E_FAIL null"},
                         })),
                         FaultCaseName());

// ---- The table of kept components ----

Manager_var Manager() {
  VEXITimeAnalysisSessionServicesMgr* manager = nullptr;
  EXPECT_EQ(VEXSTTProvider::GetSessionServicesMgr(manager), S_OK);
  return Manager_var::Adopt(manager);
}

class GetSessionServicesMgrTest : public ObjectsTest {
 protected:
  // The process keeps it to its end, and so it is made before a test counts objects.
  static void SetUpTestSuite() { (void)Manager(); }
};

TEST_F(GetSessionServicesMgrTest, GivesTheSameOneEachTime) {
  const Manager_var manager = Manager();
  const unsigned long references = ReferencesOf(*manager);
  EXPECT_EQ(Manager(), manager);
  EXPECT_EQ(ReferencesOf(*manager), references);
}

TEST_F(GetSessionServicesMgrTest, OnceMadeItIsNotMadeAgain) {
  const Manager_var manager = Manager();
  _Session.InjectFault("KORInstantiateComponent", InjectedStatus);
  EXPECT_EQ(Manager(), manager);
}

TEST_F(GetSessionServicesMgrTest, OutlivesSessionsAndProviders) {
  const Manager_var manager = Manager();
  { const VEXSTTProvider provider; }
  const KORFreshSession session;
  EXPECT_EQ(Manager(), manager);
}

TEST_F(GetSessionServicesMgrTest, IsTheTableOfTheProcess) {
  const auto analysis = NewAnalysis("A");
  EXPECT_EQ(Manager()->KeepComponent("of another call", analysis.Get()), S_OK);
  unsigned char kept = 0;
  EXPECT_EQ(Manager()->IsComponentKept("of another call", kept), S_OK);
  EXPECT_EQ(kept, 1);
  EXPECT_EQ(Manager()->ForgetComponent("of another call"), S_OK);
}

// The first call in a process, which is one of its own for each case.
class FirstSessionServicesMgrTest : public testing::TestWithParam<FaultCase> {
 protected:
  FirstSessionServicesMgrTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }

  static std::string Fetch() {
    int anything = 0;
    auto* manager = reinterpret_cast<VEXITimeAnalysisSessionServicesMgr*>(&anything);
    const long status = VEXSTTProvider::GetSessionServicesMgr(manager);
    return StatusName(status) + (Manager_var::Adopt(manager).IsNull() ? " null" : " manager");
  }

  // Ends the process, with 0 if everything is as expected.
  [[noreturn]] static void FetchUnderFault(const FaultCase& fault) {
    const long before = KORBaseUnknown::CountLiveObjects();
    {
      KORFreshSession session;
      ExpectOutcomeUnderFault(session, fault, Fetch, "S_OK manager");
    }
    const long made = KORBaseUnknown::CountLiveObjects() - before;
    EXPECT_EQ(made, 1) << "the one that is kept";
    std::_Exit(HasFailure() ? 1 : 0);
  }
};
using FirstSessionServicesMgrDeathTest = FirstSessionServicesMgrTest;

TEST_P(FirstSessionServicesMgrDeathTest, AFaultIsAFailureAndIsForgotten) {
  EXPECT_EXIT(FetchUnderFault(GetParam()), testing::ExitedWithCode(0), "");
}

INSTANTIATE_TEST_SUITE_P(Calls, FirstSessionServicesMgrDeathTest,
                         testing::ValuesIn(AllFaults({
                             {"KORInstantiateComponent", "E_FAIL null", "E_FAIL null", "E_FAIL null"},
                         })),
                         FaultCaseName());

}  // namespace
