// The block of nodes behind a parsed document.
#include "platform/document/KORXMLTree.h"

#include <stdexcept>

namespace {

// Names that nodes without a name of their own go by, in the order of their kinds behind Instruction.
constexpr std::string_view FixedNames[] = {"#text", "#cdata-section", "#comment"};

constexpr std::size_t MostText = 0xFFFFFFFFu;
constexpr std::size_t MostNodes = 0xFFFFFFFFu;
constexpr std::size_t MostNames = (1u << 29) - 1;

std::uint32_t FixedNameNumber(KORXMLKind kind) {
  return static_cast<std::uint32_t>(kind) - static_cast<std::uint32_t>(KORXMLKind::Text);
}

}  // namespace

KORXMLTree::KORXMLTree() {
  for (const std::string_view name : FixedNames) NumberOf(name);
}

std::string_view KORXMLTree::ValueOf(std::uint32_t index) const {
  const KORXMLNode& node = Node(index);
  if (node.Kind == KORXMLKind::Element) return {};
  return std::string_view(_Text).substr(node.Begin, node.End - node.Begin);
}

std::uint32_t KORXMLTree::FindName(std::string_view name) const {
  const auto found = _NameNumbers.find(name);
  return found == _NameNumbers.end() ? NoName : found->second;
}

std::uint32_t KORXMLTree::FirstChildOf(std::uint32_t index) const {
  const KORXMLNode& node = Node(index);
  return node.Kind == KORXMLKind::Element && node.End > index + 1 ? index + 1 : 0;
}

void KORXMLTree::OpenElement(std::string_view name, std::uint32_t line) {
  const std::uint32_t index = AddNode(KORXMLKind::Element, NumberOf(name), line);
  _Open.push_back({index, 0});
}

void KORXMLTree::CloseElement() {
  _Nodes[_Open.back().Index].End = Size();
  _Open.pop_back();
}

void KORXMLTree::AddLeaf(KORXMLKind kind, std::string_view name, std::string_view content, std::uint32_t line) {
  if (content.size() > MostText - _Text.size()) throw std::length_error("more text than 4 GiB");
  const std::uint32_t number = kind == KORXMLKind::Instruction ? NumberOf(name) : FixedNameNumber(kind);
  const auto begin = static_cast<std::uint32_t>(_Text.size());
  _Text.append(content);
  KORXMLNode& node = _Nodes[AddNode(kind, number, line)];
  node.Begin = begin;
  node.End = static_cast<std::uint32_t>(_Text.size());
}

std::string_view KORXMLTree::InnermostName() const {
  return _Open.empty() ? std::string_view() : NameOf(_Open.back().Index);
}

std::uint32_t KORXMLTree::AddNode(KORXMLKind kind, std::uint32_t name, std::uint32_t line) {
  if (_Nodes.size() >= MostNodes) throw std::length_error("more nodes than 32 bits number");
  const std::uint32_t index = Size();
  _Nodes.push_back({kind, name, 0, 0, 0, line});
  if (!_Open.empty()) {
    OpenNode& parent = _Open.back();
    ++_Nodes[parent.Index].Begin;
    if (parent.LastChild != 0) _Nodes[parent.LastChild].NextSibling = index;
    parent.LastChild = index;
  }
  return index;
}

std::uint32_t KORXMLTree::NumberOf(std::string_view name) {
  if (const auto found = _NameNumbers.find(name); found != _NameNumbers.end()) return found->second;
  if (_Names.size() >= MostNames) throw std::length_error("more names than 29 bits number");
  const auto number = static_cast<std::uint32_t>(_Names.size());
  _NameNumbers.emplace(_Names.emplace_back(name), number);
  return number;
}
