// The templates that are shipped: every key of the system stands in them, with an example of its type.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <vector>

#include "VEXTADataIO.h"
#include "exchange/ExchangeTables.h"
#include "platform/model/KORKnownKeys.h"
#include "tests/exchange/JsonExportTest.h"
#include "tests/model/KeyTable.h"

namespace {

using exchange::ValueType;
using exchangetest::JsonExportTest;
using nlohmann::ordered_json;

ordered_json Shipped(const std::string& name) {
  std::ifstream file(std::string(CATALOGUE_FOLDER "/JSONTemplates/") + name);
  return ordered_json::parse(file);
}
ordered_json ShippedAttributes() {
  return Shipped("TAComplete_Template.JSON").at("TAATTRIBUTES");
}
ordered_json ShippedLine() {
  return Shipped("TALineAttributes_Template.JSON");
}

std::string ExampleOf(ValueType type) {
  switch (type) {
    case ValueType::Integer:
      return "0";
    case ValueType::Real:
      return "0.0";
    case ValueType::Text:
      return R"("")";
    case ValueType::Boolean:
      return "false";
    default:
      return "null";
  }
}

// The same by the order of the types in a value of the model: text, real, integer, boolean, object, parameters.
std::string ExampleOf(const modeltest::Value& value) {
  static const std::vector<std::string> examples{R"("")", "0.0", "0", "false", "null", "null"};
  return examples.at(value.index());
}

std::string ExampleIn(const ordered_json& examples, const std::string& key) {
  return examples.contains(key) ? examples.at(key).dump() : "missing";
}

TEST(ShippedCompleteTemplateTest, HasItsTwoSections) {
  const ordered_json complete = Shipped("TAComplete_Template.JSON");
  EXPECT_EQ(complete.size(), 2u);
  EXPECT_TRUE(complete.at("TAATTRIBUTES").is_object());
  EXPECT_EQ(complete.at("TALINESDETAILS").dump(), "[]") << "an analysis without lines has none in the export";
}

TEST(ShippedCompleteTemplateTest, HasEveryAttributeOfTheExchange) {
  const ordered_json attributes = ShippedAttributes();
  for (const exchange::AttributeRow& row : exchange::AttributeTable) {
    for (const KORUnicodeString& name : VEXTADataIO::ExplodeString("|", KORUnicodeString(row.Names))) {
      EXPECT_EQ(ExampleIn(attributes, support::Text(name)), ExampleOf(row.Type)) << support::Text(name);
    }
  }
}

TEST(ShippedCompleteTemplateTest, HasEveryAttributeThatTheSystemNames) {
  const ordered_json attributes = ShippedAttributes();
  for (const modeltest::KeyRow& row : modeltest::AttributeKeys) {
    EXPECT_EQ(ExampleIn(attributes, row.Key), ExampleOf(row.Held)) << row.Key;
  }
}

TEST(ShippedLineTemplateTest, HasEveryKeyOfTheExchange) {
  const ordered_json line = ShippedLine();
  for (const exchange::LineRow& row : exchange::LineTable) {
    EXPECT_EQ(ExampleIn(line, std::string(row.LineKey)), ExampleOf(row.Type)) << row.LineKey;
  }
}

TEST(ShippedLineTemplateTest, HasEveryKeyOfALineAndNoOther) {
  const ordered_json line = ShippedLine();
  std::set<std::string> keys;
  for (const modeltest::KeyRow& row : modeltest::LineKeys) {
    keys.insert(row.Key);
    EXPECT_EQ(ExampleIn(line, row.Key), ExampleOf(row.Held)) << row.Key;
  }
  for (const auto& [key, example] : line.items()) EXPECT_TRUE(keys.contains(key)) << key;
}

TEST(ShippedTemplatesTest, HaveEveryKnownKeyOfTheModel) {
  const ordered_json attributes = ShippedAttributes();
  const ordered_json line = ShippedLine();
  for (const std::string_view key : KORKnownKeys) {
    EXPECT_TRUE(attributes.contains(std::string(key)) || line.contains(std::string(key))) << key;
  }
}

// The parser keeps the last of several, so that a key that stands twice shows in the text alone.
TEST(ShippedTemplatesTest, HaveEachKeyOnceOnALineOfItsOwn) {
  for (const std::string name : {"TAComplete_Template.JSON", "TALineAttributes_Template.JSON"}) {
    std::ifstream file(std::string(CATALOGUE_FOLDER "/JSONTemplates/") + name);
    std::map<std::string, int> keys;
    for (std::string text; std::getline(file, text);) {
      const std::size_t start = text.find('"');
      if (start != std::string::npos) ++keys[text.substr(start, text.find("\":") - start)];
      EXPECT_LE(text.size(), 60u);
      EXPECT_EQ(text.find_last_not_of(' ') + 1, text.size()) << "blanks at the end of " << text;
    }
    EXPECT_GT(keys.size(), 30u);
    for (const auto& [key, count] : keys) EXPECT_EQ(count, 1) << key;
  }
}

class ShippedTemplatesExportTest : public JsonExportTest {
 protected:
  ShippedTemplatesExportTest() { _Session.SetEnvironment("KORStartupPath", CATALOGUE_FOLDER); }
};

template <class Target>
void SetAll(Target& target, const modeltest::KeyRow& row) {
  if (const auto* const text = std::get_if<KORUnicodeString>(&row.Held)) (void)target.SetValue(row.Key, *text);
  if (const auto* const real = std::get_if<double>(&row.Held)) (void)target.SetValue(row.Key, *real);
  if (const auto* const integer = std::get_if<int>(&row.Held)) (void)target.SetValue(row.Key, *integer);
  if (const auto* const truth = std::get_if<unsigned char>(&row.Held)) (void)target.SetValue(row.Key, *truth);
}

ordered_json JsonOf(const modeltest::Value& value) {
  if (const auto* const text = std::get_if<KORUnicodeString>(&value)) return support::Text(*text);
  if (const auto* const real = std::get_if<double>(&value)) return *real;
  if (const auto* const integer = std::get_if<int>(&value)) return *integer;
  if (const auto* const truth = std::get_if<unsigned char>(&value)) return *truth != 0;
  return nullptr;
}

TEST_F(ShippedTemplatesExportTest, BringOutEveryValueOfTheModel) {
  const auto analysis = support::MakeAnalysis("TA-0001");
  for (const modeltest::KeyRow& row : modeltest::AttributeKeys) SetAll(*analysis, row);
  VEXTimeAnalysisLineData line;
  for (const modeltest::KeyRow& row : modeltest::LineKeys) SetAll(line, row);
  (void)analysis->SetLine(1, line);

  const ordered_json exported = ordered_json::parse(Exported(analysis));
  for (const modeltest::KeyRow& row : modeltest::AttributeKeys) {
    EXPECT_EQ(exported.at("TAATTRIBUTES").at(row.Key).dump(), JsonOf(row.Held).dump()) << row.Key;
  }
  ASSERT_EQ(exported.at("TALINESDETAILS").size(), 1u);
  for (const modeltest::KeyRow& row : modeltest::LineKeys) {
    EXPECT_EQ(exported.at("TALINESDETAILS").at(0).at(row.Key).dump(), JsonOf(row.Held).dump()) << row.Key;
  }
}

TEST_F(ShippedTemplatesExportTest, GiveAnAnalysisWithoutValuesTheDefaults) {
  const auto analysis = support::TimeAnalysis_var::Adopt(new VEXTimeAnalysisRepReference);
  const ordered_json exported = ordered_json::parse(Exported(analysis));
  EXPECT_EQ(exported.at("TAATTRIBUTES").dump(), ShippedAttributes().dump());
  EXPECT_EQ(exported.at("TALINESDETAILS").dump(), "[]");
}

}  // namespace
