// The table from pointer to pointer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/base/KORExport.h"

/// A table from pointer to pointer; as a rule from the identity of an object (GetImpl(0)) to what is known of it.
///
/// The table owns neither keys nor values: it takes no references and destroys nothing. Null is a key like any other.
/// A null value is kept and met on a walk, but Get doesn't tell it from a missing key. Copies are independent tables.
class KORPLATFORM_API KORHashObject {
 public:
  /// `initial_size`: how many entries the table takes before it grows.
  explicit KORHashObject(int initial_size);
  /// There is no taking over: a table that another one is made of keeps its entries.
  KORHashObject(const KORHashObject&) = default;
  KORHashObject& operator=(const KORHashObject&) = default;

  /// Adds an entry and gives 1; gives 0 and changes nothing if the key stands already.
  int Insert(void* key, void* value);
  /// Adds an entry, or gives the entry that stands under the key another value.
  void Put(void* key, void* value);
  /// The value under the key; null if the key doesn't stand.
  void* Get(const void* key) const;
  /// Takes all entries away, which ends a walk under way.
  void RemoveAll();

  /// Starts the walk of the table, of which there is one at a time.
  void Begin() { _Next = 0; }
  /// Goes to the next entry and gives 1; at the end gives 0, and null in both arguments.
  ///
  /// Entries are met in the order in which they were added, so that a run can be repeated; Put leaves an entry in its
  /// place. The table may change meanwhile: an entry added is met at the end of the walk, a value is met as it stands
  /// by then.
  int Next(void*& key, void*& value);

 private:
  struct Entry {
    void* Key;
    void* Value;
  };

  std::size_t PlaceOf(const void* key) const;
  void MakePlaces(std::size_t entries);

  std::vector<Entry> _Entries;  // in the order in which they were added
  // Where the entries stand, as a number from 1, each in the first empty place from the one that its key comes to; 0 in
  // an empty place. Their number is a power of 2, and at most half of them are taken.
  std::vector<std::uint32_t> _Places;
  std::size_t _Next = 0;
};
