// The way from an occurrence of an operation down to its time analysis.
//
//   occurrence -> instance -> operation reference -> representation instances -> representation reference
//
// Who walks it tests statuses at some steps and objects alone at others; each function tells.
#pragma once

#include "HandedOut.h"
#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORObjectLists.h"
#include "platform/model/KORIPLMNavOccurrence.h"
#include "platform/model/PLMIRepInstance.h"
#include "platform/model/VEXITimeAnalysisRepReference.h"

namespace objects {

/// Single steps; the argument is not null.
HandedOut<KORIPLMNavInstance> InstanceOf(const KORIPLMNavOccurrence_var& occurrence);
HandedOut<KORIPLMNavReference> OperationOf(const KORIPLMNavInstance_var& instance);
HandedOut<PLMIRepReference> RepReferenceOf(const PLMIRepInstance_var& instance);

/// A time analysis and the representation instance by which it stands under an operation; both are null, or none.
struct AnalysisPlace {
  PLMIRepInstance_var Instance;
  VEXITimeAnalysisRepReference_var Analysis;
};

/// The first time analysis under an operation, in the order of its representation instances. Statuses are not looked
/// at. A null operation raises the null-handle error.
AnalysisPlace FindAnalysis(const PLMIRepInstances_var& operation);

/// The same for an operation reference by any of its interfaces: null for null and for an object that is no operation
/// reference.
VEXITimeAnalysisRepReference_var AnalysisOfOperation(const KORBaseUnknown_var& operation);

/// The time analysis under the operation of an occurrence: null for null and for an object that is no occurrence.
/// Statuses are not looked at.
VEXITimeAnalysisRepReference_var AnalysisOfOccurrence(const KORBaseUnknown_var& occurrence);

/// The time analysis of a representation instance: null for null, for an object that is no representation instance or
/// stands for something else, and if GetRepReference fails.
VEXITimeAnalysisRepReference_var AnalysisOfRepInstance(const KORBaseUnknown_var& instance);

/// Fills `instances` with the representation instances of the first time analysis of each occurrence. An occurrence
/// that has none, or from which a step of the way to its operation fails, is passed over. S_OK; E_FAIL if the list is
/// empty.
long ListAnalysisInstances(const KORListValKORBaseUnknown_var& occurrences, KORListValKORBaseUnknown_var& instances);

}  // namespace objects
