// The program timeanalysis: hands the standard streams to the tool.
#include <iostream>

#include "tools/Tool.h"

int main(int count, char** values) {
  std::ios::sync_with_stdio(false);
  KORSession session;
  const tool::Surroundings surroundings{std::cin, std::cout, std::cerr, session, tool::ProgramFolder()};
  return tool::RunTool({values + (count > 0 ? 1 : 0), values + count}, surroundings);
}
