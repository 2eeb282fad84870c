// Substance editing in the main window on the largest table the program accepts: 1000
// components and 998 substances. BM_EditClick enters the editing mode from the normal view,
// BM_Search marks the grid for a text, BM_DoneAfterEdit and BM_DoneAfterAdd leave it with
// "Done" (storing the grid, rebuilding the lists); the add is measured with 997 substances, so
// that there is room for one more.

#include <benchmark/benchmark.h>

#include <string>

#include "model/Dialogs.h"
#include "model/MainWindowModel.h"

namespace {

using namespace pescavo;

class SilentDialogs : public Dialogs {
 public:
  void information(const std::string&) override {}
  bool askYesNo(const std::string&) override { return false; }
};

const char* const kCategories[5] = {"By-Products", "Cereal Grains/ Crop Seeds", "Fat",
                                    "Forages/Fodders", "Roots and Tubers"};

ComponentTable largestTable(int substances) {
  ComponentTable table;
  for (int s = 1; s <= substances; ++s)
    table.addSubstance("Example substance " + std::to_string(s));
  for (int i = 1; i <= ComponentTable::kMaxComponents; ++i) {
    table.addComponent({kCategories[i % 5], "Crop " + std::to_string(i), "commodity",
                        "4-00-" + std::to_string(100 + i), 5 + (i % 60) * 0.75, 1 + (i % 20) * 0.5,
                        85 + (i % 10) * 0.5, 5.0 * (1 + i % 8), 2.5 * (1 + i % 8)});
    for (int s = 1; s <= substances; ++s) {
      // About a third of the cells carry a value, as in a real database.
      if ((i * 7 + s * 3) % 3 == 0) table.setResidue(s, i, ((i + s) % 997) * 0.001 + 0.005);
      table.setBasis(s, i, static_cast<std::int16_t>((i + s) % 2));
    }
  }
  return table;
}

// A main window after start-up on the largest table, its substance in the middle of the list.
class Window {
 public:
  explicit Window(int substances) : m_model(m_dialogs, '.') {
    m_model.load(largestTable(substances), {{"Common carp", 8, 35}, {"Rainbow trout", 15, 42}},
                 {{60, 12}, {62, 11}, {65, 10}, {68, 9}, {70, 8}});
    m_model.selectSubstance(substances / 2);
  }
  MainWindowModel& model() { return m_model; }

 private:
  SilentDialogs m_dialogs;
  MainWindowModel m_model;
};

void BM_EditClick(benchmark::State& state) {
  Window window(ComponentTable::kMaxSubstances);
  MainWindowModel& model = window.model();
  for (auto _ : state) {
    model.substances().Edit_Click();
    state.PauseTiming();
    model.substances().Abbrechen_Click();
    state.ResumeTiming();
  }
}
BENCHMARK(BM_EditClick)->Unit(benchmark::kMillisecond);

void BM_Search(benchmark::State& state) {
  Window window(ComponentTable::kMaxSubstances);
  MainWindowModel& model = window.model();
  model.substances().Edit_Click();
  const char* const texts[3] = {"CROP 99", "grains/", "4-00-5"};
  int k = 0;
  for (auto _ : state) {
    model.substances().editor().setSearchText(texts[k++ % 3]);
    model.substances().editor().Go_Click();
  }
  benchmark::DoNotOptimize(model.substances().editor().grid().marked(1, 1));
}
BENCHMARK(BM_Search)->Unit(benchmark::kMillisecond);

void BM_DoneAfterEdit(benchmark::State& state) {
  Window window(ComponentTable::kMaxSubstances);
  MainWindowModel& model = window.model();
  for (auto _ : state) {
    state.PauseTiming();
    model.substances().Edit_Click();
    state.ResumeTiming();
    if (!model.substances().leaveEditing()) state.SkipWithError("Done refused");
  }
}
BENCHMARK(BM_DoneAfterEdit)->Unit(benchmark::kMillisecond);

void BM_DoneAfterAdd(benchmark::State& state) {
  Window window(ComponentTable::kMaxSubstances - 1);
  MainWindowModel& model = window.model();
  for (auto _ : state) {
    state.PauseTiming();
    model.substances().Add_Click();
    state.ResumeTiming();
    if (!model.substances().leaveEditing()) state.SkipWithError("Done refused");
    state.PauseTiming();
    model.substances().Loeschen_Click();  // the new, last substance: room for the next
    state.ResumeTiming();
  }
}
BENCHMARK(BM_DoneAfterAdd)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
