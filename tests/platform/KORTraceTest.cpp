// Lines of the trace.
#include "platform/base/KORTrace.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <thread>
#include <vector>

namespace {

// A trace of a module, and what a static object ahead of it finds.
const KORTrace* const before_its_making = KORTrace::Find("KORTraceTestModuleTrace");
KORTrace trace_of_module("KORTraceTestModuleTrace", "Traces for a module", 1, "NOWHERE", 0);
const KORTrace* const behind_its_making = KORTrace::Find("KORTraceTestModuleTrace");

class KORTraceTest : public testing::Test {
 protected:
  void Redirect(KORTrace& trace) {
    trace.RedirectTo([this](std::string_view line) { Lines.emplace_back(line); });
  }

  std::vector<std::string> Lines;
};

TEST_F(KORTraceTest, KnowsWhatItIs) {
  const KORTrace trace("KORExampleTrace", "Traces for an example", 1, "STDERR", 1024);
  EXPECT_EQ(trace.GetName(), "KORExampleTrace");
  EXPECT_EQ(trace.GetDescription(), "Traces for an example");
}

TEST_F(KORTraceTest, WritesLinesToStandardError) {
  KORTrace trace("KORExampleTrace", "Traces for an example", 1, "STDERR", 1024);
  testing::internal::CaptureStderr();
  trace.TraPutLN("Failed to create feature <Grip>.");
  trace.TraPutLN("");
  trace.TraPutLN("Größe");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "Failed to create feature <Grip>.\n\nGröße\n");
}

TEST_F(KORTraceTest, IsRedirectedAndBack) {
  KORTrace trace("KORExampleTrace", "Traces for an example", 1, "STDERR", 1024);
  testing::internal::CaptureStderr();
  Redirect(trace);
  trace.TraPutLN("for the test");
  trace.RedirectTo(nullptr);
  trace.TraPutLN("for standard error");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "for standard error\n");
  EXPECT_EQ(Lines, std::vector<std::string>{"for the test\n"});
}

TEST_F(KORTraceTest, WritesLineFeedsAsTheyStand) {
  KORTrace trace("KORExampleTrace", "", 1, "STDERR", 1024);
  Redirect(trace);
  trace.TraPutLN("one\ntwo\n");
  EXPECT_EQ(Lines, std::vector<std::string>{"one\ntwo\n\n"});
}

TEST_F(KORTraceTest, WritesLongLinesWhole) {
  for (const int size : {-1, 0, 16, 1024}) {
    KORTrace trace("KORExampleTrace", "", 1, "STDERR", size);
    Redirect(trace);
    const std::string text(5000, 'x');
    Lines.clear();
    trace.TraPutLN(KORUnicodeString(text));
    EXPECT_EQ(Lines, std::vector<std::string>{text + "\n"}) << "size " << size;
  }
}

TEST_F(KORTraceTest, ModeZeroIsSilent) {
  KORTrace trace("KORExampleTrace", "", 0, "STDERR", 1024);
  testing::internal::CaptureStderr();
  trace.TraPutLN("lost");
  Redirect(trace);
  trace.TraPutLN("lost");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_TRUE(Lines.empty());
}

TEST_F(KORTraceTest, OtherDestinationIsSilentUntilRedirected) {
  KORTrace trace("KORExampleTrace", "", 1, "NOWHERE", 1024);
  testing::internal::CaptureStderr();
  trace.TraPutLN("lost");
  Redirect(trace);
  trace.TraPutLN("found");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(Lines, std::vector<std::string>{"found\n"});
}

TEST_F(KORTraceTest, LinesOfThreadsStayWhole) {
  KORTrace trace("KORExampleTrace", "", 1, "STDERR", 1024);
  Redirect(trace);
  std::vector<std::thread> threads;
  for (const char letter : {'a', 'b', 'c', 'd'}) {
    threads.emplace_back([&trace, letter] {
      for (int round = 0; round < 200; ++round) trace.TraPutLN(KORUnicodeString(std::string(40, letter)));
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(Lines.size(), 800u);
  const std::set<std::string> kinds(Lines.begin(), Lines.end());
  EXPECT_EQ(kinds, (std::set<std::string>{std::string(40, 'a') + "\n", std::string(40, 'b') + "\n",
                                          std::string(40, 'c') + "\n", std::string(40, 'd') + "\n"}));
}

TEST_F(KORTraceTest, IsFoundByItsName) {
  KORTrace first("KORFirstTrace", "", 1, "STDERR", 0);
  KORTrace second("KORSecondTrace", "", 1, "STDERR", 0);
  EXPECT_EQ(KORTrace::Find("KORFirstTrace"), &first);
  EXPECT_EQ(KORTrace::Find("KORSecondTrace"), &second);
  for (const char* const name : {"", "KORThirdTrace", "korfirsttrace", "KORFirstTrace "}) {
    EXPECT_EQ(KORTrace::Find(name), nullptr) << name;
  }
}

TEST_F(KORTraceTest, IsFoundFromItsMakingToItsEnd) {
  EXPECT_EQ(KORTrace::Find("KORExampleTrace"), nullptr);
  {
    KORTrace trace("KORExampleTrace", "", 0, "NOWHERE", 0);
    EXPECT_EQ(KORTrace::Find("KORExampleTrace"), &trace);
  }
  EXPECT_EQ(KORTrace::Find("KORExampleTrace"), nullptr);
}

TEST_F(KORTraceTest, IsFoundByStaticObjectsBehindIt) {
  EXPECT_EQ(before_its_making, nullptr);
  EXPECT_EQ(behind_its_making, &trace_of_module);
}

TEST_F(KORTraceTest, OfSeveralOfANameTheFirstOneIsFound) {
  KORTrace first("KORExampleTrace", "", 1, "NOWHERE", 0);
  {
    const KORTrace second("KORExampleTrace", "", 1, "NOWHERE", 0);
    EXPECT_EQ(KORTrace::Find("KORExampleTrace"), &first);
  }
  EXPECT_EQ(KORTrace::Find("KORExampleTrace"), &first);
}

TEST_F(KORTraceTest, ThatIsFoundCanBeRedirected) {
  KORTrace trace("KORExampleTrace", "", 1, "NOWHERE", 0);
  Redirect(*KORTrace::Find("KORExampleTrace"));
  trace.TraPutLN("found");
  EXPECT_EQ(Lines, std::vector<std::string>{"found\n"});
}

TEST_F(KORTraceTest, ThreadsMakeAndFindTheirOwn) {
  std::vector<std::thread> threads;
  for (const char* const name : {"KORTraceA", "KORTraceB", "KORTraceC", "KORTraceD"}) {
    threads.emplace_back([name] {
      for (int round = 0; round < 200; ++round) {
        KORTrace trace(name, "", 1, "NOWHERE", 0);
        EXPECT_EQ(KORTrace::Find(name), &trace);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

}  // namespace
