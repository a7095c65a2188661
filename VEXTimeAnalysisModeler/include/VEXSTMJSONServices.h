// JSON copies of time analyses, each a stream on its analysis, in the shape that two template files give.
//
// The templates lie in the folder "JSONTemplates" below one of the folders of "KORStartupPath":
//
//   TAComplete_Template.JSON         the whole file. At its top an object; in it, under "TAATTRIBUTES", an object whose
//                                    keys are attributes of the analysis (VEXITimeAnalysisRepReference), and under
//                                    "TALINESDETAILS" an array for the lines. All else comes out as it stands there.
//   TALineAttributes_Template.JSON   one line: an object whose keys are those of VEXTimeAnalysisLineData
//
// A key of TAATTRIBUTES and of the line template has an example beside it, which tells the type of its values. An
// example of the four types is never exported itself:
//
//   example             values                                                a value of another type, or none, gives
//   false, true         booleans                                              false
//   0.0, 1.5, 2e0       reals, with as many digits as read back bit for bit   0.0
//   0, 1, -3            integers of 32 bits                                   0
//   "", "text"          texts                                                 ""
//   null, {...}, [...]  none: what stands in the template is exported
//
// So 2.5 under a key whose example is 0 comes out as 0, and as 2.5 if the example is 0.0. "TimeAnalysis" and
// "FormulaParameter" of a line have no JSON value. NaN and the infinities are written as null.
//
// Lines take the places of the first elements of the array in the template; elements beyond the lines stay, and so an
// analysis without lines has the array as it stands in the template.
//
// Templates are data of the installation. One that is missing, longer than 16 MiB, nested deeper than 1,000 levels, no
// JSON or no object counts as an object without keys. If TAATTRIBUTES is missing or no object, its object has no keys;
// if TALINESDETAILS is missing or no array, its array holds the lines alone. Letters of a template that is no UTF-8 as
// a whole are read as Windows-1252.
#pragma once

#include "VEXTimeAnalysisModelerExport.h"
#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORObjectLists.h"
#include "platform/base/KORStatus.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/document/KOROmxJson.h"
#include "platform/model/VEXITimeAnalysisRepReference.h"
#include "platform/model/VEXTimeAnalysisLineData.h"

/// JSON export of time analyses. All service operations are static; an object of the class holds nothing.
///
/// Threads: an operation runs on the thread of its caller, which is that of the analysis. Distinct analyses may be
/// exported on distinct threads at once; those of one identifier, and those without one, share the name of their file
/// and then need folders of their own.
class VEXTIMEANALYSISMODELER_API VEXSTMJSONServices : public KORBaseUnknown {
 public:
  VEXSTMJSONServices() = default;
  VEXSTMJSONServices(const VEXSTMJSONServices&) = delete;
  VEXSTMJSONServices& operator=(const VEXSTMJSONServices&) = delete;
  ~VEXSTMJSONServices() override = default;

  const KORMetaClass* GetMetaObject() const override { return MetaObject(); }
  const char* IsA() const override { return ClassName(); }
  int IsAKindOf(const char* name) const override { return GetMetaObject()->IsAKindOf(name) ? 1 : 0; }
  static const char* ClassName() { return MetaObject()->Name; }
  static const KORUuid& ClassId() { return MetaObject()->Identifier; }
  static const KORMetaClass* MetaObject();
  /// A new object with one reference, which is the caller's.
  static VEXSTMJSONServices* CreateItself();

  /// Gives each analysis of a list a JSON stream of its attributes and lines, unless it has one: a JSON stream is never
  /// written anew, whatever has become of the analysis. (A picture that was added as "grip.JSON" is one, too.) The
  /// templates are read once for all analyses of the list.
  ///
  /// Returns the status that CreateStreamDiscriptorOnTA_FromJSON gave for the last analysis for which it was called; an
  /// earlier failure does not show in it and does not end the walk. S_OK if it was called for none, as for an empty
  /// list and where all analyses have a JSON stream. For an object without a line table, what stands under
  /// TALINESDETAILS stays.
  ///
  /// What an analysis does not have, and what is wrong with a template, is no failure; see above what comes out then.
  static long CreateAndUpdateJSONOnTA(KORListValKORBaseUnknown_var& analyses);

  /// Writes a document to a file and adds that to an analysis, as a stream of the format "JSON" that is called like the
  /// analysis ("PLM_ExternalID").
  ///
  /// json      the document; left as it is
  /// analysis  the analysis
  ///
  /// The file is called like the analysis, with ".JSON" behind it, and lies in the folder of the environment variable
  /// "KORTemp", or of "QRN_TVS_TMP" while the session is captured or replayed; for an identifier with "/" in a folder
  /// below, which has to be there. A file of that name is replaced. It stays there, also if it cannot be added to the
  /// analysis.
  ///
  ///   S_OK          the stream is on the analysis; one of the same format and name is replaced
  ///   E_INVALIDARG  no path can be had (KORMakePath), nothing is written: the analysis is null or has no properties,
  ///                 the variable is not set, or the identifier leads out of the folder, holds a control character,
  ///                 or is too long
  ///   E_FAIL        the file cannot be written, as into a folder that is not there or on a full disk, or cannot be
  ///                 added
  /// A file that cannot be written whole is not left behind, and never added.
  static long CreateStreamDiscriptorOnTA_FromJSON(KOROmxJsonObject& json, VEXITimeAnalysisRepReference_var analysis);

  /// Makes the JSON object of one line by the line template, which is read from its file in each call. S_OK always.
  ///
  /// object  [out] replaced; without keys if there is no usable template
  static long CreateTALineJSONObject(const VEXTimeAnalysisLineData& line, KOROmxJsonObject& object);

  /// Finds a template by its name. S_OK always; `path` is empty if there is no such file.
  static long GetTemplateJSONFilaPath(const KORUnicodeString& name, KORUnicodeString& path);

  /// 1 if the analysis has a stream of the format "JSON", else 0, also for null.
  static unsigned char IsJSONFileExistsOnTA(KORBaseUnknown_var& analysis);
};
