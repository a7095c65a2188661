// The codes of all systems that a run needs.
#include "tools/analysis/CodeBook.h"

#include <array>
#include <cmath>
#include <unordered_map>

#include "platform/base/KORNumberText.h"
#include "tools/CodeLookup.h"
#include "tools/LookupFormula.h"
#include "tools/NearestCodes.h"

namespace tool {

namespace {

// What a formula's value is multiplied by to become TMU, in the systems whose entries have another unit.
struct SystemUnit {
  std::string_view System;
  double Tmu;
};
constexpr std::array SystemUnits{SystemUnit{"MODAPTS", 0.35833333362}, SystemUnit{"RWF", 1.6667},
                                 SystemUnit{"SAM", 5.0}};

// A lookup prints six digits of its time, which would show in the sum of many rows. The formula behind it has them
// all; its value is taken where it prints alike.
double UncutTmu(const std::string& system, const CodeAnswer& answer, const LookupFormula& formula) {
  const auto prints_alike = [&answer](double tmu) { return kornumber::PrintReal(tmu) == answer.Time.Bytes(); };
  if (formula.Status != 0) return answer.Tmu;
  for (const SystemUnit& unit : SystemUnits) {
    if (unit.System == system && prints_alike(formula.Value * unit.Tmu)) return formula.Value * unit.Tmu;
  }
  return prints_alike(formula.Value) ? formula.Value : answer.Tmu;
}

}  // namespace

// The codes of one system.
struct CodeBook::Volume {
  VEXSTMTimeAnalysisDlgServices Service;
  std::string Path;  // of its entry file; empty if it cannot be read
  std::unique_ptr<NearestCodes> Nearest;
  std::unordered_map<std::string, CodeEntry> Entries;  // by code as written

  CodeEntry LookUp(const std::string& system, const std::string& code);
};

CodeBook::CodeBook(const Catalogue& catalogue, Answers& answers) : _Catalogue(catalogue), _Answers(answers) {
}

CodeBook::~CodeBook() = default;

CodeEntry CodeBook::Volume::LookUp(const std::string& system, const std::string& code) {
  CodeEntry entry;
  if (Path.empty()) return entry;
  const CodeAnswer answer = LookUpCode(Service, code);
  if (!answer.Found) {
    if (!Nearest) Nearest = std::make_unique<NearestCodes>(Service);
    entry.Problem = CodeNotFound(system, code, Path, Nearest->Find(code), 0);
    return entry;
  }
  entry.Description = answer.Description.Bytes();
  entry.TimeType = answer.TimeType.Bytes();
  entry.ValueAdded = answer.ValueAdded.Bytes();
  const LookupFormula formula = EvaluateLookupFormula(Service, answer.Code.Bytes(), answer.Entry);
  if (answer.Time.Bytes() == "0" && formula.Status != 0) {
    entry.Problem = CodeFormulaFails(code, EntryName(Service, answer.Entry), formula.Text, formula.Status, 0);
  } else if (!std::isfinite(answer.Tmu)) {
    entry.Problem = CodeTimeNotFinite(code, EntryName(Service, answer.Entry), answer.Time.Bytes(), 0);
  } else {
    entry.Seconds = UncutTmu(system, answer, formula) / Service.ConvertFromSecToTmu(1.0);
  }
  return entry;
}

CodeBook::Volume& CodeBook::VolumeOf(const std::string& system) {
  std::unique_ptr<Volume>& volume = _Volumes[system];
  if (volume) return *volume;
  volume = std::make_unique<Volume>();
  try {
    volume->Path = _Catalogue.Open(system, volume->Service);
  } catch (const Failure& failure) {
    _Answers.Tell(failure);
  }
  return *volume;
}

const CodeEntry& CodeBook::Find(const std::string& system, std::string_view code) {
  Volume& volume = VolumeOf(system);
  const std::string key(code);
  const auto known = volume.Entries.find(key);
  if (known != volume.Entries.end()) return known->second;
  return volume.Entries.emplace(key, volume.LookUp(system, key)).first->second;
}

}  // namespace tool
