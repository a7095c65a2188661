// The figures of the shipped catalogue against tables written here, and what its files say about their sources.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "tests/support/ShippedCatalogue.h"

namespace {

using support::NumberOf;
using support::Text;
using support::TimeOf;
using support::Unicode;

class CatalogueFiguresTest : public support::ShippedCatalogueSession {
 protected:
  VEXSTMTimeAnalysisDlgServices _Services;
};

// ----------------------------------------------------------------------------------------------------------- MTM-2

struct DistanceRow {
  const char* motion;
  double tmu[5];  // by distance class
};

constexpr const char* DistanceClasses[] = {"5", "15", "30", "45", "80"};

// The 30 values of get and put, as generally published.
constexpr DistanceRow GetAndPut[] = {{"GA", {3, 6, 9, 13, 17}},    {"GB", {7, 10, 14, 18, 23}},
                                     {"GC", {14, 19, 23, 27, 32}}, {"PA", {3, 6, 11, 15, 20}},
                                     {"PB", {10, 15, 19, 24, 30}}, {"PC", {21, 26, 30, 36, 41}}};

struct CodeTmu {
  const char* code;
  double tmu;
};

// The seven single motions, and the two weights: 1 for each kg got, 1 for each 5 kg put.
constexpr CodeTmu SingleMotions[] = {{"A", 14}, {"R", 6},  {"E", 7},   {"C", 15}, {"S", 18},
                                     {"F", 9},  {"B", 61}, {"GW1", 1}, {"PW5", 1}};
constexpr CodeTmu Weights[] = {{"GW2", 2}, {"GW10", 10}, {"GW22", 22}, {"PW10", 2}, {"PW20", 4}};

TEST_F(CatalogueFiguresTest, AllValuesOfMtm2) {
  LoadSystem(_Services, "MTM2");
  std::vector<std::pair<std::string, double>> expected;
  for (const DistanceRow& row : GetAndPut) {
    for (std::size_t place = 0; place < std::size(DistanceClasses); ++place) {
      expected.emplace_back(std::string(row.motion) + DistanceClasses[place], row.tmu[place]);
    }
  }
  for (const CodeTmu& row : SingleMotions) expected.emplace_back(row.code, row.tmu);
  ASSERT_EQ(expected.size(), 39u);
  std::set<int> entries;
  for (const auto& [code, tmu] : expected) {
    EXPECT_EQ(NumberOf(TimeOf(_Services, code)), tmu) << code;
    EXPECT_FALSE(_Services.GetTACodeID().IsEmpty()) << code;
    entries.insert(_Services.GetCodeIndex());
  }
  EXPECT_EQ(entries.size(), 39u) << "each value has an entry of its own";
  EXPECT_EQ(_Services.GetDCEntriesCount(), 39) << "and there is no other";
  for (const CodeTmu& row : Weights) EXPECT_EQ(NumberOf(TimeOf(_Services, row.code)), row.tmu) << row.code;
}

// ------------------------------------------------------------------------------------------------ Standard analysis

struct StandardLine {
  const char* code;
  const char* time_type;
  double seconds;
};

// The lines of the standard analysis: code, time type and the time of one occurrence.
constexpr StandardLine StandardLines[] = {
    {"ALE05", "TTB", 0.288},          {"ALZ45", "TTB", 0.756}, {"AMZ60", "TTB", 1.08}, {"AKZ15", "TTB", 0.324},
    {"PLZ15", "TTB", 0.756},          {"GNU", "TTB", 0.216},   {"GKG", "TTB", 0.576},  {"PTUHMIN1", "TTU", 0.600000012},
    {"PTRHMIN2", "TRG", 1.199999988}, {"PTWHMIN3", "TW", 1.8}};

TEST_F(CatalogueFiguresTest, CodesOfTheStandardAnalysis) {
  LoadSystem(_Services, "STD");
  for (const StandardLine& line : StandardLines) {
    KORUnicodeString code = Unicode(line.code);
    KORUnicodeString time, description, time_type, frequency;
    _Services.GetTimeToCode(code, time, description, time_type, frequency);
    EXPECT_FALSE(_Services.GetTACodeID().IsEmpty()) << line.code;
    // The lookup prints six significant digits.
    EXPECT_NEAR(NumberOf(Text(time)), line.seconds / 0.036, 5e-5) << line.code;
    EXPECT_EQ(Text(time_type), line.time_type) << line.code;
  }
}

// --------------------------------------------------------------------------------------------------------- Sources

// The comment that a file opens with, behind the XML declaration; empty if something else comes first.
std::string OpeningComment(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::string content{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (content.starts_with("<?xml")) content.erase(0, content.find("?>") + 2);
  content.erase(0, content.find_first_not_of(" \t\r\n"));
  if (!content.starts_with("<!--")) return {};
  return content.substr(4, content.find("-->") - 4);
}

bool Holds(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

struct SourceRow {
  const char* name;
  const char* file_ending;  // of "dce_" and "dcg_"
  const char* source;       // what the entry file names as the origin of its figures
  const char* card_source;  // and the group file
};

class CatalogueSourceTest : public testing::TestWithParam<SourceRow> {};

TEST_P(CatalogueSourceTest, FilesOpenWithTheOriginOfTheirFigures) {
  const std::filesystem::path folder = CATALOGUE_FOLDER;
  const std::string ending = GetParam().file_ending;
  const std::string entries = OpeningComment(folder / "DataCardEntry" / ("dce_" + ending));
  EXPECT_TRUE(Holds(entries, "Figures: ")) << entries;
  EXPECT_TRUE(Holds(entries.substr(entries.find("Figures: ")), GetParam().source)) << entries;
  const std::string cards = OpeningComment(folder / "DataCard" / ("dcg_" + ending));
  EXPECT_TRUE(Holds(cards, GetParam().card_source)) << cards;
  EXPECT_TRUE(Holds(cards, "dce_" + ending)) << "the entry file tells the rest: " << cards;
}

INSTANTIATE_TEST_SUITE_P(
    Systems, CatalogueSourceTest,
    testing::Values(SourceRow{"Std", "std.xml", "standard analysis", "Sources and limits of the figures"},
                    SourceRow{"Uas", "uas.xml", "\"Demonstration:\"", "demonstration"},
                    SourceRow{"Mek", "mek.xml", "\"Demonstration:\"", "demonstration"},
                    SourceRow{"Azb", "azb.xml", "\"Demonstration:\"", "demonstration"},
                    SourceRow{"Mtm1", "mtm1.xml", "Maynard", "Sources and limits of the figures"},
                    SourceRow{"Mtm2", "mtm2.xml", "International Labour Office", "Sources and limits of the figures"},
                    SourceRow{"Rwf", "rwf.xml", "\"Demonstration:\"", "demonstration"},
                    SourceRow{"Sam", "sam.xml", "\"Demonstration:\"", "demonstration"},
                    SourceRow{"Most", "most.xml", "Zandin", "Sources and limits of the figures"},
                    SourceRow{"MiniMost", "minimost.xml", "Zandin", "Sources and limits of the figures"},
                    SourceRow{"MaxiMost", "maximost.xml", "Zandin", "Sources and limits of the figures"},
                    SourceRow{"Modapts", "modapts.xml", "Heyde", "Sources and limits of the figures"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(CatalogueFolderTest, HoldsTwoFilesForEachSystem) {
  for (const char* folder : {"DataCardEntry", "DataCard"}) {
    int files = 0;
    for (const auto& file : std::filesystem::directory_iterator(std::filesystem::path(CATALOGUE_FOLDER) / folder)) {
      ++files;
      EXPECT_FALSE(OpeningComment(file.path()).empty()) << file.path();
    }
    EXPECT_EQ(files, 12) << folder;
  }
}

// -------------------------------------------------------------------------------------------------- Demonstrations

class DemonstrationTest : public support::ShippedCatalogueSession, public testing::WithParamInterface<const char*> {};

constexpr const char* Mark = "Demonstration:";

TEST_P(DemonstrationTest, EachTextOfTheCodesSaysSo) {
  VEXSTMTimeAnalysisDlgServices services;
  LoadSystem(services, GetParam());
  ASSERT_GT(services.GetDCEntriesCount(), 0);
  for (int index = 0; index < services.GetDCEntriesCount(); ++index) {
    const VEXSTMDataCardEntriesScan& entry = *services.GetDCEntry(index);
    EXPECT_TRUE(Text(entry._Text).starts_with(Mark)) << Text(entry._Code) << ' ' << Text(entry._Text);
    EXPECT_TRUE(Text(entry._LocalText).starts_with(Mark)) << Text(entry._Code) << ' ' << Text(entry._LocalText);
  }
}

TEST_P(DemonstrationTest, EachLabelOfTheCardsSaysSo) {
  VEXSTMTimeAnalysisDlgServices services;
  KORListValKORUnicodeString paths;
  KORListValKORUnicodeString names;
  ASSERT_EQ(services.GetDCGsList(GetParam(), paths, names), S_OK);
  ASSERT_EQ(paths.Size(), 1);
  int card_count = 0;
  int entry_count = 0;
  ASSERT_EQ(services.ReadDCFromFile(paths[1], card_count, entry_count), S_OK);
  ASSERT_GT(entry_count, 0);
  VEXSTMDataCardScan* scans = nullptr;
  KORListValKORUnicodeString descriptions;
  ASSERT_EQ(services.ScanDCFromFile(scans, descriptions, nullptr), S_OK);
  const std::unique_ptr<VEXSTMDataCardScan[]> owned(scans);
  for (int entry = 0; entry < entry_count; ++entry) {
    EXPECT_TRUE(Text(scans[entry]._Label).starts_with(Mark)) << Text(scans[entry]._Code);
  }
}

// Systems without generally published tables.
INSTANTIATE_TEST_SUITE_P(Systems, DemonstrationTest, testing::Values("UAS", "MEK", "AZB", "RWF", "SAM"),
                         [](const auto& row) { return std::string(row.param); });

}  // namespace
