// One line of a time analysis as a record of keyed values.
#include "platform/model/VEXTimeAnalysisLineData.h"

#include <algorithm>

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

// True if the list holds what it was filled from.
bool VEXTimeAnalysisLineData::HasStoredParameters() const {
  const auto is_same = [](const void* entry, const std::optional<VEXTimeAnalysisFormulaParameter>& stored) {
    if (entry == nullptr || !stored) return entry == nullptr && !stored;
    return static_cast<const VEXTimeAnalysisFormulaParameter*>(entry)->HasSameValues(*stored);
  };
  return _Stored != nullptr && std::ranges::equal(_Parameters, *_Stored, is_same);
}

VEXTimeAnalysisLineData::Content VEXTimeAnalysisLineData::GetContent() const {
  if (!_HasParameters) return {_Values, nullptr};
  if (HasStoredParameters()) return {_Values, _Stored};
  const auto parameters = std::make_shared<KORStoredParameters>();
  parameters->reserve(static_cast<std::size_t>(_Parameters.Size()));
  for (const void* const entry : _Parameters) {
    std::optional<VEXTimeAnalysisFormulaParameter>& copy = parameters->emplace_back();
    if (entry != nullptr) copy = *static_cast<const VEXTimeAnalysisFormulaParameter*>(entry);
  }
  return {_Values, parameters};
}

void VEXTimeAnalysisLineData::SetContent(const Content& content) {
  ClearFormulaAndParamters();
  _Values = content.Values;
  _Stored = content.Parameters;
  _HasParameters = _Stored != nullptr;
  if (!_HasParameters) return;
  for (const std::optional<VEXTimeAnalysisFormulaParameter>& stored : *_Stored) {
    VEXTimeAnalysisFormulaParameter* copy = nullptr;
    if (stored) {
      copy = new VEXTimeAnalysisFormulaParameter(*stored);
      _Held.Take(*copy);
    }
    _Parameters.Append(copy);
  }
}
