// Codes near a mistyped one: the distance against a plain table, and what is named.
#include "tools/NearestCodes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "platform/system/KORSession.h"

namespace {

// The table of the distance, row by row.
std::size_t PlainDistance(const std::string& from, const std::string& to) {
  std::vector<std::size_t> row(to.size() + 1);
  for (std::size_t column = 0; column <= to.size(); ++column) row[column] = column;
  for (std::size_t line = 1; line <= from.size(); ++line) {
    std::size_t diagonal = row[0]++;
    for (std::size_t column = 1; column <= to.size(); ++column) {
      const std::size_t replaced = diagonal + (from[line - 1] == to[column - 1] ? 0 : 1);
      diagonal = row[column];
      row[column] = std::min({replaced, row[column] + 1, row[column - 1] + 1});
    }
  }
  return row.back();
}

TEST(EditDistance, IsThatOfThePlainTable) {
  std::mt19937 random(7);
  const auto text = [&random](std::size_t longest) {
    std::string drawn(random() % (longest + 1), 'A');
    for (char& character : drawn) character = static_cast<char>('A' + random() % 4);
    return drawn;
  };
  for (int round = 0; round < 20000; ++round) {
    const std::string from = text(round % 3 == 0 ? 64 : 6);
    const std::string to = text(round % 5 == 0 ? 80 : 6);
    ASSERT_EQ(tool::EditDistance(from, to), PlainDistance(from, to)) << from << " " << to;
  }
}

struct NearestRow {
  const char* name;
  std::string typed;
  std::vector<std::string> nearest;
};

class NearestCodesTest : public testing::TestWithParam<NearestRow> {};

TEST_P(NearestCodesTest, AreNamed) {
  KORSession session;
  const KORSession::Scope scope(session);
  session.AddRepository("VEXTimeAnalysisCommonOptions");
  session.SetEnvironment("KORStartupPath", TEST_SOURCE_DIR "/tools/cases/catalogue");
  VEXSTMTimeAnalysisDlgServices service;
  KORUnicodeString path;
  service.GetDCEXMLFilePath("STD", path);
  ASSERT_EQ(service.ReadDCEntriesFromFile(path), S_OK);
  tool::NearestCodes nearest(service);
  EXPECT_EQ(nearest.Find(GetParam().typed), GetParam().nearest);
}

// The frozen catalogue knows GR with a number from 2 to 79, L with a number, A or B and perhaps X, WAIT and WALK.
INSTANTIATE_TEST_SUITE_P(Rows, NearestCodesTest,
                         testing::Values(NearestRow{"WrongLetter", "WALC", {"WALK", "WAIT"}},
                                         NearestRow{"SwappedLetters", "WLAK", {"WALK"}},
                                         NearestRow{"LowerCaseAndBlanks", "l 30 c", {"L30A", "L30B"}},
                                         NearestRow{"OneTooMany", "WWAIT", {"WAIT"}},
                                         NearestRow{"OneMissing", "WAT", {"WAIT"}}, NearestRow{"Empty", "", {}},
                                         NearestRow{"NothingNear", "QQQQQQ", {}},
                                         NearestRow{"BeyondTheBound", std::string(65, 'W'), {}},
                                         NearestRow{"FarBeyondTheBound", std::string(100000, 'W'), {}},
                                         NearestRow{"NoUtf8", "WA\xE4K", {"WALK"}}),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
