// The face of the JSON export.
#include "VEXSTMJSONServices.h"

#include "exchange/AnalysisJson.h"
#include "presentation/Registration.h"

const KORMetaClass* VEXSTMJSONServices::MetaObject() {
  static const KORMetaClass* const meta_object = presentation::RetrieveMetaObject("VEXSTMJSONServices");
  return meta_object;
}

VEXSTMJSONServices* VEXSTMJSONServices::CreateItself() {
  return new VEXSTMJSONServices;
}

long VEXSTMJSONServices::CreateAndUpdateJSONOnTA(KORListValKORBaseUnknown_var& analyses) {
  return exchange::AttachJsonToAll(analyses);
}

long VEXSTMJSONServices::CreateStreamDiscriptorOnTA_FromJSON(KOROmxJsonObject& json,
                                                             VEXITimeAnalysisRepReference_var analysis) {
  return exchange::AttachJson(json, analysis);
}

long VEXSTMJSONServices::CreateTALineJSONObject(const VEXTimeAnalysisLineData& line, KOROmxJsonObject& object) {
  object = exchange::JsonOfLine(line);
  return S_OK;
}

long VEXSTMJSONServices::GetTemplateJSONFilaPath(const KORUnicodeString& name, KORUnicodeString& path) {
  path = exchange::FindJsonTemplate(name);
  return S_OK;
}

unsigned char VEXSTMJSONServices::IsJSONFileExistsOnTA(KORBaseUnknown_var& analysis) {
  return exchange::HasJson(analysis) ? 1 : 0;
}
