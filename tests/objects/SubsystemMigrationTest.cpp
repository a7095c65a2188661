// The motion-time system of older analyses moves to the present attribute, and they are saved.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "VEXSTTApplicativeContainerServices.h"
#include "platform/services/KORAdpProtectedSaver.h"
#include "platform/services/VEXSTTAnalysesQueryServices.h"
#include "tests/calculation/AnalysisShell.h"
#include "tests/objects/ObjectsTest.h"
#include "tests/support/ServiceTest.h"

namespace {

using support::TimeAnalysis_var;
using testing::ElementsAre;
using testing::IsEmpty;
using Names = std::vector<std::string>;

TimeAnalysis_var Create(const char* identifier, const std::optional<std::string>& older,
                        const std::optional<std::string>& present) {
  const TimeAnalysis_var analysis = objectstest::NewAnalysis(identifier);
  if (older) (void)analysis->SetValue("Subsystem", support::Unicode(*older));
  if (present) (void)analysis->SetValue("V_Subsystem", support::Unicode(*present));
  return analysis;
}

std::optional<std::string> TextOf(const TimeAnalysis_var& analysis, const char* attribute) {
  const auto text = support::Read<KORUnicodeString>(*analysis, attribute);
  return text ? std::optional(support::Text(*text)) : std::nullopt;
}

long Migrate() {
  KOROmbLifeCycleRootsBag bag;
  return VEXSTTApplicativeContainerServices::MigrateSUBSYSTEM_to_MODAPTS(bag);
}

class SubsystemMigrationTest : public objectstest::ObjectsTest {
 protected:
  SubsystemMigrationTest() {
    KORSaveObserver::Current().Set([this](const KORListPtrKORIPLMComponent& components) {
      Names names;
      for (KORIPLMComponent* const component : components) {
        names.push_back(objectstest::NameOf(KORBaseUnknown_var(component)));
      }
      _Saves.push_back(names);
    });
  }

  // What each run saved, since the last time that this was asked.
  std::vector<Names> TakeSaves() { return std::exchange(_Saves, {}); }

 private:
  std::vector<Names> _Saves;
};

// What becomes of one analysis

struct MarkerRow {
  const char* name;
  std::optional<std::string> older;
  std::optional<std::string> present;
  std::optional<std::string> older_afterwards;
  std::optional<std::string> present_afterwards;
  bool is_saved;
};

class SubsystemMarkerTest : public SubsystemMigrationTest, public testing::WithParamInterface<MarkerRow> {};

TEST_P(SubsystemMarkerTest, IsMovedOrLeft) {
  const TimeAnalysis_var analysis = Create("TA", GetParam().older, GetParam().present);
  EXPECT_EQ(Migrate(), S_OK);
  EXPECT_EQ(TextOf(analysis, "Subsystem"), GetParam().older_afterwards);
  EXPECT_EQ(TextOf(analysis, "V_Subsystem"), GetParam().present_afterwards);
  EXPECT_THAT(TakeSaves(), ElementsAre(GetParam().is_saved ? Names{"TA"} : Names{}));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, SubsystemMarkerTest,
    testing::Values(MarkerRow{"OneToRepair", "MODAPTS", "GTE", "", "MODAPTS", true},
                    MarkerRow{"OtherPresentSystemIsSavedUnchanged", "MODAPTS", "MTM1", "MODAPTS", "MTM1", true},
                    MarkerRow{"RepairedByHandIsSavedUnchanged", "MODAPTS", "MODAPTS", "MODAPTS", "MODAPTS", true},
                    MarkerRow{"PresentSystemEmpty", "MODAPTS", "", "MODAPTS", "", true},
                    MarkerRow{"NoPresentSystem", "MODAPTS", {}, "MODAPTS", {}, true},
                    MarkerRow{"PresentSystemComparedExactly", "MODAPTS", "gte", "MODAPTS", "gte", true},
                    MarkerRow{"OlderSystemEmpty", "", "GTE", "", "GTE", false},
                    MarkerRow{"NoOlderSystem", {}, "GTE", {}, "GTE", false},
                    MarkerRow{"OtherOlderSystem", "MTM1", "GTE", "MTM1", "GTE", false},
                    MarkerRow{"OlderSystemComparedExactly", "modapts", "GTE", "modapts", "GTE", false}),
    support::RowName());

TEST_F(SubsystemMigrationTest, TakesNoSystemThatIsNoText) {
  const TimeAnalysis_var older = Create("older", {}, "GTE"), present = Create("present", "MODAPTS", {});
  (void)static_cast<VEXITimeAnalysisRepReference&>(*older).SetValue("Subsystem", 3);
  (void)static_cast<VEXITimeAnalysisRepReference&>(*present).SetValue("V_Subsystem", 3);
  EXPECT_EQ(Migrate(), S_OK);
  EXPECT_EQ(support::Read<int>(*older, "Subsystem"), 3);
  EXPECT_EQ(support::Read<int>(*present, "V_Subsystem"), 3);
  EXPECT_THAT(TakeSaves(), ElementsAre(Names{"present"}));
}

// A run

TEST_F(SubsystemMigrationTest, SavesAllInOneGoInTheOrderOfTheAnalyses) {
  Create("first", "MODAPTS", "MTM1");
  Create("second", "MTM1", "GTE");
  Create("third", "MODAPTS", "GTE");
  Create("fourth", "", "MODAPTS");
  Create("fifth", "MODAPTS", "GTE");
  EXPECT_EQ(Migrate(), S_OK);
  EXPECT_THAT(TakeSaves(), ElementsAre(Names{"first", "third", "fifth"}));
}

TEST_F(SubsystemMigrationTest, SavesAnEmptyListToo) {
  EXPECT_EQ(Migrate(), S_OK);
  EXPECT_THAT(TakeSaves(), ElementsAre(IsEmpty()));
}

TEST_F(SubsystemMigrationTest, SavesNothingOfWhatIsMigratedASecondTime) {
  Create("migrated", "MODAPTS", "GTE");
  Create("unchanged", "MODAPTS", "MTM1");
  (void)Migrate();
  (void)TakeSaves();
  EXPECT_EQ(Migrate(), S_OK);
  EXPECT_THAT(TakeSaves(), ElementsAre(Names{"unchanged"})) << "one that stays as it is is saved on every run";
}

TEST_F(SubsystemMigrationTest, LetsTheDatabaseKnowWhatIsSaved) {
  const TimeAnalysis_var saved = Create("saved", "MODAPTS", "GTE"), other = Create("other", "", "GTE");
  saved->GetContent().IsInDatabase = other->GetContent().IsInDatabase = false;
  (void)Migrate();
  EXPECT_TRUE(saved->GetContent().IsInDatabase);
  EXPECT_FALSE(other->GetContent().IsInDatabase);
}

TEST_F(SubsystemMigrationTest, KeepsTheAnalysesAliveByTheBag) {
  const TimeAnalysis_var analysis = Create("TA", "MODAPTS", "GTE");
  Create("other", {}, {});
  analysis->AddRef();
  const unsigned long references = analysis->Release();
  KOROmbLifeCycleRootsBag bag;
  (void)VEXSTTApplicativeContainerServices::MigrateSUBSYSTEM_to_MODAPTS(bag);
  EXPECT_EQ(bag.Size(), 2);
  analysis->AddRef();
  EXPECT_EQ(analysis->Release(), references + 1) << "that of the bag, and none besides";
}

// Objects of another origin

using calculationtest::MakeShell;

TEST_F(SubsystemMigrationTest, PassesOverWhatIsNoAnalysis) {
  KORReachedObjects::Current().Add(calculationtest::MakeBareObject());
  KORReachedObjects::Current().Add(NULL_var);
  Create("TA", "MODAPTS", "GTE");
  EXPECT_EQ(Migrate(), S_OK);
  EXPECT_THAT(TakeSaves(), ElementsAre(Names{"TA"}));
}

TEST_F(SubsystemMigrationTest, RepairsAnAnalysisThatIsNoComponentAndSavesItNot) {
  const auto inside = support::MakeAnalysis("TA");
  (void)inside->SetValue("Subsystem", KORUnicodeString("MODAPTS"));
  (void)inside->SetValue("V_Subsystem", KORUnicodeString("GTE"));
  KORReachedObjects::Current().Add(MakeShell(inside));
  EXPECT_EQ(Migrate(), S_OK);
  EXPECT_EQ(TextOf(inside, "V_Subsystem"), "MODAPTS");
  EXPECT_THAT(TakeSaves(), ElementsAre(IsEmpty()));
}

// An analysis that is a component, loses its properties, and can fail to be written.
class ComponentShell : public KORDerives<calculationtest::AnalysisShell, KORIPLMComponent> {
 public:
  using KORDerives::KORDerives;
  long GetPLMIdentificator(KORIAdpPLMIdentificator*& identificator) override {
    return Inside().GetPLMIdentificator(identificator);
  }
  long SetValue(const KORString& key, const KORUnicodeString& value) override {
    (void)Inside().SetValue(key, value);
    return objectstest::InjectedStatus;
  }
  using KORDerives::SetValue;
};

KORHandle<ComponentShell> AddComponentShell(const TimeAnalysis_var& inside) {
  (void)inside->SetValue("Subsystem", KORUnicodeString("MODAPTS"));
  (void)inside->SetValue("V_Subsystem", KORUnicodeString("GTE"));
  auto shell = KORHandle<ComponentShell>::Adopt(new ComponentShell(inside));
  KORReachedObjects::Current().Add(shell);
  return shell;
}

TEST_F(SubsystemMigrationTest, SavesAnAnalysisWithoutPropertiesUnchanged) {
  const auto inside = support::MakeAnalysis("TA");
  AddComponentShell(inside)->Hide<VEXITimeAnalysisProperties>();
  EXPECT_EQ(Migrate(), S_OK);
  EXPECT_EQ(TextOf(inside, "Subsystem"), "MODAPTS");
  EXPECT_EQ(TextOf(inside, "V_Subsystem"), "GTE");
  EXPECT_THAT(TakeSaves(), ElementsAre(Names{"?"})) << "an object that is not of the model has no name here";
}

TEST_F(SubsystemMigrationTest, ShowsTheStatusOfTheLastWrite) {
  AddComponentShell(support::MakeAnalysis("TA"));
  EXPECT_EQ(Migrate(), objectstest::InjectedStatus);
  AddComponentShell(support::MakeAnalysis("TB"))->Hide<VEXITimeAnalysisProperties>();
  EXPECT_EQ(Migrate(), S_OK) << "nothing was written the second time";
}

// Faults of the platform

// An outcome is the status, what is saved, and what "V_Subsystem" is then.
class MigrationFaultTest : public objectstest::FaultTest {
 protected:
  // A run with an analysis to repair, which none of the runs before has seen.
  std::string Run() {
    std::string saved;
    KORSaveObserver::Current().Set([&saved](const KORListPtrKORIPLMComponent& components) {
      saved = std::to_string(components.Size()) + " saved";
    });
    const TimeAnalysis_var analysis = Create("TA", _Older, "GTE");
    const long status = Migrate();
    KORSaveObserver::Current().Set(nullptr);
    const std::string outcome =
        objectstest::StatusName(status) + ", " + saved + ", " + TextOf(analysis, "V_Subsystem").value_or("?");
    (void)analysis->SetValue("Subsystem", KORUnicodeString());
    return outcome;
  }

  std::string _Older = "MODAPTS";
};

TEST_P(MigrationFaultTest, GivesItsOutcome) {
  ExpectOutcome([this] { return Run(); }, "S_OK, 1 saved, MODAPTS");
}

INSTANTIATE_TEST_SUITE_P(Rows, MigrationFaultTest,
                         testing::ValuesIn(objectstest::AllFaults({
                             // Analyses that come in spite of the status are repaired, and the last write counts.
                             {"GetAllTimeAnalysis", "fault, 0 saved, GTE", "S_OK, 1 saved, MODAPTS",
                              "S_OK, 0 saved, GTE"},
                             // Whether the saving worked is not told.
                             {"Save", "S_OK, 1 saved, MODAPTS", "S_OK, 1 saved, MODAPTS", "S_OK, 1 saved, MODAPTS"},
                         })),
                         objectstest::FaultCaseName());

class FaultWithoutRepairTest : public MigrationFaultTest {};

TEST_P(FaultWithoutRepairTest, ShowsTheStatusOfTheQuery) {
  _Older = "MTM1";
  ExpectOutcome([this] { return Run(); }, "S_OK, 0 saved, GTE");
}

INSTANTIATE_TEST_SUITE_P(Rows, FaultWithoutRepairTest,
                         testing::ValuesIn(objectstest::AllFaults({
                             {"GetAllTimeAnalysis", "fault, 0 saved, GTE", "fault, 0 saved, GTE", "S_OK, 0 saved, GTE"},
                             {"Save", "S_OK, 0 saved, GTE", "S_OK, 0 saved, GTE", "S_OK, 0 saved, GTE"},
                         })),
                         objectstest::FaultCaseName());

}  // namespace
