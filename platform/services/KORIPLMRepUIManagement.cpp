// How the user interface deals with a representation.
#include "platform/services/KORIPLMRepUIManagement.h"

#include "platform/base/KORStatus.h"
#include "platform/system/KORPerform.h"

long KORPLMRepUIManagementAdapter::GetRepUIMode(int& mode) {
  return KORPerform("KORPLMRepUIManagementAdapter::GetRepUIMode", [&mode] {
    mode = 0;
    return S_OK;
  });
}
