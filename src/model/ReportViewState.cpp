#include "model/ReportViewState.h"

#include "reports/ResultTables.h"

namespace pescavo {

namespace {

const char kConvertIntoChart[] = "Convert into chart";
const char kConvertIntoTable[] = "Convert into table";
const char kDrawPieChart[] = "Draw pie chart";
const char kOpenFullReport[] = "Open Full Report File";
const char kBack[] = "Back";
const char kExplain[] = "Explain";

}  // namespace

void ReportViewState::load() {
  m_mode = Mode::Loaded;
  m_tableShown = m_chartShown = m_scenarioTableShown = m_explained = m_explanationShown = false;
}

void ReportViewState::openSingle(bool explained) {
  load();
  m_mode = Mode::Single;
  m_explained = explained && m_window == Window::Report;
}

void ReportViewState::openAllScenarios() {
  load();
  m_mode = Mode::AllScenarios;
  m_scenarioTableShown = true;
}

void ReportViewState::toggleTable() {
  if (m_mode != Mode::Single || m_chartShown || m_explanationShown) return;
  m_tableShown = !m_tableShown;
}

std::optional<int> ReportViewState::toggleChart() {
  if (m_mode != Mode::Single || m_tableShown || m_explanationShown) return std::nullopt;
  m_chartShown = !m_chartShown;
  if (m_chartShown && m_window == Window::Report) return kFeedComposition;
  return std::nullopt;
}

void ReportViewState::toggleExplanation() {
  if (m_mode != Mode::Single || !m_explained || m_tableShown || m_chartShown) return;
  m_explanationShown = !m_explanationShown;
}

bool ReportViewState::toggleFullReport() {
  if (m_mode != Mode::AllScenarios) return false;
  m_scenarioTableShown = !m_scenarioTableShown;
  return !m_scenarioTableShown;
}

ReportViewState::View ReportViewState::view() const {
  if (m_mode == Mode::AllScenarios) return m_scenarioTableShown ? View::ScenarioTable : View::Text;
  if (m_chartShown) return View::Chart;
  if (m_explanationShown) return View::Explain;
  return m_tableShown ? View::Table : View::Text;
}

ReportViewState::Controls ReportViewState::controls() const {
  Controls c;
  c.command1Caption = kConvertIntoChart;
  c.command2Caption = kDrawPieChart;
  c.command3Caption = kOpenFullReport;
  c.explainCaption = kExplain;
  const bool scenarioWindow = m_window == Window::Scenario;
  switch (m_mode) {
    case Mode::Loaded:
      c.command3 = !scenarioWindow;
      break;
    case Mode::Single:
      c.text = !m_tableShown && !m_chartShown && !m_explanationShown;
      c.table = c.labels = m_tableShown;
      c.chart = c.chartKinds = m_chartShown;
      c.explanation = m_explanationShown;
      c.command1 = !m_chartShown && !m_explanationShown;
      c.command2 = !m_tableShown && !m_explanationShown;
      c.explain = m_explained && !m_tableShown && !m_chartShown;
      if (m_explanationShown) c.explainCaption = kBack;
      c.command3 = false;
      c.command1Caption = m_tableShown ? kBack : kConvertIntoTable;
      c.command2Caption = m_chartShown ? kBack : kDrawPieChart;
      break;
    case Mode::AllScenarios:
      c.text = !m_scenarioTableShown;
      c.scenarioTable = c.detailsButtons = m_scenarioTableShown;
      c.labels = true;
      c.command1 = c.command2 = false;
      c.command3Caption = m_scenarioTableShown ? kOpenFullReport : kBack;
      break;
  }
  return c;
}

}  // namespace pescavo
