// The motion-time systems that the tool knows by name.
#include "tools/Systems.h"

#include <algorithm>
#include <cctype>

#include "tools/Messages.h"

namespace tool {

bool IsSystem(std::string_view name) {
  return std::find(SystemNames.begin(), SystemNames.end(), name) != SystemNames.end();
}

std::string RequireSystem(const std::string& name) {
  if (!IsSystem(name)) throw UnknownSystem(name);
  return name;
}

std::string EntryFileOf(std::string_view system) {
  std::string name(system);
  std::transform(name.begin(), name.end(), name.begin(),
                 [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
  return "dce_" + name + ".xml";
}

bool IsMostFamily(std::string_view system) {
  return system == "MOST" || system == "MiniMOST" || system == "MaxiMOST";
}

}  // namespace tool
