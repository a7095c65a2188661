// Single cells of a file changed, and every other byte kept.
#include "tools/impact/FileCells.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using tool::CellChange;
using tool::WithCellsChanged;

struct CellsRow {
  const char* name;
  std::string text;
  std::vector<CellChange> changes;
  std::string expected;
};

class FileCellsTest : public testing::TestWithParam<CellsRow> {};

TEST_P(FileCellsTest, ChangesNothingElse) {
  EXPECT_EQ(WithCellsChanged(GetParam().text, GetParam().changes), GetParam().expected);
}

const std::string byte_order_mark = "\xEF\xBB\xBF";

INSTANTIATE_TEST_SUITE_P(
    Rows, FileCellsTest,
    testing::Values(
        CellsRow{"NoChange", "a,b\n1,2\n", {}, "a,b\n1,2\n"},
        CellsRow{"OneCell", "a,b\n1,2\n", {{2, 2, "35"}}, "a,b\n1,35\n"},
        CellsRow{"FirstAndLastCell", "a,b\n1,2\n", {{2, 1, "x"}, {2, 2, "y"}}, "a,b\nx,y\n"},
        CellsRow{"SeveralRows", "a\n1\n2\n3\n", {{2, 1, "x"}, {4, 1, "z"}}, "a\nx\n2\nz\n"},
        CellsRow{"LineEndsOfWindows", "a,b\r\n1,2\r\n\r\n3,4\r\n", {{4, 2, "9"}}, "a,b\r\n1,2\r\n\r\n3,9\r\n"},
        CellsRow{"LineEndsOfOldSystems", "a\r1\r2\r", {{3, 1, "9"}}, "a\r1\r9\r"},
        CellsRow{"MixedLineEnds", "a\r\n1\n2\r3", {{4, 1, "9"}}, "a\r\n1\n2\r9"},
        CellsRow{"LastLineWithoutEnd", "a\n1", {{2, 1, "9"}}, "a\n9"},
        CellsRow{"CommentsAndBlankRows", "# x, y\na\n\n ,\n# z\n1\n#", {{6, 1, "9"}}, "# x, y\na\n\n ,\n# z\n9\n#"},
        CellsRow{"ByteOrderMark", byte_order_mark + "a\n1\n", {{2, 1, "9"}}, byte_order_mark + "a\n9\n"},
        CellsRow{"QuotesStay", "a\n\"1\"\n", {{2, 1, "9"}}, "a\n\"9\"\n"},
        CellsRow{"BlanksAroundStay", "a,b\n 1\t, \n", {{2, 1, "9"}}, "a,b\n 9\t, \n"},
        CellsRow{"BlanksInsideQuotesStay", "a\n\" 1 \"\n", {{2, 1, "9"}}, "a\n\" 9 \"\n"},
        CellsRow{"QuotesOfOtherCells", "a,b\n\"x, \"\"y\"\"\",1\n", {{2, 2, "9"}}, "a,b\n\"x, \"\"y\"\"\",9\n"},
        CellsRow{"LineEndsInOtherCells", "a,b\n\"x\r\ny\",1\nz,2\n", {{4, 2, "9"}}, "a,b\n\"x\r\ny\",1\nz,9\n"},
        CellsRow{"TextBehindTheQuote", "a\n\"1\"2\n", {{2, 1, "9"}}, "a\n9\n"},
        CellsRow{"QuoteInsideAPlainCell", "a\n1\"\n", {{2, 1, "9"}}, "a\n9\n"},
        CellsRow{"Semicolons", "a;b\n1,5;2\n", {{2, 2, "9"}}, "a;b\n1,5;9\n"},
        CellsRow{"Tabs", "a\tb\n1\t2\n", {{2, 2, "9"}}, "a\tb\n1\t9\n"},
        CellsRow{"BytesOfNoUtf8", "a,b\nT\xFCr,1\n", {{2, 2, "9"}}, "a,b\nT\xFCr,9\n"},
        CellsRow{"EmptyCell", "a,b,c\n1,,3\n", {{2, 2, "9"}}, "a,b,c\n1,9,3\n"},
        CellsRow{"EmptyQuotedCell", "a,b\n1,\"\"\n", {{2, 2, "9"}}, "a,b\n1,\"9\"\n"}),
    [](const auto& row) { return std::string(row.param.name); });

struct NoCellRow {
  const char* name;
  const char* text;
  CellChange change;
};

class NoSuchCellTest : public testing::TestWithParam<NoCellRow> {};

TEST_P(NoSuchCellTest, GivesNothing) {
  EXPECT_EQ(WithCellsChanged(GetParam().text, {GetParam().change}), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Rows, NoSuchCellTest,
                         testing::Values(NoCellRow{"NoSuchLine", "a\n1\n", {3, 1, "9"}},
                                         NoCellRow{"NoSuchPlace", "a\n1\n", {2, 2, "9"}},
                                         NoCellRow{"PlaceZero", "a\n1\n", {2, 0, "9"}},
                                         NoCellRow{"InsideACell", "a\n\"1\n2\"\n", {3, 1, "9"}},
                                         NoCellRow{"Comment", "a\n#1\n", {2, 1, "9"}},
                                         NoCellRow{"BehindAnOpenQuote", "a\n\"1\n2\n", {3, 1, "9"}}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(FileCells, OneCellTwiceGivesNothing) {
  EXPECT_EQ(WithCellsChanged("a\n1\n", {{2, 1, "8"}, {2, 1, "9"}}), std::nullopt);
}

}  // namespace
