// What two analyses differ in, value by value: a comparison of the tests' own.
#pragma once

#include <set>
#include <string>

#include "platform/model/KORModel.h"
#include "platform/system/KORSession.h"

/// Places at which two analyses differ: "V_Name" for an attribute, "3 Description" for a key of row 3, "lines" for
/// their number. A value differs if its type or a bit of it does. A null analysis is none. An attribute that only the
/// right one has differs unless the left one has the same value under another of the names that stand for one in the
/// exchange.
std::set<std::string> Differences(VEXTimeAnalysisRepReference& left, VEXTimeAnalysisRepReference& right);

/// The first analysis of a session with that identifier; null if there is none.
KORHandle<VEXTimeAnalysisRepReference> FindAnalysis(KORSession& session, const std::string& identifier);
