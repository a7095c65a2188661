// Names in streams that the exchange has no place for.
#include "tools/exchange/UnmappedNames.h"

#include "platform/base/KORTrace.h"

namespace tool {

namespace {

constexpr const char* TraceName = "KORVEXTimeAnalysisModelerServicesTrace";
constexpr std::string_view AttributeStart = "Failed to map attribute <";
constexpr std::string_view ColumnStart = "Failed to map line attribute <";
constexpr std::string_view LineEnd = ">\n";

void RedirectTrace(KORTrace::Sink sink) {
  if (KORTrace* const trace = KORTrace::Find(TraceName)) trace->RedirectTo(std::move(sink));
}

}  // namespace

UnmappedListener::UnmappedListener() {
  RedirectTrace([this](std::string_view line) { TakeLine(line); });
}

UnmappedListener::~UnmappedListener() {
  RedirectTrace(nullptr);
}

void UnmappedListener::TakeLine(std::string_view line) {
  if (!line.ends_with(LineEnd)) return;
  line.remove_suffix(LineEnd.size());
  if (line.starts_with(AttributeStart)) {
    _Names.Attributes.emplace(line.substr(AttributeStart.size()));
  } else if (line.starts_with(ColumnStart)) {
    _Names.Columns.emplace(line.substr(ColumnStart.size()));
  }
}

}  // namespace tool
