// A host that is linked with the platform alone: its trees have plain nodes, and nobody gives analyses an icon.
#include <cstdio>

#include "platform/model/KORModel.h"
#include "platform/services/KORIIcon.h"
#include "platform/services/KORINavigElement.h"
#include "platform/services/KORNavigTree.h"
#include "platform/system/KORSession.h"

namespace {

int CountFound() {
  const KORFreshSession session;
  KORNavigTree tree;
  const auto node = tree.AddNode(KORModel::Current().CreateOperation("Cover"));
  const KORIIcon_var icon = KORModel::Current().CreateTimeAnalysis("Fasten");
  return (KORINavigElement_var(node).IsNull() ? 0 : 1) + (icon.IsNull() ? 0 : 1);
}

const int at_load = CountFound();

}  // namespace

int main() {
  std::printf("%d %d\n", at_load, CountFound());
}
