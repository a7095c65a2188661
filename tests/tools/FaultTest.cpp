// Faults of entries, examples, links and settings, in catalogues made for the test.
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/TemporaryFolder.h"
#include "tests/tools/ToolRun.h"

namespace {

std::string Entry(const std::string& id, const std::string& fields) {
  return "<DATACARDENTRY><CODE_ID>" + id + "</CODE_ID>" + fields + "</DATACARDENTRY>";
}

std::string WriteEntries(const support::TemporaryFolder& folder, const std::string& entries) {
  folder.Write("DataCardEntry/dce_std.xml", "<C>" + entries + "</C>");
  return folder.Path();
}

// Entries of each form: the code itself, a number behind it, and a pattern with an option.
const std::string failing_entries =
    Entry("1", "<CODE>ZERO</CODE><TIME>2-2</TIME>") + Entry("2", "<CODE>PLUS</CODE><TIME>1+</TIME>") +
    Entry("3", "<CODE>SEC</CODE><TIME>$1$/0.036</TIME><PAR_1_START>0</PAR_1_START><PAR_1_END>99</PAR_1_END>") +
    Entry("4", "<CODE>DIV1</CODE><TIME>10/$1$</TIME><PATTERN>\"DIV\"%[0,9](|\"X\"|\"\")</PATTERN><PATTERN1/>") +
    Entry("5",
          "<CODE>DIV1X</CODE><TIME>10*$1$</TIME><PATTERN>\"DIV\"%[0,9](|\"X\"|\"\")</PATTERN><PATTERN1/>"
          "<OPTION><PAR_ID>4</PAR_ID><TIME>+*</TIME><OPTION_ID>1</OPTION_ID></OPTION>") +
    Entry("6", "<CODE>HUGE</CODE><TIME>exp(1000)</TIME>") + Entry("7", "<CODE>NAN</CODE><TIME>sqrt(2-3)</TIME>");

struct FormulaRow {
  const char* name;
  const char* code;
  const char* message;  // part of it; empty: none
};

class FailingFormulaTest : public testing::TestWithParam<FormulaRow> {};

TEST_P(FailingFormulaTest, IsTold) {
  const support::TemporaryFolder folder;
  const ToolOutcome outcome =
      RunInProcess({"code", "STD", GetParam().code, "--catalogue", WriteEntries(folder, failing_entries)});
  const std::string message = GetParam().message;
  EXPECT_EQ(outcome.ExitStatus, message.empty() ? 0 : 1) << outcome.Errors;
  EXPECT_EQ(outcome.Errors.empty(), message.empty()) << outcome.Errors;
  EXPECT_NE(outcome.Errors.find(message), std::string::npos) << outcome.Errors;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FailingFormulaTest,
    testing::Values(FormulaRow{"ZeroIsATime", "ZERO", ""},
                    FormulaRow{"SyntaxError", "PLUS", "the formula \"1+\" of entry 2 (PLUS) cannot be evaluated"},
                    FormulaRow{"NumberBehind", "SEC9", ""},
                    FormulaRow{"NoNumberBehind", "SEC9X", "the formula \"9X/0.036\" of entry 3 (SEC)"},
                    FormulaRow{"BareCode", "SEC", "the formula \"/0.036\" of entry 3 (SEC)"},
                    FormulaRow{"Pattern", "DIV5", ""},
                    FormulaRow{"DivisionByZero", "DIV0", "the formula \"10/0\" of entry 4 (DIV1)"},
                    FormulaRow{"Option", "DIV5X", "the formula \"10*5+*\" of entry 5 (DIV1X)"},
                    FormulaRow{"Infinite", "HUGE", "the formula of entry 6 (HUGE) gives inf"},
                    FormulaRow{"NotANumber", "NAN", "the formula of entry 7 (NAN) gives"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Examples, AreAnsweredByTheirEntryWithItsOptions) {
  const support::TemporaryFolder folder;
  const std::string pattern = "<PATTERN>\"B\"(|\"X\"|\"\")</PATTERN><PATTERN1/>";
  const std::string root = WriteEntries(
      folder, Entry("1", "<CODE>A</CODE><TIME>1</TIME><EXAMPLE>B</EXAMPLE>") +
                  Entry("2", "<CODE>B</CODE><TIME>1</TIME>" + pattern + "<EXAMPLE>B</EXAMPLE>") +
                  Entry("3", "<CODE>BX</CODE><TIME>1</TIME>" + pattern +
                                 "<OPTION><PAR_ID>3</PAR_ID><TIME>+1</TIME><OPTION_ID>2</OPTION_ID></OPTION>"
                                 "<EXAMPLE>BX</EXAMPLE><EXAMPLE_OPTION_ID>1</EXAMPLE_OPTION_ID>"));
  const ToolOutcome outcome = RunInProcess({"catalogue", "check", root});
  EXPECT_NE(outcome.Output.find("B is answered by entry 2 (B)"), std::string::npos) << outcome.Output;
  EXPECT_NE(outcome.Output.find("BX has the options 2, EXAMPLE_OPTION_ID says 1"), std::string::npos) << outcome.Output;
  EXPECT_NE(outcome.Output.find("2 findings"), std::string::npos) << outcome.Output;
}

TEST(Links, WithoutTheirFileAreFindings) {
  const support::TemporaryFolder folder;
  const std::string root = WriteEntries(folder, Entry("1", "<CODE>A</CODE><TIME>1</TIME>"));
  folder.MakeFolder("DataCard");
  for (const char* link : {"DataCardEntry/dce_mtm1.xml", "DataCard/dcg_std.xml"}) {
    std::filesystem::create_symlink("nowhere.xml", folder.Path(link));
  }
  const ToolOutcome outcome = RunInProcess({"catalogue", "check", root, "--json"});
  EXPECT_EQ(outcome.ExitStatus, 1);
  for (const char* link : {"DataCardEntry/dce_mtm1.xml", "DataCard/dcg_std.xml"}) {
    EXPECT_NE(outcome.Output.find(std::string(link) + R"(","line":0,"entry":0,"code":"","kind":"file","text":"a link)"),
              std::string::npos)
        << outcome.Output;
  }
}

struct ConversionRow {
  const char* name;
  const char* value;
  int status;
};

class ConversionTest : public testing::TestWithParam<ConversionRow> {};

TEST_P(ConversionTest, IsToldIfUnusable) {
  const support::TemporaryFolder folder;
  const std::string root = WriteEntries(folder, Entry("1", "<CODE>A</CODE><TIME>1</TIME>"));
  const std::string settings =
      folder.Write("my.settings", std::string("mintotmuconversion = ") + GetParam().value + "\n");
  const ToolOutcome outcome = RunInProcess({"code", "STD", "A", "--catalogue", root, "--settings", settings});
  EXPECT_EQ(outcome.ExitStatus, GetParam().status) << outcome.Errors;
  EXPECT_EQ(outcome.Errors.find("mintotmuconversion") != std::string::npos, GetParam().status != 0) << outcome.Errors;
  EXPECT_EQ(outcome.Output.substr(0, 2), "A\n") << "the run goes on";
}

INSTANTIATE_TEST_SUITE_P(Rows, ConversionTest,
                         testing::Values(ConversionRow{"Usable", "2000", 0}, ConversionRow{"NoNumber", "many", 1},
                                         ConversionRow{"Zero", "0", 1}, ConversionRow{"Negative", "-2000", 1},
                                         ConversionRow{"Infinite", "inf", 1}, ConversionRow{"Empty", "", 1}),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
