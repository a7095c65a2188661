// What is done to analyses as a whole: their applicative container, their migration, and the analyses that reuse them.
#pragma once

#include "VEXTimeAnalysisModelerExport.h"
#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORHashObject.h"
#include "platform/base/KORList.h"
#include "platform/base/KORObjectLists.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/model/KORIContainer.h"
#include "platform/model/KORPLMComponent.h"
#include "platform/services/KOROmbLifeCycleRootsBag.h"

/// All operations are static; an object of the class holds nothing.
///
/// Threads: an operation runs on the thread of its caller, which is that of the session and of its objects. Distinct
/// sessions may be served on distinct threads at once.
class VEXTIMEANALYSISMODELER_API VEXSTTApplicativeContainerServices : public KORBaseUnknown {
 public:
  // ------------------------------------------------------------------------------------------- Applicative container

  /// Makes the container "VEXTimeAnalysisCont" in a representation reference. Whether there is one already is not
  /// looked at: the platform answers for a second one.
  ///
  /// container  [out] left as it was if there is none
  /// The status of the platform; E_INVALIDARG for null; E_FAIL for an object that holds no applicative data.
  static long Create(const KORBaseUnknown_var& representation, KORIContainer_var& container);

  /// Finds that container; statuses as above. `container` is null on a success without one.
  static long Retrieve(const KORBaseUnknown_var& representation, KORIContainer_var& container);

  // ------------------------------------------------------------------------------------------- Migration

  /// Moves analyses whose motion-time system stands in the older attribute to the present one: where "Subsystem" is
  /// "MODAPTS" and "V_Subsystem" is "GTE", "V_Subsystem" becomes "MODAPTS" and "Subsystem" empty. Saves every analysis
  /// whose "Subsystem" was "MODAPTS", changed or not, all at once; also if there is none.
  ///
  /// bag  keeps the analyses alive
  /// The status of the last "Subsystem" that was written; of the query for the analyses if none was. Whether the saving
  /// worked is not told.
  static long MigrateSUBSYSTEM_to_MODAPTS(KOROmbLifeCycleRootsBag& bag);

  /// The exchange stream that a legacy representation carries as a file; in a session that is captured or replayed a
  /// fixed stream instead, for an analysis whose "V_Subsystem" is "STD".
  ///
  /// stream  [out] the text of the file, up to a first NUL if it has one; what could be read of it if the reading
  ///         failed. Left as it was if the file is empty, cannot be opened or has more than 1 GiB, and for other
  ///         systems in a captured or replayed session
  ///
  /// The status of the last file operation, E_FAIL for a file of more than 1 GiB; of the path, if there is none; of
  /// asking for PLMIRepReferenceNonZENTADataAccess, if that fails; in a captured or replayed session of reading the
  /// system. A null handle raises the null-handle error; in a captured or replayed session so does an object without
  /// VEXITimeAnalysisProperties.
  static long RetrieveDBDIStream(const KORBaseUnknown_var& representation, KORUnicodeString& stream);

  // ------------------------------------------------------------------------------------------- Analyses that reuse

  /// Carries the change of an analysis to all analyses above it, those that reuse it and those that reuse these: each
  /// line that reuses a changed analysis gets its parameters and its time, and each analysis its totals, the lower ones
  /// first. All are saved once, at the end.
  ///
  /// changed       the analysis that has changed; nothing is updated for null and for one that nothing reuses
  /// bag           keeps the analyses alive that are searched for reuses
  /// unused        not looked at
  /// all_analyses  [in, out] to be passed empty: it is filled with all analyses that can be reached. With a list that
  ///               is not empty nothing happens
  ///
  /// S_OK if nothing reuses the analysis; else the status of the last step that listed the analyses and their reuses.
  /// A calculation or a saving that fails is not told. An analysis without a table of lines or without attributes
  /// raises the null-handle error where a line reuses it, and so does one without properties that reuses it; nothing is
  /// saved then.
  ///
  /// The climb goes up every way there is, depth first, as UpdateTemplateToImapctedTA does, and ends on a way where it
  /// meets an analysis that is already on that way: that one is not climbed to again. What is saved has one entry for
  /// each line at each visit.
  ///
  /// Where there are so many ways that lines would be rewritten more than a few times each, every analysis is brought
  /// up to date once instead, behind all that it reuses: the same lines and totals in time proportional to the lines,
  /// and one entry for each line in what is saved. Two things depend on the number of visits and are those of one visit
  /// then: a circle of reuses, whose lines take over what the lines below had at the visit, and parameters of a changed
  /// analysis that bear the identifier of the one that reuses it, as where both have the same: such a line keeps them
  /// as its own, and gets them once more at each visit.
  static long UpdateModificationsTOAllImpactedTimeAnalysis(KORBaseUnknown_var changed, KOROmbLifeCycleRootsBag& bag,
                                                           KORListValKORBaseUnknown_var& unused,
                                                           KORListValKORBaseUnknown_var& all_analyses);

  /// Brings one analysis up to date with an analysis that it reuses, and then all above it.
  ///
  /// changed       the analysis that is reused
  /// impacted      the analysis that reuses it
  /// reuses        who reuses what: by implementation of the reused analysis a list (KORRawCollPV) of the reusing ones,
  ///               one entry for each line, without references of this operation; null: nobody is climbed to
  /// components    is appended to: one entry, with a reference that the caller releases, for each line rewritten
  ///
  /// In each line of `impacted` that reuses `changed`, "FormulaParameter" becomes the parameters of all lines of
  /// `changed`, followed by those of the line that `impacted` owns itself (_OwnerPLMId is its "PLM_ExternalID"), and
  /// "TTBTime" and "TotalTime" the total and the setup time of `changed`, in seconds, rounded to 6 decimals. An
  /// analysis with such a line is calculated anew. The climb then goes on to each entry of its list in `reuses`,
  /// whether a line was rewritten or not, but for an analysis that is on the way from `changed` to there: it is not
  /// climbed again, so that a circle of reuses ends. A climb may be of any height.
  ///
  /// S_OK; nothing happens for null. If `changed` has no table of lines or no attributes, or `impacted` no properties,
  /// the null-handle error is raised at the first line that reuses it; the entries in `components` until then stay.
  static long UpdateTemplateToImapctedTA(KORBaseUnknown_var changed, KORBaseUnknown_var impacted,
                                         KORHashObject*& reuses, KORListPtrKORIPLMComponent& components);

  /// Lists what the lines below an analysis take the identifiers of the analyses that they reuse for, and what those
  /// are now; lines whose "Code" is out of date get the present one. "*" stays: there the present identifier stands on
  /// both sides. All levels are listed, depth first; an analysis that is met again on its own way down is listed and
  /// not entered. One that stands below on several ways is listed on each of them.
  ///
  /// old_identifiers, new_identifiers  are appended to, one pair for each line that reuses an analysis
  /// S_OK; E_FAIL for null and for an object that is no time analysis.
  static long GetOldAndNewPLMIDs(KORBaseUnknown_var& analysis, KORListValKORUnicodeString& old_identifiers,
                                 KORListValKORUnicodeString& new_identifiers);

  /// Gives the formula parameters in an analysis their present owners: an owner that stands in the old list becomes the
  /// entry at the same position of the new one; any other becomes the analysis itself. Only this analysis is changed.
  ///
  /// new_identifiers  a position that it does not have stands for no change
  /// S_OK, also for an analysis without lines; E_FAIL for null and for an object that is no time analysis.
  static long UpdatePLMIDsOfTimeAnalysisRepRef(KORBaseUnknown_var& analysis,
                                               KORListValKORUnicodeString& old_identifiers,
                                               KORListValKORUnicodeString& new_identifiers);

  /// Releases the objects in the lists (KORRawCollPV) that stand as values in a table, null entries left out, frees the
  /// table and sets the pointer to null. The lists themselves stay the caller's. S_OK; E_INVALIDARG for null.
  static long CleanHashObjectWithListValues(KORHashObject*& table);
};
