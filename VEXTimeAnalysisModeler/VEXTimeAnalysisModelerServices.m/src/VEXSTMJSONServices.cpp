// The face of the JSON export.
#include "VEXSTMJSONServices.h"

#include "exchange/AnalysisJson.h"

const KORMetaClass* VEXSTMJSONServices::MetaObject() {
  static const KORMetaClass description{
      "VEXSTMJSONServices",
      {{0x5e, 0x0b, 0x7a, 0x31, 0xc2, 0x44, 0x4d, 0x19, 0x9f, 0x60, 0x2d, 0x8e, 0x13, 0xa7, 0x54, 0x02}},
      KORBaseUnknown::MetaObject()};
  return &description;
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
