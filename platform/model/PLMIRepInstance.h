// Representations under an operation: the operation's list of instances, an instance, and what an instance stands for.
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORObjectLists.h"

class KORIAdpEnvironment;

/// Marks a representation reference, of whichever kind.
class PLMIRepReference : public KORInterface<PLMIRepReference> {
 public:
  static constexpr const char* InterfaceName = "PLMIRepReference";
};
using PLMIRepReference_var = KORHandle<PLMIRepReference>;

/// Marks a representation reference for navigation.
class KORIPLMNavRepReference : public KORInterface<KORIPLMNavRepReference> {
 public:
  static constexpr const char* InterfaceName = "KORIPLMNavRepReference";
};
using KORIPLMNavRepReference_var = KORHandle<KORIPLMNavRepReference>;

/// A representation instance: the place of a representation under an operation.
class PLMIRepInstance : public KORInterface<PLMIRepInstance> {
 public:
  static constexpr const char* InterfaceName = "PLMIRepInstance";

  /// reference  [out] the representation reference, with a reference that the caller releases; null on failure
  /// S_OK.
  virtual long GetRepReference(PLMIRepReference*& reference) = 0;
};
using PLMIRepInstance_var = KORHandle<PLMIRepInstance>;

/// The representation instances under an operation reference.
class PLMIRepInstances : public KORInterface<PLMIRepInstances> {
 public:
  static constexpr const char* InterfaceName = "PLMIRepInstances";

  /// Fills `instances` with the instances in their stored order; each offers PLMIRepInstance. S_OK; on failure the list
  /// is empty.
  virtual long ListRepInstances(KORListValKORBaseUnknown_var& instances) = 0;

  /// Adds a new instance of `reference` behind the others; one reference may have several instances.
  ///
  /// environment  not looked at, and may be null
  /// instance     [out] the new instance, with a reference that the caller releases; null on failure
  /// reserved     passed as 0
  /// S_OK; E_INVALIDARG for a null `reference`.
  virtual long AddRepInstance(KORIAdpEnvironment* environment, PLMIRepReference* reference, PLMIRepInstance*& instance,
                              int reserved) = 0;

  /// Takes the instance away; its representation reference stays. S_OK; E_INVALIDARG for null; E_FAIL, with nothing
  /// changed, for an instance that is not under this operation.
  virtual long RemoveRepInstance(PLMIRepInstance* instance) = 0;
};
using PLMIRepInstances_var = KORHandle<PLMIRepInstances>;
