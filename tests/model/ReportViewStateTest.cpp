// The views of the report window and the scenario windows: what each button switches to and
// which controls and captions go with each view.

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "model/ReportViewState.h"
#include "reports/ResultTables.h"

namespace pescavo::test {
namespace {

using Window = ReportViewState::Window;
using View = ReportViewState::View;

// The visible controls in a fixed order, each button with its caption.
std::string shown(const ReportViewState& state) {
  const ReportViewState::Controls c = state.controls();
  std::string s;
  const auto add = [&s](bool visible, const std::string& name) {
    if (visible) s += (s.empty() ? "" : " ") + name;
  };
  const bool visible[] = {c.labels, c.text,        c.table,         c.chartKinds,
                          c.chart,  c.explanation, c.scenarioTable, c.detailsButtons};
  const char* names[] = {"labels", "text",        "table",     "kinds",
                         "chart",  "explanation", "scenarios", "details"};
  for (int k = 0; k < 8; ++k) add(visible[k], names[k]);
  add(c.command1, "[" + c.command1Caption + "]");
  add(c.command2, "[" + c.command2Caption + "]");
  add(c.command3, "[" + c.command3Caption + "]");
  add(c.explain, "[" + c.explainCaption + "]");
  return s;
}

struct Step {
  // o: open single, e: open single with an explanation, a: open all scenarios, 1/2/3:
  // Command1/2/3, x: Explain, l: load
  char event;
  std::string controls;
  View view;
};

const std::map<char, std::function<void(ReportViewState&)>>& events() {
  static const std::map<char, std::function<void(ReportViewState&)>> kEvents = {
      {'l', [](ReportViewState& s) { s.load(); }},
      {'o', [](ReportViewState& s) { s.openSingle(); }},
      {'e', [](ReportViewState& s) { s.openSingle(true); }},
      {'x', [](ReportViewState& s) { s.toggleExplanation(); }},
      {'a', [](ReportViewState& s) { s.openAllScenarios(); }},
      {'1', [](ReportViewState& s) { s.toggleTable(); }},
      {'2', [](ReportViewState& s) { s.toggleChart(); }},
      {'3', [](ReportViewState& s) { s.toggleFullReport(); }}};
  return kEvents;
}

void play(Window window, const std::vector<Step>& steps) {
  ReportViewState state(window);
  for (std::size_t i = 0; i < steps.size(); ++i) {
    SCOPED_TRACE("step " + std::to_string(i) + " '" + steps[i].event + "'");
    events().at(steps[i].event)(state);
    EXPECT_EQ(shown(state), steps[i].controls);
    EXPECT_EQ(state.view(), steps[i].view);
  }
}

const char kText[] = "text [Convert into table] [Draw pie chart]";
const char kTable[] = "labels table [Back]";
const char kChart[] = "kinds chart [Back]";

// Table and chart are never on screen together: each hides the other's button, and a press
// of a hidden button changes nothing.
TEST(ReportViewState, TextTableAndChartTakeTurns) {
  for (Window window : {Window::Report, Window::Scenario}) {
    const std::string loaded =
        window == Window::Report
            ? "text [Convert into chart] [Draw pie chart] [Open Full Report File]"
            : "text [Convert into chart] [Draw pie chart]";
    play(window, {{'l', loaded, View::Text},
                  {'o', kText, View::Text},
                  {'1', kTable, View::Table},
                  {'2', kTable, View::Table},
                  {'3', kTable, View::Table},
                  {'1', kText, View::Text},
                  {'2', kChart, View::Chart},
                  {'1', kChart, View::Chart},
                  {'2', kText, View::Text},
                  {'1', kTable, View::Table},
                  {'o', kText, View::Text}});
  }
}

TEST(ReportViewState, AfterASweepTheScenarioTableAndTheFullReportTakeTurns) {
  const char table[] = "labels scenarios details [Open Full Report File]";
  const char report[] = "labels text [Back]";
  play(Window::Report, {{'a', table, View::ScenarioTable},
                        {'1', table, View::ScenarioTable},
                        {'2', table, View::ScenarioTable},
                        {'3', report, View::Text},
                        {'3', table, View::ScenarioTable},
                        {'3', report, View::Text},
                        {'a', table, View::ScenarioTable},
                        {'o', kText, View::Text},
                        {'3', kText, View::Text}});
  ReportViewState state(Window::Report);
  state.openAllScenarios();
  EXPECT_TRUE(state.toggleFullReport());  // to be written and opened
  EXPECT_FALSE(state.toggleFullReport());
}

// The explanation is a third view beside table and chart, of the report window's single run
// alone: never in a scenario window, after a sweep or when the run has none to give.
TEST(ReportViewState, TheExplanationTakesTurnsWithTheText) {
  const std::string text = std::string(kText) + " [Explain]";
  const char explanation[] = "explanation [Back]";
  play(Window::Report,
       {{'e', text, View::Text},
        {'x', explanation, View::Explain},
        {'1', explanation, View::Explain},
        {'2', explanation, View::Explain},
        {'x', text, View::Text},
        {'1', kTable, View::Table},
        {'x', kTable, View::Table},
        {'1', text, View::Text},
        {'2', kChart, View::Chart},
        {'x', kChart, View::Chart},
        {'2', text, View::Text},
        {'x', explanation, View::Explain},
        {'o', kText, View::Text},
        {'x', kText, View::Text},
        {'e', text, View::Text},
        {'x', explanation, View::Explain},
        {'a', "labels scenarios details [Open Full Report File]", View::ScenarioTable},
        {'x', "labels scenarios details [Open Full Report File]", View::ScenarioTable}});
  play(Window::Scenario, {{'e', kText, View::Text}, {'x', kText, View::Text}});
}

// The report window's chart always opens on the feed composition; a scenario window's shows
// the kind last chosen, so it asks for no drawing.
TEST(ReportViewState, WhichChartTheChartViewOpensOn) {
  for (Window window : {Window::Report, Window::Scenario}) {
    ReportViewState state(window);
    state.openSingle();
    const std::optional<int> expected =
        window == Window::Report ? std::optional<int>(kFeedComposition) : std::nullopt;
    EXPECT_EQ(state.toggleChart(), expected);
    EXPECT_EQ(state.toggleChart(), std::nullopt);  // back to the text
    EXPECT_EQ(state.toggleChart(), expected);
  }
}

}  // namespace
}  // namespace pescavo::test
