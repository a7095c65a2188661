// One answer as one line of JSON.
#pragma once

#include <iosfwd>
#include <nlohmann/json.hpp>

namespace tool {

/// A number that reads back bit for bit; NaN and the infinities, which JSON lacks, as "nan", "inf" and "-inf".
nlohmann::ordered_json JsonNumber(double number);

/// Writes `answer` on one line; its keys keep their order.
void WriteJsonLine(std::ostream& output, const nlohmann::ordered_json& answer);

}  // namespace tool
