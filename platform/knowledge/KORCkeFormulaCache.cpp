// The formulas that a thread knows, compiled.
#include "platform/knowledge/KORCkeFormulaCache.h"

#include <atomic>

#include "platform/knowledge/KORCkeLimits.h"

namespace {

std::uint64_t NextSandboxNumber() {
  static std::atomic<std::uint64_t> last{0};
  return last.fetch_add(1, std::memory_order_relaxed) + 1;
}

bool IsPartOfName(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
         (character >= '0' && character <= '9') || character == '_';
}

// True if `word` stands in the text, in comments and texts of it, too, and is no part of a longer name.
bool HasWord(std::string_view text, std::string_view word) {
  for (std::size_t place = text.find(word); place != std::string_view::npos; place = text.find(word, place + 1)) {
    const std::size_t end = place + word.size();
    if (place > 0 && IsPartOfName(text[place - 1])) continue;
    if (end < text.size() && IsPartOfName(text[end])) continue;
    return true;
  }
  return false;
}

}  // namespace

KORCkeFormulaCache& KORCkeFormulaCache::OfThread() {
  thread_local KORCkeFormulaCache cache;
  return cache;
}

std::shared_ptr<const KORCkeKnownFormula> KORCkeFormulaCache::Find(std::string_view signature, std::string_view body) {
  const bool is_short = signature.size() <= korcke::LongestSignature && body.size() <= korcke::LongestBody;
  if (is_short) {
    const auto found = _Formulas.find({signature, body});
    if (found != _Formulas.end()) return found->second;
  }
  const auto formula = std::make_shared<KORCkeKnownFormula>();
  formula->Formula = KORCkeFormula::Read(signature);
  formula->Problem = formula->Formula.Problem;
  if (body.size() > korcke::LongestBody && formula->Problem.empty()) {
    formula->Problem = "body: longer than " + std::to_string(korcke::LongestBody) + " bytes";
  }
  if (!is_short) return formula;

  formula->Signature = signature;
  formula->Body = body;
  if (IsFull()) StartAnew();
  if (formula->Problem.empty()) Compile(*formula);
  _BytesOfTexts += signature.size() + body.size();
  _Formulas.emplace(Key{formula->Signature, formula->Body}, formula);
  return formula;
}

bool KORCkeFormulaCache::IsFull() const {
  const std::size_t bytes = _BytesOfTexts + (_Sandbox ? _Sandbox->GetBytesKept() : 0);
  return _Formulas.size() >= korcke::MostFormulas || bytes > korcke::MostBytesOfFormulas;
}

void KORCkeFormulaCache::StartAnew() {
  _Formulas.clear();
  _BytesOfTexts = 0;
  _Sandbox.reset();
  _SandboxNumber = 0;
}

void KORCkeFormulaCache::Compile(KORCkeKnownFormula& formula) {
  if (HasWord(formula.Body, "_ENV")) {
    formula.Problem = "body: \"_ENV\" is no name for it";
    return;
  }
  if (!_Sandbox) {
    _Sandbox.emplace();
    _SandboxNumber = NextSandboxNumber();
  }
  KORCkeSandbox::Compilation compilation = _Sandbox->Compile(formula.Formula, formula.Body);
  formula.Problem = std::move(compilation.Problem);
  formula.Compiled = std::move(compilation.Body);
  formula.SandboxNumber = _SandboxNumber;
}
