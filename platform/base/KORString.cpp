// The byte text of the platform.
#include "platform/base/KORString.h"

#include "platform/base/KORUtf8.h"

int KORString::GetLengthInChar() const {
  return static_cast<int>(korutf8::IsValid(_Bytes) ? korutf8::CountCharacters(_Bytes) : _Bytes.size());
}
