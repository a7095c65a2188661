// Parameters, their values and magnitudes, and the factory that makes them.
#include <cmath>
#include <limits>

#include "tests/knowledge/KnowledgeTest.h"

namespace knowledgetest {
namespace {

struct MagnitudeCase {
  const char* Name;
  const char* Unit;
};

class MagnitudeTest : public testing::TestWithParam<MagnitudeCase> {};

TEST_P(MagnitudeTest, HasItsUnit) {
  const KORCkeMagnitude* const magnitude = KORParmDictionary::FindMagnitude(GetParam().Name);
  ASSERT_NE(magnitude, nullptr);
  EXPECT_STREQ(magnitude->Name, GetParam().Name);
  EXPECT_STREQ(magnitude->Unit, GetParam().Unit);
}

INSTANTIATE_TEST_SUITE_P(All, MagnitudeTest,
                         testing::Values(MagnitudeCase{"Time", "s"}, MagnitudeCase{"Length", "m"},
                                         MagnitudeCase{"Mass", "kg"}, MagnitudeCase{"Angle", "rad"},
                                         MagnitudeCase{"Number", ""}),
                         RowName());

TEST(MagnitudeTest, UnknownNames) {
  for (const char* const name : {"", "time", "TIME", "Time ", "Real", "Integer", "String", "Colour"}) {
    EXPECT_EQ(KORParmDictionary::FindMagnitude(name), nullptr) << name;
  }
}

// What each reader gives; the least integer is what a real outside 32 bits becomes.
struct ReaderCase {
  const char* Name;
  Given Value;
  int Integer;
  double Real;
  const char* String;
};

class ReaderTest : public testing::TestWithParam<ReaderCase> {};

TEST_P(ReaderTest, GivesTheValueInEveryForm) {
  const ReaderCase& row = GetParam();
  const KORICkeParm_var parameter = Parameter("Frequency", row.Value);
  EXPECT_EQ(Text(parameter->RoleName()), "Frequency");
  EXPECT_EQ(parameter->Value()->AsInteger(), row.Integer);
  EXPECT_EQ(parameter->Value()->AsReal(), row.Real);
  EXPECT_EQ(Text(parameter->Value()->AsString()), row.String);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ReaderTest,
    testing::Values(ReaderCase{"Integer", I(-3), -3, -3.0, "-3"}, ReaderCase{"Real", R(2.75), 2, 2.75, "2.75"},
                    ReaderCase{"NegativeReal", R(-2.75), -2, -2.75, "-2.75"},
                    ReaderCase{"LargeReal", R(1e10), std::numeric_limits<int>::min(), 1e10, "1e+10"},
                    ReaderCase{"Dimension", D("Time", 0.036), 0, 0.036, "0.036"},
                    ReaderCase{"Text", T("12 steps"), 0, 0.0, "12 steps"}, ReaderCase{"EmptyText", T(""), 0, 0.0, ""},
                    ReaderCase{"Letters", T("gr\xC3\xBC\xC3\x9F"), 0, 0.0, "gr\xC3\xBC\xC3\x9F"}),
    RowName());

TEST(ParameterTest, KnowsItsKindAndMagnitude) {
  using KORCke::ValueKind;
  EXPECT_EQ(Parameter("p", I(1))->Value()->GetKind(), ValueKind::Integer);
  EXPECT_EQ(Parameter("p", R(1))->Value()->GetKind(), ValueKind::Real);
  EXPECT_EQ(Parameter("p", T(""))->Value()->GetKind(), ValueKind::Text);
  EXPECT_EQ(Parameter("p", D("Mass", 1))->Value()->GetKind(), ValueKind::Real);
  EXPECT_EQ(Parameter("p", D("Mass", 1))->Value()->GetMagnitude(), KORParmDictionary::FindMagnitude("Mass"));
  EXPECT_EQ(Parameter("p", R(1))->Value()->GetMagnitude(), nullptr);
  EXPECT_EQ(Parameter("p", D("Colour", 1))->Value()->GetMagnitude(), nullptr);
}

TEST(ParameterTest, TakesValuesOfItsKind) {
  const KORICkeParm_var integer = Parameter("p", I(1));
  EXPECT_EQ(integer->ValuateInteger(7), S_OK);
  EXPECT_EQ(integer->ValuateReal(2.0), E_INVALIDARG);
  EXPECT_EQ(integer->ValuateString("x"), E_INVALIDARG);
  EXPECT_EQ(Text(integer->Value()->AsString()), "7");

  const KORICkeParm_var real = Parameter("p", D("Length", 1));
  EXPECT_EQ(real->ValuateReal(2.5), S_OK);
  EXPECT_EQ(real->ValuateString("x"), E_INVALIDARG);
  EXPECT_EQ(Text(real->Value()->AsString()), "2.5");
  EXPECT_EQ(real->ValuateInteger(7), S_OK);
  EXPECT_EQ(Text(real->Value()->AsString()), "7");

  const KORICkeParm_var text = Parameter("p", T("a"));
  EXPECT_EQ(text->ValuateString("b"), S_OK);
  EXPECT_EQ(text->ValuateInteger(7), E_INVALIDARG);
  EXPECT_EQ(text->ValuateReal(7.0), E_INVALIDARG);
  EXPECT_EQ(Text(text->Value()->AsString()), "b");
}

TEST(ParameterTest, ValueFollowsItsParameter) {
  KORICkeValue_var value;
  {
    const KORICkeParm_var parameter = Parameter("p", R(1.0));
    value = parameter->Value();
    parameter->ValuateReal(std::numeric_limits<double>::quiet_NaN());
  }
  EXPECT_TRUE(std::isnan(value->AsReal()));
}

TEST(FactoryTest, IsOneObjectForParametersAndExpressions) {
  const KORICkeParmFactory_var parameters = KORCkeGlobalFunctions::GetVolatileFactory();
  const KORICkeExpressionFactory_var expressions = parameters;
  ASSERT_FALSE(expressions.IsNull());
  EXPECT_TRUE(expressions == parameters);
  const KORICkeParm_var text = parameters->CreateTextParm("V_Name", "a text");
  EXPECT_EQ(text->Value()->GetKind(), KORCke::ValueKind::Text);
  EXPECT_EQ(Text(text->Value()->AsString()), "a text");
}

}  // namespace
}  // namespace knowledgetest
