// One line of a time analysis as a record of keyed values.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORExport.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"
#include "platform/base/KORStatus.h"
#include "platform/base/KORString.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/model/KORKeyedValues.h"
#include "platform/model/VEXTimeAnalysisFormulaParameter.h"

/// The key whose value is the list of formula parameters.
inline constexpr const char* KORFormulaParameterKey = "FormulaParameter";

/// The formula parameters of a line as the tables of lines store them; an empty place stands for a null entry.
using KORStoredParameters = std::vector<std::optional<VEXTimeAnalysisFormulaParameter>>;

/// One line of a time analysis: values by key, filled by VEXITimeAnalysisLines::GetLine and stored by SetLine. The keys
/// of the model stand in KORKnownKeys.h; any other key is taken as well and given back unchanged.
///
/// A record is a local variable, or stands on the heap with one reference. It shares its values with the row that it
/// was read from until either is changed, so that reading a line and storing it costs no copy. A record serves one
/// thread at a time, the one that its analysis serves.
///
/// Formula parameters. The list under "FormulaParameter" holds pointers to parameters, null entries included. The
/// parameters that GetLine puts into a record, and those given to SetValue, belong to the record; it frees them at
/// ClearFormulaAndParamters, when GetLine fills it anew, or at its end, whichever comes first. A parameter that is put
/// into a second record belongs to that one. Pointers from GetValue stay the record's and live as long as they are its.
/// A parameter may be deleted by hand; a record whose list still names one that is gone is only to be cleared, filled
/// anew, given another list, or released, not to be copied or stored.
class KORPLATFORM_API VEXTimeAnalysisLineData : public KORBaseUnknown {
 public:
  VEXTimeAnalysisLineData() = default;
  /// The copy has values and parameters of its own.
  VEXTimeAnalysisLineData(const VEXTimeAnalysisLineData& other);
  VEXTimeAnalysisLineData& operator=(const VEXTimeAnalysisLineData& other);
  ~VEXTimeAnalysisLineData() override = default;

  /// Read the value of a key. S_OK; E_FAIL, with `value` left as it was, if the key was never set or is set under
  /// another type.
  long GetValue(const KORString& key, KORUnicodeString& value) const { return _Values.Get(key.Bytes(), value); }
  long GetValue(const KORString& key, double& value) const { return _Values.Get(key.Bytes(), value); }
  long GetValue(const KORString& key, int& value) const { return _Values.Get(key.Bytes(), value); }
  long GetValue(const KORString& key, unsigned char& value) const { return _Values.Get(key.Bytes(), value); }
  long GetValue(const KORString& key, KORBaseUnknown_var& value) const { return _Values.Get(key.Bytes(), value); }
  /// Hands out the pointers of the record under "FormulaParameter"; no other key holds a list.
  long GetValue(const KORString& key, KORRawCollPV& value) const;

  /// Set the value of a key, whatever its type was before. S_OK; E_INVALIDARG, with nothing changed, for the key
  /// "FormulaParameter".
  long SetValue(const KORString& key, const KORUnicodeString& value) { return SetPlain(key, value); }
  long SetValue(const KORString& key, const double& value) { return SetPlain(key, value); }
  long SetValue(const KORString& key, const int& value) { return SetPlain(key, value); }
  long SetValue(const KORString& key, const unsigned char& value) { return SetPlain(key, value); }
  long SetValue(const KORString& key, const KORBaseUnknown_var& value) { return SetPlain(key, value); }
  /// Replaces the list under "FormulaParameter" by the given pointers, which from now on belong to the record. Those of
  /// the list before stay the record's until it frees them. S_OK; E_INVALIDARG, with nothing changed, for another key.
  long SetValue(const KORString& key, const KORRawCollPV& value);

  /// Frees the formula parameters that belong to the record and empties the list. S_OK.
  long ClearFormulaAndParamters();

  /// A record's content as the tables of lines store it. Its parameters are values that never change, and are shared by
  /// all contents that have the same ones.
  struct Content {
    KORKeyedValues Values;
    std::shared_ptr<const KORStoredParameters> Parameters;  // null: never set
  };
  Content GetContent() const;
  /// Replaces all that the record holds by the content, with parameters of its own.
  void SetContent(const Content& content);

 private:
  bool HasStoredParameters() const;

  template <class Value>
  long SetPlain(const KORString& key, const Value& value) {
    if (key == KORFormulaParameterKey) return E_INVALIDARG;
    _Values.Set(key.Bytes(), value);
    return S_OK;
  }

  KORKeyedValues _Values;
  bool _HasParameters = false;
  KORRawCollPV _Parameters;                            // pointers to VEXTimeAnalysisFormulaParameter, or null
  std::shared_ptr<const KORStoredParameters> _Stored;  // what the list was filled from; null if from nothing
  KORHeldParameters _Held;
};
