// The factories of parameters and expressions.
#pragma once

#include "platform/base/KORHandle.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/knowledge/KORICkeExpression.h"
#include "platform/knowledge/KORICkeParm.h"
#include "platform/knowledge/KORParmDictionary.h"

/// Makes parameters that belong to no object and live as long as somebody holds them.
class KORPLATFORM_API KORICkeParmFactory : public KORInterface<KORICkeParmFactory> {
 public:
  static constexpr const char* InterfaceName = "KORICkeParmFactory";

  virtual KORICkeParm_var CreateInteger(const KORUnicodeString& name, int value) = 0;
  virtual KORICkeParm_var CreateReal(const KORUnicodeString& name, double value) = 0;
  virtual KORICkeParm_var CreateString(const KORUnicodeString& name, const KORUnicodeString& value) = 0;
  /// The same as CreateString.
  virtual KORICkeParm_var CreateTextParm(const KORUnicodeString& name, const KORUnicodeString& value) = 0;
  /// A real with a magnitude, in its unit; without a magnitude (null) it is a plain real.
  virtual KORICkeParm_var CreateDimension(const KORUnicodeString& name, const KORCkeMagnitude* magnitude,
                                          double value) = 0;
};
using KORICkeParmFactory_var = KORHandle<KORICkeParmFactory>;

/// Makes expressions that belong to no object and live as long as somebody holds them.
class KORPLATFORM_API KORICkeExpressionFactory : public KORInterface<KORICkeExpressionFactory> {
 public:
  static constexpr const char* InterfaceName = "KORICkeExpressionFactory";

  /// A new expression, never null: whether it is any good, KORICkeExpression::IsValid tells. A thread compiles a
  /// formula once and knows it by its signature and body from then on.
  ///
  /// name, comment  what a model shows of an expression that it keeps; an expression of this factory is not kept, and
  ///                has no use for them
  virtual KORICkeExpression_var CreateExpression(const KORUnicodeString& name, const KORUnicodeString& comment,
                                                 const KORUnicodeString& signature, const KORUnicodeString& body) = 0;
};
using KORICkeExpressionFactory_var = KORHandle<KORICkeExpressionFactory>;
