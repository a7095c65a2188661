// What the tree asks of the objects that its nodes stand for.
#pragma once

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"
#include "platform/base/KORObjectLists.h"
#include "platform/services/KORPathElement.h"

/// The names and the children of an object.
class KORINavigateObject : public KORInterface<KORINavigateObject> {
 public:
  static constexpr const char* InterfaceName = "KORINavigateObject";

  /// The names that the object's node shows, in a new list that the caller deletes; null if the node is to be left as
  /// it is.
  virtual KORListValKORUnicodeString* GetNodeNames() = 0;
  /// The objects whose nodes stand below the object's, in a new list that the caller deletes; null for none.
  virtual KORListValKORBaseUnknown_var* GetChildObjects() = 0;
};
using KORINavigateObject_var = KORHandle<KORINavigateObject>;

/// What of an object is selected with its node.
class KORINavigateObjectModify : public KORInterface<KORINavigateObjectModify> {
 public:
  static constexpr const char* InterfaceName = "KORINavigateObjectModify";

  /// The path that is selected, new, with one reference, which is the caller's; null if there is no memory for it.
  ///
  /// is_path  [out] 1 if the object gives a path of its own
  virtual KORPathElement* GetObjectPath(unsigned char& is_path) = 0;
};
using KORINavigateObjectModify_var = KORHandle<KORINavigateObjectModify>;
