// The JSON export: what of an analysis comes out under which key, in which shape, and on which analyses.
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "platform/services/KOROmbStreams.h"
#include "platform/system/KORRecord.h"
#include "tests/calculation/AnalysisShell.h"
#include "tests/exchange/JsonExportTest.h"
#include "tests/exchange/PictureTest.h"
#include "tests/formula/ScopedLocale.h"
#include "tests/support/WholeLiteral.h"

namespace {

using calculationtest::MakeShellWithout;
using exchangetest::ContentOf;
using exchangetest::FormatsOn;
using exchangetest::JsonExportRowTest;
using exchangetest::JsonExportTest;
using support::Line;
using support::MakeAnalysis;
using support::RowName;
using support::Text;
using support::Unicode;
using Services = VEXSTMJSONServices;
using support::Whole;

// ---- Types ----

// A value that stands under "Key", and what comes out for an example.
struct TypeRow {
  std::string name;
  std::string example;
  std::string text, real, integer, truth, nothing;  // for "7.5", 2.5, 7, a boolean 200, and no value
};
class ExampleTest : public JsonExportRowTest<TypeRow> {
 protected:
  template <class Value>
  void Expect(const Value& value, const std::string& exported) {
    const auto analysis = MakeAnalysis("A", {Line().Set("Key", value)});
    (void)analysis->SetValue("Key", value);
    EXPECT_EQ(Exported(analysis),
              R"({"TAATTRIBUTES":{"Key":)" + exported + R"(},"TALINESDETAILS":[{"Key":)" + exported + "}]}");
  }
};

TEST_P(ExampleTest, TellsTheTypeOfAttributesAndOfValuesOfLines) {
  WriteSections("{\"Key\":" + GetParam().example + "}", "[]", "{\"Key\":" + GetParam().example + "}");
  Expect(Unicode("7.5"), GetParam().text);
  Expect(2.5, GetParam().real);
  Expect(7, GetParam().integer);
  Expect(static_cast<unsigned char>(200), GetParam().truth);
  const auto analysis = MakeAnalysis("A", {Line()});
  const std::string& nothing = GetParam().nothing;
  EXPECT_EQ(Exported(analysis),
            R"({"TAATTRIBUTES":{"Key":)" + nothing + R"(},"TALINESDETAILS":[{"Key":)" + nothing + "}]}");
}

INSTANTIATE_TEST_SUITE_P(Examples, ExampleTest,
                         testing::Values(TypeRow{"Text", R"("example")", R"("7.5")", R"("")", R"("")", R"("")",
                                                 R"("")"},
                                         TypeRow{"EmptyText", R"("")", R"("7.5")", R"("")", R"("")", R"("")", R"("")"},
                                         TypeRow{"Real", "1.5", "0.0", "2.5", "0.0", "0.0", "0.0"},
                                         TypeRow{"RealZero", "0.0", "0.0", "2.5", "0.0", "0.0", "0.0"},
                                         TypeRow{"IntegerZero", "0", "0", "0", "7", "0", "0"},
                                         TypeRow{"Integer", "-3", "0", "0", "7", "0", "0"},
                                         TypeRow{"IntegerOf64Bits", "18446744073709551615", "0", "0", "7", "0", "0"},
                                         TypeRow{"False", "false", "false", "false", "false", "true", "false"},
                                         TypeRow{"True", "true", "false", "false", "false", "true", "false"},
                                         TypeRow{"Null", "null", "null", "null", "null", "null", "null"},
                                         TypeRow{"Object", R"({"Code":"x"})", R"({"Code":"x"})", R"({"Code":"x"})",
                                                 R"({"Code":"x"})", R"({"Code":"x"})", R"({"Code":"x"})"},
                                         TypeRow{"Array", R"([0,"x"])", R"([0,"x"])", R"([0,"x"])", R"([0,"x"])",
                                                 R"([0,"x"])", R"([0,"x"])"}),
                         RowName());

TEST_F(JsonExportTest, BooleansOtherThanZeroAreTrue) {
  WriteSections(R"({"a":false,"b":false,"c":true})", "[]", "{}");
  const auto analysis = MakeAnalysis("A");
  (void)analysis->SetValue("a", static_cast<unsigned char>(1));
  (void)analysis->SetValue("b", static_cast<unsigned char>(255));
  (void)analysis->SetValue("c", static_cast<unsigned char>(0));
  EXPECT_EQ(Exported(analysis), R"({"TAATTRIBUTES":{"a":true,"b":true,"c":false},"TALINESDETAILS":[]})");
}

TEST_F(JsonExportTest, RealsStayRealAndHaveAllDigits) {
  WriteSections(R"({"a":0.0,"b":0.0,"c":0.0,"d":0.0,"e":0.0})", "[]", "{}");
  const auto analysis = MakeAnalysis("A");
  (void)analysis->SetValue("a", 2.0);
  (void)analysis->SetValue("b", 0.1 + 0.2);
  (void)analysis->SetValue("c", -0.0);
  (void)analysis->SetValue("d", std::numeric_limits<double>::quiet_NaN());
  (void)analysis->SetValue("e", -std::numeric_limits<double>::infinity());
  EXPECT_EQ(Exported(analysis),
            R"({"TAATTRIBUTES":{"a":2.0,"b":0.30000000000000004,"c":-0.0,"d":null,"e":null},"TALINESDETAILS":[]})");
}

TEST_F(JsonExportTest, TextsAreEscapedAndKeepTheirLetters) {
  WriteSections("{}", "[]", R"({"Description":""})");
  const auto analysis = MakeAnalysis("A", {Line().Set("Description", "Höhe \"40\" cm, \\ 日本 😀\n"),
                                           Line().Set("Description", Unicode(Whole("a\0b\x1F")))});
  EXPECT_EQ(
      Exported(analysis),
      R"({"TAATTRIBUTES":{},"TALINESDETAILS":[{"Description":"Höhe \"40\" cm, \\ 日本 😀\n"},{"Description":"a\u0000b\u001f"}]})");
}

TEST_F(JsonExportTest, ReusedAnalysesAndFormulaParametersStayAsInTheTemplate) {
  WriteSections("{}", "[]", R"({"TimeAnalysis":null,"FormulaParameter":[],"Code":""})");
  const auto reused = MakeAnalysis("B");
  const auto analysis = MakeAnalysis("A", {Line("F").Reuses(reused).Formula(support::TimeFormula("A", "1", "0.5"))});
  EXPECT_EQ(Exported(analysis),
            R"({"TAATTRIBUTES":{},"TALINESDETAILS":[{"TimeAnalysis":null,"FormulaParameter":[],"Code":"F"}]})");
  EXPECT_NE(support::DescribeLine(*analysis, 1).find("0.5"), std::string::npos) << "the line keeps its formula";
}

TEST_F(JsonExportTest, KeysMayHoldAnyLetters) {
  WriteSections(R"({"":"","Maß":0,"a b\n":0.0})", "[]", "{}");
  const auto analysis = MakeAnalysis("A");
  (void)analysis->SetValue("", Unicode("empty key"));
  (void)analysis->SetValue("Maß", 4);
  (void)analysis->SetValue("a b\n", 0.5);
  EXPECT_EQ(Exported(analysis), R"({"TAATTRIBUTES":{"":"empty key","Maß":4,"a b\n":0.5},"TALINESDETAILS":[]})");
}

TEST_F(JsonExportTest, WritesThePointInEveryLocale) {
  const formulatest::ScopedLocale comma(COMMA_LOCALE);
  ASSERT_TRUE(comma.IsInForce()) << "the locale " COMMA_LOCALE " has to be in LOCPATH";
  WriteTemplates(R"({"keep":1.5,"TAATTRIBUTES":{"V_TotalTime":0.5},"TALINESDETAILS":[]})", R"({"TotalTime":0.0})");
  const auto analysis = MakeAnalysis("A", {Line().Timed("TTB", 0.375, 2)});
  (void)analysis->SetValue("V_TotalTime", 12345.75);
  EXPECT_EQ(Exported(analysis),
            R"({"keep":1.5,"TAATTRIBUTES":{"V_TotalTime":12345.75},"TALINESDETAILS":[{"TotalTime":0.75}]})");
}

// ---- The shape of the whole ----

TEST_F(JsonExportTest, FollowsTheTemplateInItsKeysAndTheirOrder) {
  WriteTemplates(
      R"({"z":[1,{"y":null}],"TALINESDETAILS":[],"name":"kept","TAATTRIBUTES":{"V_Name":"","Code":""},"a":{"TAATTRIBUTES":0}})",
      R"({"TimeType":"","Code":""})");
  const auto analysis = MakeAnalysis("A", {Line("R40A").Set("TimeType", "TTB")});
  (void)analysis->SetValue("V_Name", Unicode("Montage"));
  EXPECT_EQ(
      Exported(analysis),
      R"({"z":[1,{"y":null}],"TALINESDETAILS":[{"TimeType":"TTB","Code":"R40A"}],"name":"kept","TAATTRIBUTES":{"V_Name":"Montage","Code":""},"a":{"TAATTRIBUTES":0}})");
}

TEST_F(JsonExportTest, OfAKeyTwiceInATemplateTheLastExampleCounts) {
  WriteSections(R"({"V_Name":0,"Code":"","V_Name":""})", "[]", "{}");
  const auto analysis = MakeAnalysis("A");
  (void)analysis->SetValue("V_Name", Unicode("Montage"));
  EXPECT_EQ(Exported(analysis), R"({"TAATTRIBUTES":{"V_Name":"Montage","Code":""},"TALINESDETAILS":[]})");
}

// The array of the template, the number of lines, and the array that comes out. Line n has the code Ln.
struct LinesRow {
  const char* name;
  std::string array;
  int count;
  std::string exported;
};
class LinesTest : public JsonExportRowTest<LinesRow> {};

TEST_P(LinesTest, TakeThePlacesOfTheFirstElements) {
  WriteSections("{}", GetParam().array, R"({"Code":""})");
  std::vector<Line> lines;
  for (int row = 1; row <= GetParam().count; ++row) lines.emplace_back("L" + std::to_string(row));
  EXPECT_EQ(Exported(MakeAnalysis("A", lines)), R"({"TAATTRIBUTES":{},"TALINESDETAILS":)" + GetParam().exported + "}");
}

INSTANTIATE_TEST_SUITE_P(
    Rows, LinesTest,
    testing::Values(LinesRow{"NoLinesAndAnExample", R"([{"Code":"example"}])", 0, R"([{"Code":"example"}])"},
                    LinesRow{"NoLinesAndNoElement", "[]", 0, "[]"},
                    LinesRow{"OneLineForTheExample", R"([{"Code":"example"}])", 1, R"([{"Code":"L1"}])"},
                    LinesRow{"MoreLinesThanElements", R"([{"x":1}])", 3,
                             R"([{"Code":"L1"},{"Code":"L2"},{"Code":"L3"}])"},
                    LinesRow{"FewerLinesThanElements", R"([1,"two",[3],{"x":4}])", 2,
                             R"([{"Code":"L1"},{"Code":"L2"},[3],{"x":4}])"},
                    LinesRow{"AsManyLinesAsElements", "[null,0]", 2, R"([{"Code":"L1"},{"Code":"L2"}])"},
                    LinesRow{"LinesAndNoElement", "[]", 2, R"([{"Code":"L1"},{"Code":"L2"}])"}),
    RowName());

// ---- Which analyses ----

TEST_F(JsonExportTest, AnEmptyListNeedsNoTemplate) {
  _Session.UnsetEnvironment("KORStartupPath");
  _Session.UnsetEnvironment("KORTemp");
  EXPECT_EQ(Export({}), S_OK);
}

TEST_F(JsonExportTest, AnAnalysisWithAJsonStreamStaysAsItIs) {
  WriteSections(R"({"V_Name":""})", "[]", "{}");
  const auto analysis = MakeAnalysis("A");
  (void)analysis->SetValue("V_Name", Unicode("before"));
  EXPECT_EQ(Exported(analysis), R"({"TAATTRIBUTES":{"V_Name":"before"},"TALINESDETAILS":[]})");
  (void)analysis->SetValue("V_Name", Unicode("behind"));
  std::filesystem::remove(_Folder.Path("temp/A.JSON"));
  EXPECT_EQ(Exported(analysis), R"({"TAATTRIBUTES":{"V_Name":"before"},"TALINESDETAILS":[]})");
  EXPECT_TRUE(Files().empty());
}

TEST_F(JsonExportTest, AJsonStreamOfAnyNameCounts) {
  const auto analysis = MakeAnalysis("A");
  analysis->GetContent().Streams.Put({"png", "A"}, "image");
  analysis->GetContent().Streams.Put({"JSON", "other"}, "{}");
  EXPECT_EQ(Export({analysis}), S_OK);
  EXPECT_EQ(StreamOf(analysis), std::nullopt);
}

TEST_F(JsonExportTest, EveryAnalysisOfAListGetsItsOwnStream) {
  WriteSections(R"({"PLM_ExternalID":""})", "[]", R"({"Code":""})");
  const auto first = MakeAnalysis("A", {Line("L1"), Line("L2")});
  const auto second = MakeAnalysis("B");
  const auto third = MakeAnalysis("C", {Line("M1")});
  EXPECT_EQ(Export({first, second, third, first}), S_OK);
  EXPECT_EQ(StreamOf(first),
            R"({"TAATTRIBUTES":{"PLM_ExternalID":"A"},"TALINESDETAILS":[{"Code":"L1"},{"Code":"L2"}]})");
  EXPECT_EQ(StreamOf(second), R"({"TAATTRIBUTES":{"PLM_ExternalID":"B"},"TALINESDETAILS":[]})");
  EXPECT_EQ(StreamOf(third), R"({"TAATTRIBUTES":{"PLM_ExternalID":"C"},"TALINESDETAILS":[{"Code":"M1"}]})");
  EXPECT_EQ(Files(), (std::vector<std::string>{"A.JSON", "B.JSON", "C.JSON"}));
}

TEST_F(JsonExportTest, TheStatusIsThatOfTheLastAnalysisThatWasWritten) {
  WriteSections("{}", "[]", "{}");
  const auto good = MakeAnalysis("good");
  const auto other_good = MakeAnalysis("other");
  const auto bad = MakeAnalysis("../bad");
  const auto finished = MakeAnalysis("finished");
  finished->GetContent().Streams.Put({"JSON", "finished"}, "{}");
  EXPECT_EQ(Export({bad, good}), S_OK);
  EXPECT_EQ(Export({other_good, bad}), E_INVALIDARG);
  EXPECT_EQ(StreamOf(other_good), R"({"TAATTRIBUTES":{},"TALINESDETAILS":[]})");
  EXPECT_EQ(Export({bad, finished}), E_INVALIDARG) << "the status stays";
  EXPECT_EQ(Export({finished, good}), S_OK);
}

TEST_F(JsonExportTest, TheAnalysisItselfIsNotChanged) {
  WriteSections(R"({"V_Name":"","New":0})", "[]", R"({"Code":"","New":0.0})");
  const auto analysis = MakeAnalysis("A", {Line("L1")});
  const std::string before = support::DescribeAnalysis(*analysis);
  (void)Exported(analysis);
  EXPECT_EQ(support::DescribeAnalysis(*analysis), before);
}

TEST_F(JsonExportTest, WhatIsNoTimeAnalysisIsRefusedAndDoesNotEndTheWalk) {
  WriteSections(R"({"V_Name":"example"})", "[]", "{}");
  const auto good = MakeAnalysis("good");
  const auto other = KORHandle<KORRepReference>::Adopt(new KORRepReference("other"));
  EXPECT_EQ(Export({KORBaseUnknown_var(), calculationtest::MakeBareObject(), other, good}), S_OK);
  for (const KORBaseUnknown_var& object :
       {KORBaseUnknown_var(), calculationtest::MakeBareObject(), KORBaseUnknown_var(other)}) {
    EXPECT_EQ(Export({object}), E_INVALIDARG);
  }
  EXPECT_TRUE(other->GetContent().Streams.IsEmpty());
  EXPECT_EQ(Files(), (std::vector<std::string>{"good.JSON"}));
}

TEST_F(JsonExportTest, WithoutALineTableTheArrayStaysAsInTheTemplate) {
  WriteSections(R"({"PLM_ExternalID":""})", R"([{"x":1}])", R"({"Code":""})");
  const auto shell = MakeShellWithout<VEXITimeAnalysisLines>(MakeAnalysis("A", {Line("L1")}));
  EXPECT_EQ(Export({shell}), E_INVALIDARG) << "the shell is no representation that holds streams";
  EXPECT_EQ(ContentOf(_Folder.Path("temp/A.JSON")),
            R"({"TAATTRIBUTES":{"PLM_ExternalID":"A"},"TALINESDETAILS":[{"x":1}]})");
}

// ---- The file and the stream ----

TEST_F(JsonExportTest, TheFileStaysAndHoldsWhatTheStreamHolds) {
  WriteSections(R"({"PLM_ExternalID":""})", "[]", "{}");
  const auto analysis = MakeAnalysis("Länge 1");
  const std::string content = Exported(analysis);
  EXPECT_EQ(content, R"({"TAATTRIBUTES":{"PLM_ExternalID":"Länge 1"},"TALINESDETAILS":[]})");
  EXPECT_EQ(ContentOf(_Folder.Path("temp/Länge 1.JSON")), content);
  EXPECT_EQ(FormatsOn(analysis), (std::vector<std::string>{"JSON"}));
}

TEST_F(JsonExportTest, AFileOfThatNameIsReplaced) {
  WriteSections("{}", "[]", "{}");
  _Folder.Write("temp/A.JSON", std::string(1000, 'x'));
  EXPECT_EQ(Exported(MakeAnalysis("A")), R"({"TAATTRIBUTES":{},"TALINESDETAILS":[]})");
  EXPECT_EQ(ContentOf(_Folder.Path("temp/A.JSON")), R"({"TAATTRIBUTES":{},"TALINESDETAILS":[]})");
}

TEST_F(JsonExportTest, AnAnalysisWithoutIdentifierIsCalledByTheExtensionAlone) {
  WriteSections("{}", "[]", "{}");
  EXPECT_EQ(Exported(support::TimeAnalysis_var::Adopt(new VEXTimeAnalysisRepReference)),
            R"({"TAATTRIBUTES":{},"TALINESDETAILS":[]})");
  EXPECT_EQ(Files(), (std::vector<std::string>{".JSON"}));
}

struct RecordedRow {
  const char* name;
  KORRecord::Mode mode;
  const char* folder;
};
class RecordedExportTest : public JsonExportRowTest<RecordedRow> {};

TEST_P(RecordedExportTest, WritesToTheFolderOfTheRun) {
  WriteSections("{}", "[]", "{}");
  _Session.SetEnvironment("QRN_TVS_TMP", Unicode(_Folder.MakeFolder("recorded")));
  _Session.GetRecorder().SetMode(GetParam().mode);
  EXPECT_EQ(Exported(MakeAnalysis("A")), R"({"TAATTRIBUTES":{},"TALINESDETAILS":[]})");
  for (const std::string folder : {"temp", "recorded"}) {
    EXPECT_EQ(std::filesystem::exists(_Folder.Path(folder + "/A.JSON")), folder == GetParam().folder) << folder;
  }
}

INSTANTIATE_TEST_SUITE_P(Modes, RecordedExportTest,
                         testing::Values(RecordedRow{"AtRest", KORRecord::Mode::Rest, "temp"},
                                         RecordedRow{"Captured", KORRecord::Mode::Capture, "recorded"},
                                         RecordedRow{"Replayed", KORRecord::Mode::Replay, "recorded"}),
                         RowName());

TEST_F(JsonExportTest, AnyDocumentMayBeAddedAndReplacesTheStreamOfThatName) {
  const auto analysis = MakeAnalysis("A");
  KOROmxJsonObject document;
  EXPECT_EQ(Services::CreateStreamDiscriptorOnTA_FromJSON(document, analysis), S_OK);
  EXPECT_EQ(StreamOf(analysis), "{}");
  (void)document.PutDouble("x", 1);
  EXPECT_EQ(Services::CreateStreamDiscriptorOnTA_FromJSON(document, analysis), S_OK);
  EXPECT_EQ(StreamOf(analysis), R"({"x":1.0})");
  EXPECT_EQ(document.ToString(), R"({"x":1.0})");
}

TEST_F(JsonExportTest, ADocumentNeedsAnAnalysis) {
  KOROmxJsonObject document;
  EXPECT_EQ(Services::CreateStreamDiscriptorOnTA_FromJSON(document, NULL_var), E_INVALIDARG);
  const auto shell = MakeShellWithout<VEXITimeAnalysisProperties>(MakeAnalysis("A"));
  EXPECT_EQ(Services::CreateStreamDiscriptorOnTA_FromJSON(document, shell), E_INVALIDARG);
  EXPECT_TRUE(Files().empty());
}

// ---- The operations one by one ----

TEST_F(JsonExportTest, TellsWhetherAJsonStreamIsThere) {
  KORBaseUnknown_var nothing;
  EXPECT_EQ(Services::IsJSONFileExistsOnTA(nothing), 0);
  KORBaseUnknown_var bare = calculationtest::MakeBareObject();
  EXPECT_EQ(Services::IsJSONFileExistsOnTA(bare), 0);
  const auto analysis = MakeAnalysis("A");
  KORBaseUnknown_var object = analysis;
  for (const char* format : {"json", "JSON ", "png", ""}) analysis->GetContent().Streams.Put({format, "JSON"}, "{}");
  EXPECT_EQ(Services::IsJSONFileExistsOnTA(object), 0);
  analysis->GetContent().Streams.Put({"JSON", ""}, "");
  EXPECT_EQ(Services::IsJSONFileExistsOnTA(object), 1);
}

TEST_F(JsonExportTest, ALineByItselfIsMadeByTheTemplateAsItIsThen) {
  KOROmxJsonObject object;
  (void)object.PutInteger("before", 1);
  Line line("R40A");
  EXPECT_EQ(Services::CreateTALineJSONObject(line.Record(), object), S_OK);
  EXPECT_EQ(object.ToString(), "{}") << "there is no template yet";
  WriteTemplates("{}", R"({"Code":"example","Factor":1.0})");
  EXPECT_EQ(Services::CreateTALineJSONObject(line.Record(), object), S_OK);
  EXPECT_EQ(object.ToString(), R"({"Code":"R40A","Factor":0.0})");
  WriteTemplates("{}", R"({"TimeType":"","Code":""})");
  EXPECT_EQ(Services::CreateTALineJSONObject(line.Record(), object), S_OK);
  EXPECT_EQ(object.ToString(), R"({"TimeType":"","Code":"R40A"})");
}

struct SeparatorRow {
  const char* name;
  int system;
  const char* found;  // behind the folder of the test
};
class TemplatePathTest : public JsonExportRowTest<SeparatorRow> {};

TEST_P(TemplatePathTest, HasTheSeparatorOfTheSystem) {
  _Session.SetOperatingSystem(GetParam().system);
  _Folder.Write("start/JSONTemplates/mine.JSON", "{}");
  KORUnicodeString path("before");
  EXPECT_EQ(Services::GetTemplateJSONFilaPath("mine.JSON", path), S_OK);
  EXPECT_EQ(Text(path), _Folder.Path("start") + GetParam().found);
}

INSTANTIATE_TEST_SUITE_P(Systems, TemplatePathTest,
                         testing::Values(SeparatorRow{"Zero", 0, "/JSONTemplates/mine.JSON"},
                                         SeparatorRow{"Three", 3, "/JSONTemplates/mine.JSON"},
                                         SeparatorRow{"Seven", 7, "/JSONTemplates/mine.JSON"},
                                         SeparatorRow{"Four", 4, "/JSONTemplates\\mine.JSON"},
                                         SeparatorRow{"Six", 6, "/JSONTemplates\\mine.JSON"},
                                         SeparatorRow{"Eight", 8, "/JSONTemplates\\mine.JSON"}),
                         RowName());

TEST_P(TemplatePathTest, LeadsToTheTemplate) {
  _Session.SetOperatingSystem(GetParam().system);
  WriteTemplates(R"({"TAATTRIBUTES":{"PLM_ExternalID":""},"TALINESDETAILS":[]})", R"({"Code":""})");
  EXPECT_EQ(Exported(MakeAnalysis("A", {Line("L1")})),
            R"({"TAATTRIBUTES":{"PLM_ExternalID":"A"},"TALINESDETAILS":[{"Code":"L1"}]})");
}

TEST_F(JsonExportTest, ATemplateIsLookedForInAllFoldersAndMayBeNowhere) {
  _Folder.Write("second/JSONTemplates/mine.JSON", "{}");
  _Session.SetEnvironment("KORStartupPath", Unicode(_Folder.Path("start") + ":" + _Folder.Path("second")));
  KORUnicodeString path;
  EXPECT_EQ(Services::GetTemplateJSONFilaPath("mine.JSON", path), S_OK);
  EXPECT_EQ(Text(path), _Folder.Path("second/JSONTemplates/mine.JSON"));
  EXPECT_EQ(Services::GetTemplateJSONFilaPath("other.JSON", path), S_OK);
  EXPECT_EQ(Text(path), "");
  _Session.UnsetEnvironment("KORStartupPath");
  path = "before";
  EXPECT_EQ(Services::GetTemplateJSONFilaPath("mine.JSON", path), S_OK);
  EXPECT_EQ(Text(path), "");
}

TEST(JsonServicesClassTest, TellsItsName) {
  const auto services = KORHandle<VEXSTMJSONServices>::Adopt(VEXSTMJSONServices::CreateItself());
  EXPECT_STREQ(services->IsA(), "VEXSTMJSONServices");
  EXPECT_STREQ(VEXSTMJSONServices::ClassName(), "VEXSTMJSONServices");
  EXPECT_EQ(services->IsAKindOf("VEXSTMJSONServices"), 1);
  EXPECT_EQ(services->IsAKindOf("KORBaseUnknown"), 1);
  EXPECT_EQ(services->IsAKindOf("VEXTADataIO"), 0);
  EXPECT_EQ(services->GetMetaObject(), VEXSTMJSONServices::MetaObject());
  EXPECT_TRUE(VEXSTMJSONServices::ClassId() == VEXSTMJSONServices::MetaObject()->Identifier);
}

}  // namespace
