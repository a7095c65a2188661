// Where the files of the catalogues lie, and which of them belong to a motion-time system.
#pragma once

#include <optional>

#include "platform/base/KORList.h"
#include "platform/base/KORUnicodeString.h"

namespace datacard {

/// Path of the data card entry file of a system; empty if there is no such file, nothing if there is no settings
/// repository. Searched anew on each call.
std::optional<KORUnicodeString> FindEntryFile(const KORUnicodeString& system);

/// What a listing of the data card group files of a system found.
struct GroupFiles {
  long Status;                               // of the last step
  KORListValKORUnicodeString Paths;          // of the files of the system, in the order of their names
  KORListValKORUnicodeString Names;          // their display names
  KORListValKORUnicodeString Messages;       // of files that cannot be parsed
  KORListValKORUnicodeString MissingFields;  // names of files for the system that lack a required element
};

GroupFiles ListGroupFiles(const KORUnicodeString& system);

}  // namespace datacard
