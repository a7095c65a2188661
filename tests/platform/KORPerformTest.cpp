// Operations with and without a fault.
#include "platform/system/KORPerform.h"

#include <gtest/gtest.h>

#include <exception>
#include <string>

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORError.h"
#include "platform/base/KORUnicodeString.h"
#include "tests/platform/NamedRow.h"

namespace {

using Kind = KORFault::Kind;
using Life = KORFault::Life;
using platformtest::NameOfRow;

constexpr long Status = -77;  // which nothing but a fault gives

struct Raised {};

KORFault FaultOf(Kind what, Life life = Life::Always) {
  KORFault fault{Status, what, life};
  if (what == Kind::Raised) fault.Error = std::make_exception_ptr(Raised());
  return fault;
}

// What a fault of each kind makes of an operation.
struct KindRow {
  const char* Name;
  Kind What;
  long Gives;  // not looked at where an error is raised
  bool DoesItsWork;
};

class FaultKindTest : public testing::TestWithParam<KindRow> {
 protected:
  FaultKindTest() { _Session.InjectFault("Operation", FaultOf(GetParam().What)); }

  // Calls what gives a status, and checks the status or the error.
  template <class Call>
  static void ExpectOutcome(const Call& call) {
    if (GetParam().What == Kind::Raised) {
      EXPECT_THROW((void)call(), Raised);
    } else {
      EXPECT_EQ(call(), GetParam().Gives);
    }
  }

  KORFreshSession _Session;
};

TEST_P(FaultKindTest, OfAnOperationWithAStatus) {
  int result = 0;
  const auto operation = [&result] {
    return KORPerform("Operation", [&result] {
      result = 5;
      return S_FALSE;
    });
  };
  ExpectOutcome(operation);
  EXPECT_EQ(result, GetParam().DoesItsWork ? 5 : 0);
}

TEST_P(FaultKindTest, HasItsAftermathBehindTheWork) {
  std::string happened;
  const auto operation = [&happened] {
    const auto work = [&happened] {
      happened += "work ";
      return S_OK;
    };
    return KORPerform("Operation", work, [&happened] { happened += "aftermath "; });
  };
  ExpectOutcome(operation);
  EXPECT_EQ(happened, GetParam().DoesItsWork ? "work aftermath " : "aftermath ");
}

TEST_P(FaultKindTest, OfAnOperationThatHandsOutAnObject) {
  const auto held = KORBaseUnknown_var::Adopt(new KORBaseUnknown);
  int anything = 0;
  auto* out = reinterpret_cast<KORBaseUnknown*>(&anything);
  ExpectOutcome([&] { return KORHandOut("Operation", held, out); });
  EXPECT_EQ(out, GetParam().DoesItsWork ? held.Get() : nullptr);
  EXPECT_EQ(out == nullptr ? 1u : out->Release(), 1u);
}

TEST_P(FaultKindTest, OfAnOperationThatGivesItsResult) {
  KORUnicodeString text("before");
  const auto operation = [&text] {
    text = KORUnicodeString();
    text = KORGive("Operation", [] { return KORUnicodeString("result"); });
    return GetParam().Gives;
  };
  ExpectOutcome(operation);
  EXPECT_EQ(text, GetParam().DoesItsWork ? "result" : "");
}

INSTANTIATE_TEST_SUITE_P(Kinds, FaultKindTest,
                         testing::Values(KindRow{"StatusAndNull", Kind::StatusAndNull, Status, false},
                                         KindRow{"StatusAlone", Kind::StatusAlone, Status, true},
                                         KindRow{"NullAlone", Kind::NullAlone, S_OK, false},
                                         KindRow{"Raised", Kind::Raised, S_OK, false}),
                         NameOfRow());

long Perform(const char* operation = "Operation") {
  return KORPerform(operation, [] { return S_FALSE; });
}

TEST(KORPerformTest, GivesTheStatusOfTheWork) {
  const KORFreshSession session;
  EXPECT_EQ(Perform(), S_FALSE);
}

TEST(KORPerformTest, HasNoAftermathWithoutAFault) {
  const KORFreshSession session;
  bool was_called = false;
  EXPECT_EQ(KORPerform(
                "Operation", [] { return E_FAIL; }, [&was_called] { was_called = true; }),
            E_FAIL);
  EXPECT_FALSE(was_called);
}

TEST(KORPerformTest, FaultsAreThoseOfTheirOperation) {
  KORFreshSession session;
  session.InjectFault("Other", Status);
  EXPECT_EQ(Perform(), S_FALSE);
  EXPECT_EQ(Perform("Other"), Status);
}

TEST(KORPerformTest, AFaultForOneCallIsGoneBehindIt) {
  KORFreshSession session;
  for (const Kind what : {Kind::StatusAndNull, Kind::StatusAlone}) {
    session.InjectFault("Operation", FaultOf(what, Life::Once));
    EXPECT_EQ(Perform(), Status);
    EXPECT_EQ(Perform(), S_FALSE);
  }
}

TEST(KORPerformTest, AFaultForOneCallIsNotThatOfTheCallsInside) {
  KORFreshSession session;
  session.InjectFault("Operation", FaultOf(Kind::StatusAlone, Life::Once));
  long inside = 0;
  EXPECT_EQ(KORPerform("Operation",
                       [&inside] {
                         inside = Perform();
                         return S_OK;
                       }),
            Status);
  EXPECT_EQ(inside, S_FALSE);
}

TEST(KORPerformTest, AStatusCanBeASuccess) {
  KORFreshSession session;
  session.InjectFault("Operation", S_OK);
  EXPECT_EQ(Perform(), S_OK);
}

TEST(KORPerformTest, ErrorsOfThePlatformAreRaisedAsTheyAre) {
  KORFreshSession session;
  KORFault fault = FaultOf(Kind::Raised);
  fault.Error = std::make_exception_ptr(KORError(Status, "words"));
  session.InjectFault("Operation", fault);
  try {
    (void)Perform();
    ADD_FAILURE() << "nothing was raised";
  } catch (const KORError& error) {
    EXPECT_EQ(error.GetStatus(), Status);
    EXPECT_EQ(error.GetMessage(), "words");
  }
}

TEST(KORPerformTest, GivesTheResultOfTheWork) {
  const KORFreshSession session;
  EXPECT_EQ(KORGive("Operation", [] { return KORUnicodeString("result"); }), "result");
}

TEST(KORPerformTest, HandsOutAReferenceOfItsOwn) {
  const KORFreshSession session;
  KORBaseUnknown* out = nullptr;
  EXPECT_EQ(KORHandOut("Operation", KORBaseUnknown_var::Adopt(new KORBaseUnknown), out), S_OK);
  ASSERT_NE(out, nullptr);
  EXPECT_EQ(out->Release(), 0u);
}

TEST(KORPerformTest, ANullHandleIsNotHandedOut) {
  const KORFreshSession session;
  int anything = 0;
  auto* out = reinterpret_cast<KORBaseUnknown*>(&anything);
  EXPECT_EQ(KORHandOut("Operation", KORBaseUnknown_var(), out), E_FAIL);
  EXPECT_EQ(out, nullptr);
}

TEST(KORPerformTest, FaultsOfTheCurrentSessionCount) {
  KORFreshSession outer;
  outer.InjectFault("Operation", Status);
  {
    const KORFreshSession inner;
    EXPECT_EQ(Perform(), S_FALSE);
  }
  EXPECT_EQ(Perform(), Status);
}

}  // namespace
