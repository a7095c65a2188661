// Pictures where something is wrong: names that lead outside, no temporary folder, a full disk, objects that hold none,
// faults of the platform.
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "VEXSTMPicturesServices.h"
#include "platform/base/KORError.h"
#include "platform/model/KORModel.h"
#include "tests/calculation/AnalysisShell.h"
#include "tests/exchange/PictureTest.h"
#include "tests/support/FullDisk.h"

namespace {

using calculationtest::MakeBareObject;
using calculationtest::MakeShell;
using exchangetest::DrawBytes;
using exchangetest::Fetched;
using exchangetest::PictureRowTest;
using exchangetest::PictureTest;
using exchangetest::Untouched;
using support::FullDisk;
using support::MakeAnalysis;
using support::RowName;
using Services = VEXSTMPicturesServices;

constexpr long Fault = -77;  // a status that nothing but an injected fault gives

// ---- Names that lead outside ----

struct OutsideRow {
  const char* name;
  std::string picture;
};
class OutsideNameTest : public PictureRowTest<OutsideRow> {};

TEST_P(OutsideNameTest, IsRefusedAndNothingIsWritten) {
  const KORBaseUnknown_var analysis = MakeAnalysis("A");
  EXPECT_EQ(Add(analysis, "grip.png", "image"), S_OK);
  EXPECT_EQ(Add(analysis, "..\\grip.png", "image"), S_OK);
  EXPECT_EQ(Add(analysis, "gr\nip.png", "image"), S_OK);
  EXPECT_EQ(Add(analysis, ".png", "image"), S_OK);
  _Folder.MakeFolder("temp/parts");
  const std::vector<std::string> before = AllFiles();
  const Fetched fetched = Fetch(analysis, GetParam().picture);
  EXPECT_EQ(fetched.status, E_INVALIDARG);
  EXPECT_EQ(fetched.path, Untouched);
  EXPECT_EQ(AllFiles(), before);
}

INSTANTIATE_TEST_SUITE_P(
    Names, OutsideNameTest,
    testing::Values(OutsideRow{"OneFolderUp", "../grip.png"}, OutsideRow{"UpFromAFolderWithin", "parts/../../grip.png"},
                    OutsideRow{"UpAndDown", "parts/../grip.png"}, OutsideRow{"Absolute", "/tmp/grip.png"},
                    OutsideRow{"TwoSeparators", "//grip.png"}, OutsideRow{"OnlyUp", ".."},
                    OutsideRow{"UpWithBackslash", "..\\grip.png"}, OutsideRow{"Empty", ""},
                    OutsideRow{"Nul", std::string("grip.p\0ng", 9)}, OutsideRow{"LineEnd", "gr\nip.png"},
                    OutsideRow{"Delete", "grip.\x7Fpng"}, OutsideRow{"HighControlCharacter", "grip.\xC2\x85png"},
                    OutsideRow{"TenThousandCharacters", "grip." + std::string(10'000, 'x')},
                    OutsideRow{"FolderOfTenThousandCharacters", std::string(10'000, 'x') + "/grip.png"},
                    OutsideRow{"TooManyFolders", std::string(5'000, '/').replace(0, 1, "x") + "grip.png"}),
    RowName());

struct TempRow {
  const char* name;
  std::optional<std::string> temp;  // nothing: not set
  long status;
};
class TempFolderTest : public PictureRowTest<TempRow> {};

TEST_P(TempFolderTest, DecidesOverTheFetch) {
  const KORBaseUnknown_var analysis = MakeAnalysis("A");
  EXPECT_EQ(Add(analysis, "grip.png", "image"), S_OK);
  _Session.UnsetEnvironment("KORTemp");
  if (GetParam().temp) _Session.SetEnvironment("KORTemp", Unicode(*GetParam().temp));
  const std::vector<std::string> before = AllFiles();
  const Fetched fetched = Fetch(analysis, "grip.png");
  EXPECT_EQ(fetched.status, GetParam().status);
  EXPECT_EQ(fetched.content, std::nullopt);
  EXPECT_EQ(AllFiles(), before);
}

INSTANTIATE_TEST_SUITE_P(NotToBeUsed, TempFolderTest,
                         testing::Values(TempRow{"NotSet", std::nullopt, E_INVALIDARG},
                                         TempRow{"Empty", "", E_INVALIDARG},
                                         TempRow{"WithANul", std::string("/tmp\0", 5), E_INVALIDARG},
                                         TempRow{"TooLong", "/" + std::string(4'096, 'x'), E_INVALIDARG},
                                         TempRow{"Missing", "/nowhere/at/all", E_FAIL},
                                         TempRow{"NoFolder", "/dev/null", E_FAIL}),
                         RowName());

// ---- A full disk ----

TEST_F(PictureTest, AFullDiskLeavesNoFile) {
  const KORBaseUnknown_var analysis = MakeAnalysis("A");
  EXPECT_EQ(Add(analysis, "large.png", DrawBytes(100'000, 4)), S_OK);
  EXPECT_EQ(Fetch(analysis, "large.png").status, S_OK);  // a whole file from before is not mistaken for the new one
  Fetched fetched;
  {
    const FullDisk limit(50'000);
    fetched = Fetch(analysis, "large.png");
  }
  EXPECT_EQ(fetched.status, E_FAIL);
  EXPECT_EQ(fetched.path, InTemp("large.png"));
  EXPECT_EQ(fetched.content, std::nullopt);
  EXPECT_TRUE(std::filesystem::is_empty(InTemp("")));
  EXPECT_EQ(Fetch(analysis, "large.png").content, DrawBytes(100'000, 4));
}

// ---- Objects ----

TEST_F(PictureTest, NullIsRaisedOnAddingAndFailsElsewhere) {
  const std::string path = _Folder.Write("grip.png", "image");
  EXPECT_THROW((void)Services::AddPictureOnTARep(NULL_var, Unicode(path)), KORError);
  EXPECT_THROW((void)Services::AddPictureOnTARep(NULL_var, ""), KORError);
  const Fetched fetched = Fetch(NULL_var, "grip.png");
  EXPECT_EQ(fetched.status, E_FAIL);
  EXPECT_EQ(fetched.path, Untouched);
  EXPECT_EQ(Remove(NULL_var, "grip.png"), E_FAIL);
}

TEST_F(PictureTest, ObjectsThatAreNoRepresentationHaveNone) {
  // The shell offers all that an analysis offers to its users, but is no representation.
  const KORBaseUnknown_var operation = KORModel::Current().CreateOperation("Operation");
  for (const KORBaseUnknown_var& object :
       {MakeBareObject(), KORBaseUnknown_var(MakeShell(MakeAnalysis("A"))), operation}) {
    EXPECT_EQ(Add(object, "grip.png", "image"), E_NOINTERFACE);
    EXPECT_EQ(Services::AddPictureOnTARep(object, Unicode(_Folder.Path() + "/")), E_NOINTERFACE);
    const Fetched fetched = Fetch(object, "grip.png");
    EXPECT_EQ(fetched.status, E_NOINTERFACE);
    EXPECT_EQ(fetched.path, Untouched);
    EXPECT_EQ(Remove(object, "grip.png"), E_INVALIDARG);
  }
  EXPECT_TRUE(std::filesystem::is_empty(InTemp("")));
}

TEST_F(PictureTest, ARepresentationOfAnotherKindHoldsThemToo) {
  const KORBaseUnknown_var other = KORModel::Current().CreateOtherRepReference("Other");
  EXPECT_EQ(Add(other, "grip.png", "image"), S_OK);
  EXPECT_EQ(Fetch(other, "grip.png").content, "image");
  EXPECT_EQ(Remove(other, "grip.png"), S_OK);
}

// ---- Faults of the platform ----

struct FaultRow {
  const char* name;
  const char* operation;
  long fault;
  long add;
  long fetch;
  bool fills_path;
  long remove;
};
class PictureFaultTest : public PictureRowTest<FaultRow> {};

TEST_P(PictureFaultTest, IsToldAndHarmsNothing) {
  const KORBaseUnknown_var analysis = MakeAnalysis("A");
  const std::string path = _Folder.Write("images/seat.png", "seat");
  EXPECT_EQ(Add(analysis, "grip.png", "image"), S_OK);
  _Session.InjectFault(GetParam().operation, GetParam().fault);

  const Fetched fetched = Fetch(analysis, "grip.png");
  EXPECT_EQ(fetched.status, GetParam().fetch);
  EXPECT_EQ(fetched.path, GetParam().fills_path ? InTemp("grip.png") : Untouched);
  EXPECT_EQ(fetched.content, GetParam().fetch == S_OK ? std::optional<std::string>("image") : std::nullopt);
  EXPECT_EQ(std::filesystem::is_empty(InTemp("")), GetParam().fetch != S_OK);

  EXPECT_EQ(Services::AddPictureOnTARep(analysis, Unicode(path)), GetParam().add);
  EXPECT_EQ(Remove(analysis, "grip.png"), GetParam().remove);
  _Session.ClearFaults();
  EXPECT_EQ(Fetch(analysis, "grip.png").status, GetParam().remove == S_OK ? E_FAIL : S_OK);
}

INSTANTIATE_TEST_SUITE_P(Operations, PictureFaultTest,
                         testing::Values(
                             // A path that cannot be split has no file: nothing to add, and no picture of that name.
                             FaultRow{"Split", "KORSplitPathEx", Fault, S_OK, E_FAIL, false, S_OK},
                             FaultRow{"Url", "FromNativeFilePathToUrl", Fault, E_FAIL, S_OK, true, S_OK},
                             FaultRow{"Add", "AddExtendedSDForRepRef", Fault, Fault, S_OK, true, S_OK},
                             FaultRow{"Key", "KOROmbLoadableDataUniqueKey::Create", Fault, S_OK, Fault, false, Fault},
                             FaultRow{"NoKeyWithoutFailure", "KOROmbLoadableDataUniqueKey::Create", S_FALSE, S_OK,
                                      E_INVALIDARG, false, S_FALSE},
                             FaultRow{"Content", "GetExtendedContent", Fault, S_OK, Fault, false, S_OK},
                             FaultRow{"NoContentWithoutFailure", "GetExtendedContent", S_FALSE, S_OK, S_FALSE, false,
                                      S_OK},
                             FaultRow{"Path", "KORMakePath", Fault, S_OK, E_INVALIDARG, false, S_OK},
                             FaultRow{"Copy", "CopyStreamToFile", Fault, S_OK, Fault, true, S_OK},
                             FaultRow{"Open", "KORFOpen", Fault, S_OK, Fault, true, S_OK},
                             FaultRow{"Write", "KORFWrite", Fault, S_OK, Fault, true, S_OK},
                             FaultRow{"Close", "KORFClose", Fault, S_OK, Fault, true, S_OK},
                             FaultRow{"Delete", "DeleteSD", Fault, S_OK, S_OK, true, Fault}),
                         RowName());

// What stood under the path goes when a new file is begun: where that failed, it stays.
struct EarlierFileRow {
  const char* name;
  const char* operation;
  std::optional<std::string> left;
};
class EarlierFileTest : public PictureRowTest<EarlierFileRow> {};

TEST_P(EarlierFileTest, GoesWhenANewOneIsBegun) {
  const KORBaseUnknown_var analysis = MakeAnalysis("A");
  EXPECT_EQ(Add(analysis, "grip.png", "new"), S_OK);
  (void)_Folder.Write("temp/grip.png", "old");
  _Session.InjectFault(GetParam().operation, Fault);
  const Fetched fetched = Fetch(analysis, "grip.png");
  EXPECT_EQ(fetched.status, Fault);
  EXPECT_EQ(fetched.path, InTemp("grip.png"));
  EXPECT_EQ(fetched.content, GetParam().left);
}

INSTANTIATE_TEST_SUITE_P(Operations, EarlierFileTest,
                         testing::Values(EarlierFileRow{"Copy", "CopyStreamToFile", "old"},
                                         EarlierFileRow{"Open", "KORFOpen", "old"},
                                         EarlierFileRow{"Write", "KORFWrite", std::nullopt},
                                         EarlierFileRow{"Close", "KORFClose", std::nullopt}),
                         RowName());

}  // namespace
