// A program of someone else's, built against the installed package.
#include <cstdio>

#include "VEXSTMTimeAnalysisDlgServices.h"

int main() {
  int status = 9;
  VEXSTMTimeAnalysisDlgServices services;
  const double time = services.GetTimeFromFormula("2*(1+0.5)", status);
  std::printf("%g %d\n", time, status);
}
