#pragma once

#include <optional>
#include <string>

namespace pescavo {

// Which view a report window has on screen and what each of its controls shows for it. Both
// the report window and the scenario windows switch between the report text, the composition
// table and the pie chart, the report window after a single run also its explanation; after a
// sweep between the scenario table and the full report. The windows forward their buttons
// here and then apply controls().
class ReportViewState {
 public:
  enum class Window { Report, Scenario };
  enum class Mode { Loaded, Single, AllScenarios };
  enum class View { Text, Table, Chart, ScenarioTable, Explain };

  // What every control of the window shows; a scenario window has no scenario table, no
  // Details buttons and no Command3.
  struct Controls {
    bool text = true;  // Bericht / BerichtNeu
    bool table = false;
    bool chart = false;
    bool chartKinds = false;  // Combo1
    bool labels = false;      // Label1, Label2, TextSubstanz, TextFischname, TextFischname2
    bool scenarioTable = false;
    bool detailsButtons = false;
    bool explanation = false;
    bool command1 = true, command2 = true, command3 = true;
    bool explain = false;  // the button that shows the explanation
    std::string command1Caption, command2Caption, command3Caption, explainCaption;
  };

  explicit ReportViewState(Window window) : m_window(window) {}

  // The window as loaded: the text alone, the design captions.
  void load();
  // After a single run (the report window's single mode, every scenario window): the text,
  // with the table and the chart a button away, and the explanation when the report window
  // has one (explained).
  void openSingle(bool explained = false);
  // After a sweep: the scenario table with its Details buttons, the labels and Command3.
  void openAllScenarios();

  // Command1: the text and the table take turns.
  void toggleTable();
  // Command2: the text and the chart take turns. Returns the chart kind the window chooses and
  // draws as the chart comes on screen: the report window always opens on the feed
  // composition; a scenario window shows the chart last drawn (nothing).
  std::optional<int> toggleChart();
  // "Explain": the text and the explanation take turns.
  void toggleExplanation();
  // Command3: the scenario table and the full report take turns; true when the full report
  // comes on screen (and is to be written and opened).
  bool toggleFullReport();

  Mode mode() const { return m_mode; }
  // What printing and copying take.
  View view() const;
  Controls controls() const;

 private:
  Window m_window;
  Mode m_mode = Mode::Loaded;
  bool m_tableShown = false;
  bool m_chartShown = false;
  bool m_scenarioTableShown = false;
  bool m_explained = false;  // an explanation is at hand
  bool m_explanationShown = false;
};

}  // namespace pescavo
