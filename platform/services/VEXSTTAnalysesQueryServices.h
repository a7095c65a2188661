// Looks time analyses up by their attributes.
#pragma once

#include <utility>
#include <vector>

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORExport.h"
#include "platform/base/KORObjectLists.h"
#include "platform/base/KORString.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/services/KOROmbLifeCycleRootsBag.h"

/// Attributes and the values that an object has to have in them.
class KORPLATFORM_API VEXSTTAdpIdentificationSet {
 public:
  /// Adds a pair. Of two pairs with the same name both have to hold. S_OK; the set is left as it was on
  /// failure.
  long AddAttribute(const KORString& name, const KORUnicodeString& value);

  const std::vector<std::pair<KORString, KORUnicodeString>>& GetAttributes() const { return _Attributes; }

 private:
  std::vector<std::pair<KORString, KORUnicodeString>> _Attributes;
};

struct KORPLATFORM_API VEXSTTAnalysesQueryServices {
  /// Finds a time analysis of the current session: the first one made (KORModel) whose text attributes have the values
  /// of the set. An attribute that is not set has no value, not the empty one.
  ///
  /// element  [out] the analysis, with a reference that the caller releases; null on failure
  /// S_OK; E_INVALIDARG for an empty set; E_FAIL if there is none.
  static long GetElementByIdentificationSet(const VEXSTTAdpIdentificationSet& set, KORBaseUnknown*& element);

  /// Finds all of them: fills `elements` with the analyses whose attributes have the values of the set, in the order in
  /// which they were made. S_OK, also if there is none; E_INVALIDARG, with an empty list, for an empty set.
  ///
  /// bag  keeps the analyses alive
  static long GetElementsFromAttributes(const VEXSTTAdpIdentificationSet& set, KORListValKORBaseUnknown_var& elements,
                                        KOROmbLifeCycleRootsBag& bag);

  /// Fills `analyses` with all time analyses of the current session, in the order in which they were made, and what
  /// else it reaches (KORReachedObjects) behind them. S_OK; the list is empty on failure.
  ///
  /// bag  keeps the analyses alive
  static long GetAllTimeAnalysis(KORListValKORBaseUnknown_var& analyses, KOROmbLifeCycleRootsBag& bag);
};

/// Objects of another origin than the session's model that a query for all time analyses reaches, too. Whoever asks
/// does not know of what kind they are. A part of the session.
class KORPLATFORM_API KORReachedObjects {
 public:
  /// Those of the current session; owned by it.
  static KORReachedObjects& Current();

  void Add(const KORBaseUnknown_var& object) { _Objects.Append(object); }
  const KORListValKORBaseUnknown_var& GetAll() const { return _Objects; }

 private:
  KORListValKORBaseUnknown_var _Objects;
};
