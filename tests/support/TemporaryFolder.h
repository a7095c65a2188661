// A folder of its own for one test, removed with everything in it at the end.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace support {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "timeanalysis-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder can be made");
    _Root = pattern;
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(_Root, ignored);
  }

  /// Full path of a name in the folder, which may hold a relative path; of the folder itself for an empty name.
  std::string Path(const std::string& name = "") const { return (name.empty() ? _Root : _Root / name).string(); }

  /// Writes a file, making the folders that its relative path names. Returns its full path.
  std::string Write(const std::string& name, const std::string& content) const {
    const std::filesystem::path path = _Root / name;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    file << content;
    file.close();
    if (!file) throw std::runtime_error("cannot write " + path.string());
    return path.string();
  }

  /// The content of a file; nothing if it cannot be read.
  std::optional<std::string> Read(const std::string& name) const {
    std::ifstream file(_Root / name, std::ios::binary);
    if (!file) return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(file), {});
  }

  /// The names of all that stands in the folder itself, hidden files included, in the order of their bytes.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(_Root)) names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }

  /// Makes a folder. Returns its full path.
  std::string MakeFolder(const std::string& name) const {
    std::filesystem::create_directories(_Root / name);
    return (_Root / name).string();
  }

 private:
  std::filesystem::path _Root;
};

}  // namespace support
