// The classes of this module and the interfaces that they answer for, and their registration at load.
#include "presentation/Registration.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "ModuleTrace.h"
#include "VEXITimeAnalysisSessionServicesMgr.h"
#include "VEXTimeAnalysisModelerServicesLoad.h"
#include "platform/base/KORExtension.h"
#include "platform/base/KORFillDictionary.h"
#include "platform/base/KORMetaClass.h"
#include "platform/services/KORIIcon.h"
#include "platform/services/KORINavigElement.h"
#include "platform/services/KORINavigateObject.h"
#include "platform/services/KORIPLMRepUIManagement.h"
#include "presentation/CreationFunctions.h"
#include "presentation/VEXETimeAnalysisSessionServicesMgr.h"

namespace presentation {

namespace {

// A class of the module.
struct ClassRow {
  const char* Class;
  ENUMTypeOfClass Kind;
  std::string_view ExtendsComponent;
  const char* AlsoExtends;  // null: none
  const KORMetaClass* (*MetaClassBase)();
};

// An interface for which a class of the module answers.
struct DictionaryRow {
  const char* Class;
  const KORUuid& (*Interface)();
  KORCreationFunction Create;
};

constexpr std::string_view NoComponent = "KORNull";

// Components of the model, and of their nodes in the tree.
constexpr const char* Reference = "PCCMemVEXTimeAnalysisRepReference";
constexpr const char* Instance = "PCCMemVEXTimeAnalysisRepInstance";
constexpr const char* ReferenceNode = "PCCMemVEXTimeAnalysisRepReference_node";
constexpr const char* InstanceNode = "PCCMemVEXTimeAnalysisRepInstance_node";

constexpr auto Alone = ENUMTypeOfClass::Implementation;  // extends nothing
constexpr auto State = ENUMTypeOfClass::DataExtension;
constexpr auto Code = ENUMTypeOfClass::CodeExtension;  // without state

using SessionServicesMgr = VEXITimeAnalysisSessionServicesMgr;

// clang-format off
constexpr auto Classes = std::to_array<ClassRow>({
    // class                                 kind   extends        also extends  base of its description
    {"VEXESTMTimeAnalysisNavigModify",       State, ReferenceNode, InstanceNode, KORBaseUnknown::MetaObject},
    {"VEXESTMTimeAnalysisNavigObjectModify", Code,  Reference,     Instance,     KORINavigateObjectModify::MetaObject},
    {"VEXESTMTimeAnalysisNavigate",          Code,  Reference,     Instance,     KORINavigateObject::MetaObject},
    {"VEXESTMTimeAnalysisRepUIManagement",   Code,  Reference,     Instance,     KORIPLMRepUIManagement::MetaObject},
    {"VEXSTMTimeAnalysisIcon",               State, Reference,     Instance,     KORIIcon::MetaObject},
    {"VEXETimeAnalysisSessionServicesMgr",   Alone, NoComponent,   nullptr,      SessionServicesMgr::MetaObject},
    {"VEXSTMJSONServices",                   Alone, NoComponent,   nullptr,      KORBaseUnknown::MetaObject},
    {"VEXSTMTimeAnalysisDlgServices",        Alone, NoComponent,   nullptr,      KORBaseUnknown::MetaObject},
});
// clang-format on

constexpr auto Dictionary = std::to_array<DictionaryRow>({
    {"VEXESTMTimeAnalysisNavigModify", &KORINavigElement::ClassId,
     &CreateTIEKORINavigElementVEXESTMTimeAnalysisNavigModify},
    {"VEXESTMTimeAnalysisNavigModify", &KORINavigModify::ClassId,
     &CreateTIEKORINavigModifyVEXESTMTimeAnalysisNavigModify},
    {"VEXESTMTimeAnalysisNavigModify", &KORINavigNodeCtrl::ClassId,
     &CreateTIEKORINavigNodeCtrlVEXESTMTimeAnalysisNavigModify},
    {"VEXESTMTimeAnalysisNavigObjectModify", &KORINavigateObjectModify::ClassId,
     &CreateBOAKORINavigateObjectModifyVEXESTMTimeAnalysisNavigObjectModify},
    {"VEXESTMTimeAnalysisNavigate", &KORINavigateObject::ClassId,
     &CreateBOAKORINavigateObjectVEXESTMTimeAnalysisNavigate},
    {"VEXESTMTimeAnalysisRepUIManagement", &KORIPLMRepUIManagement::ClassId,
     &CreateBOAKORIPLMRepUIManagementVEXESTMTimeAnalysisRepUIManagement},
    {"VEXSTMTimeAnalysisIcon", &KORIIcon::ClassId, &CreateBOAKORIIconVEXSTMTimeAnalysisIcon},
    {"VEXETimeAnalysisSessionServicesMgr", &SessionServicesMgr::ClassId,
     &CreateBOAVEXITimeAnalysisSessionServicesMgrVEXETimeAnalysisSessionServicesMgr},
});

using Descriptions = std::array<KORMetaClass, Classes.size()>;

KORMetaClass Describe(const ClassRow& row) {
  KORMetaClass description{row.Class, KORUuid::OfName(row.Class), row.MetaClassBase(), row.Kind};
  description.SetFWname(ModuleName);
  if (row.ExtendsComponent != NoComponent) description.SetExtensionOf(row.ExtendsComponent.data());
  description.SetExtensionOf(row.AlsoExtends);
  return description;
}

Descriptions DescribeAll() {
  Descriptions descriptions{};
  for (std::size_t index = 0; index < Classes.size(); ++index) descriptions[index] = Describe(Classes[index]);
  return descriptions;
}

const Descriptions& DescriptionsOfModule() {
  static const Descriptions descriptions = DescribeAll();
  return descriptions;
}

// A class that stands by itself is a component of its own.
void RegisterInterface(const DictionaryRow& row) {
  KORExtensionRegistry& registry = KORExtensionRegistry::OfProcess();
  const KORMetaClass& description = *RetrieveMetaObject(row.Class);
  if (description.Kind == Alone) (void)registry.Add(description.Name, row.Interface(), row.Create);
  for (const char* const component : description.Extends) {
    if (component != nullptr) (void)registry.Add(component, row.Interface(), row.Create);
  }
}

KORBaseUnknown* MakeSessionServicesMgr() {
  return new VEXETimeAnalysisSessionServicesMgr;
}

// Runs ahead of all initialisers without a priority, be they the module's own or those of the program that it is linked
// into: with the first priority that is free for use. What stands under a name already stays.
[[gnu::constructor(101)]] void RegisterAtLoad() {
  for (const KORMetaClass& description : DescriptionsOfModule()) (void)fct_RetrieveMetaObject(description);
  for (const DictionaryRow& row : Dictionary) RegisterInterface(row);
  const KORMetaClass* const manager = SessionServicesMgr::MetaObject();
  (void)KORFillDictionary::AddDictionary(manager->Identifier, CLSID_KORMetaClass, manager);
  (void)KORFillDictionary::RegisterFunctionCreation("VEXETimeAnalysisSessionServicesMgr", MakeSessionServicesMgr);
  (void)ModuleTrace();
}

}  // namespace

const KORMetaClass* RetrieveMetaObject(const char* class_name) {
  for (const KORMetaClass& description : DescriptionsOfModule()) {
    if (std::string_view(description.Name) == class_name) return &description;
  }
  return nullptr;
}

}  // namespace presentation

void VEXTimeAnalysisModelerServicesLoad() {
}
