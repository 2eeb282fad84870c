#include "engine/MainWindowModel.h"

#include "engine/Simplex.h"
#include "tables/NumericText.h"
#include "tables/TextIndex.h"

namespace pescavo {

namespace {

const char* const kPleaseAdd = "Please add components.";
const char* const kAllZero =
    "The residue values of substances are possiblibly all zero. Check the pollutants value and "
    "try again.";

}  // namespace

MainWindowModel::MainWindowModel(Dialogs& dialogs, char decimalSeparator)
    : decimalSeparator(decimalSeparator), dialogs(dialogs) {}

void MainWindowModel::startUp(const std::string& folder, bool simple) {
  inputFolder = folder;
  simpleMode = simple;
  species = readSpeciesTable(inputFolder + "/Species.tab");
  fischarten = 0;
  table = readComponentTable(inputFolder + "/feedstuff.tab");
  schadstoff = 0;
  loeschenEnabled = table.substanceCount() > 1;
  minMax = 0;
  rausEnabled = false;
  alleRausEnabled = false;
  residueGrid = lade_Schadstoffwerte(table, schadstoff + 1);
  fishmeal = readFishmealTable(inputFolder + "/Fishmeal.tab");
  fischmehl = 2;
  databaseModified = false;
  Futterliste_aktualisieren();
  if (simpleMode) check1 = true;
}

void MainWindowModel::selectSubstance(int position) {
  schadstoff = position;
  Futterliste_aktualisieren();
  Ergebnis_ausblenden();
}

std::string MainWindowModel::substanceName() const {
  return schadstoff >= 0 ? table.substanceName(schadstoff + 1) : std::string();
}

void MainWindowModel::Futterliste_aktualisieren() {
  AvailableComponents available = pescavo::Futterliste_aktualisieren(table, schadstoff + 1);
  fischfutter1 = std::move(available.entries);
  workingSet = std::move(available.working);
  selected1.assign(fischfutter1.size(), false);
  current1 = -1;
  fischfutter2.clear();
  current2 = -1;
}

void MainWindowModel::setSelected1(int position, bool selected) {
  selected1.at(position) = selected;
  current1 = position;
}

void MainWindowModel::setCurrent2(int position) { current2 = position; }

void MainWindowModel::Rein() {
  for (size_t p = 0; p < fischfutter1.size(); ++p) {
    if (!selected1[p]) continue;
    bool present = false;
    for (const ListEntry& chosen : fischfutter2) {
      if (chosen.text == fischfutter1[p].text) {
        present = true;
        break;
      }
    }
    if (!present) fischfutter2.push_back(fischfutter1[p]);
  }
  if (!fischfutter2.empty()) {
    rausEnabled = true;
    alleRausEnabled = true;
  }
  Ergebnis_ausblenden();
}

void MainWindowModel::alle_rein() {
  selected1.assign(fischfutter1.size(), true);
  Ergebnis_ausblenden();
  Rein();
}

void MainWindowModel::raus() {
  if (current2 < 0 || current2 >= static_cast<int>(fischfutter2.size())) return;
  const int p = current2;
  fischfutter2.erase(fischfutter2.begin() + p);
  const int count = static_cast<int>(fischfutter2.size());
  current2 = count > 0 ? Minimum(p, count - 1) : -1;
  if (count == 0) {
    reinEnabled = true;
    rausEnabled = false;
    alleRausEnabled = false;
  }
  Ergebnis_ausblenden();
}

void MainWindowModel::alle_raus() {
  fischfutter2.clear();
  current2 = -1;
  Ergebnis_ausblenden();
  rausEnabled = false;
  alleRausEnabled = false;
}

std::string MainWindowModel::tooltipText(int position) const {
  if (position < 0 || position >= static_cast<int>(workingSet.size())) return std::string();
  const WorkingSetEntry& entry = workingSet[position];
  const char sep = decimalSeparator;
  const double maxInclusion = fischarten == 0 ? entry.maxCarp : entry.maxTrout;
  return "Protein content: " + generalForm(entry.protein, sep) +
         " %, Lipid content: " + generalForm(entry.lipid, sep) + " %" +
         "  Testicide content: " + generalForm(entry.residue, sep) + " mg/kg." +
         " Max. content in food: " + generalForm(maxInclusion, sep) + " %";
}

void MainWindowModel::Ergebnis_ausblenden() {
  ergebnisVisible = false;
  reportButtonVisible = false;
}

void MainWindowModel::setOption1(bool minimumChosen) { change(option1, minimumChosen); }

void MainWindowModel::setOption3(bool carpChosen) { change(option3, carpChosen); }

void MainWindowModel::setCheck1(bool on) { change(check1, on); }

void MainWindowModel::setCheck2(bool on) { change(check2, on); }

void MainWindowModel::setCheck4(bool on) { change(check4, on); }

void MainWindowModel::setCheck5(bool on) { change(check5, on); }

void MainWindowModel::setFischmehl(int position) { change(fischmehl, position); }

void MainWindowModel::setFischarten(int position) { change(fischarten, position); }

void MainWindowModel::setMinMax(int position) { change(minMax, position); }

void MainWindowModel::Optimierung_Click() {
  allScenariosMode = false;
  EinfacheOptimierung();
}

void MainWindowModel::prepareSingleRun() {
  if (simpleMode) {
    if (fischfutter2.size() < fischfutter1.size()) fischfutter2.resize(fischfutter1.size());
    for (size_t p = 0; p < fischfutter1.size(); ++p) fischfutter2[p] = fischfutter1[p];
  }
  minMax = option1 ? 1 : 0;
  fischarten = option3 ? 0 : 1;
  fischmehl = 2;
}

bool MainWindowModel::pleaseAddComponents() {
  if (!fischfutter2.empty()) return false;
  label1Red = true;
  dialogs.information(kPleaseAdd);
  label1Red = false;
  return true;
}

void MainWindowModel::EinfacheOptimierung() {
  prepareSingleRun();
  if (pleaseAddComponents()) {
    Ergebnis_ausblenden();
    return;
  }
  ergebnisText.clear();
  report.bericht.clear();
  Laden();
  if (problem.residueSum == 0) {
    dialogs.information(kAllZero);
    Ergebnis_ausblenden();
    return;
  }
  Rechnen();
  if (!result.pivotFailure.empty()) dialogs.information(result.pivotFailure);
  if (!result.solvable) {
    dialogs.information(kNotSolvable);
    Ergebnis_ausblenden();
    return;
  }
  if (allScenariosMode) {
    Ergebnis_ausblenden();
    return;
  }
  ergebnisVisible = true;
  ergebnisText = resultStatement();
  ergebnisRed = result.burden > 0.1;
  reportButtonVisible = true;
}

void MainWindowModel::Laden() {
  const int chosen = static_cast<int>(fischfutter2.size());
  const int capacity = chosen + 3;
  // Cleared in place: the vectors keep their storage from run to run.
  problem.n = problem.chosenCount = 0;
  problem.lipidTarget = problem.proteinTarget = problem.residueSum = 0;
  // Every cell below is written before it is read; zeros where nothing is found.
  for (auto* column : {&problem.lipid, &problem.protein, &problem.residue, &problem.maxInclusion,
                       &problem.dryMatter})
    column->resize(capacity);
  problem.ifnCode.resize(capacity);
  for (int p = chosen; p < capacity; ++p) {
    problem.residue[p] = problem.dryMatter[p] = 0;
    problem.ifnCode[p].clear();
  }
  m_matched.resize(chosen, -1);

  // Runs repeat with the same lists: a text already equal is not copied again.
  const auto copy = [](std::string& to, const std::string& from) {
    if (!sameText(to, from)) to = from;
  };
  m_available.build(fischfutter1, fischfutter1.size());
  for (int p = 0; p < chosen; ++p) {
    const int q = m_matched[p] = m_available.find(fischfutter2[p].text, m_matched[p]);
    if (q < 0) {  // an entry without a match keeps zeros
      problem.lipid[p] = problem.protein[p] = problem.residue[p] = problem.maxInclusion[p] =
          problem.dryMatter[p] = 0;
      problem.ifnCode[p].clear();
      continue;
    }
    copy(fischfutter2[p].commodity, fischfutter1[q].commodity);
    copy(fischfutter2[p].kategorie, fischfutter1[q].kategorie);
    copy(fischfutter2[p].artSchadstoffwert, fischfutter1[q].artSchadstoffwert);
    const WorkingSetEntry& entry = workingSet[q];
    problem.lipid[p] = entry.lipid;
    problem.protein[p] = entry.protein;
    problem.residue[p] = entry.residue;
    problem.maxInclusion[p] = fischarten == 0 ? entry.maxCarp : entry.maxTrout;
    problem.dryMatter[p] = entry.dm;
    copy(problem.ifnCode[p], entry.ifnCode);
  }

  const FishSpecies& target = species.at(fischarten);
  problem.lipidTarget = target.lipid;
  problem.proteinTarget = target.protein;

  int n = chosen;
  problem.chosenCount = chosen;
  auto addPseudo = [&](double lipid, double protein) {
    problem.lipid[n] = lipid;
    problem.protein[n] = protein;
    problem.maxInclusion[n] = 100;
    ++n;
  };
  problem.pc = check1;
  problem.cc = check4;
  problem.f = check5;
  if (check1) addPseudo(fishmeal.at(fischmehl).lipid, fishmeal.at(fischmehl).protein);
  if (check4) addPseudo(0.1, 0.1);
  if (check5) addPseudo(100, 0);
  problem.n = n;
  for (auto* column : {&problem.lipid, &problem.protein, &problem.residue, &problem.maxInclusion,
                       &problem.dryMatter})
    column->resize(n);
  problem.ifnCode.resize(n);

  if (!check2) problem.maxInclusion.assign(n, 100.0);

  double sum = 0;
  for (int j = 0; j < n; ++j) sum = sum + problem.residue[j];
  problem.residueSum = sum;

  for (int j = 0; j < n; ++j) {
    if (problem.dryMatter[j] != 0)
      problem.residue[j] = problem.residue[j] / problem.dryMatter[j] * 100;
  }
  problem.unitOrder = table.componentCount() + 2;
  // The tableau is laid out from zeros by Rechnen, sized to this problem.
}

void MainWindowModel::Rechnen() {
  result.pivotFailure.clear();
  result.pivots = 0;
  pescavo::Rechnen(problem, criterion(), tableau, result);
  fillVariableNames(m_variableNames);
  check = checkOptimum(problem, criterion(), result, m_variableNames);
  checkSentence = mainWindowSentence(check, criterion(), decimalSeparator);
}

std::string MainWindowModel::resultStatement() const {
  return std::string(kMinMaxItems[minMax == 1 ? 1 : 0]) + " " + "dietary burden based on " +
         substanceName() + " is " + fixedForm(result.burden, "0.000", decimalSeparator) + " mg/kg.";
}

std::vector<std::string> MainWindowModel::variableNames() const {
  std::vector<std::string> names;
  fillVariableNames(names);
  return names;
}

// Assigned in place, so that a vector kept from run to run reuses its strings' storage.
void MainWindowModel::fillVariableNames(std::vector<std::string>& names) const {
  const int chosen = problem.chosenCount;
  names.resize(chosen + problem.pc + problem.cc + problem.f);
  for (int j = 0; j < chosen; ++j)
    names[j] = j < static_cast<int>(fischfutter2.size()) ? fischfutter2[j].text : std::string();
  int k = chosen;
  if (problem.pc) names[k++] = "PC";
  if (problem.cc) names[k++] = "CC";
  if (problem.f) names[k++] = "F";
}

}  // namespace pescavo
