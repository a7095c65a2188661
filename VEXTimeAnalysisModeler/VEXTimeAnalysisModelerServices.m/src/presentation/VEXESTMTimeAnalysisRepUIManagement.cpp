// How the user interface deals with analyses.
#include "presentation/VEXESTMTimeAnalysisRepUIManagement.h"

#include "platform/base/KORStatus.h"
#include "presentation/Registration.h"

const KORMetaClass* VEXESTMTimeAnalysisRepUIManagement::MetaObject() {
  static const KORMetaClass* const meta_object = presentation::RetrieveMetaObject("VEXESTMTimeAnalysisRepUIManagement");
  return meta_object;
}

long VEXESTMTimeAnalysisRepUIManagement::GetRepUIMode(int& mode) {
  mode = 1;
  return S_OK;
}
