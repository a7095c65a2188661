// Documents, root elements, texts of named elements, and the messages of parses that failed.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/DataCardText.h"
#include "tests/support/ServiceTest.h"

namespace {

using support::ListOf;
using support::Text;
using support::Texts;
using support::Unicode;

class XmlAccessTest : public support::ServiceTest {
 protected:
  KORIDOMDocument_var Parse(const std::string& path) { return _Services.GetDOMDocument(Unicode(path)); }

  std::vector<std::string> Messages() {
    KORListValKORUnicodeString messages;
    _Services.GetXMLSyntaxErrorList(messages);
    return Texts(messages);
  }

  VEXSTMTimeAnalysisDlgServices _Services;
};

TEST_F(XmlAccessTest, GoodFileGivesItsRoot) {
  const KORIDOMDocument_var document = Parse(_Folder.Write("good.xml", "<ROOT><A/></ROOT>"));
  ASSERT_FALSE(document.IsNull());
  EXPECT_EQ(_Services.GetRootElement(document).GetNodeName(), "ROOT");
  EXPECT_TRUE(Messages().empty());
}

TEST_F(XmlAccessTest, DocumentOutlivesTheServiceAndTheFile) {
  KORIDOMDocument_var document;
  {
    VEXSTMTimeAnalysisDlgServices services;
    document = services.GetDOMDocument(Unicode(_Folder.Write("good.xml", "<ROOT>text</ROOT>")));
  }
  EXPECT_EQ(_Services.GetRootElement(document).GetFirstChild().GetNodeValue(), "text");
}

TEST_F(XmlAccessTest, EachCallParsesAnew) {
  const KORIDOMDocument_var first = Parse(_Folder.Write("file.xml", "<A/>"));
  const KORIDOMDocument_var second = Parse(_Folder.Write("file.xml", "<B/>"));
  EXPECT_EQ(_Services.GetRootElement(first).GetNodeName(), "A");
  EXPECT_EQ(_Services.GetRootElement(second).GetNodeName(), "B");
}

TEST_F(XmlAccessTest, NullDocumentHasNoRoot) {
  EXPECT_TRUE(_Services.GetRootElement(KORIDOMDocument_var()).IsNull());
}

TEST_F(XmlAccessTest, FileThatBreaksItsDocumentTypeIsReadAllTheSame) {
  const std::string text = "<!DOCTYPE A [<!ELEMENT A (B)>]><A><C/></A>";
  EXPECT_FALSE(Parse(_Folder.Write("undeclared.xml", text)).IsNull());
}

TEST_F(XmlAccessTest, SyntaxErrorLeavesOneMessageThatIsHandedOverOnce) {
  const std::string path = _Folder.Write("broken.xml", "<A>\n<B></A>");
  EXPECT_TRUE(Parse(path).IsNull());
  KORListValKORUnicodeString messages = ListOf({"before"});
  EXPECT_EQ(_Services.GetXMLSyntaxErrorList(messages), S_OK);
  ASSERT_EQ(messages.Size(), 1);
  EXPECT_NE(Text(messages[1]).find(path), std::string::npos) << Text(messages[1]);
  EXPECT_NE(Text(messages[1]).find('2'), std::string::npos) << Text(messages[1]);

  KORListValKORUnicodeString untouched = ListOf({"before"});
  EXPECT_EQ(_Services.GetXMLSyntaxErrorList(untouched), E_FAIL);
  EXPECT_EQ(Texts(untouched), std::vector<std::string>{"before"});
}

TEST_F(XmlAccessTest, ThreeFailingFilesLeaveThreeMessagesInOrder) {
  for (const char* name : {"one.xml", "two.xml", "three.xml"}) Parse(_Folder.Write(name, "<A"));
  const std::vector<std::string> messages = Messages();
  ASSERT_EQ(messages.size(), 3u);
  EXPECT_NE(messages[0].find("one.xml"), std::string::npos);
  EXPECT_NE(messages[1].find("two.xml"), std::string::npos);
  EXPECT_NE(messages[2].find("three.xml"), std::string::npos);
}

TEST_F(XmlAccessTest, CopyCarriesTheMessagesAndLosesThemAlone) {
  Parse(_Folder.Write("broken.xml", "<A"));
  VEXSTMTimeAnalysisDlgServices copy(_Services);
  EXPECT_EQ(Messages().size(), 1u);
  KORListValKORUnicodeString messages;
  EXPECT_EQ(copy.GetXMLSyntaxErrorList(messages), S_OK);
  EXPECT_EQ(messages.Size(), 1);
}

struct BadFileRow {
  const char* name;
  std::string content;
};

class BadFileTest : public XmlAccessTest, public testing::WithParamInterface<BadFileRow> {};

TEST_P(BadFileTest, GivesNullAndOneMessageThatNamesTheFile) {
  const std::string path = _Folder.Write("bad.xml", GetParam().content);
  EXPECT_TRUE(Parse(path).IsNull());
  const std::vector<std::string> messages = Messages();
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_NE(messages[0].find("bad.xml"), std::string::npos) << messages[0];
}

std::string Repeat(const std::string& text, int times) {
  std::string repeated;
  for (int time = 0; time < times; ++time) repeated += text;
  return repeated;
}

INSTANTIATE_TEST_SUITE_P(
    Files, BadFileTest,
    testing::Values(BadFileRow{"Empty", ""}, BadFileRow{"BlanksOnly", "  \n "}, BadFileRow{"NoXml", "CODE;TIME\n"},
                    BadFileRow{"NoRoot", "<?xml version=\"1.0\"?><!-- nothing -->"},
                    BadFileRow{"OpenElement", "<A><B></B>"}, BadFileRow{"CrossedElements", "<A><B></A></B>"},
                    BadFileRow{"TwoRoots", "<A/><B/>"}, BadFileRow{"BareAmpersand", "<A>B & C</A>"},
                    BadFileRow{"NoUtf8", "<A>\xFF\xFE\x80</A>"}, BadFileRow{"NulByte", std::string("<A>\0</A>", 8)},
                    BadFileRow{"UnknownEncoding", "<?xml version=\"1.0\" encoding=\"X-NONE\"?><A/>"},
                    BadFileRow{"Nested100000Deep", Repeat("<A>", 100000) + Repeat("</A>", 100000)}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(XmlAccessTest, MissingFileLeavesAMessage) {
  EXPECT_TRUE(Parse(_Folder.Path("missing.xml")).IsNull());
  const std::vector<std::string> messages = Messages();
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_NE(messages[0].find("missing.xml"), std::string::npos) << messages[0];
}

TEST_F(XmlAccessTest, FolderInPlaceOfAFileLeavesAMessage) {
  EXPECT_TRUE(Parse(_Folder.MakeFolder("folder.xml")).IsNull());
  EXPECT_EQ(Messages().size(), 1u);
}

// The memory of the process can be opened as a file and not be read at its start, whoever runs the test.
TEST_F(XmlAccessTest, FileThatCannotBeReadLeavesAMessage) {
  EXPECT_TRUE(Parse("/proc/self/mem").IsNull());
  EXPECT_EQ(Messages().size(), 1u);
}

TEST_F(XmlAccessTest, EmptyPathHasNoInputSourceAndIsSilent) {
  EXPECT_TRUE(_Services.GetSaxInput("").IsNull());
  EXPECT_TRUE(Parse("").IsNull());
  EXPECT_TRUE(Messages().empty());
}

TEST_F(XmlAccessTest, InputSourceNamesThePathAndTouchesNoFile) {
  const KORISAXInputSource_var source = _Services.GetSaxInput("/nowhere/file.xml");
  ASSERT_FALSE(source.IsNull());
  EXPECT_EQ(Text(source->GetPath()), "/nowhere/file.xml");
  EXPECT_EQ(Text(source->GetLabel()), "DCEFilePath");
}

TEST_F(XmlAccessTest, FactoryThatCannotBeMadeGivesNullInSilence) {
  const std::string path = _Folder.Write("good.xml", "<A/>");
  _Session.InjectFault("CreateKORIXMLSAX2Factory", E_FAIL);
  EXPECT_TRUE(_Services.GetSaxInput(Unicode(path)).IsNull());
  EXPECT_TRUE(Parse(path).IsNull());
  EXPECT_TRUE(Messages().empty());
  _Session.ClearFaults();
  EXPECT_FALSE(Parse(path).IsNull());
}

TEST_F(XmlAccessTest, BuilderThatCannotBeMadeGivesNull) {
  const std::string path = _Folder.Write("good.xml", "<A/>");
  _Session.InjectFault("CreateKORIXMLDOMDocumentBuilder", E_FAIL);
  EXPECT_TRUE(Parse(path).IsNull());
  _Session.ClearFaults();
  EXPECT_FALSE(Parse(path).IsNull());
}

// -------------------------------------------------------------------------------------------------- Texts of elements

struct NodeRow {
  const char* name;
  const char* file;
  std::string content;
  const char* tag;
  long status;
  const char* result;
};

class XmlNodeTest : public XmlAccessTest, public testing::WithParamInterface<NodeRow> {};

TEST_P(XmlNodeTest, CollectsTheTextsOfTheFirstCardOrGroup) {
  const std::string path = _Folder.Write(GetParam().file, GetParam().content);
  KORUnicodeString result = "before";
  EXPECT_EQ(_Services.GetXMLNode(result, GetParam().tag, Unicode(path)), GetParam().status);
  EXPECT_EQ(Text(result), GetParam().result);
}

std::string Card(const std::string& inner) {
  return support::DataCardFile(support::Container("DATACARD", inner));
}

std::string TwoCards() {
  return support::DataCardFile("<DATACARD><LABEL>A</LABEL></DATACARD><DATACARD><LABEL>B</LABEL></DATACARD>");
}

std::string CardAndGroup() {
  return support::DataCardFile(
      "<DATACARDGROUP><NAME>Group</NAME><DATACARD><NAME>Card</NAME></DATACARD></DATACARDGROUP>");
}

// The path decides: "dc_" in it stands for a data card and is looked for first, "dcg_" for a group.
INSTANTIATE_TEST_SUITE_P(
    Files, XmlNodeTest,
    testing::Values(NodeRow{"TwoLabels", "dc_a.xml", Card("<LABEL>A</LABEL><LABEL>B</LABEL>"), "LABEL", S_OK, "A;B"},
                    NodeRow{"OneLabel", "dc_a.xml", Card("<LABEL>A</LABEL>"), "LABEL", S_OK, "A"},
                    NodeRow{"EmptyLabelInTheMiddle", "dc_a.xml", Card("<LABEL>A</LABEL><LABEL/><LABEL>B</LABEL>"),
                            "LABEL", S_OK, "A;;B"},
                    NodeRow{"EmptyLabelAtTheHead", "dc_a.xml", Card("<LABEL/><LABEL>B</LABEL>"), "LABEL", S_OK, ";B"},
                    NodeRow{"EmptyLabelAtTheEnd", "dc_a.xml", Card("<LABEL>A</LABEL><LABEL/>"), "LABEL", S_OK, "A;"},
                    NodeRow{"TwoEmptyLabels", "dc_a.xml", Card("<LABEL/><LABEL/>"), "LABEL", S_OK, ";"},
                    NodeRow{"NestedInDocumentOrder", "dc_a.xml", Card("<X><LABEL>A</LABEL></X><LABEL>B</LABEL>"),
                            "LABEL", S_OK, "A;B"},
                    NodeRow{"FirstChildOnly", "dc_a.xml", Card("<LABEL>A<X/>B</LABEL>"), "LABEL", S_OK, "A"},
                    NodeRow{"TagThatTheCardLacks", "dc_a.xml", Card("<LABEL>A</LABEL>"), "TAB", S_OK, ""},
                    NodeRow{"TagInAnotherCase", "dc_a.xml", Card("<LABEL>A</LABEL>"), "label", S_OK, ""},
                    NodeRow{"FirstCardOnly", "dc_a.xml", TwoCards(), "LABEL", S_OK, "A"},
                    NodeRow{"CardByItsMark", "dc_a.xml", CardAndGroup(), "NAME", S_OK, "Card"},
                    NodeRow{"GroupByItsMark", "dcg_a.xml", CardAndGroup(), "NAME", S_OK, "Group;Card"},
                    NodeRow{"MarkInAFolder", "dc_cards/a.xml", CardAndGroup(), "NAME", S_OK, "Card"},
                    NodeRow{"CardMarkGoesFirst", "dc_cards/dcg_a.xml", CardAndGroup(), "NAME", S_OK, "Card"},
                    NodeRow{"CardMarkBehindTheGroupMark", "dcg_cards/dc_a.xml", CardAndGroup(), "NAME", S_OK, "Card"},
                    NodeRow{"NoMark", "cards.xml", CardAndGroup(), "NAME", E_FAIL, "before"},
                    NodeRow{"MarkInCapitals", "DC_a.xml", CardAndGroup(), "NAME", E_FAIL, "before"},
                    NodeRow{"NoCard", "dc_a.xml", support::DataCardFile("<NAME>A</NAME>"), "NAME", E_FAIL, "before"},
                    NodeRow{"NoGroup", "dcg_a.xml", Card("<NAME>A</NAME>"), "NAME", E_FAIL, "before"},
                    NodeRow{"Broken", "dc_a.xml", "<R><DATACARD>", "NAME", E_FAIL, "before"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(XmlAccessTest, MissingCardFileFailsAndLeavesAMessage) {
  KORUnicodeString result = "before";
  EXPECT_EQ(_Services.GetXMLNode(result, "NAME", Unicode(_Folder.Path("dc_missing.xml"))), E_FAIL);
  EXPECT_EQ(Text(result), "before");
  EXPECT_EQ(Messages().size(), 1u);
}

struct ChildNodeRow {
  const char* name;
  const char* element;
  const char* value;
  const char* text;
};

class ChildNodeTest : public testing::TestWithParam<ChildNodeRow> {};

TEST_P(ChildNodeTest, IsOneLine) {
  EXPECT_EQ(Text(VEXSTMTimeAnalysisDlgServices().WriteChildNode(GetParam().element, GetParam().value)),
            GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Texts, ChildNodeTest,
                         testing::Values(ChildNodeRow{"Plain", "CODE", "X1", "<CODE>X1</CODE>\n"},
                                         ChildNodeRow{"NotEscaped", "A", "<B>&", "<A><B>&</A>\n"},
                                         ChildNodeRow{"EmptyValue", "A", "", "<A></A>\n"},
                                         ChildNodeRow{"EmptyName", "", "x", "<>x</>\n"}),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
