// Streams on a representation: added from files, found by key, copied to files, listed and removed.
#include "platform/services/KOROmbStreams.h"

#include "tests/services/StreamsTest.h"

namespace {

using servicestest::StreamsTest;

class KOROmbStreamsTest : public StreamsTest {};

std::string AllBytesTwice() {
  std::string bytes;
  for (int value = 0; value < 512; ++value) bytes += static_cast<char>(value);
  return bytes;
}

TEST_F(KOROmbStreamsTest, APictureComesBackByteForByte) {
  const std::string picture = AllBytesTwice();
  Add("png", "grip", picture);
  EXPECT_EQ(BytesOf(Get("grip")), picture);
}

TEST_F(KOROmbStreamsTest, AnEmptyFileIsAStreamToo) {
  Add("txt", "notes", "");
  EXPECT_EQ(BytesOf(Get("notes")), "");
}

TEST_F(KOROmbStreamsTest, ContentIsThatOfTheMomentOfAdding) {
  Add("txt", "notes", "before");
  _Folder.Write("source", "after");
  EXPECT_EQ(BytesOf(Get("notes")), "before");
  std::filesystem::remove(_Folder.Path("source"));
  EXPECT_EQ(BytesOf(Get("notes")), "before");
}

TEST_F(KOROmbStreamsTest, AStreamOfTheSameFormatAndNameIsReplacedInItsPlace) {
  Add("png", "grip", "one");
  Add("JSON", "lines", "{}");
  Add("png", "grip", "two");
  EXPECT_EQ(FormatsOf(_Analysis), "png JSON ");
  EXPECT_EQ(BytesOf(Get("grip")), "two");
}

TEST_F(KOROmbStreamsTest, AKeyFindsTheFirstStreamOfItsName) {
  Add("png", "grip", "drawing");
  Add("jpg", "grip", "photo");
  EXPECT_EQ(BytesOf(Get("grip")), "drawing");
  EXPECT_TRUE(Get("png").IsNull());
  EXPECT_TRUE(Get("GRIP").IsNull());
  EXPECT_TRUE(Get("").IsNull());
}

TEST_F(KOROmbStreamsTest, NamesAndFormatsMayBeAnyText) {
  Add("", "", "nameless");
  Add("png", "../../Gr\xC3\xB6\xC3\x9F\x65", "abroad");
  EXPECT_EQ(BytesOf(Get("")), "nameless");
  EXPECT_EQ(BytesOf(Get("../../Gr\xC3\xB6\xC3\x9F\x65")), "abroad");
  EXPECT_EQ(FormatsOf(_Analysis), " png ");
}

TEST_F(KOROmbStreamsTest, EveryRepresentationHasStreamsOfItsOwn) {
  const KORHandle<KORRepReference> other = KORModel::Current().CreateOtherRepReference("R");
  const KORVVSUrl url = UrlOf(_Folder.Write("source", "other"));
  EXPECT_EQ(KOROmbRepRefLoadingServices::AddExtendedSDForRepRef(other, "txt", "notes", url, 0), S_OK);
  EXPECT_EQ(FormatsOf(other), "txt ");
  EXPECT_EQ(FormatsOf(_Analysis), "");
}

TEST_F(KOROmbStreamsTest, TheObjectIsTheSameFromEachOfItsInterfaces) {
  const KORVVSUrl url = UrlOf(_Folder.Write("source", "x"));
  for (const KORBaseUnknown_var& object :
       {KORBaseUnknown_var(KORIPLMNavRepReference_var(_Analysis)), KORBaseUnknown_var(PLMIRepReference_var(_Analysis)),
        KORBaseUnknown_var(VEXITimeAnalysisLines_var(_Analysis))}) {
    EXPECT_EQ(KOROmbRepRefLoadingServices::AddExtendedSDForRepRef(object, "txt", "notes", url, 0), S_OK);
  }
  EXPECT_EQ(FormatsOf(KORIPLMNavRepReference_var(_Analysis)), "txt ");
}

// Descriptors

TEST_F(KOROmbStreamsTest, ADescriptorOutlivesItsStream) {
  Add("png", "grip", "before");
  const KORIOmbNonZENTAStreamDescriptor_var replaced = Get("grip");
  Add("png", "grip", "after");
  const KORIOmbNonZENTAStreamDescriptor_var removed = Get("grip");
  EXPECT_EQ(KOROmbComponentStreamsManager(_Analysis).DeleteSD(KeyOf("grip").get()), S_OK);
  EXPECT_EQ(BytesOf(replaced), "before");
  EXPECT_EQ(BytesOf(removed), "after");
}

TEST_F(KOROmbStreamsTest, ADescriptorOutlivesItsRepresentation) {
  KORIOmbNonZENTAStreamDescriptor* descriptor = nullptr;
  {
    const auto analysis = KORHandle<VEXTimeAnalysisRepReference>::Adopt(new VEXTimeAnalysisRepReference("TB"));
    const KORVVSUrl url = UrlOf(_Folder.Write("source", "kept"));
    ASSERT_EQ(KOROmbRepRefLoadingServices::AddExtendedSDForRepRef(analysis, "txt", "notes", url, 0), S_OK);
    ASSERT_EQ(KOROmbRepRefLoadingServices::GetExtendedContent(analysis, KeyOf("notes").get(), descriptor), S_OK);
  }
  EXPECT_EQ(BytesOf(KORIOmbNonZENTAStreamDescriptor_var::Adopt(descriptor)), "kept");
}

TEST_F(KOROmbStreamsTest, ACopyReplacesALinkAndLeavesWhatItNamesAlone) {
  Add("png", "grip", "picture");
  _Folder.Write("secret", "before");
  std::filesystem::create_symlink("secret", _Folder.Path("copy"));
  EXPECT_EQ(BytesOf(Get("grip")), "picture");
  EXPECT_EQ(_Folder.Read("secret"), "before");
}

TEST_F(KOROmbStreamsTest, ACopyToAPlaceThatIsNoneFails) {
  Add("png", "grip", "picture");
  const KORIOmbNonZENTAStreamDescriptor_var grip = Get("grip");
  EXPECT_EQ(grip->CopyStreamToFile(Path("missing/copy"), 1), E_FAIL);
  EXPECT_EQ(grip->CopyStreamToFile(Path(""), 1), E_FAIL);
  EXPECT_EQ(grip->CopyStreamToFile("", 1), E_INVALIDARG);
  EXPECT_EQ(_Folder.Names(), std::vector<std::string>{"source"});
}

TEST_F(KOROmbStreamsTest, AWalkGivesBothInterfacesOfEachStream) {
  Add("png", "grip", "one");
  Add("JSON", "lines", "two");
  const KORListValKORBaseUnknown_var streams = KOROmbNonZENTAStreamsManager(_Analysis).GetSDFamily(0);
  ASSERT_EQ(streams.Size(), 2);
  EXPECT_EQ(BytesOf(KORIOmbNonZENTAStreamDescriptor_var(streams[1])), "one");
  EXPECT_EQ(BytesOf(KORIOmbNonZENTAStreamDescriptor_var(streams[2])), "two");
  EXPECT_FALSE(KORIOmbStreamDescriptor_var(Get("grip")).IsNull());
  EXPECT_TRUE(KORIPLMNavRepReference_var(streams[1]).IsNull());
}

TEST_F(KOROmbStreamsTest, ExtendedStreamsAreFamilyZero) {
  Add("png", "grip", "x");
  EXPECT_EQ(FormatsOf(_Analysis, 0), "png ");
  for (const int family : {-1, 1, 2}) EXPECT_EQ(FormatsOf(_Analysis, family), "") << family;
}

// Removal

TEST_F(KOROmbStreamsTest, RemovesOneStreamOfANameAfterTheOther) {
  Add("png", "grip", "drawing");
  Add("JSON", "lines", "{}");
  Add("jpg", "grip", "photo");
  KOROmbComponentStreamsManager streams(_Analysis);
  EXPECT_EQ(streams.DeleteSD(KeyOf("grip").get()), S_OK);
  EXPECT_EQ(FormatsOf(_Analysis), "JSON jpg ");
  EXPECT_EQ(BytesOf(Get("grip")), "photo");
  EXPECT_EQ(streams.DeleteSD(KeyOf("grip").get()), S_OK);
  EXPECT_EQ(streams.DeleteSD(KeyOf("grip").get()), E_FAIL);
  EXPECT_EQ(FormatsOf(_Analysis), "JSON ");
}

TEST_F(KOROmbStreamsTest, AWalkIsNotDisturbedByRemovals) {
  Add("png", "grip", "drawing");
  Add("JSON", "lines", "{}");
  KOROmbNonZENTAStreamsManager manager(_Analysis);
  const KORListValKORBaseUnknown_var streams = manager.GetSDFamily(0);
  EXPECT_EQ(manager.DeleteSD(KeyOf("grip").get()), S_OK);
  EXPECT_EQ(BytesOf(KORIOmbNonZENTAStreamDescriptor_var(streams[1])), "drawing");
  EXPECT_EQ(BytesOf(KORIOmbNonZENTAStreamDescriptor_var(streams[2])), "{}");
}

TEST_F(KOROmbStreamsTest, AManagerKeepsItsObjectAlive) {
  auto analysis = KORHandle<VEXTimeAnalysisRepReference>::Adopt(new VEXTimeAnalysisRepReference("TA"));
  const long before = KORBaseUnknown::CountLiveObjects();
  {
    const KOROmbNonZENTAStreamsManager manager(analysis);
    analysis = nullptr;
    EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before);
    EXPECT_EQ(manager.GetSDFamily(0).Size(), 0);
  }
  EXPECT_EQ(KORBaseUnknown::CountLiveObjects(), before - 1);
}

}  // namespace
