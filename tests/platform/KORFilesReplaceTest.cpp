// A file that is written appears whole or not at all, and harms nothing that stands beside it.
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "platform/system/KORFiles.h"
#include "tests/platform/FilesTest.h"
#include "tests/support/FullDisk.h"

namespace {

using platformtest::FilesTest;
using platformtest::Names;

constexpr int NoDescriptor = -7;

class KORFilesReplaceTest : public FilesTest {
 protected:
  // Opens a path for writing and finds that it can't be done.
  static void ExpectRefused(const KORUnicodeString& path) {
    int descriptor = NoDescriptor;
    EXPECT_EQ(KORFOpen(path, "w", descriptor), E_FAIL) << path.ConvertToChar();
    EXPECT_EQ(descriptor, NoDescriptor);
  }
};

TEST_F(KORFilesReplaceTest, TheOldFileGoesAtOnceAndTheNewOneComesWithTheClose) {
  _Folder.Write("file", "before");
  const int descriptor = Open(Path("file"), "w");
  EXPECT_EQ(_Folder.Read("file"), std::nullopt);
  EXPECT_EQ(Write(descriptor, "after"), S_OK);
  EXPECT_EQ(_KORFileAccess(Path("file"), 0, 0), E_FAIL);
  EXPECT_EQ(KORFClose(descriptor), S_OK);
  EXPECT_EQ(_Folder.Read("file"), "after");
  EXPECT_EQ(_Folder.Names(), Names{"file"});
}

TEST_F(KORFilesReplaceTest, WhoReadsTheOldFileKeepsIt) {
  _Folder.Write("file", "before");
  const int reader = Open(Path("file"), "r");
  ASSERT_EQ(WriteFile(Path("file"), "after"), S_OK);
  EXPECT_EQ(Read(reader, 99), "before");
}

TEST_F(KORFilesReplaceTest, TheLastOneClosedStays) {
  const int first = Open(Path("file"), "w");
  const int second = Open(Path("file"), "w");
  EXPECT_EQ(Write(first, "first"), S_OK);
  EXPECT_EQ(Write(second, "2"), S_OK);
  EXPECT_EQ(KORFClose(second), S_OK);
  EXPECT_EQ(_Folder.Read("file"), "2");
  EXPECT_EQ(KORFClose(first), S_OK);
  EXPECT_EQ(_Folder.Read("file"), "first");
  EXPECT_EQ(_Folder.Names(), Names{"file"});
}

TEST_F(KORFilesReplaceTest, ALinkIsReplacedAndWhatItNamesIsLeftAlone) {
  _Folder.Write("secret", "before");
  _Folder.Write("kept/file", "before");
  std::filesystem::create_symlink("secret", _Folder.Path("to-file"));
  std::filesystem::create_symlink("kept", _Folder.Path("to-folder"));
  std::filesystem::create_symlink("missing", _Folder.Path("to-nothing"));
  for (const char* link : {"to-file", "to-folder", "to-nothing"}) {
    ASSERT_EQ(WriteFile(Path(link), "after"), S_OK) << link;
    EXPECT_FALSE(std::filesystem::is_symlink(_Folder.Path(link))) << link;
    EXPECT_EQ(_Folder.Read(link), "after") << link;
  }
  EXPECT_EQ(_Folder.Read("secret"), "before");
  EXPECT_EQ(_Folder.Read("kept/file"), "before");
  EXPECT_EQ(_Folder.Names(), (Names{"kept", "secret", "to-file", "to-folder", "to-nothing"}));
}

TEST_F(KORFilesReplaceTest, ALinkMadeMeanwhileIsReplacedToo) {
  _Folder.Write("secret", "before");
  const int descriptor = Open(Path("file"), "w");
  std::filesystem::create_symlink("secret", _Folder.Path("file"));
  EXPECT_EQ(Write(descriptor, "after"), S_OK);
  EXPECT_EQ(KORFClose(descriptor), S_OK);
  EXPECT_EQ(_Folder.Read("file"), "after");
  EXPECT_EQ(_Folder.Read("secret"), "before");
}

TEST_F(KORFilesReplaceTest, AHardLinkIsCutOff) {
  _Folder.Write("other", "before");
  std::filesystem::create_hard_link(_Folder.Path("other"), _Folder.Path("file"));
  ASSERT_EQ(WriteFile(Path("file"), "after"), S_OK);
  EXPECT_EQ(_Folder.Read("file"), "after");
  EXPECT_EQ(_Folder.Read("other"), "before");
}

TEST_F(KORFilesReplaceTest, FoldersAndSpecialFilesStay) {
  _Folder.MakeFolder("folder");
  ASSERT_EQ(mkfifo(_Folder.Path("pipe").c_str(), 0600), 0);
  ASSERT_EQ(mknod(_Folder.Path("socket").c_str(), S_IFSOCK | 0600, 0), 0);
  for (const KORUnicodeString& path :
       {Path("folder"), Path("folder/"), Path("folder/."), Path("folder/.."), Path("pipe"), Path("socket"), Path(),
        KORUnicodeString("/"), KORUnicodeString("."), KORUnicodeString("..")}) {
    ExpectRefused(path);
  }
  EXPECT_EQ(_Folder.Names(), (Names{"folder", "pipe", "socket"}));
  EXPECT_TRUE(std::filesystem::is_empty(_Folder.Path("folder")));
}

TEST_F(KORFilesReplaceTest, AFolderHasToBeThere) {
  _Folder.Write("file", "x");
  for (const KORUnicodeString& path : {Path("missing/file"), Path("file/file"), KORUnicodeString("/proc/file")}) {
    ExpectRefused(path);
  }
  EXPECT_EQ(_Folder.Names(), Names{"file"});
}

// Takes the rights of the superuser away from this process for as long as it lives, if it has them.
class AsAnybody {
 public:
  AsAnybody() : _User(geteuid()) {
    if (_User == 0) _Changed = seteuid(65534) == 0;
  }
  ~AsAnybody() { EXPECT_TRUE(_User != 0 || seteuid(_User) == 0); }
  AsAnybody(const AsAnybody&) = delete;
  AsAnybody& operator=(const AsAnybody&) = delete;

  bool IsInForce() const { return _Changed; }

 private:
  uid_t _User;
  bool _Changed = true;
};

TEST_F(KORFilesReplaceTest, AFolderThatIsNotToBeWrittenToKeepsItsFile) {
  _Folder.Write("closed/file", "before");
  std::filesystem::permissions(_Folder.Path(), std::filesystem::perms(0755));
  std::filesystem::permissions(_Folder.Path("closed"), std::filesystem::perms(0555));
  {
    const AsAnybody anybody;
    ASSERT_TRUE(anybody.IsInForce());
    ExpectRefused(Path("closed/file"));
    ExpectRefused(Path("closed/new"));
  }
  std::filesystem::permissions(_Folder.Path("closed"), std::filesystem::perms(0755));
  EXPECT_EQ(_Folder.Read("closed/file"), "before");
  EXPECT_EQ(_Folder.Read("closed/new"), std::nullopt);
}

TEST_F(KORFilesReplaceTest, NamesMayBeAsLongAsTheSystemLetsThem) {
  const std::string longest(255, 'n');
  ASSERT_EQ(WriteFile(Path(longest), "x"), S_OK);
  ASSERT_EQ(WriteFile(Path(longest), "y"), S_OK);
  EXPECT_EQ(_Folder.Read(longest), "y");
  ExpectRefused(Path(longest + "n"));
  ExpectRefused(Path(std::string(10'000, 'n')));
  EXPECT_EQ(_Folder.Names(), Names{longest});
}

TEST_F(KORFilesReplaceTest, PathsMayBeAsLongAsTheSystemLetsThem) {
  std::string folder = _Folder.Path();
  while (folder.size() + 201 < 4'094) folder += "/" + std::string(200, 'f');
  std::filesystem::create_directories(folder);
  const std::string file = folder + "/" + std::string(4'095 - folder.size() - 1, 'n');
  ASSERT_EQ(file.size(), 4'095u);
  EXPECT_EQ(WriteFile(KORUnicodeString(std::string_view(file)), "x"), S_OK);
  EXPECT_EQ(std::filesystem::file_size(file), 1u);
}

// Failures on the way.

TEST_F(KORFilesReplaceTest, AFullDiskLeavesNothing) {
  _Folder.Write("file", "before");
  const int descriptor = Open(Path("file"), "w");
  {
    const support::FullDisk disk(1000);
    EXPECT_EQ(Write(descriptor, std::string(600, 'x')), S_OK);
    EXPECT_EQ(Write(descriptor, std::string(600, 'x')), E_FAIL);
    EXPECT_EQ(_Folder.Names(), Names{});
  }
  EXPECT_EQ(Write(descriptor, "x"), E_FAIL);
  EXPECT_EQ(KORFClose(descriptor), E_FAIL);
  EXPECT_EQ(_Folder.Names(), Names{});
}

TEST_F(KORFilesReplaceTest, ADiskThatHasJustRoomKeepsTheFile) {
  const support::FullDisk disk(1000);
  EXPECT_EQ(WriteFile(Path("file"), std::string(1000, 'x')), S_OK);
  EXPECT_EQ(WriteFile(Path("longer"), std::string(1001, 'x')), E_FAIL);
  EXPECT_EQ(_Folder.Names(), Names{"file"});
  EXPECT_EQ(_Folder.Read("file"), std::string(1000, 'x'));
}

TEST_F(KORFilesReplaceTest, AFolderMadeMeanwhileIsNotReplaced) {
  const int descriptor = Open(Path("file"), "w");
  EXPECT_EQ(Write(descriptor, "x"), S_OK);
  _Folder.MakeFolder("file");
  EXPECT_EQ(KORFClose(descriptor), E_FAIL);
  EXPECT_EQ(_Folder.Names(), Names{"file"});
  EXPECT_TRUE(std::filesystem::is_empty(_Folder.Path("file")));
}

TEST_F(KORFilesReplaceTest, AFolderThatVanishesTakesTheFileAlong) {
  const std::string folder = _Folder.MakeFolder("folder");
  const int descriptor = Open(Path("folder/file"), "w");
  std::filesystem::remove_all(folder);
  EXPECT_EQ(Write(descriptor, "x"), S_OK);
  EXPECT_EQ(KORFClose(descriptor), E_FAIL);
  EXPECT_EQ(_Folder.Names(), Names{});
}

TEST_F(KORFilesReplaceTest, AFolderThatIsRenamedKeepsTheFile) {
  const std::string folder = _Folder.MakeFolder("folder");
  const int descriptor = Open(Path("folder/file"), "w");
  std::filesystem::rename(folder, _Folder.Path("renamed"));
  _Folder.MakeFolder("folder");
  EXPECT_EQ(KORFClose(descriptor), S_OK);
  EXPECT_EQ(_Folder.Read("renamed/file"), "");
  EXPECT_TRUE(std::filesystem::is_empty(folder));
}

TEST_F(KORFilesReplaceTest, ARelativePathIsOneOfTheWorkingFolderAtTheOpen) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(_Folder.Path());
  const int descriptor = Open("file", "w");
  std::filesystem::current_path(before);
  EXPECT_EQ(KORFClose(descriptor), S_OK);
  EXPECT_EQ(_Folder.Names(), Names{"file"});
}

TEST_F(KORFilesReplaceTest, AnotherFileOfTheFolderIsNeverTouched) {
  const int descriptor = Open(Path("file"), "w");
  const Names while_open = _Folder.Names();
  ASSERT_EQ(while_open.size(), 1u);
  EXPECT_EQ(while_open[0].front(), '.');
  EXPECT_LE(while_open[0].size(), 255u);
  const int again = Open(Path("file"), "w");
  EXPECT_EQ(_Folder.Names().size(), 2u);
  EXPECT_EQ(KORFClose(descriptor), S_OK);
  EXPECT_EQ(KORFClose(again), S_OK);
}

}  // namespace
