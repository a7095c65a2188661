// One parameter of a formula on an analysis line, and who frees it.
#include "platform/model/VEXTimeAnalysisFormulaParameter.h"

#include <tuple>

void KORParameterLink::Leave() {
  _Next->_Previous = _Previous;
  _Previous->_Next = _Next;
  _Next = this;
  _Previous = this;
}

void KORParameterLink::Join(KORParameterLink& ring) {
  Leave();
  _Previous = ring._Previous;
  _Next = &ring;
  _Previous->_Next = this;
  ring._Previous = this;
}

void KORHeldParameters::Clear() {
  while (_Ring._Next != &_Ring) delete static_cast<VEXTimeAnalysisFormulaParameter*>(_Ring._Next);
}

bool VEXTimeAnalysisFormulaParameter::HasSameValues(const VEXTimeAnalysisFormulaParameter& other) const {
  const auto fields = [](const VEXTimeAnalysisFormulaParameter& parameter) {
    return std::tie(parameter._ParameterKind, parameter._ValueText, parameter._ParameterName, parameter._Signature,
                    parameter._Body, parameter._ValueType, parameter._OwnerPLMId, parameter._OwnerRow);
  };
  return fields(*this) == fields(other);
}
