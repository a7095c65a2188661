// The factory of parameters and expressions that belong to no object.
#include "platform/knowledge/KORCkeGlobalFunctions.h"

#include "platform/knowledge/KORCkeExpression.h"
#include "platform/knowledge/KORCkeParm.h"
#include "platform/system/KORPerform.h"

namespace {

class VolatileFactory : public KORImplements<KORICkeParmFactory, KORICkeExpressionFactory> {
 public:
  KORICkeParm_var CreateInteger(const KORUnicodeString& name, int value) override {
    return KORICkeParm_var::Adopt(new KORCkeParm(name, value));
  }
  KORICkeParm_var CreateReal(const KORUnicodeString& name, double value) override {
    return KORICkeParm_var::Adopt(new KORCkeParm(name, value, nullptr));
  }
  KORICkeParm_var CreateString(const KORUnicodeString& name, const KORUnicodeString& value) override {
    return KORICkeParm_var::Adopt(new KORCkeParm(name, value));
  }
  KORICkeParm_var CreateTextParm(const KORUnicodeString& name, const KORUnicodeString& value) override {
    return KORGive("CreateTextParm", [this, &name, &value] { return CreateString(name, value); });
  }
  KORICkeParm_var CreateDimension(const KORUnicodeString& name, const KORCkeMagnitude* magnitude,
                                  double value) override {
    return KORICkeParm_var::Adopt(new KORCkeParm(name, value, magnitude));
  }
  KORICkeExpression_var CreateExpression(const KORUnicodeString& /*name*/, const KORUnicodeString& /*comment*/,
                                         const KORUnicodeString& signature, const KORUnicodeString& body) override {
    return KORICkeExpression_var::Adopt(new KORCkeExpression(signature, body));
  }
};

}  // namespace

KORICkeParmFactory_var KORCkeGlobalFunctions::GetVolatileFactory() {
  return KORGive("GetVolatileFactory", [] { return KORICkeParmFactory_var::Adopt(new VolatileFactory); });
}
