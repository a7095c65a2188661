// What the exchange calls attributes and keys.
#include "tools/exchange/ExchangeVocabulary.h"

#include <algorithm>
#include <array>

#include "VEXTADataIO.h"
#include "platform/base/KORNumberText.h"

namespace tool {

namespace {

constexpr std::array<std::string_view, 7> FollowingNames{
    "PLM_ExternalID", "V_HumanTime", "V_MachineTime", "V_WaitingTime", "V_SetupTime", "V_TotalTime", "FrequencyString"};

// The fields of an item of the form that is written, behind its first one.
std::vector<std::string_view> FieldsOf(std::string_view item) {
  std::vector<std::string_view> fields;
  for (std::size_t start = item.find(':'); start != std::string_view::npos;) {
    const std::size_t end = item.find(':', start + 1);
    fields.push_back(item.substr(start + 1, end == std::string_view::npos ? end : end - start - 1));
    start = end;
  }
  return fields;
}

ExchangeType TypeOfField(std::string_view field) {
  return static_cast<ExchangeType>(kornumber::ReadInteger(field).value_or(0));
}

// What stands under a key of a map, or is put there by `ask`.
template <class Map, class Ask>
auto& Remembered(Map& map, std::string_view key, const Ask& ask) {
  const auto known = map.find(key);
  return known != map.end() ? known->second : map.emplace(key, ask()).first->second;
}

}  // namespace

// Reads the probe out with one name in one of its lists.
ExchangeName ExchangeVocabulary::Ask(std::string_view name, std::vector<std::string>& list) {
  if (IsKnownToHaveNoName(name)) return {};
  KORListValKORUnicodeString items;
  list.assign(1, std::string(name));
  VEXTADataIO::GetAnalysisData("", items, &_Probe);
  list.clear();
  if (items.Size() == 0) return {};
  const std::vector<std::string_view> fields = FieldsOf(items[1].Bytes());
  if (fields.size() == 3) return {std::string(fields[0]), TypeOfField(fields[1]), 0};
  return {std::string(fields.at(2)), TypeOfField(fields.at(3)), kornumber::ReadInteger(fields[1]).value_or(0)};
}

const ExchangeName& ExchangeVocabulary::OfAttribute(std::string_view attribute) {
  return Remembered(_Attributes, attribute, [this, attribute] { return Ask(attribute, _Probe.Attributes); });
}

const ExchangeName& ExchangeVocabulary::OfLineKey(std::string_view key) {
  return Remembered(_LineKeys, key, [this, key] { return Ask(key, _Probe.LineKeys); });
}

// Writes items to the probe; None if the last of them was refused.
ExchangeType ExchangeVocabulary::AskByWriting(const std::vector<std::string>& items) {
  KORListValKORUnicodeString list;
  for (const std::string& item : items) list.Append(KORUnicodeString(std::string_view(item)));
  const bool is_known = Succeeded(VEXTADataIO::SetAnalysisData("", list, &_Probe));
  return is_known ? _Probe.GetWrittenType() : ExchangeType::None;
}

ExchangeType ExchangeVocabulary::TypeOfAttribute(std::string_view exchange_key) {
  return Remembered(_TypesOfAttributes, exchange_key, [this, exchange_key] {
    return AskByWriting({"AttributeData:" + std::string(exchange_key) + ":8:"});
  });
}

// The value differs from the number of the row, so that it is told from that.
ExchangeType ExchangeVocabulary::TypeOfCell(std::string_view exchange_key) {
  return Remembered(_TypesOfCells, exchange_key, [this, exchange_key] {
    return AskByWriting({"LineData::0:0:8:" + std::string(exchange_key), "LineData::1:0:8:2"});
  });
}

bool IsKnownToHaveNoName(std::string_view name) {
  return FollowsFromOthers(name) || name == "FormulaPicture";
}

bool FollowsFromOthers(std::string_view name) {
  return std::find(FollowingNames.begin(), FollowingNames.end(), name) != FollowingNames.end();
}

}  // namespace tool
