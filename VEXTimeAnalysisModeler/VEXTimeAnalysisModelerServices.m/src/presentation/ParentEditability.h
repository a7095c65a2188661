// Whether the operation above the node of an analysis may be changed.
#pragma once

#include "platform/services/KORIGraphNode.h"

namespace presentation {

/// Asks the platform for the editability of the operation that the node's last parent stands for, and of nothing where
/// the node has no parent or the parent stands for no occurrence. Of the answer only the status counts.
///
/// node  not null
/// False also, without asking, if the operation's instance has lost its reference.
bool IsParentOperationEditable(const KORIGraphNode_var& node);

}  // namespace presentation
