// The attributes of a representation while they are edited.
#include "platform/services/KORPLMMetaDataFrameModel.h"

#include "platform/base/KORStatus.h"
#include "platform/system/KORPerform.h"

namespace {

long CurrentEnvironment(KORIAdpEnvironment_var& environment) {
  PLMPSISessionHelpers* helpers = nullptr;
  const long status = PLMPSISessionHelpers::GetSessionHelpers(helpers);
  const auto held = PLMPSISessionHelpers_var::Adopt(helpers);
  if (Failed(status)) return status;
  if (held.IsNull()) return E_FAIL;
  KORIAdpEnvironment* current = nullptr;
  const long got = held->GetCurrentEnvironment(current);
  environment = KORIAdpEnvironment_var::Adopt(current);
  return got;
}

long CopyNames(const char* operation, const KORListValKORUnicodeString& from, KORListValKORUnicodeString& names) {
  names.RemoveAll();
  return KORPerform(operation, [&] {
    names = from;
    return S_OK;
  });
}

}  // namespace

long KORPLMMetaDataFrameModel::GetLocalEnvironment(KORIAdpEnvironment*& environment) const {
  environment = nullptr;
  return KORPerform("GetLocalEnvironment", [&] {
    KORIAdpEnvironment_var current;
    const long status = CurrentEnvironment(current);
    if (Failed(status) || current.IsNull()) return status;
    current->AddRef();
    environment = current.Get();
    return status;
  });
}

long KORPLMMetaDataFrameModel::GetListOfAttributes(KORListValKORUnicodeString& names) const {
  return CopyNames("GetListOfAttributes", _Names, names);
}

long KORPLMMetaDataFrameModel::GetListOfModifiedAttributes(KORListValKORUnicodeString& names) const {
  return CopyNames("GetListOfModifiedAttributes", _Modified, names);
}

long KORPLMMetaDataFrameModel::GetAttributeParm(const KORUnicodeString& name, KORICkeParm_var& parameter) const {
  parameter = nullptr;
  return KORPerform("GetAttributeParm", [&] {
    const auto found = _Parameters.find(name);
    if (found == _Parameters.end()) return E_FAIL;
    parameter = found->second;
    return S_OK;
  });
}

void KORPLMMetaDataFrameModel::AddAttribute(const KORICkeParm_var& parameter) {
  const KORUnicodeString name = parameter->RoleName();
  if (_Parameters.insert_or_assign(name, parameter).second) _Names.Append(name);
  KORListValKORUnicodeString others;
  for (const KORUnicodeString& modified : _Modified) {
    if (modified != name) others.Append(modified);
  }
  _Modified = others;
}

void KORPLMMetaDataFrameModel::MarkModified(const KORUnicodeString& name) {
  if (_Modified.Locate(name) == 0) _Modified.Append(name);
}
