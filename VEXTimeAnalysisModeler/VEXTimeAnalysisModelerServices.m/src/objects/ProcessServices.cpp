// What is fetched once for the process: the factory of time analyses and the table of kept components.
#include "objects/ProcessServices.h"

#include "objects/KeptService.h"
#include "objects/TimeAnalysisType.h"
#include "platform/system/KORInstantiateComponent.h"

namespace objects {

namespace {

HandedOut<VEXITimeAnalysisSessionServicesMgr> InstantiateManager() {
  return HandedOutUntyped<VEXITimeAnalysisSessionServicesMgr>([](void** out) {
    return KORInstantiateComponent("VEXETimeAnalysisSessionServicesMgr", VEXITimeAnalysisSessionServicesMgr::ClassId(),
                                   out);
  });
}

struct ServicesOfProcess {
  KeptService<PLMIRepresentationReferenceFactory> _RepRefFactory{FetchAnalysisFactory};
  KeptService<VEXITimeAnalysisSessionServicesMgr> _SessionServicesMgr{InstantiateManager};
};

// Never destroyed: an object that ends behind the static ones may still use them.
ServicesOfProcess& OfProcess() {
  static auto* const services = new ServicesOfProcess;
  return *services;
}

}  // namespace

long GetRepRefFactory(PLMIRepresentationReferenceFactory*& factory) {
  return OfProcess()._RepRefFactory.Get(factory);
}

long GetSessionServicesMgr(VEXITimeAnalysisSessionServicesMgr*& manager) {
  return OfProcess()._SessionServicesMgr.Get(manager);
}

void LetGoOfRepRefFactory() {
  OfProcess()._RepRefFactory.LetGo();
}

}  // namespace objects
