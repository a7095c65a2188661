// The stream of a legacy representation: a file as it stands, or a fixed text in a recorded session.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <tuple>

#include "VEXSTTApplicativeContainerServices.h"
#include "exchange/DefaultStream.h"
#include "platform/base/KORError.h"
#include "tests/calculation/AnalysisShell.h"
#include "tests/exchange/LegacyWorld.h"

namespace {

using exchangetest::FaultStatus;
using exchangetest::FaultWay;
using exchangetest::NullAlone;
using exchangetest::StatusAlone;
using exchangetest::StatusAndNull;
using support::Text;
using support::TimeAnalysis_var;

constexpr const char* Before = "as it came";

struct Retrieved {
  long status;
  std::string stream;
};

bool operator==(const Retrieved& left, const Retrieved& right) {
  return left.status == right.status && left.stream == right.stream;
}

void PrintTo(const Retrieved& retrieved, std::ostream* output) {
  *output << retrieved.status << " '" << retrieved.stream << "'";
}

Retrieved Retrieve(const KORBaseUnknown_var& representation) {
  KORUnicodeString stream = Before;
  const long status = VEXSTTApplicativeContainerServices::RetrieveDBDIStream(representation, stream);
  return {status, Text(stream)};
}

long CountOpenFiles() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

class LegacyStreamTest : public exchangetest::LegacyTest {
 protected:
  // The analysis of a file with that content; the file is closed and still there afterwards.
  Retrieved RetrieveFile(const std::string& content) {
    const TimeAnalysis_var analysis = MakeLegacy("TA", content);
    const long open_before = CountOpenFiles();
    const Retrieved retrieved = Retrieve(analysis);
    EXPECT_EQ(CountOpenFiles(), open_before);
    EXPECT_TRUE(std::filesystem::exists(Text(analysis->GetContent().LegacyStreamPath)));
    return retrieved;
  }
};

// Files

struct FileRow {
  const char* name;
  std::string content;
  std::string stream;
};

class LegacyFileTest : public LegacyStreamTest, public testing::WithParamInterface<FileRow> {};

TEST_P(LegacyFileTest, IsReadAsItStands) {
  EXPECT_EQ(RetrieveFile(GetParam().content), (Retrieved{S_OK, GetParam().stream}));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, LegacyFileTest,
    testing::Values(FileRow{"OneByte", "x", "x"},  //
                    FileRow{"NothingIsStripped", " Save|x|STD|||\n|\r\n\n", " Save|x|STD|||\n|\r\n\n"},
                    FileRow{"LineFeedAlone", "\n", "\n"},
                    FileRow{"Utf8", "Gr\xC3\xBC\xC3\x9F"
                                    "e",
                            "Grüße"},
                    FileRow{"Windows1252", "Gr\xFC\xDF"
                                           "e",
                            "Grüße"},
                    FileRow{"EndsAtAFirstNul", std::string("Save\0|x", 7), "Save"},
                    FileRow{"IsEmptyBehindANulAtTheStart", std::string("\0Save", 5), ""},
                    FileRow{"NulsAlone", std::string(4096, '\0'), ""},
                    FileRow{"Binary", std::string("\x7F"
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
  EXPECT_TRUE(RetrieveFile(content) == (Retrieved{S_OK, content}));
}

TEST_F(LegacyStreamTest, LeavesTheTextAloneForAnEmptyFile) {
  EXPECT_EQ(RetrieveFile(""), (Retrieved{S_OK, Before}));
}

// Ways that lead to no file

TEST_F(LegacyStreamTest, FailsWithoutAPath) {
  EXPECT_EQ(Retrieve(MakeLegacy("TA", std::nullopt)), (Retrieved{E_FAIL, Before}));
}

TEST_F(LegacyStreamTest, HasTheStatusOfTheSizeIfTheFileCannotBeOpened) {
  const TimeAnalysis_var analysis = MakeLegacy("TA", std::nullopt);
  for (const std::string& path : {Folder.Path("missing"), Folder.MakeFolder("folder"), std::string("/dev/null")}) {
    analysis->GetContent().LegacyStreamPath = support::Unicode(path);
    EXPECT_EQ(Retrieve(analysis), (Retrieved{E_INVALIDARG, Before})) << path;
  }
}

TEST_F(LegacyStreamTest, FailsWithTheQueryForAnObjectWithoutLegacyStream) {
  EXPECT_EQ(Retrieve(calculationtest::MakeBareObject()), (Retrieved{E_NOINTERFACE, Before}));
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
    const TimeAnalysis_var analysis = MakeLegacy("TA", "from the file");
    if (system != nullptr) (void)analysis->SetValue("V_Subsystem", KORUnicodeString(system));
    for (const char* operation : {"GetStreamFilePath", "KORFOpen", "KORFSize", "KORFRead"}) {
      KORSession::Current().InjectFault(operation, FaultStatus);
    }
    Record(GetParam());
    return analysis;
  }
};

TEST_P(RecordedStreamTest, IsTheDefaultOneForStd) {
  EXPECT_EQ(Retrieve(AnalysisOf("STD")), (Retrieved{S_OK, Text(exchange::DefaultStream())}));
}

TEST_P(RecordedStreamTest, StaysAsItCameForOtherSystems) {
  for (const char* system : {"MTM1", "std", "STD ", ""}) {
    EXPECT_EQ(Retrieve(AnalysisOf(system)), (Retrieved{S_OK, Before})) << system;
  }
  KORUnicodeString empty;
  EXPECT_EQ(VEXSTTApplicativeContainerServices::RetrieveDBDIStream(AnalysisOf("UAS"), empty), S_OK);
  EXPECT_EQ(Text(empty), "");
}

TEST_P(RecordedStreamTest, HasTheStatusOfASystemThatCannotBeRead) {
  EXPECT_EQ(Retrieve(AnalysisOf(nullptr)), (Retrieved{E_FAIL, Before}));
}

TEST_P(RecordedStreamTest, RaisesTheNullHandleErrorWithoutProperties) {
  const auto shell = calculationtest::MakeShellWithout<VEXITimeAnalysisProperties>(AnalysisOf("STD"));
  EXPECT_THROW(Retrieve(shell), KORError);
}

INSTANTIATE_TEST_SUITE_P(Modes, RecordedStreamTest,
                         testing::Values(KORRecord::Mode::Capture, KORRecord::Mode::Replay),
                         [](const auto& row) {
                           return row.param == KORRecord::Mode::Capture ? "Captured" : "Replayed";
                         });

TEST_F(LegacyStreamTest, ComesFromTheFileAgainWhenTheRecordingEnds) {
  const TimeAnalysis_var analysis = MakeLegacy("TA", "from the file");
  (void)analysis->SetValue("V_Subsystem", KORUnicodeString("STD"));
  Record(KORRecord::Mode::Replay);
  (void)Retrieve(analysis);
  Record(KORRecord::Mode::Rest);
  EXPECT_EQ(Retrieve(analysis), (Retrieved{S_OK, "from the file"}));
}

// Faults of the platform

struct StreamFault {
  const char* operation;
  FaultWay way;
  Retrieved expected;
};

class StreamFaultTest : public LegacyStreamTest,
                        public testing::WithParamInterface<std::tuple<StreamFault, KORFault::Life>> {};

const Retrieved Whole{S_OK, "Save|x"};

TEST_P(StreamFaultTest, ComesBackAsTold) {
  const auto& [fault, life] = GetParam();
  const TimeAnalysis_var analysis = MakeLegacy("TA", "Save|x");
  exchangetest::InjectFault(fault.operation, fault.way.Kind, life);
  const long open_before = CountOpenFiles();
  EXPECT_EQ(Retrieve(analysis), fault.expected);
  EXPECT_EQ(CountOpenFiles(), open_before);
  KORSession::Current().ClearFaults();
  EXPECT_EQ(Retrieve(analysis), Whole) << "nothing is left of the fault";
}

INSTANTIATE_TEST_SUITE_P(
    Rows, StreamFaultTest,
    testing::Combine(
        testing::Values(StreamFault{"GetStreamFilePath", StatusAndNull, {FaultStatus, Before}},
                        // The path came all the same: the file is read.
                        StreamFault{"GetStreamFilePath", StatusAlone, Whole},
                        // No path and a success: there is no file of that name.
                        StreamFault{"GetStreamFilePath", NullAlone, {E_INVALIDARG, Before}},
                        StreamFault{"KORFOpen", StatusAndNull, {E_INVALIDARG, Before}},
                        StreamFault{"KORFOpen", StatusAlone, Whole},
                        StreamFault{"KORFOpen", NullAlone, {E_INVALIDARG, Before}},
                        StreamFault{"KORFSize", StatusAndNull, {FaultStatus, Before}},
                        StreamFault{"KORFSize", StatusAlone, Whole},
                        StreamFault{"KORFSize", NullAlone, {S_OK, Before}},
                        // What was read is the text, even if it is nothing.
                        StreamFault{"KORFRead", StatusAndNull, {FaultStatus, ""}},
                        StreamFault{"KORFRead", StatusAlone, {FaultStatus, "Save|x"}},
                        StreamFault{"KORFRead", NullAlone, {S_OK, ""}},  //
                        StreamFault{"KORFClose", StatusAndNull, Whole},  //
                        StreamFault{"KORFClose", StatusAlone, Whole},    //
                        StreamFault{"KORFClose", NullAlone, Whole}),
        testing::Values(KORFault::Life::Once, KORFault::Life::Always)),
    [](const auto& row) {
      const StreamFault& fault = std::get<0>(row.param);
      const char* const life = std::get<1>(row.param) == KORFault::Life::Once ? "Once" : "Always";
      return std::string(fault.operation) + fault.way.Name + life;
    });

}  // namespace
