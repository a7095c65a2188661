// Paths put together and taken apart.
#pragma once

#include "platform/base/KORExport.h"
#include "platform/base/KORUnicodeString.h"

/// Joins a folder and the name of a file in it.
///
/// The name often comes from data, so it never leads out of the folder. No path is given for a name that is empty or
/// absolute, that has a part ".." or ends in an empty part or ".", that holds a NUL or another control character, or of
/// which a part is longer than 255 bytes; nor for an empty folder, one with a NUL, or a path of 4,096 bytes and more. A
/// name may lie in a folder within the folder ("parts/grip.png"), unless that is a link at the time of the call. "\"
/// separates, too, when a name is checked; where the session's system separates folders with it, a name that begins
/// with a drive ("C:") is absolute.
///
/// folder  with or without a separator at its end; "/" is put where there is none
/// path    [out] the path as UTF-8, terminated, which the caller frees with std::free; null if there is none
/// S_OK; E_INVALIDARG, with a null path, if there is none.
KORPLATFORM_API long KORMakePath(const KORUnicodeString& folder, const KORUnicodeString& file, char*& path);

/// Cuts a path behind its last separator into its folder and its file. A path that ends in a separator has an empty
/// file, one without separator an empty folder. The folder has no separator at its end unless it is the root folder.
/// S_OK; E_INVALIDARG, with both texts empty, for an empty path. The texts to fill may be the path.
KORPLATFORM_API long KORSplitPathEx(const KORUnicodeString& path, KORUnicodeString& folder, KORUnicodeString& file);
