// The table in which commands keep components for the length of a session.
#pragma once

#include "VEXTimeAnalysisModelerExport.h"
#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORObjectLists.h"
#include "platform/base/KORUnicodeString.h"

/// Remembers components under keys, without keeping them alive: it holds their identificators and resolves them when it
/// is asked. A key stands once; the first component under it stays until it is forgotten.
/// VEXSTTProvider::GetSessionServicesMgr gives the one of the process.
///
/// Threads: the table is guarded. A component is to be asked for on the thread of its own session; who asks for all of
/// them asks for those of every session.
class VEXTIMEANALYSISMODELER_API VEXITimeAnalysisSessionServicesMgr
    : public KORInterface<VEXITimeAnalysisSessionServicesMgr> {
 public:
  static constexpr const char* InterfaceName = "VEXITimeAnalysisSessionServicesMgr";

  VEXITimeAnalysisSessionServicesMgr() = default;
  VEXITimeAnalysisSessionServicesMgr(const VEXITimeAnalysisSessionServicesMgr&) = default;
  VEXITimeAnalysisSessionServicesMgr& operator=(const VEXITimeAnalysisSessionServicesMgr&) = default;
  ~VEXITimeAnalysisSessionServicesMgr() override = default;

  static const char* ClassName() { return MetaObject()->Name; }
  /// {CB23099A-6091-46A8-8823-005B60655ECA}
  static const KORUuid& ClassId() { return MetaObject()->Identifier; }
  static const KORMetaClass* MetaObject();

  /// kept  [out] 1 if the key is known, else 0
  /// S_OK.
  virtual long IsComponentKept(const KORUnicodeString& key, unsigned char& kept) = 0;

  /// component  [out] the component under the key, with a reference that the caller releases; null on failure
  /// The status of its resolution, a failure if it lives no more; S_FALSE if the key is unknown; E_FAIL if there is no
  /// space to resolve it in.
  virtual long GetKeptComponent(const KORUnicodeString& key, KORBaseUnknown*& component) = 0;

  /// S_OK, also if the key is known already, with what stands under it left alone; S_FALSE if the object is no
  /// component or has no identificator; E_INVALIDARG for null.
  virtual long KeepComponent(const KORUnicodeString& key, KORBaseUnknown* component) = 0;

  /// S_OK, also if the key is unknown.
  virtual long ForgetComponent(const KORUnicodeString& key) = 0;

  /// Appends all kept components that live, in the order in which they were kept. The status of the last resolution;
  /// E_FAIL if no key is known. Without a space to resolve in, the status of that, with what was appended by then.
  virtual long GetAllKeptComponents(KORListValKORBaseUnknown_var& components) = 0;
};
using VEXITimeAnalysisSessionServicesMgr_var = KORHandle<VEXITimeAnalysisSessionServicesMgr>;
