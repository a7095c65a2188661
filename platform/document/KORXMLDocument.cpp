// Parsed XML documents, read-only.
#include "platform/document/KORXMLDocument.h"

#include <utility>

#include "platform/base/KORError.h"
#include "platform/document/KORXMLTree.h"

KORIDOMNode_var::KORIDOMNode_var(std::shared_ptr<const KORXMLTree> tree, std::uint32_t index)
    : _Tree(std::move(tree)), _Index(index) {
}

const KORXMLTree& KORIDOMNode_var::Tree() const {
  if (_Tree == nullptr) ThrowErrorNullVar();
  return *_Tree;
}

bool KORIDOMNode_var::IsElement() const {
  return Tree().IsElement(_Index);
}

std::string_view KORIDOMNode_var::GetNodeName() const {
  return Tree().NameOf(_Index);
}

std::string_view KORIDOMNode_var::GetNodeValue() const {
  return Tree().ValueOf(_Index);
}

int KORIDOMNode_var::GetLineNumber() const {
  return static_cast<int>(Tree().Node(_Index).Line);
}

KORIDOMNode_var KORIDOMNode_var::GetFirstChild() const {
  const std::uint32_t child = Tree().FirstChildOf(_Index);
  return child == 0 ? KORIDOMNode_var() : KORIDOMNode_var(_Tree, child);
}

KORIDOMNode_var KORIDOMNode_var::GetNextSibling() const {
  const std::uint32_t sibling = Tree().Node(_Index).NextSibling;
  return sibling == 0 ? KORIDOMNode_var() : KORIDOMNode_var(_Tree, sibling);
}

KORIDOMNodeList_var KORIDOMNode_var::GetChildNodes() const {
  const KORXMLTree& tree = Tree();
  KORIDOMNodeList_var children;
  children._Tree = _Tree;
  if (tree.IsElement(_Index)) children._Nodes.reserve(tree.Node(_Index).Begin);
  for (std::uint32_t child = tree.FirstChildOf(_Index); child != 0; child = tree.Node(child).NextSibling) {
    children._Nodes.push_back(child);
  }
  return children;
}

long KORIDOMNode_var::GetElementsByTagName(std::string_view name, KORIDOMNodeList_var& elements) const {
  const KORXMLTree& tree = Tree();
  const std::uint32_t number = tree.FindName(name);
  KORIDOMNodeList_var found;
  found._Tree = _Tree;
  if (number != KORXMLTree::NoName && tree.IsElement(_Index)) {
    for (std::uint32_t index = _Index + 1, end = tree.Node(_Index).End; index < end; ++index) {
      if (tree.Node(index).Name == number && tree.IsElement(index)) found._Nodes.push_back(index);
    }
  }
  elements = std::move(found);
  return S_OK;
}

int KORIDOMNodeList_var::GetLength() const {
  if (_Tree == nullptr) ThrowErrorNullVar();
  return static_cast<int>(_Nodes.size());
}

KORIDOMNode_var KORIDOMNodeList_var::Item(int index) const {
  if (index < 0 || index >= GetLength()) return {};
  return {_Tree, _Nodes[static_cast<std::size_t>(index)]};
}

KORIDOMDocument_var::KORIDOMDocument_var(std::shared_ptr<const KORXMLTree> tree) : _Tree(std::move(tree)) {
}

KORIDOMElement_var KORIDOMDocument_var::GetDocumentElement() const {
  if (_Tree == nullptr) ThrowErrorNullVar();
  return _Tree->Size() == 0 ? KORIDOMElement_var() : KORIDOMElement_var(_Tree, 0);
}
