// A parameter that belongs to no object.
#include "platform/knowledge/KORCkeParm.h"

#include "platform/base/KORTruncation.h"

using KORCke::ValueKind;

long KORCkeParm::ValuateInteger(int value) {
  if (_Kind == ValueKind::Text) return E_INVALIDARG;
  if (_Kind == ValueKind::Real) return ValuateReal(value);
  _Integer = value;
  return S_OK;
}

long KORCkeParm::ValuateReal(double value) {
  if (_Kind != ValueKind::Real) return E_INVALIDARG;
  _Real = value;
  return S_OK;
}

long KORCkeParm::ValuateString(const KORUnicodeString& value) {
  if (_Kind != ValueKind::Text) return E_INVALIDARG;
  _Text = value;
  return S_OK;
}

int KORCkeParm::AsInteger() const {
  return _Kind == ValueKind::Real ? kornumber::TruncateToInt32(_Real) : _Integer;
}

double KORCkeParm::AsReal() const {
  return _Kind == ValueKind::Integer ? _Integer : _Real;
}

KORUnicodeString KORCkeParm::AsString() const {
  switch (_Kind) {
    case ValueKind::Integer:
      return KORUnicodeString::FromInteger(_Integer);
    case ValueKind::Real:
      return KORUnicodeString::FromReal(_Real);
    case ValueKind::Text:
      break;
  }
  return _Text;
}
