#include "reports/Scenarios.h"

#include "reports/ReportText.h"
#include "reports/ResultTables.h"
#include "tables/NumericText.h"

namespace pescavo {

const std::array<Scenario, 8> kScenarios = {{
    {false, false, false, ": Without PC, CC, F ", ": Without PC, CC, F ", "Without PC, CC, F ",
     "Without PC, CC, F"},
    {true, false, false, ": PC used", ": PC", "PC", "PC"},
    {false, true, false, ": CC used", ": CC used with ", "CC used  ", "CC used with "},
    {false, false, true, ": F used ", ": F used with ", "F used ", "F used with "},
    {true, true, false, ": PC and CC used ", ": PC and CC used with ", "PC and CC used ",
     "PC and CC used "},
    {true, false, true, ": PC and F used ", ": PC and F used with ", "PC and F used ",
     "PC and F used "},
    {false, true, true, ": CC and F used ", ": CC and F used with ", "CC and F used ",
     "CC and F used "},
    {true, true, true, ":PC, CC and F used ", ": PC, CC and F used with ", "PC, CC and F used ",
     "PC, CC and F used "},
}};

const std::string kScenarioRule(70, '_');

namespace {

const std::string kSummaryRule(41, '_');

}  // namespace

std::string appendScenarioHeading(std::string& text, int k, int run, bool mrbd, char separator) {
  const Scenario& scenario = kScenarios[k - 1];
  text += kCrLf;
  text += kScenarioRule;
  text += "\r\n\r\nScenario ";
  text += fixedForm(run, "0", separator);
  std::string cell;
  if (mrbd) {
    text += scenario.headingOn;
    text += " - ";
    text += kMrbdCaption;
    cell = std::string(scenario.cellOn) + " - " + kMrbdCaption;
  } else {
    text += scenario.headingOff;
    cell = scenario.cellOff;
  }
  text += kCrLf;
  return cell;
}

std::string scenarioSummary(const ScenarioCells& cells, bool maximum) {
  std::string summary;
  if (maximum) {
    summary += std::string("REPORT") + kCrLf + kCrLf;
    summary += std::string("Scenario\tMaximum Residue Value") + kCrLf;
  } else {
    summary += std::string("Scenario\tMinimum Residue Value") + kCrLf;
  }
  summary += kSummaryRule + kCrLf + kCrLf;
  for (int r = 1; r <= kScenarioRuns; ++r) {
    summary += "   " + cells[r][0] + "\t" + std::string(10, ' ') + "\t" + cells[r][2] + kCrLf;
  }
  return summary;
}

std::array<int, 4> scenarioColumnWidths(int gridWidth) {
  const double w = gridWidth;
  return {roundedWidth(w / 12), roundedWidth(w / 1.5), roundedWidth(w / 6), roundedWidth(w / 14)};
}

}  // namespace pescavo
