// The face of the pictures on time analyses, and the tables of image types.
#include "VEXSTMPicturesServices.h"

#include "VEXTimeAnalysisModelerServicesLoad.h"
#include "exchange/Pictures.h"
#include "platform/system/KORFiles.h"

// Nothing else here names what keeps the registration at load in the link.
[[maybe_unused, gnu::used]] static void (*const registration)() = &VEXTimeAnalysisModelerServicesLoad;

// This priority puts the tables behind the registration of the module and ahead of all objects that have none.
// clang-format off
[[gnu::init_priority(102)]] const KORUnicodeString VEXSTMPicturesServices::_iTypeDescriptionList[4] = {
    "Supported Image Files",
    "Jpeg (*.jpg; *.jpeg)",
    "Bitmap (*.bmp)",
    "Png (*.png)",
};
[[gnu::init_priority(102)]] const KORString VEXSTMPicturesServices::_iTypeExtensionsList[4] = {
    "*.bmp;*.jpg;*.jpeg;*.png",
    "*.jpg;*.jpeg",
    "*.bmp",
    "*.png",
};
// clang-format on

long VEXSTMPicturesServices::AddPictureOnTARep(KORBaseUnknown_var analysis, const KORUnicodeString& full_path) {
  return exchange::AddPicture(analysis, full_path);
}

long VEXSTMPicturesServices::GetPictureOnTARep(KORBaseUnknown_var& analysis, const KORUnicodeString& picture,
                                               KORUnicodeString& path) {
  return exchange::FetchPicture(analysis, picture, path);
}

long VEXSTMPicturesServices::RemovePictureOnTARep(KORBaseUnknown_var& analysis, const KORUnicodeString& picture) {
  return exchange::RemovePicture(analysis, picture);
}

long VEXSTMPicturesServices::CopyPictureFromSourceTAtoDestinationTA(KORBaseUnknown_var& source,
                                                                    KORBaseUnknown_var& destination) {
  return exchange::CopyPictures(source, destination);
}

unsigned char VEXSTMPicturesServices::CheckPictureType(const KORUnicodeString& path, KORUnicodeString& extension) {
  return exchange::IsSupportedType(path, _iTypeExtensionsList, extension) ? 1 : 0;
}

unsigned char VEXSTMPicturesServices::IsPictureValid(const KORUnicodeString& path, KORUnicodeString& extension) {
  if (path.IsEmpty() || Failed(_KORFileAccess(path, 0, 0))) return 0;
  return CheckPictureType(path, extension);
}

long VEXSTMPicturesServices::GetDirNameFileNameFileTypeFromFilePath(const KORUnicodeString& path,
                                                                    KORUnicodeString& folder, KORUnicodeString& file,
                                                                    KORUnicodeString& base_name,
                                                                    KORUnicodeString& extension) {
  return exchange::SplitPath(path, {folder, file, base_name, extension});
}
