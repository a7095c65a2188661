// Keeps what a query found alive.
#pragma once

#include "platform/base/KORObjectLists.h"

/// A bag of objects, which live at least as long as the bag.
class KOROmbLifeCycleRootsBag {
 public:
  KOROmbLifeCycleRootsBag() = default;
  KOROmbLifeCycleRootsBag(const KOROmbLifeCycleRootsBag&) = delete;
  KOROmbLifeCycleRootsBag& operator=(const KOROmbLifeCycleRootsBag&) = delete;

  void Keep(const KORListValKORBaseUnknown_var& objects) { _Kept.Append(objects); }
  int Size() const { return _Kept.Size(); }

 private:
  KORListValKORBaseUnknown_var _Kept;
};
