// Paths put together and taken apart.
#include "platform/system/KORPaths.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "platform/base/KORStatus.h"
#include "platform/system/KORSession.h"
#include "tests/platform/NamedRow.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using platformtest::NameOfRow;

// The path that is made; nothing, and the status of a path that cannot be had, if none is.
std::optional<std::string> MadePath(const std::string& folder, const std::string& file) {
  char anything = 'x';
  char* path = &anything;
  const long status =
      KORMakePath(KORUnicodeString(std::string_view(folder)), KORUnicodeString(std::string_view(file)), path);
  EXPECT_NE(path, &anything);
  EXPECT_EQ(status, path == nullptr ? E_INVALIDARG : S_OK);
  const std::unique_ptr<char, void (*)(void*)> owner(path, std::free);
  return path == nullptr ? std::nullopt : std::optional<std::string>(path);
}

struct MakeRow {
  const char* Name;
  std::string Folder;
  std::string File;
  std::string Path;
  int OperatingSystem = 7;
};
class MakePathTest : public testing::TestWithParam<MakeRow> {};

TEST_P(MakePathTest, Joins) {
  const KORFreshSession session;
  KORSession::Current().SetOperatingSystem(GetParam().OperatingSystem);
  EXPECT_EQ(MadePath(GetParam().Folder, GetParam().File), GetParam().Path);
}

// The eurosign takes three bytes in UTF-8.
std::string EuroSigns(int count) {
  std::string text;
  while (count-- > 0) text += "\xE2\x82\xAC";
  return text;
}

INSTANTIATE_TEST_SUITE_P(
    Paths, MakePathTest,
    testing::Values(
        MakeRow{"Plain", "/tmp", "grip.png", "/tmp/grip.png"},
        MakeRow{"SeparatorAtTheEnd", "/tmp/", "grip.png", "/tmp/grip.png"},
        MakeRow{"RootFolder", "/", "grip.png", "/grip.png"}, MakeRow{"RelativeFolder", ".", "grip.png", "./grip.png"},
        MakeRow{"FolderAboveIsTheCallersWish", "../parts", "grip.png", "../parts/grip.png"},
        MakeRow{"FolderWithin", "/tmp", "parts/grip.png", "/tmp/parts/grip.png"},
        MakeRow{"Blanks", "/t m p", " a b ", "/t m p/ a b "},
        MakeRow{"NotAscii", "/tmp", "Gr\xC3\xB6\xC3\x9F\x65", "/tmp/Gr\xC3\xB6\xC3\x9F\x65"},
        MakeRow{"HiddenFile", "/tmp", ".hidden", "/tmp/.hidden"},
        MakeRow{"PointsWithinAPart", "/tmp", "a..b", "/tmp/a..b"}, MakeRow{"ThreePoints", "/tmp", "...", "/tmp/..."},
        MakeRow{"PointsAtTheEndOfAPart", "/tmp", "a../b", "/tmp/a../b"}, MakeRow{"OnePoint", "/tmp", "./a", "/tmp/./a"},
        MakeRow{"DoubledSeparator", "/tmp", "a//b", "/tmp/a//b"},
        MakeRow{"BackslashIsKept", "/tmp", "a\\b", "/tmp/a\\b"},
        MakeRow{"BackslashSystem", "C:\\tmp", "a\\b", "C:\\tmp/a\\b", 4},
        MakeRow{"BackslashAtTheEnd", "C:\\tmp\\", "a", "C:\\tmp\\a", 4},
        MakeRow{"BackslashAtTheEndIsALetter", "/t\\", "a", "/t\\/a"},
        MakeRow{"ColonIsALetter", "/tmp", "C:a", "/tmp/C:a"},
        MakeRow{"ColonBehindTwoLetters", "/tmp", "TA:1", "/tmp/TA:1", 4},
        MakeRow{"LastCharactersAheadOfTheControls", "/tmp", " ~", "/tmp/ ~"},
        MakeRow{"FirstLetterBehindTheControls", "/tmp", "\xC2\xA0", "/tmp/\xC2\xA0"},
        MakeRow{"LetterWithTheBytesOfAControl", "/tmp", "\xC3\x85", "/tmp/\xC3\x85"},
        MakeRow{"LongestPart", "/tmp", std::string(255, 'x'), "/tmp/" + std::string(255, 'x')},
        MakeRow{"LongestPartNotAscii", "/tmp", EuroSigns(85), "/tmp/" + EuroSigns(85)},
        MakeRow{"LongestPath", "/" + std::string(3'838, 'f'), std::string(255, 'x'),
                "/" + std::string(3'838, 'f') + "/" + std::string(255, 'x')}),
    NameOfRow());

struct NoPathRow {
  const char* Name;
  std::string Folder;
  std::string File;
  int OperatingSystem = 7;
};
class NoPathTest : public testing::TestWithParam<NoPathRow> {};

TEST_P(NoPathTest, GivesNull) {
  const KORFreshSession session;
  KORSession::Current().SetOperatingSystem(GetParam().OperatingSystem);
  EXPECT_EQ(MadePath(GetParam().Folder, GetParam().File), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(
    Names, NoPathTest,
    testing::Values(
        NoPathRow{"Empty", "/tmp", ""}, NoPathRow{"Above", "/tmp", ".."}, NoPathRow{"FileAbove", "/tmp", "../x"},
        NoPathRow{"AboveInTheMiddle", "/tmp", "a/../../x"}, NoPathRow{"AboveThatStaysWithin", "/tmp", "a/../x"},
        NoPathRow{"AboveAtTheEnd", "/tmp", "a/.."}, NoPathRow{"TheFolderItself", "/tmp", "."},
        NoPathRow{"PointAtTheEnd", "/tmp", "a/."}, NoPathRow{"SeparatorAtTheEnd", "/tmp", "a.png/"},
        NoPathRow{"BackslashAtTheEnd", "/tmp", "a.png\\"}, NoPathRow{"AboveWithBackslash", "/tmp", "..\\x"},
        NoPathRow{"AboveInTheMiddleWithBackslash", "/tmp", "a\\..\\..\\x"},
        NoPathRow{"AboveBetweenBothSeparators", "/tmp", "a/..\\x"},
        NoPathRow{"AboveOnABackslashSystem", "C:\\tmp", "..\\x", 4}, NoPathRow{"Absolute", "/tmp", "/etc/passwd"},
        NoPathRow{"Root", "/tmp", "/"}, NoPathRow{"AbsoluteWithBackslash", "/tmp", "\\x"},
        NoPathRow{"Share", "/tmp", "\\\\host\\x"}, NoPathRow{"Drive", "C:\\tmp", "D:\\x", 4},
        NoPathRow{"DriveAlone", "C:\\tmp", "d:x", 4}, NoPathRow{"Nul", "/tmp", std::string("a\0b", 3)},
        NoPathRow{"NulAlone", "/tmp", std::string(1, '\0')}, NoPathRow{"NulAtTheEnd", "/tmp", std::string("a\0", 2)},
        NoPathRow{"NewLine", "/tmp", "a\nb"}, NoPathRow{"Tabulator", "/tmp", "a\tb"},
        NoPathRow{"LastControl", "/tmp", "a\x1F"}, NoPathRow{"Delete", "/tmp", "a\x7F"},
        NoPathRow{"FirstWideControl", "/tmp", "a\xC2\x80"}, NoPathRow{"LastWideControl", "/tmp", "a\xC2\x9F"},
        NoPathRow{"PartTooLong", "/tmp", std::string(256, 'x')},
        NoPathRow{"PartTooLongNotAscii", "/tmp", EuroSigns(85) + "x"},
        NoPathRow{"FolderWithinTooLong", "/tmp", std::string(256, 'x') + "/x"},
        NoPathRow{"TenThousandCharacters", "/tmp", std::string(10'000, 'x')},
        NoPathRow{"TenThousandShortParts", "/tmp",
                  [] {
                    std::string parts;
                    while (parts.size() < 20'000) parts += "x/";
                    return parts + "x";
                  }()}),
    NameOfRow());

INSTANTIATE_TEST_SUITE_P(Folders, NoPathTest,
                         testing::Values(NoPathRow{"EmptyFolder", "", "x"},
                                         NoPathRow{"NulInTheFolder", std::string("/tmp\0/x", 7), "x"},
                                         NoPathRow{"PathTooLong", "/" + std::string(3'839, 'f'), std::string(255, 'x')},
                                         NoPathRow{"FolderTooLong", std::string(10'000, 'f'), "x"}),
                         NameOfRow());

TEST(MakePathLinkTest, ANameThatPassesThroughALinkHasNoPath) {
  const support::TemporaryFolder folder;
  std::filesystem::create_directories(folder.Path("told/inner"));
  std::filesystem::create_directory(folder.Path("elsewhere"));
  std::filesystem::create_directory_symlink(folder.Path("elsewhere"), folder.Path("told/link"));
  std::filesystem::create_directory_symlink(folder.Path("elsewhere"), folder.Path("told/inner/link"));
  std::filesystem::create_directory_symlink(folder.Path("told"), folder.Path("way"));
  const std::string told = folder.Path("told");
  EXPECT_EQ(MadePath(told, "link/x.png"), std::nullopt);
  EXPECT_EQ(MadePath(told, "inner/link/x.png"), std::nullopt);
  EXPECT_EQ(MadePath(told, "inner/x.png"), told + "/inner/x.png");
  EXPECT_EQ(MadePath(told, "link"), told + "/link");  // a file of that name is replaced, not followed
  EXPECT_EQ(MadePath(folder.Path("way"), "x.png"), folder.Path("way") + "/x.png");
}

TEST(MakePathFaultTest, GivesNull) {
  const KORFreshSession session;
  KORSession::Current().InjectFault("KORMakePath", E_FAIL);
  char anything = 'x';
  char* path = &anything;
  EXPECT_EQ(KORMakePath("/tmp", "x", path), E_FAIL);
  EXPECT_EQ(path, nullptr);
}

struct SplitRow {
  const char* Name;
  int OperatingSystem;
  const char* Path;
  const char* Folder;
  const char* File;
};
class SplitPathExTest : public testing::TestWithParam<SplitRow> {};

TEST_P(SplitPathExTest, Splits) {
  const KORFreshSession session;
  KORSession::Current().SetOperatingSystem(GetParam().OperatingSystem);
  KORUnicodeString folder("before");
  KORUnicodeString file("before");
  EXPECT_EQ(KORSplitPathEx(GetParam().Path, folder, file), S_OK);
  EXPECT_EQ(folder.Bytes(), GetParam().Folder);
  EXPECT_EQ(file.Bytes(), GetParam().File);
}

INSTANTIATE_TEST_SUITE_P(Paths, SplitPathExTest,
                         testing::Values(SplitRow{"Full", 7, "/parts/left/grip.png", "/parts/left", "grip.png"},
                                         SplitRow{"Relative", 7, "parts/grip.png", "parts", "grip.png"},
                                         SplitRow{"SeparatorAtTheEnd", 7, "/parts/left/", "/parts/left", ""},
                                         SplitRow{"SeparatorsAtTheEnd", 7, "/parts//", "/parts", ""},
                                         SplitRow{"DoubledSeparator", 7, "parts//grip.png", "parts", "grip.png"},
                                         SplitRow{"BelowTheRoot", 7, "/grip.png", "/", "grip.png"},
                                         SplitRow{"Root", 7, "/", "/", ""}, SplitRow{"RootTwice", 7, "//", "/", ""},
                                         SplitRow{"NoSeparator", 7, "grip.png", "", "grip.png"},
                                         SplitRow{"NotAscii", 7, "/\xC3\xB6/\xE2\x82\xAC", "/\xC3\xB6", "\xE2\x82\xAC"},
                                         SplitRow{"BackslashIsALetter", 7, "parts\\grip.png", "", "parts\\grip.png"},
                                         SplitRow{"Backslash", 4, "parts\\grip.png", "parts", "grip.png"},
                                         SplitRow{"BackslashAtTheEnd", 4, "parts\\", "parts", ""},
                                         SplitRow{"BackslashRoot", 4, "\\grip.png", "\\", "grip.png"},
                                         SplitRow{"BothSeparators", 4, "a/b\\c", "a/b", "c"}),
                         NameOfRow());

TEST(SplitPathExFailureTest, GivesEmptyTexts) {
  const KORFreshSession session;
  KORUnicodeString folder("before");
  KORUnicodeString file("before");
  EXPECT_EQ(KORSplitPathEx("", folder, file), E_INVALIDARG);
  EXPECT_EQ(folder, "");
  EXPECT_EQ(file, "");

  KORSession::Current().InjectFault("KORSplitPathEx", E_FAIL);
  folder = file = "before";
  EXPECT_EQ(KORSplitPathEx("/a/b", folder, file), E_FAIL);
  EXPECT_EQ(folder, "");
  EXPECT_EQ(file, "");
}

TEST(SplitPathExAliasTest, TextsToFillMayBeThePath) {
  KORUnicodeString path("/parts/grip.png");
  KORUnicodeString other;
  EXPECT_EQ(KORSplitPathEx(path, other, path), S_OK);
  EXPECT_EQ(other, "/parts");
  EXPECT_EQ(path, "grip.png");
}

}  // namespace
