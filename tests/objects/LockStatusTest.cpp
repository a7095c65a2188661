// Who has reserved a time analysis: the reservation of its instance, and that of the analysis itself.
#include <gtest/gtest.h>

#include <exception>
#include <functional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "VEXSTTProvider.h"
#include "platform/base/KORError.h"
#include "tests/calculation/AnalysisShell.h"
#include "tests/objects/ObjectsTest.h"
#include "tests/objects/RevisionTest.h"
#include "tests/support/ServiceTest.h"

namespace {

using objectstest::AllFaults;
using objectstest::Attach;
using objectstest::FaultCaseName;
using objectstest::FaultOf;
using objectstest::FaultsFor;
using objectstest::FaultTest;
using objectstest::NewAnalysis;
using objectstest::NewDrawing;
using objectstest::NewOperation;
using objectstest::NewShell;
using objectstest::ObjectsRowTest;
using objectstest::ObjectsTest;
using objectstest::StatusName;
using support::RowName;
using support::TimeAnalysis_var;

using Provider = VEXSTTProvider;
using LockQuestion = long (*)(KORBaseUnknown_var, Provider::TALockStatus&, KORUnicodeString);

constexpr LockQuestion OfInstance = &Provider::GetLockedStatusofTimeAnalysisRepInst;
constexpr LockQuestion OfReference = &Provider::GetLockedStatusofTimeAnalysisRepRef;

std::string LockName(Provider::TALockStatus status) {
  switch (status) {
    case Provider::TANotLocked:
      return "NotLocked";
    case Provider::TALockByMe:
      return "ByMe";
    case Provider::TANotLockByMe:
      return "NotByMe";
  }
  return "?";
}

// Result and status, as "S_OK ByMe".
std::string Ask(LockQuestion question, const KORBaseUnknown_var& instance, const char* user) {
  auto status = Provider::TANotLockByMe;
  const long result = question(instance, status, user);
  return StatusName(result) + " " + LockName(status);
}

KORPLMObject& RecordOf(const KORBaseUnknown_var& object) {
  return dynamic_cast<KORPLMObject&>(*object);
}

// An analysis under an operation, by its instance. The user who is logged in is "anna".
struct Place {
  TimeAnalysis_var Analysis = NewAnalysis("Fasten");
  KORBaseUnknown_var Instance = Attach(NewOperation("Cover"), PLMIRepReference_var(Analysis));
};

// What a question is about, and what it is not about.
struct Side {
  LockQuestion Question;
  std::function<KORPLMObject&(const Place&)> Asked;
  std::function<KORPLMObject&(const Place&)> Other;
};

const Side& SideOfInstance() {
  static const Side side{OfInstance, [](const Place& place) -> KORPLMObject& { return RecordOf(place.Instance); },
                         [](const Place& place) -> KORPLMObject& { return *place.Analysis; }};
  return side;
}

const Side& SideOfReference() {
  static const Side side{OfReference, SideOfInstance().Other, SideOfInstance().Asked};
  return side;
}

// ---- Reservations ----

struct ReservationRow {
  const char* name;
  std::function<void(KORPLMObject&)> reserve;
  const char* user;  // asked about; empty: the one who is logged in
  std::string outcome;
};

void PrintTo(const ReservationRow& row, std::ostream* out) {
  *out << row.name;
}

void LeaveAlone(KORPLMObject& /*object*/) {
}

void ReserveForAnna(KORPLMObject& object) {
  object.Reserve("anna");
}

void ReserveForBert(KORPLMObject& object) {
  object.Reserve("bert");
}

// Reserves for "anna" with a flag of that text.
std::function<void(KORPLMObject&)> WithFlag(const char* text) {
  return [text](KORPLMObject& object) {
    object.Reserve("anna");
    object.GetAttributes().Set(KORReservedAttribute, KORUnicodeString(text));
  };
}

class ReservationTest : public ObjectsRowTest<ReservationRow> {
 protected:
  ReservationTest() { _Session.SetCurrentUserId("anna"); }
};

TEST_P(ReservationTest, IsToldOfTheInstance) {
  const Place place;
  GetParam().reserve(SideOfInstance().Asked(place));
  EXPECT_EQ(Ask(OfInstance, place.Instance, GetParam().user), GetParam().outcome);
}

TEST_P(ReservationTest, IsToldOfTheReference) {
  const Place place;
  GetParam().reserve(SideOfReference().Asked(place));
  EXPECT_EQ(Ask(OfReference, place.Instance, GetParam().user), GetParam().outcome);
}

TEST_P(ReservationTest, OfTheInstanceIsNotThatOfTheReference) {
  const Place place;
  GetParam().reserve(*place.Analysis);
  EXPECT_EQ(Ask(OfInstance, place.Instance, GetParam().user), "S_FALSE NotLocked");
}

TEST_P(ReservationTest, OfTheReferenceIsNotThatOfTheInstance) {
  const Place place;
  GetParam().reserve(RecordOf(place.Instance));
  EXPECT_EQ(Ask(OfReference, place.Instance, GetParam().user), "S_FALSE NotLocked");
}

INSTANTIATE_TEST_SUITE_P(
    Reservations, ReservationTest,
    testing::Values(ReservationRow{"NeverReserved", LeaveAlone, "", "S_FALSE NotLocked"},
                    ReservationRow{"ForTheCurrentUser", ReserveForAnna, "", "S_OK ByMe"},
                    ReservationRow{"ForAnotherUser", ReserveForBert, "", "S_OK NotByMe"},
                    ReservationRow{"ForTheUserAskedAbout", ReserveForBert, "bert", "S_OK ByMe"},
                    ReservationRow{"ForTheCurrentUserWhenAskedAboutAnother", ReserveForAnna, "bert", "S_OK NotByMe"},
                    ReservationRow{"UserInOtherCase", ReserveForAnna, "Anna", "S_OK NotByMe"},
                    ReservationRow{"UserWithABlank", ReserveForAnna, "anna ", "S_OK NotByMe"},
                    ReservationRow{"TakenAway",
                                   [](KORPLMObject& object) {
                                     object.Reserve("anna");
                                     object.Unreserve();
                                   },
                                   "", "S_FALSE NotLocked"},
                    ReservationRow{"FlagAsText", WithFlag("TRUE"), "", "S_OK ByMe"},
                    ReservationRow{"FlagOfSmallLetters", WithFlag("true"), "", "S_FALSE NotLocked"},
                    ReservationRow{"FlagOfAnotherText", WithFlag("YES"), "", "S_FALSE NotLocked"},
                    ReservationRow{"FlagOfANumber", WithFlag("1"), "", "S_FALSE NotLocked"},
                    ReservationRow{"FlagWithABlank", WithFlag("TRUE "), "", "S_FALSE NotLocked"},
                    ReservationRow{"EmptyFlag", WithFlag(""), "", "S_FALSE NotLocked"},
                    ReservationRow{"FlagWithoutUser",
                                   [](KORPLMObject& object) {
                                     object.GetAttributes().Set(KORReservedAttribute, static_cast<unsigned char>(1));
                                   },
                                   "", "S_FALSE NotLocked"},
                    ReservationRow{"UserWithoutFlag",
                                   [](KORPLMObject& object) {
                                     object.GetAttributes().Set(KORReservedByAttribute, KORUnicodeString("anna"));
                                   },
                                   "", "S_FALSE NotLocked"},
                    ReservationRow{"ForNobody", [](KORPLMObject& object) { object.Reserve(""); }, "", "S_OK NotByMe"}),
    RowName());

// ---- Users ----

TEST_F(ObjectsTest, LockStatusWithNobodyLoggedInIsAskedForTheEmptyUser) {
  const Place place;
  place.Analysis->Reserve("anna");
  RecordOf(place.Instance).Reserve("");
  EXPECT_EQ(Ask(OfReference, place.Instance, ""), "S_OK NotByMe");
  EXPECT_EQ(Ask(OfInstance, place.Instance, ""), "S_OK ByMe");
  EXPECT_EQ(Ask(OfReference, place.Instance, "anna"), "S_OK ByMe");
}

TEST_F(ObjectsTest, LockStatusLeavesTheUserOfTheCallerAlone) {
  _Session.SetCurrentUserId("anna");
  const Place place;
  const KORUnicodeString user;
  auto status = Provider::TANotLocked;
  (void)OfReference(place.Instance, status, user);
  EXPECT_TRUE(user.IsEmpty());
}

// ---- Objects ----

// A representation instance of whatever reference, without attributes.
class BareInstance : public KORImplements<PLMIRepInstance> {
 public:
  explicit BareInstance(PLMIRepReference_var reference) : _Reference(std::move(reference)) {}

  long GetRepReference(PLMIRepReference*& reference) override {
    reference = _Reference.Get();
    if (reference != nullptr) reference->AddRef();
    return S_OK;
  }

 private:
  PLMIRepReference_var _Reference;
};

struct ObjectRow {
  const char* name;
  std::function<KORBaseUnknown_var()> make;
  std::string of_instance;
  std::string of_reference;
};

void PrintTo(const ObjectRow& row, std::ostream* out) {
  *out << row.name;
}

KORBaseUnknown_var BareInstanceOf(const PLMIRepReference_var& reference) {
  return KORBaseUnknown_var::Adopt(new BareInstance(reference));
}

TimeAnalysis_var ReservedAnalysis() {
  TimeAnalysis_var analysis = NewAnalysis("Fasten");
  analysis->Reserve("anna");
  return analysis;
}

class LockedObjectTest : public ObjectsRowTest<ObjectRow> {};

TEST_P(LockedObjectTest, IsExaminedOrNot) {
  const KORBaseUnknown_var object = GetParam().make();
  EXPECT_EQ(Ask(OfInstance, object, "anna"), GetParam().of_instance);
  EXPECT_EQ(Ask(OfReference, object, "anna"), GetParam().of_reference);
}

constexpr const char* NotExamined = "E_INVALIDARG NotLocked";

INSTANTIATE_TEST_SUITE_P(
    Objects, LockedObjectTest,
    testing::Values(
        ObjectRow{"Null", [] { return KORBaseUnknown_var(); }, NotExamined, NotExamined},
        ObjectRow{"WithoutInterfaces", calculationtest::MakeBareObject, NotExamined, NotExamined},
        ObjectRow{"TheAnalysisItself", [] { return KORBaseUnknown_var(ReservedAnalysis()); }, NotExamined, NotExamined},
        ObjectRow{"Operation", [] { return KORBaseUnknown_var(NewOperation("Cover")); }, NotExamined, NotExamined},
        ObjectRow{"InstanceOfAnotherRepresentation",
                  [] {
                    KORBaseUnknown_var instance = Attach(NewOperation("Cover"), NewDrawing("Sketch"));
                    RecordOf(instance).Reserve("anna");
                    return instance;
                  },
                  "S_OK ByMe", NotExamined},
        ObjectRow{"InstanceWithoutAttributes", [] { return BareInstanceOf(PLMIRepReference_var(ReservedAnalysis())); },
                  NotExamined, "S_OK ByMe"},
        ObjectRow{"InstanceOfNothing", [] { return BareInstanceOf(NULL_var); }, NotExamined, NotExamined},
        ObjectRow{"AnalysisWithoutAttributes",
                  [] { return BareInstanceOf(PLMIRepReference_var(NewShell(ReservedAnalysis()))); }, NotExamined,
                  NotExamined}),
    RowName());

// ---- Faults of the platform ----

constexpr const char* NoReservation = "S_FALSE NotLocked";
constexpr const char* Mine = "S_OK ByMe";
constexpr const char* Others = "S_OK NotByMe";

class LockFaultTest : public FaultTest {
 protected:
  LockFaultTest() {
    _Session.SetCurrentUserId("anna");
    _Place.Analysis->Reserve("anna");
    RecordOf(_Place.Instance).Reserve("anna");
  }

  void ExpectLock(LockQuestion question) {
    ExpectOutcome([this, question] { return Ask(question, _Place.Instance, ""); }, Mine);
  }

 private:
  Place _Place;
};

// Of either question; without the user who is logged in the reservation is somebody else's.
const std::vector<objectstest::FaultRow> LockFaults{
    {"GetCurrentUserId", Others, Mine, Others},
    {"GetReservedAttributeNameFromObject", NoReservation, Mine, NoReservation},
    {"GetReservedByAttributeNameFromObject", NoReservation, Mine, NoReservation},
};
// Twice a call: an empty name of the user is no failure, an empty flag is none either.
const std::vector<objectstest::FaultRow> FirstReadFaults{{"GetValueAsString", NoReservation, NoReservation, Others}};
const std::vector<objectstest::FaultRow> ReadFaults{{"GetValueAsString", NoReservation, NoReservation, NoReservation}};

TEST_P(LockFaultTest, OfTheInstance) {
  ExpectLock(OfInstance);
}

TEST_P(LockFaultTest, OfTheReference) {
  ExpectLock(OfReference);
}

INSTANTIATE_TEST_SUITE_P(Calls, LockFaultTest, testing::ValuesIn(AllFaults(LockFaults)), FaultCaseName());
INSTANTIATE_TEST_SUITE_P(FirstRead, LockFaultTest, testing::ValuesIn(FaultsFor(KORFault::Life::Once, FirstReadFaults)),
                         FaultCaseName());
INSTANTIATE_TEST_SUITE_P(BothReads, LockFaultTest, testing::ValuesIn(FaultsFor(KORFault::Life::Always, ReadFaults)),
                         FaultCaseName());

class LockReferenceFaultTest : public LockFaultTest {};

TEST_P(LockReferenceFaultTest, OfTheReference) {
  ExpectLock(OfReference);
}

INSTANTIATE_TEST_SUITE_P(Calls, LockReferenceFaultTest,
                         testing::ValuesIn(AllFaults({{"GetRepReference", NotExamined, NotExamined, NotExamined}})),
                         FaultCaseName());

TEST_F(ObjectsTest, LockStatusPassesARaisedErrorOn) {
  const Place place;
  for (const char* call : {"GetCurrentUserId", "GetRepReference", "GetReservedAttributeNameFromObject",
                           "GetReservedByAttributeNameFromObject", "GetValueAsString"}) {
    KORFault fault = FaultOf(KORFault::Kind::Raised);
    fault.Error = std::make_exception_ptr(KORError(E_FAIL, "raised"));
    _Session.InjectFault(call, fault);
    EXPECT_THROW((void)Ask(OfReference, place.Instance, ""), KORError) << call;
    _Session.ClearFaults();
  }
}

}  // namespace
