// What is wrong with arguments that the parser refuses, in words of the tool's own where they are known.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "tools/Messages.h"

namespace tool {

/// True for "-h", "--" and what begins with "--" and a letter; all else is text.
bool IsOption(const std::string& argument);

/// The command chosen so far in words, as "timeanalysis catalogue list".
std::string CommandWords(const CLI::App& app);

/// The failure behind an error of the parser; `cause` is the error's text, for the faults not known here.
Failure UsageFailure(const CLI::App& app, const std::vector<std::string>& arguments, const CLI::ParseError& error,
                     const std::string& cause);

}  // namespace tool
