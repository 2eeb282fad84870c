#include "model/MainWindowModel.h"

#include "model/AllOptionsLayout.h"
#include "tables/TableError.h"

namespace pescavo {

using C = ControlId;

MainWindowModel::MainWindowModel(Dialogs& dialogs, char decimalSeparator)
    : m_database(dialogs), m_decimalSeparator(decimalSeparator), m_dialogs(dialogs) {}

void MainWindowModel::startUp(const std::string& folder, bool simple) {
  std::vector<FishSpecies> species = readSpeciesTable(folder + "/Species.tab");
  m_database.read(folder);
  std::vector<FishMealGrade> fishmeal = readFishmealTable(folder + "/Fishmeal.tab");
  showLoaded(std::move(species), std::move(fishmeal), simple);
}

void MainWindowModel::load(ComponentTable table, std::vector<FishSpecies> species,
                           std::vector<FishMealGrade> fishmeal, bool simple) {
  m_database.assign(std::move(table));
  showLoaded(std::move(species), std::move(fishmeal), simple);
}

void MainWindowModel::showLoaded(std::vector<FishSpecies> species,
                                 std::vector<FishMealGrade> fishmeal, bool simple) {
  m_simpleMode = simple;
  m_layout = MainWindowLayout();
  m_speciesTable = std::move(species);
  m_options.setSpecies(0);
  m_substance = 0;
  m_options.setCriterion(Criterion::Maximum);
  m_fishmealTable = std::move(fishmeal);
  m_options.setFishmealGrade(2);
  m_layout.hide({C::FischmehlCaption, C::EingabeSchadstoff});
  m_selection.reset(m_database.table(), m_substance);
  if (m_simpleMode) {
    PseudoComponents pseudo = m_options.pseudoComponents();
    pseudo.pc = true;
    m_options.setPseudoComponents(pseudo);
    m_layout.applySimpleLayout(false);
    m_layout.hide({C::restore, C::Image6});
  }
  m_layout.hide({C::MenuEdit});
  if (m_allOptions && !m_simpleMode) showAllOptions(m_layout);
}

void MainWindowModel::setAllOptions(bool on) {
  m_allOptions = on;
  if (m_simpleMode) return;
  if (!on) resetHiddenOptions(m_options);
  if (!on) return hideAllOptions(m_layout);
  if (!m_substances.editor().editing())
    showAllOptions(m_layout);  // else leaving the editing mode shows them
}

std::string MainWindowModel::substanceName() const {
  return m_substance >= 0 ? m_database.table().substanceName(m_substance + 1) : std::string();
}

void MainWindowModel::selectSubstance(int position) {
  m_substance = position;
  Futterliste_aktualisieren();
  Ergebnis_ausblenden();
}

void MainWindowModel::Futterliste_aktualisieren() {
  m_selection.refresh(m_database.table(), m_substance);
}

bool MainWindowModel::visible(ControlId control) const {
  const bool result =
      control == C::Ergebnis || control == C::ReportButton || control == C::Gegenpruefung;
  // Any change of the lists or the options withdraws the result shown.
  if (result && inputChanges() != m_resultChanges) return false;
  return m_layout.at(control).visible;
}

bool MainWindowModel::enabled(ControlId control) const {
  if (control == C::Loeschen) return m_database.canDelete();
  if (control == C::raus || control == C::alle_raus) return m_selection.removeEnabled();
  return m_layout.at(control).enabled;
}

void MainWindowModel::Fischfutter1_MouseDown(int position, int x, int y) {
  if (position < 0) return;
  // With the limit of the species chosen.
  m_selection.showTooltip(
      m_selection.tooltipText(position, m_options.species(), m_decimalSeparator), x, y);
}

RunInput MainWindowModel::runInput() const {
  return {m_speciesTable,           m_fishmealTable,      m_selection.available(),
          m_selection.workingSet(), m_selection.chosen(), m_database.table().componentCount(),
          m_decimalSeparator};
}

void MainWindowModel::Ergebnis_ausblenden() {
  m_layout.hide({C::Ergebnis, C::ReportButton, C::Gegenpruefung});
}

void MainWindowModel::Optimierung_Click() {
  m_options.setAllScenariosMode(false);
  EinfacheOptimierung();
}

void MainWindowModel::prepareSingleRun() {
  if (m_simpleMode) m_selection.chooseAllAvailable();
  const int grade = m_options.fishmealGrade();
  m_options.followOptionButtons();
  // The "Details" buttons repeat the sweep's runs, which never take the chooser's grade.
  const bool chosen = m_options.keepFishmealGrade() || (m_allOptions && !m_simpleMode);
  if (chosen && !m_options.allScenariosMode()) m_options.setFishmealGrade(grade);
}

bool MainWindowModel::pleaseAddComponents() {
  if (!m_selection.chosen().empty()) return false;
  m_chosenCaptionRed = true;
  m_dialogs.information(m_run.message(RunStop::NoComponents, false));
  m_chosenCaptionRed = false;
  return true;
}

void MainWindowModel::EinfacheOptimierung() {
  prepareSingleRun();
  if (pleaseAddComponents()) return Ergebnis_ausblenden();
  m_result.text.clear();
  m_report.bericht.clear();
  const RunStop stop = m_run.run(runInput(), m_options.run());
  if (!m_run.pivotFailure().empty()) m_dialogs.information(m_run.pivotFailure());
  if (stop != RunStop::None) return stopRun(m_run.message(stop, false));
  if (m_options.allScenariosMode()) return Ergebnis_ausblenden();
  m_result.text = m_run.statement(substanceName());
  m_result.red = aboveBurdenLimit(m_run.result().burden);
  m_layout.show({C::Ergebnis, C::ReportButton, C::Gegenpruefung});
  m_resultChanges = inputChanges();
}

void MainWindowModel::stopRun(const std::string& message) {
  m_dialogs.information(message);
  Ergebnis_ausblenden();
}

}  // namespace pescavo
