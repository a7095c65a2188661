// Pictures on a time analysis: checking image files, attaching them, fetching, removing and copying them.
//
// A line names its picture under the key "FormulaPicture": the name of a file, without a folder. The image itself is
// kept on the analysis, as an extended stream of its bytes, whatever they are. Nothing here looks into an image, writes
// to a line, or saves an analysis.
//
//   picture name = base name [ "." extension ]        cut at the first "."
//
//   file               base name    extension
//   grip.png           grip         png
//   seat.left.png      seat         left.png
//   grip               grip         (empty)
//   .png               (empty)      png
//
// An analysis holds one stream for each base name and extension, letters as they stand. A picture is found again by its
// base name alone, so that "grip.png" and "grip.jpg" cannot be told apart: of several, the one that was added first is
// meant. Streams that are no pictures count as well: the JSON of an analysis is kept under its identifier
// (VEXSTMJSONServices), and no picture should have that base name.
#pragma once

#include "VEXTimeAnalysisModelerExport.h"
#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORStatus.h"
#include "platform/base/KORString.h"
#include "platform/base/KORUnicodeString.h"

/// Services for the pictures of time analyses. All operations are static; an object of the class holds nothing.
///
/// Threads: an operation runs on the thread of its caller, which is that of the analysis. Distinct analyses may be
/// served on distinct threads at once. Fetches of one picture name into one temporary folder then overwrite each
/// other's file, each with a whole picture; so copies of one name at once need temporary folders of their own, lest one
/// takes the other's picture or finds none.
class VEXTIMEANALYSISMODELER_API VEXSTMPicturesServices {
 public:
  /// Names of the groups of image files that a file selection offers, as a user reads them.
  ///
  ///   0  "Supported Image Files"
  ///   1  "Jpeg (*.jpg; *.jpeg)"
  ///   2  "Bitmap (*.bmp)"
  ///   3  "Png (*.png)"
  ///
  /// Both tables are made when the library is loaded, ahead of every object that is initialised in the usual order, and
  /// go after those: initialisers and destructors of static objects may use them. They never change.
  static const KORUnicodeString _iTypeDescriptionList[4];

  /// Patterns of the files in the group at the same position.
  ///
  ///   0  "*.bmp;*.jpg;*.jpeg;*.png"
  ///   1  "*.jpg;*.jpeg"
  ///   2  "*.bmp"
  ///   3  "*.png"
  static const KORString _iTypeExtensionsList[4];

  /// Attaches an image file to an analysis, in place of a picture of the same base name and extension that it holds.
  /// What kind of file it is is not looked at (IsPictureValid does); an extension is kept as it is written.
  ///
  /// analysis   a representation reference, by any of its interfaces; null raises the null-handle error, a KORError
  /// full_path  path of the file
  ///
  ///   S_OK           the picture is on the analysis; or nothing was done, as `full_path` has no file at its end
  ///   E_NOINTERFACE  the object is no representation reference
  ///   E_FAIL         there is no readable regular file under the path, or one of more than 1 GiB
  /// On failure the analysis is as it was.
  static long AddPictureOnTARep(KORBaseUnknown_var analysis, const KORUnicodeString& full_path);

  /// Writes a picture of an analysis to a temporary file: its name, in the folder of the environment variable
  /// "KORTemp". A file that stands there is replaced. The temporary file is the caller's, who deletes it.
  ///
  /// picture  name of the picture, usually without a folder. The stream is found by the base name of its last part,
  ///          while the whole text is joined to the folder: "parts/grip.png" is the picture "grip", written to the
  ///          folder "parts" there, which has to exist. The extension of the file is that of `picture`, whichever the
  ///          picture on the analysis has.
  /// path     [out] path of the temporary file; left as it was if there is none. If the writing fails it is filled all
  ///          the same, and nothing of the picture is there: no file, or the one from before if no new one could be
  ///          begun.
  ///
  ///   S_OK           the file holds the picture, byte for byte as it was added
  ///   E_NOINTERFACE  the object is no representation reference
  ///   E_INVALIDARG   no path can be had (KORMakePath), nothing is written: "KORTemp" is not set, or `picture` leads
  ///                  out of that folder, holds a control character, or is too long
  ///   E_FAIL         the analysis is null or has no picture of that base name, or the file cannot be written: its
  ///                  folder is missing, or the disk is full
  static long GetPictureOnTARep(KORBaseUnknown_var& analysis, const KORUnicodeString& picture, KORUnicodeString& path);

  /// Removes a picture from an analysis; of several with its base name, the one that was added first. The lines that
  /// name it stay as they are.
  ///
  /// picture  name of the picture without a folder. It is not split: a folder would count as part of the base name, and
  ///          no picture would be found.
  ///
  ///   S_OK          the picture is gone
  ///   E_INVALIDARG  the object is no representation reference
  ///   E_FAIL        the analysis is null or has no picture of that base name
  /// On failure the analysis is as it was.
  static long RemovePictureOnTARep(KORBaseUnknown_var& analysis, const KORUnicodeString& picture);

  /// Copies the pictures that the lines of one analysis name to another one, line by line in the order of the rows:
  /// each is fetched as by GetPictureOnTARep and added as by AddPictureOnTARep. The lines of neither are changed. A
  /// picture that several lines name is copied for each of them. The temporary files stay in the folder of "KORTemp".
  ///
  /// source       an analysis with the interface VEXITimeAnalysisRepReference and a table of lines
  /// destination  a representation reference, which may be `source`
  ///
  /// Returns the status of the last line that names a picture: that of the fetch if it failed, otherwise that of
  /// adding. A failure doesn't end the walk, earlier ones do not show, and what was copied stays. E_FAIL, with nothing
  /// done, if one of the two is null, if the source has no lines, or if none of its lines names a picture.
  static long CopyPictureFromSourceTAtoDestinationTA(KORBaseUnknown_var& source, KORBaseUnknown_var& destination);

  /// Tells by its name whether a file is an image of a supported type. The file need not exist.
  ///
  /// extension  [out] what stands behind the last "." of the path, as it is written, also for a type that is not
  ///            supported. Left as it was if there is no ".", or none but the first character.
  /// Returns    1 if "*." and the extension, in lower case, stand anywhere in a row of _iTypeExtensionsList; else 0.
  ///
  /// It is a search within the row, no more: the head of a supported extension passes, too.
  ///
  /// Examples: "grip.PNG" gives 1 and "PNG"; "grip.jp" gives 1 and "jp"; "grip." gives 1 and an empty extension;
  /// "grip.gif" gives 0 and "gif"; "grip" and ".png" give 0.
  static unsigned char CheckPictureType(const KORUnicodeString& path, KORUnicodeString& extension);

  /// Tells whether something is there, be it a file or a folder, that is an image of a supported type by its name
  /// (CheckPictureType).
  ///
  /// extension  [out] as with CheckPictureType; left as it was if nothing is there
  /// Returns    1 or 0; 0 for an empty path.
  static unsigned char IsPictureValid(const KORUnicodeString& path, KORUnicodeString& extension);

  /// Takes a path apart. A text that is given as `path` may be given for an output, too.
  ///
  /// folder     [out] what stands ahead of the last separator, without it unless it is the root folder; empty if there
  ///            is no separator
  /// file       [out] what stands behind the last separator; empty for a path that ends in one
  /// base_name  [out] what stands ahead of the first "." of the file; the whole file if it has none. Left as it was if
  ///            the file is empty.
  /// extension  [out] what stands behind that "."; empty if there is none. Left as it was if the file is empty.
  /// S_OK; E_INVALIDARG, with folder and file empty, for an empty path.
  ///
  /// Example: "/pictures/x.tar.gz" gives "/pictures", "x.tar.gz", "x" and "tar.gz".
  static long GetDirNameFileNameFileTypeFromFilePath(const KORUnicodeString& path, KORUnicodeString& folder,
                                                     KORUnicodeString& file, KORUnicodeString& base_name,
                                                     KORUnicodeString& extension);
};
