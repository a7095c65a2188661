// Files into documents, and the texts of their elements.
#include "datacard/XmlAccess.h"

#include <string>

#include "platform/base/KORError.h"
#include "platform/base/KORStatus.h"

namespace datacard {
namespace {

/// The element that a file of that path keeps its texts in; empty for a path that tells none.
std::string_view ContainerOf(const KORUnicodeString& path) {
  if (path.Bytes().find("dc_") != std::string_view::npos) return "DATACARD";
  if (path.Bytes().find("dcg_") != std::string_view::npos) return "DATACARDGROUP";
  return {};
}

KORIDOMDocument_var LeaveMessage(long status, KORListValKORUnicodeString& messages) {
  if (const auto error = KORError::KORGetLastError(status, nullptr)) messages.Append(error->GetMessage());
  return {};
}

}  // namespace

KORISAXInputSource_var InputSourceOf(const KORUnicodeString& path) {
  KORIXMLSAX2Factory_var factory;
  if (Failed(CreateKORIXMLSAX2Factory(factory, CLSID_DEFAULT_SAX)) || factory.IsNull()) return {};
  KORISAXInputSource_var source;
  (void)factory->CreateInputSourceFromFile(path, "DCEFilePath", source);  // null on failure
  return source;
}

KORIDOMDocument_var ParseDocument(const KORUnicodeString& path, KORListValKORUnicodeString& messages) {
  KORError::ClearLastError();
  KORIXMLDOMDocumentBuilder_var builder;
  const long created = CreateKORIXMLDOMDocumentBuilder(builder, CLSID_XML4C_DOM);
  if (created != S_OK || builder.IsNull()) return LeaveMessage(created, messages);
  const KORISAXInputSource_var source = InputSourceOf(path);
  if (source.IsNull()) return {};
  KORListValKORUnicodeString option_names;
  KORListValKORUnicodeString option_values;
  option_names.Append("KORDoValidation");
  option_values.Append("false");
  KORIDOMDocument_var document;
  const long parsed = builder->Parse(source, document, option_names, option_values);
  if (parsed != S_OK || document.IsNull()) return LeaveMessage(parsed, messages);
  return document;
}

KORIDOMElement_var RootOf(const KORIDOMDocument_var& document) {
  return document.IsNull() ? KORIDOMElement_var() : document.GetDocumentElement();
}

KORIDOMNodeList_var ElementsBelow(const KORIDOMNode_var& node, std::string_view name) {
  KORIDOMNodeList_var elements;
  if (!node.IsNull()) (void)node.GetElementsByTagName(name, elements);
  return elements;
}

KORIDOMElement_var FirstElementBelow(const KORIDOMNode_var& node, std::string_view name) {
  const KORIDOMNodeList_var elements = ElementsBelow(node, name);
  return elements.IsNull() ? KORIDOMElement_var() : elements.Item(0);
}

std::string_view ValueOf(const KORIDOMNode_var& element) {
  const KORIDOMNode_var child = element.GetFirstChild();
  return child.IsNull() ? std::string_view() : child.GetNodeValue();
}

long HandOver(KORListValKORUnicodeString& source, KORListValKORUnicodeString& target) {
  if (source.Size() == 0) return E_FAIL;
  target = source;
  source.RemoveAll();
  return S_OK;
}

long CollectTexts(const KORUnicodeString& path, const KORUnicodeString& tag, KORListValKORUnicodeString& messages,
                  KORUnicodeString& texts) {
  const KORIDOMElement_var root = RootOf(ParseDocument(path, messages));
  if (root.IsNull()) return E_FAIL;
  const KORIDOMElement_var container = FirstElementBelow(root, ContainerOf(path));
  if (container.IsNull()) return E_FAIL;
  KORIDOMNodeList_var elements;
  const long status = container.GetElementsByTagName(tag.Bytes(), elements);
  std::string joined;
  for (int index = 0; index < elements.GetLength(); ++index) {
    if (index > 0) joined += ';';
    joined += ValueOf(elements.Item(index));
  }
  texts = KORUnicodeString(joined);
  return status;
}

}  // namespace datacard
