#pragma once

#include <array>
#include <string>

namespace pescavo {

// One of the eight combinations of PC, CC and F, with its texts as the sweep writes them.
struct Scenario {
  bool pc;
  bool cc;
  bool f;
  const char* headingOff;  // report heading after "Scenario N", MRBD off
  const char* headingOn;   // MRBD on; followed by " - " and the MRBD caption
  const char* cellOff;     // scenario table, MRBD off
  const char* cellOn;      // MRBD on; followed by " - " and the MRBD caption
};

extern const std::array<Scenario, 8> kScenarios;

constexpr const char* kMrbdCaption = "\"maximum reasonable balanced diet (MRBD)\"";
constexpr int kScenarioRuns = 16;
constexpr int kAlignLeft = 1;
constexpr int kAlignCentre = 4;

// Run N of scenario k (1..8) with MRBD off (m = 0) or on (m = 1).
constexpr int scenarioRun(int k, int m) { return 2 * k - 1 + m; }

// Scenario table AllScnErgebnis: 17 rows x 4 columns, row 0 the headers.
using ScenarioCells = std::array<std::array<std::string, 4>, kScenarioRuns + 1>;

// The rule above a run's heading and between a run's heading and its section.
extern const std::string kScenarioRule;

// Appends the heading of run N of scenario k to a report text; returns its table description.
std::string appendScenarioHeading(std::string& text, int k, int run, bool mrbd, char separator);

// The summary the full report file opens with, from the scenario table's cells.
std::string scenarioSummary(const ScenarioCells& cells, bool maximum);

// Column widths of the scenario table for a grid of the given width.
std::array<int, 4> scenarioColumnWidths(int gridWidth);

}  // namespace pescavo
