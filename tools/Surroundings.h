// What a run of the tool has at hand.
#pragma once

#include <chrono>
#include <functional>
#include <iosfwd>
#include <string>

#include "platform/system/KORSession.h"

namespace tool {

struct Surroundings {
  std::istream& In;
  std::ostream& Out;
  std::ostream& Err;
  KORSession& Session;         // its environment is read; the catalogue folders and settings are written to it
  std::string ProgramFolder;   // where the installed catalogue is looked for from; empty: nowhere
  bool ErrIsTerminal = false;  // a person reads Err as it is written
  std::function<std::chrono::steady_clock::time_point()> Now = std::chrono::steady_clock::now;
  std::function<bool()> IsStopWanted = {};  // asked between two steps of a run that changes files; empty: never
};

}  // namespace tool
