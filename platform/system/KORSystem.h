// Environment, locale, paths and folders of the current session.
#pragma once

#include "platform/base/KORExport.h"
#include "platform/base/KORList.h"
#include "platform/base/KORUnicodeString.h"

/// The value of an environment variable of the current session; an empty text if it is not set.
KORPLATFORM_API KORUnicodeString KORGetEnv(const KORUnicodeString& name);

/// The platform's code of the operating system; its low 16 bits count. The argument is reserved and passed as 0.
KORPLATFORM_API int KORGetOperatingSystem(int reserved);

/// True on the systems with "/" between folders, by that code: up to 3, and 7. On the others "\" separates folders,
/// too.
KORPLATFORM_API bool KORSeparatesWithSlash();

/// Fills `character` with the decimal character of the locale that number input uses on this thread.
/// S_OK; a negative status, with `character` untouched, if it cannot be had.
KORPLATFORM_API long KORSysGetLocalDecimalChar(KORUnicodeString& character);

/// Looks for a file or folder in a list of folders, which ":" separates on systems with "/" between folders and ";"
/// on the others. `name` may hold a relative path. "\" in `name` stands for a folder separator on those others only.
/// Returns the full path in the first folder that holds the name; an empty text if none does, and for an empty name
/// or list. A name that is an absolute path is not looked for in the folders and is found if it exists.
KORPLATFORM_API KORUnicodeString KORFindPath(const KORUnicodeString& name, const KORUnicodeString& folders);

/// Cuts a path at its last separator into its folder and its last part; separators at the end do not count.
/// S_OK; E_INVALIDARG, with both texts untouched, for an empty path. A path without separator has an empty folder.
KORPLATFORM_API long KORSplitPath(const KORUnicodeString& path, KORUnicodeString& folder, KORUnicodeString& last);

/// Fills `names` with the names of the files and folders in `folder`, without "." and "..", in the order of their
/// bytes, so that a folder lists alike on every machine. S_OK, also for an empty folder; E_FAIL, with `names`
/// empty, if it cannot be read.
KORPLATFORM_API long KORListDirectory(const KORUnicodeString& folder, KORListValKORUnicodeString& names);

/// Utilities of the model library beside this one.
struct KORPLATFORM_API VEXSTMMiscUtils {
  /// Non-zero if the environment variable is set in the current session, also to an empty text.
  /// The integer is reserved and passed as 1.
  static int IsEnvVariableSet(const KORUnicodeString& name, int reserved);
};
