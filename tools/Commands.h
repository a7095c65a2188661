// The commands of the tool. Each writes its answers and messages and raises Failure where it cannot go on.
#pragma once

#include "tools/Answers.h"
#include "tools/CommandLine.h"
#include "tools/Surroundings.h"

namespace tool {

void RunCalc(const CommandLine& line, const Surroundings& surroundings, Answers& answers);
void RunImpact(const CommandLine& line, const Surroundings& surroundings, Answers& answers);
void RunExport(const CommandLine& line, const Surroundings& surroundings, Answers& answers);
void RunImport(const CommandLine& line, const Surroundings& surroundings, Answers& answers);
void RunMigrate(const CommandLine& line, const Surroundings& surroundings, Answers& answers);
void RunEval(const CommandLine& line, const Surroundings& surroundings, Answers& answers);
void RunCode(const CommandLine& line, const Surroundings& surroundings, Answers& answers);
void RunNorm(const CommandLine& line, const Surroundings& surroundings, Answers& answers);
void RunPattern(const CommandLine& line, const Surroundings& surroundings, Answers& answers);
void RunCatalogueList(const CommandLine& line, const Surroundings& surroundings, Answers& answers);
void RunCatalogueCheck(const CommandLine& line, const Surroundings& surroundings, Answers& answers);

}  // namespace tool
