#include "reports/ReportValues.h"

namespace pescavo {

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
