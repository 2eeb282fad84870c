#pragma once

#include <benchmark/benchmark.h>

#include <cstring>

#include "tables/ComponentTable.h"

namespace pescavo {

// main() of a benchmark whose large table the measuring scripts also need as a file:
// `NAME OPTION=PATH` writes the table made by `make` to PATH and ends; anything else runs the
// benchmarks.
template <typename MakeTable>
int benchmarkOrWriteTable(int argc, char** argv, const char* option, MakeTable make) {
  if (argc == 2 && std::strncmp(argv[1], option, std::strlen(option)) == 0) {
    writeComponentTable(make(), argv[1] + std::strlen(option), '.');
    return 0;
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}

}  // namespace pescavo
