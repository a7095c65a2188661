// Pictures on an analysis: adding, fetching and removing them.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <iterator>
#include <optional>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "VEXSTMPicturesServices.h"
#include "platform/services/KOROmbStreams.h"
#include "platform/services/KORVVSUrl.h"
#include "tests/exchange/PictureTest.h"

namespace {

using exchangetest::ContentOf;
using exchangetest::DrawBytes;
using exchangetest::Fetched;
using exchangetest::FormatsOn;
using exchangetest::PictureRowTest;
using exchangetest::PictureTest;
using exchangetest::Untouched;
using support::MakeAnalysis;
using support::RowName;
using Formats = std::vector<std::string>;
using Services = VEXSTMPicturesServices;

// ---- Adding ----

struct NameRow {
  const char* name;
  const char* file;
  const char* format;
  const char* base_name;
};
class PictureNameTest : public PictureRowTest<NameRow> {};

TEST_P(PictureNameTest, IsCutAtItsFirstDot) {
  const KORBaseUnknown_var analysis = MakeAnalysis("A");
  EXPECT_EQ(Add(analysis, GetParam().file, "image"), S_OK);
  EXPECT_EQ(FormatsOn(analysis), Formats{GetParam().format});

  const Fetched by_name = Fetch(analysis, GetParam().file);
  EXPECT_EQ(by_name.status, S_OK);
  EXPECT_EQ(by_name.path, InTemp(GetParam().file));
  EXPECT_EQ(by_name.content, "image");

  const std::string other_extension = std::string(GetParam().base_name) + ".other";
  const Fetched by_base_name = Fetch(analysis, other_extension);
  EXPECT_EQ(by_base_name.status, S_OK);
  EXPECT_EQ(by_base_name.path, InTemp(other_extension));
  EXPECT_EQ(by_base_name.content, "image");

  EXPECT_EQ(Remove(analysis, other_extension), S_OK);
  EXPECT_EQ(FormatsOn(analysis), Formats{});
}

INSTANTIATE_TEST_SUITE_P(
    Names, PictureNameTest,
    testing::Values(
        NameRow{"OneDot", "grip.png", "png", "grip"}, NameRow{"Capitals", "Grip.PNG", "PNG", "Grip"},
        NameRow{"TwoDots", "a.b.png", "b.png", "a"}, NameRow{"DotsInARow", "a..png", ".png", "a"},
        NameRow{"NoDot", "grip", "", "grip"}, NameRow{"DotAtTheEnd", "grip.", "", "grip"},
        NameRow{"DotAtTheStart", ".png", "png", ""}, NameRow{"Blanks", "grip left .png", "png", "grip left "},
        NameRow{"NoImageType", "grip.txt", "txt", "grip"}, NameRow{"Backslash", "seat\\grip.png", "png", "seat\\grip"},
        NameRow{"Umlauts", "Gr\xC3\xB6\xC3\x9F\x65.png", "png", "Gr\xC3\xB6\xC3\x9F\x65"},
        NameRow{"Ideographs", "\xE6\x97\xA5\xE6\x9C\xAC.\xE7\x94\xBB", "\xE7\x94\xBB", "\xE6\x97\xA5\xE6\x9C\xAC"},
        NameRow{"BeyondTheBasicPlane", "\xF0\x9F\x94\xA7.png", "png", "\xF0\x9F\x94\xA7"}),
    RowName());

class AddPictureTest : public PictureTest {
 protected:
  KORBaseUnknown_var _Analysis{MakeAnalysis("A")};
};

TEST_F(AddPictureTest, ReplacesOneOfTheSameName) {
  EXPECT_EQ(Add(_Analysis, "grip.png", "old"), S_OK);
  EXPECT_EQ(Add(_Analysis, "grip.png", "new"), S_OK);
  EXPECT_EQ(FormatsOn(_Analysis), Formats{"png"});
  EXPECT_EQ(Fetch(_Analysis, "grip.png").content, "new");
}

TEST_F(AddPictureTest, KeepsOneOfAnotherExtensionWhichStaysTheOneThatIsFound) {
  EXPECT_EQ(Add(_Analysis, "grip.png", "first"), S_OK);
  EXPECT_EQ(Add(_Analysis, "grip.jpg", "second"), S_OK);
  EXPECT_EQ(Add(_Analysis, "grip.PNG", "third"), S_OK);
  EXPECT_EQ(FormatsOn(_Analysis), (Formats{"png", "jpg", "PNG"}));
  EXPECT_EQ(Fetch(_Analysis, "grip.jpg").content, "first");
  EXPECT_EQ(Remove(_Analysis, "grip.jpg"), S_OK);
  EXPECT_EQ(FormatsOn(_Analysis), (Formats{"jpg", "PNG"}));
  EXPECT_EQ(Fetch(_Analysis, "grip.png").content, "second");
}

TEST_F(AddPictureTest, TakesThePathFromTheWorkingFolder) {
  const std::string path = std::filesystem::relative(_Folder.Write("grip.png", "image")).string();
  EXPECT_EQ(Services::AddPictureOnTARep(_Analysis, Unicode(path)), S_OK);
  EXPECT_EQ(Fetch(_Analysis, "grip.png").content, "image");
}

TEST_F(AddPictureTest, AddsNothingForAPathWithoutFile) {
  EXPECT_EQ(Services::AddPictureOnTARep(_Analysis, Unicode(_Folder.Path() + "/")), S_OK);
  EXPECT_EQ(Services::AddPictureOnTARep(_Analysis, ""), S_OK);
  EXPECT_EQ(FormatsOn(_Analysis), Formats{});
}

TEST_F(AddPictureTest, RefusesWhatIsNoRegularFile) {
  _Folder.MakeFolder("folder.png");
  std::filesystem::create_symlink(_Folder.Path("folder.png"), _Folder.Path("link.png"));
  std::filesystem::create_symlink(_Folder.Path("nowhere"), _Folder.Path("broken.png"));
  ASSERT_EQ(mkfifo(_Folder.Path("pipe.png").c_str(), 0600), 0);  // has no writer, and nobody waits for one
  for (const std::string& path : {_Folder.Path("missing.png"), _Folder.Path("missing/grip.png"),
                                  _Folder.Path("folder.png"), _Folder.Path("link.png"), _Folder.Path("broken.png"),
                                  _Folder.Path(std::string(10'000, 'a') + ".png"), _Folder.Path("pipe.png")}) {
    EXPECT_EQ(Services::AddPictureOnTARep(_Analysis, Unicode(path)), E_FAIL) << path;
  }
  EXPECT_EQ(FormatsOn(_Analysis), Formats{});
}

TEST_F(AddPictureTest, DoesNotTakeANulForTheEndOfThePath) {
  const std::string path = _Folder.Write("grip.png", "image") + std::string("\0x", 2);
  EXPECT_EQ(Services::AddPictureOnTARep(_Analysis, Unicode(path)), E_FAIL);
  EXPECT_EQ(FormatsOn(_Analysis), Formats{});
}

TEST_F(AddPictureTest, RefusesAFileOfMoreThanTheLongestStream) {
  const std::string path = _Folder.Write("grip.png", "");
  std::filesystem::resize_file(path, KORLongestStream + 1);  // a hole, which takes no room
  EXPECT_EQ(Services::AddPictureOnTARep(_Analysis, Unicode(path)), E_FAIL);
  EXPECT_EQ(FormatsOn(_Analysis), Formats{});
}

// A picture may vanish after it was found valid.
TEST_F(AddPictureTest, LeavesThePictureBeforeIfTheFileHasVanished) {
  EXPECT_EQ(Add(_Analysis, "grip.png", "old"), S_OK);
  const std::string path = _Folder.Path("images/grip.png");
  KORUnicodeString extension;
  EXPECT_EQ(Services::IsPictureValid(Unicode(path), extension), 1);
  std::filesystem::remove(path);
  EXPECT_EQ(Services::AddPictureOnTARep(_Analysis, Unicode(path)), E_FAIL);
  EXPECT_EQ(FormatsOn(_Analysis), Formats{"png"});
  EXPECT_EQ(Fetch(_Analysis, "grip.png").content, "old");
}

// ---- Fetching ----

struct ContentRow {
  const char* name;
  std::string content;
};
class PictureContentTest : public PictureRowTest<ContentRow> {};

TEST_P(PictureContentTest, ComesBackByteForByte) {
  const KORBaseUnknown_var analysis = MakeAnalysis("A");
  const std::string& content = GetParam().content;
  EXPECT_EQ(Add(analysis, "grip.png", content), S_OK);
  const Fetched fetched = Fetch(analysis, "grip.png");
  EXPECT_EQ(fetched.status, S_OK);
  EXPECT_TRUE(fetched.content == content);  // unlike EXPECT_EQ, prints no megabytes

  const KORBaseUnknown_var copy = MakeAnalysis("B");
  const KORBaseUnknown_var lined = MakeAnalysis("C", {exchangetest::LineWithPicture("grip.png")});
  EXPECT_EQ(Add(lined, "grip.png", content), S_OK);
  EXPECT_EQ(Copy(lined, copy), S_OK);
  EXPECT_TRUE(Fetch(copy, "grip.png").content == content);
}

std::string EveryByte() {
  std::string bytes;
  for (int value = 0; value < 256; ++value) bytes += static_cast<char>(value);
  return bytes;
}

INSTANTIATE_TEST_SUITE_P(
    Contents, PictureContentTest,
    testing::Values(ContentRow{"Empty", ""}, ContentRow{"OneByte", "x"}, ContentRow{"OneNul", std::string(1, '\0')},
                    ContentRow{"EveryByte", EveryByte()}, ContentRow{"LineEnds", "\r\n\n\r\x1A\r\n"},
                    ContentRow{"OnePage", DrawBytes(4'096, 1)}, ContentRow{"OneByteMore", DrawBytes(4'097, 2)},
                    ContentRow{"Megabytes", DrawBytes(std::size_t{3} << 20, 3)}),
    RowName());

class FetchPictureTest : public PictureTest {
 protected:
  FetchPictureTest() { EXPECT_EQ(Add(_Analysis, "grip.png", "image"), S_OK); }

  KORBaseUnknown_var _Analysis{MakeAnalysis("A")};
};

TEST_F(FetchPictureTest, ReplacesAnEarlierTemporaryFile) {
  _Folder.Write("temp/grip.png", "a file that is longer than the picture");
  EXPECT_EQ(Fetch(_Analysis, "grip.png").content, "image");
}

TEST_F(FetchPictureTest, DoesNotFollowALinkInTheTemporaryFolder) {
  const std::string victim = _Folder.Write("victim", "precious");
  std::filesystem::create_symlink(victim, InTemp("grip.png"));
  EXPECT_EQ(Fetch(_Analysis, "grip.png").content, "image");
  EXPECT_EQ(ContentOf(victim), "precious");
}

TEST_F(FetchPictureTest, MayOverwriteThePictureName) {
  KORUnicodeString text("grip.png");
  EXPECT_EQ(Services::GetPictureOnTARep(_Analysis, text, text), S_OK);
  EXPECT_EQ(text, KORUnicodeString(InTemp("grip.png")));
}

// A stream of another kind, added first under the same name, is taken for the picture.
TEST_F(FetchPictureTest, FindsAnyStreamOfTheName) {
  KORVVSUrl url;
  EXPECT_EQ(KORVVSUrlUtils::FromNativeFilePathToUrl(Unicode(_Folder.Write("seat.JSON", "{}")), url), S_OK);
  EXPECT_EQ(KOROmbRepRefLoadingServices::AddExtendedSDForRepRef(_Analysis, "JSON", "seat", url, 0), S_OK);
  EXPECT_EQ(Add(_Analysis, "seat.png", "seat"), S_OK);
  EXPECT_EQ(Fetch(_Analysis, "seat.png").content, "{}");
}

TEST_F(FetchPictureTest, KeepsTheFolderThatThePictureNames) {
  _Folder.MakeFolder("temp/parts.old");
  const Fetched fetched = Fetch(_Analysis, "parts.old/grip.png");
  EXPECT_EQ(fetched.status, S_OK);
  EXPECT_EQ(fetched.path, InTemp("parts.old/grip.png"));
  EXPECT_EQ(fetched.content, "image");
}

TEST_F(FetchPictureTest, FailsInAFolderThatIsMissing) {
  const Fetched fetched = Fetch(_Analysis, "parts/grip.png");
  EXPECT_EQ(fetched.status, E_FAIL);
  EXPECT_EQ(fetched.path, InTemp("parts/grip.png"));
  EXPECT_FALSE(std::filesystem::exists(InTemp("parts")));
}

TEST_F(FetchPictureTest, FailsWhereAFolderStands) {
  _Folder.MakeFolder("temp/grip.png");
  EXPECT_EQ(Fetch(_Analysis, "grip.png").status, E_FAIL);
  EXPECT_TRUE(std::filesystem::is_directory(InTemp("grip.png")));
}

TEST_F(FetchPictureTest, FailsWithoutSuchAPicture) {
  for (const char* const picture : {"seat.png", "gri.png", "Grip.png", "grip png", "", ".png", "grip.png/", "a.grip"}) {
    const Fetched fetched = Fetch(_Analysis, picture);
    EXPECT_EQ(fetched.status, E_FAIL) << picture;
    EXPECT_EQ(fetched.path, Untouched) << picture;
  }
  EXPECT_TRUE(std::filesystem::is_empty(InTemp("")));
}

// ---- Removing ----

TEST_F(FetchPictureTest, IsOverForOneThatIsRemoved) {
  EXPECT_EQ(Remove(_Analysis, "grip"), S_OK);
  EXPECT_EQ(FormatsOn(_Analysis), Formats{});
  EXPECT_EQ(Fetch(_Analysis, "grip.png").status, E_FAIL);
  EXPECT_EQ(Remove(_Analysis, "grip.png"), E_FAIL);
}

// The name is not split: a folder is part of the base name.
TEST_F(FetchPictureTest, RemovingTakesABareFileName) {
  for (const char* const picture : {"parts/grip.png", "/grip.png", "./grip.png", "seat.png", "", ".png", "GRIP.png"}) {
    EXPECT_EQ(Remove(_Analysis, picture), E_FAIL) << picture;
  }
  EXPECT_EQ(FormatsOn(_Analysis), Formats{"png"});
}

// ---- Several ----

// What an analysis holds, as a plain list in the order of adding.
class PlainPictures {
 public:
  void Add(const std::string& name, const std::string& content) {
    const auto same = std::find_if(_Pictures.begin(), _Pictures.end(), [&name](const Picture& picture) {
      return BaseName(picture.name) == BaseName(name) && Extension(picture.name) == Extension(name);  // "b" is "b."
    });
    if (same == _Pictures.end()) {
      _Pictures.push_back({name, content});
    } else {
      same->content = content;
    }
  }

  std::optional<std::string> Find(const std::string& name) const {
    for (const Picture& picture : _Pictures) {
      if (BaseName(picture.name) == BaseName(name)) return picture.content;
    }
    return std::nullopt;
  }

  void Remove(const std::string& name) {
    _Pictures.erase(std::find_if(_Pictures.begin(), _Pictures.end(),
                                 [&name](const Picture& picture) { return BaseName(picture.name) == BaseName(name); }));
  }

  Formats AllFormats() const {
    Formats formats;
    for (const Picture& picture : _Pictures) formats.push_back(Extension(picture.name));
    return formats;
  }

 private:
  struct Picture {
    std::string name, content;
  };

  static std::string BaseName(const std::string& name) { return name.substr(0, name.find('.')); }
  static std::string Extension(const std::string& name) {
    const std::size_t dot = name.find('.');
    return dot == std::string::npos ? "" : name.substr(dot + 1);
  }

  std::vector<Picture> _Pictures;
};

TEST_F(PictureTest, DrawnCallsFollowAPlainList) {
  constexpr std::array Names{"a.png", "a.jpg", "a.b.png", "b.png", "b", "b.", ".png", "c.PNG"};
  const KORBaseUnknown_var analysis = MakeAnalysis("A");
  PlainPictures plain;
  std::mt19937 lots(66);
  for (int round = 0; round < 1'000; ++round) {
    const std::string name = Names.at(std::uniform_int_distribution<std::size_t>(0, Names.size() - 1)(lots));
    const std::optional<std::string> expected = plain.Find(name);
    switch (std::uniform_int_distribution<int>(0, 2)(lots)) {
      case 0:
        ASSERT_EQ(Add(analysis, name, std::to_string(round)), S_OK) << name;
        plain.Add(name, std::to_string(round));
        break;
      case 1:
        ASSERT_EQ(Remove(analysis, name), expected ? S_OK : E_FAIL) << name;
        if (expected) plain.Remove(name);
        break;
      default:
        const Fetched fetched = Fetch(analysis, name);
        ASSERT_EQ(fetched.status, expected ? S_OK : E_FAIL) << name;
        ASSERT_EQ(fetched.content, expected) << name;
    }
    ASSERT_EQ(FormatsOn(analysis), plain.AllFormats());
  }
}

// Fetches of one name into one folder overwrite each other, but never mix.
class PictureThreadsTest : public PictureTest {
 protected:
  PictureThreadsTest() {
    for (std::size_t index = 0; index < _Contents.size(); ++index) {
      _Contents.at(index) = std::string(20'000 + 1'000 * index, static_cast<char>('a' + index));
      (void)_Folder.Write(std::to_string(index) + "/grip.png", _Contents.at(index));
    }
  }

  bool IsWhole(const std::string& content) const {
    return std::find(_Contents.begin(), _Contents.end(), content) != _Contents.end();
  }

  /// Returns how much went wrong.
  int FetchOftenOnItsThread(std::size_t index) const {
    KORFreshSession session;
    session.SetEnvironment("KORTemp", Unicode(InTemp("")));
    const KORBaseUnknown_var analysis = MakeAnalysis("A");
    const std::string path = _Folder.Path(std::to_string(index) + "/grip.png");
    int failures = Failed(Services::AddPictureOnTARep(analysis, Unicode(path))) ? 1 : 0;
    for (int round = 0; round < 100; ++round) {
      const Fetched fetched = Fetch(analysis, "grip.png");
      if (Failed(fetched.status)) ++failures;
      // No file is there while another thread replaces it.
      if (fetched.content && !IsWhole(*fetched.content)) ++failures;
    }
    return failures;
  }

  std::array<std::string, 4> _Contents;
};

TEST_F(PictureThreadsTest, FetchWholePictures) {
  std::array<int, 4> failures{};
  std::vector<std::thread> threads;
  for (std::size_t index = 0; index < failures.size(); ++index) {
    threads.emplace_back([&, index] { failures.at(index) = FetchOftenOnItsThread(index); });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(failures, (std::array<int, 4>{}));
  EXPECT_TRUE(IsWhole(ContentOf(InTemp("grip.png")).value_or("")));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(InTemp("")), {}), 1);
}

}  // namespace
