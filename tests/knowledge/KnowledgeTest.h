// What the tests of the knowledge engine share: values in short, and a formula with its values, run in one step.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "platform/knowledge/KORCkeGlobalFunctions.h"

namespace knowledgetest {

inline std::string Text(const KORUnicodeString& text) {
  return std::string(text.Bytes());
}

/// A value as it is given to an argument: a number with the name of its type or magnitude, or a text.
struct Given {
  std::string Type;
  double Number = 0.0;
  std::string Text;
};
inline Given I(int value) {
  return {"Integer", static_cast<double>(value), ""};
}
inline Given R(double value) {
  return {"Real", value, ""};
}
inline Given D(const char* magnitude, double value) {
  return {magnitude, value, ""};
}
inline Given T(const char* value) {
  return {"String", 0.0, value};
}

inline KORICkeParm_var Parameter(const KORUnicodeString& name, const Given& given) {
  const KORICkeParmFactory_var factory = KORCkeGlobalFunctions::GetVolatileFactory();
  if (given.Type == "Integer") return factory->CreateInteger(name, static_cast<int>(given.Number));
  if (given.Type == "Real") return factory->CreateReal(name, given.Number);
  if (given.Type == "String") return factory->CreateString(name, KORUnicodeString(std::string_view(given.Text)));
  return factory->CreateDimension(name, KORParmDictionary::FindMagnitude(given.Type.c_str()), given.Number);
}

inline KORICkeExpression_var Expression(std::string_view signature, std::string_view body) {
  const KORICkeExpressionFactory_var factory = KORCkeGlobalFunctions::GetVolatileFactory();
  return factory->CreateExpression("FormulaSTM", "a comment", KORUnicodeString(signature), KORUnicodeString(body));
}

/// A formula and the values of its arguments.
class Formula {
 public:
  Formula(std::string_view signature, std::string_view body, const std::vector<Given>& values)
      : _Expression(Expression(signature, body)), _Evaluator(_Expression) {
    for (const Given& value : values) {
      _Parameters.push_back(Parameter("p", value));
      EXPECT_EQ(_Evaluator->AddValue(_Parameters.back()), S_OK);
    }
  }

  long Run() { return _Evaluator->Run(nullptr); }
  bool IsValid() const { return _Expression->IsValid() == KORCke::True; }
  std::string Problem() const { return Text(_Evaluator->GetProblem()); }
  double Real(std::size_t index) const { return _Parameters[index]->Value()->AsReal(); }
  std::string String(std::size_t index) const { return Text(_Parameters[index]->Value()->AsString()); }

  /// All values, as texts with a blank between them.
  std::string Values() const {
    std::string values;
    for (std::size_t index = 0; index < _Parameters.size(); ++index) values += (index > 0 ? " " : "") + String(index);
    return values;
  }

 private:
  KORICkeExpression_var _Expression;
  KORICkeEvaluator_var _Evaluator;
  std::vector<KORICkeParm_var> _Parameters;
};

/// The values behind a run; "invalid: " or "fails: " and the problem if there was none.
inline std::string Outcome(std::string_view signature, std::string_view body, const std::vector<Given>& values) {
  Formula formula(signature, body, values);
  const std::string before = formula.Values();
  const long status = formula.Run();
  if (!formula.IsValid()) {
    EXPECT_EQ(status, E_FAIL);
    return "invalid: " + formula.Problem();
  }
  if (status == S_OK) {
    EXPECT_EQ(formula.Problem(), "");
    return formula.Values();
  }
  EXPECT_EQ(status, E_FAIL);
  EXPECT_EQ(formula.Values(), before) << "a run that fails changes nothing";
  return "fails: " + formula.Problem();
}

/// The value of a body that is an expression, without inputs.
inline std::string ValueOf(std::string_view body) {
  return Outcome("out Value : Real", body, {R(0)});
}
/// The same for a body whose value is a text.
inline std::string TextOf(std::string_view body) {
  return Outcome("out Value : String", body, {T("")});
}

/// `piece`, `count` times.
inline std::string Repeated(std::string_view piece, int count) {
  std::string text;
  for (int number = 0; number < count; ++number) text += piece;
  return text;
}

/// Names a test after the row's field `Name`.
struct RowName {
  template <class Row>
  std::string operator()(const testing::TestParamInfo<Row>& row) const {
    return row.param.Name;
  }
};

}  // namespace knowledgetest
