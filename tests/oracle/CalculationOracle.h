// The plain calculation of an analysis, step by step and without any shortcut, on data of its own: lines, formula
// parameters, reused analyses. It is the yardstick for the calculation rules. It recurses once per level of reuse and
// goes down every branch each time, so it suits small analyses only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

namespace oracle {

/// One parameter of a formula on a line.
struct FormulaParameter {
  int kind = 0;  // 4 and 7 shift the row, any other kind leaves it
  std::string value_text;
  std::string name;
  std::string signature;
  std::string body;
  std::string value_type;  // "Integer", "Real", "String" or a magnitude
  std::string owner_id;    // identifier of the analysis that owns the formula
  std::string owner_row;   // decimal text: row of the formula in its owner
};

/// A list of parameters; an entry without value stands for a null entry.
using FormulaParameters = std::vector<std::optional<FormulaParameter>>;

/// The value of a key.
using KeyValue = std::variant<std::string, double, int, unsigned char>;

struct Analysis;

/// One line. The reused analysis and the parameters are the values of "TimeAnalysis" and "FormulaParameter", which
/// stand among the values only when they were set under a wrong type; reused is null and parameters is empty then.
struct Line {
  std::map<std::string, KeyValue> values;
  Analysis* reused = nullptr;  // not owned
  FormulaParameters parameters;
};

/// One analysis. Rows count from 1. The flags tell which interfaces the object offers.
struct Analysis {
  std::string identifier;  // the attribute "PLM_ExternalID"
  std::vector<Line> lines;
  std::map<std::string, KeyValue> attributes;
  bool offers_properties = true;
  bool offers_rep_reference = true;
  bool offers_lines = true;
};

/// A call went through a handle that holds nothing.
struct NullHandle : std::logic_error {
  NullHandle() : std::logic_error("call through a null handle") {}
};

/// Status of a calculation that could not begin.
inline constexpr long CalculationFailed = static_cast<std::int32_t>(0x80004005U);

/// Reads a key into a holder. A key that isn't set, or is set under another type, leaves the holder.
template <typename Holder>
void ReadKey(const std::map<std::string, KeyValue>& values, const char* key, Holder& holder) {
  const auto found = values.find(key);
  if (found == values.end()) return;
  if (const Holder* value = std::get_if<Holder>(&found->second)) holder = *value;
}

/// Fills a record with a row. A row outside the table leaves an empty record.
Line GetLine(const Analysis& analysis, long row);

// ---- Time units -----------------------------------------------------------------------------------------------------

/// Seconds of one TMU at a site's TMU per minute.
double SecondsPerTmu(double tmu_per_minute);

/// Rounds the fraction of a value to decimals; a tie goes up.
double RoundOff(double value, double decimals);

// ---- Lines ----------------------------------------------------------------------------------------------------------

/// Time of a line in seconds, by its time type; 0.0 for a null analysis, a stale row, or one without lines.
double TimeOfLine(long row, const Analysis* analysis);

/// Frequency of a line as it stands; 1.0 for a null analysis, a stale row, a missing frequency.
double FrequencyOfLine(long row, const Analysis* analysis);

/// Sum of time times frequency of the lines without formula. Throws NullHandle if the analysis has no lines interface.
double TotalTimeOfNonFormulaCode(const Analysis* analysis);

// ---- Reuse ----------------------------------------------------------------------------------------------------------

/// The flat list of an analysis and all that it reuses at any depth, each identifier once; positions count from 1.
struct ReuseTables {
  std::vector<std::string> ids;
  std::vector<double> times;
  std::vector<const Analysis*> analyses;

  /// Position of an identifier, 0 if it isn't there.
  std::size_t Locate(const std::string& id) const;
};

/// The analysis that a row reuses, or null.
const Analysis* ReusedAnalysisOfRow(long row, const Analysis* analysis);

/// Whether any line reuses an analysis.
bool HasReusedLine(const Analysis* analysis);

/// Appends an analysis and all below it, parents before children; an analysis that is already on the path downward
/// isn't entered again. Throws NullHandle on an analysis without the properties or the lines interface.
void AllLevelReusedIds(const Analysis* analysis, ReuseTables& tables);

/// Identifier of an analysis; empty for a null analysis and for one without properties.
std::string IdentifierOf(const Analysis* analysis);

// ---- Formulas -------------------------------------------------------------------------------------------------------

/// One argument of a formula's signature.
struct FormulaArgument {
  std::string name;
  int mode = 0;  // 2: output
};

/// One value given to a formula, or read from it.
struct FormulaValue {
  enum class Kind { Integer, Real, Text, Dimension };
  std::string name;  // the role that an output plays
  Kind kind = Kind::Real;
  std::string magnitude;  // of a dimension
  std::variant<int, double, std::string> value = 0.0;
};

/// What the calculation needs of an engine that knows the language of the formulas.
class Engine {
 public:
  Engine() = default;
  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;
  virtual ~Engine() = default;

  /// The arguments in order; nothing if there is no signature.
  virtual std::optional<std::vector<FormulaArgument>> SignatureOf(const std::string& signature,
                                                                  const std::string& body) = 0;
  virtual bool IsValid(const std::string& signature, const std::string& body) = 0;

  /// Whether the expression can be run at all.
  virtual bool OffersEvaluator(const std::string& /*signature*/, const std::string& /*body*/) { return true; }

  /// Runs a body on the values, which may be fewer than the arguments. Gives all values, in the same order, as the run
  /// leaves them, or nothing if it failed.
  virtual std::optional<std::vector<FormulaValue>> Run(const std::string& signature, const std::string& body,
                                                       const std::vector<FormulaValue>& values) = 0;

  /// How a value reads as a real and as a text. As it stands: a text reads as 0.0, numbers print with "%d" and "%g".
  virtual double RealOf(const FormulaValue& value);
  virtual std::string TextOf(const FormulaValue& value);
};

/// Evaluates all formulas of a line and gives its time for one occurrence, in seconds.
///
/// analysis_id  identifier of the analysis that holds the line.
/// reused       the analysis that the line reuses, or null.
/// frequency    [in,out] changed only by a formula of the line's own analysis.
/// description  [in,out] changed only by a formula of the line's own analysis.
double FormulaOnLine(const FormulaParameters& parameters, const std::string& analysis_id, const Analysis* reused,
                     double& frequency, std::string& description, Engine& engine);

/// Cuts a text at each separator of one character. An empty text has no piece.
std::vector<std::string> CutAt(char separator, std::string text);

// ---- The whole analysis ---------------------------------------------------------------------------------------------

/// Brings the formula lines of an analysis up to date, stores every counted line and writes the ten totals. Returns
/// CalculationFailed, with nothing changed, if the analysis doesn't offer the interfaces; otherwise 0.
long AnalyzedTime(Analysis* analysis, double tmu_per_minute, Engine& engine);

}  // namespace oracle
