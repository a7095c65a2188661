// The default stream, as the tables that it is made of.
#include "exchange/DefaultStream.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "exchange/ExchangeTables.h"
#include "exchange/ItemText.h"

namespace exchange {

namespace {

constexpr std::array<std::string_view, 3> LeadingFields{"Save", "New STM - STD", "STD"};

struct Attribute {
  std::string_view Key;
  ValueType Type;
  std::string_view Value;
};

// clang-format off
constexpr std::array<Attribute, 21> Attributes{{
    {"analysisdescription",  ValueType::Text, "New Operation 3"},
    {"analysisdescription2", ValueType::Text, ""},
    {"name",                 ValueType::Text, "New STM - STD"},
    {"code",                 ValueType::Text, "New STM - STD"},
    {"timetype",             ValueType::Text, "TA"},
    {"analysistype",         ValueType::Text, "P"},
    {"subsystem",            ValueType::Text, "STD"},
    {"timeunit",             ValueType::Text, "UA_TIME_TMU"},
    {"basictimeunit",        ValueType::Text, "UA_TIME_TMU"},
    {"wdstart",              ValueType::Text, ""},
    {"wdend",                ValueType::Text, ""},
    {"wdlimitation",         ValueType::Text, ""},
    {"wdinclude",            ValueType::Text, ""},
    {"wdtext",               ValueType::Text, ""},
    {"dbl_ttbcalculated",    ValueType::Real, "2.952"},
    {"dbl_ttucalculated",    ValueType::Real, "1.800000036"},
    {"dbl_twcalculated",     ValueType::Real, "3.6"},
    {"dbl_trgcalculated",    ValueType::Real, "11.99999988"},
    {"dbl_totalcalculated",  ValueType::Real, "8.352000036"},
    {"dbl_taquantity",       ValueType::Real, "10"},
    {"dbl_tapartssimultan",  ValueType::Real, "2"},
}};

struct Column {
  std::string_view Key;
  int CellType;  // as the stream says it, which is not everywhere the type of the key
};

constexpr std::array<Column, 14> Columns{{
    {"standardtextflag",    3},
    {"rowno",               3},
    {"analysisdescription", 8},
    {"code",                8},
    {"timetype",            8},
    {"analysistype",        8},
    {"totaltime",           5},
    {"factor",              5},
    {"totalcalc",           5},
    {"ttbtime",             5},
    {"ttutime",             5},
    {"trgtime",             5},
    {"twtime",              5},
    {"adddescription",      8},
}};

// Cells by line, in the order of the columns; times in seconds.
constexpr std::array<std::array<std::string_view, Columns.size()>, 10> Lines{{
    // flag, row, description, code, time type, analysis type, total time, factor, total calc, TTB, TTU, TRG, TW, additional
    {{"1", "1",  "Get",                         "ALE05",    "TTB", " ", "0.288",       "1",  "-0.036",      "0.288",  "-0.036",      "-0.036",      "-0.036", ""}},
    {{"1", "2",  "Get",                         "ALZ45",    "TTB", " ", "0.756",       "1",  "-0.036",      "0.756",  "-0.036",      "-0.036",      "-0.036", ""}},
    {{"1", "3",  "Get",                         "AMZ60",    "TTB", " ", "1.08",        "1",  "1.08",        "1.08",   "-0.036",      "-0.036",      "-0.036", ""}},
    {{"1", "4",  "Get",                         "AKZ15",    "TTB", " ", "0.324",       "1",  "0.324",       "0.324",  "-0.036",      "-0.036",      "-0.036", ""}},
    {{"1", "5",  "Place",                       "PLZ15",    "TTB", " ", "0.756",       "1",  "0.756",       "0.756",  "-0.036",      "-0.036",      "-0.036", ""}},
    {{"1", "6",  "Regrasp pass",                "GNU",      "TTB", " ", "0.216",       "1",  "0.216",       "0.216",  "-0.036",      "-0.036",      "-0.036", ""}},
    {{"1", "7",  "Application of force, large", "GKG",      "TTB", " ", "0.576",       "1",  "0.576",       "0.576",  "-0.036",      "-0.036",      "-0.036", ""}},
    {{"1", "8",  "Restricted Process Time",     "PTUHMIN1", "TTU", " ", "0.600000012", "3",  "1.800000036", "-0.036", "0.600000012", "-0.036",      "-0.036", ""}},
    {{"1", "9",  "Process Setup Time",          "PTRHMIN2", "TRG", " ", "1.199999988", "10", "0",           "-0.036", "-0.036",      "1.199999988", "-0.036", ""}},
    {{"1", "10", "Process Waiting Time",        "PTWHMIN3", "TW",  " ", "1.8",         "2",  "3.6",         "-0.036", "-0.036",      "-0.036",      "1.8",    ""}},
}};
// clang-format on

class StreamWriter {
 public:
  void Add(std::string_view item) {
    if (!_Text.empty()) _Text += ItemSeparator;
    _Text += item;
  }

  void AddAttribute(const Attribute& attribute) {
    Add(AttributeData);
    AddField(attribute.Key);
    AddField(std::to_string(static_cast<int>(attribute.Type)));
    AddField(attribute.Value);
  }

  void AddCell(std::size_t row, std::size_t column, int type, std::string_view value) {
    Add(LineData);
    AddField("et_linedata");
    AddField(std::to_string(row));
    AddField(std::to_string(column));
    AddField(std::to_string(type));
    AddField(value);
  }

  std::string_view Text() const { return _Text; }

 private:
  void AddField(std::string_view field) {
    _Text += FieldSeparator;
    _Text += field;
  }

  std::string _Text;
};

}  // namespace

KORUnicodeString DefaultStream() {
  StreamWriter stream;
  for (const std::string_view field : LeadingFields) stream.Add(field);
  for (const Attribute& attribute : Attributes) stream.AddAttribute(attribute);
  for (std::size_t column = 0; column < Columns.size(); ++column) {
    stream.AddCell(0, column, static_cast<int>(ValueType::Text), Columns[column].Key);
  }
  for (std::size_t line = 0; line < Lines.size(); ++line) {
    for (std::size_t column = 0; column < Columns.size(); ++column) {
      stream.AddCell(line + 1, column, Columns[column].CellType, Lines[line][column]);
    }
  }
  return KORUnicodeString(stream.Text());
}

}  // namespace exchange
