// One line of a time analysis as a record of keyed values.
#include "platform/model/VEXTimeAnalysisLineData.h"

VEXTimeAnalysisLineData::VEXTimeAnalysisLineData(const VEXTimeAnalysisLineData& other) : KORBaseUnknown(other) {
  SetContent(other.GetContent());
}

VEXTimeAnalysisLineData& VEXTimeAnalysisLineData::operator=(const VEXTimeAnalysisLineData& other) {
  if (this != &other) SetContent(other.GetContent());
  return *this;
}

long VEXTimeAnalysisLineData::GetValue(const KORString& key, KORRawCollPV& value) const {
  if (!_HasParameters || key != KORFormulaParameterKey) return E_FAIL;
  value = _Parameters;
  return S_OK;
}

long VEXTimeAnalysisLineData::SetValue(const KORString& key, const KORRawCollPV& value) {
  if (key != KORFormulaParameterKey) return E_INVALIDARG;
  for (void* const entry : value) {
    if (entry != nullptr) _Held.Take(*static_cast<VEXTimeAnalysisFormulaParameter*>(entry));
  }
  _Parameters = value;
  _HasParameters = true;
  return S_OK;
}

long VEXTimeAnalysisLineData::ClearFormulaAndParamters() {
  _Held.Clear();
  _Parameters.RemoveAll();
  _HasParameters = true;
  return S_OK;
}

VEXTimeAnalysisLineData::Content VEXTimeAnalysisLineData::GetContent() const {
  Content content{_Values, nullptr};
  if (!_HasParameters) return content;
  content.Parameters = std::make_unique<std::vector<std::optional<VEXTimeAnalysisFormulaParameter>>>();
  content.Parameters->reserve(static_cast<std::size_t>(_Parameters.Size()));
  for (const void* const entry : _Parameters) {
    std::optional<VEXTimeAnalysisFormulaParameter>& copy = content.Parameters->emplace_back();
    if (entry != nullptr) copy = *static_cast<const VEXTimeAnalysisFormulaParameter*>(entry);
  }
  return content;
}

void VEXTimeAnalysisLineData::SetContent(const Content& content) {
  ClearFormulaAndParamters();
  _Values = content.Values;
  _HasParameters = content.Parameters != nullptr;
  if (!_HasParameters) return;
  for (const std::optional<VEXTimeAnalysisFormulaParameter>& stored : *content.Parameters) {
    VEXTimeAnalysisFormulaParameter* copy = nullptr;
    if (stored) {
      copy = new VEXTimeAnalysisFormulaParameter(*stored);
      _Held.Take(*copy);
    }
    _Parameters.Append(copy);
  }
}
