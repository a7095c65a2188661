// Paths as the file system of this machine knows them. For the sources of the platform.
#pragma once

#include <string>
#include <string_view>

#include "platform/base/KORUnicodeString.h"

/// The characters that separate folders in the current session.
std::string_view KORFolderSeparators();

/// The path with "/" between folders, as this machine wants it.
std::string KORHostPath(std::string_view path);

/// True if a file or folder is there, at the end of links.
bool KORHostPathExists(const std::string& path);

/// The path of a name in a folder, whose own path is not empty.
std::string KORJoinPath(std::string_view folder, std::string_view name);

/// The path without separators at its end. Where nothing but separators is left, the first of them is the root folder.
std::string_view KORWithoutSeparatorsAtEnd(std::string_view path);

/// Cuts a path behind its last separator: the folder without separators at its end, and what follows. `path` may be
/// part of one of the texts to fill.
void KORCutPath(std::string_view path, KORUnicodeString& folder, KORUnicodeString& last);
