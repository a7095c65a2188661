// The container of features that a representation holds, and the features in it.
#pragma once

#include <memory>
#include <vector>

#include "platform/base/KORExport.h"
#include "platform/base/KORHandle.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/model/KORIContainer.h"

/// The type of a container of features.
inline constexpr const char* KORFeatureContainerType = "KORFeatCont";

/// A feature: a name, and the names of the attributes that it has.
class KORPLATFORM_API KORFeature final : public KORImplements<KORISpecObject, KORISpecAttrAccess> {
 public:
  explicit KORFeature(const KORUnicodeString& name) : _Name(name) {}

  KORUnicodeString GetFeatureName() override;
  /// The names in the order in which they were added.
  std::unique_ptr<KORListValKORUnicodeString> ListAttributeNames() override;

  /// Gives the feature one more attribute.
  void AddAttributeName(const KORUnicodeString& name) { _AttributeNames.Append(name); }

 private:
  KORUnicodeString _Name;
  KORListValKORUnicodeString _AttributeNames;
};

/// A container of features, which keeps its members alive. It knows nothing of the representation that holds it. One
/// container serves one thread at a time.
class KORPLATFORM_API KORFeatureContainer final : public KORImplements<KORIContainer> {
 public:
  /// model  what the container is for, as "VEXTimeAnalysisModel"
  /// name   by which the representation finds it
  KORFeatureContainer(const KORUnicodeString& model, const KORUnicodeString& name) : _Model(model), _Name(name) {}

  const KORUnicodeString& GetModel() const { return _Model; }
  const char* GetType() const { return KORFeatureContainerType; }
  const KORUnicodeString& GetName() const { return _Name; }

  /// For a null class name, no members.
  std::unique_ptr<_SEQUENCE_KORBaseUnknown_ptr> ListMembers(const char* class_name) override;

  /// Adds a member behind the others. It is not null, need not be a feature, and is not to hold the container.
  void AddMember(const KORBaseUnknown_var& member) { _Members.push_back(member); }

 private:
  KORUnicodeString _Model;
  KORUnicodeString _Name;
  std::vector<KORBaseUnknown_var> _Members;
};
