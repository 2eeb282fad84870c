#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <vector>

#include "engine/IndependentCheck.h"
#include "model/FeedRun.h"
#include "model/RunOptions.h"
#include "tables/ComponentTable.h"
#include "tables/FishTables.h"

namespace pescavo {

class ComponentSelection;

// What to screen: every substance of the table in the full layout over all its available
// components, once per species and criterion, and with scenarios once per run of the sweep.
struct ScreeningRequest {
  std::vector<int> species = {0};  // rows of Species.tab, in the order the rows take them
  std::vector<Criterion> criteria = {Criterion::Maximum};
  bool scenarios = false;
  // The pseudo-components, MRBD switch and fish-meal grade of a single run; the sweep's runs
  // set their own pseudo-components and MRBD switch, as the sweep does.
  RunOptions base;
};

// One run of the screening.
struct ScreeningRow {
  int substance = 0;  // 1-based place in the substance list
  std::string name;
  int species = 0;  // row of Species.tab
  Criterion criterion = Criterion::Maximum;
  int scenario = 0;    // run 1..16 of the sweep; 0 without scenarios
  RunOptions options;  // exactly what the run took, to repeat it
  RunStop stop = RunStop::None;
  std::string refusal;     // the run's message for a stop, empty for a result
  double burden = 0;       // meaningful for a result only
  std::string burdenCell;  // "0.000" for a result, else the refusal
  bool above = false;      // a result above kBurdenLimit
  bool checked = false;    // the solver ran, so the independent check has a verdict
  CheckVerdict verdict = CheckVerdict::CouldNotRun;
  std::string verdictCell;      // "agrees", "differs", "not checked"; empty when not checked
  std::string trueOptimumCell;  // only where the check differs
};

struct ScreeningResult {
  std::vector<ScreeningRow> rows;  // in substance order, then species, criterion, scenario
  int total = 0;           // runs asked for; a sweep that stops at a refused run makes fewer
  bool cancelled = false;  // rows then holds the runs done before the stop
};

// Runs a screening over one table on worker threads, each with its own FeedRun. The table
// and the other tables must outlive run() and stay unchanged while it runs.
class Screening {
 public:
  // Called with the runs done and the total; may be called from any worker thread, one call
  // at a time.
  using Progress = std::function<void(int done, int total)>;

  Screening(const ComponentTable& table, const std::vector<FishSpecies>& species,
            const std::vector<FishMealGrade>& fishmeal, char decimalSeparator);

  // Runs every run asked for; cancel is looked at between runs. threads 0 takes the
  // machine's cores.
  ScreeningResult run(const ScreeningRequest& request, const Progress& progress,
                      const std::atomic<bool>& cancel, unsigned threads = 0) const;
  int runCount(const ScreeningRequest& request) const;

  // The runs of one substance (0-based position) as run() makes them.
  std::vector<ScreeningRow> runSubstance(const ScreeningRequest& request, int substance,
                                         FeedRun& feedRun) const;

 private:
  std::vector<ScreeningRow> runSubstance(const ScreeningRequest& request, int substance,
                                         FeedRun& feedRun, ComponentSelection& selection,
                                         const std::atomic<bool>* cancel,
                                         const std::function<void(int runs)>& done,
                                         bool& complete) const;

  const ComponentTable& m_table;
  const std::vector<FishSpecies>& m_species;
  const std::vector<FishMealGrade>& m_fishmeal;
  char m_decimalSeparator;
};

enum class ScreeningFormat { Tsv, Csv };

// The columns of a screening, for a grid and for the text forms.
std::vector<std::string> screeningHeadings(bool scenarios);
std::vector<std::string> screeningCells(const ScreeningRow& row, bool scenarios,
                                        const std::vector<FishSpecies>& species);
// One line of text each, ending in "\n". TSV is also the clipboard's form.
std::string screeningHeaderLine(bool scenarios, ScreeningFormat format);
std::string screeningLine(const ScreeningRow& row, bool scenarios,
                          const std::vector<FishSpecies>& species, ScreeningFormat format);

}  // namespace pescavo
