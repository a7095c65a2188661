// Locale, paths and folders of the current session.
#include "platform/system/KORSystem.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/base/KORStatus.h"
#include "platform/system/KORSession.h"
#include "tests/formula/ScopedLocale.h"
#include "tests/platform/NamedRow.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using platformtest::NameOfRow;

TEST(LocalDecimalCharTest, IsAPointInTheLocaleOfAFreshProcess) {
  KORUnicodeString character;
  EXPECT_EQ(KORSysGetLocalDecimalChar(character), S_OK);
  EXPECT_EQ(character, ".");
}

TEST(LocalDecimalCharTest, FollowsTheLocaleOfTheProcess) {
  const formulatest::ScopedProcessLocale comma(COMMA_LOCALE);
  ASSERT_TRUE(comma.IsInForce()) << "the locale " COMMA_LOCALE " has to be in LOCPATH";
  KORUnicodeString character;
  EXPECT_EQ(KORSysGetLocalDecimalChar(character), S_OK);
  EXPECT_EQ(character, ",");
}

TEST(LocalDecimalCharTest, FollowsTheLocaleOfTheThread) {
  const formulatest::ScopedLocale comma(COMMA_LOCALE);
  ASSERT_TRUE(comma.IsInForce()) << "the locale " COMMA_LOCALE " has to be in LOCPATH";
  KORUnicodeString character;
  EXPECT_EQ(KORSysGetLocalDecimalChar(character), S_OK);
  EXPECT_EQ(character, ",");
}

TEST(LocalDecimalCharTest, FaultLeavesTheCharacterAlone) {
  KORSession session;
  const KORSession::Scope scope(session);
  session.InjectFault("KORSysGetLocalDecimalChar", E_FAIL);
  KORUnicodeString character("x");
  EXPECT_EQ(KORSysGetLocalDecimalChar(character), E_FAIL);
  EXPECT_EQ(character, "x");
}

// In names, lists and results "%" stands for the folder of the test.
struct FindRow {
  const char* Name;
  int OperatingSystem;
  std::string Wanted;
  std::string Folders;
  std::string Found;
};
class FindPathTest : public testing::TestWithParam<FindRow> {
 protected:
  FindPathTest() {
    _Folder.Write("one/DataCardEntry/dce_mtm1.xml", "<A/>");
    _Folder.Write("two/DataCardEntry/dce_mtm1.xml", "<A/>");
    _Folder.Write("two/only.xml", "<A/>");
    _Folder.Write(
        "two/Gr\xC3\xB6\xC3\x9F"
        "e.xml",
        "<A/>");
  }

  KORUnicodeString InFolder(const std::string& text) const {
    KORUnicodeString path(text.c_str());
    path.ReplaceAll("%", KORUnicodeString(_Folder.Path().c_str()));
    return path;
  }

  support::TemporaryFolder _Folder;
};

TEST_P(FindPathTest, Finds) {
  KORSession session;
  const KORSession::Scope scope(session);
  session.SetOperatingSystem(GetParam().OperatingSystem);
  EXPECT_EQ(KORFindPath(InFolder(GetParam().Wanted), InFolder(GetParam().Folders)).Bytes(),
            InFolder(GetParam().Found).Bytes());
}

constexpr const char* Entry = "DataCardEntry/dce_mtm1.xml";
constexpr const char* BackslashEntry = "DataCardEntry\\dce_mtm1.xml";

INSTANTIATE_TEST_SUITE_P(
    Slash, FindPathTest,
    testing::Values(FindRow{"FirstFolder", 7, Entry, "%/one:%/two", "%/one/DataCardEntry/dce_mtm1.xml"},
                    FindRow{"OrderCounts", 7, Entry, "%/two:%/one", "%/two/DataCardEntry/dce_mtm1.xml"},
                    FindRow{"SecondFolder", 7, "only.xml", "%/one:%/two", "%/two/only.xml"},
                    FindRow{"AFolder", 7, "DataCardEntry", "%/two", "%/two/DataCardEntry"},
                    FindRow{"SlashAtTheEnd", 7, "only.xml", "%/two/", "%/two/only.xml"},
                    FindRow{"EmptyPlacesInTheList", 7, "only.xml", "::%/two:", "%/two/only.xml"},
                    FindRow{"MissingFolder", 7, "only.xml", "%/three", ""},
                    FindRow{"Nowhere", 7, "none.xml", "%/one:%/two", ""}, FindRow{"EmptyName", 7, "", "%/one", ""},
                    FindRow{"EmptyList", 7, Entry, "", ""}, FindRow{"NoNameAndNoList", 7, "", "", ""},
                    FindRow{"AbsoluteName", 7, "%/two/only.xml", "%/one", "%/two/only.xml"},
                    FindRow{"MissingAbsoluteName", 7, "%/none.xml", "%/one", ""},
                    FindRow{"NotAscii", 7,
                            "Gr\xC3\xB6\xC3\x9F"
                            "e.xml",
                            "%/two",
                            "%/two/Gr\xC3\xB6\xC3\x9F"
                            "e.xml"},
                    FindRow{"BackslashIsALetter", 7, BackslashEntry, "%/one", ""},
                    FindRow{"SemicolonIsALetter", 7, Entry, "%/one;%/two", ""},
                    FindRow{"Code3", 3, Entry, "%/none:%/one", "%/one/DataCardEntry/dce_mtm1.xml"},
                    FindRow{"LowBitsCount", 0x50007, Entry, "%/none:%/one", "%/one/DataCardEntry/dce_mtm1.xml"}),
    NameOfRow());

INSTANTIATE_TEST_SUITE_P(
    Backslash, FindPathTest,
    testing::Values(FindRow{"KeptAsGiven", 4, BackslashEntry, "%/one;%/two", "%/one/DataCardEntry\\dce_mtm1.xml"},
                    FindRow{"SlashToo", 4, Entry, "%/none;%/two", "%/two/DataCardEntry/dce_mtm1.xml"},
                    FindRow{"ColonIsALetter", 4, Entry, "%/one:%/two", ""},
                    FindRow{"Code6", 6, BackslashEntry, "%/one", "%/one/DataCardEntry\\dce_mtm1.xml"},
                    FindRow{"Code8", 8, BackslashEntry, "%/one", "%/one/DataCardEntry\\dce_mtm1.xml"}),
    NameOfRow());

TEST(FindPathNulTest, NulInANameIsNowhere) {
  const support::TemporaryFolder folder;
  folder.Write("a", "x");
  const KORUnicodeString name{std::string_view("a\0b", 3)};
  EXPECT_EQ(KORFindPath(name, KORUnicodeString(folder.Path().c_str())), "");
}

struct SplitRow {
  const char* Name;
  int OperatingSystem;
  const char* Path;
  long Status;
  const char* Folder;
  const char* Last;
};
class SplitPathTest : public testing::TestWithParam<SplitRow> {};

TEST_P(SplitPathTest, Splits) {
  KORSession session;
  const KORSession::Scope scope(session);
  session.SetOperatingSystem(GetParam().OperatingSystem);
  KORUnicodeString folder("before");
  KORUnicodeString last("before");
  EXPECT_EQ(KORSplitPath(GetParam().Path, folder, last), GetParam().Status);
  EXPECT_EQ(folder.Bytes(), GetParam().Folder);
  EXPECT_EQ(last.Bytes(), GetParam().Last);
}

INSTANTIATE_TEST_SUITE_P(
    Paths, SplitPathTest,
    testing::Values(SplitRow{"Full", 7, "/cards/DataCard", S_OK, "/cards", "DataCard"},
                    SplitRow{"SeparatorAtTheEnd", 7, "/cards/DataCard//", S_OK, "/cards", "DataCard"},
                    SplitRow{"DoubledSeparator", 7, "cards//DataCard", S_OK, "cards", "DataCard"},
                    SplitRow{"BelowTheRoot", 7, "/cards", S_OK, "/", "cards"}, SplitRow{"Root", 7, "/", S_OK, "/", ""},
                    SplitRow{"RootTwice", 7, "//", S_OK, "/", ""},
                    SplitRow{"NoSeparator", 7, "DataCard", S_OK, "", "DataCard"},
                    SplitRow{"EmptyPath", 7, "", E_INVALIDARG, "before", "before"},
                    SplitRow{"BackslashIsALetter", 7, "cards\\DataCard", S_OK, "", "cards\\DataCard"},
                    SplitRow{"Backslash", 4, "cards\\DataCard", S_OK, "cards", "DataCard"},
                    SplitRow{"BothSeparators", 4, "a/b\\c", S_OK, "a/b", "c"}),
    NameOfRow());

TEST(SplitPathAliasTest, TextsToFillMayBeThePath) {
  KORUnicodeString path("/cards/DataCard");
  KORUnicodeString last;
  EXPECT_EQ(KORSplitPath(path, path, last), S_OK);
  EXPECT_EQ(path, "/cards");
  EXPECT_EQ(last, "DataCard");
}

TEST(SplitPathFaultTest, LeavesTheTextsAlone) {
  KORSession session;
  const KORSession::Scope scope(session);
  session.InjectFault("KORSplitPath", E_FAIL);
  KORUnicodeString folder("before");
  EXPECT_EQ(KORSplitPath("/a/b", folder, folder), E_FAIL);
  EXPECT_EQ(folder, "before");
}

std::vector<std::string> ListOf(const KORListValKORUnicodeString& names) {
  std::vector<std::string> list;
  for (const KORUnicodeString& name : names) list.emplace_back(name.Bytes());
  return list;
}

TEST(ListDirectoryTest, ListsInTheOrderOfBytes) {
  const support::TemporaryFolder folder;
  for (const char* name : {"dcg_b.xml", "dcg_a.xml", "B.xml", ".hidden", "\xC3\xA4.xml", "\xE4-old.xml"}) {
    folder.Write(name, "");
  }
  folder.MakeFolder("folder");
  KORListValKORUnicodeString names;
  names.Append("before");
  EXPECT_EQ(KORListDirectory(KORUnicodeString(folder.Path().c_str()), names), S_OK);
  EXPECT_EQ(ListOf(names), (std::vector<std::string>{".hidden", "B.xml", "dcg_a.xml", "dcg_b.xml", "folder",
                                                     "\xC3\xA4.xml", "\xC3\xA4-old.xml"}));
}

TEST(ListDirectoryTest, EmptyFolderIsNoFailure) {
  const support::TemporaryFolder folder;
  KORListValKORUnicodeString names;
  EXPECT_EQ(KORListDirectory(KORUnicodeString(folder.Path().c_str()), names), S_OK);
  EXPECT_EQ(names.Size(), 0);
}

TEST(ListDirectoryTest, WhatCannotBeReadIsAFailure) {
  const support::TemporaryFolder folder;
  const std::vector<std::string> paths = {folder.Write("file", ""), folder.Path("missing"), std::string(),
                                          folder.Path() + std::string("\0x", 2)};
  for (const std::string& path : paths) {
    KORListValKORUnicodeString names;
    names.Append("before");
    EXPECT_EQ(KORListDirectory(KORUnicodeString(std::string_view(path)), names), E_FAIL) << path;
    EXPECT_EQ(names.Size(), 0);
  }
}

TEST(ListDirectoryTest, FaultGivesNoNames) {
  KORSession session;
  const KORSession::Scope scope(session);
  session.InjectFault("KORListDirectory", E_INVALIDARG);
  KORListValKORUnicodeString names;
  names.Append("before");
  EXPECT_EQ(KORListDirectory("/", names), E_INVALIDARG);
  EXPECT_EQ(names.Size(), 0);
}

}  // namespace
