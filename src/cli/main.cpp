#include <clocale>
#include <iostream>
#include <string>
#include <vector>

#include "cli/Cli.h"

int main(int argc, char** argv) {
  std::setlocale(LC_NUMERIC, "");
  const char* point = std::localeconv()->decimal_point;
  const char decimal = point && *point == ',' ? ',' : '.';
  std::setlocale(LC_NUMERIC, "C");
  std::vector<std::string> args(argv + 1, argv + argc);
  return pescavo::runCli(args, decimal, std::cout, std::cerr);
}
