// The XML parser: a file becomes a document, or a message.
//
// Non-validating XML 1.0 with namespaces left alone; encodings UTF-8, UTF-16, ISO-8859-1, US-ASCII and windows-1252.
// Nothing outside the file is ever read: an external document type is passed over, and a reference to an entity that is
// external, or not declared in the file, is refused. Bounds
// that keep outside input harmless: elements nested 1,000 deep are read and deeper ones refused; 1,000 entity
// declarations are read and more refused; entities that expand to far more than the file holds are refused.
#pragma once

#include <memory>

#include "platform/base/KORExport.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"
#include "platform/document/KORXMLDocument.h"

/// Class identifiers of the two services that the parser offers.
extern KORPLATFORM_API const KORUuid CLSID_XML4C_DOM;
extern KORPLATFORM_API const KORUuid CLSID_DEFAULT_SAX;

/// Names where the text of a document comes from. Making one does not touch the file.
class KORPLATFORM_API KORISAXInputSource : public KORBaseUnknown {
 public:
  KORISAXInputSource(KORUnicodeString path, KORUnicodeString label);

  const KORUnicodeString& GetPath() const { return _Path; }
  const KORUnicodeString& GetLabel() const { return _Label; }

 private:
  KORUnicodeString _Path;
  KORUnicodeString _Label;
};
using KORISAXInputSource_var = KORHandle<KORISAXInputSource>;

/// Makes input sources.
class KORPLATFORM_API KORIXMLSAX2Factory : public KORBaseUnknown {
 public:
  /// S_OK and a source; E_INVALIDARG and a null source for an empty path.
  long CreateInputSourceFromFile(const KORUnicodeString& path, const KORUnicodeString& label,
                                 KORISAXInputSource_var& source) const;
};
using KORIXMLSAX2Factory_var = KORHandle<KORIXMLSAX2Factory>;

/// Builds documents.
class KORPLATFORM_API KORIXMLDOMDocumentBuilder : public KORBaseUnknown {
 public:
  /// Parses the source. S_OK and a document; otherwise E_FAIL and a null document, and the message waits at
  /// KORError::KORGetLastError. A message names the file, where the text is at fault the line, the column and the
  /// innermost open element, and the cause.
  ///
  /// The option lists run in parallel; "KORDoValidation" may be "false", and any other option or value gives
  /// E_INVALIDARG: this parser does not validate.
  long Parse(const KORISAXInputSource_var& source, KORIDOMDocument_var& document,
             const KORListValKORUnicodeString& option_names, const KORListValKORUnicodeString& option_values) const;
};
using KORIXMLDOMDocumentBuilder_var = KORHandle<KORIXMLDOMDocumentBuilder>;

/// S_OK and a builder for CLSID_XML4C_DOM; E_NOINTERFACE and null for any other class.
KORPLATFORM_API long CreateKORIXMLDOMDocumentBuilder(KORIXMLDOMDocumentBuilder_var& builder, const KORUuid& class_id);

/// S_OK and a factory for CLSID_DEFAULT_SAX; E_NOINTERFACE and null for any other class.
KORPLATFORM_API long CreateKORIXMLSAX2Factory(KORIXMLSAX2Factory_var& factory, const KORUuid& class_id);
