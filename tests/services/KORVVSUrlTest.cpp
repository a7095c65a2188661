// Local files as URLs.
#include "platform/services/KORVVSUrl.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/base/KORStatus.h"
#include "platform/system/KORSession.h"
#include "tests/platform/NamedRow.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using platformtest::NameOfRow;

// The URL of a path; the status has to be S_OK.
KORVVSUrl UrlOf(const KORUnicodeString& path) {
  KORVVSUrl url;
  EXPECT_EQ(KORVVSUrlUtils::FromNativeFilePathToUrl(path, url), S_OK);
  return url;
}

struct UrlRow {
  const char* Name;
  const char* Path;
  const char* Url;
  int OperatingSystem = 7;
};
class UrlTest : public testing::TestWithParam<UrlRow> {};

TEST_P(UrlTest, NamesTheFile) {
  const KORFreshSession session;
  KORSession::Current().SetOperatingSystem(GetParam().OperatingSystem);
  EXPECT_EQ(UrlOf(GetParam().Path).GetText().Bytes(), GetParam().Url);
}

INSTANTIATE_TEST_SUITE_P(Paths, UrlTest,
                         testing::Values(UrlRow{"Plain", "/tmp/grip.png", "file:///tmp/grip.png"},
                                         UrlRow{"Blank", "/tmp/left grip.png", "file:///tmp/left%20grip.png"},
                                         UrlRow{"Percent", "/tmp/50%.png", "file:///tmp/50%25.png"},
                                         UrlRow{"QueryAndFragment", "/tmp/a?b#c", "file:///tmp/a%3Fb%23c"},
                                         UrlRow{"StandAsTheyAre", "/-._~!$&'()*+,;=:@", "file:///-._~!$&'()*+,;=:@"},
                                         UrlRow{"Brackets", "/[a]{b}<c>|\"^`",
                                                "file:///%5Ba%5D%7Bb%7D%3Cc%3E%7C%22%5E%60"},
                                         UrlRow{"ControlCharacters", "/a\n\x7F", "file:///a%0A%7F"},
                                         UrlRow{"TwoBytes", "/Gr\xC3\xB6\xC3\x9F\x65", "file:///Gr%C3%B6%C3%9Fe"},
                                         UrlRow{"ThreeBytes", "/5\xE2\x82\xAC", "file:///5%E2%82%AC"},
                                         UrlRow{"FourBytes", "/\xF0\x9F\x94\xA7", "file:///%F0%9F%94%A7"},
                                         UrlRow{"BackslashIsALetter", "/a\\b", "file:///a%5Cb"},
                                         UrlRow{"BackslashSeparates", "\\a\\b", "file:///a/b", 4}),
                         NameOfRow());

TEST(KORVVSUrlTest, NewOneNamesNothing) {
  const KORVVSUrl url;
  EXPECT_EQ(url.GetText(), "");
  EXPECT_EQ(url.GetNativeFilePath(), "");
}

TEST(KORVVSUrlTest, KeepsThePath) {
  EXPECT_EQ(UrlOf("/tmp/left grip.png").GetNativeFilePath(), "/tmp/left grip.png");
  const KORUnicodeString with_nul(std::string_view("/a\0b", 4));
  EXPECT_EQ(UrlOf(with_nul).GetNativeFilePath(), with_nul.Bytes());
  EXPECT_EQ(UrlOf(with_nul).GetText(), "file:///a%00b");
}

TEST(KORVVSUrlTest, ARelativePathIsOneOfTheWorkingFolder) {
  const std::string full = std::filesystem::current_path() / "grip.png";
  EXPECT_EQ(UrlOf("grip.png").GetNativeFilePath(), full);
  EXPECT_TRUE(UrlOf("grip.png").GetText().Bytes().starts_with("file:///"));
}

TEST(KORVVSUrlTest, KeepsTheBytesOfAWorkingFolderThatIsNoUtf8) {
  const support::TemporaryFolder folder;
  const std::string working = folder.Path("Gr\xF6\xDF\x65");
  std::filesystem::create_directory(working);
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(working);
  const KORVVSUrl url = UrlOf("grip.png");
  std::filesystem::current_path(before);
  EXPECT_EQ(url.GetNativeFilePath(), working + "/grip.png");
  EXPECT_TRUE(url.GetText().Bytes().ends_with("/Gr%F6%DFe/grip.png")) << url.GetText().Bytes();
}

TEST(KORVVSUrlTest, FailuresLeaveTheUrlAlone) {
  const KORFreshSession session;
  KORVVSUrl url = UrlOf("/tmp/grip.png");
  EXPECT_EQ(KORVVSUrlUtils::FromNativeFilePathToUrl("", url), E_INVALIDARG);
  KORSession::Current().InjectFault("FromNativeFilePathToUrl", E_FAIL);
  EXPECT_EQ(KORVVSUrlUtils::FromNativeFilePathToUrl("/other", url), E_FAIL);
  EXPECT_EQ(url.GetText(), "file:///tmp/grip.png");
  EXPECT_EQ(url.GetNativeFilePath(), "/tmp/grip.png");
}

}  // namespace
