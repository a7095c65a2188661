// Time analyses under operations: made, attached, found, removed; whether they are the last revision and who has
// reserved them.
//
//   occurrence of an operation -> instance -> operation reference -> representation instances -> representation
//   reference, which is a time analysis if it offers VEXITimeAnalysisRepReference
//
// An operation has one time analysis. Where it has several, the first one in the order of its representation instances
// is the one that counts; representations of other kinds are passed over.
#pragma once

#include "VEXITimeAnalysisSessionServicesMgr.h"
#include "VEXTimeAnalysisModelerExport.h"
#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORList.h"
#include "platform/base/KORObjectLists.h"
#include "platform/base/KORString.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/knowledge/KORICkeParm.h"
#include "platform/model/KORIInstance.h"
#include "platform/model/KORPLMComponent.h"
#include "platform/model/VEXITimeAnalysisRepReference.h"
#include "platform/services/PLMIRepresentationReferenceFactory.h"

/// Provides the time analyses of operations. All operations are static; an object of the class holds nothing.
///
/// Nothing here saves, writes messages or traces. An out argument is left as it was on failure, unless its operation
/// tells otherwise. Handles are taken by value where the caller's stay untouched.
///
/// Threads: an operation runs on the thread of its caller, which is that of the session and of its objects. Distinct
/// sessions may be served on distinct threads at once.
class VEXTIMEANALYSISMODELER_API VEXSTTProvider : public KORBaseUnknown {
 public:
  VEXSTTProvider() = default;
  VEXSTTProvider(const VEXSTTProvider&) = default;
  VEXSTTProvider& operator=(const VEXSTTProvider&) = default;
  /// Lets go of the factory that GetRepRefFactory keeps for the process; the next call fetches a new one.
  ~VEXSTTProvider() override;

  // ------------------------------------------------------------------------------------------- Making and finding

  /// Makes a time analysis in the session, attached to nothing.
  ///
  /// representation       [out] the new analysis
  /// writable_attributes  not used: only those of the next argument reach the new analysis
  /// creation_attributes  are set on the new analysis
  /// proxy                the values that the new analysis starts with, or null
  ///
  /// Returns the status of the last step taken: of the factory of the type "TimeAnalysis", of the knowledge type, of
  /// the making, and with a proxy of the filling. Success without a new analysis, if the factory, or session helpers,
  /// environment or type cannot be had though no status says so. A failing fill leaves `representation` filled.
  static long CreateNewFactoryRepRef(KORBaseUnknown_var& representation, KORListValKORICkeParm_var writable_attributes,
                                     KORListValKORICkeParm_var creation_attributes, KORIInstance_var proxy);

  /// Finds the time analysis under an operation reference. S_OK; E_FAIL if there is none, for null, and for an object
  /// that is no operation reference.
  static long CheckExsistingRepRef(KORBaseUnknown_var operation, KORBaseUnknown_var& analysis);

  /// Adds an instance of a representation under an operation reference. The status of the adding; E_FAIL for a null
  /// operation, for an object that is no operation reference, and without session helpers or environment.
  static long InstanciateNewRepRef(KORBaseUnknown_var operation, KORBaseUnknown_var representation);

  /// Takes the instance of the time analysis away from under an operation reference; the analysis itself stays. S_OK,
  /// also if the platform refused to; E_FAIL for null and if there is no time analysis. An object that is no operation
  /// reference raises the null-handle error.
  static long RemoveRepRef(KORBaseUnknown_var operation);

  /// Opens a component in the session.
  ///
  /// analysis  [out] the time analysis that was opened; null if it is none
  ///
  /// S_OK; E_FAIL for null. The status of the opening service or of the opening if that fails or opens to none or to
  /// several, with `analysis` left as it was. For an object opened that is no time analysis the status of asking it for
  /// KORIPLMComponent: S_OK for another component.
  static long GetTARepRefFromPLMComponent(KORIPLMComponent* component, VEXITimeAnalysisRepReference_var& analysis);

  /// The time analysis under the operation of an occurrence; null for null, for an object that is no occurrence, and if
  /// there is none.
  static VEXITimeAnalysisRepReference_var GetTimeAnalysisFromOperation(KORBaseUnknown_var occurrence);

  /// The time analysis of a representation instance. 1; 0 if it is none.
  ///
  /// analysis  [out] with no reference added: it lives as long as the analysis does
  static unsigned char GetTimeAnalysisReferenceFromInstance(KORBaseUnknown_var instance, KORBaseUnknown*& analysis);
  static unsigned char GetTimeAnalysisReferenceFromInstance(KORBaseUnknown_var instance, KORBaseUnknown_var& analysis);

  /// Fills `reused` with the analyses that the lines of an analysis reuse, row by row: one that is reused on several
  /// rows stands there as often. What those reuse in turn is not among them. S_OK, also for null and for an object
  /// without lines, with an empty list.
  static long GetAllInsertedTARepRef(const VEXITimeAnalysisRepReference_var& analysis,
                                     KORListValKORBaseUnknown_var& reused);

  /// Fills `instances` with the representation instances of the time analyses of operations, in the order of the
  /// occurrences; those that have none are passed over, so that positions need not agree. S_OK; E_FAIL if the list is
  /// empty.
  static long GetAllTARepInstancesFromOpeOcc(const KORListValKORBaseUnknown_var& occurrences,
                                             KORListValKORBaseUnknown_var& instances);

  // ------------------------------------------------------------------------------------------- Services of the process

  /// The factory of time analyses, fetched once for the process.
  ///
  /// factory  [out] with a reference that the caller releases; null on failure
  /// S_OK; E_FAIL if it cannot be had.
  static long GetRepRefFactory(PLMIRepresentationReferenceFactory*& factory);

  /// The table of kept components, made once for the process; `manager` and statuses as above.
  static long GetSessionServicesMgr(VEXITimeAnalysisSessionServicesMgr*& manager);

  // ------------------------------------------------------------------------------------------- What commands show

  /// Sorts the attributes of a representation that is being edited: those changed so far, and "V_Direction",
  /// "V_Category", "V_discipline" and "V_nature", as far as it has them. The four are not writable, the others as their
  /// type tells; those that the type does not know are left out. S_OK; E_FAIL for null.
  ///
  /// model                   a KORPLMMetaDataFrameModel; any other object has no attributes
  /// writable, not_writable  are appended to
  static long GetCkeParameters(const KORBaseUnknown* model, KORListValKORICkeParm_var& writable,
                               KORListValKORICkeParm_var& not_writable);

  /// The state of the colour filter of the current window. The status of the window; E_FAIL if there is none, or one
  /// without a colour filter.
  static long GetBIInfo(unsigned char& active, KORUnicodeString& name);

  /// The five integers for a value of the colour filter under the quadrant openness in force. The status of the
  /// openness, if that fails or there is none in force; else of the look-up. E_FAIL without a manager of openness, a
  /// window, or a colour filter in it.
  static long GetColorForBIFilter(const KORString& filter, const KORUnicodeString& attribute, const KORString& text,
                                  int& first, int& second, int& third, int& fourth, int& fifth);

  // ------------------------------------------------------------------------------------------- Reservation

  enum TALockStatus {
    TANotLocked = 1,   // not reserved, or the reservation could not be read
    TALockByMe = 2,    // reserved by the user that was asked about
    TANotLockByMe = 3  // reserved by another user
  };

  /// Whether a representation instance is reserved, and by whom.
  ///
  /// status  [out] TANotLocked unless the result is S_OK
  /// user    empty: the current user
  /// S_OK if it is reserved; S_FALSE if it is not, and if its reservation cannot be read; E_INVALIDARG for an object
  /// that is no representation instance or has no attributes.
  static long GetLockedStatusofTimeAnalysisRepInst(KORBaseUnknown_var instance, TALockStatus& status,
                                                   KORUnicodeString user);

  /// The same for the time analysis that a representation instance stands for. The argument is the instance, too: for
  /// the analysis itself, and for an instance of something else, the result is E_INVALIDARG.
  static long GetLockedStatusofTimeAnalysisRepRef(KORBaseUnknown_var instance, TALockStatus& status,
                                                  KORUnicodeString user);

  // ------------------------------------------------------------------------------------------- Revision

  /// The status of an analysis and of what its lines reuse; what those reuse in turn does not count. Any other number
  /// that was remembered on an analysis comes out as it is.
  enum TARevStatus : int {
    TARevUnknown = 0,         // not worked out
    TARevLatest = 1,          // the last major revision, and so is all that it reuses
    TARevNotLatest = 2,       // not the last major revision
    TARevReusedNotLatest = 3  // the last major revision, but something that it reuses is not
  };

  /// 1 if the database says that the analysis is its last major revision, and also if the database cannot be asked and
  /// gives nothing; 0 otherwise, for null, for an object without identificator, and for one that the database does not
  /// know.
  static unsigned char IsTARevLatest(const VEXITimeAnalysisRepReference_var& analysis);

  /// Asks the database for the status, with one query for the analysis and one for each that it reuses up to the first
  /// that is not the last revision. S_OK; E_FAIL for null.
  static long GetTARevStatusFromDB(const VEXITimeAnalysisRepReference_var& analysis, TARevStatus& status);

  /// The status that is remembered on the analysis; as long as none is, that of GetTARevStatusFromDB, which is then
  /// remembered. S_OK; E_FAIL for null. An analysis without VEXITimeAnalysisRevisionCache raises the null-handle error.
  static long GetTARevStatus(const VEXITimeAnalysisRepReference_var& analysis, TARevStatus& status);

  /// The instances of GetAllTARepInstancesFromOpeOcc with the status of each, by a single query to the database.
  /// Nothing is remembered on the analyses.
  ///
  /// statuses  is appended to: one status for each instance, TARevUnknown if the database does not know the analysis
  ///
  /// The status of GetAllTARepInstancesFromOpeOcc; E_FAIL if there is no instance, and if `statuses` did not come
  /// empty: the statuses then stand in its first positions, and do not line up with the instances.
  static long GetAllTARepInstancesFromOpeOccWithRevStatus(const KORListValKORBaseUnknown_var& occurrences,
                                                          KORListValKORBaseUnknown_var& instances,
                                                          KORRawCollint& statuses);

  /// The same by GetTARevStatus, analysis by analysis; one that the database does not know is TARevNotLatest. Each
  /// status is appended; an instance whose analysis can no longer be reached has none, and the result is E_FAIL then.
  /// An analysis without VEXITimeAnalysisRevisionCache raises the null-handle error.
  static long GetAllTARepInstancesFromOpeOccWithRevStatus_Cache(const KORListValKORBaseUnknown_var& occurrences,
                                                                KORListValKORBaseUnknown_var& instances,
                                                                KORRawCollint& statuses);
};
