// The streams that a command is given: files, folders of them, and standard input.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tools/CommandLine.h"
#include "tools/Messages.h"
#include "tools/Surroundings.h"

namespace tool {

struct StreamInput {
  std::string Path;        // as messages call it
  std::string Identifier;  // of the analysis
  bool IsStandardInput = false;
  bool IsNamed = true;  // by its file or by --identifier
};

/// Takes the path of what is left out, and the cause.
using TellLeftOut = std::function<void(const std::string& path, const Failure& cause)>;

/// The streams in the order of the command line; those of a folder, and of folders in it, are the files whose names end
/// in ".stream". `tell` is called with what is left out.
///
/// An analysis is called by the name of its file without the extension, in a folder by its path from there; the one of
/// standard input "standard-input". --identifier names another for a single one. Raises IdentifierOfSeveral.
std::vector<StreamInput> FindStreams(const CommandLine& line, const TellLeftOut& tell);

/// The bytes of a stream. Raises StreamNotReadable and StreamTooLong.
std::string ReadStreamBytes(const StreamInput& input, const Surroundings& surroundings);

}  // namespace tool
