// Analyses made value by value: which values a stream cannot hold, and what is told of each.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "VEXTADataIO.h"
#include "tests/support/RandomText.h"
#include "tests/tools/exchange/ModelComparison.h"
#include "tools/exchange/Losses.h"
#include "tools/exchange/StreamText.h"
#include "tools/exchange/StreamWriter.h"

namespace {

using tool::LossCause;

KORUnicodeString Text(std::string_view text) {
  return KORUnicodeString(text);
}

// An analysis, its stream, and what was read from that.
class StreamLossesTest : public testing::Test {
 protected:
  VEXTimeAnalysisRepReference& Analysis() { return *_Analysis; }

  void Store(int row, const std::function<void(VEXTimeAnalysisLineData& line)>& fill) {
    VEXTimeAnalysisLineData line;
    fill(line);
    ASSERT_EQ(_Analysis->SetLine(row, line), S_OK);
  }

  std::vector<tool::Loss> Losses() {
    Stream = tool::StreamOf(*_Analysis, _Vocabulary);
    const KORUnicodeString text(tool::WithoutStreamEnd(Stream + "\n"));
    KORListValKORUnicodeString items = VEXTADataIO::ExplodeString("|", text);
    Reread = tool::AnalysisHandle::Adopt(new VEXTimeAnalysisRepReference("A1"));
    tool::FillAnalysis(*Reread, items, _Services);
    return tool::LossesOfStream(*_Analysis, *Reread, _Vocabulary);
  }

  // One loss and no other.
  void ExpectLoss(int row, const std::string& name, const std::string& value, LossCause cause,
                  const std::string& detail = "") {
    const std::vector<tool::Loss> losses = Losses();
    ASSERT_EQ(losses.size(), 1u) << Stream;
    EXPECT_EQ(losses[0].Row, row);
    EXPECT_EQ(losses[0].Name, name);
    EXPECT_EQ(losses[0].Value, value);
    EXPECT_EQ(losses[0].Cause, cause) << static_cast<int>(losses[0].Cause);
    EXPECT_EQ(losses[0].Detail, detail);
  }

  void ExpectNoLoss() {
    EXPECT_TRUE(Losses().empty()) << Stream;
    EXPECT_EQ(Differences(*_Analysis, *Reread), std::set<std::string>()) << Stream;
  }

  std::string Stream;
  tool::AnalysisHandle Reread;

 private:
  KORFreshSession _Session;
  VEXSTMTimeAnalysisDlgServices _Services;
  tool::ExchangeVocabulary _Vocabulary;
  tool::AnalysisHandle _Analysis = KORModel::Current().CreateTimeAnalysis("A1");
};

TEST_F(StreamLossesTest, NothingToHold) {
  ExpectNoLoss();
  EXPECT_EQ(Stream, "Save||");
}

TEST_F(StreamLossesTest, StreamStandsAsTold) {
  Analysis().SetValue("V_Name", Text("Fetch"));
  Analysis().SetValue("V_Subsystem", Text("STD"));
  Analysis().SetValue("TAQuantity", 10.0);
  Store(1, [](VEXTimeAnalysisLineData& line) {
    line.SetValue("RowNum", 1);
    line.SetValue("Code", Text("G1"));
    line.SetValue("TTBTime", 0.5);
  });
  Store(2, [](VEXTimeAnalysisLineData& line) {
    line.SetValue("RowNum", 2);
    line.SetValue("IsStandardTextFlag", static_cast<unsigned char>(1));
  });
  ExpectNoLoss();
  EXPECT_EQ(Stream,
            "Save|Fetch|STD|AttributeData:name:8:Fetch|AttributeData:subsystem:8:STD|"
            "AttributeData:dbl_taquantity:5:10|LineData:et_linedata:0:0:8:standardtextflag|"
            "LineData:et_linedata:0:1:8:rowno|LineData:et_linedata:0:2:8:code|LineData:et_linedata:0:3:8:ttbtime|"
            "LineData:et_linedata:1:1:3:1|LineData:et_linedata:1:2:8:G1|LineData:et_linedata:1:3:5:0.5|"
            "LineData:et_linedata:2:0:11:1|LineData:et_linedata:2:1:3:2");
}

TEST_F(StreamLossesTest, SeparatorsInTexts) {
  for (const std::string& separator : {std::string(":"), std::string("|"), std::string("\0", 1)}) {
    Store(1, [&separator](VEXTimeAnalysisLineData& line) {
      line.SetValue("RowNum", 1);
      line.SetValue("Description", Text("Zu" + separator + "b"));
    });
    const std::string word = separator[0] == '\0' ? "NUL" : "\"" + separator + "\"";
    ExpectLoss(1, "Description", "Zu" + separator + "b", LossCause::Separator, word);
    EXPECT_EQ(Stream.find("Zu"), std::string::npos) << "it is left out";
  }
}

TEST_F(StreamLossesTest, SeparatorInTheNameIsNoItemOfItsOwn) {
  Analysis().SetValue("V_Name", Text("x|AttributeData:code:8:WRONG"));
  ExpectLoss(0, "V_Name", "x|AttributeData:code:8:WRONG", LossCause::Separator, "\"|\"");
  EXPECT_EQ(Stream, "Save||");
  Analysis().SetValue("V_Name", Text("LineData"));
  ExpectNoLoss();
  EXPECT_EQ(Stream, "Save|||AttributeData:name:8:LineData") << "the name at the head would be an item";
}

TEST_F(StreamLossesTest, AttributeWithoutAName) {
  testing::internal::CaptureStderr();
  Analysis().SetValue("MyOwn", Text("x"));
  ExpectLoss(0, "MyOwn", "x", LossCause::NoName);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "Failed to map attribute <MyOwn>\n") << "once";
}

TEST_F(StreamLossesTest, KeysWithoutAName) {
  Store(1, [](VEXTimeAnalysisLineData& line) {
    line.SetValue("RowNum", 1);
    line.SetValue("FormulaPicture", Text("p.png"));
  });
  ExpectLoss(1, "FormulaPicture", "p.png", LossCause::NoName);
}

TEST_F(StreamLossesTest, PrintedFrequencyWithoutAFormula) {
  Store(1, [](VEXTimeAnalysisLineData& line) {
    line.SetValue("RowNum", 1);
    line.SetValue("FrequencyString", Text("2"));
  });
  ExpectLoss(1, "FrequencyString", "2", LossCause::NoName);
}

TEST_F(StreamLossesTest, FormulaWithItsPrintedFrequency) {
  Store(1, [](VEXTimeAnalysisLineData& line) {
    line.SetValue("RowNum", 1);
    line.SetValue("FrequencyString", Text("2"));
    auto* const parameter = new VEXTimeAnalysisFormulaParameter;
    parameter->_ParameterName = "Time";
    KORRawCollPV parameters;
    parameters.Append(parameter);
    line.SetValue(KORFormulaParameterKey, parameters);
  });
  ExpectLoss(1, "FormulaParameter", "Time", LossCause::Formula);
}

TEST_F(StreamLossesTest, ValuesOfAnotherType) {
  Analysis().SetValue("TTBPart", Text("2"));
  ExpectLoss(0, "TTBPart", "2", LossCause::OtherType, "a number");
  EXPECT_NE(Stream.find("AttributeData:dbl_ttbpart:5:2"), std::string::npos) << "it comes back as a number";
}

TEST_F(StreamLossesTest, KeysOfAnotherType) {
  Store(1, [](VEXTimeAnalysisLineData& line) {
    line.SetValue("RowNum", 1);
    line.SetValue("Bitmask", 2.0);
  });
  ExpectLoss(1, "Bitmask", "2", LossCause::OtherType, "a whole number");
}

TEST_F(StreamLossesTest, NamesThatStandForOne) {
  Analysis().SetValue("V_description", Text("a"));
  ExpectNoLoss();
  Analysis().SetValue("AnalysisDescription", Text("a"));
  ExpectNoLoss();
  Analysis().SetValue("AnalysisDescription", Text("b"));
  ExpectLoss(0, "AnalysisDescription", "b", LossCause::OtherNameCarried, "V_description");
}

TEST_F(StreamLossesTest, RowNumbersOfTheirOwn) {
  Store(1, [](VEXTimeAnalysisLineData& line) { line.SetValue("RowNum", 7); });
  ExpectNoLoss();
}

TEST_F(StreamLossesTest, RowNumberMissing) {
  Store(1, [](VEXTimeAnalysisLineData& line) { line.SetValue("Code", Text("A")); });
  ExpectLoss(1, "RowNum", "", LossCause::RowNumber, "1");
}

// A line that has no cell has its row number in the stream, so that the next one is not taken for it.
TEST_F(StreamLossesTest, LineWithoutACell) {
  Store(1, [](VEXTimeAnalysisLineData&) {});
  Store(2, [](VEXTimeAnalysisLineData& line) {
    line.SetValue("RowNum", 2);
    line.SetValue("Code", Text("B"));
  });
  ExpectLoss(1, "RowNum", "", LossCause::RowNumber, "1");
  int count = 0;
  Reread->GetLineCount(count);
  EXPECT_EQ(count, 2);
}

TEST_F(StreamLossesTest, TotalsInSecondsFollowFromThoseOfTheLines) {
  Store(1, [](VEXTimeAnalysisLineData& line) {
    line.SetValue("RowNum", 1);
    line.SetValue("Code", Text("A"));
    line.SetValue("TimeType", Text("TTB"));
    line.SetValue("Factor", 1.0);
    line.SetValue("TTBTime", 1.23456789);
    line.SetValue("TotalTime", 1.23456789);
  });
  VEXSTMTimeAnalysisDlgServices().CalculateAnalyzedTimeBG(KORBaseUnknown_var(&Analysis()));
  ExpectNoLoss();
  double seconds = 0.0;
  EXPECT_EQ(Reread->GetValue("V_HumanTime", seconds), S_OK);
  EXPECT_DOUBLE_EQ(seconds, 1.234568);
  Analysis().SetValue("V_HumanTime", 1.0);
  ExpectLoss(0, "V_HumanTime", "1", LossCause::SecondsDiffer);
}

// The totals are not those of the lines, so nothing follows from them.
TEST_F(StreamLossesTest, TotalsThatWereNotComputed) {
  Analysis().SetValue("TTBCalculated", 100.0);
  Analysis().SetValue("V_HumanTime", 3.6);
  ExpectLoss(0, "V_HumanTime", "3.6", LossCause::SecondsDiffer);
}

TEST_F(StreamLossesTest, TheEndOfTheLastValue) {
  for (const char* end : {"\n", "\r\n", "\n\n", " ", "\r"}) {
    Store(1, [end](VEXTimeAnalysisLineData& line) {
      line.SetValue("RowNum", 1);
      line.SetValue("ParamFactorString", Text(std::string("a") + end));
    });
    ExpectNoLoss();
  }
}

TEST_F(StreamLossesTest, References) {
  const tool::AnalysisHandle reused = KORModel::Current().CreateTimeAnalysis("deep/b");
  const auto refer = [this](const KORBaseUnknown_var& analysis) {
    Store(1, [&analysis](VEXTimeAnalysisLineData& line) {
      line.SetValue("RowNum", 1);
      line.SetValue("TimeAnalysis", analysis);
    });
  };
  refer(reused);
  ExpectNoLoss();
  EXPECT_TRUE(Stream.ends_with("LineData:et_linedata:1:1:13:deep/b")) << Stream;
  refer(KORBaseUnknown_var());
  ExpectNoLoss();
  EXPECT_EQ(Stream.find("subanalysis"), std::string::npos) << "no analysis is no cell";
  refer(KORModel::Current().CreateTimeAnalysis("a:b"));
  ExpectLoss(1, "TimeAnalysis", "a:b", LossCause::Separator, "\":\"");
  refer(KORModel::Current().CreateTimeAnalysis(""));
  ExpectLoss(1, "TimeAnalysis", "", LossCause::Changed);
}

struct Number {
  const char* name;
  double value;
  const char* text;
};

class NumbersInStreamsTest : public StreamLossesTest, public testing::WithParamInterface<Number> {};

TEST_P(NumbersInStreamsTest, ComeBackBitForBit) {
  Analysis().SetValue("TTBPart", GetParam().value);
  ExpectNoLoss();
  EXPECT_TRUE(Stream.ends_with(std::string(":5:") + GetParam().text)) << Stream;
}

INSTANTIATE_TEST_SUITE_P(Rows, NumbersInStreamsTest,
                         testing::Values(Number{"Tenth", 0.1, "0.1"},
                                         Number{"SumOfTenths", 0.1 + 0.2, "0.30000000000000004"},
                                         Number{"MinusZero", -0.0, "-0"}, Number{"Large", 1e300, "1e+300"},
                                         Number{"Smallest", 5e-324, "5e-324"}, Number{"Infinity", HUGE_VAL, "inf"},
                                         Number{"NoNumber", std::nan(""), "nan"}, Number{"NoValue", -0.036, "-0.036"}),
                         [](const auto& row) { return std::string(row.param.name); });

// Analyses of any keys and types: the losses are the differences, found by another comparison.
TEST(RandomStreams, LoseWhatTheyTellOf) {
  static const std::vector<std::string> keys{
      "RowNum",  "Code",    "Factor",       "TTBTime",         "State",
      "Bitmask", "RuleOut", "TimeAnalysis", "FrequencyString", "IsStandardTextFlag"};
  static const std::vector<std::string> attributes{"V_Name", "TTBCalculated", "V_HumanTime", "State", "IsDirty"};
  static const std::vector<std::string> names_that_stand_for_one{"V_description", "AnalysisDescription", "Subsystem"};
  static const std::vector<std::string> pieces{"a", ":", "|", "\n", "é", "1"};
  const KORFreshSession session;
  VEXSTMTimeAnalysisDlgServices services;
  tool::ExchangeVocabulary vocabulary;
  support::RandomText random(7);
  const auto set = [&random](auto& holder, const std::string& key) {
    switch (random.Below(4)) {
      case 0:
        return holder.SetValue(KORString(key), random.Below(3));
      case 1:
        return holder.SetValue(KORString(key), random.Below(3) / 7.0);
      case 2:
        return holder.SetValue(KORString(key), static_cast<unsigned char>(random.Below(3)));
      default:
        return holder.SetValue(KORString(key), Text(random.Draw(pieces, random.OneIn(3) ? 3 : 1)));
    }
  };
  int lossless = 0;
  for (int round = 0; round < 2000; ++round) {
    const auto written = tool::AnalysisHandle::Adopt(new VEXTimeAnalysisRepReference("A"));
    for (const std::string& attribute : attributes) {
      if (random.OneIn(4)) set(*written, attribute);
    }
    for (const std::string& attribute : names_that_stand_for_one) {
      if (random.OneIn(4)) written->SetValue(KORString(attribute), Text(random.Draw(pieces, 1)));
    }
    for (int row = 1, count = random.Below(4); row <= count; ++row) {
      VEXTimeAnalysisLineData line;
      if (!random.OneIn(6)) line.SetValue("RowNum", row);
      for (const std::string& key : keys) {
        if (random.OneIn(8)) set(line, key);
      }
      written->SetLine(row, line);
    }
    const std::string stream = tool::StreamOf(*written, vocabulary);
    const KORUnicodeString text(tool::WithoutStreamEnd(stream + "\n"));
    KORListValKORUnicodeString items = VEXTADataIO::ExplodeString("|", text);
    const auto reread = tool::AnalysisHandle::Adopt(new VEXTimeAnalysisRepReference("A"));
    tool::FillAnalysis(*reread, items, services);
    std::set<std::string> lost;
    for (const tool::Loss& loss : tool::LossesOfStream(*written, *reread, vocabulary)) {
      lost.insert((loss.Row == 0 ? "" : std::to_string(loss.Row) + " ") + loss.Name);
    }
    ASSERT_EQ(lost, Differences(*written, *reread)) << "round " << round << ": " << stream;
    lossless += lost.empty() ? 1 : 0;
  }
  EXPECT_GT(lossless, 100);
  EXPECT_LT(lossless, 1900);
}

}  // namespace
