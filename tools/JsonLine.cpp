// One answer as one line of JSON.
#include "tools/JsonLine.h"

#include <cmath>
#include <ostream>

#include "tools/NumberText.h"

namespace tool {

nlohmann::ordered_json JsonNumber(double number) {
  if (std::isfinite(number)) return number;
  return NumberText(number);
}

void WriteJsonLine(std::ostream& output, const nlohmann::ordered_json& answer) {
  // Texts are UTF-8 by the time they come here; what is not would be replaced rather than thrown at.
  output << answer.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
}

}  // namespace tool
