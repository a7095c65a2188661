// Whether the nodes of analyses show anything.
#include "presentation/DisplayGate.h"

#include "platform/system/KORRecord.h"
#include "platform/system/KORSystem.h"

namespace presentation {

bool IsNodeDisplayed() {
  const KORRecord* const recorder = KORRecord::GetMain();
  const bool is_recorded = recorder->IsCapture() != 0 || recorder->IsReplay() != 0;
  return !is_recorded || VEXSTMMiscUtils::IsEnvVariableSet("VEXSTM_TVSONLY_DISPLAY_TA_NODE", 1) != 0;
}

}  // namespace presentation
