// The extensions with state that hang on one object.
#pragma once

#include <string_view>
#include <vector>

#include "platform/base/KORExtension.h"

/// Owned by the extended object, and changed by the registry alone.
class KORAttachedExtensions {
 public:
  KORAttachedExtensions() = default;
  KORAttachedExtensions(const KORAttachedExtensions&) = delete;
  KORAttachedExtensions& operator=(const KORAttachedExtensions&) = delete;
  /// Destroys the extensions, the last one made first.
  ~KORAttachedExtensions();

  /// The extension of that class; null if there is none.
  KORExtension* Find(std::string_view class_name) const;
  /// Takes over the caller's reference.
  void Add(std::string_view class_name, KORExtension* extension) { _Entries.push_back({class_name, extension}); }

 private:
  struct Entry {
    std::string_view ClassName;
    KORExtension* Extension;
  };
  std::vector<Entry> _Entries;
};
