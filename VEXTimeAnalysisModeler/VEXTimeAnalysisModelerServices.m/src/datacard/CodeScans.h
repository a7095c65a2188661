// Code patterns as arrays of the public token records.
#pragma once

#include <memory>
#include <string_view>

#include "VEXSTMDataCardScans.h"
#include "datacard/CodePattern.h"

namespace datacard {

/// The tokens of a pattern as records, closed by a record of type 7.
std::unique_ptr<VEXSTMDataCardCodeScan[]> ScansOfPattern(const CodePattern& pattern);

/// Walks the level that begins at `tokens` along a code, as CodePattern::Walk, and marks the records in place. The
/// bytes matched are added to `consumed`. The record at which the walk ended; null if it failed.
VEXSTMDataCardCodeScan* WalkScans(std::string_view code, bool chained, VEXSTMDataCardCodeScan* tokens, int& consumed);

}  // namespace datacard
