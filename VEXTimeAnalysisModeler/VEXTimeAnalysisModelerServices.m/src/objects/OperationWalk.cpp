// The way from an occurrence of an operation down to its time analysis.
#include "objects/OperationWalk.h"

#include <utility>

#include "platform/base/KORStatus.h"

namespace objects {

namespace {

// The representation instance of the time analysis of an occurrence; null if there is none or a step fails.
PLMIRepInstance_var AnalysisInstanceOf(const KORIPLMNavOccurrence_var& occurrence) {
  if (occurrence.IsNull()) return NULL_var;
  const HandedOut<KORIPLMNavInstance> instance = InstanceOf(occurrence);
  if (!instance.IsGiven()) return NULL_var;
  const HandedOut<KORIPLMNavReference> operation = OperationOf(instance.Get());
  if (!operation.IsGiven()) return NULL_var;
  const PLMIRepInstances_var instances = operation.Get();
  return instances.IsNull() ? NULL_var : FindAnalysis(instances).Instance;
}

}  // namespace

HandedOut<KORIPLMNavInstance> InstanceOf(const KORIPLMNavOccurrence_var& occurrence) {
  return HandedOut<KORIPLMNavInstance>(
      [&occurrence](KORIPLMNavInstance*& instance) { return occurrence->GetRelatedInstance(instance); });
}

HandedOut<KORIPLMNavReference> OperationOf(const KORIPLMNavInstance_var& instance) {
  return HandedOut<KORIPLMNavReference>(
      [&instance](KORIPLMNavReference*& operation) { return instance->GetInstanceReference(operation); });
}

HandedOut<PLMIRepReference> RepReferenceOf(const PLMIRepInstance_var& instance) {
  return HandedOut<PLMIRepReference>(
      [&instance](PLMIRepReference*& reference) { return instance->GetRepReference(reference); });
}

AnalysisPlace FindAnalysis(const PLMIRepInstances_var& operation) {
  KORListValKORBaseUnknown_var listed;
  (void)operation->ListRepInstances(listed);
  for (const KORBaseUnknown_var& entry : listed) {
    PLMIRepInstance_var instance = entry;
    if (instance.IsNull()) continue;
    VEXITimeAnalysisRepReference_var analysis = RepReferenceOf(instance).Get();
    if (!analysis.IsNull()) return {std::move(instance), std::move(analysis)};
  }
  return {};
}

VEXITimeAnalysisRepReference_var AnalysisOfOperation(const KORBaseUnknown_var& operation) {
  const PLMIRepInstances_var instances = operation;
  return instances.IsNull() ? NULL_var : FindAnalysis(instances).Analysis;
}

VEXITimeAnalysisRepReference_var AnalysisOfOccurrence(const KORBaseUnknown_var& occurrence) {
  const KORIPLMNavOccurrence_var of_operation = occurrence;
  if (of_operation.IsNull()) return NULL_var;
  const HandedOut<KORIPLMNavInstance> instance = InstanceOf(of_operation);
  if (instance.Get().IsNull()) return NULL_var;
  return AnalysisOfOperation(OperationOf(instance.Get()).Get());
}

VEXITimeAnalysisRepReference_var AnalysisOfRepInstance(const KORBaseUnknown_var& instance) {
  const PLMIRepInstance_var rep_instance = instance;
  if (rep_instance.IsNull()) return NULL_var;
  const HandedOut<PLMIRepReference> reference = RepReferenceOf(rep_instance);
  return reference.IsGiven() ? VEXITimeAnalysisRepReference_var(reference.Get()) : NULL_var;
}

long ListAnalysisInstances(const KORListValKORBaseUnknown_var& occurrences, KORListValKORBaseUnknown_var& instances) {
  instances.RemoveAll();
  for (const KORBaseUnknown_var& occurrence : occurrences) {
    const PLMIRepInstance_var instance = AnalysisInstanceOf(occurrence);
    if (!instance.IsNull()) instances.Append(instance);
  }
  return instances.Size() > 0 ? S_OK : E_FAIL;
}

}  // namespace objects
