#include <iostream>
#include <string>
#include <vector>

#include "cli/Cli.h"
#include "tables/DecimalSeparator.h"

int main(int argc, char** argv) {
  std::vector<std::string> args(argv + 1, argv + argc);
  return pescavo::runCli(args, pescavo::userDecimalSeparator(), std::cout, std::cerr);
}
