// Legacy analyses, which are one stream each, become present ones.
#pragma once

#include "platform/base/KORObjectLists.h"
#include "platform/base/KORUnicodeString.h"
#include "platform/knowledge/KORICkeFactory.h"
#include "platform/knowledge/KORICkeParm.h"

namespace exchange {

/// As VEXTADataIO::MigrateAllQ4TimeAnalysesToR9.
long MigrateLegacyAnalyses(const KORListValKORBaseUnknown_var& occurrences);

/// What a new analysis is to be called at first: text parameters for its identifier and its system, and the identifier
/// once more as description and as name, until those of the stream arrive. None without a factory.
KORListValKORICkeParm_var FirstAttributes(const KORICkeParmFactory_var& factory, const KORUnicodeString& identifier,
                                          const KORUnicodeString& system);

}  // namespace exchange
