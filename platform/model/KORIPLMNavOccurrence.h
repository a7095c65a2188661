// The way from an occurrence of an operation to the operation.
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"

/// Marks what instances are made of: an operation reference.
class KORIPLMNavReference : public KORInterface<KORIPLMNavReference> {
 public:
  static constexpr const char* InterfaceName = "KORIPLMNavReference";
};
using KORIPLMNavReference_var = KORHandle<KORIPLMNavReference>;

/// An instance of a reference.
class KORIPLMNavInstance : public KORInterface<KORIPLMNavInstance> {
 public:
  static constexpr const char* InterfaceName = "KORIPLMNavInstance";

  /// reference  [out] what this is an instance of, with a reference that the caller releases; null on failure
  /// S_OK; E_FAIL if the instance has lost its reference.
  virtual long GetInstanceReference(KORIPLMNavReference*& reference) = 0;
};
using KORIPLMNavInstance_var = KORHandle<KORIPLMNavInstance>;

/// An occurrence of an instance in the product structure.
class KORIPLMNavOccurrence : public KORInterface<KORIPLMNavOccurrence> {
 public:
  static constexpr const char* InterfaceName = "KORIPLMNavOccurrence";

  /// instance  [out] the instance that the occurrence stands for, with a reference that the caller releases; null on
  ///           failure
  /// S_OK; E_FAIL if the occurrence has lost its instance.
  virtual long GetRelatedInstance(KORIPLMNavInstance*& instance) = 0;
};
using KORIPLMNavOccurrence_var = KORHandle<KORIPLMNavOccurrence>;
