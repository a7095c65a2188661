// Extended streams: files whose content is kept on a representation.
#include "platform/services/KOROmbStreams.h"

#include <string>
#include <utility>

#include "platform/base/KORStatus.h"
#include "platform/model/KORFindRepReference.h"
#include "platform/system/KORFileContent.h"
#include "platform/system/KORFiles.h"
#include "platform/system/KORPerform.h"

namespace {

class StreamDescriptor final : public KORImplements<KORIOmbStreamDescriptor, KORIOmbNonZENTAStreamDescriptor> {
 public:
  explicit StreamDescriptor(const KORStream& stream) : _Format(stream.Name.Format), _Bytes(stream.Bytes) {}

  long GetStreamFormat(KORUnicodeString& format) override;
  long CopyStreamToFile(const KORUnicodeString& path, int flag) override;

 private:
  KORUnicodeString _Format;
  KORStreamBytes _Bytes;
};

long StreamDescriptor::GetStreamFormat(KORUnicodeString& format) {
  return KORPerform("GetStreamFormat", [this, &format] {
    format = _Format;
    return S_OK;
  });
}

long StreamDescriptor::CopyStreamToFile(const KORUnicodeString& path, int /*flag*/) {
  return KORPerform("CopyStreamToFile", [this, &path] {
    int descriptor = 0;
    if (const long status = KORFOpen(path, "w", descriptor); Failed(status)) return status;
    const long written = KORFWrite(descriptor, _Bytes->data(), _Bytes->size());
    const long closed = KORFClose(descriptor);
    return Failed(written) ? written : closed;
  });
}

// The streams of an object; null if it is no representation.
KORStreamList* StreamsOf(const KORBaseUnknown_var& object) {
  KORRepReference* const representation = KORFindRepReference(object.Get());
  return representation == nullptr ? nullptr : &representation->GetContent().Streams;
}

// The stream that a key names, in `stream`. S_OK; E_INVALIDARG without a representation or a key; E_FAIL if there is
// none.
long FindStream(const KORStreamList* streams, const KOROmbLoadableDataUniqueKey* key, const KORStream*& stream) {
  if (streams == nullptr || key == nullptr) return E_INVALIDARG;
  stream = streams->FindByName(key->GetName());
  return stream == nullptr ? E_FAIL : S_OK;
}

}  // namespace

long KOROmbLoadableDataUniqueKey::Create(KOROmbLoadableDataUniqueKey*& key, KOROmbStreamDescriptorFormat family,
                                         const KORUnicodeString& kind, const KORUnicodeString& name, int /*flag*/) {
  key = nullptr;
  return KORPerform("KOROmbLoadableDataUniqueKey::Create", [&key, family, &kind, &name] {
    if (family != KOROmbStreamDescriptorFormat_Authoring || kind != "EXTENDED") return E_INVALIDARG;
    key = new KOROmbLoadableDataUniqueKey(name);
    return S_OK;
  });
}

long KOROmbRepRefLoadingServices::AddExtendedSDForRepRef(const KORBaseUnknown_var& object,
                                                         const KORUnicodeString& format, const KORUnicodeString& name,
                                                         const KORVVSUrl& url, int /*flag*/) {
  return KORPerform("AddExtendedSDForRepRef", [&object, &format, &name, &url] {
    KORStreamList* const streams = StreamsOf(object);
    if (streams == nullptr) return E_INVALIDARG;
    std::string content;
    std::string cause;
    if (!KORReadFileContent(url.GetNativeFilePath(), KORLongestStream, content, cause)) return E_FAIL;
    streams->Put({format, name}, std::move(content));
    return S_OK;
  });
}

long KOROmbRepRefLoadingServices::GetExtendedContent(const KORBaseUnknown_var& object,
                                                     const KOROmbLoadableDataUniqueKey* key,
                                                     KORIOmbNonZENTAStreamDescriptor*& descriptor) {
  descriptor = nullptr;
  return KORPerform("GetExtendedContent", [&object, key, &descriptor] {
    const KORStream* stream = nullptr;
    if (const long status = FindStream(StreamsOf(object), key, stream); Failed(status)) return status;
    descriptor = new StreamDescriptor(*stream);
    return S_OK;
  });
}

long KOROmbComponentStreamsManager::DeleteSD(const KOROmbLoadableDataUniqueKey* key) {
  return KORPerform("DeleteSD", [this, key] {
    KORStreamList* const streams = StreamsOf(_Object);
    const KORStream* stream = nullptr;
    if (const long status = FindStream(streams, key, stream); Failed(status)) return status;
    streams->Remove(*stream);
    return S_OK;
  });
}

KORListValKORBaseUnknown_var KOROmbComponentStreamsManager::GetSDFamily(int family) const {
  return KORGive("GetSDFamily", [this, family] {
    KORListValKORBaseUnknown_var descriptors;
    const KORStreamList* const streams = StreamsOf(_Object);
    if (family != 0 || streams == nullptr) return descriptors;
    for (const KORStream& stream : *streams) {
      descriptors.Append(KORBaseUnknown_var::Adopt(new StreamDescriptor(stream)));
    }
    return descriptors;
  });
}
