// A parameter that belongs to no object.
#pragma once

#include "platform/knowledge/KORICkeParm.h"

/// The parameter and its value in one object.
class KORCkeParm : public KORImplements<KORICkeParm, KORICkeValue> {
 public:
  KORCkeParm(const KORUnicodeString& name, int value)
      : _Name(name), _Kind(KORCke::ValueKind::Integer), _Integer(value) {}
  KORCkeParm(const KORUnicodeString& name, double value, const KORCkeMagnitude* magnitude)
      : _Name(name), _Kind(KORCke::ValueKind::Real), _Magnitude(magnitude), _Real(value) {}
  KORCkeParm(const KORUnicodeString& name, const KORUnicodeString& value)
      : _Name(name), _Kind(KORCke::ValueKind::Text), _Text(value) {}

  const KORUnicodeString& RoleName() const override { return _Name; }
  KORICkeValue_var Value() override { return KORICkeValue_var(this); }
  long ValuateInteger(int value) override;
  long ValuateReal(double value) override;
  long ValuateString(const KORUnicodeString& value) override;

  KORCke::ValueKind GetKind() const override { return _Kind; }
  const KORCkeMagnitude* GetMagnitude() const override { return _Magnitude; }
  int AsInteger() const override;
  double AsReal() const override;
  KORUnicodeString AsString() const override;

 private:
  KORUnicodeString _Name;
  KORCke::ValueKind _Kind;
  const KORCkeMagnitude* _Magnitude = nullptr;
  // The one that the kind names; the others keep what they began with.
  int _Integer = 0;
  double _Real = 0.0;
  KORUnicodeString _Text;
};
