// The applicative data of a representation: its container, and the features in that.
#include "objects/ApplicativeData.h"

#include <memory>

#include "HandedOut.h"
#include "ModuleTrace.h"
#include "platform/base/KORError.h"
#include "platform/base/KORStatus.h"
#include "platform/base/KORXHContext.h"
#include "platform/model/PLMIRepReferenceDataAccess.h"
#include "platform/services/KOROsmSUHandler.h"
#include "platform/services/VEXTimeAnalysisModelerDeclarations.h"

namespace objects {

namespace {

constexpr const char* ContainerModel = "VEXTimeAnalysisModel";
constexpr const char* ContainerType = "KORFeatCont";
constexpr const char* ContainerName = "VEXTimeAnalysisCont";

// The members of a container of one class; each comes with a reference, which goes with this object.
class Members {
 public:
  Members() = default;
  Members(const Members&) = delete;
  Members& operator=(const Members&) = delete;
  ~Members() {
    for (int position = 0; position < Size(); ++position) {
      if ((*_Listed)[position] != nullptr) (*_Listed)[position]->Release();
    }
  }

  void List(const KORIContainer_var& container, const char* class_name) {
    _Listed = container->ListMembers(class_name);
  }

  int Size() const { return _Listed == nullptr ? 0 : _Listed->Size(); }
  KORISpecObject_var FeatureAt(int position) const { return KORISpecObject_var((*_Listed)[position]); }

 private:
  std::unique_ptr<_SEQUENCE_KORBaseUnknown_ptr> _Listed;  // null: none
};

// The first feature of that very name; null if there is none.
KORISpecObject_var FindFeature(const Members& members, const KORUnicodeString& name) {
  for (int position = 0; position < members.Size(); ++position) {
    KORISpecObject_var feature = members.FeatureAt(position);
    if (!feature.IsNull() && feature->GetFeatureName().Compare(name) == KORUnicodeString::Identical) return feature;
  }
  return NULL_var;
}

}  // namespace

long CreateContainer(const KORBaseUnknown_var& representation, KORIContainer_var& container) {
  if (representation.IsNull()) return E_INVALIDARG;
  const PLMIRepReferenceApplicativeDataAccess_var data(representation);
  if (data.IsNull()) return E_FAIL;
  const auto created = HandedOutUntyped<KORIContainer>([&data](void** out) {
    return data->CreateApplicativeContainer(out, ContainerModel, KORIContainer::ClassId(), ContainerType,
                                            ContainerName);
  });
  if (created.IsGiven()) container = created.Get();
  return created.GetStatus();
}

long RetrieveContainer(const KORBaseUnknown_var& representation, KORIContainer_var& container) {
  if (representation.IsNull()) return E_INVALIDARG;
  const PLMIRepReferenceApplicativeDataAccess_var data(representation);
  if (data.IsNull()) return E_FAIL;
  const auto found = HandedOutUntyped<KORIContainer>(
      [&data](void** out) { return data->RetrieveApplicativeContainer(ContainerName, KORIContainer::ClassId(), out); });
  if (Succeeded(found.GetStatus())) container = found.Get();
  return found.GetStatus();
}

long CreateFeature(const KORUnicodeString& name, const KORIContainer_var& container, KORISpecObject_var& feature) {
  const KOROsmSUHandler handler(name, KORUnicodeString(), VEXTimeAnalysisModelerDeclarations::StorageName);
  const long status = handler.Instanciate(feature, container, KORUnicodeString());
  if (Failed(status)) TraceNamed("Failed to create feature ", name.Bytes(), ".");
  return status;
}

long RetrieveFeature(const KORUnicodeString& name, const KORIContainer_var& container, KORISpecObject_var& feature) {
  Members members;
  KORISpecObject_var found;
  KORXHContext context;
  const bool scanned = context.Run([&members, &found, &container, &name] {
    members.List(container, KORISpecObject::ClassName());
    found = FindFeature(members, name);
  });
  if (!scanned) {
    if (!context.GetError()) KORError::Throw(context.GetCaught());
    return E_FAIL;
  }
  if (found.IsNull()) return S_FALSE;
  feature = found;
  return S_OK;
}

long ListAttributeNames(const KORBaseUnknown_var& feature, KORListValKORUnicodeString& names) {
  const KORISpecAttrAccess_var attributes(feature);
  if (attributes.IsNull()) return E_NOINTERFACE;
  const std::unique_ptr<KORListValKORUnicodeString> listed = attributes->ListAttributeNames();
  if (listed == nullptr) return E_FAIL;
  names = *listed;
  return S_OK;
}

}  // namespace objects
