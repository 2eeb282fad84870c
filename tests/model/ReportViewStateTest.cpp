#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "model/ReportViewState.h"
#include "reports/ResultTables.h"

namespace pescavo::test {
namespace {

using Window = ReportViewState::Window;

// The view, then the visible controls in a fixed order, each button with its caption.
std::string shown(const ReportViewState& state) {
  const char* const views[] = {"Text", "Table", "Chart", "Scenarios", "Explain"};
  const ReportViewState::Controls c = state.controls();
  std::string s = views[static_cast<int>(state.view())] + std::string(":");
  const auto add = [&s](bool visible, const std::string& name) {
    if (visible) s += " " + name;
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

// Events: l load, o open single, e open single with an explanation, a open all scenarios,
// 1/2/3 Command1/2/3, x Explain; after each, what is shown.
void play(Window window, const std::string& events, const std::vector<std::string>& after) {
  using Event = void (*)(ReportViewState&);
  static const std::map<char, Event> kEvents = {
      {'l', [](ReportViewState& s) { s.load(); }},
      {'o', [](ReportViewState& s) { s.openSingle(); }},
      {'e', [](ReportViewState& s) { s.openSingle(true); }},
      {'x', [](ReportViewState& s) { s.toggleExplanation(); }},
      {'a', [](ReportViewState& s) { s.openAllScenarios(); }},
      {'1', [](ReportViewState& s) { s.toggleTable(); }},
      {'2', [](ReportViewState& s) { s.toggleChart(); }},
      {'3', [](ReportViewState& s) { s.toggleFullReport(); }}};
  ASSERT_EQ(events.size(), after.size());
  ReportViewState state(window);
  for (std::size_t i = 0; i < events.size(); ++i) {
    kEvents.at(events[i])(state);
    EXPECT_EQ(shown(state), after[i]) << "step " << i << " '" << events[i] << "'";
  }
}

const char kText[] = "Text: text [Convert into table] [Draw pie chart]";
const char kTable[] = "Table: labels table [Back]";
const char kChart[] = "Chart: kinds chart [Back]";

// Text, table, chart and explanation take turns, a hidden button's press changes nothing; only the
// report window's single run has an explanation. After a sweep scenario table and report alternate.
TEST(ReportViewState, EachButtonSwitchesBetweenItsViewAndTheText) {
  const std::string loaded = "Text: text [Convert into chart] [Draw pie chart]";
  const std::string loadedReport = loaded + " [Open Full Report File]";
  const std::string text = std::string(kText) + " [Explain]";
  const std::string explained = "Explain: explanation [Back]";
  const std::string sweep = "Scenarios: labels scenarios details [Open Full Report File]";
  const std::string report = "Text: labels text [Back]";
  play(Window::Report, "lex12x123xe21x2oxa12x33exo",
       {loadedReport, text,  explained, explained, explained, text, kTable,    kTable, kTable,
        kTable,       text,  kChart,    kChart,    kChart,    text, kText,     kText,  sweep,
        sweep,        sweep, sweep,     report,    sweep,     text, explained, kText});
  play(Window::Scenario, "lex112o", {loaded, kText, kText, kTable, kText, kChart, kText});
  ReportViewState state(Window::Report);
  state.openAllScenarios();
  EXPECT_TRUE(state.toggleFullReport());  // to be written and opened
  EXPECT_FALSE(state.toggleFullReport());
  state.openSingle();
  EXPECT_FALSE(state.toggleFullReport() || state.toggleFullReport());
  // The report window's chart opens on the feed composition.
  using Chart = std::vector<std::optional<int>>;  // braces: called in order
  EXPECT_EQ((Chart{state.toggleChart(), state.toggleChart(), state.toggleChart()}),
            (Chart{kFeedComposition, std::nullopt, kFeedComposition}));
}

}  // namespace
}  // namespace pescavo::test
