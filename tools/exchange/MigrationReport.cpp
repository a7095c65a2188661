// What became of the streams of a migration.
#include "tools/exchange/MigrationReport.h"

#include <ostream>
#include <set>
#include <string_view>

#include "tools/JsonLine.h"
#include "tools/Messages.h"

namespace tool {

namespace {

constexpr std::array<std::string_view, 3> ResultNames{"migrated", "unchanged", "skipped"};
constexpr std::size_t NameWidth = 11;

std::string_view NameOf(MigrationResult result) {
  return ResultNames[static_cast<std::size_t>(result)];
}

// "; unmapped KIND: NAME, ..."; nothing for no names.
std::string UnmappedText(std::string_view kind, const std::set<std::string>& names) {
  std::string text;
  for (const std::string& name : names) {
    text += text.empty() ? "; unmapped " + std::string(kind) + ": " : ", ";
    text += Excerpt(name);
  }
  return text;
}

}  // namespace

void MigrationReport::AddText(const MigratedStream& stream) {
  const std::string_view name = NameOf(stream.Result);
  _Output << name << std::string(NameWidth - name.size(), ' ');
  if (stream.Result == MigrationResult::Skipped) {
    const bool names_stream = stream.Cause.starts_with(stream.Stream);
    _Output << (names_stream ? "" : stream.Stream + ": ") << stream.Cause << '\n';
    return;
  }
  const std::string_view way = stream.Result == MigrationResult::Migrated ? " to " : ", already in ";
  _Output << stream.Stream << ": " << stream.LineCount << (stream.LineCount == 1 ? " line" : " lines") << way
          << stream.File << UnmappedText("attributes", stream.Unmapped.Attributes)
          << UnmappedText("columns", stream.Unmapped.Columns) << '\n';
}

void MigrationReport::AddJson(const MigratedStream& stream) {
  nlohmann::ordered_json json;
  json["stream"] = stream.Stream;
  json["result"] = NameOf(stream.Result);
  json["file"] = stream.File;
  json["lines"] = stream.LineCount;
  json["unmappedAttributes"] = stream.Unmapped.Attributes;
  json["unmappedColumns"] = stream.Unmapped.Columns;
  json["cause"] = stream.Cause;
  WriteJsonLine(_Output, json);
}

void MigrationReport::Add(const MigratedStream& stream) {
  ++_Counts[static_cast<std::size_t>(stream.Result)];
  _IsJson ? AddJson(stream) : AddText(stream);
}

void MigrationReport::Finish() {
  if (_IsJson) return;
  for (std::size_t index = 0; index < ResultNames.size(); ++index) {
    _Output << (index == 0 ? "" : ", ") << _Counts[index] << ' ' << ResultNames[index];
  }
  _Output << '\n';
}

}  // namespace tool
