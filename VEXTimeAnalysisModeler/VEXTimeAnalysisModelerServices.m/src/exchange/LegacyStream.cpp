// The stream that a legacy representation carries: a file; a fixed text in a session that is captured or replayed,
// which has to run alike everywhere and reads no file.
#include "exchange/LegacyStream.h"

#include <cstddef>
#include <memory>

#include "exchange/DefaultStream.h"
#include "platform/base/KORStatus.h"
#include "platform/model/PLMIRepReferenceDataAccess.h"
#include "platform/model/VEXITimeAnalysisProperties.h"
#include "platform/services/KOROmbStreams.h"
#include "platform/system/KORFiles.h"
#include "platform/system/KORRecord.h"

namespace exchange {

namespace {

bool IsRecorded() {
  const KORRecord* const recorder = KORRecord::GetMain();
  return recorder->IsCapture() != 0 || recorder->IsReplay() != 0;
}

// Gives `stream` the bytes of an open file, `size` at most, up to a first NUL.
long ReadBytes(int descriptor, std::size_t size, KORUnicodeString& stream) {
  if (size > KORLongestStream) return E_FAIL;
  const auto bytes = std::make_unique_for_overwrite<char[]>(size + 1);
  std::size_t read = 0;
  const long status = KORFRead(descriptor, bytes.get(), size, read);
  bytes[read] = '\0';
  stream = KORUnicodeString(bytes.get());
  return status;
}

// A file that cannot be opened is told by what is asked of it then.
long ReadFile(const KORUnicodeString& path, KORUnicodeString& stream) {
  int descriptor = 0;
  (void)KORFOpen(path, "r", descriptor);
  std::size_t size = 0;
  long status = KORFSize(descriptor, size);
  if (size != 0) status = ReadBytes(descriptor, size, stream);
  (void)KORFClose(descriptor);
  return status;
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
