// The table of kept components, by text key.
#pragma once

#include <mutex>
#include <vector>

#include "VEXITimeAnalysisSessionServicesMgr.h"
#include "platform/base/KORHashDico.h"
#include "platform/model/KORPLMComponent.h"

/// Keeps the identificators of components. The component of this name is registered when the library is loaded, and
/// makes an empty table.
class VEXETimeAnalysisSessionServicesMgr final : public KORImplements<VEXITimeAnalysisSessionServicesMgr> {
 public:
  VEXETimeAnalysisSessionServicesMgr() = default;
  VEXETimeAnalysisSessionServicesMgr(const VEXETimeAnalysisSessionServicesMgr&) = delete;
  VEXETimeAnalysisSessionServicesMgr& operator=(const VEXETimeAnalysisSessionServicesMgr&) = delete;
  ~VEXETimeAnalysisSessionServicesMgr() override;

  static const char* ClassName() { return MetaObject()->Name; }
  static const KORUuid& ClassId() { return MetaObject()->Identifier; }
  static const KORMetaClass* MetaObject();
  const KORMetaClass* GetMetaObject() const override { return MetaObject(); }
  const char* GetComponentName() const override { return ClassName(); }

  long IsComponentKept(const KORUnicodeString& key, unsigned char& kept) override;
  long GetKeptComponent(const KORUnicodeString& key, KORBaseUnknown*& component) override;
  long KeepComponent(const KORUnicodeString& key, KORBaseUnknown* component) override;
  long ForgetComponent(const KORUnicodeString& key) override;
  long GetAllKeptComponents(KORListValKORBaseUnknown_var& components) override;

 private:
  KORIAdpPLMIdentificator_var Find(const KORUnicodeString& key) const;
  std::vector<KORIAdpPLMIdentificator_var> All() const;

  mutable std::mutex _Mutex;    // guards the table
  KORHashDico _Components{10};  // values: KORIAdpPLMIdentificator*, each with a reference
};
