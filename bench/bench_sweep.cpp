// The scenario sweep as "Optimize all Scenarios" runs it: sixteen runs, each run's report text,
// Report.txt and Report.rtf. BM_Sweep/n is the whole sweep for n variables (n - 3 chosen
// components with PC, CC and F); BM_SweepFiles/n the file writes of such a sweep alone, the
// texts made beforehand, so the sweep's own cost is the difference. The InMemory pair is the
// same with the report folder on an in-memory file system, where the difference varies less.
// BM_SweepRuns/n is the sixteen solves with their checks alone; BM_SweepText/n and
// BM_SweepRtf/n the report texts and their RTF form.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <string>

#include "model/Dialogs.h"
#include "model/MainWindowModel.h"
#include "model/ReportRun.h"
#include "model/ScenarioSweep.h"
#include "reports/ReportText.h"
#include "reports/ReportValues.h"
#include "reports/RtfWriter.h"
#include "reports/TextFiles.h"

namespace {

using namespace pescavo;

class SilentDialogs : public Dialogs {
 public:
  void information(const std::string&) override { ++messages; }
  bool askYesNo(const std::string&) override { return false; }
  int messages = 0;
};

// A fixed pseudo-random sequence, so every run of the benchmark sees the same feeds.
class Sequence {
 public:
  double between(double low, double high) {
    m_state = m_state * 6364136223846793005ULL + 1442695040888963407ULL;
    return low + (high - low) * static_cast<double>(m_state >> 11) / 9007199254740992.0;
  }

 private:
  unsigned long long m_state = 20180308;
};

// In-memory file system when there is one: the sweep without the cost of the disk.
std::filesystem::path memoryFolder() {
  std::error_code ignored;
  return std::filesystem::is_directory("/dev/shm", ignored)
             ? "/dev/shm"
             : std::filesystem::temp_directory_path();
}

std::string reportFolder(const std::filesystem::path& base) {
  const auto folder = base / "pescavo-bench-sweep";
  std::filesystem::create_directories(folder);
  return folder.string();
}

std::unique_ptr<MainWindowModel> sweepModel(
    SilentDialogs& dialogs, int variables,
    const std::filesystem::path& base = std::filesystem::temp_directory_path()) {
  auto model = std::make_unique<MainWindowModel>(dialogs, '.');
  const int chosen = variables - 3;
  ComponentTable table;
  table.addSubstance("Substance A");
  Sequence random;
  for (int i = 0; i < chosen; ++i) {
    FeedComponent component;
    component.category = "Forages/Fodders";
    component.crop = "Crop " + std::to_string(i + 1);
    component.commodity = "commodity";
    component.cl = random.between(1, 20);
    component.cp = random.between(5, 60);
    const double residue = random.between(0.01, 2);
    component.dm = random.between(85, 95);
    component.maxCarp = random.between(10, 60);
    component.maxTrout = random.between(10, 60);
    const int i1 = table.addComponent(component);
    table.setResidue(1, i1, residue);
    table.setBasis(1, i1, i % 3 == 0 ? 1 : 0);
  }
  // Components without a residue only make the table as large as before.
  for (int i = 0; i < 20; ++i) table.addComponent(FeedComponent());
  model->load(std::move(table), {{"Common carp", 8, 35}, {"Rainbow trout", 20, 42}},
              {{60, 8}, {62, 9}, {65, 10}});
  model->report().reportFolder = reportFolder(base);
  model->selection().alle_rein();
  return model;
}

void sweep(benchmark::State& state, const std::filesystem::path& base) {
  SilentDialogs dialogs;
  auto model = sweepModel(dialogs, static_cast<int>(state.range(0)), base);
  for (auto _ : state) {
    const bool shown = Optimierung2_Click(*model);
    benchmark::DoNotOptimize(shown);
  }
  int solvable = 0;
  for (int r = 1; r <= kScenarioRuns; ++r) solvable += model->report().scenarioCells[r][2] != "-";
  state.counters["solvable_runs"] = solvable;
  state.counters["report_bytes"] = static_cast<double>(txt_ReadAll(reportTxtPath(*model)).size());
  if (dialogs.messages != 0) state.SkipWithError("the sweep showed a message");
}

void BM_Sweep(benchmark::State& state) { sweep(state, std::filesystem::temp_directory_path()); }
void BM_SweepInMemory(benchmark::State& state) { sweep(state, memoryFolder()); }

// The same texts written the way the sweep writes them.
void sweepFiles(benchmark::State& state, const std::filesystem::path& base) {
  SilentDialogs dialogs;
  auto model = sweepModel(dialogs, static_cast<int>(state.range(0)), base);
  Optimierung2_Click(*model);
  const std::string& section = model->report().richText;
  const std::string rtfText = RtfWriter::document(model->report().richText);
  const std::string txt = reportTxtPath(*model);
  const std::string rtf = reportRtfPath(*model);
  for (auto _ : state) {
    txt_WriteAll(txt, " ");
    for (int run = 0; run < kScenarioRuns; ++run) {
      txt_AppendLine(txt, section);
      RtfWriter::save(rtf, rtfText);
    }
  }
}

void BM_SweepFiles(benchmark::State& state) {
  sweepFiles(state, std::filesystem::temp_directory_path());
}
void BM_SweepFilesInMemory(benchmark::State& state) { sweepFiles(state, memoryFolder()); }

void BM_SweepRuns(benchmark::State& state) {
  SilentDialogs dialogs;
  auto model = sweepModel(dialogs, static_cast<int>(state.range(0)));
  for (auto _ : state) {
    for (int k = 0; k < 8; ++k) {
      for (int m = 0; m <= 1; ++m) {
        model->options().setPseudoComponents({kScenarios[k].pc, kScenarios[k].cc, kScenarios[k].f});
        model->options().setMrbdLimits(m == 1);
        model->lastRun().Laden(model->runInput(), model->options().run());
        model->lastRun().Rechnen();
        benchmark::DoNotOptimize(model->lastRun().result().burden);
      }
    }
  }
}

// The sixteen report sections alone (the last run's values), text only.
void BM_SweepText(benchmark::State& state) {
  SilentDialogs dialogs;
  auto model = sweepModel(dialogs, static_cast<int>(state.range(0)));
  Optimierung2_Click(*model);
  ReportValues values;
  model->lastRun().fillReportValues(model->runInput(), model->substanceName(), values);
  for (auto _ : state) {
    for (int run = 0; run < kScenarioRuns; ++run) {
      std::string text;
      appendReportSection(values, '.', text);
      benchmark::DoNotOptimize(text.data());
    }
  }
}

// RTF conversion of the sixteen sections, no file.
void BM_SweepRtf(benchmark::State& state) {
  SilentDialogs dialogs;
  auto model = sweepModel(dialogs, static_cast<int>(state.range(0)));
  Optimierung2_Click(*model);
  const std::string section = model->report().richText;
  for (auto _ : state) {
    for (int run = 0; run < kScenarioRuns; ++run) {
      std::string rtf = RtfWriter::document(section);
      benchmark::DoNotOptimize(rtf.data());
    }
  }
}

BENCHMARK(BM_Sweep)->Arg(10)->Arg(103)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_SweepInMemory)->Arg(10)->Arg(103)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_SweepFiles)->Arg(10)->Arg(103)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_SweepFilesInMemory)->Arg(10)->Arg(103)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_SweepRuns)->Arg(10)->Arg(103)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_SweepText)->Arg(10)->Arg(103)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_SweepRtf)->Arg(10)->Arg(103)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
