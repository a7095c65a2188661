// The XML parser: a file becomes a document, or a message.
#include "platform/document/KORXMLParser.h"

#include <limits>
#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "platform/base/KORError.h"
#include "platform/document/KORXMLTree.h"
#include "platform/document/KORXMLTreeBuilder.h"
#include "platform/system/KORFileContent.h"
#include "platform/system/KORPerform.h"

const KORUuid CLSID_XML4C_DOM{
    {0x5E, 0x1C, 0x0A, 0x42, 0x8D, 0x37, 0x4F, 0x61, 0x9B, 0x20, 0x6C, 0xE4, 0x13, 0xA8, 0x75, 0x01}};
const KORUuid CLSID_DEFAULT_SAX{
    {0x5E, 0x1C, 0x0A, 0x42, 0x8D, 0x37, 0x4F, 0x61, 0x9B, 0x20, 0x6C, 0xE4, 0x13, 0xA8, 0x75, 0x02}};

namespace {

// Fails with words for a person, or without them if there is no memory even for these.
long FailWith(long status, std::string_view message) noexcept {
  try {
    KORError::SetLastError(KORError(status, KORUnicodeString(message)));
  } catch (const std::bad_alloc&) {
    KORError::ClearLastError();
  }
  return status;
}

// Runs an operation in which faults leave no message.
template <class Work>
long Perform(const char* operation, const Work& work) {
  return KORPerform(operation, work, KORError::ClearLastError);
}

bool AreOptionsKnown(const KORListValKORUnicodeString& names, const KORListValKORUnicodeString& values) {
  if (names.Size() != values.Size()) return false;
  for (int position = 1; position <= names.Size(); ++position) {
    if (names[position] != "KORDoValidation" || values[position] != "false") return false;
  }
  return true;
}

// The tree of a file, or null and the cause.
std::shared_ptr<const KORXMLTree> ReadTree(const std::string& path, std::string& cause) {
  std::string content;
  if (!KORReadFileContent(path, std::numeric_limits<int>::max(), content, cause)) return nullptr;
  return KORBuildXMLTree(content, cause);
}

long ParseFile(const KORUnicodeString& path, KORIDOMDocument_var& document) {
  std::string cause;
  std::shared_ptr<const KORXMLTree> tree = ReadTree(std::string(path.Bytes()), cause);
  if (tree == nullptr) return FailWith(E_FAIL, std::string(path.Bytes()) + ": " + cause);
  document = KORIDOMDocument_var(std::move(tree));
  return S_OK;
}

}  // namespace

KORISAXInputSource::KORISAXInputSource(KORUnicodeString path, KORUnicodeString label)
    : _Path(std::move(path)), _Label(std::move(label)) {
}

long KORIXMLSAX2Factory::CreateInputSourceFromFile(const KORUnicodeString& path, const KORUnicodeString& label,
                                                   KORISAXInputSource_var& source) const {
  source = nullptr;
  return Perform("CreateInputSourceFromFile", [&path, &label, &source] {
    if (path.IsEmpty()) return E_INVALIDARG;
    source = KORISAXInputSource_var::Adopt(new KORISAXInputSource(path, label));
    return S_OK;
  });
}

long KORIXMLDOMDocumentBuilder::Parse(const KORISAXInputSource_var& source, KORIDOMDocument_var& document,
                                      const KORListValKORUnicodeString& option_names,
                                      const KORListValKORUnicodeString& option_values) const {
  document = KORIDOMDocument_var();
  return Perform("Parse", [&] {
    if (source.IsNull()) return FailWith(E_INVALIDARG, "No input source to parse");
    if (!AreOptionsKnown(option_names, option_values)) {
      return FailWith(E_INVALIDARG, "The parser knows the option KORDoValidation with the value false, and no others");
    }
    try {
      return ParseFile(source->GetPath(), document);
    } catch (const std::bad_alloc&) {
      return FailWith(E_FAIL, "Out of memory");
    }
  });
}

long CreateKORIXMLDOMDocumentBuilder(KORIXMLDOMDocumentBuilder_var& builder, const KORUuid& class_id) {
  builder = nullptr;
  return Perform("CreateKORIXMLDOMDocumentBuilder", [&builder, &class_id] {
    if (class_id != CLSID_XML4C_DOM) return E_NOINTERFACE;
    builder = KORIXMLDOMDocumentBuilder_var::Adopt(new KORIXMLDOMDocumentBuilder);
    return S_OK;
  });
}

long CreateKORIXMLSAX2Factory(KORIXMLSAX2Factory_var& factory, const KORUuid& class_id) {
  factory = nullptr;
  return Perform("CreateKORIXMLSAX2Factory", [&factory, &class_id] {
    if (class_id != CLSID_DEFAULT_SAX) return E_NOINTERFACE;
    factory = KORIXMLSAX2Factory_var::Adopt(new KORIXMLSAX2Factory);
    return S_OK;
  });
}
