// The knowledge engine for the plain calculation: expressions and values as it makes and reads them, and nothing of
// the calculation room in between.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "platform/base/KORStatus.h"
#include "platform/knowledge/KORCkeGlobalFunctions.h"
#include "tests/oracle/CalculationOracle.h"

namespace calculationtest {

class EngineAdapter : public oracle::Engine {
 public:
  std::optional<std::vector<oracle::FormulaArgument>> SignatureOf(const std::string& signature,
                                                                  const std::string& body) override {
    const KORICkeSignature_var read = Expression(signature, body)->GetSignature();
    if (read.IsNull()) return std::nullopt;
    std::vector<oracle::FormulaArgument> arguments;
    for (const KORICkeArg_var& argument : read->GetArguments()) {
      arguments.push_back({std::string(argument->GetName().Bytes()), argument->GetMode()});
    }
    return arguments;
  }

  bool IsValid(const std::string& signature, const std::string& body) override {
    return Expression(signature, body)->IsValid() == KORCke::True;
  }

  bool OffersEvaluator(const std::string& signature, const std::string& body) override {
    return !KORICkeEvaluator_var(Expression(signature, body)).IsNull();
  }

  std::optional<std::vector<oracle::FormulaValue>> Run(const std::string& signature, const std::string& body,
                                                       const std::vector<oracle::FormulaValue>& values) override {
    const KORICkeEvaluator_var evaluator = Expression(signature, body);
    std::vector<KORICkeParm_var> parameters;
    evaluator->Reset();
    for (const oracle::FormulaValue& value : values) {
      parameters.push_back(Parameter(value));
      (void)evaluator->AddValue(parameters.back());
    }
    if (evaluator->Run(nullptr) != S_OK) return std::nullopt;
    std::vector<oracle::FormulaValue> results = values;
    for (std::size_t index = 0; index < results.size(); ++index) ReadBack(parameters[index], results[index]);
    return results;
  }

  double RealOf(const oracle::FormulaValue& value) override { return Parameter(value)->Value()->AsReal(); }
  std::string TextOf(const oracle::FormulaValue& value) override {
    return std::string(Parameter(value)->Value()->AsString().Bytes());
  }

 private:
  using Kind = oracle::FormulaValue::Kind;

  static KORICkeExpression_var Expression(const std::string& signature, const std::string& body) {
    const KORICkeExpressionFactory_var factory = KORCkeGlobalFunctions::GetVolatileFactory();
    return factory->CreateExpression("", "", KORUnicodeString(signature), KORUnicodeString(body));
  }

  static KORICkeParm_var Parameter(const oracle::FormulaValue& value) {
    const KORICkeParmFactory_var factory = KORCkeGlobalFunctions::GetVolatileFactory();
    const KORUnicodeString name(value.name);
    switch (value.kind) {
      case Kind::Integer:
        return factory->CreateInteger(name, std::get<int>(value.value));
      case Kind::Real:
        return factory->CreateReal(name, std::get<double>(value.value));
      case Kind::Text:
        return factory->CreateString(name, KORUnicodeString(std::get<std::string>(value.value)));
      case Kind::Dimension:
        break;
    }
    return factory->CreateDimension(name, KORParmDictionary::FindMagnitude(KORUnicodeString(value.magnitude)),
                                    std::get<double>(value.value));
  }

  // A parameter keeps its kind through a run.
  static void ReadBack(const KORICkeParm_var& parameter, oracle::FormulaValue& value) {
    const KORICkeValue_var content = parameter->Value();
    switch (value.kind) {
      case Kind::Integer:
        value.value = content->AsInteger();
        break;
      case Kind::Text:
        value.value = std::string(content->AsString().Bytes());
        break;
      case Kind::Real:
      case Kind::Dimension:
        value.value = content->AsReal();
        break;
    }
  }
};

}  // namespace calculationtest
