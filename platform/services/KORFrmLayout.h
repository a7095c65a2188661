// The application's window, and the colour filter of the tree in it.
#pragma once

#include <array>
#include <map>

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORExport.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"
#include "platform/base/KORString.h"
#include "platform/base/KORUnicodeString.h"

/// The layout of an application with a user interface; a part of the session. A session without one has none.
class KORPLATFORM_API KORFrmLayout {
 public:
  KORFrmLayout() = default;
  KORFrmLayout(const KORFrmLayout&) = delete;
  KORFrmLayout& operator=(const KORFrmLayout&) = delete;

  /// That of the current session, owned by it; null as long as no window was set.
  static KORFrmLayout* GetCurrentLayout();
  /// The window, with no reference added; null if the layout has none any more.
  KORBaseUnknown* GetCurrentWindow() const;

  /// Gives the current session a layout with that window. A null window leaves a layout without one.
  static void SetCurrentWindow(const KORBaseUnknown_var& window);

 private:
  bool _IsSet = false;
  KORBaseUnknown_var _Window;
};

/// The colour filter of a window's tree.
class KORIPLMSextantQuadrantsCustomizationMngt : public KORInterface<KORIPLMSextantQuadrantsCustomizationMngt> {
 public:
  static constexpr const char* InterfaceName = "KORIPLMSextantQuadrantsCustomizationMngt";

  /// The state of the filter. Arguments are left as they were on failure.
  ///
  /// active  [out] 1 if the filter is on
  /// name    [out] of the filter
  /// values  [out] the values that it tells apart; not null
  virtual long GetBIFilterInfo(unsigned char& active, KORUnicodeString& name, KORListValKORString* values) = 0;
  /// The identifier of the quadrant openness in force; empty for none.
  virtual long GetQuadrantOpennessID(KORString& identifier) = 0;
};
using KORIPLMSextantQuadrantsCustomizationMngt_var = KORHandle<KORIPLMSextantQuadrantsCustomizationMngt>;

/// A window with a colour filter whose state is set by hand.
class KORPLATFORM_API KORFrmWindow final : public KORImplements<KORIPLMSextantQuadrantsCustomizationMngt> {
 public:
  struct Filter {
    unsigned char Active = 0;
    KORUnicodeString Name;
    KORListValKORString Values;
    KORString Openness;
  };

  explicit KORFrmWindow(const Filter& filter) : _Filter(filter) {}

  /// Both: S_OK; the first gives E_INVALIDARG, with nothing filled, for null `values`.
  long GetBIFilterInfo(unsigned char& active, KORUnicodeString& name, KORListValKORString* values) override;
  long GetQuadrantOpennessID(KORString& identifier) override;

 private:
  Filter _Filter;
};

/// The colours of filter values; a part of the session.
class KORPLATFORM_API KORPLMCompQuadrantsOpennessManager {
 public:
  /// A value of a filter under a quadrant openness.
  struct Value {
    KORString Openness;
    KORString Filter;
    KORUnicodeString Attribute;
    KORString Text;

    friend auto operator<=>(const Value&, const Value&) = default;
  };
  /// Red, green, blue, transparency and material.
  using Indices = std::array<int, 5>;

  /// That of the current session, owned by it; null on failure.
  static KORPLMCompQuadrantsOpennessManager* GetManager();

  /// The five integers of a filter value. S_OK; E_FAIL, with the integers left as they were, for a value that is not
  /// known.
  long GetMaterialIndexFromIDForGivenQOpenness(const KORString& openness, const KORString& filter,
                                               const KORUnicodeString& attribute, const KORString& text, int& first,
                                               int& second, int& third, int& fourth, int& fifth) const;

  void SetIndices(const Value& value, const Indices& indices) { _Indices.insert_or_assign(value, indices); }

 private:
  std::map<Value, Indices> _Indices;
};
