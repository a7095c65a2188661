// Named stores of settings and the files that they are read from.
#include "platform/system/KORSettingRepository.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/base/KORStatus.h"
#include "platform/system/KORSession.h"
#include "tests/platform/NamedRow.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using platformtest::NameOfRow;

TEST(KORSettingRepositoryTest, BelongsToTheCurrentSession) {
  KORSession session;
  const KORSession::Scope scope(session);
  EXPECT_EQ(KORSettingRepository::GetRepository("VEXTimeAnalysisCommonOptions", 0, 1), nullptr);
  KORSettingRepository& made = session.AddRepository("VEXTimeAnalysisCommonOptions");
  EXPECT_EQ(KORSettingRepository::GetRepository("VEXTimeAnalysisCommonOptions", 0, 1), &made);
  EXPECT_EQ(&session.AddRepository("VEXTimeAnalysisCommonOptions"), &made);
  EXPECT_EQ(KORSettingRepository::GetRepository("Other"), nullptr);
  KORSession other;
  EXPECT_EQ(other.FindRepository("VEXTimeAnalysisCommonOptions"), nullptr);
}

TEST(KORSettingRepositoryTest, ReadsTexts) {
  KORSettingRepository repository;
  KORUnicodeString value("before");
  EXPECT_EQ(repository.ReadSetting("datacardpath", value), E_FAIL);
  EXPECT_EQ(value, "before");
  repository.WriteSetting("datacardpath", "/cards/DataCard");
  EXPECT_EQ(repository.ReadSetting("datacardpath", value), S_OK);
  EXPECT_EQ(value, "/cards/DataCard");
  repository.WriteSetting("datacardpath", "");
  EXPECT_EQ(repository.ReadSetting("datacardpath", value), S_OK);
  EXPECT_EQ(value, "");
}

struct NumberRow {
  const char* Name;
  const char* Text;
  long Status;
  double Value;
};
class SettingNumberTest : public testing::TestWithParam<NumberRow> {};

TEST_P(SettingNumberTest, ReadsAWholeNumber) {
  KORSettingRepository repository;
  repository.WriteSetting("mintotmuconversion", GetParam().Text);
  double value = 7.0;
  EXPECT_EQ(repository.ReadSetting("mintotmuconversion", value), GetParam().Status);
  EXPECT_EQ(value, GetParam().Value);
  EXPECT_EQ(repository.ReadSetting("other", value), E_FAIL);
  EXPECT_EQ(value, GetParam().Value);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, SettingNumberTest,
    testing::Values(NumberRow{"Real", "0.0006", S_OK, 0.0006}, NumberRow{"Integer", "1667", S_OK, 1667.0},
                    NumberRow{"BlanksAround", " 1667 ", S_OK, 1667.0}, NumberRow{"Exponent", "6e-4", S_OK, 6e-4},
                    NumberRow{"Empty", "", E_FAIL, 7.0}, NumberRow{"Word", "standard", E_FAIL, 7.0},
                    NumberRow{"Comma", "0,0006", E_FAIL, 7.0}, NumberRow{"Unit", "1667 TMU", E_FAIL, 7.0},
                    NumberRow{"HalfAnExponent", "1e", E_FAIL, 7.0}),
    NameOfRow());

struct FileRow {
  const char* Name;
  std::string Content;
  int FirstFault;
  const char* Path;  // value of "path" afterwards; "-" if it is not set
};
class SettingFileTest : public testing::TestWithParam<FileRow> {};

TEST_P(SettingFileTest, Loads) {
  const support::TemporaryFolder folder;
  KORSettingRepository repository;
  EXPECT_EQ(repository.LoadFile(folder.Write("settings", GetParam().Content)), GetParam().FirstFault);
  KORUnicodeString value("-");
  repository.ReadSetting("path", value);
  EXPECT_EQ(value.Bytes(), GetParam().Path);
}

INSTANTIATE_TEST_SUITE_P(
    Files, SettingFileTest,
    testing::Values(FileRow{"Plain", "path=/cards\n", 0, "/cards"}, FileRow{"NoLineEnd", "path=/cards", 0, "/cards"},
                    FileRow{"Blanks", "  path \t=  /my cards \r\n", 0, "/my cards"},
                    FileRow{"CommentsAndEmptyLines", "# path=/a\n\n  # path=/b\npath=/c\n", 0, "/c"},
                    FileRow{"LaterOverEarlier", "path=/a\npath=/b\n", 0, "/b"},
                    FileRow{"EqualsInValue", "path=a=b\n", 0, "a=b"}, FileRow{"EmptyValue", "path=\n", 0, ""},
                    FileRow{"FaultIsPassedOver", "# head\nnonsense\n=x\npath=/a\n", 2, "/a"},
                    FileRow{"NoName", "path=/a\n = x\n", 2, "/a"}, FileRow{"Empty", "", 0, "-"},
                    FileRow{"NotAscii",
                            "path=/Zeiten/Gr\xC3\xB6\xC3\x9F"
                            "e\n",
                            0,
                            "/Zeiten/Gr\xC3\xB6\xC3\x9F"
                            "e"},
                    FileRow{"ByteOrderMark", "\xEF\xBB\xBFpath=/a\n", 0, "/a"}),
    NameOfRow());

TEST(KORSettingRepositoryTest, UnreadableFilesAreTold) {
  const support::TemporaryFolder folder;
  KORSettingRepository repository;
  EXPECT_EQ(repository.LoadFile(folder.Path("missing")), -1);
  EXPECT_EQ(repository.LoadFile(folder.Path()), -1);
  EXPECT_EQ(repository.LoadFile(""), -1);
}

}  // namespace
