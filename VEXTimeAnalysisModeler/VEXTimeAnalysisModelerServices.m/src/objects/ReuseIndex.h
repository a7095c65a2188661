// Who reuses what: the reverse of what the lines of analyses tell.
#pragma once

#include <memory>
#include <vector>

#include "platform/base/KORHashObject.h"
#include "platform/base/KORList.h"
#include "platform/base/KORObjectLists.h"

namespace objects {

/// The table from the implementation of a reused analysis to the list (KORRawCollPV) of the objects that reuse it: one
/// entry for each line, in the order of the analyses and of their rows, each with a reference of the index.
class ReuseIndex {
 public:
  ReuseIndex();
  ReuseIndex(const ReuseIndex&) = delete;
  ReuseIndex& operator=(const ReuseIndex&) = delete;
  /// Releases the entries.
  ~ReuseIndex();

  /// Enters all lines of the analyses; objects that are no time analysis or have no lines are passed over. The status
  /// of the last reuse that was entered; `status` if there is none.
  long Enter(const KORListValKORBaseUnknown_var& analyses, long status);

  const KORHashObject& Table() const { return *_Table; }

 private:
  long EnterReuse(KORBaseUnknown* reused, const KORBaseUnknown_var& reusing);

  KORHashObject* _Table;  // not null
  std::vector<std::unique_ptr<KORRawCollPV>> _Lists;
};

/// The list; its absence ends the process.
KORRawCollPV& ExistingReusedIn(KORRawCollPV* reused_in);

/// As VEXSTTApplicativeContainerServices::CleanHashObjectWithListValues.
long CleanHashObjectWithListValues(KORHashObject*& table);

}  // namespace objects
