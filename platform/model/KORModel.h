// The model of a session: the analyses and operations that were made in it.
#pragma once

#include <vector>

#include "platform/base/KORExport.h"
#include "platform/model/KOROperation.h"
#include "platform/model/KORRepReference.h"
#include "platform/model/VEXTimeAnalysisRepReference.h"

/// The part of a session that makes the objects of the product structure and keeps them alive.
///
/// At its end it takes the lines off the analyses that it made, so that analyses which reuse each other in a circle are
/// freed. Who still holds an object then keeps it, an analysis without its lines. A model serves the thread of its
/// session.
class KORPLATFORM_API KORModel {
 public:
  KORModel() = default;
  KORModel(const KORModel&) = delete;
  KORModel& operator=(const KORModel&) = delete;
  ~KORModel();

  /// The model of the current session; owned by the session.
  static KORModel& Current();

  /// Each makes a new object with that "PLM_ExternalID", which need not be the only one with it.
  KORHandle<VEXTimeAnalysisRepReference> CreateTimeAnalysis(const KORUnicodeString& identifier);
  /// A representation reference of another kind than a time analysis.
  KORHandle<KORRepReference> CreateOtherRepReference(const KORUnicodeString& identifier);
  KORHandle<KOROperationReference> CreateOperation(const KORUnicodeString& identifier);

  /// Makes a new instance of an operation and a new occurrence of that, which stands for the operation in the product
  /// structure. `operation` is not null.
  KORHandle<KOROperationOccurrence> CreateOccurrence(const KORIPLMNavReference_var& operation);

  /// What the model made, in the order of making.
  const std::vector<KORHandle<VEXTimeAnalysisRepReference>>& GetTimeAnalyses() const { return _TimeAnalyses; }
  const std::vector<KORHandle<KORRepReference>>& GetOtherRepReferences() const { return _OtherRepReferences; }
  const std::vector<KORHandle<KOROperationReference>>& GetOperations() const { return _Operations; }
  const std::vector<KORHandle<KOROperationOccurrence>>& GetOccurrences() const { return _Occurrences; }

 private:
  std::vector<KORHandle<VEXTimeAnalysisRepReference>> _TimeAnalyses;
  std::vector<KORHandle<KORRepReference>> _OtherRepReferences;
  std::vector<KORHandle<KOROperationReference>> _Operations;
  std::vector<KORHandle<KOROperationOccurrence>> _Occurrences;
};
