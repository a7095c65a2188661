// Streams on a representation: what is refused, and what a failure leaves behind.
#include <sys/stat.h>

#include <array>
#include <cstdint>
#include <fstream>

#include "tests/services/StreamsTest.h"
#include "tests/support/FullDisk.h"

namespace {

using servicestest::Key;
using servicestest::StreamsTest;

class StreamFailuresTest : public StreamsTest {
 protected:
  // Adds the file as the stream "png" "grip".
  long AddFile(const KORVVSUrl& url) const {
    return KOROmbRepRefLoadingServices::AddExtendedSDForRepRef(_Analysis, "png", "grip", url, 0);
  }

  // What is no representation: nothing, an operation, an object of nobody's.
  static std::array<KORBaseUnknown_var, 3> WrongObjects() {
    return {KORBaseUnknown_var(), KORBaseUnknown_var(KORModel::Current().CreateOperation("OP")),
            KORBaseUnknown_var::Adopt(new KORBaseUnknown)};
  }
};

// Bytes that this process has read so far.
std::uint64_t BytesRead() {
  std::ifstream file("/proc/self/io");
  std::string name;
  std::uint64_t bytes = 0;
  file >> name >> bytes;
  EXPECT_EQ(name, "rchar:");
  return bytes;
}

TEST_F(StreamFailuresTest, AFileThatIsNoneAddsNothing) {
  Add("png", "grip", "before");
  _Folder.MakeFolder("folder");
  ASSERT_EQ(mkfifo(_Folder.Path("pipe").c_str(), 0600), 0);
  const std::string with_nul = _Folder.Path("source") + std::string("\0x", 2);
  for (const std::string& path : {_Folder.Path("missing"), _Folder.Path("missing/file"), _Folder.Path("folder"),
                                  _Folder.Path("pipe"), std::string("/dev/null"), with_nul, std::string(10'000, 'x')}) {
    EXPECT_EQ(AddFile(UrlOf(path)), E_FAIL) << path;
  }
  EXPECT_EQ(AddFile(KORVVSUrl()), E_FAIL);
  EXPECT_EQ(FormatsOf(_Analysis), "png ");
  EXPECT_EQ(BytesOf(Get("grip")), "before");
}

TEST_F(StreamFailuresTest, AFileThatVanishesBeforeTheAddAddsNothing) {
  const KORVVSUrl url = UrlOf(_Folder.Write("grip.png", "picture"));
  std::filesystem::remove(_Folder.Path("grip.png"));
  EXPECT_EQ(AddFile(url), E_FAIL);
  EXPECT_EQ(FormatsOf(_Analysis), "");
}

TEST_F(StreamFailuresTest, AFileBeyondTheBoundIsNotRead) {
  const KORVVSUrl url = UrlOf(_Folder.Write("large", ""));
  std::filesystem::resize_file(_Folder.Path("large"), KORLongestStream + 1);
  const std::uint64_t before = BytesRead();
  EXPECT_EQ(AddFile(url), E_FAIL);
  EXPECT_LT(BytesRead() - before, 1'000'000u);
  EXPECT_EQ(FormatsOf(_Analysis), "");
}

TEST_F(StreamFailuresTest, WrongObjectsAreRefused) {
  const KORVVSUrl url = UrlOf(_Folder.Write("source", "x"));
  const Key key = KeyOf("grip");
  for (const KORBaseUnknown_var& object : WrongObjects()) {
    EXPECT_EQ(KOROmbRepRefLoadingServices::AddExtendedSDForRepRef(object, "png", "grip", url, 0), E_INVALIDARG);
    int anything = 0;
    auto* descriptor = reinterpret_cast<KORIOmbNonZENTAStreamDescriptor*>(&anything);
    EXPECT_EQ(KOROmbRepRefLoadingServices::GetExtendedContent(object, key.get(), descriptor), E_INVALIDARG);
    EXPECT_EQ(descriptor, nullptr);
    EXPECT_EQ(KOROmbComponentStreamsManager(object).DeleteSD(key.get()), E_INVALIDARG);
    EXPECT_EQ(FormatsOf(object), "");
  }
}

TEST_F(StreamFailuresTest, AMissingKeyIsRefused) {
  Add("png", "", "x");
  int anything = 0;
  auto* descriptor = reinterpret_cast<KORIOmbNonZENTAStreamDescriptor*>(&anything);
  EXPECT_EQ(KOROmbRepRefLoadingServices::GetExtendedContent(_Analysis, nullptr, descriptor), E_INVALIDARG);
  EXPECT_EQ(descriptor, nullptr);
  EXPECT_EQ(KOROmbComponentStreamsManager(_Analysis).DeleteSD(nullptr), E_INVALIDARG);
  EXPECT_EQ(FormatsOf(_Analysis), "png ");
}

TEST_F(StreamFailuresTest, KeysAreOfExtendedStreamsOnly) {
  for (const char* kind : {"", "extended", "EXTENDED ", "MAIN"}) {
    int anything = 0;
    auto* key = reinterpret_cast<KOROmbLoadableDataUniqueKey*>(&anything);
    EXPECT_EQ(KOROmbLoadableDataUniqueKey::Create(key, KOROmbStreamDescriptorFormat_Authoring, kind, "grip", 0),
              E_INVALIDARG);
    EXPECT_EQ(key, nullptr);
  }
  int anything = 0;
  auto* key = reinterpret_cast<KOROmbLoadableDataUniqueKey*>(&anything);
  const auto another_family = static_cast<KOROmbStreamDescriptorFormat>(1);
  EXPECT_EQ(KOROmbLoadableDataUniqueKey::Create(key, another_family, "EXTENDED", "grip", 0), E_INVALIDARG);
  EXPECT_EQ(key, nullptr);
  EXPECT_EQ(KeyOf("grip")->GetName(), "grip");
}

TEST_F(StreamFailuresTest, AFullDiskLeavesNoCopy) {
  Add("png", "grip", std::string(1001, 'x'));
  const KORIOmbNonZENTAStreamDescriptor_var grip = Get("grip");
  _Folder.Write("copy", "before");
  const support::FullDisk disk(1000);
  EXPECT_EQ(grip->CopyStreamToFile(Path("copy"), 1), E_FAIL);
  EXPECT_EQ(_Folder.Names(), std::vector<std::string>{"source"});
}

TEST_F(StreamFailuresTest, EveryStepOfACopyMayFail) {
  Add("png", "grip", "picture");
  const KORIOmbNonZENTAStreamDescriptor_var grip = Get("grip");
  for (const char* operation : {"CopyStreamToFile", "KORFOpen", "KORFWrite", "KORFClose"}) {
    KORSession::Current().InjectFault(operation, E_NOINTERFACE);
    EXPECT_EQ(grip->CopyStreamToFile(Path("copy"), 1), E_NOINTERFACE) << operation;
    KORSession::Current().ClearFaults();
    EXPECT_EQ(_Folder.Names(), std::vector<std::string>{"source"}) << operation;
  }
  EXPECT_EQ(BytesOf(grip), "picture");
}

TEST_F(StreamFailuresTest, EveryOperationFailsOnDemand) {
  Add("png", "grip", "picture");
  const Key key = KeyOf("grip");
  const KORVVSUrl url = UrlOf(_Folder.Path("source"));
  for (const char* operation : {"KOROmbLoadableDataUniqueKey::Create", "GetStreamFormat", "AddExtendedSDForRepRef",
                                "GetExtendedContent", "DeleteSD"}) {
    KORSession::Current().InjectFault(operation, E_NOINTERFACE);
  }
  int anything = 0;
  auto* other_key = reinterpret_cast<KOROmbLoadableDataUniqueKey*>(&anything);
  EXPECT_EQ(
      KOROmbLoadableDataUniqueKey::Create(other_key, KOROmbStreamDescriptorFormat_Authoring, "EXTENDED", "grip", 0),
      E_NOINTERFACE);
  EXPECT_EQ(other_key, nullptr);

  auto* descriptor = reinterpret_cast<KORIOmbNonZENTAStreamDescriptor*>(&anything);
  EXPECT_EQ(KOROmbRepRefLoadingServices::GetExtendedContent(_Analysis, key.get(), descriptor), E_NOINTERFACE);
  EXPECT_EQ(descriptor, nullptr);

  KORUnicodeString format("before");
  const KORListValKORBaseUnknown_var streams = KOROmbNonZENTAStreamsManager(_Analysis).GetSDFamily(0);
  ASSERT_EQ(streams.Size(), 1);
  EXPECT_EQ(KORIOmbStreamDescriptor_var(streams[1])->GetStreamFormat(format), E_NOINTERFACE);
  EXPECT_EQ(format, "before");

  EXPECT_EQ(KOROmbRepRefLoadingServices::AddExtendedSDForRepRef(_Analysis, "jpg", "grip", url, 0), E_NOINTERFACE);
  EXPECT_EQ(KOROmbComponentStreamsManager(_Analysis).DeleteSD(key.get()), E_NOINTERFACE);
  KORSession::Current().ClearFaults();
  EXPECT_EQ(FormatsOf(_Analysis), "png ");
}

}  // namespace
