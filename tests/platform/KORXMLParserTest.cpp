// What the parser refuses, with which words, and that no file harms it.
#include "platform/document/KORXMLParser.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "platform/base/KORError.h"
#include "platform/system/KORSession.h"
#include "tests/platform/NamedRow.h"
#include "tests/platform/XmlTest.h"

namespace {

using platformtest::NameOfRow;
using platformtest::Parsed;
using platformtest::ParseFile;
using platformtest::ParseText;
using platformtest::Repeat;

struct FaultRow {
  const char* Name;
  std::string Text;
  std::string Message;
};
class FaultTest : public testing::TestWithParam<FaultRow> {};

TEST_P(FaultTest, EndsInAMessage) {
  const Parsed parsed = ParseText(GetParam().Text);
  EXPECT_EQ(parsed.Status, E_FAIL);
  EXPECT_TRUE(parsed.Document.IsNull());
  EXPECT_EQ(parsed.Message, GetParam().Message);
}

INSTANTIATE_TEST_SUITE_P(
    Malformed, FaultTest,
    testing::Values(
        FaultRow{"Empty", "", "test.xml: line 1, column 1: no element found"},
        FaultRow{"NoXml", "R45B 15.6\n", "test.xml: line 1, column 1: syntax error"},
        FaultRow{"WrongEndTag", "<LIST>\n  <CODE>R45B</NAME>\n</LIST>",
                 "test.xml: line 2, column 15, in element <CODE>: mismatched tag"},
        FaultRow{"NotClosed", "<LIST>\n<CODE>\n", "test.xml: line 3, column 1, in element <CODE>: no element found"},
        FaultRow{"CutInsideATag", "<LIST><CO", "test.xml: line 1, column 7, in element <LIST>: unclosed token"},
        FaultRow{"TwoRoots", "<A/><B/>", "test.xml: line 1, column 5: junk after document element"},
        FaultRow{"BareAmpersand", "<A>\n<B>x & y</B></A>",
                 "test.xml: line 2, column 7, in element <B>: not well-formed (invalid token)"},
        FaultRow{"UnknownEntity", "<A>&unit;</A>", "test.xml: line 1, column 4, in element <A>: undefined entity"},
        FaultRow{"SameAttributeTwice", "<A x='1' x='2'/>", "test.xml: line 1, column 10: duplicate attribute"},
        FaultRow{"NulByte", std::string("<A>\0</A>", 8),
                 "test.xml: line 1, column 4, in element <A>: not well-formed (invalid token)"},
        FaultRow{"EntityThatNamesItself", "<!DOCTYPE A [<!ENTITY e '&e;'>]><A>&e;</A>",
                 "test.xml: line 1, column 36, in element <A>: recursive entity reference"}),
    NameOfRow());

INSTANTIATE_TEST_SUITE_P(
    Encodings, FaultTest,
    testing::Values(FaultRow{"BadUtf8", "<A>\xE4</A>",
                             "test.xml: line 1, column 4, in element <A>: not well-formed (invalid token)"},
                    FaultRow{"OverlongUtf8", "<A>\xC0\xBC</A>",
                             "test.xml: line 1, column 4, in element <A>: not well-formed (invalid token)"},
                    FaultRow{"Unknown", "<?xml version='1.0' encoding='EBCDIC-XY'?><A/>",
                             "test.xml: line 1, column 31: unknown encoding"},
                    FaultRow{"OtherCodePage", "<?xml version='1.0' encoding='windows-1251'?><A/>",
                             "test.xml: line 1, column 31: unknown encoding"},
                    FaultRow{"Utf16WithoutIt", "<?xml version='1.0' encoding='UTF-16'?><A/>",
                             "test.xml: line 1, column 31: encoding specified in XML declaration is incorrect"},
                    FaultRow{"NotAsciiInAscii", "<?xml version='1.0' encoding='US-ASCII'?><A>\xE4</A>",
                             "test.xml: line 1, column 45, in element <A>: not well-formed (invalid token)"}),
    NameOfRow());

// Ten entities, each of which names the one before ten times.
std::string MakeBillionLaughs() {
  std::string text = "<!DOCTYPE A [<!ENTITY e0 'laugh'>";
  for (int level = 1; level <= 9; ++level) {
    text += "<!ENTITY e" + std::to_string(level) + " '" + Repeat("&e" + std::to_string(level - 1) + ";", 10) + "'>";
  }
  return text + "]>\n<A>&e9;</A>";
}

// One long entity, named often.
std::string MakeQuadraticBlowUp(int length, int times) {
  return "<!DOCTYPE A [<!ENTITY e '" + Repeat("x", length) + "'>]>\n<A>" + Repeat("&e;", times) + "</A>";
}

std::string MakeEntities(int count) {
  std::string text = "<!DOCTYPE A [";
  for (int number = 1; number <= count; ++number) text += "<!ENTITY e" + std::to_string(number) + " 'x'>";
  return text + "]>\n<A/>";
}

std::string MakeEntityChain(int count) {
  std::string text = "<!DOCTYPE A [<!ENTITY e0 'end'>";
  for (int number = 1; number < count; ++number) {
    text += "<!ENTITY e" + std::to_string(number) + " '&e" + std::to_string(number - 1) + ";'>";
  }
  return text + "]>\n<A>&e" + std::to_string(count - 1) + ";</A>";
}

constexpr const char* TooDeep = "test.xml: line 1, column 3001, in element <A>: elements are nested deeper than 1,000";
constexpr const char* TooManyEntities = ": more than 1,000 entity declarations";
constexpr const char* TooMuch = ": limit on input amplification factor (from DTD and entities) breached";

INSTANTIATE_TEST_SUITE_P(Bounds, FaultTest,
                         testing::Values(FaultRow{"Depth1001", Repeat("<A>", 1001) + Repeat("</A>", 1001), TooDeep},
                                         FaultRow{"Depth100000", Repeat("<A>", 100000) + Repeat("</A>", 100000),
                                                  TooDeep},
                                         FaultRow{"Depth100000NeverClosed", Repeat("<A>", 100000), TooDeep},
                                         FaultRow{"BillionLaughs", MakeBillionLaughs(),
                                                  std::string("test.xml: line 2, column 4, in element <A>") + TooMuch}),
                         NameOfRow());

TEST(KORXMLParserTest, RefusesQuadraticBlowUp) {
  const Parsed parsed = ParseText(MakeQuadraticBlowUp(100000, 100000));
  EXPECT_EQ(parsed.Status, E_FAIL);
  EXPECT_TRUE(parsed.Message.ends_with(TooMuch)) << parsed.Message;
  EXPECT_TRUE(parsed.Message.starts_with("test.xml: line 2, column ")) << parsed.Message;
}

TEST(KORXMLParserTest, ReadsEntitiesThatExpandToLittle) {
  const Parsed parsed = ParseText(MakeQuadraticBlowUp(1000, 1000));
  ASSERT_EQ(parsed.Status, S_OK) << parsed.Message;
  EXPECT_EQ(parsed.Document.GetDocumentElement().GetFirstChild().GetNodeValue().size(), 1000000u);
}

TEST(KORXMLParserTest, ReadsElementsNested1000Deep) {
  const Parsed parsed = ParseText(Repeat("<A>", 1000) + Repeat("</A>", 1000));
  ASSERT_EQ(parsed.Status, S_OK) << parsed.Message;
  KORIDOMNodeList_var list;
  parsed.Document.GetDocumentElement().GetElementsByTagName("A", list);
  EXPECT_EQ(list.GetLength(), 999);
}

TEST(KORXMLParserTest, DepthCountsThroughEntities) {
  const std::string head = "<!DOCTYPE A [<!ENTITY e '" + Repeat("<A>", 999) + Repeat("</A>", 999) + "'>]>";
  EXPECT_EQ(ParseText(head + "<A>&e;</A>").Status, S_OK);
  const Parsed deeper = ParseText(head + "<A><A>&e;</A></A>");
  EXPECT_EQ(deeper.Status, E_FAIL);
  EXPECT_TRUE(deeper.Message.ends_with("elements are nested deeper than 1,000")) << deeper.Message;
}

TEST(KORXMLParserTest, Reads1000EntityDeclarationsAndNoMore) {
  EXPECT_EQ(ParseText(MakeEntities(1000)).Status, S_OK);
  for (const int count : {1001, 100000}) {
    const Parsed parsed = ParseText(MakeEntities(count));
    EXPECT_EQ(parsed.Status, E_FAIL);
    EXPECT_TRUE(parsed.Message.ends_with(TooManyEntities)) << parsed.Message;
  }
}

TEST(KORXMLParserTest, ReadsAChainOf1000Entities) {
  const Parsed parsed = ParseText(MakeEntityChain(1000));
  ASSERT_EQ(parsed.Status, S_OK) << parsed.Message;
  EXPECT_EQ(parsed.Document.GetDocumentElement().GetFirstChild().GetNodeValue(), "end");
  const Parsed longer = ParseText(MakeEntityChain(200000));
  EXPECT_EQ(longer.Status, E_FAIL);
  EXPECT_TRUE(longer.Message.ends_with(TooManyEntities)) << longer.Message;
}

TEST(KORXMLParserTest, DeepDeclarationsDoNotEndTheProcess) {
  const std::string deep = Repeat("(", 100000) + "b" + Repeat(")", 100000);
  ParseText("<!DOCTYPE A [<!ELEMENT A " + deep + ">]><A/>");
  ParseText("<!DOCTYPE A [<!ELEMENT A " + Repeat("(", 1000000));
  SUCCEED();
}

struct OutsideCase {
  const char* Name;
  std::string Text;
  std::string Cause;  // of the refusal; empty for a document that needs nothing from outside
};

// A file beside the document would show in it if it were read.
TEST(KORXMLParserTest, NothingOutsideTheFileIsRead) {
  const support::TemporaryFolder folder;
  const std::string secret = folder.Write("secret", "<!ENTITY e 'secret'>");
  const std::string external = "a reference to an external entity, and nothing outside the file is read";
  const std::string undeclared =
      "a reference to an entity that the file does not declare, and nothing outside it is read";
  const std::vector<OutsideCase> rows = {
      {"FileAddress", "<!DOCTYPE A [<!ENTITY e SYSTEM 'file://" + secret + "'>]><A>a&e;b</A>", external},
      {"RelativeFile", "<!DOCTYPE A [<!ENTITY e SYSTEM 'secret'>]><A>a&e;b</A>", external},
      {"NetworkAddress", "<!DOCTYPE A [<!ENTITY e SYSTEM 'http://127.0.0.1:9/'>]><A>a&e;b</A>", external},
      {"ExternalType", "<!DOCTYPE A SYSTEM 'secret'><A>a&e;b</A>", undeclared},
      {"ExternalDeclarations", "<!DOCTYPE A [<!ENTITY % p SYSTEM 'secret'>%p;]><A>a&e;b</A>", undeclared},
      {"DeclaredAndNotUsed", "<!DOCTYPE A [<!ENTITY e SYSTEM 'secret'>]><A>ab</A>", ""},
      {"ExternalTypeAndNothingUsed", "<!DOCTYPE A PUBLIC '-//X' 'secret' []><A>ab</A>", ""},
  };
  for (const OutsideCase& row : rows) {
    SCOPED_TRACE(row.Name);
    const Parsed parsed = ParseFile(folder.Write("test.xml", row.Text));
    EXPECT_EQ(parsed.Document.IsNull(), !row.Cause.empty());
    EXPECT_TRUE(parsed.Message.ends_with(row.Cause)) << parsed.Message;
    if (row.Cause.empty()) {
      EXPECT_EQ(parsed.Document.GetDocumentElement().GetFirstChild().GetNodeValue(), "ab");
    }
  }
}

TEST(KORXMLParserTest, ExternalEntityInAnAttributeIsRefused) {
  const Parsed parsed = ParseText("<!DOCTYPE A [<!ENTITY e SYSTEM 'x'>]><A b='&e;'/>");
  EXPECT_EQ(parsed.Message, "test.xml: line 1, column 44: reference to external entity in attribute");
}

struct UnreadableCase {
  std::string Path;
  std::string Cause;
};

TEST(KORXMLParserTest, FilesThatCannotBeReadEndInAMessage) {
  const support::TemporaryFolder folder;
  ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0600), 0);
  std::filesystem::create_symlink("loop", folder.Path("loop"));
  const std::vector<UnreadableCase> rows = {
      {folder.Path("missing.xml"), "No such file or directory"},
      {folder.Path(), "Is a directory"},
      {folder.Path("pipe"), "not a regular file"},
      {folder.Path("loop"), "Too many levels of symbolic links"},
      {folder.Path("a\\b/c.xml"), "No such file or directory"},
      {folder.Path() + "/" + Repeat("x", 300), "File name too long"},
  };
  for (const UnreadableCase& row : rows) {
    const Parsed parsed = ParseFile(row.Path);
    EXPECT_EQ(parsed.Status, E_FAIL);
    EXPECT_TRUE(parsed.Document.IsNull());
    EXPECT_EQ(parsed.Message, row.Path + ": " + row.Cause);
  }
}

// Runs as another user where the tests run as the one whom no permission stops.
TEST(KORXMLParserDeathTest, ForbiddenFileEndsInAMessage) {
  const support::TemporaryFolder folder;
  const std::string path = folder.Write("test.xml", "<A/>");
  ASSERT_EQ(chmod(path.c_str(), 0), 0);
  ASSERT_EQ(chmod(folder.Path().c_str(), 0755), 0);
  EXPECT_EXIT(
      {
        if (geteuid() == 0 && setuid(65534) != 0) _exit(3);
        _exit(ParseFile(path).Message == path + ": Permission denied" ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
}

TEST(KORXMLParserTest, FileBeyondTheParsersReachIsRefused) {
  const support::TemporaryFolder folder;
  const std::string path = folder.Write("test.xml", "<A/>");
  std::filesystem::resize_file(path, std::uintmax_t{1} << 31);
  EXPECT_EQ(ParseFile(path).Message, path + ": the file is longer than 2147483647 bytes");
}

// The kernel tells no length for this file, so that there is more to read than was told.
TEST(KORXMLParserTest, FileWithAnotherLengthThanToldIsRefused) {
  EXPECT_EQ(ParseFile("/proc/self/status").Message, "/proc/self/status: the file changed its length while it was read");
}

TEST(KORXMLParserTest, FileThatVanishesAndComesBackNeverHarms) {
  const support::TemporaryFolder folder;
  const std::string text = "<A>" + Repeat("<B>x</B>\n", 200000) + "</A>";
  const std::string path = folder.Write("test.xml", text);
  std::atomic<bool> done = false;
  std::thread writer([&] {
    for (int round = 0; !done; ++round) {
      if (round % 3 == 0) {
        std::filesystem::remove(path);
      } else if (round % 3 == 1) {
        folder.Write("test.xml", text);
      } else {
        std::error_code ignored;
        std::filesystem::resize_file(path, text.size() / 3, ignored);
      }
    }
  });
  for (int round = 0; round < 60; ++round) {
    const Parsed parsed = ParseFile(path);
    EXPECT_EQ(parsed.Status == S_OK, !parsed.Document.IsNull());
    EXPECT_EQ(parsed.Status == S_OK, parsed.Message.empty());
    if (parsed.Status != S_OK) {
      EXPECT_TRUE(parsed.Message.starts_with(path + ": ")) << parsed.Message;
    }
  }
  done = true;
  writer.join();
}

TEST(KORXMLParserTest, ServicesAreMadeByTheirClass) {
  KORIXMLDOMDocumentBuilder_var builder;
  EXPECT_EQ(CreateKORIXMLDOMDocumentBuilder(builder, CLSID_XML4C_DOM), S_OK);
  EXPECT_FALSE(builder.IsNull());
  EXPECT_EQ(CreateKORIXMLDOMDocumentBuilder(builder, CLSID_DEFAULT_SAX), E_NOINTERFACE);
  EXPECT_TRUE(builder.IsNull());
  KORIXMLSAX2Factory_var factory;
  EXPECT_EQ(CreateKORIXMLSAX2Factory(factory, CLSID_DEFAULT_SAX), S_OK);
  EXPECT_FALSE(factory.IsNull());
  EXPECT_EQ(CreateKORIXMLSAX2Factory(factory, CLSID_XML4C_DOM), E_NOINTERFACE);
  EXPECT_TRUE(factory.IsNull());
}

TEST(KORXMLParserTest, InputSourceKeepsPathAndLabel) {
  const KORIXMLSAX2Factory_var factory = KORIXMLSAX2Factory_var::Adopt(new KORIXMLSAX2Factory);
  KORISAXInputSource_var source;
  EXPECT_EQ(factory->CreateInputSourceFromFile("/nowhere/a.xml", "DCEFilePath", source), S_OK);
  EXPECT_EQ(source->GetPath(), "/nowhere/a.xml");
  EXPECT_EQ(source->GetLabel(), "DCEFilePath");
  EXPECT_EQ(factory->CreateInputSourceFromFile("", "DCEFilePath", source), E_INVALIDARG);
  EXPECT_TRUE(source.IsNull());
}

struct OptionRow {
  const char* Option;
  const char* Value;
  long Status;
};

TEST(KORXMLParserTest, KnowsOneOption) {
  const support::TemporaryFolder folder;
  const KORIXMLDOMDocumentBuilder_var builder = KORIXMLDOMDocumentBuilder_var::Adopt(new KORIXMLDOMDocumentBuilder);
  const auto source =
      KORISAXInputSource_var::Adopt(new KORISAXInputSource(folder.Write("test.xml", "<A/>").c_str(), "test"));
  for (const OptionRow& row :
       {OptionRow{"KORDoValidation", "false", S_OK}, OptionRow{"KORDoValidation", "true", E_INVALIDARG},
        OptionRow{"Other", "false", E_INVALIDARG}}) {
    KORListValKORUnicodeString names;
    KORListValKORUnicodeString values;
    names.Append(row.Option);
    KORIDOMDocument_var document;
    EXPECT_EQ(builder->Parse(source, document, names, values), E_INVALIDARG) << "the lists differ in length";
    values.Append(row.Value);
    EXPECT_EQ(builder->Parse(source, document, names, values), row.Status) << row.Option << "=" << row.Value;
    EXPECT_EQ(document.IsNull(), row.Status != S_OK);
  }
}

TEST(KORXMLParserTest, NullSourceIsRefused) {
  const KORIXMLDOMDocumentBuilder_var builder = KORIXMLDOMDocumentBuilder_var::Adopt(new KORIXMLDOMDocumentBuilder);
  KORIDOMDocument_var document;
  EXPECT_EQ(builder->Parse(nullptr, document, {}, {}), E_INVALIDARG);
  EXPECT_TRUE(document.IsNull());
}

TEST(KORXMLParserTest, FaultsOfTheSessionComeThroughWithoutAMessage) {
  KORSession session;
  const KORSession::Scope scope(session);
  KORIXMLDOMDocumentBuilder_var builder;
  KORIXMLSAX2Factory_var factory;
  session.InjectFault("CreateKORIXMLDOMDocumentBuilder", E_FAIL);
  session.InjectFault("CreateKORIXMLSAX2Factory", E_INVALIDARG);
  EXPECT_EQ(CreateKORIXMLDOMDocumentBuilder(builder, CLSID_XML4C_DOM), E_FAIL);
  EXPECT_TRUE(builder.IsNull());
  EXPECT_EQ(CreateKORIXMLSAX2Factory(factory, CLSID_DEFAULT_SAX), E_INVALIDARG);
  EXPECT_TRUE(factory.IsNull());

  session.ClearFaults();
  session.InjectFault("Parse", E_FAIL);
  const Parsed parsed = ParseText("<A/>");
  EXPECT_EQ(parsed.Status, E_FAIL);
  EXPECT_TRUE(parsed.Document.IsNull());
  EXPECT_EQ(parsed.Message, "");
}

TEST(KORXMLParserTest, ASourceFailsOnDemand) {
  KORFreshSession session;
  session.InjectFault("CreateInputSourceFromFile", E_NOINTERFACE);
  const auto factory = KORIXMLSAX2Factory_var::Adopt(new KORIXMLSAX2Factory);
  auto source = KORISAXInputSource_var::Adopt(new KORISAXInputSource("before", ""));
  EXPECT_EQ(factory->CreateInputSourceFromFile("file.xml", "", source), E_NOINTERFACE);
  EXPECT_TRUE(source.IsNull());
}

TEST(KORXMLParserTest, AFaultThatReadsTheFileAllTheSameLeavesNoMessage) {
  KORFreshSession session;
  session.InjectFault("Parse", KORFault{E_FAIL, KORFault::Kind::StatusAlone});
  const Parsed well_formed = ParseText("<A/>");
  EXPECT_EQ(well_formed.Status, E_FAIL);
  EXPECT_FALSE(well_formed.Document.IsNull());
  EXPECT_EQ(well_formed.Message, "");
  const Parsed ill_formed = ParseText("<A>");
  EXPECT_TRUE(ill_formed.Document.IsNull());
  EXPECT_EQ(ill_formed.Message, "");
}

}  // namespace
