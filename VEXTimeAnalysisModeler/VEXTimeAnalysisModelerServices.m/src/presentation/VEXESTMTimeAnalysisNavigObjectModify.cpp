// What is selected with the node of an analysis.
#include "presentation/VEXESTMTimeAnalysisNavigObjectModify.h"

#include <new>

#include "presentation/Registration.h"

const KORMetaClass* VEXESTMTimeAnalysisNavigObjectModify::MetaObject() {
  static const KORMetaClass* const meta_object =
      presentation::RetrieveMetaObject("VEXESTMTimeAnalysisNavigObjectModify");
  return meta_object;
}

KORPathElement* VEXESTMTimeAnalysisNavigObjectModify::GetObjectPath(unsigned char& is_path) {
  is_path = 1;
  return new (std::nothrow) KORPathElement(GetImpl(0));
}
