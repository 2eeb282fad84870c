#include "reports/ReportValues.h"

#include <algorithm>
#include <string_view>

#include "engine/MainWindowModel.h"
#include "tables/NumericText.h"
#include "tables/TextIndex.h"

namespace pescavo {

namespace {

double at(const std::vector<double>& values, int index) {
  return index >= 0 && index < static_cast<int>(values.size()) ? values[index] : 0.0;
}

void fillVariable(const MainWindowModel& model, int index, ReportVariable& variable) {
  variable.maxInclusion = at(model.problem.maxInclusion, index);
  variable.dryMatter = at(model.problem.dryMatter, index);
  variable.residue = at(model.problem.residue, index);
  variable.share = at(model.result.composition, index);
}

std::string basisLabel(std::string_view code) {
  // The codes are "0" and "1" nearly always; anything else is read as a number.
  if (code == "0") return MainWindowModel::kBasisItems[0];
  if (code == "1") return MainWindowModel::kBasisItems[1];
  const double value = leadingNumber(code);
  if (value == 0) return MainWindowModel::kBasisItems[0];
  if (value == 1) return MainWindowModel::kBasisItems[1];
  return std::string();
}

}  // namespace

ReportValues ReportValues::from(const MainWindowModel& model) {
  ReportValues values;
  values.fill(model);
  return values;
}

// Every field is set, over whatever an earlier fill left; strings are assigned in place.
void ReportValues::fill(const MainWindowModel& model) {
  substance = model.substanceName();
  speciesName.clear();
  lipidTarget = proteinTarget = 0;
  if (model.fischarten >= 0 && model.fischarten < static_cast<int>(model.species.size())) {
    const FishSpecies& species = model.species[model.fischarten];
    speciesName = species.name;
    lipidTarget = species.lipid;
    proteinTarget = species.protein;
  }
  maximum = model.minMax != 1;
  criterionText = MainWindowModel::kMinMaxItems[maximum ? 0 : 1];
  burden = model.result.burden;
  fishmealProtein = fishmealLipid = 0;
  if (model.fischmehl >= 0 && model.fischmehl < static_cast<int>(model.fishmeal.size())) {
    fishmealProtein = model.fishmeal[model.fischmehl].protein;
    fishmealLipid = model.fishmeal[model.fischmehl].lipid;
  }

  // The stored figures of a chosen entry are those of the last available entry with its text,
  // the same match the problem set-up makes.
  const int available =
      static_cast<int>(std::min(model.fischfutter1.size(), model.workingSet.size()));
  LastTextPosition lastPosition;
  lastPosition.build(model.fischfutter1, available);

  const int count = static_cast<int>(model.fischfutter2.size());
  const WorkingSetEntry none;  // the figures of an entry without a match
  components.resize(count);
  for (int p = 0; p < count; ++p) {
    const ListEntry& entry = model.fischfutter2[p];
    ReportComponent& component = components[p];
    fillVariable(model, p, component);
    component.name = entry.text;
    component.category = entry.kategorie;
    component.basisLabel = basisLabel(entry.artSchadstoffwert);
    const int q = lastPosition.find(entry.text);
    const WorkingSetEntry& stored = q >= 0 ? model.workingSet[q] : none;
    component.protein = stored.protein;
    component.lipid = stored.lipid;
    component.storedResidue = stored.residue;
  }

  pseudos.clear();
  std::vector<PseudoKind> enabled;
  if (model.check1) enabled.push_back(PseudoKind::PC);
  if (model.check4) enabled.push_back(PseudoKind::CC);
  if (model.check5) enabled.push_back(PseudoKind::F);
  // The k-th enabled pseudo-component is LP variable n - m + k.
  const int n = model.problem.n;
  const int m = static_cast<int>(enabled.size());
  for (int k = 1; k <= m; ++k) {
    ReportPseudo pseudo;
    pseudo.kind = enabled[k - 1];
    fillVariable(model, n - m + k - 1, pseudo);
    pseudo.dryMatter = 0;
    pseudos.push_back(pseudo);
  }
}

double loadShare(const ReportVariable& variable, double burdenSum) {
  if (burdenSum == 0) return 0;
  return variable.residue * variable.share / burdenSum * 100;
}

double burdenSum(const ReportValues& values) {
  double sum = 0;
  for (const ReportComponent& component : values.components)
    sum = sum + component.residue * component.share;
  for (const ReportPseudo& pseudo : values.pseudos) sum = sum + pseudo.residue * pseudo.share;
  return sum;
}

}  // namespace pescavo
