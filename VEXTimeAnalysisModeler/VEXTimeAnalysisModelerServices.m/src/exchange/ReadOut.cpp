// An analysis becomes a list of items.
#include "exchange/ReadOut.h"

#include <string>
#include <string_view>

#include "ModuleTrace.h"
#include "exchange/AnalysisObject.h"
#include "exchange/ExchangeTables.h"
#include "exchange/ItemText.h"
#include "platform/base/KORNumberText.h"
#include "platform/base/KORStatus.h"

namespace exchange {

namespace {

// Puts an item together, field by field.
class ItemWriter {
 public:
  explicit ItemWriter(std::string_view kind) : _Text(kind) {}

  ItemWriter& Add(std::string_view field) {
    _Text += FieldSeparator;
    _Text += field;
    return *this;
  }
  ItemWriter& Add(int number) { return Add(kornumber::PrintInteger(number)); }
  ItemWriter& Add(ValueType type) { return Add(static_cast<int>(type)); }

  KORUnicodeString Text() const { return KORUnicodeString(std::string_view(_Text)); }

 private:
  std::string _Text;
};

void ReadAttributes(VEXITimeAnalysisRepReference& attributes, KORListValKORUnicodeString& items) {
  KORListValKORUnicodeString names, values;
  if (Failed(attributes.GetAllValues(names, values))) return;
  items.RemoveAll();
  for (int position = 1; position <= names.Size(); ++position) {
    const std::string_view name = names[position].Bytes();
    if (const AttributeRow* const row = FindAttributeByName(name); row != nullptr) {
      items.Append(ItemWriter(AttributeData).Add(row->Key).Add(row->Type).Add(values[position].Bytes()).Text());
    } else {
      TraceNamed("Failed to map attribute ", name);
    }
  }
}

// Replaces the text of a reuse by the identifier of the analysis that the line reuses, if it reuses one.
void ReadReuse(VEXITimeAnalysisLines& lines, int row, const LineRow& cell, KORUnicodeString& value) {
  VEXTimeAnalysisLineData line;
  if (Failed(lines.GetLine(row, line))) return;
  KORBaseUnknown_var reused;
  (void)line.GetValue(KORString(cell.LineKey), reused);
  const VEXITimeAnalysisRepReference_var analysis(reused);
  if (!analysis.IsNull()) (void)analysis->GetValue("PLM_ExternalID", value);
}

void ReadLine(VEXITimeAnalysisLines& lines, int row, KORListValKORUnicodeString& items) {
  KORListValKORUnicodeString names, values;
  (void)lines.GetLineAttributes(row, names, values);
  for (int position = 1; position <= values.Size(); ++position) {
    const std::string_view name = names[position].Bytes();
    const LineRow* const cell = FindLineValueByLineKey(name);
    if (cell == nullptr) {
      TraceNamed("Failed to map line attribute ", name);
      continue;
    }
    KORUnicodeString& value = values[position];
    if (cell->Type == ValueType::Analysis && name == "TimeAnalysis") ReadReuse(lines, row, *cell, value);
    items.Append(
        ItemWriter(LineData).Add(row).Add(cell->Column).Add(cell->Key).Add(cell->Type).Add(value.Bytes()).Text());
  }
}

}  // namespace

long ReadOut(const KORBaseUnknown_var& analysis, KORListValKORUnicodeString& items) {
  ReadAttributes(*AttributesOf(analysis), items);
  const VEXITimeAnalysisLines_var lines = LinesOf(analysis);
  int count = 0;
  if (Failed(lines->GetLineCount(count)) || count < 1) return S_OK;
  for (int row = 1; row <= count; ++row) ReadLine(*lines, row, items);
  return S_OK;
}

}  // namespace exchange
