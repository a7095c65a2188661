// The session recorder: tells whether the session is being captured or replayed.
#include "platform/system/KORRecord.h"

#include "platform/system/KORSession.h"

KORRecord* KORRecord::GetMain() {
  return &KORSession::Current().GetRecorder();
}
