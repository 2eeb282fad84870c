#include "support/RandomProblems.h"

#include "engine/Simplex.h"

namespace pescavo::testing {

OptimisationProblem feed(std::vector<std::array<double, 4>> v, double lipidTarget,
                         double proteinTarget, int pseudo) {
  OptimisationProblem p;
  p.chosenCount = static_cast<int>(v.size());
  p.kind.assign(v.size(), VariableKind::Component);
  p.name.assign(v.size(), std::string());
  const auto addPseudo = [&](VariableKind kind, std::array<double, 4> values) {
    v.push_back(values), p.kind.push_back(kind), p.name.push_back(pseudoComponentName(kind));
  };
  if (pseudo & 1) addPseudo(VariableKind::PC, {10, 65, 0, 100});
  if (pseudo & 2) addPseudo(VariableKind::CC, {0.1, 0.1, 0, 100});
  if (pseudo & 4) addPseudo(VariableKind::F, {100, 0, 0, 100});
  for (const auto& c : v)
    p.lipid.push_back(c[0]), p.protein.push_back(c[1]), p.residue.push_back(c[2]),
        p.maxInclusion.push_back(c[3]);
  p.n = static_cast<int>(v.size()), p.unitOrder = p.n + 2;
  p.lipidTarget = lipidTarget, p.proteinTarget = proteinTarget;
  return p;
}

OptimisationResult solve(const OptimisationProblem& problem, Criterion criterion) {
  SimplexTableau tableau;
  OptimisationResult result;
  Rechnen(problem, criterion, tableau, result);
  return result;
}

RandomProblem RandomProblems::next(int n) {
  RandomProblem made{{}, chance(0.5) ? Criterion::Maximum : Criterion::Minimum};
  OptimisationProblem& p = made.problem;
  const auto add = [&p](VariableKind kind, std::string name, double lipid, double protein,
                        double residue, double maxInclusion, double dryMatter) {
    p.lipid.push_back(lipid), p.protein.push_back(protein), p.residue.push_back(residue);
    p.maxInclusion.push_back(maxInclusion), p.dryMatter.push_back(dryMatter);
    p.kind.push_back(kind), p.name.push_back(std::move(name));
  };
  const bool trout = chance(0.5), mrbd = chance(0.5), allPseudo = chance(0.4);
  p.lipidTarget = trout ? 15 : 8, p.proteinTarget = trout ? 42 : 35;
  const bool pc = n > 1 && (allPseudo || chance(0.5));
  const bool cc = n > 1 + pc && (allPseudo || chance(0.5));
  const bool f = n > 1 + pc + cc && (allPseudo || chance(0.5));
  p.n = n, p.chosenCount = n - pc - cc - f, p.unitOrder = 200;
  for (int j = 1; j <= p.chosenCount; ++j) {
    const double kind = uniform(0, 1);
    const bool oil = kind < 0.08, meal = !oil && kind < 0.16;
    double lipid = rounded(oil ? uniform(98.5, 99.9) : meal ? uniform(5, 12) : uniform(0.5, 25));
    double protein = rounded(oil ? uniform(0, 0.5) : meal ? uniform(60, 72) : uniform(2, 60));
    if (j > 1 && chance(0.1)) lipid = p.lipid.back(), protein = p.protein.back();
    if (chance(0.05)) lipid = p.lipidTarget;
    if (chance(0.05)) protein = p.proteinTarget;
    const double residue = chance(0.25) ? 0.0 : std::round(uniform(0.01, 5) * 100) / 100;
    const double limit = mrbd ? 5.0 * integer(1, 20) : 100.0;  // drawn before dry matter
    add(VariableKind::Component, "Component " + std::to_string(j), lipid, protein, residue, limit,
        rounded(uniform(85, 95)));
    p.residueSum += residue;
  }
  if (p.residueSum == 0) p.residue[0] = p.residueSum = 0.5;  // the callers refuse such runs
  for (int j = 0; j < p.chosenCount; ++j) p.residue[j] = p.residue[j] / p.dryMatter[j] * 100;
  static const double grades[][2] = {{8, 70}, {10, 65}, {9.5, 64}, {12, 60}, {7, 72}};
  const int grade = pc ? integer(0, 4) : 0;
  if (pc) add(VariableKind::PC, "PC", grades[grade][0], grades[grade][1], 0, 100, 0);
  if (cc) add(VariableKind::CC, "CC", 0.1, 0.1, 0, 100, 0);
  if (f) add(VariableKind::F, "F", 100, 0, 0, 100, 0);
  return made;
}

}  // namespace pescavo::testing
