// An expression that belongs to no object, with its signature, its arguments and its evaluator.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/knowledge/KORCkeFormulaCache.h"
#include "platform/knowledge/KORICkeExpression.h"

/// Base of a part of an object: counted with the whole, which lives as long as somebody holds the part.
class KORCkePart : public virtual KORBaseUnknown {
 public:
  unsigned long AddRef() const noexcept override { return _Whole->AddRef(); }
  unsigned long Release() const noexcept override { return _Whole->Release(); }

 protected:
  explicit KORCkePart(const KORBaseUnknown& whole) : _Whole(&whole) {}

  const KORBaseUnknown& GetWhole() const { return *_Whole; }

 private:
  const KORBaseUnknown* _Whole;
};

/// One argument, as a part of the expression.
class KORCkeArg : public KORCkePart, public KORImplements<KORICkeArg> {
 public:
  KORCkeArg(const KORBaseUnknown& whole, const KORCkeArgument& argument) : KORCkePart(whole), _Argument(&argument) {}

  const KORUnicodeString& GetName() const override { return _Argument->Name; }
  int GetMode() const override { return _Argument->Mode; }
  const KORUnicodeString& GetTypeName() const override { return _Argument->TypeName; }

 private:
  const KORCkeArgument* _Argument;
};

/// The signature, as a part of the expression. Its arguments are made when somebody asks for them.
class KORCkeSignature : public KORCkePart, public KORImplements<KORICkeSignature> {
 public:
  KORCkeSignature(const KORBaseUnknown& whole, const KORCkeFormula& formula) : KORCkePart(whole), _Formula(&formula) {}

  int GetArgumentCount() const override { return static_cast<int>(_Formula->Arguments.size()); }
  KORICkeArg_var GetArgument(int position) override;
  KORListValKORICkeArg_var GetArguments() override;

 private:
  std::vector<KORCkeArg>& MakeArguments();

  const KORCkeFormula* _Formula;
  std::vector<KORCkeArg> _Arguments;
};

/// The expression and its evaluator in one object.
class KORCkeExpression : public KORImplements<KORICkeExpression, KORICkeEvaluator> {
 public:
  KORCkeExpression(const KORUnicodeString& signature, const KORUnicodeString& body);

  KORICkeSignature_var GetSignature() override;
  KORCke::Boolean IsValid() const override { return _Formula->Problem.empty() ? KORCke::True : KORCke::False; }
  KORUnicodeString GetProblem() const override;

  void Reset() override;
  long AddValue(const KORICkeParm_var& value) override;
  long Run(KORBaseUnknown* reserved) override;

 private:
  bool RunFormula();
  bool ReadValues(std::vector<KORCkeVariable>& variables);
  const KORCkeKnownFormula& FormulaOfThread();

  std::shared_ptr<const KORCkeKnownFormula> _Formula;   // the signature's arguments lie in it
  std::shared_ptr<const KORCkeKnownFormula> _Compiled;  // the same, compiled elsewhere or anew; null if not needed
  KORCkeSignature _Signature;
  std::vector<KORICkeParm_var> _Values;
  std::string _ProblemOfRun;
};
