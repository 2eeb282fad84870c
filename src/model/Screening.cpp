#include "model/Screening.h"

#include <algorithm>
#include <mutex>
#include <thread>

#include "model/ComponentSelection.h"
#include "model/ScenarioSweep.h"
#include "reports/Scenarios.h"
#include "tables/NumericText.h"

namespace pescavo {

namespace {

int runsPerSubstance(const ScreeningRequest& request) {
  const int each = request.scenarios ? kScenarioRuns : 1;
  return static_cast<int>(request.species.size() * request.criteria.size()) * each;
}

// Called after each run with the runs it stands for: a sweep that stops early stands for its
// runs not made as well, so that the count still reaches the total.
using RunDone = std::function<void(int runs)>;

// The rows of one substance's runs. A sweep stops at a run refused before the solver or
// after it, as the sweep itself does; a run the solver finds not solvable goes on.
class SubstanceRuns {
 public:
  SubstanceRuns(const ScreeningRequest& request, const RunInput& input, const std::string& name,
                int substance, FeedRun& feedRun)
      : m_request(request),
        m_input(input),
        m_name(name),
        m_substance(substance),
        m_feedRun(feedRun) {}

  std::vector<ScreeningRow> run(const std::atomic<bool>* cancel, const RunDone& done,
                                bool& complete) {
    std::vector<ScreeningRow> rows;
    complete = false;
    const int each = m_request.scenarios ? kScenarioRuns : 1;
    for (const int species : m_request.species) {
      for (const Criterion criterion : m_request.criteria) {
        RunOptions options = m_request.base;
        options.species = species;
        options.criterion = criterion;
        for (int scenario = 1; scenario <= each; ++scenario) {
          if (cancel && cancel->load()) return rows;
          const int number = m_request.scenarios ? scenario : 0;
          rows.push_back(runOne(
              m_request.scenarios ? scenarioRunOptions(options, scenario) : options, number));
          const bool sweepStopped =
              rows.back().stop != RunStop::None && rows.back().stop != RunStop::NotSolvable;
          if (m_request.scenarios && sweepStopped) {
            if (done) done(each - scenario + 1);
            break;
          }
          if (done) done(1);
        }
      }
    }
    complete = true;
    return rows;
  }

 private:
  ScreeningRow runOne(const RunOptions& options, int scenario) {
    ScreeningRow row;
    row.substance = m_substance + 1;
    row.name = m_name;
    row.species = options.species;
    row.criterion = options.criterion;
    row.scenario = scenario;
    row.options = options;
    row.stop = m_feedRun.run(m_input, options);
    const char sep = m_input.decimalSeparator;
    if (row.stop == RunStop::None) {
      row.burden = m_feedRun.result().burden;
      row.burdenCell = fixedForm(row.burden, "0.000", sep);
      row.above = aboveBurdenLimit(row.burden);
    } else {
      row.refusal = m_feedRun.message(row.stop, m_request.scenarios);
      row.burdenCell = row.refusal;
    }
    row.checked = m_feedRun.solverRan();
    if (row.checked) {
      const CheckResult& check = m_feedRun.check();
      row.verdict = check.verdict;
      row.verdictCell = verdictCell(check);
      if (check.verdict == CheckVerdict::Differs) row.trueOptimumCell = trueOptimumCell(check, sep);
    }
    return row;
  }

  const ScreeningRequest& m_request;
  const RunInput& m_input;
  const std::string& m_name;
  int m_substance;
  FeedRun& m_feedRun;
};

}  // namespace

Screening::Screening(const ComponentTable& table, const std::vector<FishSpecies>& species,
                     const std::vector<FishMealGrade>& fishmeal, char decimalSeparator)
    : m_table(table),
      m_species(species),
      m_fishmeal(fishmeal),
      m_decimalSeparator(decimalSeparator) {}

int Screening::runCount(const ScreeningRequest& request) const {
  return m_table.substanceCount() * runsPerSubstance(request);
}

std::vector<ScreeningRow> Screening::runSubstance(const ScreeningRequest& request, int substance,
                                                  FeedRun& feedRun) const {
  ComponentSelection selection;
  bool complete = false;
  return runSubstance(request, substance, feedRun, selection, nullptr, RunDone(), complete);
}

std::vector<ScreeningRow> Screening::runSubstance(const ScreeningRequest& request, int substance,
                                                  FeedRun& feedRun, ComponentSelection& selection,
                                                  const std::atomic<bool>* cancel,
                                                  const std::function<void(int)>& done,
                                                  bool& complete) const {
  // The full layout with "---->>", as a user would screen one substance by hand.
  selection.refresh(m_table, substance);
  selection.alle_rein();
  const RunInput input{m_species,
                       m_fishmeal,
                       selection.available(),
                       selection.workingSet(),
                       selection.chosen(),
                       m_table.componentCount(),
                       m_decimalSeparator};
  const std::string& name = m_table.substanceName(substance + 1);
  return SubstanceRuns(request, input, name, substance, feedRun).run(cancel, done, complete);
}

ScreeningResult Screening::run(const ScreeningRequest& request, const Progress& progress,
                               const std::atomic<bool>& cancel, unsigned threads) const {
  const int substances = m_table.substanceCount();
  ScreeningResult result;
  result.total = runCount(request);
  std::vector<std::vector<ScreeningRow>> bySubstance(static_cast<size_t>(substances));
  std::atomic<int> next{0};
  std::atomic<int> finished{0};
  std::mutex progressMutex;
  int done = 0;  // guarded by progressMutex
  const auto runDone = [&](int runs) {
    const std::lock_guard<std::mutex> lock(progressMutex);
    done += runs;
    if (progress) progress(done, result.total);
  };
  const auto worker = [&] {
    FeedRun feedRun;
    ComponentSelection selection;
    for (int s = next++; s < substances && !cancel.load(); s = next++) {
      bool complete = false;
      bySubstance[static_cast<size_t>(s)] =
          runSubstance(request, s, feedRun, selection, &cancel, runDone, complete);
      if (complete) ++finished;
    }
    endCheckThread();
  };
  if (threads == 0) threads = std::max(1u, std::thread::hardware_concurrency());
  threads = std::min<unsigned>(threads, static_cast<unsigned>(std::max(1, substances)));
  std::vector<std::thread> workers;
  for (unsigned t = 0; t < threads; ++t) workers.emplace_back(worker);
  for (std::thread& thread : workers) thread.join();

  for (std::vector<ScreeningRow>& rows : bySubstance)
    std::move(rows.begin(), rows.end(), std::back_inserter(result.rows));
  result.cancelled = finished.load() < substances;
  return result;
}

}  // namespace pescavo

namespace pescavo {

namespace {

const char* const kCriterionCells[2] = {"Maximum", "Minimum"};

// One line per row whatever a refusal's text holds.
std::string tsvCell(std::string cell) {
  std::replace_if(
      cell.begin(), cell.end(), [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
  return cell;
}

std::string csvCell(const std::string& cell) {
  if (cell.find_first_of(",\"\r\n") == std::string::npos) return cell;
  std::string quoted = "\"";
  for (const char c : cell) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + '"';
}

std::string line(const std::vector<std::string>& cells, ScreeningFormat format) {
  std::string text;
  for (size_t c = 0; c < cells.size(); ++c) {
    if (c > 0) text += format == ScreeningFormat::Tsv ? '\t' : ',';
    text += format == ScreeningFormat::Tsv ? tsvCell(cells[c]) : csvCell(cells[c]);
  }
  return text + '\n';
}

}  // namespace

std::vector<std::string> screeningHeadings(bool scenarios) {
  std::vector<std::string> headings = {"Number", "Substance", "Species", "Criterion"};
  if (scenarios) headings.push_back("Scenario");
  headings.insert(headings.end(),
                  {"Burden (mg/kg feed DM)", "Above 0.1", "Independent check", "True optimum"});
  return headings;
}

std::vector<std::string> screeningCells(const ScreeningRow& row, bool scenarios,
                                        const std::vector<FishSpecies>& species) {
  const bool known = row.species >= 0 && row.species < static_cast<int>(species.size());
  std::vector<std::string> cells = {
      std::to_string(row.substance), row.name,
      known ? species[static_cast<size_t>(row.species)].name : std::string(),
      kCriterionCells[row.criterion == Criterion::Maximum ? 0 : 1]};
  if (scenarios) cells.push_back(std::to_string(row.scenario));
  const bool result = row.stop == RunStop::None;
  cells.insert(cells.end(), {row.burdenCell, result ? (row.above ? "yes" : "no") : "",
                             row.verdictCell, row.trueOptimumCell});
  return cells;
}

std::string screeningHeaderLine(bool scenarios, ScreeningFormat format) {
  return line(screeningHeadings(scenarios), format);
}

std::string screeningLine(const ScreeningRow& row, bool scenarios,
                          const std::vector<FishSpecies>& species, ScreeningFormat format) {
  return line(screeningCells(row, scenarios, species), format);
}

}  // namespace pescavo
