// Pictures that are kept on a time analysis, each as one of its streams: the file name of a picture is cut at its first
// ".", and the stream has the part before it as its name and the part behind it as its format.
#include "exchange/Pictures.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "exchange/JoinPath.h"
#include "platform/base/KORStatus.h"
#include "platform/model/PLMIRepInstance.h"
#include "platform/model/VEXITimeAnalysisLines.h"
#include "platform/model/VEXITimeAnalysisRepReference.h"
#include "platform/services/KOROmbStreams.h"
#include "platform/services/KORVVSUrl.h"
#include "platform/system/KORPaths.h"
#include "platform/system/KORSystem.h"

namespace exchange {
namespace {

using StreamKey = std::unique_ptr<KOROmbLoadableDataUniqueKey>;

// The representation that an analysis is; a null analysis raises the null-handle error.
long AskForRepresentation(const KORBaseUnknown_var& analysis, KORIPLMNavRepReference_var& representation) {
  void* found = nullptr;
  const long status = analysis->QueryInterface(KORIPLMNavRepReference::ClassId(), &found);
  representation = KORIPLMNavRepReference_var::Adopt(static_cast<KORIPLMNavRepReference*>(found));
  return status;
}

// The key holds no format, so that pictures of one name and several formats cannot be told apart by it.
long MakeStreamKey(const KORUnicodeString& name, StreamKey& key) {
  KOROmbLoadableDataUniqueKey* made = nullptr;
  const long status =
      KOROmbLoadableDataUniqueKey::Create(made, KOROmbStreamDescriptorFormat_Authoring, "EXTENDED", name, 0);
  key.reset(made);
  return status;
}

// What the name of a file says, cut at its first ".".
struct FileName {
  KORUnicodeString Base;       // the whole name if it has no "."
  KORUnicodeString Extension;  // empty if it has no "."
};

FileName CutFileName(const KORUnicodeString& file) {
  const int dot = file.SearchSubString(".");
  if (dot < 0) return {file, {}};
  return {file.SubString(0, dot), file.SubString(dot + 1, file.GetLengthInChar())};
}

KORUnicodeString FilePartOf(const KORUnicodeString& path) {
  KORUnicodeString folder;
  KORUnicodeString file;
  (void)KORSplitPathEx(path, folder, file);  // a path that cannot be split has no file
  return file;
}

KORUnicodeString PictureOfLine(VEXITimeAnalysisLines& lines, int row) {
  VEXTimeAnalysisLineData line;
  (void)lines.GetLine(row, line);
  (void)line.ClearFormulaAndParamters();
  KORUnicodeString picture;
  (void)line.GetValue("FormulaPicture", picture);  // stays empty if the line has none
  return picture;
}

}  // namespace

long SplitPath(const KORUnicodeString& path, PathTexts texts) {
  KORUnicodeString folder;
  KORUnicodeString file;
  const long status = KORSplitPathEx(path, folder, file);
  if (!file.IsEmpty()) {
    FileName name = CutFileName(file);
    texts.BaseName = std::move(name.Base);
    texts.Extension = std::move(name.Extension);
  }
  texts.Folder = std::move(folder);
  texts.File = std::move(file);
  return status;
}

bool IsSupportedType(const KORUnicodeString& path, std::span<const KORString> filters, KORUnicodeString& extension) {
  const int dot = path.SearchSubStringBackward(".");
  if (dot <= 0) return false;
  KORUnicodeString found = path.SubString(dot + 1, path.GetLengthInChar());
  extension = found;
  found.ToLower();
  const std::string pattern = "*." + std::string(found.Bytes());
  for (const KORString& filter : filters) {
    if (filter.Bytes().find(pattern) != std::string_view::npos) return true;
  }
  return false;
}

long AddPicture(const KORBaseUnknown_var& analysis, const KORUnicodeString& path) {
  KORIPLMNavRepReference_var representation;
  const long status = AskForRepresentation(analysis, representation);
  if (representation.IsNull()) return status;
  KORVVSUrl url;
  (void)KORVVSUrlUtils::FromNativeFilePathToUrl(path, url);  // a URL that names nothing cannot be added
  const KORUnicodeString file = FilePartOf(path);
  if (file.IsEmpty()) return status;
  const FileName name = CutFileName(file);
  return KOROmbRepRefLoadingServices::AddExtendedSDForRepRef(representation, name.Extension, name.Base, url, 0);
}

long FetchPicture(const KORBaseUnknown_var& analysis, const KORUnicodeString& picture, KORUnicodeString& path) {
  if (analysis.IsNull()) return E_FAIL;
  KORIPLMNavRepReference_var representation;
  long status = AskForRepresentation(analysis, representation);
  if (representation.IsNull()) return status;
  StreamKey key;
  status = MakeStreamKey(CutFileName(FilePartOf(picture)).Base, key);
  if (Failed(status)) return status;
  KORIOmbNonZENTAStreamDescriptor* found = nullptr;
  status = KOROmbRepRefLoadingServices::GetExtendedContent(representation, key.get(), found);
  const auto content = KORIOmbNonZENTAStreamDescriptor_var::Adopt(found);
  if (Failed(status) || content.IsNull()) return status;
  // The whole argument is joined, not its file alone: a picture in a folder comes out in that folder.
  const std::optional<KORUnicodeString> target = JoinPath(KORGetEnv("KORTemp"), picture);
  if (!target) return E_INVALIDARG;
  path = *target;
  return content->CopyStreamToFile(*target, 1);
}

long RemovePicture(const KORBaseUnknown_var& analysis, const KORUnicodeString& picture) {
  if (analysis.IsNull()) return E_FAIL;
  StreamKey key;
  const long status = MakeStreamKey(CutFileName(picture).Base, key);
  if (Failed(status) || key == nullptr) return status;
  return KOROmbComponentStreamsManager(analysis).DeleteSD(key.get());
}

long CopyPictures(const KORBaseUnknown_var& source, const KORBaseUnknown_var& destination) {
  if (source.IsNull() || destination.IsNull()) return E_FAIL;
  const VEXITimeAnalysisLines_var lines = VEXITimeAnalysisRepReference_var(source);
  int count = 0;
  if (!lines.IsNull()) (void)lines->GetLineCount(count);
  long status = E_FAIL;
  for (int row = 1; row <= count; ++row) {
    const KORUnicodeString picture = PictureOfLine(*lines, row);
    if (picture.IsEmpty()) continue;
    KORUnicodeString path;
    status = FetchPicture(source, picture, path);
    if (Succeeded(status)) status = AddPicture(destination, path);
  }
  return status;
}

}  // namespace exchange
