// The table of kept components, by text key.
#include "presentation/VEXETimeAnalysisSessionServicesMgr.h"

#include "HandedOut.h"
#include "objects/Identificator.h"
#include "platform/base/KORStatus.h"
#include "platform/model/KORPLMSpace.h"
#include "presentation/Registration.h"

namespace {

using HandedOutSpace = HandedOut<KORIPLMSpace>;

HandedOutSpace ResolutionSpace() {
  return HandedOutSpace([](KORIPLMSpace*& space) {
    return KORPLMSpaceServices::GetResolutionSpace(space, 0, KORPLMSpaceServices::Kor3DSpace);
  });
}

HandedOut<KORBaseUnknown> Resolve(const KORIPLMSpace_var& space, const KORIAdpPLMIdentificator_var& identificator) {
  return HandedOutUntyped<KORBaseUnknown>([&space, &identificator](void** out) {
    return space->ResolveComponent(identificator.Get(), KORBaseUnknown::ClassId(), out);
  });
}

}  // namespace

const KORMetaClass* VEXITimeAnalysisSessionServicesMgr::MetaObject() {
  static constexpr KORUuid Identifier{
      {0xCB, 0x23, 0x09, 0x9A, 0x60, 0x91, 0x46, 0xA8, 0x88, 0x23, 0x00, 0x5B, 0x60, 0x65, 0x5E, 0xCA}};
  static const KORMetaClass description = [] {
    KORMetaClass made{"VEXITimeAnalysisSessionServicesMgr", Identifier, KORBaseUnknown::MetaObject()};
    made.SetFWname(presentation::ModuleName);
    return made;
  }();
  return &description;
}

const KORMetaClass* VEXETimeAnalysisSessionServicesMgr::MetaObject() {
  static const KORMetaClass* const meta_object = presentation::RetrieveMetaObject("VEXETimeAnalysisSessionServicesMgr");
  return meta_object;
}

VEXETimeAnalysisSessionServicesMgr::~VEXETimeAnalysisSessionServicesMgr() {
  const KORUnicodeString* key = nullptr;
  void* value = nullptr;
  while (_Components.NextItem(key, value) != 0) static_cast<const KORIAdpPLMIdentificator*>(value)->Release();
  _Components.RemoveAll();
}

KORIAdpPLMIdentificator_var VEXETimeAnalysisSessionServicesMgr::Find(const KORUnicodeString& key) const {
  const std::lock_guard lock(_Mutex);
  return KORIAdpPLMIdentificator_var(static_cast<KORIAdpPLMIdentificator*>(_Components.Locate(key)));
}

std::vector<KORIAdpPLMIdentificator_var> VEXETimeAnalysisSessionServicesMgr::All() const {
  std::vector<KORIAdpPLMIdentificator_var> all;
  const std::lock_guard lock(_Mutex);
  const KORUnicodeString* key = nullptr;
  void* value = nullptr;
  while (_Components.NextItem(key, value) != 0) all.emplace_back(static_cast<KORIAdpPLMIdentificator*>(value));
  return all;
}

long VEXETimeAnalysisSessionServicesMgr::IsComponentKept(const KORUnicodeString& key, unsigned char& kept) {
  kept = Find(key).IsNull() ? 0 : 1;
  return S_OK;
}

long VEXETimeAnalysisSessionServicesMgr::GetKeptComponent(const KORUnicodeString& key, KORBaseUnknown*& component) {
  component = nullptr;
  const KORIAdpPLMIdentificator_var identificator = Find(key);
  if (identificator.IsNull()) return S_FALSE;
  const HandedOutSpace space = ResolutionSpace();
  return space.IsGiven() ? Resolve(space.Get(), identificator).HandOn(component) : E_FAIL;
}

long VEXETimeAnalysisSessionServicesMgr::KeepComponent(const KORUnicodeString& key, KORBaseUnknown* component) {
  if (component == nullptr) return E_INVALIDARG;
  if (!Find(key).IsNull()) return S_OK;
  const auto identificator = objects::IdentificatorOf(KORIPLMComponent_var(component));
  if (!identificator.IsGiven()) return S_FALSE;
  const std::lock_guard lock(_Mutex);
  // Not added if another thread was faster: what it kept stays.
  if (_Components.Insert(key, identificator.Get().Get()) > 0) identificator.Get()->AddRef();
  return S_OK;
}

long VEXETimeAnalysisSessionServicesMgr::ForgetComponent(const KORUnicodeString& key) {
  KORIAdpPLMIdentificator_var forgotten;
  const std::lock_guard lock(_Mutex);
  forgotten = KORIAdpPLMIdentificator_var::Adopt(static_cast<KORIAdpPLMIdentificator*>(_Components.Locate(key)));
  if (!forgotten.IsNull()) _Components.Remove(key);
  return S_OK;
}

long VEXETimeAnalysisSessionServicesMgr::GetAllKeptComponents(KORListValKORBaseUnknown_var& components) {
  long status = E_FAIL;
  for (const KORIAdpPLMIdentificator_var& identificator : All()) {
    const HandedOutSpace space = ResolutionSpace();
    if (!space.IsGiven()) return space.GetStatus();
    const HandedOut<KORBaseUnknown> resolved = Resolve(space.Get(), identificator);
    status = resolved.GetStatus();
    if (!resolved.Get().IsNull()) components.Append(resolved.Get());
  }
  return status;
}
