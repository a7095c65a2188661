// Files by descriptor, and the check whether one is there.
#pragma once

#include <cstddef>

#include "platform/base/KORExport.h"
#include "platform/base/KORUnicodeString.h"

/// Opens a file of the current session.
///
/// path        path of the file; E_INVALIDARG if it is empty or holds a NUL
/// mode        "r": an existing regular file is read, from its start; a link is followed. "w": a new file is written.
///             What stood under the path goes at once; the new content appears there when the file is closed, whole or
///             not at all. Until then it is kept in a hidden file of its own in the same folder. A link under the path
///             is replaced, not followed.
/// descriptor  [out] names the open file until KORFClose; left as it was on failure
/// S_OK; E_INVALIDARG for another mode; E_FAIL if the file cannot be opened: it is missing, a folder or no regular
/// file, or the folder is missing or not to be written to. What stands under the path is left alone then.
///
/// A descriptor is a number of the platform's own, above 0. It belongs to the session that opened it and serves its
/// thread. What is still open at the end of the session is closed; what was to be written there is given up.
KORPLATFORM_API long KORFOpen(const KORUnicodeString& path, const char* mode, int& descriptor);

/// The length of an open file in bytes: what there is to read, or what was written so far. S_OK; E_INVALIDARG for a
/// descriptor that is not open; E_FAIL if it cannot be had, as of a file that was given up. `size` is left as it was on
/// failure.
KORPLATFORM_API long KORFSize(int descriptor, std::size_t& size);

/// Reads on from where the last read ended.
///
/// bytes  room for `count` bytes; null if `count` is 0
/// count  bytes that are wanted at most
/// read   [out] bytes that were read: fewer than `count` at the end of the file only; 0 on failure
/// S_OK, also at the end of the file; E_INVALIDARG for a descriptor that is not open for reading and for null bytes;
/// E_FAIL if the file cannot be read.
KORPLATFORM_API long KORFRead(int descriptor, void* bytes, std::size_t count, std::size_t& read);

/// Writes on behind what was written before; `bytes` may be null if `count` is 0. S_OK; E_INVALIDARG for a descriptor
/// that is not open for writing and for null bytes; E_FAIL if not all bytes can be written, as on a full disk: the file
/// is given up then, nothing of it is left in the folder, and all that can still be done with the descriptor is to
/// close it, which fails.
KORPLATFORM_API long KORFWrite(int descriptor, const void* bytes, std::size_t count);

/// Closes a file; one that was written takes its place under its path. S_OK; E_INVALIDARG for a descriptor that is not
/// open; E_FAIL if what was written could not be kept whole: nothing of it is under the path then. The descriptor is
/// closed in either case.
///
/// The file is whole for every process from then on. It is not forced onto the disk: what is written here are copies
/// and exchange files, which can be made again after a power failure.
KORPLATFORM_API long KORFClose(int descriptor);

/// S_OK if a file or folder of that name is there; E_FAIL if not, and for a link that leads nowhere. The two integers
/// are reserved and passed as 0.
KORPLATFORM_API long _KORFileAccess(const KORUnicodeString& path, int access, int reserved);
