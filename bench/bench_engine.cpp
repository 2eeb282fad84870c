// Laden and Rechnen beside GLPK on the same seeded programmes, and the cost of the independent
// check that follows every run. Pairs read off by n: BM_Engine/103 against BM_Glpk/103.
// With PESCAVO_LARGEST_INPUT=DIR (feedstuff.tab of 1000 components, all available to every
// substance, with Species.tab and Fishmeal.tab) the BM_Largest* pair is the real full layout
// over those components, read by the program's own reader: BM_LargestEngine is Laden and
// Rechnen, BM_LargestGlpk GLPK on the programme Laden built, BM_LargestRun the whole run with
// its check.

#include <benchmark/benchmark.h>
#include <glpk.h>

#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "engine/IndependentCheck.h"
#include "engine/Simplex.h"
#include "model/ComponentSelection.h"
#include "model/FeedRun.h"
#include "model/MainWindowModel.h"
#include "support/RandomProblems.h"
#include "tables/ComponentTable.h"
#include "tables/FishTables.h"

namespace {

using pescavo::Criterion;
using pescavo::MainWindowModel;
using pescavo::OptimisationProblem;
using pescavo::testing::RandomProblem;

constexpr int kProblemsPerSize = 16;

class NoDialogs : public pescavo::Dialogs {
 public:
  void information(const std::string&) override {}
  bool askYesNo(const std::string&) override { return false; }
};

// A seeded programme as the main window holds it: a table of the chosen components, the
// species targets, the fish-meal grade and the switches, so that Laden builds it again every
// run. A component without residue is not offered, so it carries a trace (0.001 mg/kg).
struct Seeded {
  explicit Seeded(const RandomProblem& made) : model(dialogs, '.') {
    const OptimisationProblem& p = made.problem;
    pescavo::ComponentTable table;
    table.addSubstance("Substance");
    for (int j = 0; j < p.chosenCount; ++j) {
      const double dm = p.dryMatter[j], limit = p.maxInclusion[j];
      const int i = table.addComponent(
          {"Forages/Fodders", p.name[j], "feed", "", p.protein[j], p.lipid[j], dm, limit, limit});
      const double residue = p.residue[j] * dm / 100;
      table.setResidue(1, i, residue > 0 ? residue : 0.001);
    }
    const bool pc = p.has(pescavo::VariableKind::PC);
    const int grade = p.chosenCount;
    model.load(std::move(table), {{"Species", p.lipidTarget, p.proteinTarget}},
               {{pc ? p.protein[grade] : 0, pc ? p.lipid[grade] : 0}});
    model.options().setFishmealGrade(0);
    model.options().setPseudoComponents(
        {pc, p.has(pescavo::VariableKind::CC), p.has(pescavo::VariableKind::F)});
    model.options().setCriterion(made.criterion);
    model.selection().alle_rein();
    model.lastRun().Laden(model.runInput(), model.options().run());
  }
  NoDialogs dialogs;
  MainWindowModel model;
  // Rechnen's own, as the model keeps them from run to run.
  pescavo::SimplexTableau tableau;
  pescavo::OptimisationResult result;
};

// Both criteria, with and without PC, CC, F and MRBD, fixed by the seed.
std::vector<std::unique_ptr<Seeded>>& problemsOfSize(int n) {
  static std::map<int, std::vector<std::unique_ptr<Seeded>>> cache;
  auto& problems = cache[n];
  if (problems.empty()) {
    pescavo::testing::RandomProblems generator(1000 + n);
    for (int k = 0; k < kProblemsPerSize; ++k)
      problems.push_back(std::make_unique<Seeded>(generator.next(n)));
  }
  return problems;
}

// Laden and Rechnen as a run makes them, without the check that follows.
void BM_Engine(benchmark::State& state) {
  auto& problems = problemsOfSize(static_cast<int>(state.range(0)));
  std::size_t k = 0;
  long pivots = 0, runs = 0;
  for (auto _ : state) {
    Seeded& seeded = *problems[k++ % problems.size()];
    MainWindowModel& model = seeded.model;
    model.lastRun().Laden(model.runInput(), model.options().run());
    seeded.result.pivots = 0;
    pescavo::Rechnen(model.lastRun().problem(), model.options().criterion(), seeded.tableau,
                     seeded.result);
    benchmark::DoNotOptimize(seeded.result.burden);
    pivots += seeded.result.pivots;
    ++runs;
  }
  state.counters["pivots"] = static_cast<double>(pivots) / static_cast<double>(runs);
}

// Default settings but no terminal output; building the glp_prob is part of the time.
// Returns the simplex iterations.
int solveWithDefaultGlpk(const OptimisationProblem& p, Criterion criterion) {
  glp_prob* lp = glp_create_prob();
  glp_set_obj_dir(lp, criterion == Criterion::Maximum ? GLP_MAX : GLP_MIN);
  glp_add_rows(lp, 3);
  glp_set_row_bnds(lp, 1, GLP_FX, p.lipidTarget, p.lipidTarget);
  glp_set_row_bnds(lp, 2, GLP_FX, p.proteinTarget, p.proteinTarget);
  glp_set_row_bnds(lp, 3, GLP_FX, 1.0, 1.0);
  glp_add_cols(lp, p.n);
  std::vector<int> ia{0}, ja{0};
  std::vector<double> ar{0};
  for (int j = 1; j <= p.n; ++j) {
    glp_set_obj_coef(lp, j, p.residue[j - 1]);
    glp_set_col_bnds(lp, j, GLP_DB, 0.0, p.maxInclusion[j - 1] / 100);
    const double column[3] = {p.lipid[j - 1], p.protein[j - 1], 1.0};
    for (int i = 1; i <= 3; ++i) {
      if (column[i - 1] == 0) continue;
      ia.push_back(i);
      ja.push_back(j);
      ar.push_back(column[i - 1]);
    }
  }
  glp_load_matrix(lp, static_cast<int>(ia.size()) - 1, ia.data(), ja.data(), ar.data());
  glp_smcp parm;
  glp_init_smcp(&parm);
  parm.msg_lev = GLP_MSG_OFF;
  parm.presolve = GLP_OFF;
  glp_simplex(lp, &parm);
  benchmark::DoNotOptimize(glp_get_obj_val(lp));
  const int iterations = glp_get_it_cnt(lp);
  glp_delete_prob(lp);
  return iterations;
}

void BM_Glpk(benchmark::State& state) {
  auto& problems = problemsOfSize(static_cast<int>(state.range(0)));
  glp_term_out(GLP_OFF);
  std::size_t k = 0;
  long iterations = 0, runs = 0;
  for (auto _ : state) {
    const MainWindowModel& model = problems[k++ % problems.size()]->model;
    iterations += solveWithDefaultGlpk(model.lastRun().problem(), model.options().criterion());
    ++runs;
  }
  state.counters["iterations"] = static_cast<double>(iterations) / static_cast<double>(runs);
}

// The largest table's first substances in the full layout with every available component
// chosen, as pescavo-cli screen runs them; empty without PESCAVO_LARGEST_INPUT.
struct LargestLayout {
  static constexpr int kSubstances = 16;
  LargestLayout() {
    const char* folder = std::getenv("PESCAVO_LARGEST_INPUT");
    if (!folder) return;
    const std::string input = folder;
    species = pescavo::readSpeciesTable(input + "/Species.tab");
    fishmeal = pescavo::readFishmealTable(input + "/Fishmeal.tab");
    table = pescavo::readComponentTable(input + "/feedstuff.tab");
    for (int s = 0; s < kSubstances && s < table.substanceCount(); ++s) {
      selections.emplace_back();
      selections.back().refresh(table, s);
      selections.back().alle_rein();
    }
  }
  pescavo::RunInput input(int k) const {
    const pescavo::ComponentSelection& selection = selections[k % selections.size()];
    return {species,
            fishmeal,
            selection.available(),
            selection.workingSet(),
            selection.chosen(),
            table.componentCount(),
            '.'};
  }
  std::vector<pescavo::FishSpecies> species;
  std::vector<pescavo::FishMealGrade> fishmeal;
  pescavo::ComponentTable table;
  std::vector<pescavo::ComponentSelection> selections;
};

const LargestLayout& largestLayout(benchmark::State& state) {
  static const LargestLayout layout;
  if (layout.selections.empty())
    state.SkipWithError("PESCAVO_LARGEST_INPUT names no folder with the largest table");
  return layout;
}

void BM_LargestEngine(benchmark::State& state) {
  const LargestLayout& layout = largestLayout(state);
  if (layout.selections.empty()) return;
  pescavo::FeedRun run;
  const pescavo::RunOptions options;
  pescavo::SimplexTableau tableau;
  pescavo::OptimisationResult result;
  std::size_t k = 0;
  long pivots = 0, runs = 0, variables = 0;
  for (auto _ : state) {
    run.Laden(layout.input(static_cast<int>(k++)), options);
    result.pivots = 0;
    pescavo::Rechnen(run.problem(), options.criterion, tableau, result);
    benchmark::DoNotOptimize(result.burden);
    pivots += result.pivots;
    variables += run.problem().n;
    ++runs;
  }
  state.counters["pivots"] = static_cast<double>(pivots) / static_cast<double>(runs);
  state.counters["n"] = static_cast<double>(variables) / static_cast<double>(runs);
}

void BM_LargestGlpk(benchmark::State& state) {
  const LargestLayout& layout = largestLayout(state);
  if (layout.selections.empty()) return;
  glp_term_out(GLP_OFF);
  std::vector<pescavo::FeedRun> runs(layout.selections.size());
  for (std::size_t k = 0; k < runs.size(); ++k)
    runs[k].Laden(layout.input(static_cast<int>(k)), pescavo::RunOptions());
  std::size_t k = 0;
  long iterations = 0, solved = 0;
  for (auto _ : state) {
    iterations += solveWithDefaultGlpk(runs[k++ % runs.size()].problem(), Criterion::Maximum);
    ++solved;
  }
  state.counters["iterations"] = static_cast<double>(iterations) / static_cast<double>(solved);
}

void BM_LargestRun(benchmark::State& state) {
  const LargestLayout& layout = largestLayout(state);
  if (layout.selections.empty()) return;
  pescavo::FeedRun run;
  std::size_t k = 0;
  for (auto _ : state)
    benchmark::DoNotOptimize(run.run(layout.input(static_cast<int>(k++)), pescavo::RunOptions()));
}

// The check as a run makes it: the engine's result handed over, GLPK (and on disagreement
// the exact simplex) behind it.
void BM_Verify(benchmark::State& state) {
  auto& problems = problemsOfSize(static_cast<int>(state.range(0)));
  for (auto& seeded : problems)
    pescavo::Rechnen(seeded->model.lastRun().problem(), seeded->model.options().criterion(),
                     seeded->tableau, seeded->result);
  std::size_t k = 0;
  long differs = 0, runs = 0;
  for (auto _ : state) {
    const Seeded& seeded = *problems[k++ % problems.size()];
    const MainWindowModel& model = seeded.model;
    const auto check = pescavo::checkOptimum(model.lastRun().problem(), model.options().criterion(),
                                             seeded.result);
    benchmark::DoNotOptimize(check.trueOptimum);
    differs += check.verdict != pescavo::CheckVerdict::Agrees;
    ++runs;
  }
  state.counters["differs"] = static_cast<double>(differs) / static_cast<double>(runs);
}

// Each pair runs back to back, so that a change in the machine's speed between the two runs
// does not tilt their ratio; --benchmark_enable_random_interleaving spreads repetitions too.
BENCHMARK(BM_Engine)->Arg(5)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Glpk)->Arg(5)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Engine)->Arg(20)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Glpk)->Arg(20)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Engine)->Arg(50)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Glpk)->Arg(50)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Engine)->Arg(103)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Glpk)->Arg(103)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Engine)->Arg(500)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Glpk)->Arg(500)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Engine)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Glpk)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_LargestEngine)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_LargestGlpk)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_LargestRun)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Verify)->Arg(5)->Arg(20)->Arg(50)->Arg(103)->Arg(1000)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
