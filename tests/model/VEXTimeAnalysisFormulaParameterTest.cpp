// Formula parameters and who frees them.
#include "platform/model/VEXTimeAnalysisFormulaParameter.h"

#include <gtest/gtest.h>

#include "tests/model/ModelTest.h"

namespace {

using modeltest::NewParameter;
using modeltest::Parameter;

TEST(VEXTimeAnalysisFormulaParameterTest, StartsEmpty) {
  const Parameter parameter;
  EXPECT_EQ(parameter._ParameterKind, 0);
  for (const KORUnicodeString* field :
       {&parameter._ValueText, &parameter._ParameterName, &parameter._Signature, &parameter._Body,
        &parameter._ValueType, &parameter._OwnerPLMId, &parameter._OwnerRow}) {
    EXPECT_TRUE(field->IsEmpty());
  }
}

TEST(KORHeldParametersTest, FreesWhatItHolds) {
  KORHeldParameters held;
  held.Take(*NewParameter("a"));
  held.Take(*NewParameter("b"));
}

TEST(KORHeldParametersTest, ClearLeavesItReadyForMore) {
  KORHeldParameters held;
  held.Take(*NewParameter("a"));
  held.Clear();
  held.Clear();
  held.Take(*NewParameter("b"));
}

TEST(KORHeldParametersTest, TakesAParameterOnce) {
  KORHeldParameters held;
  Parameter* const parameter = NewParameter("a");
  held.Take(*parameter);
  held.Take(*parameter);
  EXPECT_EQ(parameter->_ParameterName, "a");
}

TEST(KORHeldParametersTest, DeletedParameterIsForgotten) {
  KORHeldParameters held;
  Parameter* const first = NewParameter("a");
  Parameter* const second = NewParameter("b");
  Parameter* const third = NewParameter("c");
  for (Parameter* const parameter : {first, second, third}) held.Take(*parameter);
  delete second;
  delete third;
  delete first;
  held.Clear();
}

TEST(KORHeldParametersTest, LastHolderFrees) {
  KORHeldParameters first;
  Parameter* const parameter = NewParameter("a");
  Parameter* const other = NewParameter("b");
  first.Take(*other);
  {
    KORHeldParameters second;
    second.Take(*parameter);
    first.Take(*parameter);
  }
  EXPECT_EQ(parameter->_ParameterName, "a");
  EXPECT_EQ(other->_ParameterName, "b");
}

TEST(KORHeldParametersTest, CopyBelongsToNobody) {
  KORHeldParameters held;
  Parameter* const parameter = NewParameter("a");
  held.Take(*parameter);
  Parameter copy = *parameter;
  copy._ParameterKind = 4;
  *parameter = copy;
  held.Clear();
  EXPECT_EQ(copy._ParameterName, "a");
}

}  // namespace
