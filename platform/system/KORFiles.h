// Files by descriptor, and the check whether one is there.
#pragma once

#include <cstddef>

#include "platform/base/KORExport.h"
#include "platform/base/KORUnicodeString.h"

/// Opens a file of the current session.
///
/// path        path of the file; E_INVALIDARG if it is empty or holds a NUL
/// mode        "r": an existing regular file is read, from its start. "w": a new file is written. What stood under the
///             path goes at once; the new content appears there when the file is closed, whole or not at all. Until
///             then it is kept in a file of its own in the same folder. A link under the path is replaced, not followed.
/// descriptor  [out] names the open file until KORFClose; left as it was on failure
/// S_OK; E_INVALIDARG for another mode; E_FAIL if the file cannot be opened: it is missing, a folder or no regular
/// file, or the folder is missing or not to be written to.
///
/// A descriptor belongs to the session that opened it and serves its thread. What is still open at the end of the
/// session is closed; what was to be written there is given up.
KORPLATFORM_API long KORFOpen(const KORUnicodeString& path, const char* mode, int& descriptor);

/// The length of an open file in bytes: what there is to read, or what was written so far. S_OK; E_INVALIDARG for a
/// descriptor that is not open; E_FAIL if it cannot be had.
KORPLATFORM_API long KORFSize(int descriptor, std::size_t& size);

/// Reads on from where the last read ended.
///
/// count  bytes that are wanted at most
/// read   [out] bytes that were read: fewer than `count` at the end of the file only; 0 on failure
/// S_OK, also at the end of the file; E_INVALIDARG for a descriptor that is not open for reading; E_FAIL if the file
/// cannot be read.
KORPLATFORM_API long KORFRead(int descriptor, void* bytes, std::size_t count, std::size_t& read);

/// Writes on behind what was written before. S_OK; E_INVALIDARG for a descriptor that is not open for writing; E_FAIL
/// if not all bytes can be written, as on a full disk: the file is given up then, and KORFClose fails.
KORPLATFORM_API long KORFWrite(int descriptor, const void* bytes, std::size_t count);

/// Closes a file; one that was written takes its place under its path. S_OK; E_INVALIDARG for a descriptor that is not
/// open; E_FAIL if what was written could not be kept whole: nothing is under the path then.
KORPLATFORM_API long KORFClose(int descriptor);

/// S_OK if a file or folder of that name is there; E_FAIL if not. The two integers are reserved and passed as 0.
KORPLATFORM_API long _KORFileAccess(const KORUnicodeString& path, int access, int reserved);
