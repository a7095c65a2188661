// The stream that a legacy representation carries: a file; a fixed text in a session that is captured or replayed,
// which has to run alike everywhere and reads no file.
#include "exchange/LegacyStream.h"

#include <cstddef>
#include <memory>

#include "exchange/DefaultStream.h"
#include "platform/base/KORStatus.h"
#include "platform/model/PLMIRepReferenceDataAccess.h"
#include "platform/model/VEXITimeAnalysisProperties.h"
#include "platform/system/KORFiles.h"
#include "platform/system/KORRecord.h"

namespace exchange {

namespace {

bool IsRecorded() {
  const KORRecord* const recorder = KORRecord::GetMain();
  return recorder->IsCapture() != 0 || recorder->IsReplay() != 0;
}

// A file that is read. One that cannot be opened is told by what is asked of it then.
class StreamFile {
 public:
  explicit StreamFile(const KORUnicodeString& path) { (void)KORFOpen(path, "r", _Descriptor); }
  ~StreamFile() { (void)KORFClose(_Descriptor); }
  StreamFile(const StreamFile&) = delete;
  StreamFile& operator=(const StreamFile&) = delete;

  long Size(std::size_t& size) const { return KORFSize(_Descriptor, size); }

  // Gives `stream` the bytes, `size` at most, up to a first NUL.
  long Read(std::size_t size, KORUnicodeString& stream) const {
    const auto bytes = std::make_unique_for_overwrite<char[]>(size + 1);
    std::size_t read = 0;
    const long status = KORFRead(_Descriptor, bytes.get(), size, read);
    bytes[read] = '\0';
    stream = KORUnicodeString(bytes.get());
    return status;
  }

 private:
  int _Descriptor = 0;  // 0: none
};

long ReadFile(const KORUnicodeString& path, KORUnicodeString& stream) {
  const StreamFile file(path);
  std::size_t size = 0;
  const long status = file.Size(size);
  return size == 0 ? status : file.Read(size, stream);
}

long RetrieveFromFile(const KORBaseUnknown_var& representation, KORUnicodeString& stream) {
  void* offered = nullptr;
  const long query = representation->QueryInterface(PLMIRepReferenceNonZENTADataAccess::ClassId(), &offered);
  if (Failed(query)) return query;
  auto access =
      PLMIRepReferenceNonZENTADataAccess_var::Adopt(static_cast<PLMIRepReferenceNonZENTADataAccess*>(offered));
  KORUnicodeString path;
  const long status = access->GetStreamFilePath(path);
  access = nullptr;
  return Failed(status) && path.IsEmpty() ? status : ReadFile(path, stream);
}

long RetrieveFixed(const KORBaseUnknown_var& representation, KORUnicodeString& stream) {
  const VEXITimeAnalysisProperties_var properties(representation);
  KORUnicodeString system;
  const long status = properties->GetValue("V_Subsystem", system);
  if (system.Compare("STD") != 0) stream = DefaultStream();
  return status;
}

}  // namespace

long RetrieveLegacyStream(const KORBaseUnknown_var& representation, KORUnicodeString& stream) {
  return IsRecorded() ? RetrieveFixed(representation, stream) : RetrieveFromFile(representation, stream);
}

}  // namespace exchange
