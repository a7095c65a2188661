// What a parsed document holds: nodes, names, values, lines, and lists of elements.
#include "platform/document/KORXMLDocument.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/platform/NamedRow.h"
#include "tests/platform/XmlTest.h"

namespace {

using platformtest::NameOfRow;
using platformtest::ParseText;
using platformtest::Repeat;

// A document as one text: elements as "name(children)", other nodes as "name[value]".
std::string Describe(const KORIDOMNode_var& node) {
  std::string text(node.GetNodeName());
  if (!node.IsElement()) return text.append("[").append(node.GetNodeValue()).append("]");
  text += "(";
  for (KORIDOMNode_var child = node.GetFirstChild(); !child.IsNull(); child = child.GetNextSibling()) {
    text += Describe(child);
  }
  return text += ")";
}

struct ContentRow {
  const char* Name;
  std::string Text;
  std::string Described;
};
class ContentTest : public testing::TestWithParam<ContentRow> {};

TEST_P(ContentTest, Holds) {
  const platformtest::Parsed parsed = ParseText(GetParam().Text);
  ASSERT_EQ(parsed.Status, S_OK) << parsed.Message;
  EXPECT_EQ(Describe(parsed.Document.GetDocumentElement()), GetParam().Described);
}

// What the nodes are called and hold is that of the W3C's document object model, level 1.
INSTANTIATE_TEST_SUITE_P(
    Nodes, ContentTest,
    testing::Values(
        ContentRow{"EmptyElement", "<CODE/>", "CODE()"}, ContentRow{"Text", "<CODE>R45B</CODE>", "CODE(#text[R45B])"},
        ContentRow{"BlankText", "<A> <B/>\n</A>", "A(#text[ ]B()#text[\n])"},
        ContentRow{"LinesInOneText", "<A>x\ny\r\nz\rw</A>", "A(#text[x\ny\nz\nw])"},
        ContentRow{"CharacterReferences", "<A>a&#66;&#x43;d</A>", "A(#text[aBCd])"},
        ContentRow{"KnownEntities", "<A>&lt;&amp;&gt;&apos;&quot;</A>", "A(#text[<&>'\"])"},
        ContentRow{"DeclaredEntity", "<!DOCTYPE A [<!ENTITY u 'TMU'>]><A>5 &u; net</A>", "A(#text[5 TMU net])"},
        ContentRow{"EntityInEntity", "<!DOCTYPE A [<!ENTITY a '1&b;3'><!ENTITY b '2'>]><A>&a;</A>", "A(#text[123])"},
        ContentRow{"EntityWithElements", "<!DOCTYPE A [<!ENTITY e 'x<B>y</B>z'>]><A>&e;</A>",
                   "A(#text[x]B(#text[y])#text[z])"},
        ContentRow{"ParameterEntity", "<!DOCTYPE A [<!ENTITY % p \"<!ENTITY e 'x'>\">%p;]><A>&e;</A>", "A(#text[x])"},
        ContentRow{"Section", "<A> <![CDATA[1<2&amp;]]> </A>", "A(#text[ ]#cdata-section[1<2&amp;]#text[ ])"},
        ContentRow{"EmptySection", "<A><![CDATA[]]></A>", "A(#cdata-section[])"},
        ContentRow{"SectionsSideBySide", "<A><![CDATA[a]]><![CDATA[b\nc]]></A>",
                   "A(#cdata-section[a]#cdata-section[b\nc])"},
        ContentRow{"CommentPartsTexts", "<A>a<!-- note -->b</A>", "A(#text[a]#comment[ note ]#text[b])"},
        ContentRow{"EmptyComment", "<A><!----></A>", "A(#comment[])"},
        ContentRow{"Instruction", "<A><?print  fast now?><?go?></A>", "A(print[fast now]go[])"},
        ContentRow{"OutsideTheRoot", "<?a b?><!-- c --><!DOCTYPE A [<!-- d --><?e f?>]><A/><!-- g --><?h i?>", "A()"},
        ContentRow{"Attributes", "<A x='1' y=\"2\"><B z='3'/></A>", "A(B())"},
        ContentRow{"ColonInName", "<x:A><y:B/></x:A>", "x:A(y:B())"},
        ContentRow{"NotAscii",
                   "<Gr\xC3\xB6\xC3\x9F"
                   "e>\xE2\x82\xAC</Gr\xC3\xB6\xC3\x9F"
                   "e>",
                   "Gr\xC3\xB6\xC3\x9F"
                   "e(#text[\xE2\x82\xAC])"}),
    NameOfRow());

std::string InUtf16(const std::string& ascii, bool big_endian) {
  std::string bytes = big_endian ? "\xFE\xFF" : "\xFF\xFE";
  for (const char character : ascii) {
    if (big_endian) bytes += '\0';
    bytes += character;
    if (!big_endian) bytes += '\0';
  }
  return bytes;
}

INSTANTIATE_TEST_SUITE_P(
    Encodings, ContentTest,
    testing::Values(ContentRow{"Utf8", "<?xml version='1.0' encoding='UTF-8'?><A>\xC3\xA4</A>", "A(#text[\xC3\xA4])"},
                    ContentRow{"Utf8WithMark", "\xEF\xBB\xBF<A>\xC3\xA4</A>", "A(#text[\xC3\xA4])"},
                    ContentRow{"Utf16BigEndian", InUtf16("<A>x\ny</A>", true), "A(#text[x\ny])"},
                    ContentRow{"Utf16LittleEndian", InUtf16("<?xml version='1.0' encoding='UTF-16'?><A>xy</A>", false),
                               "A(#text[xy])"},
                    ContentRow{"Latin1", "<?xml version='1.0' encoding='ISO-8859-1'?><A>\xE4\x85</A>",
                               "A(#text[\xC3\xA4\xC2\x85])"},
                    ContentRow{"Ascii", "<?xml version='1.0' encoding='US-ASCII'?><A>ab</A>", "A(#text[ab])"},
                    ContentRow{"Windows1252", "<?xml version='1.0' encoding='windows-1252'?><A>\xE4\x80\x85\x81</A>",
                               "A(#text[\xC3\xA4\xE2\x82\xAC\xE2\x80\xA6\xC2\x81])"},
                    ContentRow{"Windows1252InCapitals",
                               "<?xml version='1.0' encoding='Windows-1252'?><\xC4>\x93</\xC4>",
                               "\xC3\x84(#text[\xE2\x80\x9C])"}),
    NameOfRow());

constexpr const char* Cards =
    "<LIST>\n"
    "  <CARD><NAME>a</NAME><NAME>b</NAME></CARD>\n"
    "  <CARD><SUB><NAME>c</NAME></SUB><NAME/></CARD>\n"
    "  <?NAME d?>\n"
    "</LIST>\n";

KORIDOMElement_var RootOf(const std::string& text) {
  return ParseText(text).Document.GetDocumentElement();
}

struct TagRow {
  const char* Name;
  const char* Tag;
  std::vector<std::string> Found;
};
class ElementsByTagNameTest : public testing::TestWithParam<TagRow> {};

TEST_P(ElementsByTagNameTest, FindsInDocumentOrder) {
  KORIDOMNodeList_var list;
  EXPECT_TRUE(list.IsNull());
  ASSERT_EQ(RootOf(Cards).GetElementsByTagName(GetParam().Tag, list), S_OK);
  std::vector<std::string> found;
  for (int index = 0; index < list.GetLength(); ++index) found.push_back(Describe(list.Item(index)));
  EXPECT_EQ(found, GetParam().Found);
}

INSTANTIATE_TEST_SUITE_P(
    Tags, ElementsByTagNameTest,
    testing::Values(TagRow{"AtAllDepths", "NAME", {"NAME(#text[a])", "NAME(#text[b])", "NAME(#text[c])", "NAME()"}},
                    TagRow{"OneOnly", "SUB", {"SUB(NAME(#text[c]))"}}, TagRow{"NotItself", "LIST", {}},
                    TagRow{"Unknown", "CODE", {}}, TagRow{"OtherCase", "name", {}}, TagRow{"Empty", "", {}},
                    TagRow{"StarIsNoWildcard", "*", {}}, TagRow{"NoTexts", "#text", {}}),
    NameOfRow());

TEST(KORXMLDocumentTest, SearchStaysBelowItsElement) {
  KORIDOMNodeList_var cards;
  KORIDOMNodeList_var names;
  RootOf(Cards).GetElementsByTagName("CARD", cards);
  ASSERT_EQ(cards.GetLength(), 2);
  cards.Item(0).GetElementsByTagName("NAME", names);
  EXPECT_EQ(names.GetLength(), 2);
  names.Item(0).GetFirstChild().GetElementsByTagName("NAME", names);
  EXPECT_FALSE(names.IsNull());
  EXPECT_EQ(names.GetLength(), 0);
}

TEST(KORXMLDocumentTest, ChildrenAndPositions) {
  const KORIDOMNodeList_var children = RootOf("<A>x<B><C/></B>y</A>").GetChildNodes();
  ASSERT_EQ(children.GetLength(), 3);
  EXPECT_EQ(Describe(children.Item(0)), "#text[x]");
  EXPECT_EQ(Describe(children.Item(1)), "B(C())");
  EXPECT_EQ(Describe(children.Item(2)), "#text[y]");
  EXPECT_TRUE(children.Item(-1).IsNull());
  EXPECT_TRUE(children.Item(3).IsNull());
  EXPECT_EQ(children.Item(0).GetChildNodes().GetLength(), 0);
  EXPECT_TRUE(children.Item(0).GetFirstChild().IsNull());
  EXPECT_TRUE(children.Item(2).GetNextSibling().IsNull());
  EXPECT_EQ(children.Item(0).GetNextSibling(), children.Item(1));
  EXPECT_EQ(children.Item(1).GetNodeValue(), "");
}

TEST(KORXMLDocumentTest, HandlesKeepTheDocumentAlive) {
  KORIDOMNode_var text;
  {
    const KORIDOMNodeList_var children = RootOf("<A>kept</A>").GetChildNodes();
    text = children.Item(0);
  }
  EXPECT_EQ(text.GetNodeValue(), "kept");
}

TEST(KORXMLDocumentTest, LineNumbersWithPlainLineEnds) {
  const KORIDOMNodeList_var children =
      RootOf("<!DOCTYPE A [\n<!ENTITY e '\n<IN/>\n'>]>\n<A>\n<B\nx='1'/>&e;&e;\n<C/></A>").GetChildNodes();
  std::vector<int> lines;
  for (int index = 0; index < children.GetLength(); ++index) lines.push_back(children.Item(index).GetLineNumber());
  // The ends of lines in an entity are none of the file where it is named.
  EXPECT_EQ(lines, (std::vector<int>{5, 6, 7, 7, 7, 7, 7, 8}));
}

TEST(KORXMLDocumentTest, LineNumbers) {
  const std::string text =
      "<?xml version='1.0'?>\r\n<!DOCTYPE A [\n<!ENTITY e '\n\n<IN/>'>]>\n<A>\n <B\n  x='1'\n/>\r<!--\n--><C/>\n"
      "<![CDATA[\n]]>&e;\n<D/></A>";
  const KORIDOMNodeList_var children = RootOf(text).GetChildNodes();
  std::vector<std::string> lines;
  for (int index = 0; index < children.GetLength(); ++index) {
    const KORIDOMNode_var node = children.Item(index);
    lines.push_back(std::string(node.GetNodeName()) + " " + std::to_string(node.GetLineNumber()));
  }
  // What comes out of an entity begins where the entity is named.
  EXPECT_EQ(lines, (std::vector<std::string>{"#text 6", "B 7", "#text 9", "#comment 10", "C 11", "#text 11",
                                             "#cdata-section 12", "#text 13", "IN 13", "#text 13", "D 14"}));
  EXPECT_EQ(RootOf(text).GetLineNumber(), 6);
}

TEST(KORXMLDocumentTest, LineNumbersInUtf16) {
  KORIDOMNodeList_var list;
  for (const bool big_endian : {true, false}) {
    RootOf(InUtf16("<A>\n\r\n<B/>\r<B/></A>", big_endian)).GetElementsByTagName("B", list);
    ASSERT_EQ(list.GetLength(), 2);
    EXPECT_EQ(list.Item(0).GetLineNumber(), 3);
    EXPECT_EQ(list.Item(1).GetLineNumber(), 4);
  }
}

TEST(KORXMLDocumentTest, LongTextsAndManyNodesStayWhole) {
  const std::string text = Repeat("0123456789&amp;\n", 100000);
  const KORIDOMElement_var root = RootOf("<A>" + text + Repeat("<B>x</B>", 100000) + "</A>");
  EXPECT_EQ(root.GetFirstChild().GetNodeValue(), Repeat("0123456789&\n", 100000));
  KORIDOMNodeList_var list;
  root.GetElementsByTagName("B", list);
  ASSERT_EQ(list.GetLength(), 100000);
  EXPECT_EQ(list.Item(99999).GetFirstChild().GetNodeValue(), "x");
  EXPECT_EQ(root.GetChildNodes().GetLength(), 100001);
}

TEST(KORXMLDocumentTest, ManyNamesStayApart) {
  std::string text = "<A>";
  for (int number = 0; number < 5000; ++number) text += "<n" + std::to_string(number) + "/>";
  const KORIDOMElement_var root = RootOf(text + "</A>");
  KORIDOMNodeList_var list;
  for (const int number : {0, 1, 255, 256, 257, 4999}) {
    const std::string name = "n" + std::to_string(number);
    root.GetElementsByTagName(name, list);
    ASSERT_EQ(list.GetLength(), 1) << name;
    EXPECT_EQ(list.Item(0).GetNodeName(), name);
  }
}

TEST(KORXMLDocumentTest, CallsThroughNullRaise) {
  const KORIDOMNode_var node;
  const KORIDOMNodeList_var list;
  const KORIDOMDocument_var document;
  KORIDOMNodeList_var found;
  EXPECT_TRUE(node.IsNull() && list.IsNull() && document.IsNull());
  EXPECT_THROW(node.IsElement(), KORError);
  EXPECT_THROW(node.GetNodeName(), KORError);
  EXPECT_THROW(node.GetNodeValue(), KORError);
  EXPECT_THROW(node.GetFirstChild(), KORError);
  EXPECT_THROW(node.GetNextSibling(), KORError);
  EXPECT_THROW(node.GetChildNodes(), KORError);
  EXPECT_THROW(node.GetElementsByTagName("A", found), KORError);
  EXPECT_THROW(node.GetLineNumber(), KORError);
  EXPECT_THROW(list.GetLength(), KORError);
  EXPECT_THROW(list.Item(0), KORError);
  EXPECT_THROW(document.GetDocumentElement(), KORError);
}

}  // namespace
