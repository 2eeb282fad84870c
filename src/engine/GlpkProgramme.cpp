#include "engine/GlpkProgramme.h"

#include <glpk.h>

#include <cmath>

namespace pescavo {

bool GlpkProgramme::accepts(const OptimisationProblem& p) {
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

GlpkProgramme::GlpkProgramme(const OptimisationProblem& problem, Criterion criterion)
    : m_n(problem.n) {
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
GlpkProgramme::~GlpkProgramme() { glp_delete_prob(m_lp); }

void GlpkProgramme::startFrom(const OptimisationProblem& problem,
                              const std::vector<double>& percent) {
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

GlpkSolution GlpkProgramme::solve(bool exact) {
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

}  // namespace pescavo
