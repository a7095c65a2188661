// A JSON copy of a time analysis, as a stream on it.
#pragma once

#include "platform/base/KORHandle.h"
#include "platform/base/KORObjectLists.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/document/KOROmxJson.h"
#include "platform/model/VEXITimeAnalysisRepReference.h"
#include "platform/model/VEXTimeAnalysisLineData.h"

namespace exchange {

/// See VEXSTMJSONServices::GetTemplateJSONFilaPath; an empty text if there is no such file.
KORUnicodeString FindJsonTemplate(const KORUnicodeString& name);

/// See VEXSTMJSONServices::IsJSONFileExistsOnTA.
bool HasJson(const KORBaseUnknown_var& analysis);

/// See VEXSTMJSONServices::CreateTALineJSONObject.
KOROmxJsonObject JsonOfLine(const VEXTimeAnalysisLineData& line);

/// See VEXSTMJSONServices::CreateStreamDiscriptorOnTA_FromJSON.
long AttachJson(const KOROmxJsonObject& json, const VEXITimeAnalysisRepReference_var& analysis);

/// See VEXSTMJSONServices::CreateAndUpdateJSONOnTA.
long AttachJsonToAll(const KORListValKORBaseUnknown_var& analyses);

}  // namespace exchange
