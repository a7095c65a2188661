// The file of user-defined attributes: the names of the attributes that a customer has defined.
//
//   root              = { TIMEANALYSISATTRIB | OPERATIONATTRIB | SYSTEMATTRIB }      at any depth
//   each of the three = { NAME }
#pragma once

#include "platform/base/KORList.h"
#include "platform/document/KORXMLDocument.h"

namespace datacard {

/// Appends the names of the three kinds of attributes. S_OK; E_FAIL for a null root and for a kind without an element,
/// in which case the names of the kinds before it are in their lists.
long ReadAttributeNames(const KORIDOMElement_var& root, KORListValKORUnicodeString& analysis_attributes,
                        KORListValKORUnicodeString& operation_attributes,
                        KORListValKORUnicodeString& system_attributes);

}  // namespace datacard
