// velmo_demo <folder>: makes the demonstration company in the folder, made when missing.

#include <cstdio>
#include <exception>

#include "demo_company/demonstration_company.h"
#include "session/clock.h"

int main(int argumentCount, char** arguments) {
  if (argumentCount != 2) {
    std::fprintf(stderr, "usage: velmo_demo <folder>\n");
    return 2;
  }
  try {
    velmo::demo::makeDemonstrationCompany(arguments[1], velmo::session::SystemClock().now());
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 1;
  }
  return 0;
}
