#include "model/MainWindowModel.h"

#include <algorithm>
#include <cmath>

#include "engine/Simplex.h"
#include "tables/NumericText.h"
#include "tables/TableError.h"
#include "tables/TextIndex.h"

namespace pescavo {

namespace {

const char* const kPleaseAdd = "Please add components.";
const char* const kAllZero =
    "The residue values of substances are possiblibly all zero. Check the pollutants value and "
    "try again.";

// Beyond this the fixed forms of a report stop being figures anyone can read or check.
constexpr double kLargestFigure = 1e15;

bool usable(double value) { return std::isfinite(value) && std::fabs(value) < kLargestFigure; }

double at(const std::vector<double>& values, int index) {
  return index >= 0 && index < static_cast<int>(values.size()) ? values[index] : 0.0;
}

std::string basisLabel(std::string_view code) {
  // The codes are "0" and "1" nearly always; anything else is read as a number.
  if (code == "0") return kBasisItems[0];
  if (code == "1") return kBasisItems[1];
  const double value = leadingNumber(code);
  if (value == 0) return kBasisItems[0];
  if (value == 1) return kBasisItems[1];
  return std::string();
}

// Runs repeat with the same lists: a text already equal is not copied again.
void copyText(std::string& to, const std::string& from) {
  if (!sameText(to, from)) to = from;
}

}  // namespace

MainWindowModel::MainWindowModel(Dialogs& dialogs, char decimalSeparator)
    : m_decimalSeparator(decimalSeparator), m_dialogs(dialogs) {}

void MainWindowModel::startUp(const std::string& folder, bool simple) {
  m_inputFolder = folder;
  std::vector<FishSpecies> species = readSpeciesTable(folder + "/Species.tab");
  ComponentTable table = readComponentTable(folder + "/feedstuff.tab");
  m_duplicateWarnings = pescavo::duplicateWarnings(table, "feedstuff.tab");
  std::vector<FishMealGrade> fishmeal = readFishmealTable(folder + "/Fishmeal.tab");
  load(std::move(table), std::move(species), std::move(fishmeal), simple);
}

void MainWindowModel::load(ComponentTable table, std::vector<FishSpecies> species,
                           std::vector<FishMealGrade> fishmeal, bool simple) {
  m_simpleMode = simple;
  m_layout = MainWindowLayout();
  m_speciesTable = std::move(species);
  m_species = 0;
  m_table = std::move(table);
  m_substance = 0;
  setEnabled("Loeschen", m_table.substanceCount() > 1);
  m_criterion = Criterion::Maximum;
  setEnabled("raus", false);
  setEnabled("alle_raus", false);
  m_residueGrid = lade_Schadstoffwerte(m_table, m_substance + 1);
  m_fishmealTable = std::move(fishmeal);
  m_fishmealGrade = 2;
  m_databaseModified = false;
  m_layout.hide({"FischmehlCaption", "EingabeSchadstoff"});
  Futterliste_aktualisieren();
  if (m_simpleMode) {
    m_pseudo.pc = true;
    m_layout.applySimpleLayout(false);
    m_layout.hide({"restore", "Image6"});
  }
  m_layout.hide({"MenuEdit"});
}

std::string MainWindowModel::substanceName() const {
  return m_substance >= 0 ? m_table.substanceName(m_substance + 1) : std::string();
}

void MainWindowModel::selectSubstance(int position) {
  m_substance = position;
  Futterliste_aktualisieren();
  Ergebnis_ausblenden();
}

void MainWindowModel::Futterliste_aktualisieren() {
  AvailableComponents available = pescavo::Futterliste_aktualisieren(m_table, m_substance + 1);
  m_available = std::move(available.entries);
  m_workingSet = std::move(available.working);
  m_selected.assign(m_available.size(), false);
  m_chosen.clear();
  m_chosenChanged = true;
  m_currentChosen = -1;
}

void MainWindowModel::setSelected(int position, bool selected) {
  m_selected.at(position) = selected;
}

void MainWindowModel::clearSelection() { m_selected.assign(m_available.size(), false); }

void MainWindowModel::setCurrentChosen(int position) { m_currentChosen = position; }

void MainWindowModel::Rein() {
  for (size_t p = 0; p < m_available.size(); ++p) {
    if (!m_selected[p]) continue;
    const bool present =
        std::any_of(m_chosen.begin(), m_chosen.end(),
                    [&](const ListEntry& chosen) { return chosen.text == m_available[p].text; });
    if (present) continue;
    m_chosen.push_back(m_available[p]);
    m_chosenChanged = true;
  }
  if (!m_chosen.empty()) {
    setEnabled("raus", true);
    setEnabled("alle_raus", true);
  }
  Ergebnis_ausblenden();
}

void MainWindowModel::alle_rein() {
  m_selected.assign(m_available.size(), true);
  Ergebnis_ausblenden();
  Rein();
}

void MainWindowModel::raus() {
  if (m_currentChosen < 0 || m_currentChosen >= static_cast<int>(m_chosen.size())) return;
  const int p = m_currentChosen;
  m_chosen.erase(m_chosen.begin() + p);
  m_chosenChanged = true;
  const int count = static_cast<int>(m_chosen.size());
  m_currentChosen = count > 0 ? Minimum(p, count - 1) : -1;
  if (count == 0) {
    setEnabled("Rein", true);
    setEnabled("raus", false);
    setEnabled("alle_raus", false);
  }
  Ergebnis_ausblenden();
}

void MainWindowModel::alle_raus() {
  m_chosen.clear();
  m_chosenChanged = true;
  m_currentChosen = -1;
  Ergebnis_ausblenden();
  setEnabled("raus", false);
  setEnabled("alle_raus", false);
}

std::string MainWindowModel::tooltipText(int position) const {
  if (position < 0 || position >= static_cast<int>(m_workingSet.size())) return std::string();
  const WorkingSetEntry& entry = m_workingSet[position];
  const char sep = m_decimalSeparator;
  const double maxInclusion = m_species == 0 ? entry.maxCarp : entry.maxTrout;
  return "Protein content: " + generalForm(entry.protein, sep) +
         " %, Lipid content: " + generalForm(entry.lipid, sep) + " %" +
         "  Testicide content: " + generalForm(entry.residue, sep) + " mg/kg." +
         " Max. content in food: " + generalForm(maxInclusion, sep) + " %";
}

void MainWindowModel::Fischfutter1_MouseDown(int position, int x, int y) {
  if (position < 0) return;
  m_availableTooltip = tooltipText(position);
  m_pressX = x;
  m_pressY = y;
}

void MainWindowModel::Fischfutter1_MouseMove(int x, int y) {
  if (!m_availableTooltip.empty() && x != m_pressX && y != m_pressY) m_availableTooltip.clear();
}

void MainWindowModel::setCriterionOption(Criterion criterion) {
  change(m_criterionOption, criterion);
}

void MainWindowModel::setSpeciesOption(Species species) { change(m_speciesOption, species); }

void MainWindowModel::setPseudoComponents(PseudoComponents pseudo) {
  m_pseudo = pseudo;
  Ergebnis_ausblenden();
}

void MainWindowModel::setMrbdLimits(bool on) { change(m_mrbd, on); }

void MainWindowModel::setCriterion(Criterion criterion) { change(m_criterion, criterion); }

void MainWindowModel::setSpecies(int position) { change(m_species, position); }

void MainWindowModel::setFishmealGrade(int position) { change(m_fishmealGrade, position); }

void MainWindowModel::Ergebnis_ausblenden() {
  m_layout.hide({"Ergebnis", "ReportButton", "Gegenpruefung"});
}

void MainWindowModel::Optimierung_Click() {
  m_allScenariosMode = false;
  EinfacheOptimierung();
}

void MainWindowModel::prepareSingleRun() {
  if (m_simpleMode) {
    if (m_chosen.size() < m_available.size()) m_chosen.resize(m_available.size());
    for (size_t p = 0; p < m_available.size(); ++p) m_chosen[p] = m_available[p];
    m_chosenChanged = true;
  }
  m_criterion = m_criterionOption;
  m_species = static_cast<int>(m_speciesOption);
  m_fishmealGrade = 2;
}

bool MainWindowModel::pleaseAddComponents() {
  if (!m_chosen.empty()) return false;
  m_chosenCaptionRed = true;
  m_dialogs.information(kPleaseAdd);
  m_chosenCaptionRed = false;
  return true;
}

void MainWindowModel::EinfacheOptimierung() {
  prepareSingleRun();
  if (pleaseAddComponents()) return Ergebnis_ausblenden();
  m_resultText.clear();
  m_report.bericht.clear();
  Laden();
  if (m_problem.residueSum == 0) return stopRun(kAllZero);
  if (const std::string why = unusableFigures(); !why.empty()) return stopRun(why);
  Rechnen();
  if (!m_result.pivotFailure.empty()) m_dialogs.information(m_result.pivotFailure);
  if (!m_result.solvable) return stopRun(kNotSolvable);
  if (const std::string why = unusableBurden(); !why.empty()) return stopRun(why);
  if (m_allScenariosMode) return Ergebnis_ausblenden();
  m_resultText = resultStatement();
  m_resultRed = m_result.burden > 0.1;
  m_layout.show({"Ergebnis", "ReportButton", "Gegenpruefung"});
}

void MainWindowModel::stopRun(const std::string& message) {
  m_dialogs.information(message);
  Ergebnis_ausblenden();
}

void MainWindowModel::Laden() {
  sizeProblem(static_cast<int>(m_chosen.size()));
  matchChosenEntries();
  setTargets();
  addPseudoComponents();
  applyMrbdLimits();
  convertToDryMatter();
  m_problem.unitOrder = m_table.componentCount() + 2;
  // The tableau is laid out from zeros by Rechnen, sized to this problem.
}

// Room for every chosen entry and the three pseudo-components; the vectors keep their storage
// from run to run, and every cell is written before it is read.
void MainWindowModel::sizeProblem(int chosen) {
  OptimisationProblem& p = m_problem;
  p.n = p.chosenCount = chosen;
  p.lipidTarget = p.proteinTarget = p.residueSum = 0;
  const int capacity = chosen + 3;
  for (auto* column : {&p.lipid, &p.protein, &p.residue, &p.maxInclusion, &p.dryMatter})
    column->resize(capacity);
  p.ifnCode.resize(capacity);
  p.name.resize(capacity);
  p.kind.assign(chosen, VariableKind::Component);
  for (int j = chosen; j < capacity; ++j) {
    p.residue[j] = p.dryMatter[j] = 0;
    p.ifnCode[j].clear();
  }
  m_matched.resize(chosen, -1);
}

// Each chosen entry takes the figures of the last available entry with its text, and its
// companions are brought up to date from that entry.
void MainWindowModel::matchChosenEntries() {
  OptimisationProblem& p = m_problem;
  m_lookup.build(m_available, m_available.size());
  for (int j = 0; j < p.chosenCount; ++j) {
    ListEntry& entry = m_chosen[j];
    if (m_chosenChanged) p.name[j] = entry.text;
    const int q = m_matched[j] = m_lookup.find(entry.text, m_matched[j]);
    if (q < 0) {  // an entry without a match keeps zeros
      p.lipid[j] = p.protein[j] = p.residue[j] = p.maxInclusion[j] = p.dryMatter[j] = 0;
      p.ifnCode[j].clear();
      continue;
    }
    copyText(entry.commodity, m_available[q].commodity);
    copyText(entry.kategorie, m_available[q].kategorie);
    copyText(entry.artSchadstoffwert, m_available[q].artSchadstoffwert);
    const WorkingSetEntry& stored = m_workingSet[q];
    p.lipid[j] = stored.lipid;
    p.protein[j] = stored.protein;
    p.residue[j] = stored.residue;
    p.maxInclusion[j] = m_species == 0 ? stored.maxCarp : stored.maxTrout;
    p.dryMatter[j] = stored.dm;
    copyText(p.ifnCode[j], stored.ifnCode);
  }
  m_chosenChanged = false;
}

void MainWindowModel::setTargets() {
  const FishSpecies& target = m_speciesTable.at(m_species);
  m_problem.lipidTarget = target.lipid;
  m_problem.proteinTarget = target.protein;
}

// PC, CC and F follow the components in that order, uncontaminated and without a limit.
void MainWindowModel::addPseudoComponents() {
  OptimisationProblem& p = m_problem;
  int& n = p.n;
  const auto add = [&](VariableKind kind, double lipid, double protein) {
    p.kind.push_back(kind);
    copyText(p.name[n], pseudoComponentName(kind));
    p.lipid[n] = lipid;
    p.protein[n] = protein;
    p.maxInclusion[n] = 100;
    ++n;
  };
  if (m_pseudo.pc) {
    const FishMealGrade& grade = m_fishmealTable.at(m_fishmealGrade);
    add(VariableKind::PC, grade.lipid, grade.protein);
  }
  if (m_pseudo.cc) add(VariableKind::CC, 0.1, 0.1);
  if (m_pseudo.f) add(VariableKind::F, 100, 0);
  for (auto* column : {&p.lipid, &p.protein, &p.residue, &p.maxInclusion, &p.dryMatter})
    column->resize(n);
  p.ifnCode.resize(n);
  p.name.resize(n);
}

// Check2 off lifts every limit, the pseudo-components' included.
void MainWindowModel::applyMrbdLimits() {
  if (!m_mrbd) m_problem.maxInclusion.assign(m_problem.n, 100.0);
}

// The sum is taken as read, so that an all-zero substance is recognised before converting.
void MainWindowModel::convertToDryMatter() {
  OptimisationProblem& p = m_problem;
  double sum = 0;
  for (int j = 0; j < p.n; ++j) sum = sum + p.residue[j];
  p.residueSum = sum;
  for (int j = 0; j < p.n; ++j) {
    if (p.dryMatter[j] != 0) p.residue[j] = p.residue[j] / p.dryMatter[j] * 100;
  }
}

std::string MainWindowModel::unusableFigures() const {
  const OptimisationProblem& p = m_problem;
  for (int j = 0; j < p.chosenCount; ++j) {
    if (usable(p.residue[j])) continue;
    return "The residue value of " + p.name[j] +
           " is too large to compute with on the dry-matter basis (dry matter " +
           generalForm(p.dryMatter[j], m_decimalSeparator) +
           " %). Check its residue value and its dry matter.";
  }
  return std::string();
}

std::string MainWindowModel::unusableBurden() const {
  if (!m_result.solvable || usable(m_result.burden)) return std::string();
  return "The optimisation gave a dietary burden too large to show. Check the residue values "
         "and the dry matter of the chosen components.";
}

void MainWindowModel::Rechnen() {
  m_result.pivotFailure.clear();
  m_result.pivots = 0;
  pescavo::Rechnen(m_problem, m_criterion, m_tableau, m_result);
  m_check = checkOptimum(m_problem, m_criterion, m_result);
  m_checkSentence = mainWindowSentence(m_check, m_criterion, m_decimalSeparator);
}

// Every field is set, over whatever an earlier fill left; strings are assigned in place.
void MainWindowModel::fillReportValues(ReportValues& values) const {
  values.substance = substanceName();
  values.speciesName.clear();
  values.lipidTarget = values.proteinTarget = 0;
  if (m_species >= 0 && m_species < static_cast<int>(m_speciesTable.size())) {
    const FishSpecies& species = m_speciesTable[m_species];
    values.speciesName = species.name;
    values.lipidTarget = species.lipid;
    values.proteinTarget = species.protein;
  }
  values.maximum = m_criterion != Criterion::Minimum;
  values.criterionText = kMinMaxItems[values.maximum ? 0 : 1];
  values.burden = m_result.burden;
  values.fishmealProtein = values.fishmealLipid = 0;
  if (m_fishmealGrade >= 0 && m_fishmealGrade < static_cast<int>(m_fishmealTable.size())) {
    values.fishmealProtein = m_fishmealTable[m_fishmealGrade].protein;
    values.fishmealLipid = m_fishmealTable[m_fishmealGrade].lipid;
  }
  const auto fillVariable = [&](int j, ReportVariable& variable) {
    variable.maxInclusion = at(m_problem.maxInclusion, j);
    variable.dryMatter = at(m_problem.dryMatter, j);
    variable.residue = at(m_problem.residue, j);
    variable.share = at(m_result.composition, j);
  };

  // The stored figures of a chosen entry are those of the last available entry with its text,
  // the same match Laden makes.
  LastTextPosition lastPosition;
  lastPosition.build(m_available, std::min(m_available.size(), m_workingSet.size()));
  const WorkingSetEntry none;  // the figures of an entry without a match
  const int count = static_cast<int>(m_chosen.size());
  values.components.resize(count);
  for (int j = 0; j < count; ++j) {
    const ListEntry& entry = m_chosen[j];
    ReportComponent& component = values.components[j];
    fillVariable(j, component);
    component.name = entry.text;
    component.category = entry.kategorie;
    component.basisLabel = basisLabel(entry.artSchadstoffwert);
    const int q = lastPosition.find(entry.text);
    const WorkingSetEntry& stored = q >= 0 ? m_workingSet[q] : none;
    component.protein = stored.protein;
    component.lipid = stored.lipid;
    component.storedResidue = stored.residue;
  }

  values.pseudos.clear();
  for (int j = m_problem.chosenCount; j < m_problem.n; ++j) {
    ReportPseudo pseudo;
    pseudo.kind = m_problem.kind[j];
    fillVariable(j, pseudo);
    pseudo.dryMatter = 0;
    values.pseudos.push_back(pseudo);
  }
}

std::string MainWindowModel::resultStatement() const {
  return std::string(kMinMaxItems[m_criterion == Criterion::Minimum ? 1 : 0]) + " " +
         "dietary burden based on " + substanceName() + " is " +
         fixedForm(m_result.burden, "0.000", m_decimalSeparator) + " mg/kg.";
}

namespace {

const char* const kSaveQuestion = "You modified the substance database. Do you want to save?";
const char* const kSortQuestion = "Do you want to sort the data base entries?";
const char* const kResetQuestion = "You want to reset the data base settings?";

}  // namespace

bool MainWindowModel::writeDatabase() {
  try {
    writeComponentTable(m_table, feedstuffPath(), m_decimalSeparator);
    return true;
  } catch (const TableError& error) {
    m_dialogs.information(error.what());
    return false;
  }
}

void MainWindowModel::save() {
  Ergebnis_ausblenden();
  // After writing, so the file holds the table as it was; only while editing, since outside it
  // there is no grid to take over. A new substance is stored once: editing then goes on with
  // it, so that "Done" does not add it a second time.
  if (writeDatabase() && editing()) {
    keepEditBoxText();
    const bool adding = !editMode();
    if (uebernehme_Werte() && adding) {
      selectAddedSubstance();
      m_editMode = true;
    }
  }
  Futterliste_aktualisieren();
}

bool MainWindowModel::Ende_Click() {
  if (editing()) {  // "Done"
    leaveEditing();
    return false;
  }
  if (!m_databaseModified) return true;
  if (!m_dialogs.askYesNo(kSaveQuestion)) return true;
  // Nothing is lost by a failed write: the old file stands and the window stays open.
  if (!writeDatabase()) return false;
  if (!m_dialogs.askYesNo(kSortQuestion)) return true;
  try {
    sortComponentFile(feedstuffPath());
  } catch (const TableError& error) {
    // The database is saved; only its order is as before.
    m_dialogs.information(error.what());
  }
  return true;
}

void MainWindowModel::restore() {
  if (!m_dialogs.askYesNo(kResetQuestion)) return;
  ComponentTable table;
  try {
    table = resetComponentTable(m_inputFolder);
  } catch (const TableError& error) {
    m_dialogs.information(error.what());
    return;
  }
  m_table = std::move(table);
  m_substance = 0;
  setEnabled("Loeschen", m_table.substanceCount() > 1);
  Futterliste_aktualisieren();
  m_residueGrid = lade_Schadstoffwerte(m_table, m_substance + 1);
  // The lists were emptied, so a result on screen no longer belongs to them.
  Ergebnis_ausblenden();
}

}  // namespace pescavo
