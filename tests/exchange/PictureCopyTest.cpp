// Copying the pictures that the lines of an analysis name to another one.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "VEXSTMPicturesServices.h"
#include "tests/calculation/AnalysisShell.h"
#include "tests/exchange/PictureTest.h"

namespace {

using calculationtest::MakeBareObject;
using calculationtest::MakeShell;
using calculationtest::MakeShellWithout;
using exchangetest::ContentOf;
using exchangetest::FormatsOn;
using exchangetest::LineWithPicture;
using exchangetest::PictureRowTest;
using exchangetest::PictureTest;
using support::DescribeAnalysis;
using support::Line;
using support::MakeAnalysis;
using support::RowName;
using support::TimeAnalysis_var;
using support::TimeFormula;
using Formats = std::vector<std::string>;

constexpr long Fault = -77;  // a status that nothing but an injected fault gives

// A line whose picture is "" names none.
TimeAnalysis_var MakeSource(const std::vector<std::string>& pictures) {
  std::vector<Line> lines;
  for (const std::string& picture : pictures) lines.push_back(LineWithPicture(picture));
  return MakeAnalysis("Source", lines);
}

class PictureCopyTest : public PictureTest {
 protected:
  KORBaseUnknown_var _Destination{MakeAnalysis("Destination")};
};

TEST_F(PictureCopyTest, CopiesThePicturesInTheOrderOfTheLines) {
  const auto source = MakeSource({"seat.left.png", "", "grip.jpg", "Gr\xC3\xB6\xC3\x9F\x65.bmp"});
  EXPECT_EQ(Add(source, "grip.jpg", "grip"), S_OK);
  EXPECT_EQ(Add(source, "Gr\xC3\xB6\xC3\x9F\x65.bmp", "size"), S_OK);
  EXPECT_EQ(Add(source, "seat.left.png", "seat"), S_OK);
  EXPECT_EQ(Add(source, "unused.png", "unused"), S_OK);
  const std::string before = DescribeAnalysis(*source);
  EXPECT_EQ(Copy(source, _Destination), S_OK);
  EXPECT_EQ(FormatsOn(_Destination), (Formats{"left.png", "jpg", "bmp"}));
  EXPECT_EQ(FormatsOn(source), (Formats{"jpg", "bmp", "left.png", "png"}));
  EXPECT_EQ(DescribeAnalysis(*source), before);
  EXPECT_EQ(Fetch(_Destination, "seat.png").content, "seat");
  EXPECT_EQ(Fetch(_Destination, "grip.jpg").content, "grip");
  EXPECT_EQ(Fetch(_Destination, "Gr\xC3\xB6\xC3\x9F\x65.bmp").content, "size");
}

TEST_F(PictureCopyTest, LeavesTheTemporaryFiles) {
  const auto source = MakeSource({"grip.png", "seat.png"});
  EXPECT_EQ(Add(source, "grip.png", "grip"), S_OK);
  EXPECT_EQ(Add(source, "seat.png", "seat"), S_OK);
  EXPECT_EQ(Copy(source, _Destination), S_OK);
  EXPECT_EQ(ContentOf(InTemp("grip.png")), "grip");
  EXPECT_EQ(ContentOf(InTemp("seat.png")), "seat");
}

// Each line goes its way, so that a second extension gets the content that its base name finds.
TEST_F(PictureCopyTest, GoesLineByLine) {
  const auto source = MakeSource({"grip.png", "grip.png", "grip.jpg"});
  EXPECT_EQ(Add(source, "grip.png", "png"), S_OK);
  EXPECT_EQ(Add(source, "grip.jpg", "jpg"), S_OK);
  EXPECT_EQ(Copy(source, _Destination), S_OK);
  EXPECT_EQ(FormatsOn(_Destination), (Formats{"png", "jpg"}));
  EXPECT_EQ(ContentOf(InTemp("grip.jpg")), "png");
}

TEST_F(PictureCopyTest, ReplacesPicturesOfTheDestination) {
  const auto source = MakeSource({"grip.png"});
  EXPECT_EQ(Add(source, "grip.png", "new"), S_OK);
  EXPECT_EQ(Add(_Destination, "grip.png", "old"), S_OK);
  EXPECT_EQ(Add(_Destination, "seat.png", "kept"), S_OK);
  EXPECT_EQ(Copy(source, _Destination), S_OK);
  EXPECT_EQ(FormatsOn(_Destination), (Formats{"png", "png"}));
  EXPECT_EQ(Fetch(_Destination, "grip.png").content, "new");
  EXPECT_EQ(Fetch(_Destination, "seat.png").content, "kept");
}

TEST_F(PictureCopyTest, MayCopyToTheSourceItself) {
  const auto source = MakeSource({"grip.png"});
  EXPECT_EQ(Add(source, "grip.png", "grip"), S_OK);
  EXPECT_EQ(Copy(source, source), S_OK);
  EXPECT_EQ(FormatsOn(source), Formats{"png"});
  EXPECT_EQ(Fetch(source, "grip.png").content, "grip");
}

TEST_F(PictureCopyTest, LooksAtLinesWithFormulasAndAtReusingLines) {
  const auto source =
      MakeAnalysis("Source", {LineWithPicture("grip.png").Formula(TimeFormula("Source", "1", "8").AddNull()),
                              LineWithPicture("seat.png").Reuses(MakeAnalysis("Reused"))});
  EXPECT_EQ(Add(source, "grip.png", "grip"), S_OK);
  EXPECT_EQ(Add(source, "seat.png", "seat"), S_OK);
  EXPECT_EQ(Copy(source, _Destination), S_OK);
  EXPECT_EQ(Fetch(_Destination, "grip.png").content, "grip");
  EXPECT_EQ(Fetch(_Destination, "seat.png").content, "seat");
}

// A value of another type than a text is no name.
TEST_F(PictureCopyTest, PassesOverAPictureThatIsNoText) {
  const auto source = MakeAnalysis("Source", {Line("M10B").Set("FormulaPicture", 1), Line("M10B")});
  EXPECT_EQ(Copy(source, _Destination), E_FAIL);
}

// ---- The status is that of the last line with a picture ----

struct StatusRow {
  const char* name;
  std::vector<std::string> pictures;  // of the lines; the source holds "grip.1" and "seat.2"
  long status;
  Formats copied;
};
class PictureCopyStatusTest : public PictureRowTest<StatusRow> {};

TEST_P(PictureCopyStatusTest, IsTold) {
  const auto source = MakeSource(GetParam().pictures);
  EXPECT_EQ(Add(source, "grip.1", "grip"), S_OK);
  EXPECT_EQ(Add(source, "seat.2", "seat"), S_OK);
  const KORBaseUnknown_var destination = MakeAnalysis("Destination");
  EXPECT_EQ(Copy(source, destination), GetParam().status);
  EXPECT_EQ(FormatsOn(destination), GetParam().copied);
}

INSTANTIATE_TEST_SUITE_P(Lines, PictureCopyStatusTest,
                         testing::Values(StatusRow{"None", {}, E_FAIL, {}},
                                         StatusRow{"NoneWithAPicture", {"", "", ""}, E_FAIL, {}},
                                         StatusRow{"One", {"grip.1"}, S_OK, {"1"}},
                                         StatusRow{"Two", {"grip.1", "seat.2"}, S_OK, {"1", "2"}},
                                         StatusRow{"Missing", {"table.1"}, E_FAIL, {}},
                                         StatusRow{"MissingAhead", {"table.1", "seat.2"}, S_OK, {"2"}},
                                         StatusRow{"MissingBetween", {"grip.1", "table.1", "seat.2"}, S_OK, {"1", "2"}},
                                         StatusRow{"MissingAtTheEnd", {"grip.1", "table.1"}, E_FAIL, {"1"}},
                                         StatusRow{"LinesWithoutPictureBehind", {"grip.1", "", ""}, S_OK, {"1"}},
                                         StatusRow{"LinesWithoutPictureBehindAFailure", {"table.1", ""}, E_FAIL, {}},
                                         StatusRow{"LeadsOutside", {"grip.1", "../seat.2"}, E_INVALIDARG, {"1"}},
                                         StatusRow{"LeadsOutsideAhead", {"../grip.1", "seat.2"}, S_OK, {"2"}},
                                         StatusRow{"InAFolderThatIsMissing", {"parts/grip.1"}, E_FAIL, {}},
                                         StatusRow{"OtherExtension", {"grip.3"}, S_OK, {"3"}}),
                         RowName());

// ---- Objects ----

TEST_F(PictureCopyTest, FailsWithoutSourceOrDestination) {
  const auto source = MakeSource({"grip.png"});
  EXPECT_EQ(Add(source, "grip.png", "grip"), S_OK);
  EXPECT_EQ(Copy(NULL_var, _Destination), E_FAIL);
  EXPECT_EQ(Copy(source, NULL_var), E_FAIL);
  EXPECT_EQ(Copy(NULL_var, NULL_var), E_FAIL);
  EXPECT_TRUE(std::filesystem::is_empty(InTemp("")));
}

TEST_F(PictureCopyTest, FailsForASourceWithoutLinesOrAttributes) {
  const auto source = MakeSource({"grip.png"});
  EXPECT_EQ(Add(source, "grip.png", "grip"), S_OK);
  EXPECT_EQ(Copy(MakeBareObject(), _Destination), E_FAIL);
  EXPECT_EQ(Copy(MakeShellWithout<VEXITimeAnalysisLines>(source), _Destination), E_FAIL);
  EXPECT_EQ(Copy(MakeShellWithout<VEXITimeAnalysisRepReference>(source), _Destination), E_FAIL);
  EXPECT_EQ(FormatsOn(_Destination), Formats{});
}

TEST_F(PictureCopyTest, TellsOfASourceThatIsNoRepresentation) {
  EXPECT_EQ(Copy(MakeShell(MakeSource({"grip.png"})), _Destination), E_NOINTERFACE);
}

TEST_F(PictureCopyTest, TellsOfADestinationThatIsNoRepresentation) {
  const auto source = MakeSource({"grip.png"});
  EXPECT_EQ(Add(source, "grip.png", "grip"), S_OK);
  EXPECT_EQ(Copy(source, MakeBareObject()), E_NOINTERFACE);
  EXPECT_EQ(ContentOf(InTemp("grip.png")), "grip");
}

// ---- Faults of the platform ----

struct FaultRow {
  const char* name;
  const char* operation;
  long fault;
  long status;
};
class PictureCopyFaultTest : public PictureRowTest<FaultRow> {};

TEST_P(PictureCopyFaultTest, IsToldAndNothingIsCopied) {
  const auto source = MakeSource({"grip.png", "grip.png", ""});
  EXPECT_EQ(Add(source, "grip.png", "grip"), S_OK);
  const KORBaseUnknown_var destination = MakeAnalysis("Destination");
  _Session.InjectFault(GetParam().operation, GetParam().fault);
  EXPECT_EQ(Copy(source, destination), GetParam().status);
  EXPECT_EQ(FormatsOn(destination), Formats{});
  EXPECT_EQ(FormatsOn(source), Formats{"png"});
}

INSTANTIATE_TEST_SUITE_P(Operations, PictureCopyFaultTest,
                         testing::Values(FaultRow{"Split", "KORSplitPathEx", Fault, E_FAIL},
                                         FaultRow{"Path", "KORMakePath", Fault, E_INVALIDARG},
                                         FaultRow{"Key", "KOROmbLoadableDataUniqueKey::Create", Fault, Fault},
                                         FaultRow{"Content", "GetExtendedContent", Fault, Fault},
                                         FaultRow{"CopyToFile", "CopyStreamToFile", Fault, Fault},
                                         FaultRow{"Url", "FromNativeFilePathToUrl", Fault, E_FAIL},
                                         FaultRow{"Add", "AddExtendedSDForRepRef", Fault, Fault},
                                         // Nothing was fetched without a failure, and nothing is what is added.
                                         FaultRow{"NoContentWithoutFailure", "GetExtendedContent", S_FALSE, S_OK}),
                         RowName());

}  // namespace
