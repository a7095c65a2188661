// Messages about the impact of changes.
#include "tools/impact/ImpactMessages.h"

namespace tool {

namespace {

std::string Quoted(std::string_view text) {
  return "\"" + Excerpt(text) + "\"";
}

std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) joined += (joined.empty() ? "" : ", ") + Printable(text);
  return joined;
}

PlacedFailure Finding(const FilePlace& place, const std::string& text) {
  return At(place, {ExitStatus::Finding, text});
}

PlacedFailure Unusable(const FilePlace& place, const std::string& text) {
  return At(place, {ExitStatus::Unusable, text});
}

std::string Listed(std::string_view state, const std::vector<std::string>& paths) {
  std::string list;
  for (const std::string& path : paths) list += "\n  " + std::string(state) + "  " + path;
  return list;
}

}  // namespace

PlacedFailure NoFolderOfAnalyses(const std::string& path) {
  return Unusable({path}, "no folder; name the folder that holds the template and all that may reuse it");
}

PlacedFailure TemplateNotFound(const std::string& folder, std::string_view identifier,
                               const std::vector<std::string>& nearest) {
  return Finding({folder}, "no analysis in this folder has the identifier " + Quoted(identifier) + "; " +
                               (nearest.empty() ? std::string("none comes near it") : "nearest: " + Joined(nearest)));
}

Failure TemplateShared(std::string_view identifier, const std::vector<std::string>& paths) {
  return {ExitStatus::Finding,
          "the identifier " + Quoted(identifier) + " is that of " + Joined(paths) + "; give each analysis its own"};
}

PlacedFailure CarriesTooMuch(const FilePlace& place, std::string_view rows, std::size_t bound) {
  return Finding(place, "the change would carry more than " + std::to_string(bound) + " formula parameters up to " +
                            std::string(rows) +
                            ", one for each way that they come up by; reuse fewer analyses with formulas. Nothing was "
                            "carried up");
}

PlacedFailure PropagationFails(const std::string& path) {
  return Unusable({path}, "its change cannot be carried up; run the command again. No file was changed");
}

PlacedFailure TotalsDiffer(const std::string& path, const std::string& carried, const std::string& computed) {
  return Finding({path}, "the change carried up comes to a total of " + carried + " TMU, the file with it to one of " +
                             computed +
                             " TMU; enter the time of the row that reuses by hand (column \"seconds\"). It is left as "
                             "it is, with all that reuse it");
}

PlacedFailure ChangedWhileRead(const std::string& path) {
  return Unusable({path}, "has changed since it was read; run the command again. It was left as it is");
}

PlacedFailure FileIsLink(const std::string& path) {
  return Unusable({path}, "would be changed, and is a link; put the file itself there");
}

PlacedFailure FileIsReadOnly(const std::string& path) {
  return Unusable({path}, "would be changed, and may only be read; allow writing to it");
}

Failure NothingApplied() {
  return {ExitStatus::Unusable, "no file was changed; correct what is told above"};
}

Failure Interrupted() {
  return {ExitStatus::Stopped, "interrupted"};
}

Failure InterruptedEarly() {
  return {ExitStatus::Stopped, "interrupted ahead of the first change; all files are old"};
}

Failure StoppedInBetween(const Failure& cause, const std::vector<std::string>& written,
                         const std::vector<std::string>& old) {
  const std::size_t count = written.size() + old.size();
  return {ExitStatus::Stopped, std::string(cause.what()) + "\n" + std::to_string(written.size()) + " of " +
                                   std::to_string(count) + (count == 1 ? " file" : " files") +
                                   " written, each whole; run the command again for the others" +
                                   Listed("new", written) + Listed("old", old)};
}

}  // namespace tool
