// What the names of image files say: supported types, valid pictures, and the parts of a path.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <random>
#include <string>
#include <string_view>

#include "VEXSTMPicturesServices.h"
#include "tests/exchange/PictureTest.h"

namespace {

using exchangetest::PictureRowTest;
using exchangetest::PictureTest;
using exchangetest::Untouched;
using support::RowName;
using support::Text;
using Services = VEXSTMPicturesServices;

// ---- Tables ----

constexpr std::array Descriptions{"Supported Image Files", "Jpeg (*.jpg; *.jpeg)", "Bitmap (*.bmp)", "Png (*.png)"};
constexpr std::array Patterns{"*.bmp;*.jpg;*.jpeg;*.png", "*.jpg;*.jpeg", "*.bmp", "*.png"};

// What an initialiser of a static object saw, ahead of main.
struct Seen {
  std::string last_description{Services::_iTypeDescriptionList[3].Bytes()};
  std::string first_patterns{Services::_iTypeExtensionsList[0].Bytes()};
  KORUnicodeString extension;
  unsigned char supported = Services::CheckPictureType("grip.png", extension);
};
const Seen SeenAheadOfMain;

TEST(PictureTablesTest, HoldFourRows) {
  static_assert(std::size(Services::_iTypeDescriptionList) == Descriptions.size());
  static_assert(std::size(Services::_iTypeExtensionsList) == Patterns.size());
  for (std::size_t position = 0; position < Descriptions.size(); ++position) {
    EXPECT_EQ(Services::_iTypeDescriptionList[position], Descriptions[position]);
    EXPECT_EQ(Services::_iTypeExtensionsList[position], Patterns[position]);
  }
}

TEST(PictureTablesTest, ServeInitialisersOfStaticObjects) {
  EXPECT_EQ(SeenAheadOfMain.last_description, "Png (*.png)");
  EXPECT_EQ(SeenAheadOfMain.first_patterns, "*.bmp;*.jpg;*.jpeg;*.png");
  EXPECT_EQ(SeenAheadOfMain.supported, 1);
  EXPECT_EQ(SeenAheadOfMain.extension, "png");
}

// ---- Types ----

struct TypeRow {
  const char* name;
  const char* path;
  int supported;
  const char* extension;
};
class PictureTypeTest : public PictureRowTest<TypeRow> {};

TEST_P(PictureTypeTest, IsTold) {
  KORUnicodeString extension(Untouched);
  EXPECT_EQ(Services::CheckPictureType(GetParam().path, extension), GetParam().supported);
  EXPECT_EQ(extension, GetParam().extension);
}

TEST_P(PictureTypeTest, MayOverwriteItsPath) {
  KORUnicodeString path(GetParam().path);
  EXPECT_EQ(Services::CheckPictureType(path, path), GetParam().supported);
  EXPECT_EQ(path, std::string_view(GetParam().extension) == Untouched ? GetParam().path : GetParam().extension);
}

INSTANTIATE_TEST_SUITE_P(Supported, PictureTypeTest,
                         testing::Values(TypeRow{"Bmp", "grip.bmp", 1, "bmp"}, TypeRow{"Jpg", "grip.jpg", 1, "jpg"},
                                         TypeRow{"Jpeg", "grip.jpeg", 1, "jpeg"}, TypeRow{"Png", "grip.png", 1, "png"},
                                         TypeRow{"Capitals", "a.PNG", 1, "PNG"},
                                         TypeRow{"MixedCase", "grip.JpEg", 1, "JpEg"},
                                         TypeRow{"OneLetterAhead", "a.png", 1, "png"},
                                         TypeRow{"InAFolder", "/seat/grip.png", 1, "png"},
                                         TypeRow{"DotInTheFolder", "/seat.old/grip.png", 1, "png"},
                                         TypeRow{"LastDotCounts", "grip.gif.png", 1, "png"},
                                         TypeRow{"OtherLetters", "Gr\xC3\xB6\xC3\x9F\x65.png", 1, "png"}),
                         RowName());

INSTANTIATE_TEST_SUITE_P(SupportedAsTheHeadOfAnExtension, PictureTypeTest,
                         testing::Values(TypeRow{"TwoLetters", "a.jp", 1, "jp"}, TypeRow{"OneLetter", "a.b", 1, "b"},
                                         TypeRow{"Capital", "a.P", 1, "P"}, TypeRow{"None", "grip.", 1, ""},
                                         TypeRow{"AnyTextOfTheRow", "grip.bmp;*", 1, "bmp;*"}),
                         RowName());

INSTANTIATE_TEST_SUITE_P(
    NotSupported, PictureTypeTest,
    testing::Values(TypeRow{"Gif", "a.gif", 0, "gif"}, TypeRow{"LongerThanSupported", "a.pngx", 0, "pngx"},
                    TypeRow{"TailOfSupported", "a.ng", 0, "ng"}, TypeRow{"InsideOfSupported", "a.pe", 0, "pe"},
                    TypeRow{"BlankBehind", "a.png ", 0, "png "}, TypeRow{"BlankAhead", "a. png", 0, " png"},
                    TypeRow{"OtherLetters", "a.p\xC3\xB1g", 0, "p\xC3\xB1g"},
                    TypeRow{"OnlyTheLastDotCounts", "grip.png.old", 0, "old"},
                    TypeRow{"DotInTheFolderOnly", "/seat.png/grip", 0, "png/grip"}),
    RowName());

INSTANTIATE_TEST_SUITE_P(WithoutExtension, PictureTypeTest,
                         testing::Values(TypeRow{"Empty", "", 0, Untouched}, TypeRow{"NoDot", "a", 0, Untouched},
                                         TypeRow{"NothingAheadOfTheDot", ".png", 0, Untouched},
                                         TypeRow{"OnlyADot", ".", 0, Untouched},
                                         TypeRow{"InAFolder", "/seat/grip", 0, Untouched}),
                         RowName());

// Where the dot is not the first character of the whole path, a name that starts with it has an extension.
INSTANTIATE_TEST_SUITE_P(DotAtTheStartOfTheFile, PictureTypeTest,
                         testing::Values(TypeRow{"InAFolder", "/seat/.png", 1, "png"},
                                         TypeRow{"SecondDot", "..png", 1, "png"}),
                         RowName());

// ---- Valid pictures ----

class PictureValidTest : public PictureTest {
 protected:
  KORUnicodeString _Extension{Untouched};
};

TEST_F(PictureValidTest, AFileThatIsThere) {
  EXPECT_EQ(Services::IsPictureValid(Unicode(_Folder.Write("grip.PNG", "x")), _Extension), 1);
  EXPECT_EQ(_Extension, "PNG");
}

TEST_F(PictureValidTest, AFileOfAnotherType) {
  EXPECT_EQ(Services::IsPictureValid(Unicode(_Folder.Write("grip.gif", "x")), _Extension), 0);
  EXPECT_EQ(_Extension, "gif");
}

TEST_F(PictureValidTest, AFileWithoutExtension) {
  EXPECT_EQ(Services::IsPictureValid(Unicode(_Folder.Write("grip", "x")), _Extension), 0);
}

TEST_F(PictureValidTest, NoFile) {
  EXPECT_EQ(Services::IsPictureValid(Unicode(_Folder.Path("grip.png")), _Extension), 0);
  EXPECT_EQ(_Extension, Untouched);
}

TEST_F(PictureValidTest, NoPath) {
  EXPECT_EQ(Services::IsPictureValid("", _Extension), 0);
  EXPECT_EQ(_Extension, Untouched);
}

TEST_F(PictureValidTest, ANulInThePathIsNotItsEnd) {
  const std::string path = _Folder.Write("grip.png", "x") + std::string("\0.png", 5);
  EXPECT_EQ(Services::IsPictureValid(Unicode(path), _Extension), 0);
  EXPECT_EQ(_Extension, Untouched);
}

TEST_F(PictureValidTest, AFileThatCannotBeLookedFor) {
  const KORUnicodeString path = Unicode(_Folder.Write("grip.png", "x"));
  _Session.InjectFault("_KORFileAccess", E_FAIL);
  EXPECT_EQ(Services::IsPictureValid(path, _Extension), 0);
  EXPECT_EQ(_Extension, Untouched);
}

// ---- Parts of a path ----

struct PathRow {
  const char* name;
  const char* path;
  long status;
  const char* folder;
  const char* file;
  const char* base_name;
  const char* extension;
};
class PathPartsTest : public testing::TestWithParam<PathRow> {};

TEST_P(PathPartsTest, AreTold) {
  KORUnicodeString folder(Untouched), file(Untouched), base_name(Untouched), extension(Untouched);
  EXPECT_EQ(Services::GetDirNameFileNameFileTypeFromFilePath(GetParam().path, folder, file, base_name, extension),
            GetParam().status);
  EXPECT_EQ(folder, GetParam().folder);
  EXPECT_EQ(file, GetParam().file);
  EXPECT_EQ(base_name, GetParam().base_name);
  EXPECT_EQ(extension, GetParam().extension);
}

// Any of the four outputs may be the text of the path itself.
TEST_P(PathPartsTest, MayOverwriteThePath) {
  constexpr int Outputs = 4;
  for (int output = 0; output < Outputs; ++output) {
    std::array<KORUnicodeString, Outputs> texts{Untouched, Untouched, Untouched, Untouched};
    KORUnicodeString& path = texts.at(static_cast<std::size_t>(output));
    path = GetParam().path;
    EXPECT_EQ(Services::GetDirNameFileNameFileTypeFromFilePath(path, texts[0], texts[1], texts[2], texts[3]),
              GetParam().status);
    const std::array expected{GetParam().folder, GetParam().file, GetParam().base_name, GetParam().extension};
    for (int other = 0; other < Outputs; ++other) {
      const auto index = static_cast<std::size_t>(other);
      const bool left_alone = std::string_view(expected.at(index)) == Untouched;
      EXPECT_EQ(texts.at(index), left_alone && other == output ? GetParam().path : expected.at(index));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    Paths, PathPartsTest,
    testing::Values(PathRow{"Plain", "/seat/grip.png", S_OK, "/seat", "grip.png", "grip", "png"},
                    PathRow{"CutAtTheFirstDot", "/seat/x.tar.gz", S_OK, "/seat", "x.tar.gz", "x", "tar.gz"},
                    PathRow{"NoFolder", "grip.png", S_OK, "", "grip.png", "grip", "png"},
                    PathRow{"RootFolder", "/grip.png", S_OK, "/", "grip.png", "grip", "png"},
                    PathRow{"DotsInTheFolder", "../seat.old/grip.png", S_OK, "../seat.old", "grip.png", "grip", "png"},
                    PathRow{"OtherLetters", "/Gr\xC3\xB6/\xE6\x97\xA5\xE6\x9C\xAC.png", S_OK, "/Gr\xC3\xB6",
                            "\xE6\x97\xA5\xE6\x9C\xAC.png", "\xE6\x97\xA5\xE6\x9C\xAC", "png"},
                    PathRow{"NoDot", "/seat/grip", S_OK, "/seat", "grip", "grip", ""},
                    PathRow{"NoDotInTheFile", "/seat.old/grip", S_OK, "/seat.old", "grip", "grip", ""},
                    PathRow{"NothingBehindTheDot", "/seat/grip.", S_OK, "/seat", "grip.", "grip", ""},
                    PathRow{"NothingAheadOfTheDot", "/seat/.png", S_OK, "/seat", ".png", "", "png"},
                    PathRow{"TwoDots", "/seat/grip..png", S_OK, "/seat", "grip..png", "grip", ".png"},
                    PathRow{"OnlyADot", ".", S_OK, "", ".", "", ""},
                    PathRow{"SeparatorAtTheEnd", "/seat/", S_OK, "/seat", "", Untouched, Untouched},
                    PathRow{"OnlyASeparator", "/", S_OK, "/", "", Untouched, Untouched},
                    PathRow{"Empty", "", E_INVALIDARG, "", "", Untouched, Untouched}),
    RowName());

TEST_F(PictureTest, PathThatCannotBeSplitHasNoParts) {
  _Session.InjectFault("KORSplitPathEx", -77);
  KORUnicodeString folder(Untouched), file(Untouched), base_name(Untouched), extension(Untouched);
  EXPECT_EQ(Services::GetDirNameFileNameFileTypeFromFilePath("/seat/grip.png", folder, file, base_name, extension),
            -77);
  EXPECT_EQ(folder, "");
  EXPECT_EQ(file, "");
  EXPECT_EQ(base_name, Untouched);
  EXPECT_EQ(extension, Untouched);
}

// ---- Names drawn by lot, against the rules written down on bytes ----

// Mostly what the rules look at.
std::string DrawPath(std::mt19937& lots) {
  static constexpr std::array Pieces{".", ".", "/", "png", "PNG", "jp", "eg", "bmp", ";*", "grip", "\xC3\xB6", " "};
  std::string path;
  for (std::size_t left = std::uniform_int_distribution<std::size_t>(0, 8)(lots); left > 0; --left) {
    path += Pieces.at(std::uniform_int_distribution<std::size_t>(0, Pieces.size() - 1)(lots));
  }
  return path;
}

std::string InSmallLetters(std::string text) {
  for (char& letter : text) {
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  }
  return text;
}

TEST(DrawnNamesTest, TypesFollowTheRule) {
  std::mt19937 lots(20'240);
  for (int round = 0; round < 20'000; ++round) {
    const std::string path = DrawPath(lots);
    const std::size_t dot = path.rfind('.');
    const bool has_extension = dot != std::string::npos && dot > 0;
    const std::string extension = has_extension ? path.substr(dot + 1) : Untouched;
    const bool supported =
        has_extension &&
        std::string_view("*.bmp;*.jpg;*.jpeg;*.png").find("*." + InSmallLetters(extension)) != std::string_view::npos;
    KORUnicodeString found(Untouched);
    ASSERT_EQ(Services::CheckPictureType(KORUnicodeString(path), found), supported ? 1 : 0) << path;
    ASSERT_EQ(Text(found), extension) << path;
  }
}

TEST(DrawnNamesTest, PartsFollowTheRule) {
  std::mt19937 lots(20'241);
  for (int round = 0; round < 20'000; ++round) {
    const std::string path = DrawPath(lots);
    const std::string expected_file = path.substr(path.rfind('/') + 1);  // from the start if there is none
    const std::size_t dot = expected_file.find('.');
    KORUnicodeString folder, file, base_name, extension;
    (void)Services::GetDirNameFileNameFileTypeFromFilePath(KORUnicodeString(path), folder, file, base_name, extension);
    ASSERT_EQ(Text(file), expected_file) << path;
    ASSERT_EQ(Text(base_name), expected_file.substr(0, dot)) << path;
    ASSERT_EQ(Text(extension), dot == std::string::npos ? "" : expected_file.substr(dot + 1)) << path;
  }
}

}  // namespace
