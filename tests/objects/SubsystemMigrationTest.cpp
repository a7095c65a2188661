// The motion-time system of older analyses moves to the present attribute, and they are saved.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "VEXSTTApplicativeContainerServices.h"
#include "platform/model/KORModel.h"
#include "platform/services/KORAdpProtectedSaver.h"
#include "platform/system/KORSession.h"
#include "tests/support/AnalysisBuilder.h"
#include "tests/support/ServiceTest.h"

namespace {

using support::TimeAnalysis_var;
using testing::ElementsAre;
using testing::IsEmpty;
using Names = std::vector<std::string>;

constexpr long FaultStatus = -77;

class SubsystemMigrationTest : public testing::Test {
 protected:
  SubsystemMigrationTest() {
    KORSaveObserver::Current().Set([this](const KORListPtrKORIPLMComponent& components) {
      Names names;
      for (KORIPLMComponent* const component : components) names.push_back(IdentifierOf(component));
      _Saves.push_back(names);
    });
  }

  static TimeAnalysis_var Create(const char* identifier, const std::optional<std::string>& older,
                                 const std::optional<std::string>& present) {
    const TimeAnalysis_var analysis = KORModel::Current().CreateTimeAnalysis(identifier);
    if (older) (void)analysis->SetValue("Subsystem", support::Unicode(*older));
    if (present) (void)analysis->SetValue("V_Subsystem", support::Unicode(*present));
    return analysis;
  }

  static std::string IdentifierOf(KORIPLMComponent* component) {
    return support::Text(
        support::Read<KORUnicodeString>(*VEXITimeAnalysisRepReference_var(component), "PLM_ExternalID").value_or("?"));
  }

  long Migrate() { return VEXSTTApplicativeContainerServices::MigrateSUBSYSTEM_to_MODAPTS(_Bag); }

  // What each run saved, since the last time that this was asked.
  std::vector<Names> TakeSaves() { return std::exchange(_Saves, {}); }

  const KORFreshSession _Session;
  KOROmbLifeCycleRootsBag _Bag;

 private:
  std::vector<Names> _Saves;
};

std::optional<std::string> TextOf(const TimeAnalysis_var& analysis, const char* attribute) {
  const auto text = support::Read<KORUnicodeString>(*analysis, attribute);
  return text ? std::optional(support::Text(*text)) : std::nullopt;
}

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
  (void)Migrate();
  EXPECT_EQ(_Bag.Size(), 2);
  analysis->AddRef();
  EXPECT_EQ(analysis->Release(), references + 1) << "that of the bag, and none besides";
}

// Faults of the platform

struct MigrationFault {
  const char* name;
  const char* operation;
  KORFault::Kind kind;
  long status;                    // with an analysis to repair
  long status_without_repair;     // with none
  std::vector<std::string> saved;
};

class MigrationFaultTest : public SubsystemMigrationTest, public testing::WithParamInterface<MigrationFault> {
 protected:
  static void Inject(KORFault::Life life) {
    KORFault fault{FaultStatus};
    fault.What = GetParam().kind;
    fault.Holds = life;
    KORSession::Current().InjectFault(GetParam().operation, fault);
  }
};

TEST_P(MigrationFaultTest, ComesBackAsTold) {
  for (const KORFault::Life life : {KORFault::Life::Once, KORFault::Life::Always}) {
    const TimeAnalysis_var analysis = Create("TA", "MODAPTS", "GTE");
    Inject(life);
    EXPECT_EQ(Migrate(), GetParam().status);
    EXPECT_THAT(TakeSaves(), ElementsAre(GetParam().saved));
    EXPECT_EQ(TextOf(analysis, "V_Subsystem"), GetParam().saved.empty() ? "GTE" : "MODAPTS");
    KORSession::Current().ClearFaults();
    (void)Migrate();
    (void)TakeSaves();
    EXPECT_EQ(TextOf(analysis, "V_Subsystem"), "MODAPTS") << "a further run makes up for it";
  }
}

TEST_P(MigrationFaultTest, ShowsWhereNothingIsWritten) {
  Create("TA", "MTM1", "GTE");
  Inject(KORFault::Life::Always);
  EXPECT_EQ(Migrate(), GetParam().status_without_repair);
  EXPECT_THAT(TakeSaves(), ElementsAre(IsEmpty()));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, MigrationFaultTest,
    testing::Values(MigrationFault{"QueryStatusAndNull", "GetAllTimeAnalysis", KORFault::Kind::StatusAndNull,
                                   FaultStatus, FaultStatus, {}},
                    // The analyses came all the same: the last write is what counts.
                    MigrationFault{"QueryStatusAlone", "GetAllTimeAnalysis", KORFault::Kind::StatusAlone, S_OK,
                                   FaultStatus, {"TA"}},
                    MigrationFault{"QueryNullAlone", "GetAllTimeAnalysis", KORFault::Kind::NullAlone, S_OK, S_OK, {}},
                    // Whether the saving worked is not told.
                    MigrationFault{"SaveStatusAndNull", "Save", KORFault::Kind::StatusAndNull, S_OK, S_OK, {"TA"}},
                    MigrationFault{"SaveStatusAlone", "Save", KORFault::Kind::StatusAlone, S_OK, S_OK, {"TA"}},
                    MigrationFault{"SaveNullAlone", "Save", KORFault::Kind::NullAlone, S_OK, S_OK, {"TA"}}),
    support::RowName());

}  // namespace
