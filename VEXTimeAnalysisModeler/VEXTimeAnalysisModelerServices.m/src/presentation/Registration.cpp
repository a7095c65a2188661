// The classes of this module and the interfaces that they answer for, and their registration at load.
#include "presentation/Registration.h"

#include <string_view>

#include "ModuleTrace.h"
#include "VEXITimeAnalysisSessionServicesMgr.h"
#include "VEXTimeAnalysisModelerServicesLoad.h"
#include "platform/base/KORFillDictionary.h"
#include "platform/services/KORIIcon.h"
#include "platform/services/KORINavigElement.h"
#include "platform/services/KORINavigateObject.h"
#include "platform/services/KORIPLMRepUIManagement.h"
#include "presentation/CreationFunctions.h"
#include "presentation/VEXETimeAnalysisSessionServicesMgr.h"

namespace presentation {

namespace {

constexpr const char* ModuleName = "VEXTimeAnalysisModeler";
constexpr const char* NoComponent = "KORNull";

// Components of the model and of the tree.
constexpr const char* RepReference = "PCCMemVEXTimeAnalysisRepReference";
constexpr const char* RepInstance = "PCCMemVEXTimeAnalysisRepInstance";
constexpr const char* RepReferenceNode = "PCCMemVEXTimeAnalysisRepReference_node";
constexpr const char* RepInstanceNode = "PCCMemVEXTimeAnalysisRepInstance_node";

constexpr auto StandsByItself = ENUMTypeOfClass::Implementation;
constexpr auto WithState = ENUMTypeOfClass::DataExtension;
constexpr auto WithoutState = ENUMTypeOfClass::CodeExtension;

}  // namespace

// clang-format off
constexpr std::array<ClassRow, 8> Classes{{
    // class                                 kind            base of its description                         extends           also extends
    {"VEXESTMTimeAnalysisNavigModify",       WithState,      &KORBaseUnknown::MetaObject,                     RepReferenceNode, RepInstanceNode},
    {"VEXESTMTimeAnalysisNavigObjectModify", WithoutState,   &KORINavigateObjectModify::MetaObject,           RepReference,     RepInstance},
    {"VEXESTMTimeAnalysisNavigate",          WithoutState,   &KORINavigateObject::MetaObject,                 RepReference,     RepInstance},
    {"VEXESTMTimeAnalysisRepUIManagement",   WithoutState,   &KORIPLMRepUIManagement::MetaObject,             RepReference,     RepInstance},
    {"VEXSTMTimeAnalysisIcon",               WithState,      &KORIIcon::MetaObject,                           RepReference,     RepInstance},
    {"VEXETimeAnalysisSessionServicesMgr",   StandsByItself, &VEXITimeAnalysisSessionServicesMgr::MetaObject, NoComponent,      nullptr},
    {"VEXSTMJSONServices",                   StandsByItself, &KORBaseUnknown::MetaObject,                     NoComponent,      nullptr},
    {"VEXSTMTimeAnalysisDlgServices",        StandsByItself, &KORBaseUnknown::MetaObject,                     NoComponent,      nullptr},
}};

constexpr std::array<DictionaryRow, 8> Dictionary{{
    // class                                 interface                                     creation function
    {"VEXESTMTimeAnalysisNavigModify",       &KORINavigElement::ClassId,                   &CreateTIEKORINavigElementVEXESTMTimeAnalysisNavigModify},
    {"VEXESTMTimeAnalysisNavigModify",       &KORINavigModify::ClassId,                    &CreateTIEKORINavigModifyVEXESTMTimeAnalysisNavigModify},
    {"VEXESTMTimeAnalysisNavigModify",       &KORINavigNodeCtrl::ClassId,                  &CreateTIEKORINavigNodeCtrlVEXESTMTimeAnalysisNavigModify},
    {"VEXESTMTimeAnalysisNavigObjectModify", &KORINavigateObjectModify::ClassId,           &CreateBOAKORINavigateObjectModifyVEXESTMTimeAnalysisNavigObjectModify},
    {"VEXESTMTimeAnalysisNavigate",          &KORINavigateObject::ClassId,                 &CreateBOAKORINavigateObjectVEXESTMTimeAnalysisNavigate},
    {"VEXESTMTimeAnalysisRepUIManagement",   &KORIPLMRepUIManagement::ClassId,             &CreateBOAKORIPLMRepUIManagementVEXESTMTimeAnalysisRepUIManagement},
    {"VEXSTMTimeAnalysisIcon",               &KORIIcon::ClassId,                           &CreateBOAKORIIconVEXSTMTimeAnalysisIcon},
    {"VEXETimeAnalysisSessionServicesMgr",   &VEXITimeAnalysisSessionServicesMgr::ClassId, &CreateBOAVEXITimeAnalysisSessionServicesMgrVEXETimeAnalysisSessionServicesMgr},
}};
// clang-format on

namespace {

using Descriptions = std::array<KORMetaClass, Classes.size()>;

KORMetaClass Describe(const ClassRow& row) {
  KORMetaClass description{row.Class, KORUuid::OfName(row.Class), row.MetaClassBase(), row.Kind};
  description.SetFWname(ModuleName);
  if (std::string_view(row.ExtendsComponent) != NoComponent) description.SetExtensionOf(row.ExtendsComponent);
  if (row.AlsoExtends != nullptr) description.SetExtensionOf(row.AlsoExtends);
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

KORBaseUnknown* MakeSessionServicesMgr() {
  return new VEXETimeAnalysisSessionServicesMgr;
}

// The registration for the time that the module is loaded.
class Registration {
 public:
  Registration() {
    for (const KORMetaClass& description : DescriptionsOfModule()) (void)fct_RetrieveMetaObject(description);
    ForAllExtensions([](const char* component, const DictionaryRow& row) {
      KORExtensionRegistry::OfProcess().Add(component, row.Interface(), row.Create);
    });
    const KORMetaClass* const manager = VEXITimeAnalysisSessionServicesMgr::MetaObject();
    KORFillDictionary::AddDictionary(manager->Identifier, CLSID_KORMetaClass, manager);
    KORFillDictionary::RegisterFunctionCreation(VEXETimeAnalysisSessionServicesMgr::ClassName(),
                                                MakeSessionServicesMgr);
    (void)ModuleTrace();
  }
  Registration(const Registration&) = delete;
  Registration& operator=(const Registration&) = delete;
  ~Registration() {
    KORFillDictionary::UnregisterFunctionCreation(VEXETimeAnalysisSessionServicesMgr::ClassName());
    KORFillDictionary::RemoveDictionary(VEXITimeAnalysisSessionServicesMgr::ClassId(), CLSID_KORMetaClass);
    ForAllExtensions([](const char* component, const DictionaryRow& row) {
      KORExtensionRegistry::OfProcess().Remove(component, row.Interface());
    });
    for (const KORMetaClass& description : DescriptionsOfModule()) fct_ForgetMetaObject(description);
  }

 private:
  // Calls `act` with each component and each interface that a class of the module adds to it. A class that stands by
  // itself is a component of its own.
  template <class Action>
  static void ForAllExtensions(const Action& act) {
    for (const DictionaryRow& row : Dictionary) {
      const KORMetaClass& extension = *RetrieveMetaObject(row.Class);
      if (extension.Kind == StandsByItself) act(extension.Name, row);
      for (const char* const component : extension.Extends) {
        if (component != nullptr) act(component, row);
      }
    }
  }
};

// Ahead of all initialisers without a priority, be they the module's own or of the program that it is linked into.
[[gnu::init_priority(101)]] const Registration registration;

}  // namespace

const KORMetaClass* RetrieveMetaObject(const char* class_name) {
  for (const KORMetaClass& description : DescriptionsOfModule()) {
    if (std::string_view(description.Name) == class_name) return fct_RetrieveMetaObject(description);
  }
  return nullptr;
}

}  // namespace presentation

void VEXTimeAnalysisModelerServicesLoad() {
}
