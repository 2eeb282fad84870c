// The screening of a whole table in the core, on one worker thread and on two, without the
// process around it: BM_Screening/threads/scenarios. With PESCAVO_LARGEST_INPUT=DIR the table
// is DIR's feedstuff.tab with Species.tab and Fishmeal.tab (scripts/measure-screening makes the
// largest one there); without it the sample tables.

#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdlib>
#include <string>
#include <vector>

#include "model/Screening.h"
#include "tables/ComponentTable.h"
#include "tables/FishTables.h"

namespace {

using namespace pescavo;

struct Tables {
  Tables() {
    const char* folder = std::getenv("PESCAVO_LARGEST_INPUT");
    const std::string input = folder ? folder : PESCAVO_SAMPLE_INPUT;
    table = readComponentTable(input + "/feedstuff.tab");
    species = readSpeciesTable(input + "/Species.tab");
    fishmeal = readFishmealTable(input + "/Fishmeal.tab");
  }
  ComponentTable table;
  std::vector<FishSpecies> species;
  std::vector<FishMealGrade> fishmeal;
};

void BM_Screening(benchmark::State& state) {
  static const Tables tables;
  const Screening screening(tables.table, tables.species, tables.fishmeal, '.');
  ScreeningRequest request;
  request.scenarios = state.range(1) != 0;
  const std::atomic<bool> cancel{false};
  std::size_t rows = 0;
  for (auto _ : state) {
    const ScreeningResult result = screening.run(request, Screening::Progress(), cancel,
                                                 static_cast<unsigned>(state.range(0)));
    rows = result.rows.size();
    benchmark::DoNotOptimize(rows);
  }
  state.counters["rows"] = static_cast<double>(rows);
}

BENCHMARK(BM_Screening)
    ->Args({1, 0})
    ->Args({2, 0})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
