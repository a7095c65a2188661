// Whether the nodes of analyses show anything.
#pragma once

namespace presentation {

/// True, unless the session is being captured or replayed and VEXSTM_TVSONLY_DISPLAY_TA_NODE is not set in its
/// environment.
bool IsNodeDisplayed();

}  // namespace presentation
