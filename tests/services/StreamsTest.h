// What the tests of streams share: a session, a folder and an analysis of their own, and short ways to the streams.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

#include "platform/base/KORStatus.h"
#include "platform/model/KORModel.h"
#include "platform/services/KOROmbStreams.h"
#include "platform/system/KORSession.h"
#include "tests/support/TemporaryFolder.h"

namespace servicestest {

using Key = std::unique_ptr<KOROmbLoadableDataUniqueKey>;

class StreamsTest : public testing::Test {
 protected:
  static Key KeyOf(const KORUnicodeString& name) {
    KOROmbLoadableDataUniqueKey* key = nullptr;
    EXPECT_EQ(KOROmbLoadableDataUniqueKey::Create(key, KOROmbStreamDescriptorFormat_Authoring, "EXTENDED", name, 0),
              S_OK);
    return Key(key);
  }

  static KORVVSUrl UrlOf(const std::string& path) {
    KORVVSUrl url;
    EXPECT_EQ(KORVVSUrlUtils::FromNativeFilePathToUrl(KORUnicodeString(std::string_view(path)), url), S_OK);
    return url;
  }

  /// Adds a stream with these bytes to the analysis, by way of a file.
  void Add(const char* format, const char* name, const std::string& bytes) const {
    const KORVVSUrl url = UrlOf(_Folder.Write("source", bytes));
    EXPECT_EQ(KOROmbRepRefLoadingServices::AddExtendedSDForRepRef(_Analysis, format, name, url, 0), S_OK);
  }

  /// The descriptor of the stream that the name gives; null if there is none.
  KORIOmbNonZENTAStreamDescriptor_var Get(const KORUnicodeString& name) const {
    KORIOmbNonZENTAStreamDescriptor* descriptor = nullptr;
    const long status = KOROmbRepRefLoadingServices::GetExtendedContent(_Analysis, KeyOf(name).get(), descriptor);
    EXPECT_EQ(status, descriptor == nullptr ? E_FAIL : S_OK);
    return KORIOmbNonZENTAStreamDescriptor_var::Adopt(descriptor);
  }

  KORUnicodeString Path(const std::string& name) const {
    return KORUnicodeString(std::string_view(_Folder.Path(name)));
  }

  /// The bytes of a stream, by way of a file.
  std::optional<std::string> BytesOf(const KORIOmbNonZENTAStreamDescriptor_var& descriptor) const {
    EXPECT_EQ(descriptor->CopyStreamToFile(Path("copy"), 1), S_OK);
    return _Folder.Read("copy");
  }

  /// The formats of all streams of an object in their order, with a blank behind each.
  static std::string FormatsOf(const KORBaseUnknown_var& object, int family = 0) {
    std::string formats;
    for (const KORBaseUnknown_var& stream : KOROmbNonZENTAStreamsManager(object).GetSDFamily(family)) {
      KORUnicodeString format;
      EXPECT_EQ(KORIOmbStreamDescriptor_var(stream)->GetStreamFormat(format), S_OK);
      formats.append(format.Bytes()).append(" ");
    }
    return formats;
  }

  const KORFreshSession _Session;
  const support::TemporaryFolder _Folder;
  const KORHandle<VEXTimeAnalysisRepReference> _Analysis = KORModel::Current().CreateTimeAnalysis("TA");
};

}  // namespace servicestest
