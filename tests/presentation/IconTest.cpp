// The icon of analyses and of their instances, and what is remembered of it.
#include <functional>
#include <ostream>
#include <string>

#include "platform/services/KORIIcon.h"
#include "tests/presentation/PresentationTest.h"
#include "tests/support/ServiceTest.h"

namespace presentationtest {
namespace {

using support::RowName;

constexpr const char* BaseOperation = "KORIconAdaptor::GetIconName";

// Status and name, as "S_OK [I_Own]".
//
// before  what the text holds when it comes in
std::string IconNameOf(const KORBaseUnknown_var& object, const char* before = "") {
  KORUnicodeString name(before);
  const long status = KORIIcon_var(object)->GetIconName(name);
  return StatusName(status) + " [" + std::string(name.Bytes()) + "]";
}

void SetIcon(const KORBaseUnknown_var& object, const char* name) {
  EXPECT_EQ(KORIIcon_var(object)->SetIconName(name), S_OK);
}

// ---- Objects without an icon that was set ----

struct IconRow {
  const char* name;
  std::function<KORBaseUnknown_var()> make;
  std::string from_empty;   // the outcome with an empty text
  std::string from_filled;  // with the text "I_Before"
  std::string afterwards;   // and then with the text "I_Later"
};

void PrintTo(const IconRow& row, std::ostream* out) {
  *out << row.name;
}

class IconOfObjectTest : public PresentationRowTest<IconRow> {
 protected:
  const KORBaseUnknown_var _Object = GetParam().make();
};

TEST_P(IconOfObjectTest, WithAnEmptyText) {
  EXPECT_EQ(IconNameOf(_Object), GetParam().from_empty);
}

TEST_P(IconOfObjectTest, WithAFilledText) {
  EXPECT_EQ(IconNameOf(_Object, "I_Before"), GetParam().from_filled);
  EXPECT_EQ(IconNameOf(_Object, "I_Later"), GetParam().afterwards);
}

TEST_P(IconOfObjectTest, AfterAnEmptyText) {
  (void)IconNameOf(_Object);
  EXPECT_EQ(IconNameOf(_Object, "I_Before"), GetParam().from_filled);
}

TEST_P(IconOfObjectTest, TakesNoReferences) {
  (void)KORIIcon_var(_Object);
  const unsigned long references = ReferencesOf(*_Object);
  (void)IconNameOf(_Object);
  (void)IconNameOf(_Object, "I_Before");
  EXPECT_EQ(ReferencesOf(*_Object), references);
}

KORBaseUnknown_var InstanceOf(const PLMIRepReference_var& reference) {
  return Attach(NewOperation("Cover"), reference);
}

INSTANTIATE_TEST_SUITE_P(
    WithoutIcon, IconOfObjectTest,
    testing::Values(IconRow{"Analysis", [] { return NewAnalysis("Fasten"); }, "S_OK []", "S_OK []", "S_OK []"},
                    IconRow{"Instance", [] { return InstanceOf(NewAnalysis("Fasten")); }, "S_OK []", "S_OK []",
                            "S_OK []"},
                    IconRow{"ReferenceOfTheComponent", [] { return NewNamelessReference(ReferenceComponent); },
                            "S_OK []", "S_OK []", "S_OK []"},
                    IconRow{"InstanceOfNothing", [] { return NewNamedInstance(NULL_var); }, "E_FAIL []",
                            "E_FAIL [I_Before]", "E_FAIL [I_Later]"},
                    IconRow{"ObjectThatIsNeither", [] { return NewStranger(ReferenceComponent); }, "E_FAIL []",
                            "E_FAIL [I_Before]", "E_FAIL [I_Later]"},
                    IconRow{"ObjectThatIsNeitherAmongInstances", [] { return NewStranger(InstanceComponent); },
                            "E_FAIL []", "E_FAIL [I_Before]", "E_FAIL [I_Later]"}),
    RowName());

// Nothing writes the text, and the status is that of the way to the reference: what came in is taken for the name.
INSTANTIATE_TEST_SUITE_P(ReferenceThatOffersNoIcon, IconOfObjectTest,
                         testing::Values(IconRow{"Drawing", [] { return NewNamedInstance(NewDrawing("Sketch")); },
                                                 "S_OK []", "S_OK [I_Before]", "S_OK [I_Before]"},
                                         IconRow{"ReferenceOfNoComponent",
                                                 [] { return NewNamedInstance(NewNamelessReference("")); }, "S_OK []",
                                                 "S_OK [I_Before]", "S_OK [I_Before]"}),
                         RowName());

// ---- What is remembered ----

class IconTest : public PresentationTest {
 protected:
  Place _Place;
};

TEST_F(IconTest, IsTheOneThatWasSetLastBeforeItWasAskedFor) {
  SetIcon(_Place.Analysis, "I_First");
  SetIcon(_Place.Analysis, "I_Second");
  EXPECT_EQ(IconNameOf(_Place.Analysis, "I_Before"), "S_OK [I_Second]");
}

TEST_F(IconTest, SetLaterDoesNotShow) {
  SetIcon(_Place.Analysis, "I_First");
  EXPECT_EQ(IconNameOf(_Place.Analysis), "S_OK [I_First]");
  for (const char* const later : {"I_Second", ""}) {
    SetIcon(_Place.Analysis, later);
    EXPECT_EQ(IconNameOf(_Place.Analysis), "S_OK [I_First]");
    EXPECT_EQ(IconNameOf(_Place.Analysis, "I_Before"), "S_OK [I_First]");
  }
}

TEST_F(IconTest, ThatIsRememberedAsksNobody) {
  SetIcon(_Place.Analysis, "I_First");
  EXPECT_TRUE(Calls(BaseOperation, [this] { (void)IconNameOf(_Place.Analysis); }));  // fails, and so isn't remembered
  EXPECT_EQ(IconNameOf(_Place.Instance), "S_OK [I_First]");
  for (const KORBaseUnknown_var& object : {KORBaseUnknown_var(_Place.Analysis), KORBaseUnknown_var(_Place.Instance)}) {
    for (const char* const call : {BaseOperation, "GetRepReference"}) {
      EXPECT_FALSE(Calls(call, [&object] { (void)IconNameOf(object); })) << call;
    }
  }
}

TEST_F(IconTest, ThatIsRememberedOutlivesEveryFault) {
  SetIcon(_Place.Analysis, "I_First");
  (void)IconNameOf(_Place.Instance);
  _Session.InjectFault(BaseOperation, E_FAIL);
  _Session.InjectFault("GetRepReference", E_FAIL);
  EXPECT_EQ(IconNameOf(_Place.Analysis), "S_OK [I_First]");
  EXPECT_EQ(IconNameOf(_Place.Instance), "S_OK [I_First]");
}

TEST_F(IconTest, EmptyNameIsNotRemembered) {
  EXPECT_EQ(IconNameOf(_Place.Analysis), "S_OK []");
  EXPECT_TRUE(Calls(BaseOperation, [this] { (void)IconNameOf(_Place.Analysis); }));
  SetIcon(_Place.Analysis, "I_First");
  EXPECT_EQ(IconNameOf(_Place.Analysis), "S_OK [I_First]");
}

TEST_F(IconTest, NameThatCameWithAFailureIsNotRemembered) {
  SetIcon(_Place.Analysis, "I_First");
  _Session.InjectFault(BaseOperation, FaultOf(KORFault::Kind::StatusAlone, KORFault::Life::Once));
  EXPECT_EQ(IconNameOf(_Place.Analysis), "fault [I_First]");
  SetIcon(_Place.Analysis, "I_Second");
  EXPECT_EQ(IconNameOf(_Place.Analysis), "S_OK [I_Second]");
}

TEST_F(IconTest, FailureLeavesTheTextAndNothingIsRemembered) {
  SetIcon(_Place.Analysis, "I_First");
  _Session.InjectFault(BaseOperation, FaultOf(KORFault::Kind::StatusAndNull, KORFault::Life::Once));
  EXPECT_EQ(IconNameOf(_Place.Analysis, "I_Before"), "fault [I_Before]");
  EXPECT_EQ(IconNameOf(_Place.Analysis, "I_Before"), "S_OK [I_First]");
}

TEST_F(IconTest, TextThatTheBaseLeavesThoughItSucceedsIsRemembered) {
  SetIcon(_Place.Analysis, "I_First");
  _Session.InjectFault(BaseOperation, FaultOf(KORFault::Kind::NullAlone, KORFault::Life::Once));
  EXPECT_EQ(IconNameOf(_Place.Analysis, "I_Before"), "S_OK [I_Before]");
  EXPECT_EQ(IconNameOf(_Place.Analysis), "S_OK [I_Before]");
}

TEST_F(IconTest, OfEveryAnalysisIsItsOwn) {
  const TimeAnalysis_var other = NewAnalysis("Loosen");
  SetIcon(_Place.Analysis, "I_First");
  (void)IconNameOf(_Place.Analysis);
  EXPECT_EQ(IconNameOf(other), "S_OK []");
  SetIcon(other, "I_Second");
  EXPECT_EQ(IconNameOf(other), "S_OK [I_Second]");
}

TEST_F(IconTest, HasOneExtensionPerObject) {
  const TimeAnalysis_var analysis = NewAnalysis("Loosen");
  const long before = KORBaseUnknown::CountLiveObjects();
  const KORIIcon_var icon(analysis);
  EXPECT_EQ(KORIIcon_var(analysis).Get(), icon.Get());
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before + 1);
}

// ---- Instances ----

TEST_F(IconTest, OfAnInstanceIsThatOfItsReference) {
  SetIcon(_Place.Analysis, "I_First");
  EXPECT_EQ(IconNameOf(_Place.Instance, "I_Before"), "S_OK [I_First]");
}

TEST_F(IconTest, SetOnAnInstanceDoesNotShow) {
  SetIcon(_Place.Instance, "I_OfInstance");
  EXPECT_EQ(IconNameOf(_Place.Instance), "S_OK []");
  SetIcon(_Place.Analysis, "I_First");
  EXPECT_EQ(IconNameOf(_Place.Instance), "S_OK [I_First]");
}

TEST_F(IconTest, AskedForByAnInstanceIsRememberedOnTheReference) {
  SetIcon(_Place.Analysis, "I_First");
  (void)IconNameOf(_Place.Instance);
  SetIcon(_Place.Analysis, "I_Second");
  EXPECT_EQ(IconNameOf(_Place.Analysis), "S_OK [I_First]");
}

TEST_F(IconTest, RememberedOnTheReferenceShowsOnAnotherInstance) {
  SetIcon(_Place.Analysis, "I_First");
  (void)IconNameOf(_Place.Instance);
  SetIcon(_Place.Analysis, "I_Second");
  EXPECT_EQ(IconNameOf(Attach(_Place.Operation, _Place.Analysis)), "S_OK [I_First]");
}

TEST_F(IconTest, OfAnInstanceIsNotRememberedAsLongAsTheReferenceHasNone) {
  EXPECT_EQ(IconNameOf(_Place.Instance), "S_OK []");
  SetIcon(_Place.Analysis, "I_First");
  EXPECT_EQ(IconNameOf(_Place.Instance), "S_OK [I_First]");
}

TEST_F(IconTest, OfAnInstanceFailsAsThatOfItsReference) {
  SetIcon(_Place.Analysis, "I_First");
  _Session.InjectFault(BaseOperation, FaultOf(KORFault::Kind::StatusAlone, KORFault::Life::Once));
  EXPECT_EQ(IconNameOf(_Place.Instance), "fault [I_First]");
  SetIcon(_Place.Analysis, "I_Second");
  EXPECT_EQ(IconNameOf(_Place.Instance), "S_OK [I_Second]");
}

TEST_F(IconTest, OfAnInstanceFailsAsTheWayToItsReferenceAndNothingIsRemembered) {
  SetIcon(_Place.Analysis, "I_First");
  _Session.InjectFault("GetRepReference", FaultOf(KORFault::Kind::StatusAndNull, KORFault::Life::Once));
  EXPECT_EQ(IconNameOf(_Place.Instance, "I_Before"), "fault [I_Before]");
  EXPECT_EQ(IconNameOf(_Place.Instance), "S_OK [I_First]");
}

TEST_F(IconTest, OfAnInstanceIsRememberedAsItCameInIfNoReferenceIsGiven) {
  SetIcon(_Place.Analysis, "I_First");
  _Session.InjectFault("GetRepReference", FaultOf(KORFault::Kind::NullAlone, KORFault::Life::Once));
  EXPECT_EQ(IconNameOf(_Place.Instance, "I_Before"), "S_OK [I_Before]");
  EXPECT_EQ(IconNameOf(_Place.Instance), "S_OK [I_Before]");
}

TEST_F(IconTest, OfAReferenceThatWasGivenWithAFailureCountsAllTheSame) {
  SetIcon(_Place.Analysis, "I_First");
  _Session.InjectFault("GetRepReference", FaultOf(KORFault::Kind::StatusAlone));
  EXPECT_EQ(IconNameOf(_Place.Instance), "S_OK [I_First]");
  SetIcon(_Place.Analysis, "I_Second");
  EXPECT_EQ(IconNameOf(_Place.Instance), "S_OK [I_First]");
}

TEST_F(IconTest, OfAReferenceThatOffersNoIconFailsAsTheWayToIt) {
  const KORBaseUnknown_var instance = NewNamedInstance(NewDrawing("Sketch"));
  _Session.InjectFault("GetRepReference", FaultOf(KORFault::Kind::StatusAlone, KORFault::Life::Once));
  EXPECT_EQ(IconNameOf(instance, "I_Before"), "fault [I_Before]");
  EXPECT_EQ(IconNameOf(instance, "I_Later"), "S_OK [I_Later]");
}

TEST_F(IconTest, OfAnInstanceThatIsAReferenceItselfIsItsOwn) {
  const KORBaseUnknown_var both = NewReferenceAndInstance(_Place.Analysis);
  SetIcon(_Place.Analysis, "I_First");
  SetIcon(both, "I_OfBoth");
  EXPECT_EQ(IconNameOf(both), "S_OK [I_OfBoth]");
  EXPECT_FALSE(Calls("GetRepReference", [&] { (void)IconNameOf(NewReferenceAndInstance(_Place.Analysis)); }));
}

// ---- References ----

TEST_F(IconTest, TakesNoReferences) {
  SetIcon(_Place.Analysis, "I_First");
  (void)KORIIcon_var(_Place.Instance);
  const auto references = [this] {
    return std::vector<unsigned long>{ReferencesOf(*_Place.Instance), ReferencesOf(*_Place.Analysis)};
  };
  const std::vector<unsigned long> before = references();
  const long live = KORBaseUnknown::CountLiveObjects();
  for (int time = 0; time < 3; ++time) {
    (void)IconNameOf(_Place.Instance);
    (void)IconNameOf(_Place.Analysis);
    EXPECT_EQ(references(), before);
    EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), live);
  }
}

TEST_F(IconTest, GoesWithItsObject) {
  const long live = KORBaseUnknown::CountLiveObjects();
  {
    const auto analysis = TimeAnalysis_var::Adopt(new VEXTimeAnalysisRepReference("Loosen"));
    SetIcon(analysis, "I_First");
    EXPECT_EQ(IconNameOf(analysis), "S_OK [I_First]");
  }
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), live);
}

}  // namespace
}  // namespace presentationtest
