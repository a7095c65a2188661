// What a run of the tool has at hand.
#pragma once

#include <iosfwd>
#include <string>

#include "platform/system/KORSession.h"

namespace tool {

struct Surroundings {
  std::istream& In;
  std::ostream& Out;
  std::ostream& Err;
  KORSession& Session;        // its environment is read; the catalogue folders and settings are written to it
  std::string ProgramFolder;  // where the installed catalogue is looked for from; empty: nowhere
};

}  // namespace tool
