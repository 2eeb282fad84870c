// The screening of a whole table in the core, on one worker thread and on two, without the
// process around it: BM_Screening/threads/scenarios. With PESCAVO_LARGEST_INPUT=DIR the table
// is DIR's feedstuff.tab with Species.tab and Fishmeal.tab (scripts/measure-screening makes the
// largest one there); without it the sample tables.
//   bench_screening --write-full-table=PATH   writes the largest table with every component
//                                              available to every substance, and ends

#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdlib>
#include <string>
#include <vector>

#include "TableWritingMain.h"
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

// 998 substances and 1000 components, each with a residue for every substance: the most a
// screening can be asked to run.
ComponentTable fullTable() {
  const char* const categories[5] = {"By-Products", "Cereal Grains/ Crop Seeds", "Fat",
                                     "Forages/Fodders", "Roots and Tubers"};
  ComponentTable table;
  for (int s = 1; s <= ComponentTable::kMaxSubstances; ++s)
    table.addSubstance("Example substance " + std::to_string(s));
  for (int i = 1; i <= ComponentTable::kMaxComponents; ++i) {
    table.addComponent({categories[i % 5], "Crop " + std::to_string(i), "commodity",
                        "4-00-" + std::to_string(100 + i), 5 + (i % 60) * 0.75, 1 + (i % 20) * 0.5,
                        85 + (i % 10) * 0.5, 5.0 * (1 + i % 8), 2.5 * (1 + i % 8)});
    for (int s = 1; s <= ComponentTable::kMaxSubstances; ++s)
      table.setResidue(s, i, ((i + s) % 997) * 0.001 + 0.005);
  }
  return table;
}

}  // namespace

int main(int argc, char** argv) {
  return pescavo::benchmarkOrWriteTable(argc, argv, "--write-full-table=", fullTable);
}
