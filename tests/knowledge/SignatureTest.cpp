// Signatures: which texts are some, and the arguments that they name.
#include "tests/knowledge/KnowledgeTest.h"

namespace knowledgetest {
namespace {

// The arguments as "1 x Real, 2 Time Time", and "unreadable" for no signature.
std::string Arguments(std::string_view text) {
  const KORICkeExpression_var expression = Expression(text, "");
  const KORICkeSignature_var signature = expression->GetSignature();
  if (signature.IsNull()) {
    EXPECT_EQ(expression->IsValid(), KORCke::False);
    return "unreadable: " + Text(expression->GetProblem());
  }
  std::string arguments;
  KORListValKORICkeArg_var list = signature->GetArguments();
  EXPECT_EQ(list.Size(), signature->GetArgumentCount());
  for (int position = 1; position <= list.Size(); ++position) {
    const KORICkeArg_var argument = list[position];
    EXPECT_TRUE(signature->GetArgument(position) == argument);
    if (position > 1) arguments += ", ";
    arguments +=
        std::to_string(argument->GetMode()) + ' ' + Text(argument->GetName()) + ' ' + Text(argument->GetTypeName());
  }
  return arguments;
}

struct SignatureCase {
  const char* Name;
  const char* Text;
  const char* Arguments;
};

class SignatureTest : public testing::TestWithParam<SignatureCase> {};

TEST_P(SignatureTest, NamesItsArguments) {
  EXPECT_EQ(Arguments(GetParam().Text), GetParam().Arguments);
}

INSTANTIATE_TEST_SUITE_P(
    Readable, SignatureTest,
    testing::Values(
        SignatureCase{"Empty", "", ""}, SignatureCase{"BlanksAlone", " \t\r\n", ""},
        SignatureCase{"OneInput", "x : Real", "1 x Real"}, SignatureCase{"OneOutput", "out Time : Time", "2 Time Time"},
        SignatureCase{"AllOfAFormula",
                      "x : Real, n : Integer, out Time : Time, out Frequency : Real, out Description : String",
                      "1 x Real, 1 n Integer, 2 Time Time, 2 Frequency Real, 2 Description String"},
        SignatureCase{"Magnitudes", "a:Length,b:Mass,c:Angle,d:Number,e:Time",
                      "1 a Length, 1 b Mass, 1 c Angle, 1 d Number, 1 e Time"},
        SignatureCase{"WithoutBlanks", "out x:Real,y:Integer", "2 x Real, 1 y Integer"},
        SignatureCase{"ManyBlanks", "\n out \t x \r : \v Real \f , y : String ", "2 x Real, 1 y String"},
        SignatureCase{"CalledOut", "out : Real", "1 out Real"},
        SignatureCase{"OutputCalledOut", "out out : Real", "2 out Real"},
        SignatureCase{"BeginningWithOut", "outer : Real, out_1 : Real", "1 outer Real, 1 out_1 Real"},
        SignatureCase{"SmallAndCapitalLettersDiffer", "n : Real, N : Real", "1 n Real, 1 N Real"},
        SignatureCase{"CapitalOutIsAName", "Out : Real", "1 Out Real"},
        SignatureCase{"DigitsAndUnderscores", "_x_1 : Real, A9 : Real", "1 _x_1 Real, 1 A9 Real"},
        SignatureCase{"NamesOfTypes", "Real : Real, Time : String", "1 Real Real, 1 Time String"},
        SignatureCase{"NamesOfTheLibrary", "math : Real, type : String", "1 math Real, 1 type String"},
        SignatureCase{"CapitalWordsOfTheLanguage", "End : Real, Repeat : Real", "1 End Real, 1 Repeat Real"}),
    RowName());

INSTANTIATE_TEST_SUITE_P(
    Unreadable, SignatureTest,
    testing::Values(
        SignatureCase{"NoType", "x", "unreadable: signature: \":\" expected at its end"},
        SignatureCase{"NoColon", "n Integer", "unreadable: signature: \":\" expected ahead of \"Integer\""},
        SignatureCase{"NothingBehindTheColon", "x :", "unreadable: signature: type expected at its end"},
        SignatureCase{"UnknownType", "x : Colour", "unreadable: signature: no type is called \"Colour\""},
        SignatureCase{"TypeInSmallLetters", "x : real", "unreadable: signature: no type is called \"real\""},
        SignatureCase{"NoName", ": Real", "unreadable: signature: name of an argument expected ahead of \": Real\""},
        SignatureCase{"CommaAlone", ",", "unreadable: signature: name of an argument expected ahead of \",\""},
        SignatureCase{"CommaAtTheEnd", "x : Real,", "unreadable: signature: name of an argument expected at its end"},
        SignatureCase{"CommaAhead", ", x : Real",
                      "unreadable: signature: name of an argument expected ahead of \", x : Real\""},
        SignatureCase{"TwoCommas", "out Time : Time,,",
                      "unreadable: signature: name of an argument expected ahead of \",\""},
        SignatureCase{"Semicolon", "x : Real; y : Real",
                      "unreadable: signature: \",\" or the end expected ahead of \"; y : Real\""},
        SignatureCase{"TwoTypes", "x : Real Time",
                      "unreadable: signature: \",\" or the end expected ahead of \"Time\""},
        SignatureCase{"TwiceOut", "out out out : Real",
                      "unreadable: signature: \":\" expected ahead of \"out : Real\""},
        SignatureCase{"InIsNoMode", "in x : Real", "unreadable: signature: an argument can't be called \"in\""},
        SignatureCase{"DigitAhead", "1x : Real",
                      "unreadable: signature: name of an argument expected ahead of \"1x : Real\""},
        SignatureCase{"OtherLetters", "L\xC3\xA4nge : Real",
                      "unreadable: signature: \":\" expected ahead of \"\xC3\xA4nge : Real\""},
        SignatureCase{"OneNameTwice", "x : Real, out x : Real",
                      "unreadable: signature: two arguments are called \"x\""},
        SignatureCase{"WordOfTheLanguage", "end : Real", "unreadable: signature: an argument can't be called \"end\""},
        SignatureCase{"Environment", "_ENV : Real", "unreadable: signature: an argument can't be called \"_ENV\""},
        SignatureCase{"CodeForAName", "x) os : Real",
                      "unreadable: signature: \":\" expected ahead of \") os : Real\""}),
    RowName());

class LanguageWordTest : public testing::TestWithParam<const char*> {};

TEST_P(LanguageWordTest, IsNoName) {
  EXPECT_EQ(Arguments(std::string("out ") + GetParam() + " : Real"),
            "unreadable: signature: an argument can't be called \"" + std::string(GetParam()) + '"');
}

INSTANTIATE_TEST_SUITE_P(All, LanguageWordTest,
                         testing::Values("_ENV", "and", "break", "do", "else", "elseif", "end", "false", "for",
                                         "function", "goto", "if", "in", "local", "nil", "not", "or", "repeat",
                                         "return", "then", "true", "until", "while"));

TEST(SignatureBoundsTest, TwoHundredArguments) {
  std::string signature;
  std::string body;
  std::vector<Given> values;
  for (int number = 1; number <= 200; ++number) {
    signature += (number > 1 ? ", out v" : "out v") + std::to_string(number) + " : Integer";
    body += 'v' + std::to_string(number) + '=' + std::to_string(number) + ' ';
    values.push_back(I(0));
  }
  Formula formula(signature, body, values);
  EXPECT_EQ(formula.Run(), S_OK) << formula.Problem();
  for (std::size_t index = 0; index < 200; ++index) EXPECT_EQ(formula.Real(index), static_cast<double>(index + 1));
  EXPECT_EQ(Arguments(signature + ", x : Real"), "unreadable: signature: more than 200 arguments");
}

TEST(SignatureBoundsTest, Length) {
  const std::string longest = "x : Real" + std::string(32768 - 8, ' ');
  EXPECT_EQ(Arguments(longest), "1 x Real");
  EXPECT_EQ(Arguments(longest + ' '), "unreadable: signature: longer than 32768 bytes");
  EXPECT_EQ(Arguments(std::string(1000000, 'x')), "unreadable: signature: longer than 32768 bytes");
  EXPECT_EQ(Arguments(std::string(32760, 'x') + ": Real"), "1 " + std::string(32760, 'x') + " Real");
}

TEST(SignatureObjectTest, OutlivesTheHandlesAroundIt) {
  KORICkeArg_var argument;
  {
    KORICkeExpression_var expression = Expression("x : Real, out y : Time", "y = x");
    KORICkeSignature_var signature = expression->GetSignature();
    expression = nullptr;
    EXPECT_EQ(signature->GetArgumentCount(), 2);
    argument = signature->GetArgument(2);
  }
  EXPECT_EQ(argument->GetName(), KORUnicodeString("y"));
  EXPECT_EQ(argument->GetTypeName(), KORUnicodeString("Time"));
}

TEST(SignatureObjectTest, HasAnIdentityOfItsOwn) {
  const KORICkeExpression_var expression = Expression("x : Real", "");
  const KORICkeSignature_var signature = expression->GetSignature();
  EXPECT_TRUE(signature == expression->GetSignature());
  EXPECT_FALSE(signature == expression);
  EXPECT_TRUE(KORICkeSignature_var(expression).IsNull());
  EXPECT_TRUE(KORICkeArg_var(signature).IsNull());
}

TEST(SignatureObjectTest, KnowsNoArgumentOutsideItsPositions) {
  const KORICkeExpression_var expression = Expression("x : Real", "");
  for (const int position : {-1, 0, 2}) EXPECT_TRUE(expression->GetSignature()->GetArgument(position).IsNull());
}

TEST(SignatureObjectTest, StandsBesideABodyThatIsWrong) {
  const KORICkeExpression_var expression = Expression("x : Real", "= = =");
  EXPECT_EQ(expression->IsValid(), KORCke::False);
  ASSERT_FALSE(expression->GetSignature().IsNull());
  EXPECT_EQ(expression->GetSignature()->GetArgumentCount(), 1);
}

}  // namespace
}  // namespace knowledgetest
