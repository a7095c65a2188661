// The signature of a formula: its arguments.
#pragma once

#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"
#include "platform/base/KORUnicodeString.h"

/// One argument of a formula.
class KORPLATFORM_API KORICkeArg : public KORInterface<KORICkeArg> {
 public:
  static constexpr const char* InterfaceName = "KORICkeArg";

  /// The name by which the body knows the argument.
  virtual const KORUnicodeString& GetName() const = 0;
  /// KORCke::InputMode (1) or KORCke::OutputMode (2).
  virtual int GetMode() const = 0;
  /// "Integer", "Real", "String", or the name of a magnitude.
  virtual const KORUnicodeString& GetTypeName() const = 0;
};
using KORICkeArg_var = KORHandle<KORICkeArg>;
using KORListValKORICkeArg_var = KORList<KORICkeArg_var>;

/// The signature of a formula. A handle to it, or to one of its arguments, keeps the expression alive.
class KORPLATFORM_API KORICkeSignature : public KORInterface<KORICkeSignature> {
 public:
  static constexpr const char* InterfaceName = "KORICkeSignature";

  virtual int GetArgumentCount() const = 0;
  /// The argument in a position from 1; a null handle for every other position.
  virtual KORICkeArg_var GetArgument(int position) = 0;
  /// The arguments in the order of the signature; none of them is null.
  virtual KORListValKORICkeArg_var GetArguments() = 0;
};
using KORICkeSignature_var = KORHandle<KORICkeSignature>;
