// The stream of a legacy representation: a file as it stands, or a fixed text in a recorded session.
#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <string>

#include "VEXSTTApplicativeContainerServices.h"
#include "exchange/DefaultStream.h"
#include "platform/base/KORError.h"
#include "platform/services/KOROmbStreams.h"
#include "tests/calculation/AnalysisShell.h"
#include "tests/exchange/LegacyWorld.h"
#include "tests/objects/ObjectsTest.h"

namespace {

using exchangetest::LegacyAnalyses;
using exchangetest::Record;
using support::Text;
using support::TimeAnalysis_var;

// The status and the text that an operation on a text "as it came" leaves, as "S_OK: as it came".
std::string Retrieve(const KORBaseUnknown_var& representation) {
  KORUnicodeString stream = "as it came";
  const long status = VEXSTTApplicativeContainerServices::RetrieveDBDIStream(representation, stream);
  return objectstest::StatusName(status) + ": " + Text(stream);
}

long CountOpenFiles() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

class LegacyStreamTest : public objectstest::ObjectsTest {
 protected:
  // What an analysis of a file with that content gives; the file is closed and still there afterwards.
  std::string RetrieveFile(const std::string& content) {
    const TimeAnalysis_var analysis = _Analyses.Make("TA", content);
    const long open_before = CountOpenFiles();
    const std::string retrieved = Retrieve(analysis);
    EXPECT_EQ(CountOpenFiles(), open_before);
    EXPECT_TRUE(std::filesystem::exists(Text(analysis->GetContent().LegacyStreamPath)));
    return retrieved;
  }

  LegacyAnalyses _Analyses;
};

// Files

struct FileRow {
  const char* name;
  std::string content;
  std::string stream;
};

class LegacyFileTest : public LegacyStreamTest, public testing::WithParamInterface<FileRow> {};

TEST_P(LegacyFileTest, IsReadAsItStands) {
  EXPECT_EQ(RetrieveFile(GetParam().content), "S_OK: " + GetParam().stream);
}

INSTANTIATE_TEST_SUITE_P(Rows, LegacyFileTest,
                         testing::Values(FileRow{"OneByte", "x", "x"},  //
                                         FileRow{"NothingIsStripped", " Save|x|STD|||\n|\r\n\n",
                                                 " Save|x|STD|||\n|\r\n\n"},
                                         FileRow{"LineFeedAlone", "\n", "\n"},
                                         FileRow{"Utf8",
                                                 "Gr\xC3\xBC\xC3\x9F"
                                                 "e",
                                                 "Grüße"},
                                         FileRow{"Windows1252",
                                                 "Gr\xFC\xDF"
                                                 "e",
                                                 "Grüße"},
                                         FileRow{"EndsAtAFirstNul", std::string("Save\0|x", 7), "Save"},
                                         FileRow{"IsEmptyBehindANulAtTheStart", std::string("\0Save", 5), ""},
                                         FileRow{"NulsAlone", std::string(4096, '\0'), ""},
                                         FileRow{"Binary",
                                                 std::string("\x7F"
                                                             "ELF\xFF\xFE\x01\x80\0\x02",
                                                             10),
                                                 "\x7F"
                                                 "ELFÿþ\x01€"},
                                         FileRow{"ByteOrderMarkIsKept", "\xEF\xBB\xBFSave", "\xEF\xBB\xBFSave"},
                                         FileRow{"NotAStream", "Dear Sirs,\n", "Dear Sirs,\n"}),
                         support::RowName());

TEST_F(LegacyStreamTest, HasEveryByteOfALargeFile) {
  std::string content(std::size_t{8} << 20, 'x');
  for (std::size_t place = 0; place < content.size(); place += 4093) content[place] = "|:\n7"[place % 4];
  EXPECT_TRUE(RetrieveFile(content) == "S_OK: " + content);
}

TEST_F(LegacyStreamTest, LeavesTheTextAloneForAnEmptyFile) {
  EXPECT_EQ(RetrieveFile(""), "S_OK: as it came");
}

TEST_F(LegacyStreamTest, LeavesTheTextAloneForAFileThatIsTooLong) {
  const TimeAnalysis_var analysis = _Analyses.Make("TA", "x");
  std::filesystem::resize_file(Text(analysis->GetContent().LegacyStreamPath), KORLongestStream + 1);  // a hole
  EXPECT_EQ(Retrieve(analysis), "E_FAIL: as it came");
}

// Ways that lead to no file

TEST_F(LegacyStreamTest, FailsWithoutAPath) {
  EXPECT_EQ(Retrieve(_Analyses.Make("TA", std::nullopt)), "E_FAIL: as it came");
}

TEST_F(LegacyStreamTest, HasTheStatusOfTheSizeIfTheFileCannotBeOpened) {
  const TimeAnalysis_var analysis = _Analyses.Make("TA", std::nullopt);
  for (const std::string& path :
       {_Analyses.Folder().Path("missing"), _Analyses.Folder().MakeFolder("folder"), std::string("/dev/null")}) {
    analysis->GetContent().LegacyStreamPath = support::Unicode(path);
    EXPECT_EQ(Retrieve(analysis), "E_INVALIDARG: as it came") << path;
  }
}

TEST_F(LegacyStreamTest, FailsWithTheQueryForAnObjectWithoutLegacyStream) {
  EXPECT_EQ(Retrieve(calculationtest::MakeBareObject()), "E_NOINTERFACE: as it came");
}

TEST_F(LegacyStreamTest, RaisesTheNullHandleErrorForNull) {
  EXPECT_THROW(Retrieve(nullptr), KORError);
  Record(KORRecord::Mode::Capture);
  EXPECT_THROW(Retrieve(nullptr), KORError);
}

// Recorded sessions

class RecordedStreamTest : public LegacyStreamTest, public testing::WithParamInterface<KORRecord::Mode> {
 protected:
  // An analysis of that system with a stream, in a session in which no file can be read.
  TimeAnalysis_var AnalysisOf(const char* system) {
    const TimeAnalysis_var analysis = _Analyses.Make("TA", "from the file");
    if (system != nullptr) exchangetest::SetSystem(*analysis, system);
    for (const char* operation : {"GetStreamFilePath", "KORFOpen", "KORFSize", "KORFRead"}) {
      _Session.InjectFault(operation, E_FAIL);
    }
    Record(GetParam());
    return analysis;
  }
};

TEST_P(RecordedStreamTest, IsTheDefaultOneForStd) {
  EXPECT_EQ(Retrieve(AnalysisOf("STD")), "S_OK: " + Text(exchange::DefaultStream()));
}

TEST_P(RecordedStreamTest, StaysAsItCameForOtherSystems) {
  for (const char* system : {"MTM1", "std", "STD ", ""}) {
    EXPECT_EQ(Retrieve(AnalysisOf(system)), "S_OK: as it came") << system;
  }
  KORUnicodeString empty;
  EXPECT_EQ(VEXSTTApplicativeContainerServices::RetrieveDBDIStream(AnalysisOf("UAS"), empty), S_OK);
  EXPECT_EQ(Text(empty), "");
}

TEST_P(RecordedStreamTest, HasTheStatusOfASystemThatCannotBeRead) {
  EXPECT_EQ(Retrieve(AnalysisOf(nullptr)), "E_FAIL: as it came");
}

TEST_P(RecordedStreamTest, RaisesTheNullHandleErrorWithoutProperties) {
  const auto shell = calculationtest::MakeShellWithout<VEXITimeAnalysisProperties>(AnalysisOf("STD"));
  EXPECT_THROW(Retrieve(shell), KORError);
}

INSTANTIATE_TEST_SUITE_P(Modes, RecordedStreamTest, testing::Values(KORRecord::Mode::Capture, KORRecord::Mode::Replay),
                         [](const auto& row) {
                           return row.param == KORRecord::Mode::Capture ? "Captured" : "Replayed";
                         });

TEST_F(LegacyStreamTest, ComesFromTheFileAgainWhenTheRecordingEnds) {
  const TimeAnalysis_var analysis = _Analyses.Make("TA", "from the file");
  exchangetest::SetSystem(*analysis, "STD");
  Record(KORRecord::Mode::Replay);
  (void)Retrieve(analysis);
  Record(KORRecord::Mode::Rest);
  EXPECT_EQ(Retrieve(analysis), "S_OK: from the file");
}

// Faults of the platform

class StreamFaultTest : public objectstest::FaultTest {
 protected:
  LegacyAnalyses _Analyses;
};

TEST_P(StreamFaultTest, GivesItsOutcome) {
  const TimeAnalysis_var analysis = _Analyses.Make("TA", "Save|x");
  const long open_before = CountOpenFiles();
  ExpectOutcome([&] { return Retrieve(analysis); }, "S_OK: Save|x");
  EXPECT_EQ(CountOpenFiles(), open_before);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, StreamFaultTest,
    testing::ValuesIn(objectstest::AllFaults({
        // A path that comes in spite of the status is read; no path with a success is that of no file.
        {"GetStreamFilePath", "fault: as it came", "S_OK: Save|x", "E_INVALIDARG: as it came"},
        {"KORFOpen", "E_INVALIDARG: as it came", "S_OK: Save|x", "E_INVALIDARG: as it came"},
        {"KORFSize", "fault: as it came", "S_OK: Save|x", "S_OK: as it came"},
        // What was read is the text, even if that is nothing.
        {"KORFRead", "fault: ", "fault: Save|x", "S_OK: "},
        {"KORFClose", "S_OK: Save|x", "S_OK: Save|x", "S_OK: Save|x"},
    })),
    objectstest::FaultCaseName());

}  // namespace
