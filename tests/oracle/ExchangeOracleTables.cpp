// The two tables of the exchange, and the stream of a new analysis of the system STD.
#include "ExchangeOracle.h"

namespace oracle {

// clang-format off
const std::vector<ExchangeAttribute>& ExchangeAttributes() {
  static const std::vector<ExchangeAttribute> table{
      {"analysisdescription", "V_description|V_LongDescription|AnalysisDescription", 8},
      {"analysisdescription2", "AnalysisDescription2", 8},
      {"name", "V_Name", 8},
      {"code", "Code", 8},
      {"timetype", "V_TimeType|TimeType", 8},
      {"analysistype", "V_AnalysisType|AnalysisType", 8},
      {"state", "State", 3},
      {"subsystem", "V_Subsystem|Subsystem", 8},
      {"timeunit", "TimeUnit", 8},
      {"basictimeunit", "BasicTimeUnit", 8},
      {"totaltimeunit", "TotalTimeUnit", 8},
      {"bitmask", "Bitmask", 3},
      {"rulepattern", "RulePattern", 3},
      {"rulepattern2", "RulePattern2", 3},
      {"dbl_totalentered", "TotalEntered", 5},
      {"truncaterule", "TruncateRule", 3},
      {"dbl_ttbpart", "TTBPart", 5},
      {"dbl_ttupart", "TTUPart", 5},
      {"dbl_trgpart", "TRGPart", 5},
      {"dbl_twpart", "TWPart", 5},
      {"dbl_totalpart", "TotalPart", 5},
      {"applicationtype", "ApplicationType", 3},
      {"version", "Version", 3},
      {"isdirty", "IsDirty", 11},
      {"note", "Note", 8},
      {"longtext", "LongText", 8},
      {"department", "Department", 8},
      {"workshop", "Workshop", 8},
      {"costcenter", "Costcenter", 8},
      {"workplace", "Workplace", 8},
      {"auditor", "Auditor", 8},
      {"wdstart", "WDStart", 8},
      {"wdend", "WDEnd", 8},
      {"wdlimitation", "WDLimitation", 8},
      {"wdinclude", "WDInclude", 8},
      {"wdtext", "WDText", 8},
      {"taworksequence", "TAWorkSequence", 8},
      {"effectivity.begin", "EffectivityBegin", 5},
      {"effectivity.end", "EffectivityEnd", 5},
      {"jobcircumstances", "JobCircumstances", 8},
      {"protectivemethod", "ProtectiveMethod", 8},
      {"delivery", "Delivery", 8},
      {"stateofquality", "StateOfQuality", 8},
      {"auxmaterial", "AuxMaterial", 8},
      {"awllg", "awllg", 8},
      {"guideline", "Guideline", 8},
      {"tercode", "TERCode", 8},
      {"trcode", "TRCode", 8},
      {"trbcode", "TRBCode", 8},
      {"tvcode", "TVCode", 8},
      {"tvbcode", "TVBCode", 8},
      {"analysislines", "AnalysisLinesHTML", 8},
      {"dbl_ttbcalculated", "TTBCalculated", 5},
      {"dbl_ttucalculated", "TTUCalculated", 5},
      {"dbl_twcalculated", "TWCalculated", 5},
      {"dbl_trgcalculated", "TRGCalculated", 5},
      {"dbl_totalcalculated", "TotalCalculated", 5},
      {"dbl_ttbentered", "TTBEntered", 5},
      {"dbl_ttuentered", "TTUEntered", 5},
      {"dbl_twentered", "TWEntered", 5},
      {"dbl_trgentered", "TRGEntered", 5},
      {"dbl_taquantity", "TAQuantity", 5},
      {"dbl_tapartssimultan", "TAPartsSimultan", 5},
      {"tecalcquantity", "TECalcQuantity", 5},
      {"tecalcunit", "TECalcUnit", 8},
      {"tecalcperiod", "TECalcPeriod", 5},
      {"tetecalcquantity", "TETECalcQuantity", 5},
      {"tetrcalcquantity", "TETRCalcQuantity", 5},
      {"tetecalcquantityentered", "TETECalcQuantityEntered", 5},
      {"tetrcalcquantityentered", "TETRCalcQuantityEntered", 5},
      {"tetgpart", "TETGPart", 5},
      {"tetepart", "TETEPart", 5},
      {"tetrpart", "TETRPart", 5},
      {"teperformancefactor", "TEPerformanceFactor", 5},
      {"teperformancerating", "TEPerformanceRating", 5},
      {"tepartsperminute", "TEPartsPerMinute", 5},
      {"tepartsperhour", "TEPartsPerHour", 5},
      {"tepartspercalcperiod", "TEPartsPerCalcPeriod", 5},
      {"tepartsperminuteperform", "TEPartsPerMinutePerform", 5},
      {"tepartsperhourperform", "TEPartsPerHourPerform", 5},
      {"tepartspercalcperiodperform", "TEPartsPerCalcPeriodPerform", 5},
      {"dbl_ttbpartallowance", "TTBPartAllowance", 5},
      {"dbl_ttupartallowance", "TTUPartAllowance", 5},
      {"dbl_trgpartallowance", "TRGPartAllowance", 5},
      {"dbl_twpartallowance", "TWPartAllowance", 5},
      {"dbl_totalpartallowance", "TotalPartAllowance", 5},
      {"valueadded", "V_ValueAdded", 8},
  };
  return table;
}

const std::vector<ExchangeLineKey>& ExchangeLineKeys() {
  // There is no column 26 and no column 27.
  static const std::vector<ExchangeLineKey> table{
      {"standardtextflag", "IsStandardTextFlag", 0, 11},
      {"ablaufabschnname", "ActivitySectionName", 1, 8},
      {"rowno", "RowNum", 2, 3},
      {"analysisdescription", "Description", 3, 8},
      {"code", "Code", 4, 8},
      {"timetype", "TimeType", 5, 8},
      {"analysistype", "AnalysisType", 6, 8},
      {"totaltime", "TotalTime", 7, 5},
      {"bitmask", "Bitmask", 8, 3},
      {"factor", "Factor", 9, 5},
      {"totalcalc", "TotalCalc", 10, 5},
      {"state", "State", 11, 3},
      {"linetype", "LineType", 12, 8},
      {"rulein", "RuleIn", 13, 8},
      {"ruleout", "RuleOut", 14, 8},
      {"ttbtime", "TTBTime", 15, 5},
      {"ttutime", "TTUTime", 16, 5},
      {"trgtime", "TRGTime", 17, 5},
      {"twtime", "TWTime", 18, 5},
      {"factorstring", "FactorString", 19, 8},
      {"ttbcalc", "TTBCalc", 20, 5},
      {"ttucalc", "TTUCalc", 21, 5},
      {"trgcalc", "TRGCalc", 22, 5},
      {"twcalc", "TWCalc", 23, 5},
      {"adddescription", "AddDescription", 24, 8},
      {"subanalysis", "TimeAnalysis", 25, 13},
      {"valueadded", "ValueAdded", 28, 8},
      {"ttbcalcallowance", "TTBCalcAllowance", 29, 5},
      {"ttucalcallowance", "TTUCalcAllowance", 30, 5},
      {"trgcalcallowance", "TRGCalcAllowance", 31, 5},
      {"twcalcallowance", "TWCalcAllowance", 32, 5},
      {"totalcalcallowance", "TotalCalcAllowance", 33, 5},
      {"text1", "ParamFactorString", 34, 8},
  };
  return table;
}
// clang-format on

namespace {

// The attribute items, with what stands ahead of them.
const char* const DefaultAttributes =
    "Save|New STM - STD|STD"
    "|AttributeData:analysisdescription:8:New Operation 3"
    "|AttributeData:analysisdescription2:8:"
    "|AttributeData:name:8:New STM - STD"
    "|AttributeData:code:8:New STM - STD"
    "|AttributeData:timetype:8:TA"
    "|AttributeData:analysistype:8:P"
    "|AttributeData:subsystem:8:STD"
    "|AttributeData:timeunit:8:UA_TIME_TMU"
    "|AttributeData:basictimeunit:8:UA_TIME_TMU"
    "|AttributeData:wdstart:8:"
    "|AttributeData:wdend:8:"
    "|AttributeData:wdlimitation:8:"
    "|AttributeData:wdinclude:8:"
    "|AttributeData:wdtext:8:"
    "|AttributeData:dbl_ttbcalculated:5:2.952"
    "|AttributeData:dbl_ttucalculated:5:1.800000036"
    "|AttributeData:dbl_twcalculated:5:3.6"
    "|AttributeData:dbl_trgcalculated:5:11.99999988"
    "|AttributeData:dbl_totalcalculated:5:8.352000036"
    "|AttributeData:dbl_taquantity:5:10"
    "|AttributeData:dbl_tapartssimultan:5:2";

// The header row.
const char* const DefaultHeader =
    "|LineData:et_linedata:0:0:8:standardtextflag"
    "|LineData:et_linedata:0:1:8:rowno"
    "|LineData:et_linedata:0:2:8:analysisdescription"
    "|LineData:et_linedata:0:3:8:code"
    "|LineData:et_linedata:0:4:8:timetype"
    "|LineData:et_linedata:0:5:8:analysistype"
    "|LineData:et_linedata:0:6:8:totaltime"
    "|LineData:et_linedata:0:7:8:factor"
    "|LineData:et_linedata:0:8:8:totalcalc"
    "|LineData:et_linedata:0:9:8:ttbtime"
    "|LineData:et_linedata:0:10:8:ttutime"
    "|LineData:et_linedata:0:11:8:trgtime"
    "|LineData:et_linedata:0:12:8:twtime"
    "|LineData:et_linedata:0:13:8:adddescription";

// A line of the stream. What isn't here is the same in all of them.
struct DefaultLine {
  const char* row;
  const char* description;
  const char* code;
  const char* time_type;
  const char* total_time;
  const char* factor;
  const char* total_calculated;
  const char* ttb_time;
  const char* ttu_time;
  const char* trg_time;
  const char* tw_time;
};

const std::vector<DefaultLine>& DefaultLines() {
  // clang-format off
  static const std::vector<DefaultLine> lines{
      {"1", "Get", "ALE05", "TTB", "0.288", "1", "-0.036", "0.288", "-0.036", "-0.036", "-0.036"},
      {"2", "Get", "ALZ45", "TTB", "0.756", "1", "-0.036", "0.756", "-0.036", "-0.036", "-0.036"},
      {"3", "Get", "AMZ60", "TTB", "1.08", "1", "1.08", "1.08", "-0.036", "-0.036", "-0.036"},
      {"4", "Get", "AKZ15", "TTB", "0.324", "1", "0.324", "0.324", "-0.036", "-0.036", "-0.036"},
      {"5", "Place", "PLZ15", "TTB", "0.756", "1", "0.756", "0.756", "-0.036", "-0.036", "-0.036"},
      {"6", "Regrasp pass", "GNU", "TTB", "0.216", "1", "0.216", "0.216", "-0.036", "-0.036", "-0.036"},
      {"7", "Application of force, large", "GKG", "TTB", "0.576", "1", "0.576", "0.576", "-0.036", "-0.036", "-0.036"},
      {"8", "Restricted Process Time", "PTUHMIN1", "TTU", "0.600000012", "3", "1.800000036", "-0.036", "0.600000012", "-0.036", "-0.036"},
      {"9", "Process Setup Time", "PTRHMIN2", "TRG", "1.199999988", "10", "0", "-0.036", "-0.036", "1.199999988", "-0.036"},
      {"10", "Process Waiting Time", "PTWHMIN3", "TW", "1.8", "2", "3.6", "-0.036", "-0.036", "-0.036", "1.8"},
  };
  // clang-format on
  return lines;
}

std::string DefaultCell(const DefaultLine& line, const char* column, const char* type, const char* value) {
  return std::string("|LineData:et_linedata:") + line.row + ":" + column + ":" + type + ":" + value;
}

}  // namespace

std::string ExchangeDefaultStream() {
  std::string stream = std::string(DefaultAttributes) + DefaultHeader;
  for (const DefaultLine& line : DefaultLines()) {
    stream += DefaultCell(line, "0", "3", "1");
    stream += DefaultCell(line, "1", "3", line.row);
    stream += DefaultCell(line, "2", "8", line.description);
    stream += DefaultCell(line, "3", "8", line.code);
    stream += DefaultCell(line, "4", "8", line.time_type);
    stream += DefaultCell(line, "5", "8", " ");
    stream += DefaultCell(line, "6", "5", line.total_time);
    stream += DefaultCell(line, "7", "5", line.factor);
    stream += DefaultCell(line, "8", "5", line.total_calculated);
    stream += DefaultCell(line, "9", "5", line.ttb_time);
    stream += DefaultCell(line, "10", "5", line.ttu_time);
    stream += DefaultCell(line, "11", "5", line.trg_time);
    stream += DefaultCell(line, "12", "5", line.tw_time);
    stream += DefaultCell(line, "13", "8", "");
  }
  return stream;
}

}  // namespace oracle
