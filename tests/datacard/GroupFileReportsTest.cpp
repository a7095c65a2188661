// What is reported of group files that cannot be used.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/CatalogueFilesTest.h"

namespace {

using support::CatalogueFilesTest;
using support::ListOf;
using support::Text;
using support::Texts;
using support::Unicode;

struct MissingFieldRow {
  const char* name;
  const char* system;
  const char* file;
  const char* group;
  bool reported;
};

class MissingFieldTest : public CatalogueFilesTest, public testing::WithParamInterface<MissingFieldRow> {};

TEST_P(MissingFieldTest, IsReportedForFilesThatClaimTheSystem) {
  _Folder.Write(std::string("installed/DataCard/") + GetParam().file, support::DataCardFile(GetParam().group));
  EXPECT_EQ(List(GetParam().system), S_OK);
  KORListValKORUnicodeString list = ListOf({"before"});
  EXPECT_EQ(_Services.GetDCsWithMissingFieldsList(list), GetParam().reported ? S_OK : E_FAIL);
  EXPECT_EQ(Texts(list), std::vector<std::string>{GetParam().reported ? GetParam().file : "before"});
}

constexpr const char* NoName = "<DATACARDGROUP><SUBSYSTEM>STD</SUBSYSTEM></DATACARDGROUP>";

// A file is reported if its name holds "dcg" and the name of the system, as given or in lower case.
INSTANTIATE_TEST_SUITE_P(
    Files, MissingFieldTest,
    testing::Values(MissingFieldRow{"NoName", "STD", "dcg_std.xml", NoName, true},
                    MissingFieldRow{"SystemAsGiven", "STD", "dcg_STD.xml", NoName, true},
                    MissingFieldRow{"SystemInMixedCase", "STD", "dcg_Std.xml", NoName, false},
                    MissingFieldRow{"GroupMarkInCapitals", "STD", "DCG_std.xml", NoName, false},
                    MissingFieldRow{"NoGroupMark", "STD", "std.xml", NoName, false},
                    MissingFieldRow{"OtherSystemInTheName", "STD", "dcg_uas.xml", NoName, false},
                    MissingFieldRow{"MarkAndSystemAnywhere", "STD", "my-std-dcg.xml", NoName, true},
                    MissingFieldRow{"NameHoldsTheSystem", "MOST", "dcg_minimost.xml",
                                    "<DATACARDGROUP><SUBSYSTEM>MOST</SUBSYSTEM></DATACARDGROUP>", true},
                    MissingFieldRow{"NoSystem", "STD", "dcg_std.xml", "<DATACARDGROUP><NAME>A</NAME></DATACARDGROUP>",
                                    true},
                    MissingFieldRow{"NoSystemAndNoNameIsReportedOnce", "STD", "dcg_std.xml", "<DATACARDGROUP/>", true},
                    MissingFieldRow{"NoGroup", "STD", "dcg_std.xml", "<SUBSYSTEM>STD</SUBSYSTEM><NAME>A</NAME>", true},
                    MissingFieldRow{"NothingAtAll", "STD", "dcg_std.xml", "", true},
                    MissingFieldRow{"NoGroupInAnotherFile", "STD", "other.xml", "", false},
                    MissingFieldRow{"EmptySystemIsThere", "STD", "dcg_std.xml",
                                    "<DATACARDGROUP><SUBSYSTEM/></DATACARDGROUP>", false},
                    MissingFieldRow{"OtherSystemIsNoMissingField", "STD", "dcg_std.xml",
                                    "<DATACARDGROUP><SUBSYSTEM>UAS</SUBSYSTEM></DATACARDGROUP>", false},
                    MissingFieldRow{"EmptyNameIsThere", "STD", "dcg_std.xml",
                                    "<DATACARDGROUP><SUBSYSTEM>STD</SUBSYSTEM><NAME/></DATACARDGROUP>", false},
                    MissingFieldRow{"Complete", "STD", "dcg_std.xml",
                                    "<DATACARDGROUP><SUBSYSTEM>STD</SUBSYSTEM><NAME>A</NAME></DATACARDGROUP>", false}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(CatalogueFilesTest, MissingFieldsAreHandedOverOnce) {
  _Folder.Write("installed/DataCard/dcg_std_a.xml", support::DataCardFile(""));
  _Folder.Write("installed/DataCard/dcg_std_b.xml", support::DataCardFile(NoName));
  List("STD");
  KORListValKORUnicodeString list;
  EXPECT_EQ(_Services.GetDCsWithMissingFieldsList(list), S_OK);
  EXPECT_EQ(Texts(list), (std::vector<std::string>{"dcg_std_a.xml", "dcg_std_b.xml"}));
  EXPECT_EQ(_Services.GetDCsWithMissingFieldsList(list), E_FAIL);
  EXPECT_EQ(list.Size(), 2);
}

TEST_F(CatalogueFilesTest, EachListingForgetsTheReportsBeforeIt) {
  _Folder.Write("installed/DataCard/dcg_std.xml", support::DataCardFile(NoName));
  _Folder.Write("installed/DataCard/dcg_std_broken.xml", "<R>");
  List("STD");
  List("STD");
  KORListValKORUnicodeString missing;
  EXPECT_EQ(_Services.GetDCsWithMissingFieldsList(missing), S_OK);
  EXPECT_EQ(missing.Size(), 1);
  KORListValKORUnicodeString messages;
  EXPECT_EQ(_Services.GetXMLSyntaxErrorList(messages), S_OK);
  EXPECT_EQ(messages.Size(), 1);

  List("STD");
  List("UAS");
  EXPECT_EQ(_Services.GetDCsWithMissingFieldsList(missing), E_FAIL);
}

TEST_F(CatalogueFilesTest, ListingForgetsTheMessagesOfOtherParses) {
  _Services.GetDOMDocument(Unicode(_Folder.Write("broken.xml", "<R>")));
  _Folder.MakeFolder("installed/DataCard");
  List("STD");
  KORListValKORUnicodeString messages;
  EXPECT_EQ(_Services.GetXMLSyntaxErrorList(messages), E_FAIL);
}

TEST_F(CatalogueFilesTest, FilesThatCannotBeParsedAreReportedAndTheOthersListed) {
  _Folder.Write("installed/DataCard/a.xml", "<R><DATACARDGROUP>");
  _Folder.MakeFolder("installed/DataCard/b.xml");
  _Folder.Write("installed/DataCard/c.xml", "");
  WriteGroupFile("installed/DataCard/d.xml", "STD", "Cards");
  EXPECT_EQ(List("STD"), S_OK);
  EXPECT_EQ(Texts(_Names), std::vector<std::string>{"Cards"});
  KORListValKORUnicodeString messages;
  ASSERT_EQ(_Services.GetXMLSyntaxErrorList(messages), S_OK);
  ASSERT_EQ(messages.Size(), 3);
  EXPECT_NE(Text(messages[1]).find("a.xml"), std::string::npos) << Text(messages[1]);
  EXPECT_NE(Text(messages[2]).find("b.xml"), std::string::npos) << Text(messages[2]);
  EXPECT_NE(Text(messages[3]).find("c.xml"), std::string::npos) << Text(messages[3]);
}

}  // namespace
