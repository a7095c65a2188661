// Extended streams: files whose content is kept on a representation.
//
// A stream has a format ("JSON", "png") and a name. A representation holds one stream for each pair of the two, in the
// order in which they were added. A key names a stream without its format; it finds the first one added under the name.
#pragma once

#include <cstddef>

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORExport.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORObjectLists.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/services/KORVVSUrl.h"

/// Bytes of a stream at most: 1 GiB.
inline constexpr std::size_t KORLongestStream = std::size_t{1} << 30;

/// The families of stream formats. Authoring data is the only one that is kept here.
enum KOROmbStreamDescriptorFormat { KOROmbStreamDescriptorFormat_Authoring };

/// Names a stream of a representation.
class KORPLATFORM_API KOROmbLoadableDataUniqueKey {
 public:
  /// key   [out] a new key, which the caller frees with delete; null on failure
  /// kind  "EXTENDED"
  /// name  name of the stream
  /// flag  passed as 0
  /// S_OK; E_INVALIDARG for another family or kind.
  static long Create(KOROmbLoadableDataUniqueKey*& key, KOROmbStreamDescriptorFormat family,
                     const KORUnicodeString& kind, const KORUnicodeString& name, int flag);

  const KORUnicodeString& GetName() const { return _Name; }

 private:
  explicit KOROmbLoadableDataUniqueKey(const KORUnicodeString& name) : _Name(name) {}
  KORUnicodeString _Name;
};

/// One stream in a walk over those of an object.
class KORIOmbStreamDescriptor : public KORInterface<KORIOmbStreamDescriptor> {
 public:
  static constexpr const char* InterfaceName = "KORIOmbStreamDescriptor";

  /// S_OK. `format` is left as it was on failure.
  virtual long GetStreamFormat(KORUnicodeString& format) = 0;
};
using KORIOmbStreamDescriptor_var = KORHandle<KORIOmbStreamDescriptor>;

/// The content of one stream. It is the content of the moment at which the descriptor was given, whatever becomes of
/// the stream.
class KORIOmbNonZENTAStreamDescriptor : public KORInterface<KORIOmbNonZENTAStreamDescriptor> {
 public:
  static constexpr const char* InterfaceName = "KORIOmbNonZENTAStreamDescriptor";

  /// Writes the content to a local file, byte for byte, in place of what stands there. The flag is passed as 1.
  /// S_OK; otherwise the status of KORFOpen, with what stands under the path left alone, or of KORFWrite or KORFClose,
  /// with nothing under it.
  virtual long CopyStreamToFile(const KORUnicodeString& path, int flag) = 0;
};
using KORIOmbNonZENTAStreamDescriptor_var = KORHandle<KORIOmbNonZENTAStreamDescriptor>;

struct KORPLATFORM_API KOROmbRepRefLoadingServices {
  /// Stores the content of a file on a representation; a stream of the same format and name gets it in its place.
  ///
  /// object  a representation reference, by any of its interfaces
  /// flag    passed as 0
  /// S_OK; E_INVALIDARG for null and for an object that is no representation; E_FAIL if the URL names no readable
  /// regular file, or one of more than KORLongestStream bytes. On failure the object is as it was.
  static long AddExtendedSDForRepRef(const KORBaseUnknown_var& object, const KORUnicodeString& format,
                                     const KORUnicodeString& name, const KORVVSUrl& url, int flag);

  /// descriptor  [out] the stream that the key names, with a reference that the caller releases; null on failure
  /// S_OK; E_INVALIDARG for null arguments and for an object that is no representation; E_FAIL if no stream has that
  /// name.
  static long GetExtendedContent(const KORBaseUnknown_var& object, const KOROmbLoadableDataUniqueKey* key,
                                 KORIOmbNonZENTAStreamDescriptor*& descriptor);
};

/// The streams of one object, which it keeps alive. An object that is no representation has none.
class KORPLATFORM_API KOROmbComponentStreamsManager {
 public:
  explicit KOROmbComponentStreamsManager(const KORBaseUnknown_var& object) : _Object(object) {}

  /// Removes the stream that the key names; another one of that name stays and is the one named then. S_OK;
  /// E_INVALIDARG for null and for an object that is no representation; E_FAIL, with nothing changed, if no stream has
  /// that name.
  long DeleteSD(const KOROmbLoadableDataUniqueKey* key);

  /// The descriptors of all streams, in the order in which they were added; each offers KORIOmbStreamDescriptor and
  /// KORIOmbNonZENTAStreamDescriptor. Empty for any other family than 0, the family of extended streams.
  KORListValKORBaseUnknown_var GetSDFamily(int family) const;

 private:
  KORBaseUnknown_var _Object;
};

/// The same for objects whose streams are kept outside of the product structure, as those of representations are.
class KORPLATFORM_API KOROmbNonZENTAStreamsManager : public KOROmbComponentStreamsManager {
 public:
  using KOROmbComponentStreamsManager::KOROmbComponentStreamsManager;
};
