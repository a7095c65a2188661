// What the attributes of an analysis and the values of its lines are called in the exchange, and of which type they
// are.
#pragma once

#include <array>
#include <string_view>

namespace exchange {

/// Types of values, numbered as OLE variant types.
enum class ValueType {
  Integer = 3,    // VT_I4       decimal integer
  Real = 5,       // VT_R8       "." as decimal character
  Text = 8,       // VT_BSTR     as it stands
  Boolean = 11,   // VT_BOOL     "0": false, any other integer: true
  Analysis = 13,  // VT_UNKNOWN  "PLM_ExternalID" of the analysis referred to
};

/// An attribute of the analysis.
struct AttributeRow {
  std::string_view Key;    // in the exchange
  std::string_view Names;  // on the analysis, joined by "|": the same value was held in different attributes over time
  ValueType Type;
};

/// A value of a line.
struct LineRow {
  std::string_view Key;      // in the exchange
  std::string_view LineKey;  // in VEXTimeAnalysisLineData
  int Column;                // in the form that is written
  ValueType Type;
};

// clang-format off
inline constexpr std::array<AttributeRow, 87> AttributeTable{{
    {"analysisdescription",         "V_description|V_LongDescription|AnalysisDescription", ValueType::Text},
    {"analysisdescription2",        "AnalysisDescription2",             ValueType::Text},
    {"name",                        "V_Name",                           ValueType::Text},
    {"code",                        "Code",                             ValueType::Text},
    {"timetype",                    "V_TimeType|TimeType",              ValueType::Text},
    {"analysistype",                "V_AnalysisType|AnalysisType",      ValueType::Text},
    {"state",                       "State",                            ValueType::Integer},
    {"subsystem",                   "V_Subsystem|Subsystem",            ValueType::Text},
    {"timeunit",                    "TimeUnit",                         ValueType::Text},
    {"basictimeunit",               "BasicTimeUnit",                    ValueType::Text},
    {"totaltimeunit",               "TotalTimeUnit",                    ValueType::Text},
    {"bitmask",                     "Bitmask",                          ValueType::Integer},
    {"rulepattern",                 "RulePattern",                      ValueType::Integer},
    {"rulepattern2",                "RulePattern2",                     ValueType::Integer},
    {"dbl_totalentered",            "TotalEntered",                     ValueType::Real},
    {"truncaterule",                "TruncateRule",                     ValueType::Integer},
    {"dbl_ttbpart",                 "TTBPart",                          ValueType::Real},
    {"dbl_ttupart",                 "TTUPart",                          ValueType::Real},
    {"dbl_trgpart",                 "TRGPart",                          ValueType::Real},
    {"dbl_twpart",                  "TWPart",                           ValueType::Real},
    {"dbl_totalpart",               "TotalPart",                        ValueType::Real},
    {"applicationtype",             "ApplicationType",                  ValueType::Integer},
    {"version",                     "Version",                          ValueType::Integer},
    {"isdirty",                     "IsDirty",                          ValueType::Boolean},
    {"note",                        "Note",                             ValueType::Text},
    {"longtext",                    "LongText",                         ValueType::Text},
    {"department",                  "Department",                       ValueType::Text},
    {"workshop",                    "Workshop",                         ValueType::Text},
    {"costcenter",                  "Costcenter",                       ValueType::Text},
    {"workplace",                   "Workplace",                        ValueType::Text},
    {"auditor",                     "Auditor",                          ValueType::Text},
    {"wdstart",                     "WDStart",                          ValueType::Text},
    {"wdend",                       "WDEnd",                            ValueType::Text},
    {"wdlimitation",                "WDLimitation",                     ValueType::Text},
    {"wdinclude",                   "WDInclude",                        ValueType::Text},
    {"wdtext",                      "WDText",                           ValueType::Text},
    {"taworksequence",              "TAWorkSequence",                   ValueType::Text},
    {"effectivity.begin",           "EffectivityBegin",                 ValueType::Real},
    {"effectivity.end",             "EffectivityEnd",                   ValueType::Real},
    {"jobcircumstances",            "JobCircumstances",                 ValueType::Text},
    {"protectivemethod",            "ProtectiveMethod",                 ValueType::Text},
    {"delivery",                    "Delivery",                         ValueType::Text},
    {"stateofquality",              "StateOfQuality",                   ValueType::Text},
    {"auxmaterial",                 "AuxMaterial",                      ValueType::Text},
    {"awllg",                       "awllg",                            ValueType::Text},
    {"guideline",                   "Guideline",                        ValueType::Text},
    {"tercode",                     "TERCode",                          ValueType::Text},
    {"trcode",                      "TRCode",                           ValueType::Text},
    {"trbcode",                     "TRBCode",                          ValueType::Text},
    {"tvcode",                      "TVCode",                           ValueType::Text},
    {"tvbcode",                     "TVBCode",                          ValueType::Text},
    {"analysislines",               "AnalysisLinesHTML",                ValueType::Text},
    {"dbl_ttbcalculated",           "TTBCalculated",                    ValueType::Real},
    {"dbl_ttucalculated",           "TTUCalculated",                    ValueType::Real},
    {"dbl_twcalculated",            "TWCalculated",                     ValueType::Real},
    {"dbl_trgcalculated",           "TRGCalculated",                    ValueType::Real},
    {"dbl_totalcalculated",         "TotalCalculated",                  ValueType::Real},
    {"dbl_ttbentered",              "TTBEntered",                       ValueType::Real},
    {"dbl_ttuentered",              "TTUEntered",                       ValueType::Real},
    {"dbl_twentered",               "TWEntered",                        ValueType::Real},
    {"dbl_trgentered",              "TRGEntered",                       ValueType::Real},
    {"dbl_taquantity",              "TAQuantity",                       ValueType::Real},
    {"dbl_tapartssimultan",         "TAPartsSimultan",                  ValueType::Real},
    {"tecalcquantity",              "TECalcQuantity",                   ValueType::Real},
    {"tecalcunit",                  "TECalcUnit",                       ValueType::Text},
    {"tecalcperiod",                "TECalcPeriod",                     ValueType::Real},
    {"tetecalcquantity",            "TETECalcQuantity",                 ValueType::Real},
    {"tetrcalcquantity",            "TETRCalcQuantity",                 ValueType::Real},
    {"tetecalcquantityentered",     "TETECalcQuantityEntered",          ValueType::Real},
    {"tetrcalcquantityentered",     "TETRCalcQuantityEntered",          ValueType::Real},
    {"tetgpart",                    "TETGPart",                         ValueType::Real},
    {"tetepart",                    "TETEPart",                         ValueType::Real},
    {"tetrpart",                    "TETRPart",                         ValueType::Real},
    {"teperformancefactor",         "TEPerformanceFactor",              ValueType::Real},
    {"teperformancerating",         "TEPerformanceRating",              ValueType::Real},
    {"tepartsperminute",            "TEPartsPerMinute",                 ValueType::Real},
    {"tepartsperhour",              "TEPartsPerHour",                   ValueType::Real},
    {"tepartspercalcperiod",        "TEPartsPerCalcPeriod",             ValueType::Real},
    {"tepartsperminuteperform",     "TEPartsPerMinutePerform",          ValueType::Real},
    {"tepartsperhourperform",       "TEPartsPerHourPerform",            ValueType::Real},
    {"tepartspercalcperiodperform", "TEPartsPerCalcPeriodPerform",      ValueType::Real},
    {"dbl_ttbpartallowance",        "TTBPartAllowance",                 ValueType::Real},
    {"dbl_ttupartallowance",        "TTUPartAllowance",                 ValueType::Real},
    {"dbl_trgpartallowance",        "TRGPartAllowance",                 ValueType::Real},
    {"dbl_twpartallowance",         "TWPartAllowance",                  ValueType::Real},
    {"dbl_totalpartallowance",      "TotalPartAllowance",               ValueType::Real},
    {"valueadded",                  "V_ValueAdded",                     ValueType::Text},
}};

// Columns 26 and 27 are not assigned.
inline constexpr std::array<LineRow, 33> LineTable{{
    {"standardtextflag",    "IsStandardTextFlag",    0, ValueType::Boolean},
    {"ablaufabschnname",    "ActivitySectionName",   1, ValueType::Text},
    {"rowno",               "RowNum",                2, ValueType::Integer},
    {"analysisdescription", "Description",           3, ValueType::Text},
    {"code",                "Code",                  4, ValueType::Text},
    {"timetype",            "TimeType",              5, ValueType::Text},
    {"analysistype",        "AnalysisType",          6, ValueType::Text},
    {"totaltime",           "TotalTime",             7, ValueType::Real},
    {"bitmask",             "Bitmask",               8, ValueType::Integer},
    {"factor",              "Factor",                9, ValueType::Real},
    {"totalcalc",           "TotalCalc",            10, ValueType::Real},
    {"state",               "State",                11, ValueType::Integer},
    {"linetype",            "LineType",             12, ValueType::Text},
    {"rulein",              "RuleIn",               13, ValueType::Text},
    {"ruleout",             "RuleOut",              14, ValueType::Text},
    {"ttbtime",             "TTBTime",              15, ValueType::Real},
    {"ttutime",             "TTUTime",              16, ValueType::Real},
    {"trgtime",             "TRGTime",              17, ValueType::Real},
    {"twtime",              "TWTime",               18, ValueType::Real},
    {"factorstring",        "FactorString",         19, ValueType::Text},
    {"ttbcalc",             "TTBCalc",              20, ValueType::Real},
    {"ttucalc",             "TTUCalc",              21, ValueType::Real},
    {"trgcalc",             "TRGCalc",              22, ValueType::Real},
    {"twcalc",              "TWCalc",               23, ValueType::Real},
    {"adddescription",      "AddDescription",       24, ValueType::Text},
    {"subanalysis",         "TimeAnalysis",         25, ValueType::Analysis},
    {"valueadded",          "ValueAdded",           28, ValueType::Text},
    {"ttbcalcallowance",    "TTBCalcAllowance",     29, ValueType::Real},
    {"ttucalcallowance",    "TTUCalcAllowance",     30, ValueType::Real},
    {"trgcalcallowance",    "TRGCalcAllowance",     31, ValueType::Real},
    {"twcalcallowance",     "TWCalcAllowance",      32, ValueType::Real},
    {"totalcalcallowance",  "TotalCalcAllowance",   33, ValueType::Real},
    {"text1",               "ParamFactorString",    34, ValueType::Text},
}};
// clang-format on

/// The rows by key, and by what stands behind it: whole names, capital and small letters told apart, the first row that
/// has it. Null if there is none.
const AttributeRow* FindAttributeByKey(std::string_view key);
const AttributeRow* FindAttributeByName(std::string_view name);
const LineRow* FindLineValueByKey(std::string_view key);
const LineRow* FindLineValueByLineKey(std::string_view line_key);

}  // namespace exchange
