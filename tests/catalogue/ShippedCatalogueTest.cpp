// Every file and every entry of the shipped catalogue: what an entry says about itself is what a lookup gives.
#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "tests/support/ShippedCatalogue.h"

namespace {

using support::Text;
using support::Texts;
using support::Unicode;

struct SystemRow {
  const char* name;
  const char* system;
  const char* file;
};

class ShippedCatalogueTest : public support::ShippedCatalogueSession, public testing::WithParamInterface<SystemRow> {
 protected:
  void SetUp() override {
    const std::string path = LoadSystem(_Services, GetParam().system);
    ASSERT_TRUE(path.ends_with(std::string("/DataCardEntry/") + GetParam().file)) << path;
    _Document = _Services.GetDOMDocument(Unicode(path));
    ASSERT_FALSE(_Document.IsNull());
    ASSERT_EQ(_Document.GetDocumentElement().GetElementsByTagName("DATACARDENTRY", _Elements), S_OK);
    ASSERT_EQ(_Elements.GetLength(), _Services.GetDCEntriesCount());
    ASSERT_GT(_Elements.GetLength(), 0);
  }

  // Text of the first child called `name` of an entry; empty if there is none.
  std::string Field(int index, const char* name) const {
    for (KORIDOMNode_var child = _Elements.Item(index).GetFirstChild(); !child.IsNull();
         child = child.GetNextSibling()) {
      if (child.GetNodeName() != name) continue;
      const KORIDOMNode_var value = child.GetFirstChild();
      return value.IsNull() ? std::string() : std::string(value.GetNodeValue());
    }
    return {};
  }

  // Where an entry stands, for messages.
  std::string Place(int index) const {
    return std::string(GetParam().file) + ":" + std::to_string(_Elements.Item(index).GetLineNumber()) + " code " +
           Text(_Services.GetDCEntry(index)->_Code);
  }

  int Count() const { return _Elements.GetLength(); }

  std::string ExampleFormula(int index);

  VEXSTMTimeAnalysisDlgServices _Services;
  KORIDOMDocument_var _Document;
  KORIDOMNodeList_var _Elements;
};

TEST_P(ShippedCatalogueTest, EachExampleFindsItsEntryAndItsTime) {
  for (int index = 0; index < Count(); ++index) {
    SCOPED_TRACE(Place(index));
    const std::string example = Field(index, "EXAMPLE");
    const std::string time = Field(index, "EXAMPLE_TIME");
    EXPECT_FALSE(example.empty());
    EXPECT_FALSE(time.empty());
    EXPECT_EQ(support::TimeOf(_Services, example), time) << example;
    EXPECT_EQ(_Services.GetCodeIndex(), index) << example;
    EXPECT_EQ(Text(_Services.GetTACodeID()), Text(_Services.GetDCEntry(index)->_CodeID));
  }
}

TEST_P(ShippedCatalogueTest, EachEntryIsComplete) {
  for (int index = 0; index < Count(); ++index) {
    SCOPED_TRACE(Place(index));
    const VEXSTMDataCardEntriesScan& entry = *_Services.GetDCEntry(index);
    for (const KORUnicodeString* field : {&entry._CodeID, &entry._Code, &entry._Text, &entry._LocalText,
                                          &entry._ValueAdded, &entry._Frequency, &entry._Time, &entry._TimeType}) {
      EXPECT_FALSE(field->IsEmpty());
    }
    KORUnicodeString code = entry._Code;
    code.Strip(KORUnicodeString::StripPlace::Everywhere, ' ');
    code.ToUpper();
    EXPECT_EQ(Text(entry._Code), Text(code)) << "typed codes are compared in upper case and without blanks";
    const std::set<std::string> time_types = {"TTB", "TTU", "TW", "TRG", "T**"};
    EXPECT_TRUE(time_types.contains(Text(entry._TimeType))) << Text(entry._TimeType);
  }
}

TEST_P(ShippedCatalogueTest, EachPatternCompilesToWhatItSays) {
  for (int index = 0; index < Count(); ++index) {
    SCOPED_TRACE(Place(index));
    VEXSTMDataCardCodeScan* tokens = nullptr;
    ASSERT_EQ(_Services.CreateCodeScanPattern(_Services.GetDCEntry(index)->_Pattern, tokens), S_OK);
    const std::unique_ptr<VEXSTMDataCardCodeScan[]> owned(tokens);
    int depth = 0;
    int count = 0;
    for (; tokens->_Type != 7; ++tokens, ++count) {
      EXPECT_NE(tokens->_Type, 8) << "position " << count;
      if (tokens->_Type == 0) ++depth;
      if (tokens->_Type == 1) --depth;
      EXPECT_GE(depth, 0) << "position " << count;
      EXPECT_LE(tokens->_Min, tokens->_Max) << "position " << count;
    }
    EXPECT_EQ(depth, 0);
    EXPECT_LE(count, 2000) << "the lookup holds 2000 positions";
  }
}

// The entry's formula with the numbers of its example put in.
std::string ShippedCatalogueTest::ExampleFormula(int index) {
  const VEXSTMDataCardEntriesScan& entry = *_Services.GetDCEntry(index);
  KORUnicodeString code = Unicode(Field(index, "EXAMPLE"));
  code.ToUpper();
  KORUnicodeString formula = entry._Time;
  std::vector<double> values(2000, 0.0);
  std::vector<int> flags(2000, 0);
  int count = 0;
  if (!entry._Pattern.IsEmpty()) {
    EXPECT_EQ(_Services.CheckDataCardCodePattern(code, entry._Pattern, count, values.data(), flags.data()), 1);
    formula += entry._OptionTime;
  } else if (!(code == entry._Code)) {
    const int first = formula.SearchSubString("$");
    const int second = formula.SearchSubString("$", first + 1);
    const int length = entry._Code.GetLengthInChar();
    EXPECT_EQ(Text(code.SubString(0, length)), Text(entry._Code));
    if (second > first) {
      formula = formula.SubString(0, first) + code.SubString(length, code.GetLengthInChar()) +
                formula.SubString(second + 1, formula.GetLengthInChar());
    }
  }
  formula.ReplaceAll(",", "_");
  _Services.SubstParameterCode(formula, values.data(), flags.data());
  return Text(formula);
}

TEST_P(ShippedCatalogueTest, EachFormulaIsEvaluated) {
  for (int index = 0; index < Count(); ++index) {
    SCOPED_TRACE(Place(index));
    const std::string formula = ExampleFormula(index);
    EXPECT_FALSE(formula.empty());
    int status = -99;
    _Services.GetTimeFromFormula(Unicode(formula), status);
    EXPECT_EQ(status, 0) << formula;
  }
}

// "0" marks the process-time codes of the MOST family, and "1" the codes of MODAPTS whose time is given in tenths of a
// MOD: these identifiers stand for a kind of code. All others are one code each.
TEST_P(ShippedCatalogueTest, IdentifiersAreUnique) {
  const std::string system = GetParam().system;
  std::set<std::string> identifiers;
  for (int index = 0; index < Count(); ++index) {
    const std::string identifier = Text(_Services.GetDCEntry(index)->_CodeID);
    const bool is_kind = (system.ends_with("MOST") && identifier == "0") || (system == "MODAPTS" && identifier == "1");
    if (!is_kind) {
      EXPECT_TRUE(identifiers.insert(identifier).second) << Place(index) << " identifier " << identifier;
    }
  }
}

// Codes may not repeat: a later entry would hide an earlier one.
TEST_P(ShippedCatalogueTest, CodesAndExamplesAreUnique) {
  std::set<std::string> codes;
  std::set<std::string> examples;
  for (int index = 0; index < Count(); ++index) {
    EXPECT_TRUE(codes.insert(Text(_Services.GetDCEntry(index)->_Code)).second) << Place(index);
    EXPECT_TRUE(examples.insert(Field(index, "EXAMPLE")).second) << Place(index);
  }
}

TEST_P(ShippedCatalogueTest, CardsOfItsGroupsNameCodesThatAreFound) {
  KORListValKORUnicodeString paths;
  KORListValKORUnicodeString names;
  ASSERT_EQ(_Services.GetDCGsList(GetParam().system, paths, names), S_OK);
  ASSERT_GE(paths.Size(), 1);
  for (int file = 1; file <= paths.Size(); ++file) {
    SCOPED_TRACE(Text(paths[file]));
    EXPECT_FALSE(names[file].IsEmpty());
    VEXSTMTimeAnalysisDlgServices cards;
    int card_count = 0;
    int entry_count = 0;
    ASSERT_EQ(cards.ReadDCFromFile(paths[file], card_count, entry_count), S_OK);
    ASSERT_GE(card_count, 1);
    ASSERT_GE(entry_count, 1);
    VEXSTMDataCardScan* scans = nullptr;
    KORListValKORUnicodeString descriptions;
    std::vector<int> counts(static_cast<std::size_t>(card_count));
    ASSERT_EQ(cards.ScanDCFromFile(scans, descriptions, counts.data()), S_OK);
    const std::unique_ptr<VEXSTMDataCardScan[]> owned(scans);
    EXPECT_EQ(descriptions.Size(), card_count) << "one description for each card";
    for (int entry = 0; entry < entry_count; ++entry) {
      const std::string code = Text(scans[entry]._Code);
      EXPECT_FALSE(code.empty()) << "entry " << entry;
      support::TimeOf(_Services, code);
      EXPECT_FALSE(_Services.GetTACodeID().IsEmpty()) << "no entry for the card's code " << code;
      for (const int position : {scans[entry]._Tab, scans[entry]._Frame, scans[entry]._Row, scans[entry]._Column}) {
        EXPECT_GE(position, 1) << code;
      }
    }
  }
}

TEST_P(ShippedCatalogueTest, NothingIsReported) {
  KORListValKORUnicodeString paths;
  KORListValKORUnicodeString names;
  _Services.GetDCGsList(GetParam().system, paths, names);
  KORListValKORUnicodeString reports;
  EXPECT_EQ(_Services.GetDCsWithMissingFieldsList(reports), E_FAIL) << testing::PrintToString(Texts(reports));
  EXPECT_EQ(_Services.GetXMLSyntaxErrorList(reports), E_FAIL) << testing::PrintToString(Texts(reports));
}

INSTANTIATE_TEST_SUITE_P(Systems, ShippedCatalogueTest,
                         testing::Values(SystemRow{"Std", "STD", "dce_std.xml"}, SystemRow{"Uas", "UAS", "dce_uas.xml"},
                                         SystemRow{"Mek", "MEK", "dce_mek.xml"}, SystemRow{"Azb", "AZB", "dce_azb.xml"},
                                         SystemRow{"Mtm1", "MTM1", "dce_mtm1.xml"},
                                         SystemRow{"Mtm2", "MTM2", "dce_mtm2.xml"},
                                         SystemRow{"Rwf", "RWF", "dce_rwf.xml"}, SystemRow{"Sam", "SAM", "dce_sam.xml"},
                                         SystemRow{"Most", "MOST", "dce_most.xml"},
                                         SystemRow{"MiniMost", "MiniMOST", "dce_minimost.xml"},
                                         SystemRow{"MaxiMost", "MaxiMOST", "dce_maximost.xml"},
                                         SystemRow{"Modapts", "MODAPTS", "dce_modapts.xml"}),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
