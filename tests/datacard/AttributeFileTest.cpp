// The file that names the attributes a customer has defined on the analysis, the operation and the system.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/ServiceTest.h"

namespace {

using support::ListOf;
using support::Texts;
using support::Unicode;

using Names = std::vector<std::string>;

class AttributeFileTest : public support::ServiceTest {
 protected:
  long Read(const std::string& path) {
    return _Services.ReadXMLFileWithUserDefinedAttributes(Unicode(path), _Analysis, _Operation, _System);
  }

  VEXSTMTimeAnalysisDlgServices _Services;
  KORListValKORUnicodeString _Analysis;
  KORListValKORUnicodeString _Operation;
  KORListValKORUnicodeString _System;
};

struct AttributeRow {
  const char* name;
  std::string inner;
  long status;
  Names analysis, operation, system;
};

class AttributeTest : public AttributeFileTest, public testing::WithParamInterface<AttributeRow> {};

TEST_P(AttributeTest, NamesAreAppendedToTheThreeLists) {
  const AttributeRow& row = GetParam();
  EXPECT_EQ(Read(_Folder.Write("attributes.xml", "<ATTRIBUTES>" + row.inner + "</ATTRIBUTES>")), row.status);
  EXPECT_EQ(Texts(_Analysis), row.analysis);
  EXPECT_EQ(Texts(_Operation), row.operation);
  EXPECT_EQ(Texts(_System), row.system);
}

const std::string Analysis = "<TIMEANALYSISATTRIB><NAME>Plant</NAME><NAME>Shift</NAME></TIMEANALYSISATTRIB>";
const std::string Operation = "<OPERATIONATTRIB><NAME>Station</NAME></OPERATIONATTRIB>";
const std::string System = "<SYSTEMATTRIB><NAME>Line</NAME></SYSTEMATTRIB>";

INSTANTIATE_TEST_SUITE_P(
    Files, AttributeTest,
    testing::Values(
        AttributeRow{"AllKinds", Analysis + Operation + System, S_OK, {"Plant", "Shift"}, {"Station"}, {"Line"}},
        AttributeRow{"AnyOrder", System + Operation + Analysis, S_OK, {"Plant", "Shift"}, {"Station"}, {"Line"}},
        AttributeRow{"NestedDeeper",
                     "<X>" + Analysis + "<Y>" + Operation + "</Y></X>" + System,
                     S_OK,
                     {"Plant", "Shift"},
                     {"Station"},
                     {"Line"}},
        AttributeRow{"NoOperation", Analysis + System, E_FAIL, {"Plant", "Shift"}, {}, {}},
        AttributeRow{"NoAnalysis", Operation + System, E_FAIL, {}, {}, {}},
        AttributeRow{"NoSystem", Analysis + Operation, E_FAIL, {"Plant", "Shift"}, {"Station"}, {}},
        AttributeRow{"Nothing", "", E_FAIL, {}, {}, {}},
        AttributeRow{"KindWithoutNames", "<TIMEANALYSISATTRIB/>" + Operation + System, S_OK, {}, {"Station"}, {"Line"}},
        AttributeRow{"TwoElementsOfOneKind",
                     Analysis + "<TIMEANALYSISATTRIB><NAME>Cell</NAME></TIMEANALYSISATTRIB>" + Operation + System,
                     S_OK,
                     {"Plant", "Shift", "Cell"},
                     {"Station"},
                     {"Line"}},
        AttributeRow{"EmptyNameFirst",
                     "<TIMEANALYSISATTRIB><NAME/><NAME>A</NAME></TIMEANALYSISATTRIB>" + Operation + System,
                     S_OK,
                     {"", "A"},
                     {"Station"},
                     {"Line"}},
        AttributeRow{
            "EmptyNameRepeatsTheOneBefore",
            "<TIMEANALYSISATTRIB><NAME>A</NAME><NAME/><NAME>B</NAME><NAME/></TIMEANALYSISATTRIB>" + Operation + System,
            S_OK,
            {"A", "A", "B", "B"},
            {"Station"},
            {"Line"}},
        AttributeRow{"EmptyNameOfALaterElementIsEmpty",
                     "<TIMEANALYSISATTRIB><NAME>A</NAME></TIMEANALYSISATTRIB><TIMEANALYSISATTRIB><NAME/>"
                     "</TIMEANALYSISATTRIB>" +
                         Operation + System,
                     S_OK,
                     {"A", ""},
                     {"Station"},
                     {"Line"}},
        AttributeRow{
            "NameNestedDeeperIsNotRead",
            "<TIMEANALYSISATTRIB><G><NAME>A</NAME></G><NAME>B</NAME></TIMEANALYSISATTRIB>" + Operation + System,
            S_OK,
            {"B"},
            {"Station"},
            {"Line"}},
        AttributeRow{"OtherChildrenArePassedOver",
                     "<TIMEANALYSISATTRIB>text<TITLE>x</TITLE><!-- y --><NAME>A</NAME></TIMEANALYSISATTRIB>" +
                         Operation + System,
                     S_OK,
                     {"A"},
                     {"Station"},
                     {"Line"}},
        AttributeRow{"BlanksStay",
                     "<TIMEANALYSISATTRIB><NAME> A </NAME></TIMEANALYSISATTRIB>" + Operation + System,
                     S_OK,
                     {" A "},
                     {"Station"},
                     {"Line"}},
        AttributeRow{"FirstChildOnly",
                     "<TIMEANALYSISATTRIB><NAME>A<X/>B</NAME></TIMEANALYSISATTRIB>" + Operation + System,
                     S_OK,
                     {"A"},
                     {"Station"},
                     {"Line"}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(AttributeFileTest, EarlierContentStaysInFront) {
  _Analysis = ListOf({"a"});
  _Operation = ListOf({"b"});
  _System = ListOf({"c"});
  EXPECT_EQ(Read(_Folder.Write("attributes.xml", "<R>" + Analysis + Operation + System + "</R>")), S_OK);
  EXPECT_EQ(Texts(_Analysis), (Names{"a", "Plant", "Shift"}));
  EXPECT_EQ(Texts(_Operation), (Names{"b", "Station"}));
  EXPECT_EQ(Texts(_System), (Names{"c", "Line"}));
}

TEST_F(AttributeFileTest, TwoCallsGiveEveryNameTwice) {
  const std::string path = _Folder.Write("attributes.xml", "<R>" + Analysis + Operation + System + "</R>");
  EXPECT_EQ(Read(path), S_OK);
  EXPECT_EQ(Read(path), S_OK);
  EXPECT_EQ(Texts(_Analysis), (Names{"Plant", "Shift", "Plant", "Shift"}));
  EXPECT_EQ(Texts(_Operation), (Names{"Station", "Station"}));
  EXPECT_EQ(Texts(_System), (Names{"Line", "Line"}));
}

TEST_F(AttributeFileTest, EachCallParsesAnew) {
  Read(_Folder.Write("attributes.xml", "<R>" + Analysis + Operation + System + "</R>"));
  EXPECT_EQ(Read(_Folder.Write("attributes.xml", "<R/>")), E_FAIL);
}

TEST_F(AttributeFileTest, FileThatCannotBeParsedFailsAndLeavesAMessage) {
  _Analysis = ListOf({"a"});
  EXPECT_EQ(Read(_Folder.Write("broken.xml", "<R>" + Analysis)), E_FAIL);
  EXPECT_EQ(Read(_Folder.Path("missing.xml")), E_FAIL);
  EXPECT_EQ(Read(_Folder.MakeFolder("folder")), E_FAIL);
  EXPECT_EQ(Texts(_Analysis), Names{"a"});
  KORListValKORUnicodeString messages;
  EXPECT_EQ(_Services.GetXMLSyntaxErrorList(messages), S_OK);
  EXPECT_EQ(messages.Size(), 3);
}

TEST_F(AttributeFileTest, EmptyPathFailsInSilence) {
  EXPECT_EQ(Read(""), E_FAIL);
  KORListValKORUnicodeString messages;
  EXPECT_EQ(_Services.GetXMLSyntaxErrorList(messages), E_FAIL);
}

}  // namespace
