// Sessions side by side: eight threads, each with its own session, model and analyses.
#include <gtest/gtest.h>

#include <barrier>
#include <string>
#include <thread>
#include <vector>

#include "platform/model/KORModel.h"
#include "platform/model/KORPLMSpace.h"
#include "platform/system/KORSession.h"
#include "tests/model/ModelTest.h"

namespace {

using modeltest::CodeOf;
using modeltest::ListOf;
using modeltest::NewParameter;

constexpr std::size_t ThreadCount = 8;
constexpr int RowCount = 200;

void FillAnalysis(VEXTimeAnalysisRepReference& analysis, const std::string& prefix, const KORBaseUnknown_var& reused) {
  VEXTimeAnalysisLineData line;
  for (int row = 1; row <= RowCount; ++row) {
    line.SetValue("Code", KORUnicodeString(std::string_view(prefix + std::to_string(row))));
    line.SetValue("Factor", static_cast<double>(row));
    line.SetValue("TimeAnalysis", reused);
    line.SetValue(KORFormulaParameterKey, ListOf({NewParameter("n")}));
    EXPECT_EQ(analysis.SetLine(row, line), S_OK);
  }
}

double SumOfFactors(VEXTimeAnalysisRepReference& analysis, const std::string& prefix) {
  double sum = 0.0;
  VEXTimeAnalysisLineData line;
  for (int row = 1; row <= RowCount; ++row) {
    EXPECT_EQ(analysis.GetLine(row, line), S_OK);
    EXPECT_EQ(CodeOf(line), (prefix + std::to_string(row)).c_str());
    double factor = 0.0;
    line.GetValue("Factor", factor);
    sum += factor;
    line.SetValue("Factor", factor + 1.0);
    EXPECT_EQ(analysis.SetLine(row, line), S_OK);
    line.ClearFormulaAndParamters();
  }
  return sum;
}

void ExpectResolves(VEXTimeAnalysisRepReference& analysis) {
  KORIAdpPLMIdentificator* identificator = nullptr;
  ASSERT_EQ(analysis.GetPLMIdentificator(identificator), S_OK);
  const auto held = KORIAdpPLMIdentificator_var::Adopt(identificator);
  KORIPLMSpace* space = nullptr;
  ASSERT_EQ(KORPLMSpaceServices::GetResolutionSpace(space, 0, KORPLMSpaceServices::Kor3DSpace), S_OK);
  const auto held_space = KORIPLMSpace_var::Adopt(space);
  void* out = nullptr;
  ASSERT_EQ(held_space->ResolveComponent(identificator, KORBaseUnknown::ClassId(), &out), S_OK);
  EXPECT_TRUE(KORBaseUnknown_var::Adopt(static_cast<KORBaseUnknown*>(out)) ==
              KORHandle<VEXTimeAnalysisRepReference>(&analysis));
}

void WorkInASession(std::size_t number) {
  const KORFreshSession session;
  KORModel& model = KORModel::Current();
  const std::string prefix = "T" + std::to_string(number) + "-";
  const auto analysis = model.CreateTimeAnalysis(KORUnicodeString(std::string_view(prefix)));
  const auto block = model.CreateTimeAnalysis("block");
  FillAnalysis(*analysis, prefix, block);
  FillAnalysis(*block, prefix, analysis);
  constexpr double FirstSum = RowCount * (RowCount + 1) / 2.0;
  for (int round = 0; round < 5; ++round) EXPECT_EQ(SumOfFactors(*analysis, prefix), FirstSum + round * RowCount);
  ExpectResolves(*analysis);
  EXPECT_EQ(model.GetTimeAnalyses().size(), 2u);
}

TEST(ModelThreadTest, SessionsSideBySide) {
  std::barrier start(static_cast<std::ptrdiff_t>(ThreadCount));
  std::vector<std::thread> threads;
  for (std::size_t number = 0; number < ThreadCount; ++number) {
    threads.emplace_back([&start, number] {
      start.arrive_and_wait();
      for (int round = 0; round < 3; ++round) WorkInASession(number);
    });
  }
  for (std::thread& thread : threads) thread.join();
}

}  // namespace
