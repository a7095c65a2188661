// A host that knows the platform alone: it names nothing of the services, and finds them by the components of analyses
// and of their nodes. Prints what it finds ahead of main, and then in main.
#include <cstdio>
#include <string>

#include "platform/model/KORModel.h"
#include "platform/services/KORIIcon.h"
#include "platform/services/KORNavigTree.h"
#include "platform/system/KORSession.h"

namespace {

// The icon of an analysis, as the services give it: what was read once stays, though another one is set.
std::string IconOf(const KORIIcon_var& icon) {
  if (icon.IsNull()) return "none";
  KORUnicodeString name;
  (void)icon->SetIconName("I_Fasten");
  (void)icon->GetIconName(name);
  (void)icon->SetIconName("I_Other");
  (void)icon->GetIconName(name);
  return std::string(name.Bytes());
}

// The icon of the node of an analysis, under an operation that cannot be changed.
std::string IconOfNode(const PLMIRepReference_var& analysis) {
  const KORHandle<KOROperationReference> operation = KORModel::Current().CreateOperation("Cover");
  operation->SetEditable(false);
  PLMIRepInstance* added = nullptr;
  (void)operation->AddRepInstance(nullptr, analysis.Get(), added, 0);
  const PLMIRepInstance_var instance = PLMIRepInstance_var::Adopt(added);
  KORNavigTree tree;
  const auto parent = tree.AddNode(KORModel::Current().CreateOccurrence(operation));
  const auto node = tree.AddNode(instance, {parent});
  tree.Refresh();
  return std::string(node->GetIcon().Bytes());
}

std::string Found() {
  const KORFreshSession session;
  const KORBaseUnknown_var analysis = KORModel::Current().CreateTimeAnalysis("Fasten");
  return IconOf(analysis) + " " + IconOfNode(analysis);
}

const std::string at_load = Found();

}  // namespace

int main() {
  std::printf("%s, %s\n", at_load.c_str(), Found().c_str());
}
