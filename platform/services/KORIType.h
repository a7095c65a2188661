// Knowledge types: the names of kinds of objects, with the attributes that they have.
#pragma once

#include <map>
#include <vector>

#include "platform/base/KORBaseUnknown.h"
#include "platform/base/KORExport.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORList.h"
#include "platform/base/KORUnicodeString.h"

/// The description of one attribute of a type.
class KORAttributeInfos {
 public:
  KORAttributeInfos(const KORUnicodeString& name, bool writable) : _Name(name), _Writable(writable) {}

  const KORUnicodeString& Name() const { return _Name; }
  /// 1 if the user may change it, else 0.
  unsigned char IsWritable() const { return _Writable ? 1 : 0; }

  friend bool operator==(const KORAttributeInfos&, const KORAttributeInfos&) = default;

 private:
  KORUnicodeString _Name;
  bool _Writable;
};
using KORListValKORAttributeInfos = KORList<KORAttributeInfos>;

class KORIType : public KORInterface<KORIType> {
 public:
  static constexpr const char* InterfaceName = "KORIType";

  virtual const KORUnicodeString& Name() const = 0;
  /// The attributes of the type, in their order.
  virtual const KORListValKORAttributeInfos& Attributes() const = 0;
};
using KORIType_var = KORHandle<KORIType>;

/// The knowledge types of a session; a part of it. A session starts with "VEXTimeAnalysisRepReference", the type of a
/// time analysis: all text attributes of an analysis that a user enters are writable, its identifier and its totals are
/// not.
class KORPLATFORM_API KORKnowledgeTypes {
 public:
  KORKnowledgeTypes();

  /// Those of the current session; owned by it.
  static KORKnowledgeTypes& Current();

  /// Adds a type, or gives the type of that name other attributes; who holds the type from before keeps that one.
  void Define(const KORUnicodeString& name, const KORListValKORAttributeInfos& attributes);
  /// Takes a type away.
  void Forget(const KORUnicodeString& name);
  /// The type of that name, or null.
  KORIType_var Find(const KORUnicodeString& name) const;

 private:
  std::map<KORUnicodeString, KORIType_var> _Types;
};
