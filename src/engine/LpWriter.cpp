#include "engine/LpWriter.h"

#include <cmath>
#include <cstdio>

namespace pescavo {

namespace {

constexpr std::size_t kNameLength = 48;
constexpr int kTermsPerLine = 4;

std::string roundTrip(double value) {
  char buffer[40];
  std::snprintf(buffer, sizeof buffer, "%.17g", value);
  return buffer;
}

// One linear form; every variable is written, zeros included, so that readers number the
// columns in our order.
std::string linearForm(const std::vector<double>& coefficients,
                       const std::vector<std::string>& lpNames) {
  std::string text;
  for (std::size_t j = 0; j < lpNames.size(); ++j) {
    const double c = coefficients.empty() ? 1.0 : coefficients[j];
    if (j > 0) text += (j % kTermsPerLine == 0) ? "\n   " : " ";
    if (std::signbit(c) && c != 0)
      text += j == 0 ? "-" : "- ";
    else if (j > 0)
      text += "+ ";
    text += roundTrip(std::fabs(c)) + " " + lpNames[j];
  }
  return text;
}

}  // namespace

std::string lpVariableName(int j, const std::string& name) {
  std::string result = "x" + std::to_string(j);
  bool pendingUnderscore = true;
  for (unsigned char ch : name) {
    const bool keep =
        (ch >= 'A' && ch <= 'Z') || (ch >= 'a' && ch <= 'z') || (ch >= '0' && ch <= '9');
    if (!keep) {
      pendingUnderscore = true;
      continue;
    }
    if (result.size() >= kNameLength) break;
    if (pendingUnderscore) result += '_';
    pendingUnderscore = false;
    result += static_cast<char>(ch);
  }
  return result;
}

std::string writeLp(const OptimisationProblem& problem, Criterion criterion) {
  const int n = problem.n;
  std::vector<std::string> names;
  for (int j = 1; j <= n; ++j) names.push_back(lpVariableName(j, problem.variableName(j)));

  std::string lp = "\\ Dietary burden of the feed, mg/kg of dry matter; shares are fractions\n";
  lp += criterion == Criterion::Maximum ? "Maximize\n" : "Minimize\n";
  lp += " burden: " + linearForm(problem.residue, names) + "\n";
  lp += "Subject To\n";
  lp +=
      " lipid: " + linearForm(problem.lipid, names) + " = " + roundTrip(problem.lipidTarget) + "\n";
  lp += " protein: " + linearForm(problem.protein, names) + " = " +
        roundTrip(problem.proteinTarget) + "\n";
  lp += " sum: " + linearForm({}, names) + " = 1\n";
  lp += "Bounds\n";
  for (int j = 1; j <= n; ++j)
    lp += " 0 <= " + names[j - 1] + " <= " + roundTrip(problem.maxInclusion[j - 1] / 100) + "\n";
  lp += "End\n";
  return lp;
}

}  // namespace pescavo
