// A path through the tree.
#include "platform/services/KORPathElement.h"

#include "platform/system/KORPerform.h"

void* KORPathElement::operator new(std::size_t size, const std::nothrow_t& no_throw) noexcept {
  try {
    return KORGive("KORPathElement", [size, &no_throw] { return ::operator new(size, no_throw); });
  } catch (...) {  // a fault that raises
    return nullptr;
  }
}

void KORPathElement::operator delete(void* path, const std::nothrow_t& no_throw) noexcept {
  ::operator delete(path, no_throw);
}

void KORPathElement::operator delete(void* path) noexcept {
  ::operator delete(path);
}
