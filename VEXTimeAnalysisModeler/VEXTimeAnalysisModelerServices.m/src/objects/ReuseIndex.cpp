// Who reuses what: the reverse of what the lines of analyses tell.
#include "objects/ReuseIndex.h"

#include <new>

#include "calculation/LineKeys.h"
#include "platform/base/KORFatalError.h"
#include "platform/base/KORStatus.h"
#include "platform/model/VEXITimeAnalysisLines.h"
#include "platform/model/VEXITimeAnalysisRepReference.h"

namespace objects {

namespace {

constexpr int InitialSize = 200;

// What the end of the process names as its place.
constexpr const char* SourceName =
    "VEXTimeAnalysisModeler/VEXTimeAnalysisModelerServices.m/src/VEXSTTApplicativeContainerServices";
constexpr int SourceLine = 492;

}  // namespace

KORRawCollPV& ExistingReusedIn(KORRawCollPV* reused_in) {
  if (reused_in == nullptr) {
    KORFatalError("AssertionFailed:liReusedIn", nullptr, nullptr, nullptr, SourceName, SourceLine);
  }
  return *reused_in;
}

ReuseIndex::ReuseIndex() : _Table(new KORHashObject(InitialSize)) {
}

ReuseIndex::~ReuseIndex() {
  (void)CleanHashObjectWithListValues(_Table);
}

long ReuseIndex::Enter(const KORListValKORBaseUnknown_var& analyses, long status) {
  VEXTimeAnalysisLineData line;
  for (const KORBaseUnknown_var& analysis : analyses) {
    if (VEXITimeAnalysisRepReference_var(analysis).IsNull()) continue;
    const VEXITimeAnalysisLines_var lines = analysis;
    if (lines.IsNull()) continue;
    int count = 0;
    (void)lines->GetLineCount(count);
    for (int row = 1; row <= count; ++row) {
      (void)lines->GetLine(row, line);
      KORBaseUnknown_var reused;
      (void)line.GetValue(calculation::TimeAnalysisKey, reused);
      if (!reused.IsNull()) status = EnterReuse(reused.Get(), analysis);
    }
  }
  return status;
}

long ReuseIndex::EnterReuse(KORBaseUnknown* reused, const KORBaseUnknown_var& reusing) {
  auto* reused_in = static_cast<KORRawCollPV*>(_Table->Get(reused));
  if (reused_in == nullptr) {
    reused_in = &ExistingReusedIn(new (std::nothrow) KORRawCollPV);
    _Lists.emplace_back(reused_in);
    _Table->Put(reused, reused_in);
  }
  void* entry = nullptr;
  const long status = reusing->QueryInterface(KORBaseUnknown::ClassId(), &entry);
  reused_in->Append(entry);
  return status;
}

long CleanHashObjectWithListValues(KORHashObject*& table) {
  if (table == nullptr) return E_INVALIDARG;
  void* key = nullptr;
  void* value = nullptr;
  table->Begin();
  while (table->Next(key, value) != 0) {
    if (value == nullptr) continue;
    for (void* const entry : *static_cast<const KORRawCollPV*>(value)) {
      if (entry != nullptr) static_cast<const KORBaseUnknown*>(entry)->Release();
    }
  }
  delete table;
  table = nullptr;
  return S_OK;
}

}  // namespace objects
