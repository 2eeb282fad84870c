// Laden and Rechnen beside GLPK on the same seeded programmes, and the cost of the independent
// check that follows every run. Pairs read off by n: BM_Engine/103 against BM_Glpk/103.

#include <benchmark/benchmark.h>
#include <glpk.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "engine/IndependentCheck.h"
#include "engine/Simplex.h"
#include "model/MainWindowModel.h"
#include "support/RandomProblems.h"

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
void BM_Glpk(benchmark::State& state) {
  auto& problems = problemsOfSize(static_cast<int>(state.range(0)));
  glp_term_out(GLP_OFF);
  std::size_t k = 0;
  long iterations = 0, runs = 0;
  for (auto _ : state) {
    const MainWindowModel& model = problems[k++ % problems.size()]->model;
    const OptimisationProblem& p = model.lastRun().problem();
    glp_prob* lp = glp_create_prob();
    glp_set_obj_dir(lp, model.options().criterion() == Criterion::Maximum ? GLP_MAX : GLP_MIN);
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
    iterations += glp_get_it_cnt(lp);
    ++runs;
    glp_delete_prob(lp);
  }
  state.counters["iterations"] = static_cast<double>(iterations) / static_cast<double>(runs);
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
BENCHMARK(BM_Verify)->Arg(5)->Arg(20)->Arg(50)->Arg(103)->Arg(1000)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
