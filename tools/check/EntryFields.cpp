// The elements of one entry as they stand in the file.
#include "tools/check/EntryFields.h"

#include <algorithm>
#include <array>

namespace tool {

namespace {

constexpr std::array<std::string_view, 13> KnownFields{
    "CODE_ID",     "CODE",      "TEXT",    "LOCALTEXT", "VALUEADDED", "FREQUENCY", "TIME",
    "PAR_1_START", "PAR_1_END", "PATTERN", "PATTERN1",  "TIMETYPE",   "OPTION"};

bool IsKnown(std::string_view name) {
  return std::find(KnownFields.begin(), KnownFields.end(), name) != KnownFields.end();
}

// The elements that the reader knows, in document order.
std::vector<KORIDOMNode_var> KnownChildren(const KORIDOMNode_var& entry) {
  std::vector<KORIDOMNode_var> children;
  for (KORIDOMNode_var child = entry.GetFirstChild(); !child.IsNull(); child = child.GetNextSibling()) {
    if (child.IsElement() && IsKnown(child.GetNodeName())) children.push_back(child);
  }
  return children;
}

std::string ValueOf(const KORIDOMNode_var& entry, std::string_view name) {
  for (KORIDOMNode_var child = entry.GetFirstChild(); !child.IsNull(); child = child.GetNextSibling()) {
    if (!child.IsElement() || child.GetNodeName() != name || child.GetFirstChild().IsNull()) continue;
    return std::string(child.GetFirstChild().GetNodeValue());
  }
  return {};
}

bool IsEmpty(const KORIDOMNode_var& field) {
  const KORIDOMNode_var value = field.GetFirstChild();
  return value.IsNull() || value.GetNodeValue().empty();
}

class FieldWalk {
 public:
  explicit FieldWalk(EntryFields& fields) : _Fields(fields) {}

  void Walk(const std::vector<KORIDOMNode_var>& children) {
    for (std::size_t index = 0; index < children.size(); ++index) {
      const KORIDOMNode_var& field = children[index];
      const std::string name(field.GetNodeName());
      CheckPlace(field, name);
      CheckValue(field, name);
      if (name == "PATTERN") index = PassPattern(children, index);
    }
  }

 private:
  void Add(const KORIDOMNode_var& field, const char* kind, const std::string& text) {
    _Fields.Flaws.push_back({field.GetLineNumber(), {kind, text}});
  }

  void CheckPlace(const KORIDOMNode_var& field, const std::string& name) {
    if (name == "PATTERN1") {
      Add(field, findingkind::Unread, "PATTERN1 has no PATTERN ahead of it");
    } else if (_Open && name != "OPTION" && _Fields.Lines.contains(name)) {
      Add(field, findingkind::Duplicate,
          name == "CODE_ID" ? "a second CODE_ID drops the fields ahead of it"
                            : name + " stands twice; the last counts");
    } else if (_Open && name == "OPTION" && _Fields.Lines.contains(name)) {
      Add(field, findingkind::Duplicate, "an entry keeps one option; give the other an entry of its own");
    } else if (!_Open && name != "CODE_ID" && !_Told) {
      Add(field, findingkind::Unread, name + " stands ahead of CODE_ID");
      _Told = true;
    }
    if (name == "CODE_ID") _Open = true;
    _Fields.Lines.emplace(name, field.GetLineNumber());
  }

  void CheckValue(const KORIDOMNode_var& field, const std::string& name) {
    if (name == "OPTION") return;
    if ((name == "CODE_ID" || name == "CODE") && IsEmpty(field)) {
      Add(field, findingkind::Missing, name + " is empty; what stands behind it is not read");
      return;
    }
    const KORIDOMNode_var first = field.GetFirstChild();
    if (first.IsNull()) return;
    if (first.GetNodeName().starts_with("#comment") || first.IsElement() || !first.GetNextSibling().IsNull()) {
      Add(field, findingkind::Unread,
          "only the first piece of " + name + " is read; take comments, CDATA sections and elements out of it");
    }
  }

  // Moves on to the PATTERN1 that belongs to the PATTERN at `index`; what lies between the two is not read.
  std::size_t PassPattern(const std::vector<KORIDOMNode_var>& children, std::size_t index) {
    for (std::size_t next = index + 1; next < children.size(); ++next) {
      const std::string name(children[next].GetNodeName());
      if (name == "PATTERN1") {
        _Fields.Lines.emplace(name, children[next].GetLineNumber());
        CheckValue(children[next], name);
        return next;
      }
      Add(children[next], findingkind::Unread,
          name + " stands between PATTERN and PATTERN1, or behind a PATTERN without");
    }
    Add(children[index], findingkind::Missing,
        "PATTERN1 is missing; without it, be it empty, the pattern and what stands behind it are not read");
    return children.size();
  }

  EntryFields& _Fields;
  bool _Open = false;  // a CODE_ID has been met
  bool _Told = false;  // that a field stands ahead of it
};

}  // namespace

int EntryFields::LineOf(std::string_view name) const {
  const auto line = Lines.find(name);
  return line == Lines.end() ? Line : line->second;
}

EntryFields ReadEntryFields(const KORIDOMNode_var& entry) {
  EntryFields fields;
  fields.Line = entry.GetLineNumber();
  fields.Example = ValueOf(entry, "EXAMPLE");
  fields.ExampleTime = ValueOf(entry, "EXAMPLE_TIME");
  fields.ExampleOptionId = ValueOf(entry, "EXAMPLE_OPTION_ID");
  FieldWalk(fields).Walk(KnownChildren(entry));
  for (const char* name : {"CODE_ID", "CODE", "TIME"}) {
    if (fields.Lines.contains(name)) continue;
    const bool time = std::string_view(name) == "TIME";
    fields.Flaws.push_back(
        {fields.Line,
         {findingkind::Missing, std::string(name) + (time ? " is missing; write 0 for no time" : " is missing")}});
  }
  return fields;
}

}  // namespace tool
