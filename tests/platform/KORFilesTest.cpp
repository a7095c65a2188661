// Files by descriptor: reading, writing, lengths, and what a descriptor is good for.
#include "platform/system/KORFiles.h"

#include <sys/stat.h>

#include <limits>
#include <thread>

#include "tests/platform/FilesTest.h"
#include "tests/platform/NamedRow.h"

namespace {

using platformtest::AllBytes;
using platformtest::FilesTest;
using platformtest::NameOfRow;
using platformtest::Names;

constexpr int NoDescriptor = -7;

class KORFilesTest : public FilesTest {
 protected:
  // A file of the text "0123456789" that is open for reading.
  int OpenDigits() const {
    _Folder.Write("digits", "0123456789");
    return Open(Path("digits"), "r");
  }
};

TEST_F(KORFilesTest, WhatWasWrittenIsReadBackByteForByte) {
  const std::string bytes = AllBytes() + "\r\n" + AllBytes();
  ASSERT_EQ(WriteFile(Path("bytes"), bytes), S_OK);
  const int descriptor = Open(Path("bytes"), "r");
  EXPECT_EQ(Read(descriptor, bytes.size() + 1), bytes);
  EXPECT_EQ(KORFClose(descriptor), S_OK);
  EXPECT_EQ(_Folder.Read("bytes"), bytes);
}

TEST_F(KORFilesTest, PiecesAreWrittenOneBehindTheOther) {
  const int descriptor = Open(Path("pieces"), "w");
  EXPECT_EQ(SizeOf(descriptor), 0u);
  EXPECT_EQ(Write(descriptor, "one "), S_OK);
  EXPECT_EQ(KORFWrite(descriptor, nullptr, 0), S_OK);
  EXPECT_EQ(SizeOf(descriptor), 4u);
  EXPECT_EQ(Write(descriptor, "two"), S_OK);
  EXPECT_EQ(SizeOf(descriptor), 7u);
  EXPECT_EQ(KORFClose(descriptor), S_OK);
  EXPECT_EQ(_Folder.Read("pieces"), "one two");
}

TEST_F(KORFilesTest, PiecesAreReadOneBehindTheOther) {
  const int descriptor = OpenDigits();
  EXPECT_EQ(Read(descriptor, 4), "0123");
  EXPECT_EQ(Read(descriptor, 0), "");
  EXPECT_EQ(Read(descriptor, 4), "4567");
  EXPECT_EQ(Read(descriptor, 4), "89");
  EXPECT_EQ(Read(descriptor, 4), "");
  std::size_t read = 1;
  EXPECT_EQ(KORFRead(descriptor, nullptr, 0, read), S_OK);
  EXPECT_EQ(read, 0u);
  EXPECT_EQ(SizeOf(descriptor), 10u);
}

TEST_F(KORFilesTest, AFileMayBeEmpty) {
  ASSERT_EQ(WriteFile(Path("empty"), ""), S_OK);
  EXPECT_EQ(_Folder.Read("empty"), "");
  const int descriptor = Open(Path("empty"), "r");
  EXPECT_EQ(SizeOf(descriptor), 0u);
  EXPECT_EQ(Read(descriptor, 1), "");
}

TEST_F(KORFilesTest, AFileMayBeLarge) {
  std::string bytes;
  while (bytes.size() < 5'000'000) bytes += AllBytes();
  ASSERT_EQ(WriteFile(Path("large"), bytes), S_OK);
  const int descriptor = Open(Path("large"), "r");
  EXPECT_EQ(SizeOf(descriptor), bytes.size());
  EXPECT_TRUE(Read(descriptor, bytes.size()) == bytes);
}

TEST_F(KORFilesTest, SeveralFilesAreOpenAtOnce) {
  const int first = Open(Path("first"), "w");
  const int second = Open(Path("second"), "w");
  const int digits = OpenDigits();
  const int digits_again = Open(Path("digits"), "r");
  EXPECT_EQ(Write(second, "2"), S_OK);
  EXPECT_EQ(Write(first, "1"), S_OK);
  EXPECT_EQ(Read(digits, 2), "01");
  EXPECT_EQ(Read(digits_again, 3), "012");
  EXPECT_EQ(KORFClose(second), S_OK);
  EXPECT_EQ(_Folder.Read("second"), "2");
  EXPECT_EQ(_Folder.Read("first"), std::nullopt);
  EXPECT_EQ(KORFClose(first), S_OK);
  EXPECT_EQ(_Folder.Read("first"), "1");
}

TEST_F(KORFilesTest, PathsNeedNotBeAscii) {
  ASSERT_EQ(WriteFile(Path("Gr\xC3\xB6\xC3\x9F\x65 \xE2\x82\xAC"), "5"), S_OK);
  EXPECT_EQ(_Folder.Names(), Names{"Gr\xC3\xB6\xC3\x9F\x65 \xE2\x82\xAC"});
  EXPECT_EQ(Read(Open(Path("Gr\xC3\xB6\xC3\x9F\x65 \xE2\x82\xAC"), "r"), 9), "5");
}

TEST_F(KORFilesTest, BackslashSeparatesWhereTheSystemSaysSo) {
  _Folder.MakeFolder("parts");
  const KORUnicodeString path = Path("parts\\grip");
  ASSERT_EQ(WriteFile(path, "letter"), S_OK);
  KORSession::Current().SetOperatingSystem(4);
  EXPECT_EQ(_KORFileAccess(path, 0, 0), E_FAIL);
  ASSERT_EQ(WriteFile(path, "separator"), S_OK);
  EXPECT_EQ(_KORFileAccess(path, 0, 0), S_OK);
  EXPECT_EQ(Read(Open(path, "r"), 99), "separator");
  KORSession::Current().SetOperatingSystem(7);
  EXPECT_EQ(Read(Open(path, "r"), 99), "letter");
  EXPECT_EQ(_Folder.Names(), (Names{"parts", "parts\\grip"}));
  EXPECT_EQ(_Folder.Read("parts/grip"), "separator");
}

TEST_F(KORFilesTest, WhatIsWrittenMayBeReadByWhomTheMaskLets) {
  const mode_t before = umask(027);
  const long status = WriteFile(Path("shared"), "x");
  umask(before);
  ASSERT_EQ(status, S_OK);
  struct stat description {};
  ASSERT_EQ(stat(_Folder.Path("shared").c_str(), &description), 0);
  EXPECT_EQ(description.st_mode & 0777, 0640u);
}

// What is no argument of an open.

struct OpenRow {
  const char* Name;
  KORUnicodeString Path;
  const char* Mode;
};
class WrongOpenTest : public testing::TestWithParam<OpenRow> {};

TEST_P(WrongOpenTest, LeavesTheDescriptorAlone) {
  const KORFreshSession session;
  int descriptor = NoDescriptor;
  EXPECT_EQ(KORFOpen(GetParam().Path, GetParam().Mode, descriptor), E_INVALIDARG);
  EXPECT_EQ(descriptor, NoDescriptor);
}

const KORUnicodeString path_with_nul{std::string_view("/nowhere\0x", 10)};

INSTANTIATE_TEST_SUITE_P(
    Arguments, WrongOpenTest,
    testing::Values(OpenRow{"EmptyPath", "", "r"}, OpenRow{"EmptyPathToWrite", "", "w"},
                    OpenRow{"NulInThePath", path_with_nul, "r"}, OpenRow{"NulInThePathToWrite", path_with_nul, "w"},
                    OpenRow{"EmptyMode", "/nowhere/x", ""}, OpenRow{"NullMode", "/nowhere/x", nullptr},
                    OpenRow{"UnknownMode", "/nowhere/x", "a"}, OpenRow{"LongerMode", "/nowhere/x", "rb"},
                    OpenRow{"CapitalMode", "/nowhere/x", "W"}),
    NameOfRow());

TEST_F(KORFilesTest, WhatIsNoRegularFileIsNotRead) {
  _Folder.MakeFolder("folder");
  ASSERT_EQ(mkfifo(_Folder.Path("pipe").c_str(), 0600), 0);
  for (const KORUnicodeString& path :
       {Path("missing"), Path("missing/file"), Path("folder"), Path("pipe"), KORUnicodeString("/dev/null")}) {
    int descriptor = NoDescriptor;
    EXPECT_EQ(KORFOpen(path, "r", descriptor), E_FAIL) << path.ConvertToChar();
    EXPECT_EQ(descriptor, NoDescriptor);
  }
}

// What is no descriptor.

class NoDescriptorTest : public testing::TestWithParam<int> {};

TEST_P(NoDescriptorTest, IsRefusedByEveryOperation) {
  const KORFreshSession session;
  char byte = 'x';
  std::size_t count = 7;
  EXPECT_EQ(KORFSize(GetParam(), count), E_INVALIDARG);
  EXPECT_EQ(count, 7u);
  EXPECT_EQ(KORFRead(GetParam(), &byte, 1, count), E_INVALIDARG);
  EXPECT_EQ(count, 0u);
  EXPECT_EQ(KORFWrite(GetParam(), &byte, 1), E_INVALIDARG);
  EXPECT_EQ(KORFClose(GetParam()), E_INVALIDARG);
}

INSTANTIATE_TEST_SUITE_P(Numbers, NoDescriptorTest,
                         testing::Values(0, 1, 2, -1, std::numeric_limits<int>::min(),
                                         std::numeric_limits<int>::max()));

TEST_F(KORFilesTest, DescriptorOfAClosedFileIsGoodForNothing) {
  const int closed = OpenDigits();
  ASSERT_EQ(KORFClose(closed), S_OK);
  const int open = OpenDigits();
  EXPECT_NE(closed, open);
  std::size_t size = 0;
  EXPECT_EQ(KORFSize(closed, size), E_INVALIDARG);
  EXPECT_EQ(KORFClose(closed), E_INVALIDARG);
  EXPECT_EQ(Read(open, 1), "0");
}

TEST_F(KORFilesTest, ReadersDoNotWriteAndWritersDoNotRead) {
  const int reader = OpenDigits();
  EXPECT_EQ(Write(reader, "x"), E_INVALIDARG);
  EXPECT_EQ(Read(reader, 2), "01");
  const int writer = Open(Path("new"), "w");
  EXPECT_EQ(Write(writer, "kept"), S_OK);
  char byte = 'x';
  std::size_t read = 1;
  EXPECT_EQ(KORFRead(writer, &byte, 1, read), E_INVALIDARG);
  EXPECT_EQ(read, 0u);
  EXPECT_EQ(KORFClose(writer), S_OK);
  EXPECT_EQ(_Folder.Read("new"), "kept");
}

TEST_F(KORFilesTest, NullBytesAreRefused) {
  const int reader = OpenDigits();
  std::size_t read = 1;
  EXPECT_EQ(KORFRead(reader, nullptr, 1, read), E_INVALIDARG);
  EXPECT_EQ(read, 0u);
  EXPECT_EQ(Read(reader, 2), "01");
  const int writer = Open(Path("new"), "w");
  EXPECT_EQ(KORFWrite(writer, nullptr, 1), E_INVALIDARG);
  EXPECT_EQ(Write(writer, "kept"), S_OK);
  EXPECT_EQ(KORFClose(writer), S_OK);
  EXPECT_EQ(_Folder.Read("new"), "kept");
}

TEST_F(KORFilesTest, DescriptorsBelongToTheirSession) {
  const int outer = OpenDigits();
  {
    const KORFreshSession other;
    std::size_t size = 0;
    EXPECT_EQ(KORFSize(outer, size), E_INVALIDARG);
    EXPECT_EQ(KORFClose(outer), E_INVALIDARG);
    EXPECT_NE(OpenDigits(), outer);
  }
  EXPECT_EQ(Read(outer, 1), "0");
}

TEST_F(KORFilesTest, TheEndOfTheSessionGivesUpWhatIsStillWritten) {
  {
    const KORFreshSession session;
    const int descriptor = Open(Path("new"), "w");
    EXPECT_EQ(Write(descriptor, "half"), S_OK);
    EXPECT_EQ(_Folder.Names().size(), 1u);
    EXPECT_EQ(Read(OpenDigits(), 1), "0");
  }
  EXPECT_EQ(_Folder.Names(), Names{"digits"});
}

TEST_F(KORFilesTest, SessionsOnSeveralThreadsWriteAtOnce) {
  const auto write_files = [this](int thread) {
    const KORFreshSession session;
    for (int file = 0; file < 20; ++file) {
      const std::string name = std::to_string(thread) + "-" + std::to_string(file);
      EXPECT_EQ(WriteFile(Path(name), name), S_OK);
      EXPECT_EQ(WriteFile(Path("shared"), std::string(1000, static_cast<char>('0' + thread))), S_OK);
    }
  };
  {
    const std::jthread first(write_files, 1);
    const std::jthread second(write_files, 2);
    const std::jthread third(write_files, 3);
  }
  EXPECT_EQ(_Folder.Names().size(), 61u);
  EXPECT_EQ(_Folder.Read("3-19"), "3-19");
  const std::string shared = _Folder.Read("shared").value_or("");
  EXPECT_EQ(shared, std::string(1000, shared.empty() ? '?' : shared.front()));
}

// Is it there?

TEST_F(KORFilesTest, AccessTellsWhatIsThere) {
  const KORUnicodeString file(std::string_view(_Folder.Write("file", "")));
  _Folder.MakeFolder("folder");
  std::filesystem::create_symlink("file", _Folder.Path("link"));
  std::filesystem::create_symlink("missing", _Folder.Path("dangling"));
  for (const KORUnicodeString& path : {file, Path("folder"), Path("folder/"), Path("link")}) {
    EXPECT_EQ(_KORFileAccess(path, 0, 0), S_OK) << path.ConvertToChar();
  }
  const KORUnicodeString nul = file + KORUnicodeString(std::string_view("\0x", 2));
  const KORUnicodeString long_name(std::string_view(std::string(10'000, 'x')));
  for (const KORUnicodeString& path :
       {KORUnicodeString(), Path("missing"), Path("file/"), Path("dangling"), nul, long_name}) {
    EXPECT_EQ(_KORFileAccess(path, 0, 0), E_FAIL) << path.ConvertToChar();
  }
}

// Faults.

TEST_F(KORFilesTest, OpenFailsOnDemandAndLeavesTheFileAlone) {
  _Folder.Write("file", "before");
  KORSession::Current().InjectFault("KORFOpen", E_NOINTERFACE);
  int descriptor = NoDescriptor;
  EXPECT_EQ(KORFOpen(Path("file"), "w", descriptor), E_NOINTERFACE);
  EXPECT_EQ(descriptor, NoDescriptor);
  EXPECT_EQ(_Folder.Read("file"), "before");
}

TEST_F(KORFilesTest, SizeReadAndAccessFailOnDemand) {
  const int descriptor = OpenDigits();
  for (const char* operation : {"KORFSize", "KORFRead", "_KORFileAccess"}) {
    KORSession::Current().InjectFault(operation, E_NOINTERFACE);
  }
  std::size_t count = 7;
  EXPECT_EQ(KORFSize(descriptor, count), E_NOINTERFACE);
  EXPECT_EQ(count, 7u);
  char byte = 'x';
  EXPECT_EQ(KORFRead(descriptor, &byte, 1, count), E_NOINTERFACE);
  EXPECT_EQ(count, 0u);
  EXPECT_EQ(byte, 'x');
  EXPECT_EQ(_KORFileAccess(Path("digits"), 0, 0), E_NOINTERFACE);
  KORSession::Current().ClearFaults();
  EXPECT_EQ(Read(descriptor, 2), "01");
}

TEST_F(KORFilesTest, AFailedWriteGivesTheFileUp) {
  const int descriptor = Open(Path("new"), "w");
  EXPECT_EQ(Write(descriptor, "some"), S_OK);
  KORSession::Current().InjectFault("KORFWrite", E_NOINTERFACE);
  EXPECT_EQ(Write(descriptor, "more"), E_NOINTERFACE);
  EXPECT_EQ(_Folder.Names(), Names{});
  KORSession::Current().ClearFaults();
  std::size_t size = 7;
  EXPECT_EQ(KORFSize(descriptor, size), E_FAIL);
  EXPECT_EQ(size, 7u);
  EXPECT_EQ(Write(descriptor, "more"), E_FAIL);
  EXPECT_EQ(KORFClose(descriptor), E_FAIL);
  EXPECT_EQ(KORFClose(descriptor), E_INVALIDARG);
  EXPECT_EQ(_Folder.Names(), Names{});
}

TEST_F(KORFilesTest, AFailedCloseGivesTheFileUp) {
  const int descriptor = Open(Path("new"), "w");
  EXPECT_EQ(Write(descriptor, "some"), S_OK);
  const int digits = OpenDigits();
  KORSession::Current().InjectFault("KORFClose", E_NOINTERFACE);
  EXPECT_EQ(KORFClose(descriptor), E_NOINTERFACE);
  EXPECT_EQ(KORFClose(digits), E_NOINTERFACE);
  EXPECT_EQ(KORFClose(NoDescriptor), E_NOINTERFACE);
  KORSession::Current().ClearFaults();
  EXPECT_EQ(KORFClose(descriptor), E_INVALIDARG);
  EXPECT_EQ(KORFClose(digits), E_INVALIDARG);
  EXPECT_EQ(_Folder.Names(), Names{"digits"});
}

TEST_F(KORFilesTest, AWriteThatFailsOnDemandLeavesReadersAlone) {
  const int reader = OpenDigits();
  KORSession::Current().InjectFault("KORFWrite", E_NOINTERFACE);
  EXPECT_EQ(Write(reader, "x"), E_NOINTERFACE);
  EXPECT_EQ(Write(NoDescriptor, "x"), E_NOINTERFACE);
  EXPECT_EQ(Read(reader, 1), "0");
}

struct RaisedFault {};

KORFault FaultOf(KORFault::Kind what) {
  KORFault fault{E_NOINTERFACE, what};
  if (what == KORFault::Kind::Raised) fault.Error = std::make_exception_ptr(RaisedFault());
  return fault;
}

TEST_F(KORFilesTest, AFaultyWriteOfWhicheverKindGivesTheFileUp) {
  using Kind = KORFault::Kind;
  for (const Kind what : {Kind::StatusAndNull, Kind::StatusAlone, Kind::NullAlone, Kind::Raised}) {
    const int descriptor = Open(Path("new"), "w");
    KORSession::Current().InjectFault("KORFWrite", FaultOf(what));
    if (what == Kind::Raised) {
      EXPECT_THROW((void)Write(descriptor, "more"), RaisedFault);
    } else {
      EXPECT_EQ(Write(descriptor, "more"), what == Kind::NullAlone ? S_OK : E_NOINTERFACE);
    }
    EXPECT_EQ(_Folder.Names(), Names{});
    EXPECT_EQ(KORFClose(descriptor), E_FAIL);
    KORSession::Current().ClearFaults();
  }
}

TEST_F(KORFilesTest, AFaultyCloseOfWhicheverKindClosesTheDescriptor) {
  using Kind = KORFault::Kind;
  for (const Kind what : {Kind::StatusAndNull, Kind::NullAlone, Kind::Raised, Kind::StatusAlone}) {
    const int descriptor = Open(Path("new"), "w");
    EXPECT_EQ(Write(descriptor, "some"), S_OK);
    KORSession::Current().InjectFault("KORFClose", FaultOf(what));
    if (what == Kind::Raised) {
      EXPECT_THROW((void)KORFClose(descriptor), RaisedFault);
    } else {
      EXPECT_EQ(KORFClose(descriptor), what == Kind::NullAlone ? S_OK : E_NOINTERFACE);
    }
    EXPECT_EQ(_Folder.Names(), what == Kind::StatusAlone ? Names{"new"} : Names{});
    KORSession::Current().ClearFaults();
    EXPECT_EQ(KORFClose(descriptor), E_INVALIDARG);
  }
}

}  // namespace
