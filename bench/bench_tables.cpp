// Reading, writing and listing the largest table the program accepts: 1000 components and
// 998 substances. The file is generated once into a temporary folder.
//   bench_tables --write-largest-table=PATH   writes that table to PATH and ends (for
//                                              scripts/measure-loading)

#include <benchmark/benchmark.h>
#include <stdlib.h>
#include <sys/resource.h>

#include <filesystem>
#include <iostream>
#include <string>

#include "TableWritingMain.h"
#include "tables/ComponentTable.h"
#include "tables/ComponentViews.h"
#include "tables/TextFile.h"

namespace {

const char* const kCategories[5] = {"By-Products", "Cereal Grains/ Crop Seeds", "Fat",
                                    "Forages/Fodders", "Roots and Tubers"};

pescavo::ComponentTable largestTable() {
  pescavo::ComponentTable table;
  for (int s = 1; s <= pescavo::ComponentTable::kMaxSubstances; ++s) {
    table.addSubstance("Example substance " + std::to_string(s));
  }
  for (int i = 1; i <= pescavo::ComponentTable::kMaxComponents; ++i) {
    table.addComponent({kCategories[i % 5], "Crop " + std::to_string(i), "commodity",
                        "4-00-" + std::to_string(100 + i), 5 + (i % 60) * 0.75, 1 + (i % 20) * 0.5,
                        85 + (i % 10) * 0.5, 5.0 * (1 + i % 8), 2.5 * (1 + i % 8)});
    for (int s = 1; s <= pescavo::ComponentTable::kMaxSubstances; ++s) {
      // About a third of the cells carry a value, as in a real database.
      if ((i * 7 + s * 3) % 3 == 0) table.setResidue(s, i, ((i + s) % 997) * 0.001 + 0.005);
      table.setBasis(s, i, static_cast<std::int16_t>((i + s) % 2));
    }
  }
  return table;
}

class LargestTableFile {
 public:
  LargestTableFile() {
    std::string folder = (std::filesystem::temp_directory_path() / "pescavo-bench-XXXXXX").string();
    if (::mkdtemp(folder.data()) == nullptr) std::abort();
    m_folder = folder;
    m_path = folder + "/feedstuff.tab";
    pescavo::writeComponentTable(largestTable(), m_path, '.');
  }
  ~LargestTableFile() { std::filesystem::remove_all(m_folder); }
  const std::string& path() const { return m_path; }
  std::string folder() const { return m_folder; }

 private:
  std::string m_folder;
  std::string m_path;
};

const LargestTableFile& largestFile() {
  static const LargestTableFile file;
  return file;
}

void reportPeakMemory(benchmark::State& state) {
  rusage usage{};
  ::getrusage(RUSAGE_SELF, &usage);
  state.counters["peak_rss_MiB"] = static_cast<double>(usage.ru_maxrss) / 1024.0;
  state.counters["file_MiB"] =
      static_cast<double>(std::filesystem::file_size(largestFile().path())) / (1024.0 * 1024.0);
}

void BM_ReadComponentTable(benchmark::State& state) {
  const std::string& path = largestFile().path();
  for (auto _ : state) {
    pescavo::ComponentTable table = pescavo::readComponentTable(path);
    benchmark::DoNotOptimize(table.componentCount());
  }
  reportPeakMemory(state);
}
BENCHMARK(BM_ReadComponentTable)->Unit(benchmark::kMillisecond);

// The parse alone, from bytes already in memory: what is left once the file is read.
void BM_ParseComponentTable(benchmark::State& state) {
  const std::string bytes = pescavo::readFileBytes(largestFile().path());
  for (auto _ : state) {
    pescavo::ComponentTable table = pescavo::parseComponentTable(bytes, "feedstuff.tab");
    benchmark::DoNotOptimize(table.componentCount());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                          static_cast<std::int64_t>(bytes.size()));
  reportPeakMemory(state);
}
BENCHMARK(BM_ParseComponentTable)->Unit(benchmark::kMillisecond);

void BM_WriteComponentTable(benchmark::State& state) {
  const pescavo::ComponentTable table = pescavo::readComponentTable(largestFile().path());
  const std::string path = largestFile().folder() + "/written.tab";
  for (auto _ : state) pescavo::writeComponentTable(table, path, ',');
  reportPeakMemory(state);
}
BENCHMARK(BM_WriteComponentTable)->Unit(benchmark::kMillisecond);

void BM_SortComponentFile(benchmark::State& state) {
  const std::string path = largestFile().folder() + "/sorted.tab";
  std::filesystem::copy_file(largestFile().path(), path,
                             std::filesystem::copy_options::overwrite_existing);
  for (auto _ : state) pescavo::sortComponentFile(path);
  reportPeakMemory(state);
}
BENCHMARK(BM_SortComponentFile)->Unit(benchmark::kMillisecond);

void BM_Futterliste(benchmark::State& state) {
  const pescavo::ComponentTable table = pescavo::readComponentTable(largestFile().path());
  int substance = 1;
  for (auto _ : state) {
    auto available = pescavo::Futterliste_aktualisieren(table, substance);
    benchmark::DoNotOptimize(available.entries.data());
    substance = substance % table.substanceCount() + 1;
  }
}
BENCHMARK(BM_Futterliste)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
  return pescavo::benchmarkOrWriteTable(argc, argv, "--write-largest-table=", largestTable);
}
