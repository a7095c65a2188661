// Features in the applicative container of a time analysis: made, found by name, inspected.
#pragma once

#include "VEXTimeAnalysisModelerExport.h"
#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/model/KORIContainer.h"

/// All operations are static; an object of the class holds nothing.
///
/// Threads: an operation runs on the thread of its caller, which is that of the container. Distinct containers may be
/// used on distinct threads at once.
class VEXTIMEANALYSISMODELER_API VEXSTTApplicativeContainerFeatServices : public KORBaseUnknown {
 public:
  /// Makes a feature in a container.
  ///
  /// name     any text; it is the platform that refuses an empty one
  /// feature  [out] the new feature; left as it was on failure
  /// The status of the platform, with the line "Failed to create feature <NAME>." in the trace on failure;
  /// E_INVALIDARG for a null container.
  static long Create(const KORUnicodeString& name, const KORIContainer_var& container, KORISpecObject_var& feature);

  /// Finds a feature by its exact name; the first one of several in the order of the container. S_OK; S_FALSE if there
  /// is none, with `feature` left as it was; E_INVALIDARG for a null container; E_FAIL if the platform raises an error
  /// (KORError) while it lists the members. An error of another kind is raised again.
  static long Retrieve(const KORUnicodeString& name, const KORIContainer_var& container, KORISpecObject_var& feature);

  /// Fills `names` with the names of the attributes of a feature. S_OK; E_NOINTERFACE for null and for an object
  /// without KORISpecAttrAccess; E_FAIL if the feature gives no list; `names` is left as it was then.
  static long ListAttrNames(KORBaseUnknown_var feature, KORListValKORUnicodeString& names);
};
