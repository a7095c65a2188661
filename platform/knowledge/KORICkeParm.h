// Parameters: named values that go into a formula and come out of it.
#pragma once

#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/knowledge/KORCke.h"
#include "platform/knowledge/KORParmDictionary.h"

/// The value of a parameter. It follows the parameter: what is read is what the parameter has now.
class KORPLATFORM_API KORICkeValue : public KORInterface<KORICkeValue> {
 public:
  static constexpr const char* InterfaceName = "KORICkeValue";

  virtual KORCke::ValueKind GetKind() const = 0;
  /// The magnitude of a dimension, in whose unit the value is; null for every other value.
  virtual const KORCkeMagnitude* GetMagnitude() const = 0;

  /// The value as an integer. A real is cut toward zero (one that 32 bits don't hold gives the least integer), a text
  /// gives 0.
  virtual int AsInteger() const = 0;
  /// The value as a real; a text gives 0.0.
  virtual double AsReal() const = 0;
  /// The value as a text; an integer is printed as "%d", a real as "%g", with "." in every locale.
  virtual KORUnicodeString AsString() const = 0;
};
using KORICkeValue_var = KORHandle<KORICkeValue>;

/// A parameter: a value with a name. Its kind and magnitude stay what they were when it was made.
class KORPLATFORM_API KORICkeParm : public KORInterface<KORICkeParm> {
 public:
  static constexpr const char* InterfaceName = "KORICkeParm";

  /// The parameter's own name, which is also the role that it has as an argument.
  virtual const KORUnicodeString& RoleName() const = 0;
  /// Never null.
  virtual KORICkeValue_var Value() = 0;

  /// Change the value: S_OK; E_INVALIDARG, with nothing changed, if the parameter holds values of another kind. A real
  /// parameter takes an integer, too.
  virtual long ValuateInteger(int value) = 0;
  virtual long ValuateReal(double value) = 0;
  virtual long ValuateString(const KORUnicodeString& value) = 0;
};
using KORICkeParm_var = KORHandle<KORICkeParm>;
using KORListValKORICkeParm_var = KORList<KORICkeParm_var>;
