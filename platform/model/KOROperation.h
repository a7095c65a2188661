// Operations: occurrences, instances and references, and the representation instances under a reference.
//
// Each record keeps alive what stands below it: the occurrence its instance, the instance its reference, the reference
// its representation instances, and these their representation references.
#pragma once

#include <utility>
#include <vector>

#include "platform/base/KORExport.h"
#include "platform/model/KORIPLMNavOccurrence.h"
#include "platform/model/KORPLMObject.h"
#include "platform/model/PLMIRepInstance.h"

/// A representation instance.
class KORPLATFORM_API KORRepInstance final : public KORDerives<KORPLMObject, PLMIRepInstance> {
 public:
  /// `reference` is not null.
  explicit KORRepInstance(PLMIRepReference_var reference);

  /// "PCCMemVEXTimeAnalysisRepInstance" for an instance of a time analysis; empty for one of another representation.
  const char* GetComponentName() const override { return _Component; }

  long GetRepReference(PLMIRepReference*& reference) override;

 private:
  PLMIRepReference_var _Reference;
  const char* _Component;
};

/// An operation reference.
class KORPLATFORM_API KOROperationReference final
    : public KORDerives<KORPLMObject, KORIPLMNavReference, PLMIRepInstances> {
 public:
  using KORDerives::KORDerives;

  long ListRepInstances(KORListValKORBaseUnknown_var& instances) override;
  long AddRepInstance(KORIAdpEnvironment* environment, PLMIRepReference* reference, PLMIRepInstance*& instance,
                      int reserved) override;
  long RemoveRepInstance(PLMIRepInstance* instance) override;

  /// Whether the operation may be changed by the user; true for a new one. The record itself takes every change.
  bool IsEditable() const { return _Editable; }
  void SetEditable(bool editable) { _Editable = editable; }

 private:
  std::vector<KORHandle<KORRepInstance>> _Instances;
  bool _Editable = true;
};

/// An operation instance.
class KORPLATFORM_API KOROperationInstance final : public KORDerives<KORPLMObject, KORIPLMNavInstance> {
 public:
  /// A null reference makes an instance that has lost its reference.
  explicit KOROperationInstance(KORIPLMNavReference_var reference) : _Reference(std::move(reference)) {}

  long GetInstanceReference(KORIPLMNavReference*& reference) override;

 private:
  KORIPLMNavReference_var _Reference;
};

/// An operation occurrence.
class KORPLATFORM_API KOROperationOccurrence final : public KORDerives<KORPLMObject, KORIPLMNavOccurrence> {
 public:
  /// A null instance makes an occurrence that has lost its instance.
  explicit KOROperationOccurrence(KORIPLMNavInstance_var instance) : _Instance(std::move(instance)) {}

  long GetRelatedInstance(KORIPLMNavInstance*& instance) override;

 private:
  KORIPLMNavInstance_var _Instance;
};
