// How the user interface deals with a representation.
#include "platform/services/KORIPLMRepUIManagement.h"

#include "platform/base/KORStatus.h"

long KORPLMRepUIManagementAdapter::GetRepUIMode(int& mode) {
  mode = 0;
  return S_OK;
}
