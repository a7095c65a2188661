// The numbers of cards and entries of a data card file.
#include <gtest/gtest.h>

#include <string>

#include "tests/support/ServiceTest.h"

namespace {

using support::Unicode;

class CardCountTest : public support::ServiceTest {
 protected:
  long ReadCards(const std::string& path) { return _Services.ReadDCFromFile(Unicode(path), _CardCount, _EntryCount); }

  VEXSTMTimeAnalysisDlgServices _Services;
  int _CardCount = -7;
  int _EntryCount = -8;
};

TEST_F(CardCountTest, CardsAndEntriesAnywhereBelowTheRootAreCounted) {
  const std::string text =
      "<R><G><DATACARD><DATACARDENTRY/><X><DATACARDENTRY/></X></DATACARD></G><DATACARD/><DATACARDENTRY/></R>";
  EXPECT_EQ(ReadCards(_Folder.Write("cards.xml", text)), S_OK);
  EXPECT_EQ(_CardCount, 2);
  EXPECT_EQ(_EntryCount, 3);
}

TEST_F(CardCountTest, CardsWithoutEntries) {
  EXPECT_EQ(ReadCards(_Folder.Write("cards.xml", "<R><DATACARD/><DATACARD/></R>")), S_OK);
  EXPECT_EQ(_CardCount, 2);
  EXPECT_EQ(_EntryCount, 0);
}

TEST_F(CardCountTest, FileWithoutCards) {
  EXPECT_EQ(ReadCards(_Folder.Write("cards.xml", "<R/>")), S_OK);
  EXPECT_EQ(_CardCount, 0);
  EXPECT_EQ(_EntryCount, 0);
}

TEST_F(CardCountTest, SecondCallFailsAndLeavesTheCounts) {
  const std::string path = _Folder.Write("cards.xml", "<R><DATACARD/></R>");
  EXPECT_EQ(ReadCards(path), S_OK);
  _CardCount = -7;
  _EntryCount = -8;
  EXPECT_EQ(ReadCards(path), E_FAIL);
  EXPECT_EQ(ReadCards(_Folder.Path("missing.xml")), E_FAIL);
  EXPECT_EQ(_CardCount, -7);
  EXPECT_EQ(_EntryCount, -8);
  KORListValKORUnicodeString messages;
  EXPECT_EQ(_Services.GetXMLSyntaxErrorList(messages), E_FAIL);
}

TEST_F(CardCountTest, FailedReadLeavesTheCountsAndAGoodOneMayFollow) {
  EXPECT_EQ(ReadCards(_Folder.Path("missing.xml")), E_FAIL);
  EXPECT_EQ(ReadCards(_Folder.Write("broken.xml", "<R>")), E_FAIL);
  EXPECT_EQ(_CardCount, -7);
  EXPECT_EQ(_EntryCount, -8);
  EXPECT_EQ(ReadCards(_Folder.Write("cards.xml", "<R><DATACARD><DATACARDENTRY/></DATACARD></R>")), S_OK);
  EXPECT_EQ(_CardCount, 1);
  EXPECT_EQ(_EntryCount, 1);
}

TEST_F(CardCountTest, OneFileMayServeAsEntryFileAndAsCardFile) {
  const std::string path =
      _Folder.Write("both.xml",
                    "<R><DATACARD><DATACARDENTRY><CODE_ID>1</CODE_ID><CODE>A</CODE><LABEL>L</LABEL><TIME>4</TIME>"
                    "</DATACARDENTRY></DATACARD></R>");
  EXPECT_EQ(_Services.ReadDCEntriesFromFile(Unicode(path)), S_OK);
  EXPECT_EQ(ReadCards(path), S_OK);
  EXPECT_EQ(_CardCount, 1);
  EXPECT_EQ(_EntryCount, 1);
  ASSERT_EQ(_Services.GetDCEntriesCount(), 1);
  EXPECT_EQ(support::Text(_Services.GetDCEntry(0)->_Code), "A");
  EXPECT_EQ(support::Text(_Services.GetDCEntry(0)->_Time), "4");
}

}  // namespace
