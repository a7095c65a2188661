// The file of user-defined attributes.
#include "datacard/AttributeFile.h"

#include <array>
#include <string_view>
#include <utility>

#include "datacard/XmlAccess.h"
#include "platform/base/KORStatus.h"

namespace datacard {
namespace {

/// A name without text repeats the name before it in the same element, or is empty if it is the first.
void AppendNames(const KORIDOMNode_var& element, KORListValKORUnicodeString& names) {
  std::string_view value;
  for (KORIDOMNode_var child = element.GetFirstChild(); !child.IsNull(); child = child.GetNextSibling()) {
    if (child.GetNodeName() != "NAME") continue;
    if (!child.GetFirstChild().IsNull()) value = ValueOf(child);
    names.Append(KORUnicodeString(value));
  }
}

}  // namespace

long ReadAttributeNames(const KORIDOMElement_var& root, KORListValKORUnicodeString& analysis_attributes,
                        KORListValKORUnicodeString& operation_attributes,
                        KORListValKORUnicodeString& system_attributes) {
  const std::array<std::pair<std::string_view, KORListValKORUnicodeString*>, 3> kinds{{
      {"TIMEANALYSISATTRIB", &analysis_attributes},
      {"OPERATIONATTRIB", &operation_attributes},
      {"SYSTEMATTRIB", &system_attributes},
  }};
  for (const auto& [tag, names] : kinds) {
    const KORIDOMNodeList_var elements = ElementsBelow(root, tag);
    if (elements.IsNull() || elements.GetLength() == 0) return E_FAIL;
    for (int index = 0; index < elements.GetLength(); ++index) AppendNames(elements.Item(index), *names);
  }
  return S_OK;
}

}  // namespace datacard
