// The analysis that an exchange works on.
#include "exchange/AnalysisObject.h"

#include "HandedOut.h"
#include "ModuleTrace.h"
#include "platform/base/KORFatalError.h"
#include "platform/services/VEXSTTAnalysesQueryServices.h"

namespace exchange {

namespace {

// What the end of the process names as its place: the class whose operations are called.
constexpr const char* SourceName = "VEXTimeAnalysisModeler/VEXTimeAnalysisModelerServices.m/src/VEXTADataIO";

}  // namespace

KORBaseUnknown_var FindByIdentifier(const KORUnicodeString& identifier) {
  VEXSTTAdpIdentificationSet set;
  (void)set.AddAttribute("PLM_ExternalID", identifier);
  const HandedOut<KORBaseUnknown> element(
      [&set](KORBaseUnknown*& out) { return VEXSTTAnalysesQueryServices::GetElementByIdentificationSet(set, out); });
  return element.IsGiven() ? element.Get() : NULL_var;
}

KORBaseUnknown_var GivenOrFound(const KORUnicodeString& identifier, KORBaseUnknown* analysis) {
  if (analysis != nullptr) return KORBaseUnknown_var(analysis);
  KORBaseUnknown_var found = FindByIdentifier(identifier);
  if (found.IsNull()) TraceNamed("Failed to get object ", identifier.Bytes(), " from session/database into session.");
  return found;
}

VEXITimeAnalysisRepReference_var AttributesOf(const KORBaseUnknown_var& object) {
  VEXITimeAnalysisRepReference_var attributes(object);
  if (attributes.IsNull()) {
    KORFatalError("AssertionFailed:NULL_var != spTARepRef", nullptr, nullptr, nullptr, SourceName, __LINE__);
  }
  return attributes;
}

VEXITimeAnalysisLines_var LinesOf(const KORBaseUnknown_var& object) {
  VEXITimeAnalysisLines_var lines(object);
  if (lines.IsNull()) {
    KORFatalError("AssertionFailed:NULL_var != spTALines", nullptr, nullptr, nullptr, SourceName, __LINE__);
  }
  return lines;
}

}  // namespace exchange
