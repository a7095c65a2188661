// Parsing in tests: a text becomes a file, and the file a document or a message.
#pragma once

#include <string>
#include <string_view>

#include "platform/base/KORError.h"
#include "platform/document/KORXMLParser.h"
#include "tests/support/TemporaryFolder.h"

namespace platformtest {

struct Parsed {
  long Status = E_FAIL;
  KORIDOMDocument_var Document;
  std::string Message;  // empty if none waits
};

inline Parsed ParseFile(const std::string& path) {
  KORIXMLSAX2Factory_var factory;
  KORIXMLDOMDocumentBuilder_var builder;
  KORISAXInputSource_var source;
  CreateKORIXMLSAX2Factory(factory, CLSID_DEFAULT_SAX);
  CreateKORIXMLDOMDocumentBuilder(builder, CLSID_XML4C_DOM);
  factory->CreateInputSourceFromFile(KORUnicodeString(std::string_view(path)), "test", source);
  KORListValKORUnicodeString names;
  KORListValKORUnicodeString values;
  names.Append("KORDoValidation");
  values.Append("false");
  KORError::ClearLastError();
  Parsed parsed;
  parsed.Status = builder->Parse(source, parsed.Document, names, values);
  if (const auto error = KORError::KORGetLastError(parsed.Status, nullptr)) {
    parsed.Message = error->GetMessage().Bytes();
  }
  return parsed;
}

/// Parses a text as the file "test.xml", whose folder is cut off the message.
inline Parsed ParseText(const std::string& text) {
  const support::TemporaryFolder folder;
  Parsed parsed = ParseFile(folder.Write("test.xml", text));
  const std::string prefix = folder.Path() + "/";
  if (parsed.Message.starts_with(prefix)) parsed.Message.erase(0, prefix.size());
  return parsed;
}

/// `count` times `text`.
inline std::string Repeat(std::string_view text, int count) {
  std::string repeated;
  for (; count > 0; --count) repeated += text;
  return repeated;
}

}  // namespace platformtest
