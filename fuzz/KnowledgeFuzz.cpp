// The knowledge engine: a formula may be anything, and nothing of it may be left for the next one.
// Input: the signature, a line end, and the body.
//
// A formula gives the same twice; a run that fails changes no value; another formula gives what it always gives.
#include <string>
#include <vector>

#include "fuzz/FuzzSupport.h"
#include "platform/knowledge/KORCkeGlobalFunctions.h"

namespace {

std::string Text(const KORUnicodeString& text) {
  return std::string(text.Bytes());
}

struct Outcome {
  bool Valid = false;
  bool Done = false;
  std::vector<double> Numbers;
  std::string Texts;
  std::string Problem;
};

KORICkeParm_var ParameterOf(const KORICkeArg_var& argument, int number) {
  const KORICkeParmFactory_var factory = KORCkeGlobalFunctions::GetVolatileFactory();
  const KORUnicodeString& type = argument->GetTypeName();
  if (type == "Integer") return factory->CreateInteger(argument->GetName(), number);
  if (type == "String") return factory->CreateString(argument->GetName(), "text");
  if (type == "Real") return factory->CreateReal(argument->GetName(), number * 0.5);
  return factory->CreateDimension(argument->GetName(), KORParmDictionary::FindMagnitude(type), number * 0.25);
}

void TakeValues(const std::vector<KORICkeParm_var>& parameters, Outcome& outcome) {
  outcome.Numbers.clear();
  outcome.Texts.clear();
  for (const KORICkeParm_var& parameter : parameters) {
    outcome.Numbers.push_back(parameter->Value()->AsReal());
    if (parameter->Value()->GetKind() == KORCke::ValueKind::Text) outcome.Texts += Text(parameter->Value()->AsString());
    outcome.Texts += '|';
  }
}

void RequireSameValues(const Outcome& expected, const Outcome& actual, const char* what) {
  fuzz::RequireSame(expected.Numbers.size(), actual.Numbers.size(), what);
  for (std::size_t index = 0; index < expected.Numbers.size(); ++index) {
    fuzz::RequireSameNumber(expected.Numbers[index], actual.Numbers[index], what);
  }
  fuzz::RequireSame(expected.Texts, actual.Texts, what);
}

Outcome Run(const KORUnicodeString& signature, const KORUnicodeString& body) {
  const KORICkeExpressionFactory_var factory = KORCkeGlobalFunctions::GetVolatileFactory();
  const KORICkeExpression_var expression = factory->CreateExpression("FormulaSTM", "", signature, body);
  const KORICkeEvaluator_var evaluator = expression;
  Outcome outcome;
  outcome.Valid = expression->IsValid() == KORCke::True;
  std::vector<KORICkeParm_var> parameters;
  if (!expression->GetSignature().IsNull()) {
    for (const KORICkeArg_var& argument : expression->GetSignature()->GetArguments()) {
      parameters.push_back(ParameterOf(argument, static_cast<int>(parameters.size()) + 1));
      evaluator->AddValue(parameters.back());
    }
  }
  Outcome before;
  TakeValues(parameters, before);
  outcome.Done = evaluator->Run(nullptr) == S_OK;
  outcome.Problem = Text(evaluator->GetProblem());
  TakeValues(parameters, outcome);
  if (!outcome.Done) RequireSameValues(before, outcome, "values behind a failed run");
  fuzz::RequireSame(outcome.Done, outcome.Problem.empty(), "problem of a run");
  if (!outcome.Valid) fuzz::RequireSame(false, outcome.Done, "run of an invalid formula");
  return outcome;
}

// Memory and processor time differ a little from run to run, so that either of two runs may come to their end.
bool IsForWantOfMeans(const Outcome& outcome) {
  return outcome.Problem.ends_with("processor time") || outcome.Problem.ends_with("not enough memory");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view rest = fuzz::BytesOf(data, size);
  const KORUnicodeString signature(fuzz::TakeText(rest, '\n'));
  const KORUnicodeString body(rest);
  const Outcome first = Run(signature, body);
  const Outcome second = Run(signature, body);
  fuzz::RequireSame(first.Valid, second.Valid, "validity");
  if (!IsForWantOfMeans(first) && !IsForWantOfMeans(second)) {
    fuzz::RequireSame(first.Done, second.Done, "success");
    fuzz::RequireSame(first.Problem, second.Problem, "problem");
    RequireSameValues(first, second, "values");
  }
  const Outcome known = Run("n : Integer, out Time : Time, out Description : String",
                            "sum = sum or 1 Time = math.max(n, sum) * 0.5 Description = type(math) .. n");
  fuzz::RequireSame(true, known.Done, "run of a known formula");
  fuzz::RequireSame(0.5, known.Numbers[1], "number of a known formula");
  fuzz::RequireSame(std::string("||table1|"), known.Texts, "text of a known formula");
  return 0;
}
