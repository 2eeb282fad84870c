#pragma once

#include <array>
#include <string>
#include <vector>

#include "engine/Dialogs.h"
#include "engine/IndependentCheck.h"
#include "engine/OptimisationProblem.h"
#include "engine/SimplexTableau.h"
#include "reports/ReportState.h"
#include "tables/ComponentTable.h"
#include "tables/ComponentViews.h"
#include "tables/FishTables.h"
#include "tables/TextIndex.h"

namespace pescavo {

// The main window's state as a plain model. The desktop window shows it and forwards
// clicks to the operations below; the engine and the reports read it, never a widget.
// List positions are 0-based as in the list controls; -1 means no current item.
class MainWindowModel {
 public:
  static constexpr const char* kMinMaxItems[2] = {"Maximum content", "Minimum content"};
  static constexpr const char* kBasisItems[2] = {"STMR", "STMR-P"};
  static constexpr const char* kMrbdCaption = "\"maximum reasonable balanced diet (MRBD)\"";
  static constexpr const char* kNotSolvable =
      "The problem is not solvable. Add more or try different components.";

  MainWindowModel(Dialogs& dialogs, char decimalSeparator);

  // Reads Species.tab, feedstuff.tab and Fishmeal.tab from inputFolder in that order and
  // sets every control to its state after loading. Throws TableError.
  void startUp(const std::string& inputFolder, bool simpleMode = false);

  // Substance list.
  void selectSubstance(int position);
  std::string substanceName() const;
  void Futterliste_aktualisieren();

  // Component lists and their buttons.
  void setSelected1(int position, bool selected);
  void setCurrent2(int position);
  void Rein();
  void alle_rein();
  void raus();
  void alle_raus();
  std::string tooltipText(int position) const;  // for Fischfutter1 entry at position
  void Ergebnis_ausblenden();

  // Option controls: each change withdraws the result.
  void setOption1(bool minimumChosen);  // Option1 "Minimum" / Option2 "Maximum"
  void setOption3(bool carpChosen);     // Option3 "Common carp" / Option4 "Rainbow trout"
  void setCheck1(bool on);
  void setCheck2(bool on);
  void setCheck4(bool on);
  void setCheck5(bool on);
  void setFischmehl(int position);
  void setFischarten(int position);
  void setMinMax(int position);

  // Runs.
  void Optimierung_Click();
  void EinfacheOptimierung();
  // The first steps of a single run: in SimpleMode every available component takes part;
  // criterion and species follow the option buttons; PC is the third fish-meal grade.
  void prepareSingleRun();
  // With nothing in Fischfutter2: "Please add components." while Label1 is red; true then.
  bool pleaseAddComponents();
  void Laden();
  void Rechnen();
  Criterion criterion() const { return minMax == 1 ? Criterion::Minimum : Criterion::Maximum; }
  std::string resultStatement() const;
  // What each variable of the last problem is: the chosen entries' texts, then PC, CC, F.
  std::vector<std::string> variableNames() const;

  static int Minimum(int a, int b) { return b < a ? b : a; }

 private:
  LastTextPosition m_available;  // Laden's lookup, kept from run to run
  std::vector<int> m_matched;    // per chosen entry, the available position the last Laden used
  void fillVariableNames(std::vector<std::string>& names) const;
  std::vector<std::string> m_variableNames;  // of the last Rechnen, for its check

  // Any change of selection or option withdraws the result shown.
  template <typename T>
  void change(T& control, T value) {
    control = value;
    Ergebnis_ausblenden();
  }

 public:
  // Tables.
  std::string inputFolder;
  ComponentTable table;
  std::vector<FishSpecies> species;
  std::vector<FishMealGrade> fishmeal;

  // Controls.
  int schadstoff = -1;  // Schadstoffliste position
  std::vector<ListEntry> fischfutter1;
  std::vector<bool> selected1;
  int current1 = -1;
  std::vector<ListEntry> fischfutter2;
  int current2 = -1;
  std::vector<WorkingSetEntry> workingSet;              // positions of fischfutter1
  std::vector<std::array<std::string, 6>> residueGrid;  // lade_Schadstoffwerte
  bool option1 = false;                                 // Minimum chosen
  bool option1Enabled = false;
  bool option3 = true;  // common carp chosen
  int minMax = 0;
  int fischarten = 0;
  int fischmehl = 2;
  bool check1 = true;
  bool check2 = true;
  bool check4 = true;
  bool check5 = true;
  bool reinEnabled = true;
  bool alleReinEnabled = true;
  bool rausEnabled = false;
  bool alleRausEnabled = false;
  bool loeschenEnabled = false;
  bool label1Red = false;
  bool ergebnisVisible = false;
  bool reportButtonVisible = false;
  std::string ergebnisText;
  bool ergebnisRed = false;

  // Flags.
  bool allScenariosMode = false;
  bool simpleMode = false;
  bool databaseModified = false;

  // The last run.
  OptimisationProblem problem;
  SimplexTableau tableau;
  OptimisationResult result;
  // The independent check of the last Rechnen, and its sentence for the main window.
  CheckResult check;
  std::string checkSentence;
  ReportState report;

  char decimalSeparator;
  Dialogs& dialogs;
};

}  // namespace pescavo
