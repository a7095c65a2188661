// The XML parser: every content gives a document whose parts fit together, or a cause.
// Input: the content of a file.
#include <memory>
#include <string>
#include <vector>

#include "fuzz/FuzzSupport.h"
#include "platform/document/KORXMLDocument.h"
#include "platform/document/KORXMLTreeBuilder.h"

namespace {

/// Walks the whole document by its handles; positions of lists and chains of siblings must name the same nodes.
void CheckDocument(const KORIDOMDocument_var& document) {
  std::size_t elements = 0;
  std::vector<KORIDOMNode_var> open{document.GetDocumentElement()};
  fuzz::RequireSame(false, open.front().IsNull(), "no root element");
  while (!open.empty()) {
    const KORIDOMNode_var node = open.back();
    open.pop_back();
    elements += node.IsElement() ? 1 : 0;
    fuzz::RequireSame(true, node.GetLineNumber() >= 1, "line");
    fuzz::RequireSame(false, node.GetNodeName().empty(), "empty name");
    if (node.IsElement()) fuzz::RequireSame(true, node.GetNodeValue().empty(), "value of an element");
    const KORIDOMNodeList_var children = node.GetChildNodes();
    int position = 0;
    for (KORIDOMNode_var child = node.GetFirstChild(); !child.IsNull(); child = child.GetNextSibling()) {
      fuzz::RequireSame(true, child == children.Item(position), "child by position");
      ++position;
      open.push_back(child);
    }
    fuzz::RequireSame(children.GetLength(), position, "number of children");
  }
  KORIDOMNodeList_var found;
  const KORIDOMElement_var root = document.GetDocumentElement();
  (void)root.GetElementsByTagName(root.GetNodeName(), found);
  fuzz::RequireSame(true, static_cast<std::size_t>(found.GetLength()) < elements, "descendants");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string fault;
  const std::shared_ptr<const KORXMLTree> tree = KORBuildXMLTree(fuzz::BytesOf(data, size), fault);
  fuzz::RequireSame(tree == nullptr, !fault.empty(), "a cause exactly where there is no document");
  if (tree != nullptr) CheckDocument(KORIDOMDocument_var(tree));
  return 0;
}
