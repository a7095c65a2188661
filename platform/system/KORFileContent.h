// The content of a file as one block of bytes.
#pragma once

#include <cstddef>
#include <string>

#include "platform/base/KORExport.h"

/// Reads a regular file whole, by a path of the current session.
///
/// True and the bytes, or false and, in `cause`, the words for a person: the file is missing, unreadable, a folder, no
/// regular file, longer than `most` bytes, or changed its length while it was read. `content` is empty then.
KORPLATFORM_API bool KORReadFileContent(const std::string& path, std::size_t most, std::string& content,
                                        std::string& cause);
