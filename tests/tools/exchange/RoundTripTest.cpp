// Analyses that go out as streams and come in again: what comes back, and what is told of what does not.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/formula/ScopedLocale.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/tools/ToolRun.h"
#include "tests/tools/exchange/ModelComparison.h"
#include "tests/tools/exchange/RandomFile.h"

namespace {

namespace files = std::filesystem;

const std::string examples = TEST_SOURCE_DIR "/../examples";
const std::string frozen_catalogue = TEST_SOURCE_DIR "/tools/cases/catalogue";

// Places, as Differences writes them, that messages tell of: "FILE, line 4: key Description ..." is "4 Description".
std::set<std::string> PlacesTold(const std::string& messages, const std::string& path) {
  std::set<std::string> places;
  std::istringstream lines(messages);
  for (std::string line; std::getline(lines, line);) {
    const std::string start = "timeanalysis: " + path;
    if (!line.starts_with(start)) continue;
    const std::string rest = line.substr(start.size());
    const std::size_t key = rest.find(": key ");
    const std::size_t attribute = rest.find(": attribute ");
    const auto word = [&rest](std::size_t from) { return rest.substr(from, rest.find_first_of(" :", from) - from); };
    if (key != std::string::npos) {
      places.insert(word(7) + " " + word(key + 6));  // behind ", line "
    } else if (attribute != std::string::npos) {
      places.insert(word(attribute + 12));
    }
  }
  return places;
}

// The places of rows as those of the lines of their file.
std::set<std::string> RowsAsLines(const std::set<std::string>& places, const nlohmann::json& analysis) {
  std::set<std::string> as_lines;
  for (const std::string& place : places) {
    const std::size_t blank = place.find(' ');
    if (blank == std::string::npos) {
      as_lines.insert(place);
    } else {
      const std::size_t line = analysis["lines"][std::stoul(place) - 1]["line"];
      as_lines.insert(std::to_string(line) + place.substr(blank));
    }
  }
  return as_lines;
}

// The analyses that calc computes of a path, by their identifiers.
std::map<std::string, nlohmann::json> Computed(const std::string& path, const std::string& catalogue) {
  std::map<std::string, nlohmann::json> analyses;
  std::istringstream lines(RunInProcess({"calc", path, "--json", "--catalogue", catalogue}).Output);
  for (std::string line; std::getline(lines, line);) {
    nlohmann::json analysis = nlohmann::json::parse(line);
    analyses[analysis["identifier"]] = analysis;
  }
  return analyses;
}

// Without the printed frequency of lines with a formula, which goes with that and is told of with it.
std::set<std::string> WithoutPrintedFrequency(const std::set<std::string>& places) {
  std::set<std::string> others;
  for (const std::string& place : places) {
    const bool has_formula = places.count(place.substr(0, place.find(' ')) + " FormulaParameter") != 0;
    if (!place.ends_with(" FrequencyString") || !has_formula) others.insert(place);
  }
  return others;
}

struct RoundTrip {
  KORSession Before;
  KORSession After;
  support::TemporaryFolder Folder;
  ToolOutcome Export;
  ToolOutcome Import;

  RoundTrip(const std::string& path, const std::string& catalogue, const std::vector<std::string>& options = {}) {
    std::vector<std::string> arguments{"export", path, "--into", Folder.Path("out"), "--catalogue", catalogue};
    arguments.insert(arguments.end(), options.begin(), options.end());
    Export = RunInSession(Before, arguments);
    if (!files::exists(Folder.Path("out"))) return;
    Import = RunInSession(After, {"import", Folder.Path("out"), "--format", "stream", "--into", Folder.Path("again")});
  }

  std::set<std::string> DifferencesOf(const std::string& identifier) {
    const auto before = FindAnalysis(Before, identifier);
    const auto after = FindAnalysis(After, identifier);
    if (before.IsNull() || after.IsNull()) return {"no analysis " + identifier};
    return Differences(*before, *after);
  }
};

class ExampleFolderTest : public testing::TestWithParam<const char*> {};

TEST_P(ExampleFolderTest, ComesBackButForWhatIsTold) {
  const std::string folder = examples + "/" + GetParam();
  RoundTrip trip(folder, CATALOGUE_FOLDER, {"--lossy"});
  EXPECT_EQ(trip.Export.ExitStatus, 0) << trip.Export.Errors;
  EXPECT_EQ(trip.Import.ExitStatus, 0) << trip.Import.Errors;
  EXPECT_EQ(trip.Import.Errors, "");
  for (const auto& [identifier, analysis] : Computed(folder, CATALOGUE_FOLDER)) {
    SCOPED_TRACE(identifier);
    const std::set<std::string> differences = WithoutPrintedFrequency(trip.DifferencesOf(identifier));
    EXPECT_EQ(RowsAsLines(differences, analysis), PlacesTold(trip.Export.Errors, analysis["file"]));
    // What has come in goes out as it came.
    EXPECT_EQ(trip.Folder.Read("out/" + identifier + ".stream"), trip.Folder.Read("again/" + identifier + ".stream"));
  }
}

INSTANTIATE_TEST_SUITE_P(All, ExampleFolderTest, testing::Values("worked", "model"));

// Those without a ":" in a description and without a formula.
struct PlainExample {
  const char* name;
  const char* file;
  const char* identifier;
};

class PlainExampleTest : public testing::TestWithParam<PlainExample> {};

TEST_P(PlainExampleTest, ComesBackWhole) {
  RoundTrip trip(examples + "/" + GetParam().file, CATALOGUE_FOLDER);
  EXPECT_EQ(trip.Export.ExitStatus, 0) << trip.Export.Errors;
  EXPECT_EQ(trip.Export.Errors + trip.Import.Errors, "");
  EXPECT_EQ(trip.DifferencesOf(GetParam().identifier), std::set<std::string>());
}

INSTANTIATE_TEST_SUITE_P(
    All, PlainExampleTest,
    testing::Values(PlainExample{"FetchAndPlace", "worked/mtm1-fetch-and-place.csv", "mtm1-fetch-and-place"},
                    PlainExample{"Crank", "worked/mtm1-crank.csv", "mtm1-crank"},
                    PlainExample{"Modapts", "worked/modapts-walk-bend-place.csv", "modapts-walk-bend-place"},
                    PlainExample{"EnteredTime", "worked/entered-time.csv", "entered-time"},
                    PlainExample{"TakeScrew", "model/parts/take-screw.csv", "take-screw"},
                    PlainExample{"Pack", "model/op20/pack.csv", "pack"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(RoundTrip, KeepsReferencesAmongAnalyses) {
  const support::TemporaryFolder folder;
  folder.Write("a.csv", "# system: STD\ncode,reuse\nWALK,\n,deep/b\n");
  folder.Write("deep/b.csv", "# system: STD\ncode,frequency\nGR5,2\n");
  RoundTrip trip(folder.Path(), frozen_catalogue);
  EXPECT_EQ(trip.Export.Errors + trip.Import.Errors, "");
  EXPECT_EQ(trip.DifferencesOf("a"), std::set<std::string>());
  EXPECT_EQ(trip.DifferencesOf("deep/b"), std::set<std::string>());
}

TEST(RoundTrip, KeepsTheIdentifierOfAReusedAnalysisThatIsNotThere) {
  const support::TemporaryFolder folder;
  folder.Write("a.csv", "# system: STD\ncode,reuse\nWALK,\n,b\n");
  folder.Write("b.csv", "# system: STD\ncode\nGR5\n");
  RoundTrip trip(folder.Path("a.csv"), frozen_catalogue);
  EXPECT_EQ(trip.Export.Errors, "");
  EXPECT_EQ(trip.DifferencesOf("a"), std::set<std::string>());
  EXPECT_EQ(trip.Import.ExitStatus, 1);
  EXPECT_NE(trip.Import.Errors.find("a.stream, row 2: the reused analysis \"b\" is not among the streams"),
            std::string::npos)
      << trip.Import.Errors;
}

TEST(RoundTrip, IsTheSameUnderALocaleWithADecimalComma) {
  const support::TemporaryFolder folder;
  folder.Write("a.csv", "# system: STD\ncode,frequency,seconds\nWALK,0.5,\n,1.25,0.125\n");
  RoundTrip plain(folder.Path("a.csv"), frozen_catalogue);
  const formulatest::ScopedLocale comma(COMMA_LOCALE);
  ASSERT_TRUE(comma.IsInForce()) << COMMA_LOCALE << " cannot be had; LOCPATH must name the folder of the locales";
  RoundTrip trip(folder.Path("a.csv"), frozen_catalogue);
  EXPECT_EQ(trip.Export.Errors + trip.Import.Errors, "");
  EXPECT_EQ(trip.DifferencesOf("a"), std::set<std::string>());
  EXPECT_EQ(trip.Folder.Read("out/a.stream"), plain.Folder.Read("out/a.stream"));
}

// Seconds are not TMU by the standard here; import has to be told the same.
TEST(RoundTrip, FollowsTheSettingOfTheSite) {
  const support::TemporaryFolder folder;
  folder.Write("a.csv", "# system: STD\ncode\nWALK\n");
  const std::string settings = folder.Write("my.settings", "mintotmuconversion = 2000\n");
  KORSession before, after, other;
  RunInSession(before, {"export", folder.Path("a.csv"), "--into", folder.Path("out"), "--catalogue", frozen_catalogue,
                        "--settings", settings});
  RunInSession(after, {"import", folder.Path("out/a.stream"), "--settings", settings});
  RunInSession(other, {"import", folder.Path("out/a.stream")});
  EXPECT_EQ(Differences(*FindAnalysis(before, "a"), *FindAnalysis(after, "a")), std::set<std::string>());
  const std::set<std::string> seconds{"V_HumanTime", "V_MachineTime", "V_SetupTime", "V_TotalTime", "V_WaitingTime"};
  EXPECT_EQ(Differences(*FindAnalysis(before, "a"), *FindAnalysis(other, "a")), seconds)
      << "the totals in TMU are not those of the lines, so that nothing follows from them";
}

constexpr unsigned rounds = 150;

TEST(RandomRoundTrip, ComesBackWholeWhereNothingIsTold) {
  int with_lines = 0;
  for (unsigned seed = 1; seed <= rounds; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomFile random(seed);
    const support::TemporaryFolder folder;
    folder.Write("deep/b.csv", random.Draw({}, false));
    folder.Write("a.csv", random.Draw({"deep/b"}, false));
    RoundTrip trip(folder.Path(), frozen_catalogue);
    ASSERT_EQ(trip.Export.Errors + trip.Import.Errors, "");
    for (const char* identifier : {"a", "deep/b"}) {
      EXPECT_EQ(trip.DifferencesOf(identifier), std::set<std::string>());
      const auto analysis = FindAnalysis(trip.After, identifier);
      int count = 0;
      analysis->GetLineCount(count);
      with_lines += count > 0 ? 1 : 0;
      const std::string stream = std::string(identifier) + ".stream";
      EXPECT_EQ(trip.Folder.Read("out/" + stream), trip.Folder.Read("again/" + stream));
    }
  }
  EXPECT_GT(with_lines, static_cast<int>(rounds));
}

TEST(RandomRoundTrip, LosesWhatIsToldAndNothingElse) {
  int with_losses = 0;
  for (unsigned seed = 1; seed <= rounds; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    const support::TemporaryFolder folder;
    const std::string text = RandomFile(seed).Draw({}, true);
    const std::string path = folder.Write("a.csv", text);
    const ToolOutcome strict =
        RunInProcess({"export", path, "--into", folder.Path("strict"), "--catalogue", frozen_catalogue});
    RoundTrip trip(path, frozen_catalogue, {"--lossy"});
    ASSERT_EQ(trip.Export.ExitStatus, 0) << trip.Export.Errors;
    const std::set<std::string> differences = WithoutPrintedFrequency(trip.DifferencesOf("a"));
    const nlohmann::json analysis = Computed(path, frozen_catalogue)["a"];
    EXPECT_EQ(RowsAsLines(differences, analysis), PlacesTold(trip.Export.Errors, path)) << text << trip.Export.Errors;
    EXPECT_EQ(strict.ExitStatus, differences.empty() ? 0 : 1);
    EXPECT_EQ(files::exists(folder.Path("strict/a.stream")), differences.empty());
    with_losses += differences.empty() ? 0 : 1;
  }
  EXPECT_GT(with_losses, static_cast<int>(rounds) / 4);
  EXPECT_LT(with_losses, static_cast<int>(rounds));
}

}  // namespace
