// What a body can't reach, and what it can't use up: every attempt ends, and leaves the engine as it was.
#include <chrono>
#include <ctime>

#include "platform/knowledge/KORCkeLimits.h"
#include "platform/knowledge/KORCkeSandbox.h"
#include "tests/knowledge/KnowledgeTest.h"

namespace knowledgetest {
namespace {

// The engine works as it does on a fresh thread.
void ExpectTheEngineWorks() {
  EXPECT_EQ(ValueOf("1 + math.floor(2.5)"), "3");
  EXPECT_EQ(Outcome("s : String, out a : String, out n : Integer", "a = s .. s n = #a", {T("ab"), T(""), I(0)}),
            "ab abab 4");
}

class MissingNameTest : public testing::TestWithParam<const char*> {};

TEST_P(MissingNameTest, IsNothing) {
  EXPECT_EQ(TextOf(std::string("type(") + GetParam() + ")"), "nil");
}

INSTANTIATE_TEST_SUITE_P(All, MissingNameTest,
                         testing::Values("_G", "_VERSION", "arg", "bit32", "collectgarbage", "coroutine", "debug",
                                         "dofile", "getmetatable", "io", "load", "loadfile", "loadstring",
                                         "math.random", "math.randomseed", "next", "os", "package", "pairs", "pcall",
                                         "print", "rawequal", "rawget", "rawlen", "rawset", "require", "setmetatable",
                                         "string", "table", "utf8", "warn", "xpcall"),
                         [](const testing::TestParamInfo<const char*>& row) {
                           std::string name(row.param);
                           for (char& character : name) character = character == '.' ? '_' : character;
                           return name;
                         });

// Everything that a body finds: the rows tell it, the names above what it does not.
struct LibraryCase {
  const char* Name;
  const char* Body;
  const char* Value;
};

class LibraryTest : public testing::TestWithParam<LibraryCase> {};

TEST_P(LibraryTest, IsThere) {
  EXPECT_EQ(TextOf("tostring(" + std::string(GetParam().Body) + ")"), GetParam().Value);
}

INSTANTIATE_TEST_SUITE_P(
    All, LibraryTest,
    testing::Values(
        LibraryCase{"assert", "assert(5, 'no')", "5"}, LibraryCase{"ipairs", "type(ipairs({}))", "function"},
        LibraryCase{"select", "select(2, 'a', 'b')", "b"}, LibraryCase{"tonumber", "tonumber('0x10')", "16"},
        LibraryCase{"tonumberOfABase", "tonumber('zz', 36)", "1295"},
        LibraryCase{"tonumberOfNoNumber", "tonumber('x')", "nil"}, LibraryCase{"tostring", "tostring(1.5)", "1.5"},
        LibraryCase{"tostringOfABoolean", "tostring(true)", "true"}, LibraryCase{"type", "type({})", "table"},
        LibraryCase{"error", "type(error)", "function"}, LibraryCase{"abs", "math.abs(-2)", "2"},
        LibraryCase{"acos", "math.acos(1)", "0.0"}, LibraryCase{"asin", "math.asin(0)", "0.0"},
        LibraryCase{"atan", "math.atan(0, 1)", "0.0"}, LibraryCase{"ceil", "math.ceil(1.2)", "2"},
        LibraryCase{"cos", "math.cos(0)", "1.0"}, LibraryCase{"deg", "math.deg(math.pi)", "180.0"},
        LibraryCase{"exp", "math.exp(0)", "1.0"}, LibraryCase{"floor", "math.floor(1.8)", "1"},
        LibraryCase{"fmod", "math.fmod(7, 3)", "1"}, LibraryCase{"huge", "math.huge", "inf"},
        LibraryCase{"log", "math.log(8, 2)", "3.0"}, LibraryCase{"max", "math.max(1, 3, 2)", "3"},
        LibraryCase{"maxinteger", "math.maxinteger", "9223372036854775807"},
        LibraryCase{"min", "math.min(1, 3, 2)", "1"},
        LibraryCase{"mininteger", "math.mininteger", "-9223372036854775808"},
        LibraryCase{"modf", "(math.modf(3.7))", "3"}, LibraryCase{"pi", "math.pi", "3.1415926535898"},
        LibraryCase{"rad", "math.rad(180) == math.pi", "true"}, LibraryCase{"sin", "math.sin(0)", "0.0"},
        LibraryCase{"sqrt", "math.sqrt(16)", "4.0"}, LibraryCase{"tan", "math.tan(0)", "0.0"},
        LibraryCase{"tointeger", "math.tointeger(3.0)", "3"}, LibraryCase{"mathtype", "math.type(1)", "integer"},
        LibraryCase{"ult", "math.ult(1, 2)", "true"}),
    RowName());

struct AttemptCase {
  const char* Name;
  std::string Body;  // with a Real output "a" and a String output "s"
  const char* Outcome;
};

void PrintTo(const AttemptCase& row, std::ostream* stream) {
  *stream << row.Body.substr(0, 200);
}

class AttemptTest : public testing::TestWithParam<AttemptCase> {};

TEST_P(AttemptTest, EndsAndLeavesTheEngineAsItWas) {
  const auto begin = std::clock();
  EXPECT_EQ(Outcome("out a : Real, out s : String", GetParam().Body, {R(7), T("old")}), GetParam().Outcome);
  // Far above the bound of a run, so that sanitizers and busy machines pass; an endless loop doesn't.
  EXPECT_LT(static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC, 20.0);
  ExpectTheEngineWorks();
}

constexpr const char* TooManyInstructions = "fails: body:1: more than 1000000 instructions";
constexpr const char* NotEnoughMemory = "fails: not enough memory";
constexpr const char* NestedTooDeeply = "invalid: nested too deeply";

INSTANTIATE_TEST_SUITE_P(
    RunsAway, AttemptTest,
    testing::Values(
        AttemptCase{"While", "while true do end", TooManyInstructions},
        AttemptCase{"Repeat", "repeat until false", TooManyInstructions},
        AttemptCase{"For", "for i = 1, math.huge do end", TooManyInstructions},
        AttemptCase{"ForBackward", "for i = math.maxinteger, math.mininteger, -1 do end", TooManyInstructions},
        AttemptCase{"Goto", "::l:: goto l", TooManyInstructions},
        AttemptCase{"Iterator", "for _ in function() return 1 end do end", TooManyInstructions},
        AttemptCase{"TailCall", "local function f() return f() end f()", TooManyInstructions},
        AttemptCase{"MutualCalls", "local f, g function f() return g() end function g() return f() end f()",
                    TooManyInstructions},
        AttemptCase{"DeepRecursion", "local function f(x) return 1 + f(x) end f(1)", NotEnoughMemory},
        AttemptCase{"RecursionThroughTheLibrary",
                    "local t = {} local function f() local n = 0 for _ in function() return f() end do n = n + 1 end "
                    "return n + f() end f()",
                    "fails: body:1: nested too deeply"},
        AttemptCase{"DoublingText", "s = 'x' while true do s = s .. s end", NotEnoughMemory},
        AttemptCase{"GrowingTable", "local t = {} for i = 1, math.huge do t[i] = {} end", NotEnoughMemory},
        AttemptCase{"GrowingTableOfTexts", "local t = {} for i = 1, math.huge do t[i] = 'number ' .. i end",
                    NotEnoughMemory},
        AttemptCase{"TableOfItself", "local t = {} while true do t = {t, t} end", NotEnoughMemory},
        AttemptCase{"Globals", "t = {} while true do t = {t} end", NotEnoughMemory},
        AttemptCase{"Closures", "local f while true do local g = f f = function() return g end end", NotEnoughMemory},
        AttemptCase{"ManyArguments", "local function f(...) return f(1, 2, 3, 4, 5, 6, 7, 8, ...) end f()",
                    NotEnoughMemory}),
    RowName());

INSTANTIATE_TEST_SUITE_P(
    NoWayToCatchABound, AttemptTest,
    testing::Values(
        AttemptCase{"ProtectedCall", "while true do pcall(function() while true do end end) end",
                    "fails: body:1: attempt to call a nil value (global 'pcall')"},
        AttemptCase{"ProtectedCallWithHandler", "while true do xpcall(function() while true do end end, type) end",
                    "fails: body:1: attempt to call a nil value (global 'xpcall')"},
        AttemptCase{"Coroutine", "coroutine.wrap(function() while true do end end)()",
                    "fails: body:1: attempt to index a nil value (global 'coroutine')"},
        AttemptCase{"Finalizer", "setmetatable({}, {__gc = function() while true do end end})",
                    "fails: body:1: attempt to call a nil value (global 'setmetatable')"},
        AttemptCase{"ToBeClosed", "local t <close> = {}", "fails: body:1: variable 't' got a non-closable value"},
        AttemptCase{"PatternSearch", "s = ('a'):rep(1000000):find(('a*'):rep(30) .. 'b')",
                    "fails: body:1: attempt to index a string value (constant 'a')"},
        AttemptCase{"PatternSearchOfTheLibrary", "string.find(s, '.-.-.-.-b')",
                    "fails: body:1: attempt to index a nil value (global 'string')"},
        AttemptCase{"MethodOfATextVariable", "s = s:upper()",
                    "fails: body:1: attempt to index a string value (upvalue 's')"},
        AttemptCase{"CompilingAText", "load('while true do end')()",
                    "fails: body:1: attempt to call a nil value (global 'load')"},
        AttemptCase{"File", "io.open('/etc/passwd')", "fails: body:1: attempt to index a nil value (global 'io')"},
        AttemptCase{"Process", "os.execute('true')", "fails: body:1: attempt to index a nil value (global 'os')"},
        AttemptCase{"AddressOfATable", "s = tostring({})",
                    "fails: body:1: bad argument #1 to 'tostring' (number, text, boolean or nil expected)"},
        AttemptCase{"AddressOfAFunction", "s = tostring(type)",
                    "fails: body:1: bad argument #1 to 'tostring' (number, text, boolean or nil expected)"},
        AttemptCase{"NothingToShow", "s = tostring()", "fails: body:1: bad argument #1 to 'tostring' (value expected)"},
        AttemptCase{"Globals", "local e = _ENV", "invalid: body: \"_ENV\" is no name for it"},
        AttemptCase{"OwnGlobals", "local _ENV = {}", "invalid: body: \"_ENV\" is no name for it"},
        AttemptCase{"LongerNameThanThat", "MY_ENV = 1 _ENV2 = 2 a = MY_ENV + _ENV2", "3 old"},
        AttemptCase{"ChangingMath", "math.pi = 3", "fails: body:1: math can't be changed"},
        AttemptCase{"AddingToMath", "function math.twice(x) return 2 * x end", "fails: body:1: math can't be changed"},
        AttemptCase{"ReplacingMath", "math = {pi = 3} a = math.pi", "3 old"},
        AttemptCase{"ReplacingTheLibrary", "type = nil tostring = nil a = 1", "1 old"},
        AttemptCase{"WalkingThroughMath", "for i, v in ipairs(math) do a = i end", "7 old"}),
    RowName());

INSTANTIATE_TEST_SUITE_P(
    CompilesNothing, AttemptTest,
    testing::Values(
        AttemptCase{"BinaryChunk", std::string("\x1BLuaT\0\x19\x93\r\n\x1A\n", 12),
                    "invalid: attempt to load a binary chunk (mode is 't')"},
        AttemptCase{"HeadOfABinaryChunk", "\x1B", "invalid: attempt to load a binary chunk (mode is 't')"},
        AttemptCase{"NulByte", std::string("a = 1\0b", 7), "invalid: body:1: unexpected symbol"},
        AttemptCase{"ThirtyThousandParentheses", "a = " + std::string(30000, '('), NestedTooDeeply},
        AttemptCase{"MillionParentheses", std::string(1000000, '('), "invalid: body: longer than 32768 bytes"},
        AttemptCase{"ClosedParentheses", "a = " + std::string(300, '(') + '1' + std::string(300, ')'), NestedTooDeeply},
        AttemptCase{"FewerParentheses", "a = " + std::string(100, '(') + '1' + std::string(100, ')'), "1 old"},
        AttemptCase{"Signs", "a = " + Repeated("- ", 10000) + '1', NestedTooDeeply},
        AttemptCase{"Powers", "a = " + Repeated("1^", 10000) + '1', NestedTooDeeply},
        AttemptCase{"Joins", "s = " + Repeated("'x'..", 5000) + "''", NestedTooDeeply},
        AttemptCase{"Blocks", Repeated("do ", 10000) + Repeated("end ", 100), NestedTooDeeply},
        AttemptCase{"Functions", Repeated("local function f() ", 1000), NestedTooDeeply},
        AttemptCase{"Tables", "a = " + std::string(30000, '{'), NestedTooDeeply}),
    RowName());

TEST(BoundsTest, LengthOfABody) {
  const std::string longest = "1" + std::string(korcke::LongestBody - 1, ' ');
  EXPECT_EQ(ValueOf(longest), "1");
  EXPECT_EQ(ValueOf(longest + ' '), "invalid: body: longer than 32768 bytes");
  // Long bodies with much in them.
  EXPECT_EQ(ValueOf("0" + Repeated("+1", 16383)), "16383");
  EXPECT_EQ(ValueOf("1" + Repeated(" and 1", 5000)), "1");
}

TEST(BoundsTest, Instructions) {
  // A turn of this loop is one instruction, and around it there are a few.
  EXPECT_EQ(Outcome("n : Integer, out a : Real", "for i = 1, n do end a = 1", {I(999900), R(0)}), "999900 1");
  EXPECT_EQ(Outcome("n : Integer, out a : Real", "for i = 1, n do end a = 1", {I(1000001), R(0)}),
            "fails: body:1: more than 1000000 instructions");
}

TEST(BoundsTest, InstructionsAreCountedFromTheStartOfEachRun) {
  for (int run = 0; run < 5; ++run) {
    EXPECT_EQ(Outcome("n : Integer, out a : Real", "for i = 1, n do end a = 1", {I(900000), R(0)}), "900000 1");
  }
}

TEST(BoundsTest, MemoryOfARun) {
  const char* const body =
      "local t = {} for i = 1, n do local list = {} for j = 1, 1024 do list[j] = j end t[i] = list end a = #t";
  EXPECT_EQ(Outcome("n : Integer, out a : Real", body, {I(240), R(0)}), "240 240");
  EXPECT_EQ(Outcome("n : Integer, out a : Real", body, {I(260), R(0)}), NotEnoughMemory);
  ExpectTheEngineWorks();
}

TEST(BoundsTest, LengthOfAText) {
  const char* const body = "local t = 'x' for i = 1, n do t = t .. t end a = #t";
  EXPECT_EQ(Outcome("n : Integer, out a : Real", body, {I(16), R(0)}), "16 65536");
  EXPECT_EQ(Outcome("n : Integer, out a : Real", body, {I(17), R(0)}), NotEnoughMemory);
  // Text that goes in counts, too.
  const std::string large((64 << 10) + 100, 'x');
  EXPECT_EQ(Outcome("s : String, out a : Real", "#s", {T(large.c_str()), R(0)}), NotEnoughMemory);
  ExpectTheEngineWorks();
}

TEST(BoundsTest, LengthOfAList) {
  const char* const body = "local t = {} for i = 1, n do t[i] = i end a = #t";
  EXPECT_EQ(Outcome("n : Integer, out a : Real", body, {I(32768), R(0)}), "32768 32768");
  EXPECT_EQ(Outcome("n : Integer, out a : Real", body, {I(32769), R(0)}), NotEnoughMemory);
}

// Two hundred texts of the greatest length.
TEST(BoundsTest, TextsThatComeOut) {
  std::string signature;
  std::string body = "local s = 'x' for i = 1, 16 do s = s .. s end ";
  std::vector<Given> values;
  for (int output = 0; output < 200; ++output) {
    const std::string name = "s" + std::to_string(output);
    signature += (output == 0 ? "out " : ", out ") + name + " : String";
    body += name + " = s ";
    values.push_back(T(""));
  }
  Formula formula(signature, body, values);
  EXPECT_EQ(formula.Run(), S_OK) << formula.Problem();
  EXPECT_EQ(formula.String(199).size(), std::size_t{1} << 16);
}

TEST(BoundsTest, MemoryIsThereAgainForTheNextRun) {
  const char* const body = "local t = {} for i = 1, 32768 do t[i] = {} end a = #t";
  for (int run = 0; run < 5; ++run) EXPECT_EQ(Outcome("out a : Real, out b : Real", body, {R(0), R(0)}), "32768 0");
}

// What a run may take does not depend on what was compiled and run before it on the thread.
TEST(BoundsTest, MemoryDoesNotDependOnWhatWasBefore) {
  const char* const body =
      "local t = {} for i = 1, 32768 do t[i] = {} end local u = {} for i = 1, n do u[i] = {} end a = 1";
  const auto largest = [&] {
    int fits = 0;
    for (int step = 1 << 14; step > 0; step /= 2) {
      const std::string done = std::to_string(fits + step) + " 1";
      if (Outcome("n : Integer, out a : Real", body, {I(fits + step), R(0)}) == done) fits += step;
    }
    return fits;
  };
  const int fits = largest();
  EXPECT_GT(fits, 0);
  EXPECT_LT(fits, (1 << 15) - 1);
  for (int number = 0; number < 150; ++number) {
    const std::string large =
        "local t = {} " + Repeated("a=a+1 if a>2 then b=a end ", 800) + "a=1 --" + std::to_string(number);
    EXPECT_EQ(Outcome("out a : Real, out b : Real", large, {R(0), R(0)}), "1 800");
  }
  for (int number = 0; number < 50; ++number) {
    const std::string user = "math.abs(" + std::to_string(number) + ")";
    EXPECT_EQ(ValueOf(user), std::to_string(number));
    EXPECT_EQ(Outcome("out a : Real, out b : Real", "g = {} for i = 1, 10000 do g[i] = {} end a = 1", {R(0), R(0)}),
              "1 0");
  }
  EXPECT_EQ(largest(), fits);
}

TEST(BoundsTest, MuchGarbageIsNoHarm) {
  EXPECT_EQ(ValueOf("(function() local n = 0 for i = 1, 100000 do local t = {i} n = n + #t end return n end)()"),
            "100000");
  EXPECT_EQ(ValueOf("(function() local t for i = 1, 50000 do t = 'number ' .. i end return #t end)()"), "12");
}

// Comparing long texts takes time where no instruction is counted.
TEST(BoundsTest, ProcessorTimeOfARun) {
  EXPECT_EQ(Outcome("out a : Real, out b : Real",
                    "local s = '\\0' for i = 1, 15 do s = s .. s end local t, u = s .. 'a', s .. 'b'\n"
                    "for i = 1, 400000 do if t > u then a = 1 end end",
                    {R(7), R(8)}),
            "fails: body:2: more than 500 milliseconds of processor time");
  ExpectTheEngineWorks();
}

struct LongWork {
  const char* name;
  const char* body;
};

class LongWorkTest : public testing::TestWithParam<LongWork> {};

// Work that the machine does in one piece, where nobody can stop it, again and again.
TEST_P(LongWorkTest, ComesToAnEnd) {
  const std::string outcome = Outcome("out a : Real, out b : Real", GetParam().body, {R(7), R(8)});
  EXPECT_TRUE(outcome.starts_with("fails: ")) << outcome;
  ExpectTheEngineWorks();
}

INSTANTIATE_TEST_SUITE_P(
    Rows, LongWorkTest,
    testing::Values(LongWork{"GreatestOfTexts",
                             "local s = '\\0' for i = 1, 15 do s = s .. s end local m = math.max\n"
                             "local function f(n, ...) if n == 0 then return m(...) end "
                             "return f(n - 1, s, s, s, s, s, s, s, s, ...) end f(400)"},
                    LongWork{"KeysOfOnePlace", "local t = {} for i = 1, 32769 do t[i * 65535] = 1 end a = 1"},
                    LongWork{"KeysOfOnePlaceInManyTables",
                             "for n = 1, 10000 do local t = {} for i = 1, 8193 do t[i * 16383] = 1 end end a = 1"},
                    LongWork{"ComparedTexts",
                             "local s = '\\0' for i = 1, 16 do s = s .. s end while true do if s < s then end end"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(BoundsTest, TheGreatestAndTheLeastAreOfNumbersAlone) {
  EXPECT_EQ(ValueOf("math.max(1, 3, 2)"), "3");
  EXPECT_EQ(ValueOf("math.min(2, 0.5, 1)"), "0.5");
  EXPECT_TRUE(ValueOf("math.max('a', 'b')").starts_with("fails: "));
  EXPECT_TRUE(ValueOf("math.min({})").starts_with("fails: "));
  EXPECT_TRUE(ValueOf("math.max()").starts_with("fails: "));
}

// Near the end of its memory a run looks for garbage again and again.
TEST(BoundsTest, ProcessorTimeOfARunShortOfMemory) {
  const auto begin = std::clock();
  const std::string outcome = ValueOf(
      "(function() local t = {} for i = 1, 44000 do t[i] = {} end local g for i = 1, 10000000 do g = {} end "
      "return 1 end)()");
  EXPECT_TRUE(outcome.starts_with("fails: ")) << outcome;
  EXPECT_LT(static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC, 20.0);
  ExpectTheEngineWorks();
}

TEST(BoundsTest, MemoryOfACompilation) {
  const KORCkeFormula formula = KORCkeFormula::Read("out a : Real, out b : Real");
  const std::string body = Repeated("a={1,2,3}", 3000);
  KORCkeSandbox narrow(100000);
  EXPECT_EQ(narrow.Compile(formula, body).Problem, "not enough memory");
  EXPECT_EQ(narrow.Compile(formula, "a = 1").Problem, "");
  EXPECT_EQ(KORCkeSandbox().Compile(formula, body).Problem, "");
}

TEST(MemoryTest, RefusesWhatGoesBeyondTheLimit) {
  KORCkeRunClock clock;
  KORCkeSandboxMemory memory(clock);
  const auto resize = [&](void* block, std::size_t old_size, std::size_t new_size) {
    return KORCkeSandboxMemory::Allocate(&memory, block, old_size, new_size);
  };
  memory.SetLimits({100});
  void* block = resize(nullptr, 4, 60);  // for a new block the old size is a kind, not a size
  ASSERT_NE(block, nullptr);
  EXPECT_EQ(memory.GetBytesInUse(), 60u);
  EXPECT_EQ(resize(nullptr, 0, 41), nullptr);
  EXPECT_EQ(resize(block, 60, 101), nullptr);
  EXPECT_EQ(memory.GetBytesInUse(), 60u);
  block = resize(block, 60, 100);
  ASSERT_NE(block, nullptr);
  EXPECT_EQ(memory.GetBytesInUse(), 100u);

  memory.SetLimits({50});
  EXPECT_EQ(resize(nullptr, 0, 1), nullptr);
  block = resize(block, 100, 80);
  ASSERT_NE(block, nullptr) << "what shrinks is not refused";
  EXPECT_EQ(resize(block, 80, 0), nullptr);
  EXPECT_EQ(memory.GetBytesInUse(), 0u);
}

// A body can't change what the next run finds: neither its own nor another one.
TEST(StateTest, NothingIsLeftForTheNextRun) {
  const char* const body = "a = left and 1 or 0 left = {} math = 3 type = 4 x = 9";
  EXPECT_EQ(Outcome("x : Real, out a : Real, out b : Real", body, {R(1), R(7), R(8)}), "1 0 8");
  EXPECT_EQ(Outcome("x : Real, out a : Real, out b : Real", body, {R(1), R(7), R(8)}), "1 0 8");
  EXPECT_EQ(TextOf("type(left) .. type(math) .. type(type)"), "niltablefunction");
}

TEST(StateTest, NothingIsLeftByARunThatFails) {
  const char* const body = "a = left and 1 or 0 left = {} error('x')";
  EXPECT_EQ(Outcome("out a : Real, out b : Real", body, {R(7), R(8)}), "fails: body:1: x");
  EXPECT_EQ(TextOf("type(left)"), "nil");
  EXPECT_EQ(TextOf("type(a)"), "nil");
}

TEST(StateTest, GlobalsOfOneFormulaAreNotThoseOfAnother) {
  EXPECT_EQ(Outcome("out a : Real, out b : Real", "x = 1 a = x", {R(0), R(0)}), "1 0");
  EXPECT_EQ(Outcome("out a : Real, out b : Real", "a = x == nil and 2 or 3", {R(0), R(0)}), "2 0");
}

TEST(StateTest, TablesAreNotKept) {
  KORCkeSandbox sandbox;
  const KORCkeFormula formula = KORCkeFormula::Read("out a : Real, out b : Real");
  const auto compiled = sandbox.Compile(formula, "t = {} for i = 1, 30000 do t[i] = {} end b = 1");
  ASSERT_EQ(compiled.Problem, "");
  const std::size_t kept = sandbox.GetBytesKept();
  for (int run = 0; run < 20; ++run) {
    std::vector<KORCkeVariable> variables(2);
    std::string problem;
    EXPECT_TRUE(sandbox.Run(formula, compiled.Body, variables, problem)) << problem;
    EXPECT_EQ(variables[1].Real, 1.0);
  }
  EXPECT_LT(sandbox.GetBytesKept(), kept + 50000);
}

}  // namespace
}  // namespace knowledgetest
