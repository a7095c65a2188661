// The face of the features in the applicative container of a time analysis.
#include "VEXSTTApplicativeContainerFeatServices.h"

#include "objects/ApplicativeData.h"
#include "platform/base/KORStatus.h"

// The length of a name has no bound: one that is empty is for the platform to refuse.

long VEXSTTApplicativeContainerFeatServices::Create(const KORUnicodeString& name, const KORIContainer_var& container,
                                                    KORISpecObject_var& feature) {
  if (container.IsNull()) return E_INVALIDARG;
  return objects::CreateFeature(name, container, feature);
}

long VEXSTTApplicativeContainerFeatServices::Retrieve(const KORUnicodeString& name, const KORIContainer_var& container,
                                                      KORISpecObject_var& feature) {
  if (container.IsNull()) return E_INVALIDARG;
  return objects::RetrieveFeature(name, container, feature);
}

long VEXSTTApplicativeContainerFeatServices::ListAttrNames(KORBaseUnknown_var feature,
                                                           KORListValKORUnicodeString& names) {
  return objects::ListAttributeNames(feature, names);
}
