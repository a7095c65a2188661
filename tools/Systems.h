// The motion-time systems that the tool knows by name.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace tool {

/// The names as the catalogues write them; they are compared exactly.
inline constexpr std::array<std::string_view, 12> SystemNames{"STD", "UAS", "MEK",  "AZB",      "MTM1",     "MTM2",
                                                              "RWF", "SAM", "MOST", "MiniMOST", "MaxiMOST", "MODAPTS"};

bool IsSystem(std::string_view name);

/// The name, if it is that of a system; otherwise raises UnknownSystem. The library reads the catalogue of "STD" for
/// any other name, which would answer a mistyped name with the codes of another system.
std::string RequireSystem(const std::string& name);

/// Name of the system's entry file, as "dce_mtm1.xml".
std::string EntryFileOf(std::string_view system);

/// True for the systems whose sequences are written with index values: "MOST", "MiniMOST" and "MaxiMOST".
bool IsMostFamily(std::string_view system);

}  // namespace tool
