// One parameter of a formula on an analysis line, and who frees it.
#pragma once

#include "platform/base/KORExport.h"
#include "platform/base/KORUnicodeString.h"

/// A place in a ring of parameters that belong to the same record.
class KORPLATFORM_API KORParameterLink {
 public:
  KORParameterLink() = default;
  KORParameterLink(const KORParameterLink& /*other*/) {}
  // The place in the ring stays.
  KORParameterLink& operator=(const KORParameterLink& /*other*/) {  // NOLINT(bugprone-unhandled-self-assignment)
    return *this;
  }

 protected:
  ~KORParameterLink() { Leave(); }

 private:
  friend class KORHeldParameters;

  void Leave();
  void Join(KORParameterLink& ring);

  KORParameterLink* _Next = this;
  KORParameterLink* _Previous = this;
};

/// One parameter of a formula on a line. All parameters of one formula on one row share the owner, its row, the
/// signature and the body, and stand in the list of the line in the order of the formula's arguments.
///
/// Every parameter is a heap block of its own (new). One that is put into a line record belongs to that record from
/// then on; see VEXTimeAnalysisLineData. Deleting it by hand before that record does is allowed: the record learns of
/// it. A copy carries the values and belongs to nobody.
class KORPLATFORM_API VEXTimeAnalysisFormulaParameter : public KORParameterLink {
 public:
  int _ParameterKind = 0;  // 4 and 7 shift the row that _OwnerRow names; any other value leaves it as it is
  KORUnicodeString _ValueText;
  KORUnicodeString _ParameterName;
  KORUnicodeString _Signature;   // text of the formula's arguments
  KORUnicodeString _Body;        // text of the formula itself
  KORUnicodeString _ValueType;   // "Integer", "Real", "String", or the name of a magnitude, as "Time"
  KORUnicodeString _OwnerPLMId;  // "PLM_ExternalID" of the analysis that owns the formula
  KORUnicodeString _OwnerRow;    // row of the formula in that analysis, from 1, as decimal text

  /// True if all fields are equal, whoever the parameters belong to.
  bool HasSameValues(const VEXTimeAnalysisFormulaParameter& other) const;
};

/// The parameters that belong to one record; freed with it, or earlier by Clear. Parameters that were deleted meanwhile
/// or put into another record are no longer among them.
class KORPLATFORM_API KORHeldParameters {
 public:
  KORHeldParameters() = default;
  KORHeldParameters(const KORHeldParameters&) = delete;
  KORHeldParameters& operator=(const KORHeldParameters&) = delete;
  ~KORHeldParameters() { Clear(); }

  /// Takes the parameter over, from its holder before or from nobody.
  void Take(VEXTimeAnalysisFormulaParameter& parameter) { static_cast<KORParameterLink&>(parameter).Join(_Ring); }
  void Clear();

 private:
  class Ring : public KORParameterLink {};
  Ring _Ring;
};
