// The program timeanalysis: hands the standard streams to the tool.
#include <unistd.h>

#include <csignal>
#include <iostream>

#include "tools/Tool.h"

int main(int count, char** values) {
  std::ios::sync_with_stdio(false);
  std::signal(SIGXFSZ, SIG_IGN);  // a file that grows beyond what is allowed is told of, and not the end
  KORSession session;
  const tool::Surroundings surroundings{
      std::cin, std::cout, std::cerr, session, tool::ProgramFolder(), isatty(STDERR_FILENO) == 1};
  return tool::RunTool({values + (count > 0 ? 1 : 0), values + count}, surroundings);
}
