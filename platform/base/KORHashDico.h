// The table from text to pointer.
#pragma once

#include <list>
#include <string_view>
#include <unordered_map>

#include "platform/base/KORExport.h"
#include "platform/base/KORUnicodeString.h"

/// A table from text to pointer.
///
/// The table owns its keys, not its values: it takes no references and destroys none of them. The empty text is a key
/// like any other. A null value is kept and met on a walk, but Locate doesn't tell it from a missing key.
class KORPLATFORM_API KORHashDico {
 public:
  /// `initial_size`: how many entries the table takes before it grows.
  explicit KORHashDico(int initial_size);
  KORHashDico(const KORHashDico&) = delete;
  KORHashDico& operator=(const KORHashDico&) = delete;

  /// Adds an entry and gives 1; gives 0 and changes nothing if the key stands already.
  int Insert(const KORUnicodeString& key, void* value);
  /// The value under the key; null if the key doesn't stand.
  void* Locate(const KORUnicodeString& key) const;
  /// Takes the entry away; a key that doesn't stand is not missed.
  void Remove(const KORUnicodeString& key);
  void RemoveAll();

  /// Goes from one entry to the next and gives 1; at the end gives 0, and null in both cursors.
  ///
  /// key    [in, out] the key of the entry, owned by the table; null starts the walk
  /// value  [out] the value of the entry
  ///
  /// Entries are met in the order in which they were added, so that a run can be repeated. The table may change
  /// meanwhile, but for the entry on which the walk stands: that one must not be removed. An entry added is met at the
  /// end of the walk. Several walks may be under way at once.
  ///
  /// Example: const KORUnicodeString* key = nullptr; void* value = nullptr;
  ///          while (components.NextItem(key, value)) Show(*key, value);
  int NextItem(const KORUnicodeString*& key, void*& value) const;

 private:
  struct Entry {
    KORUnicodeString Key;
    void* Value;
  };

  std::list<Entry> _Entries;  // in the order in which they were added; an entry stays where it is in memory
  std::unordered_map<std::string_view, std::list<Entry>::iterator> _Places;  // by the bytes of the entry's own key
};
