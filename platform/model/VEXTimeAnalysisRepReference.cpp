// A time analysis: attributes, lines, and the revision status remembered on it.
#include "platform/model/VEXTimeAnalysisRepReference.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "platform/base/KORStatus.h"
#include "platform/model/KORValueText.h"

namespace {

void ListValues(const KORKeyedValues& table, KORListValKORUnicodeString& names, KORListValKORUnicodeString& values) {
  names.RemoveAll();
  values.RemoveAll();
  table.ForEach([&](std::string_view key, const KORKeyedValues::View& value) {
    names.Append(KORUnicodeString(key));
    values.Append(KORTextOfValue(value, KORBooleanDigits));
  });
}

}  // namespace

// Attributes

long VEXTimeAnalysisRepReference::GetValue(const KORString& key, unsigned char& value) {
  return GetAttributes().Get(key.Bytes(), value);
}

long VEXTimeAnalysisRepReference::GetValue(const KORString& key, double& value) {
  return GetAttributes().Get(key.Bytes(), value);
}

long VEXTimeAnalysisRepReference::GetValue(const KORString& key, int& value) {
  return GetAttributes().Get(key.Bytes(), value);
}

long VEXTimeAnalysisRepReference::GetValue(const KORString& key, KORUnicodeString& value) {
  return GetAttributes().Get(key.Bytes(), value);
}

long VEXTimeAnalysisRepReference::GetAllValues(KORListValKORUnicodeString& names, KORListValKORUnicodeString& values) {
  ListValues(GetAttributes(), names, values);
  return S_OK;
}

long VEXTimeAnalysisRepReference::SetValue(const KORString& key, unsigned char value) {
  GetAttributes().Set(key.Bytes(), value);
  return S_OK;
}

long VEXTimeAnalysisRepReference::SetValue(const KORString& key, double value) {
  GetAttributes().Set(key.Bytes(), value);
  return S_OK;
}

long VEXTimeAnalysisRepReference::SetValue(const KORString& key, int value) {
  GetAttributes().Set(key.Bytes(), value);
  return S_OK;
}

long VEXTimeAnalysisRepReference::SetValue(const KORString& key, const KORUnicodeString& value) {
  GetAttributes().Set(key.Bytes(), value);
  return S_OK;
}

// Lines

const VEXTimeAnalysisLineData::Content* VEXTimeAnalysisRepReference::FindRow(int row) const {
  if (row < 1 || static_cast<std::size_t>(row) > _Rows.size()) return nullptr;
  return &_Rows[static_cast<std::size_t>(row) - 1];
}

long VEXTimeAnalysisRepReference::GetLineCount(int& count) {
  count = static_cast<int>(_Rows.size());
  return S_OK;
}

long VEXTimeAnalysisRepReference::GetLine(int row, VEXTimeAnalysisLineData& line) {
  const VEXTimeAnalysisLineData::Content* const stored = FindRow(row);
  if (stored == nullptr) {
    line.SetContent({});
    return E_INVALIDARG;
  }
  line.SetContent(*stored);
  return S_OK;
}

long VEXTimeAnalysisRepReference::SetLine(int row, VEXTimeAnalysisLineData& line) {
  if (row < 1 || static_cast<std::size_t>(row) > _Rows.size() + 1) return E_INVALIDARG;
  VEXTimeAnalysisLineData::Content content = line.GetContent();
  if (static_cast<std::size_t>(row) > _Rows.size()) {
    _Rows.push_back(std::move(content));
  } else {
    // What the row held goes last: with the last reference to an analysis, its lines go, too.
    std::swap(_Rows[static_cast<std::size_t>(row) - 1], content);
  }
  return S_OK;
}

long VEXTimeAnalysisRepReference::GetLineAttributes(int row, KORListValKORUnicodeString& names,
                                                    KORListValKORUnicodeString& values) {
  const VEXTimeAnalysisLineData::Content* const stored = FindRow(row);
  ListValues(stored == nullptr ? KORKeyedValues() : stored->Values, names, values);
  return stored == nullptr ? E_INVALIDARG : S_OK;
}

long VEXTimeAnalysisRepReference::RemoveAllLines() {
  const std::vector<VEXTimeAnalysisLineData::Content> removed = std::move(_Rows);
  _Rows.clear();
  return S_OK;
}

long VEXTimeAnalysisRepReference::GetLines(int first, int count, KORRawCollPV& lines) {
  const std::int64_t end = std::int64_t{first} + count;
  const std::int64_t last_row = std::min(end - 1, static_cast<std::int64_t>(_Rows.size()));
  for (std::int64_t row = std::max(first, 1); row <= last_row; ++row) {
    auto record = KORHandle<VEXTimeAnalysisLineData>::Adopt(new VEXTimeAnalysisLineData);
    record->SetContent(_Rows[static_cast<std::size_t>(row) - 1]);
    lines.Append(record.Get());
    record->AddRef();
  }
  const bool inside = first >= 1 && end - 1 <= static_cast<std::int64_t>(_Rows.size());
  return count == 0 || (count > 0 && inside) ? S_OK : E_INVALIDARG;
}

// Revision

long VEXTimeAnalysisRepReference::GetRevisionStatus(int& status) {
  status = _RevisionStatus;
  return S_OK;
}

long VEXTimeAnalysisRepReference::SetRevisionStatus(int status) {
  _RevisionStatus = status;
  return S_OK;
}
