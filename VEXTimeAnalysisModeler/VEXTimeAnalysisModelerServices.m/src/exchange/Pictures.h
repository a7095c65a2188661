// Pictures that are kept on a time analysis. Meaning and results as the members of VEXSTMPicturesServices of the same
// purpose tell.
#pragma once

#include <span>

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORString.h"
#include "platform/base/KORUnicodeString.h"

namespace exchange {

/// The texts that a path is taken apart into, as GetDirNameFileNameFileTypeFromFilePath fills them.
struct PathTexts {
  KORUnicodeString& Folder;
  KORUnicodeString& File;
  KORUnicodeString& BaseName;
  KORUnicodeString& Extension;
};
long SplitPath(const KORUnicodeString& path, PathTexts texts);

/// filters  rows of patterns, as "*.jpg;*.jpeg"; an extension is supported if "*." and the extension, in lower case,
///          stand anywhere in a row
bool IsSupportedType(const KORUnicodeString& path, std::span<const KORString> filters, KORUnicodeString& extension);

long AddPicture(const KORBaseUnknown_var& analysis, const KORUnicodeString& path);
long FetchPicture(const KORBaseUnknown_var& analysis, const KORUnicodeString& picture, KORUnicodeString& path);
long RemovePicture(const KORBaseUnknown_var& analysis, const KORUnicodeString& picture);
long CopyPictures(const KORBaseUnknown_var& source, const KORBaseUnknown_var& destination);

}  // namespace exchange
