#include "engine/IndependentCheck.h"

#include <glpk.h>

#include <cmath>

#include "tables/NumericText.h"

namespace pescavo {

namespace {

// The programme as GLPK holds it: three fixed rows and the shares as bounded columns.
class GlpkProgramme {
 public:
  GlpkProgramme(const OptimisationProblem& problem, Criterion criterion) : m_n(problem.n) {
    glp_term_out(GLP_OFF);
    m_lp = glp_create_prob();
    glp_set_obj_dir(m_lp, criterion == Criterion::Maximum ? GLP_MAX : GLP_MIN);
    glp_add_rows(m_lp, 3);
    glp_set_row_name(m_lp, 1, "lipid");
    glp_set_row_name(m_lp, 2, "protein");
    glp_set_row_name(m_lp, 3, "sum");
    glp_set_row_bnds(m_lp, 1, GLP_FX, problem.lipidTarget, problem.lipidTarget);
    glp_set_row_bnds(m_lp, 2, GLP_FX, problem.proteinTarget, problem.proteinTarget);
    glp_set_row_bnds(m_lp, 3, GLP_FX, 1.0, 1.0);
    if (m_n < 1) {
      m_triviallyInfeasible = true;  // no share can sum to 1
      return;
    }
    glp_add_cols(m_lp, m_n);
    std::vector<int> ia(1), ja(1);
    std::vector<double> ar(1);
    auto add = [&](int i, int j, double value) {
      if (value == 0) return;
      ia.push_back(i);
      ja.push_back(j);
      ar.push_back(value);
    };
    for (int j = 1; j <= m_n; ++j) {
      glp_set_obj_coef(m_lp, j, problem.residue[j - 1]);
      const double upper = problem.maxInclusion[j - 1] / 100;
      if (upper > 0) {
        glp_set_col_bnds(m_lp, j, GLP_DB, 0.0, upper);
      } else {
        glp_set_col_bnds(m_lp, j, GLP_FX, 0.0, 0.0);
        if (upper < 0) m_triviallyInfeasible = true;
      }
      add(1, j, problem.lipid[j - 1]);
      add(2, j, problem.protein[j - 1]);
      add(3, j, 1.0);
    }
    glp_load_matrix(m_lp, static_cast<int>(ia.size()) - 1, ia.data(), ja.data(), ar.data());
  }
  ~GlpkProgramme() { glp_delete_prob(m_lp); }
  GlpkProgramme(const GlpkProgramme&) = delete;
  GlpkProgramme& operator=(const GlpkProgramme&) = delete;

  // Sets the starting basis a reported composition implies: shares strictly between their
  // bounds basic, the others at the bound they sit on, rows basic while fewer than three
  // shares are. Only the start changes: GLPK prices and pivots on its own from there, and a
  // start it cannot factorise gives way to its standard basis.
  void startFrom(const OptimisationProblem& problem, const std::vector<double>& percent) {
    constexpr double kAtBound = 1e-9;
    if (m_triviallyInfeasible || static_cast<int>(percent.size()) < m_n) return;
    int basic = 0;
    for (int j = 1; j <= m_n; ++j) {
      const double share = percent[j - 1] / 100;
      int status = GLP_BS;
      if (glp_get_col_type(m_lp, j) == GLP_FX) {
        status = GLP_NS;
      } else if (share <= kAtBound) {
        status = GLP_NL;
      } else if (share >= problem.maxInclusion[j - 1] / 100 - kAtBound) {
        status = GLP_NU;
      }
      basic += status == GLP_BS;
      glp_set_col_stat(m_lp, j, status);
    }
    for (int i = 1; i <= 3; ++i) {
      const bool rowBasic = basic < 3;
      glp_set_row_stat(m_lp, i, rowBasic ? GLP_BS : GLP_NS);
      basic += rowBasic;
    }
    m_warm = true;
  }

  // Later calls start from the basis the earlier ones left.
  GlpkSolution solve(bool exact) {
    GlpkSolution solution;
    if (m_triviallyInfeasible) {
      solution.ran = true;
      return solution;
    }
    glp_smcp parm;
    glp_init_smcp(&parm);
    parm.msg_lev = GLP_MSG_OFF;
    parm.presolve = GLP_OFF;
    int code = exact ? glp_exact(m_lp, &parm) : glp_simplex(m_lp, &parm);
    if (m_warm && (code == GLP_EBADB || code == GLP_ESING || code == GLP_ECOND)) {
      glp_std_basis(m_lp);
      code = exact ? glp_exact(m_lp, &parm) : glp_simplex(m_lp, &parm);
    }
    m_warm = false;
    if (code != 0) return solution;
    const int status = glp_get_status(m_lp);
    if (status == GLP_NOFEAS) {
      solution.ran = true;
    } else if (status == GLP_OPT) {
      solution.ran = true;
      solution.feasible = true;
      solution.optimum = glp_get_obj_val(m_lp);
      solution.composition.resize(m_n);
      for (int j = 1; j <= m_n; ++j) solution.composition[j - 1] = glp_get_col_prim(m_lp, j) * 100;
    }
    return solution;
  }

 private:
  glp_prob* m_lp = nullptr;
  int m_n = 0;
  bool m_triviallyInfeasible = false;
  bool m_warm = false;  // the next solve starts from a basis of our making
};

std::string variableName(const OptimisationProblem& problem, int j) {
  const std::string name = problem.variableName(j);
  return name.empty() ? "variable " + std::to_string(j) : name;
}

// GLPK stops the process on values it cannot take, so they never reach it.
bool allFinite(const OptimisationProblem& p) {
  if (!std::isfinite(p.lipidTarget) || !std::isfinite(p.proteinTarget)) return false;
  const std::size_t n = static_cast<std::size_t>(p.n < 0 ? 0 : p.n);
  if (p.lipid.size() < n || p.protein.size() < n || p.residue.size() < n ||
      p.maxInclusion.size() < n)
    return false;
  for (std::size_t j = 0; j < n; ++j)
    if (!std::isfinite(p.lipid[j]) || !std::isfinite(p.protein[j]) ||
        !std::isfinite(p.residue[j]) || !std::isfinite(p.maxInclusion[j]))
      return false;
  return true;
}

bool burdensAgree(double reported, double truth) {
  return std::fabs(reported - truth) <= kBurdenRelative * std::fabs(truth) + kBurdenAbsolute;
}

bool agreesWith(const CheckResult& check, const GlpkSolution& truth) {
  if (!check.reportedSolvable || !truth.feasible) return check.reportedSolvable == truth.feasible;
  return burdensAgree(check.reportedBurden, truth.optimum) &&
         check.largestViolation.amount <= kConstraintTolerance;
}

void adopt(CheckResult& check, const GlpkSolution& truth) {
  check.trueFeasible = truth.feasible;
  check.trueOptimum = truth.optimum;
  check.trueComposition = truth.composition;
  check.verdict = agreesWith(check, truth) ? CheckVerdict::Agrees : CheckVerdict::Differs;
}

std::string number(double value, char separator) { return fixedForm(value, "0.000", separator); }

std::string percentText(double percent, char separator) {
  if (percent < 0.0005) return "less than " + number(0.001, separator) + " %";
  return number(percent, separator) + " %";
}

std::string missClause(const ConstraintViolation& v, char separator) {
  const std::string by = percentText(v.percent, separator);
  switch (v.kind) {
    case ConstraintKind::Lipid:
      return "its feed misses the crude lipid target by " + by;
    case ConstraintKind::Protein:
      return "its feed misses the crude protein target by " + by;
    case ConstraintKind::Sum:
      return "its shares miss 100 % by " + by;
    case ConstraintKind::MaxInclusion:
      return "its feed exceeds the " + v.constraint + " by " + by;
    case ConstraintKind::NonNegative:
      return "its feed has a negative share of " + v.variableName + " (" + by + " below 0)";
    case ConstraintKind::None:
      break;
  }
  return {};
}

// What an assessor needs to know, without the verdict.
std::string detail(const CheckResult& check, Criterion criterion, char separator) {
  const std::string trueText = std::string("the true ") +
                               (criterion == Criterion::Maximum ? "maximum" : "minimum") + " is " +
                               number(check.trueOptimum, separator) + " mg/kg";
  const bool missing =
      check.reportedSolvable && check.largestViolation.amount > kConstraintTolerance;
  std::string text;
  if (!check.reportedSolvable && !check.trueFeasible) {
    text = "the problem is not solvable";
  } else if (!check.reportedSolvable) {
    text = "the problem is solvable; " + trueText + "; the optimisation ";
    text += check.reportedPivotFailure.empty()
                ? std::string("found it not solvable")
                : "stopped at \"" + check.reportedPivotFailure + "\"";
  } else if (!check.trueFeasible) {
    text = "the problem is not solvable; the optimisation reported " +
           number(check.reportedBurden, separator) + " mg/kg";
  } else {
    text = trueText + "; the optimisation reported " + number(check.reportedBurden, separator) +
           " mg/kg";
  }
  if (missing) text += "; " + missClause(check.largestViolation, separator);
  return text;
}

}  // namespace

GlpkSolution solveWithGlpk(const OptimisationProblem& problem, Criterion criterion, bool exact) {
  if (!allFinite(problem)) return {};
  GlpkProgramme programme(problem, criterion);
  return programme.solve(exact);
}

ConstraintViolation largestViolation(const OptimisationProblem& problem,
                                     const std::vector<double>& compositionPercent) {
  const int n = problem.n;
  std::vector<double> x(n, 0.0);
  for (int j = 0; j < n && j < static_cast<int>(compositionPercent.size()); ++j)
    x[j] = compositionPercent[j] / 100;

  // The texts are made for the worst violation alone: a run checks every bound.
  ConstraintViolation worst;
  double percentFactor = 1;
  auto consider = [&](ConstraintKind kind, int variable, double amount, double factor) {
    if (!(amount > worst.amount)) return;
    worst.kind = kind;
    worst.variable = variable;
    worst.amount = amount;
    percentFactor = factor;
  };

  double lipid = 0, protein = 0, sum = 0;
  for (int j = 0; j < n; ++j) {
    lipid += problem.lipid[j] * x[j];
    protein += problem.protein[j] * x[j];
    sum += x[j];
  }
  consider(ConstraintKind::Lipid, 0, std::fabs(lipid - problem.lipidTarget), 1);
  consider(ConstraintKind::Protein, 0, std::fabs(protein - problem.proteinTarget), 1);
  consider(ConstraintKind::Sum, 0, std::fabs(sum - 1), 100);
  for (int j = 1; j <= n; ++j) {
    const double share = x[j - 1];
    consider(ConstraintKind::MaxInclusion, j, share - problem.maxInclusion[j - 1] / 100, 100);
    consider(ConstraintKind::NonNegative, j, -share, 100);
  }
  worst.percent = worst.amount * percentFactor;
  switch (worst.kind) {
    case ConstraintKind::None:
      break;
    case ConstraintKind::Lipid:
      worst.constraint = "crude lipid";
      break;
    case ConstraintKind::Protein:
      worst.constraint = "crude protein";
      break;
    case ConstraintKind::Sum:
      worst.constraint = "sum of shares";
      break;
    case ConstraintKind::MaxInclusion:
      worst.variableName = variableName(problem, worst.variable);
      worst.constraint = "maximum inclusion of " + worst.variableName;
      break;
    case ConstraintKind::NonNegative:
      worst.variableName = variableName(problem, worst.variable);
      worst.constraint = "share of " + worst.variableName;
      break;
  }
  return worst;
}

CheckResult checkOptimum(const OptimisationProblem& problem, Criterion criterion,
                         const OptimisationResult& result) {
  CheckResult check;
  check.reportedSolvable = result.solvable;
  check.reportedBurden = result.burden;
  check.reportedPivotFailure = result.pivotFailure;
  if (!allFinite(problem)) {
    check.failure = "the programme holds a value that is not a number";
    return check;
  }
  // A run that is not solvable leaves the composition of an earlier run behind.
  if (result.solvable) check.largestViolation = largestViolation(problem, result.composition);
  GlpkProgramme programme(problem, criterion);
  if (result.solvable) programme.startFrom(problem, result.composition);
  const GlpkSolution fast = programme.solve(false);
  if (fast.ran) {
    adopt(check, fast);
    if (check.verdict == CheckVerdict::Agrees) return check;
  }
  // Never report a disagreement on the word of floating-point pivoting alone.
  const GlpkSolution exact = programme.solve(true);
  if (!exact.ran) {
    check.verdict = CheckVerdict::CouldNotRun;
    check.failure = "GLPK found no answer";
    return check;
  }
  adopt(check, exact);
  check.exactConfirmed = true;
  return check;
}

std::string mainWindowSentence(const CheckResult& check, Criterion criterion,
                               char decimalSeparator) {
  switch (check.verdict) {
    case CheckVerdict::Agrees:
      return "Independent check: agrees.";
    case CheckVerdict::CouldNotRun:
      return "Independent check: could not run.";
    case CheckVerdict::Differs:
      break;
  }
  return "Independent check: " + detail(check, criterion, decimalSeparator) + ".";
}

std::string cliLine(const CheckResult& check, Criterion criterion, char decimalSeparator) {
  switch (check.verdict) {
    case CheckVerdict::Agrees:
      return "Independent check: agrees: " + detail(check, criterion, decimalSeparator);
    case CheckVerdict::Differs:
      return "Independent check: differs: " + detail(check, criterion, decimalSeparator);
    case CheckVerdict::CouldNotRun:
      break;
  }
  return "Independent check: could not run: " + check.failure;
}

std::string verdictCell(const CheckResult& check) {
  switch (check.verdict) {
    case CheckVerdict::Agrees:
      return "agrees";
    case CheckVerdict::Differs:
      return "differs";
    case CheckVerdict::CouldNotRun:
      break;
  }
  return "not checked";
}

std::string verdictTooltip(const CheckResult& check, Criterion criterion, char decimalSeparator) {
  switch (check.verdict) {
    case CheckVerdict::Agrees:
      return "Agrees with an independent LP solver: " + detail(check, criterion, decimalSeparator) +
             ".";
    case CheckVerdict::Differs:
      return "Differs from an independent LP solver: " +
             detail(check, criterion, decimalSeparator) + ".";
    case CheckVerdict::CouldNotRun:
      break;
  }
  return "The independent check could not run: " + check.failure + ".";
}

std::string trueOptimumCell(const CheckResult& check, char decimalSeparator) {
  if (check.verdict == CheckVerdict::CouldNotRun) return "";
  if (!check.trueFeasible) return "not solvable";
  return number(check.trueOptimum, decimalSeparator);
}

void endCheckThread() { glp_free_env(); }

}  // namespace pescavo
