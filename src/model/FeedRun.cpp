#include "model/FeedRun.h"

#include <algorithm>
#include <cmath>

#include "engine/Simplex.h"
#include "tables/NumericText.h"

namespace pescavo {

namespace {

const char* const kAllZero =
    "The residue values of substances are possiblibly all zero. Check the pollutants value and "
    "try again.";
const char* const kPollutantsZero =
    "Values of pollutants are possiblibly all zero. Check the pollutants value and try again.";

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

RunStop FeedRun::run(const RunInput& input, const RunOptions& options) {
  if (input.chosen.empty()) return m_stop = RunStop::NoComponents;
  Laden(input, options);
  if (m_problem.residueSum == 0) return m_stop = RunStop::AllZero;
  if (!unusableFigures().empty()) return m_stop = RunStop::UnusableFigures;
  Rechnen();
  if (!m_result.solvable) return m_stop = RunStop::NotSolvable;
  if (!unusableBurden().empty()) return m_stop = RunStop::UnusableBurden;
  return m_stop = RunStop::None;
}

std::string FeedRun::message(RunStop stop, bool sweep) const {
  switch (stop) {
    case RunStop::None:
      return std::string();
    case RunStop::NoComponents:
      return "Please add components.";
    case RunStop::AllZero:
      return sweep ? kPollutantsZero : kAllZero;
    case RunStop::UnusableFigures:
      return unusableFigures();
    case RunStop::NotSolvable:
      return kNotSolvable;
    case RunStop::UnusableBurden:
      return unusableBurden();
  }
  return std::string();
}

const std::string& FeedRun::pivotFailure() const {
  static const std::string none;
  return solverRan() ? m_result.pivotFailure : none;
}

void FeedRun::Laden(const RunInput& input, const RunOptions& options) {
  m_options = options;
  m_decimalSeparator = input.decimalSeparator;
  // Until solved, the run counts as stopped before the solver.
  m_stop = RunStop::UnusableFigures;
  sizeProblem(static_cast<int>(input.chosen.size()));
  matchChosenEntries(input);
  setTargets(input);
  addPseudoComponents(input);
  applyMrbdLimits();
  convertToDryMatter();
  m_problem.unitOrder = input.componentCount + 2;
  // The tableau is laid out from zeros by Rechnen, sized to this problem.
}

// Room for every chosen entry and the three pseudo-components; the vectors keep their storage
// from run to run, and every cell is written before it is read.
void FeedRun::sizeProblem(int chosen) {
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
  m_entries.resize(chosen);
}

// Each chosen entry takes the figures of the last available entry with its text, and its
// companions are those of that entry.
void FeedRun::matchChosenEntries(const RunInput& input) {
  OptimisationProblem& p = m_problem;
  m_lookup.build(input.available, input.available.size());
  for (int j = 0; j < p.chosenCount; ++j) {
    const ListEntry& chosen = input.chosen[j];
    copyText(p.name[j], chosen.text);
    const int q = m_matched[j] = m_lookup.find(chosen.text, m_matched[j]);
    const ListEntry& source = q >= 0 ? input.available[q] : chosen;
    ListEntry& entry = m_entries[j];
    copyText(entry.text, chosen.text);
    copyText(entry.commodity, source.commodity);
    copyText(entry.kategorie, source.kategorie);
    copyText(entry.artSchadstoffwert, source.artSchadstoffwert);
    if (q < 0) {  // an entry without a match keeps zeros
      p.lipid[j] = p.protein[j] = p.residue[j] = p.maxInclusion[j] = p.dryMatter[j] = 0;
      p.ifnCode[j].clear();
      continue;
    }
    const WorkingSetEntry& stored = input.working[q];
    p.lipid[j] = stored.lipid;
    p.protein[j] = stored.protein;
    p.residue[j] = stored.residue;
    p.maxInclusion[j] = m_options.species == 0 ? stored.maxCarp : stored.maxTrout;
    p.dryMatter[j] = stored.dm;
    copyText(p.ifnCode[j], stored.ifnCode);
  }
}

void FeedRun::setTargets(const RunInput& input) {
  const FishSpecies& target = input.species.at(m_options.species);
  m_problem.lipidTarget = target.lipid;
  m_problem.proteinTarget = target.protein;
}

// PC, CC and F follow the components in that order, uncontaminated and without a limit.
void FeedRun::addPseudoComponents(const RunInput& input) {
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
  const PseudoComponents& pseudo = m_options.pseudo;
  if (pseudo.pc) {
    const FishMealGrade& grade = input.fishmeal.at(m_options.fishmealGrade);
    add(VariableKind::PC, grade.lipid, grade.protein);
  }
  if (pseudo.cc) add(VariableKind::CC, kStarchMakeUp.lipid, kStarchMakeUp.protein);
  if (pseudo.f) add(VariableKind::F, kOilMakeUp.lipid, kOilMakeUp.protein);
  for (auto* column : {&p.lipid, &p.protein, &p.residue, &p.maxInclusion, &p.dryMatter})
    column->resize(n);
  p.ifnCode.resize(n);
  p.name.resize(n);
}

// Check2 off lifts every limit, the pseudo-components' included.
void FeedRun::applyMrbdLimits() {
  if (!m_options.mrbd) m_problem.maxInclusion.assign(m_problem.n, 100.0);
}

// The sum is taken as read, so that an all-zero substance is recognised before converting.
void FeedRun::convertToDryMatter() {
  OptimisationProblem& p = m_problem;
  double sum = 0;
  for (int j = 0; j < p.n; ++j) sum = sum + p.residue[j];
  p.residueSum = sum;
  for (int j = 0; j < p.n; ++j) {
    if (p.dryMatter[j] != 0) p.residue[j] = p.residue[j] / p.dryMatter[j] * 100;
  }
}

std::string FeedRun::unusableFigures() const {
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

std::string FeedRun::unusableBurden() const {
  if (!m_result.solvable || usable(m_result.burden)) return std::string();
  return "The optimisation gave a dietary burden too large to show. Check the residue values "
         "and the dry matter of the chosen components.";
}

void FeedRun::Rechnen() {
  m_result.pivotFailure.clear();
  m_result.pivots = 0;
  pescavo::Rechnen(m_problem, m_options.criterion, m_tableau, m_result);
  m_check = checkOptimum(m_problem, m_options.criterion, m_result);
  m_checkSentence = mainWindowSentence(m_check, m_options.criterion, m_decimalSeparator);
  m_stop = m_result.solvable ? RunStop::None : RunStop::NotSolvable;
}

std::string FeedRun::statement(const std::string& substance) const {
  return std::string(kMinMaxItems[m_options.criterion == Criterion::Minimum ? 1 : 0]) + " " +
         "dietary burden based on " + substance + " is " +
         fixedForm(m_result.burden, "0.000", m_decimalSeparator) + " mg/kg.";
}

// Every field is set, over whatever an earlier fill left; strings are assigned in place.
void FeedRun::fillReportValues(const RunInput& input, const std::string& substance,
                               ReportValues& values) const {
  values.substance = substance;
  values.speciesName.clear();
  values.lipidTarget = values.proteinTarget = 0;
  const int s = m_options.species;
  if (s >= 0 && s < static_cast<int>(input.species.size())) {
    const FishSpecies& species = input.species[s];
    values.speciesName = species.name;
    values.lipidTarget = species.lipid;
    values.proteinTarget = species.protein;
  }
  values.maximum = m_options.criterion != Criterion::Minimum;
  values.criterionText = kMinMaxItems[values.maximum ? 0 : 1];
  values.burden = m_result.burden;
  values.fishmealProtein = values.fishmealLipid = 0;
  const int g = m_options.fishmealGrade;
  if (g >= 0 && g < static_cast<int>(input.fishmeal.size())) {
    values.fishmealProtein = input.fishmeal[g].protein;
    values.fishmealLipid = input.fishmeal[g].lipid;
  }
  const auto fillVariable = [&](int j, ReportVariable& variable) {
    variable.maxInclusion = at(m_problem.maxInclusion, j);
    variable.dryMatter = at(m_problem.dryMatter, j);
    variable.residue = at(m_problem.residue, j);
    variable.share = at(m_result.composition, j);
  };

  // The stored figures of a chosen entry are those of the last available entry with its text,
  // the same match Laden makes.
  const std::vector<ListEntry>& available = input.available;
  LastTextPosition lastPosition;
  lastPosition.build(available, std::min(available.size(), input.working.size()));
  const WorkingSetEntry none;  // the figures of an entry without a match
  const int count = static_cast<int>(m_entries.size());
  values.components.resize(count);
  for (int j = 0; j < count; ++j) {
    const ListEntry& entry = m_entries[j];
    ReportComponent& component = values.components[j];
    fillVariable(j, component);
    component.name = entry.text;
    component.category = entry.kategorie;
    component.basisLabel = basisLabel(entry.artSchadstoffwert);
    const int q = lastPosition.find(entry.text);
    const WorkingSetEntry& stored = q >= 0 ? input.working[q] : none;
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

}  // namespace pescavo
