// The formulas that a thread knows, compiled.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/knowledge/KORCkeFormula.h"
#include "platform/knowledge/KORCkeSandbox.h"

/// A formula that was read, and its body as one sandbox keeps it. Never changed; safe across threads.
struct KORCkeKnownFormula {
  std::string Signature;
  std::string Body;
  KORCkeFormula Formula;
  KORCkeBody Compiled;
  std::uint64_t SandboxNumber = 0;
  std::string Problem;  // for people; empty if signature and body could be read
};

/// Reads and compiles each formula once, until there are korcke::MostFormulas of them, or more of them than
/// korcke::MostBytesOfFormulas hold: then all are forgotten.
///
/// A formula that somebody holds outlives that, and its thread; Knows tells whether its body is still to be had here.
class KORCkeFormulaCache {
 public:
  /// That of the calling thread.
  static KORCkeFormulaCache& OfThread();

  /// Never null.
  std::shared_ptr<const KORCkeKnownFormula> Find(std::string_view signature, std::string_view body);

  /// True if GetSandbox can run the formula.
  bool Knows(const KORCkeKnownFormula& formula) const { return formula.SandboxNumber == _SandboxNumber; }
  /// Not before a formula is known.
  KORCkeSandbox& GetSandbox() { return *_Sandbox; }

  std::size_t CountFormulas() const { return _Formulas.size(); }

 private:
  struct Key {
    std::string_view Signature;
    std::string_view Body;
    friend bool operator==(const Key&, const Key&) = default;
  };
  struct HashOfKey {
    std::size_t operator()(const Key& key) const {
      const std::hash<std::string_view> hash;
      return hash(key.Signature) * 31 + hash(key.Body);
    }
  };

  bool IsFull() const;
  void StartAnew();
  void Compile(KORCkeKnownFormula& formula);

  std::optional<KORCkeSandbox> _Sandbox;
  std::uint64_t _SandboxNumber = 0;
  std::size_t _BytesOfTexts = 0;
  std::unordered_map<Key, std::shared_ptr<const KORCkeKnownFormula>, HashOfKey> _Formulas;  // keys lie in the values
};
