// The streams that a command is given.
#include "tools/exchange/StreamInputs.h"

#include <algorithm>
#include <filesystem>
#include <istream>
#include <map>
#include <system_error>

#include "platform/base/KORUnicodeString.h"
#include "platform/system/KORFileContent.h"
#include "tools/analysis/AnalysisMessages.h"
#include "tools/analysis/FolderListing.h"
#include "tools/exchange/ExchangeMessages.h"
#include "tools/exchange/StreamReader.h"

namespace tool {

namespace {

namespace files = std::filesystem;

constexpr std::string_view Extension = ".stream";
constexpr const char* InputName = "standard input";
constexpr const char* InputIdentifier = "standard-input";
constexpr std::size_t BlockSize = std::size_t{1} << 20;

// A name of the file system as a text.
std::string TextOfName(const std::string& name) {
  return std::string(KORUnicodeString(std::string_view(name)).Bytes());
}

class StreamFinder {
 public:
  explicit StreamFinder(const TellLeftOut& tell) : _Tell(tell) {}

  void Add(const std::string& path) {
    std::error_code error;
    const files::file_status status = files::status(path, error);
    if (path == "-") {
      _Found.push_back({InputName, InputIdentifier, true, false});
    } else if (status.type() == files::file_type::not_found) {
      _Tell(path, NoSuchStreamOrFolder(path));
    } else if (status.type() == files::file_type::directory) {
      AddFolder(path);
    } else {
      _Found.push_back({path, TextOfName(files::path(path).stem().string())});
    }
  }

  std::vector<StreamInput> Take() { return std::move(_Found); }

 private:
  void AddFolder(const std::string& folder) {
    bool any_unreadable = false;
    const std::vector<std::string> paths =
        FilesBelow(folder, Extension, [&](const std::string& unreadable, const std::string& cause) {
          _Tell(unreadable, FolderNotReadable(unreadable, cause));
          any_unreadable = true;
        });
    if (paths.empty() && !any_unreadable) _Tell(folder, StreamFolderEmpty(folder));
    const std::string canonical = CanonicalPath(folder);
    for (const std::string& path : paths) {
      if (LeadsOutOf(canonical, path)) {
        _Tell(path, StreamOutsideFolder(path, folder));
      } else {
        _Found.push_back({path, TextOfName(WithoutExtension(PathFrom(folder, path), Extension))});
      }
    }
  }

  const TellLeftOut& _Tell;
  std::vector<StreamInput> _Found;
};

bool IsUsable(const std::string& identifier) {
  return !identifier.empty() && identifier.find('|') == std::string::npos;
}

std::string ReadInput(const StreamInput& input, std::istream& stream) {
  std::string bytes;
  try {
    while (stream && bytes.size() <= StreamReader::LongestStream) {
      const std::size_t held = bytes.size();
      bytes.resize(held + BlockSize);
      stream.read(bytes.data() + held, static_cast<std::streamsize>(BlockSize));
      bytes.resize(held + static_cast<std::size_t>(stream.gcount()));
    }
  } catch (const std::ios_base::failure& failure) {
    throw InputNotReadable(failure.code().message());
  }
  if (stream.bad()) throw InputNotReadable("a block of it could not be had");
  if (bytes.size() > StreamReader::LongestStream) throw StreamTooLong(input.Path, StreamReader::LongestStream);
  return bytes;
}

}  // namespace

std::vector<StreamInput> FindStreams(const CommandLine& line, const TellLeftOut& tell) {
  StreamFinder finder(tell);
  for (const std::string& path : line.Texts) finder.Add(path);
  std::vector<StreamInput> found = finder.Take();
  if (!line.Identifier.empty()) {
    if (found.size() > 1) throw IdentifierOfSeveral(found.size());
    for (StreamInput& input : found) {
      input.Identifier = TextOfName(line.Identifier);
      input.IsNamed = true;
    }
  }
  std::vector<StreamInput> usable;
  std::map<std::string, std::string> owners;
  for (const StreamInput& input : found) {
    const auto [owner, is_new] = owners.emplace(input.Identifier, input.Path);
    if (!IsUsable(input.Identifier)) {
      tell(input.Path, StreamIdentifierNotUsable(input.Path, input.Identifier));
    } else if (!is_new) {
      tell(input.Path, StreamIdentifierShared(input.Path, input.Identifier, owner->second));
    } else {
      usable.push_back(input);
    }
  }
  return usable;
}

std::string ReadStreamBytes(const StreamInput& input, const Surroundings& surroundings) {
  if (input.IsStandardInput) return ReadInput(input, surroundings.In);
  std::string bytes;
  std::string cause;
  if (!KORReadFileContent(input.Path, StreamReader::LongestStream, bytes, cause)) {
    throw StreamNotReadable(input.Path, cause);
  }
  return bytes;
}

}  // namespace tool
