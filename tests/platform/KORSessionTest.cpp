// Sessions: scopes, environment, recorder, faults, parts.
#include "platform/system/KORSession.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <exception>
#include <optional>
#include <string>
#include <thread>

#include "platform/base/KORError.h"
#include "platform/base/KORStatus.h"
#include "platform/system/KORSystem.h"

namespace {

TEST(KORSessionTest, ScopesNest) {
  KORSession& process_session = KORSession::Current();
  KORSession outer;
  KORSession inner;
  {
    const KORSession::Scope outer_scope(outer);
    EXPECT_EQ(&KORSession::Current(), &outer);
    {
      const KORSession::Scope inner_scope(inner);
      EXPECT_EQ(&KORSession::Current(), &inner);
    }
    EXPECT_EQ(&KORSession::Current(), &outer);
  }
  EXPECT_EQ(&KORSession::Current(), &process_session);
}

TEST(KORSessionTest, ScopeBelongsToItsThread) {
  KORSession& process_session = KORSession::Current();
  KORSession own;
  const KORSession::Scope scope(own);
  std::thread([&process_session] { EXPECT_EQ(&KORSession::Current(), &process_session); }).join();
}

TEST(KORSessionTest, EnvironmentCoversThatOfTheProcess) {
  ASSERT_EQ(setenv("KORSESSION_TEST", "process", 1), 0);
  KORSession session;
  const KORSession::Scope scope(session);
  EXPECT_EQ(KORGetEnv("KORSESSION_TEST"), "process");

  session.SetEnvironment("KORSESSION_TEST", "session");
  EXPECT_EQ(KORGetEnv("KORSESSION_TEST"), "session");
  EXPECT_STREQ(std::getenv("KORSESSION_TEST"), "process");

  session.SetEnvironment("KORSESSION_TEST", "");
  EXPECT_EQ(KORGetEnv("KORSESSION_TEST"), "");
  EXPECT_NE(VEXSTMMiscUtils::IsEnvVariableSet("KORSESSION_TEST", 1), 0);

  session.UnsetEnvironment("KORSESSION_TEST");
  EXPECT_EQ(KORGetEnv("KORSESSION_TEST"), "");
  EXPECT_EQ(VEXSTMMiscUtils::IsEnvVariableSet("KORSESSION_TEST", 1), 0);
  EXPECT_FALSE(session.GetEnvironment("KORSESSION_TEST").has_value());

  KORSession other;
  EXPECT_EQ(other.GetEnvironment("KORSESSION_TEST"), KORUnicodeString("process"));
  EXPECT_FALSE(other.GetEnvironment("").has_value());
  unsetenv("KORSESSION_TEST");
}

struct RecorderRow {
  KORRecord::Mode Mode;
  bool IsCapture;
  bool IsReplay;
};

TEST(KORSessionTest, RecorderTellsItsMode) {
  KORSession session;
  const KORSession::Scope scope(session);
  ASSERT_NE(KORRecord::GetMain(), nullptr);
  EXPECT_EQ(KORRecord::GetMain()->IsCapture(), 0);
  EXPECT_EQ(KORRecord::GetMain()->IsReplay(), 0);
  for (const RecorderRow& row :
       {RecorderRow{KORRecord::Mode::Capture, true, false}, RecorderRow{KORRecord::Mode::Replay, false, true},
        RecorderRow{KORRecord::Mode::Rest, false, false}}) {
    session.GetRecorder().SetMode(row.Mode);
    EXPECT_EQ(KORRecord::GetMain()->IsCapture() != 0, row.IsCapture);
    EXPECT_EQ(KORRecord::GetMain()->IsReplay() != 0, row.IsReplay);
  }
}

TEST(KORSessionTest, OperatingSystemStartsAsOneWithSlash) {
  KORSession session;
  const KORSession::Scope scope(session);
  const int code = KORGetOperatingSystem(0) & 0xFFFF;
  EXPECT_TRUE(code <= 3 || code == 7);
  session.SetOperatingSystem(0x10004);
  EXPECT_EQ(KORGetOperatingSystem(0), 0x10004);
}

// The status of the fault that the next call of the operation takes; S_OK if there is none.
long Take(KORSession& session, const char* operation) {
  const std::optional<KORFault> fault = session.TakeFault(operation);
  return fault ? fault->Status : S_OK;
}

TEST(KORSessionTest, FaultsLastUntilTheyAreCleared) {
  KORSession session;
  EXPECT_EQ(Take(session, "KORSplitPath"), S_OK);
  session.InjectFault("KORSplitPath", E_FAIL);
  EXPECT_EQ(Take(session, "KORSplitPath"), E_FAIL);
  EXPECT_EQ(Take(session, "KORSplitPath"), E_FAIL);
  EXPECT_EQ(Take(session, "KORListDirectory"), S_OK);
  session.InjectFault("KORSplitPath", E_INVALIDARG);
  EXPECT_EQ(Take(session, "KORSplitPath"), E_INVALIDARG);
  session.ClearFaults();
  EXPECT_EQ(Take(session, "KORSplitPath"), S_OK);
}

TEST(KORSessionTest, FaultForOneCallGoesWithIt) {
  KORSession session;
  session.InjectFault("KORSplitPath", KORFault{E_FAIL, KORFault::Kind::StatusAlone, KORFault::Life::Once});
  session.InjectFault("KORListDirectory", E_INVALIDARG);
  EXPECT_EQ(Take(session, "KORListDirectory"), E_INVALIDARG);
  EXPECT_EQ(Take(session, "KORSplitPath"), E_FAIL);
  EXPECT_EQ(Take(session, "KORSplitPath"), S_OK);
  EXPECT_EQ(Take(session, "KORListDirectory"), E_INVALIDARG);
}

TEST(KORSessionTest, FaultIsTakenAsItWasInjected) {
  KORSession session;
  const KORFault injected{E_FAIL, KORFault::Kind::Raised, KORFault::Life::Always,
                          std::make_exception_ptr(KORError(E_FAIL, "words"))};
  session.InjectFault("KORSplitPath", injected);
  const std::optional<KORFault> taken = session.TakeFault("KORSplitPath");
  ASSERT_TRUE(taken.has_value());
  EXPECT_EQ(taken->What, KORFault::Kind::Raised);
  EXPECT_EQ(taken->Holds, KORFault::Life::Always);
  EXPECT_EQ(taken->Error, injected.Error);
}

TEST(KORSessionTest, FaultOfAStatusLeavesNothingAndHoldsForAllCalls) {
  KORSession session;
  session.InjectFault("KORSplitPath", E_NOINTERFACE);
  const std::optional<KORFault> taken = session.TakeFault("KORSplitPath");
  ASSERT_TRUE(taken.has_value());
  EXPECT_EQ(taken->Status, E_NOINTERFACE);
  EXPECT_EQ(taken->What, KORFault::Kind::StatusAndNull);
  EXPECT_EQ(taken->Holds, KORFault::Life::Always);
}

TEST(KORSessionTest, LaterFaultTakesThePlaceOfTheOneBefore) {
  KORSession session;
  session.InjectFault("KORSplitPath", KORFault{E_FAIL, KORFault::Kind::NullAlone, KORFault::Life::Once});
  session.InjectFault("KORSplitPath", E_INVALIDARG);
  EXPECT_EQ(Take(session, "KORSplitPath"), E_INVALIDARG);
  EXPECT_EQ(Take(session, "KORSplitPath"), E_INVALIDARG);
}

// Parts write down their end, and which session is the current one then.
std::string ends;
const KORSession* session_at_end = nullptr;

struct FirstPart {
  int Value = 1;
  ~FirstPart() {
    ends += "first ";
    session_at_end = &KORSession::Current();
  }
};

struct SecondPart {
  ~SecondPart() { ends += "second "; }
};

struct PartThatNeedsAnother {
  PartThatNeedsAnother() { KORSession::Current().GetPart<FirstPart>().Value = 5; }
  ~PartThatNeedsAnother() {
    ends += "needing(" + std::to_string(KORSession::Current().GetPart<FirstPart>().Value) + ") ";
  }
};

TEST(KORSessionTest, PartIsMadeOnFirstUse) {
  KORSession session;
  session.GetPart<FirstPart>().Value = 2;
  EXPECT_EQ(session.GetPart<FirstPart>().Value, 2);
  KORSession other;
  EXPECT_EQ(other.GetPart<FirstPart>().Value, 1);
}

TEST(KORSessionTest, PartsEndWithTheirSessionTheLastOneFirst) {
  ends.clear();
  const KORSession* ended = nullptr;
  {
    KORSession session;
    ended = &session;
    session.GetPart<FirstPart>();
    session.GetPart<SecondPart>();
    session.GetPart<FirstPart>();
  }
  EXPECT_EQ(ends, "second first ");
  EXPECT_EQ(session_at_end, ended);
}

TEST(KORSessionTest, PartThatAskedForAnotherEndsAheadOfIt) {
  ends.clear();
  {
    KORFreshSession session;
    session.GetPart<PartThatNeedsAnother>();
  }
  EXPECT_EQ(ends, "needing(5) first ");
}

TEST(KORSessionTest, FreshSessionKnowsNoErrorOfTheOneBefore) {
  {
    const KORFreshSession session;
    KORError::SetLastError(KORError(E_FAIL, "of the first session"));
    ASSERT_TRUE(KORError::KORGetLastError(E_FAIL, nullptr).has_value());
  }
  const KORFreshSession session;
  EXPECT_FALSE(KORError::KORGetLastError(E_FAIL, nullptr).has_value());
}

TEST(KORSessionTest, FreshSessionIsTheCurrentOne) {
  KORSession& before = KORSession::Current();
  {
    const KORFreshSession session;
    EXPECT_EQ(&KORSession::Current(), &session);
    EXPECT_TRUE(session.GetCurrentUserId().IsEmpty());
  }
  EXPECT_EQ(&KORSession::Current(), &before);
}

}  // namespace
