#include "model/Explanation.h"

#include <algorithm>
#include <cmath>

#include "model/FeedRun.h"
#include "tables/NumericText.h"

namespace pescavo {

namespace {

const char* const kHeaders[5] = {"Constraint", "Binding", "Limit %", "Rate mg/kg per %", "Range %"};

// Limits and ranges to two decimals, without trailing zeros: "20 %", "23.45 %".
std::string percent(double value, char separator) {
  return generalForm(std::round(value * 100) / 100, separator);
}

// A rate too small for three decimals is still named, never shown as nothing.
std::string rateText(double value, char separator) {
  if (value != 0 && std::fabs(value) < 0.0005)
    return "less than " + fixedForm(0.001, "0.000", separator);
  return fixedForm(value, "0.000", separator);
}

std::string burden(double value, char separator) { return fixedForm(value, "0.000", separator); }

std::string criterionWord(Criterion criterion) {
  return criterion == Criterion::Maximum ? "maximum" : "minimum";
}

std::string rangeText(const LimitSensitivity& limit, const char* what, char separator) {
  const std::string from = percent(limit.lowest, separator) + " %";
  if (std::isinf(limit.highest))
    return " (while " + std::string(what) + " stays at " + from + " or more)";
  return " (while " + std::string(what) + " stays between " + from + " and " +
         percent(limit.highest, separator) + " %)";
}

// "each further percent would raise the burden by 0.004 mg/kg", or what holds instead where
// the limit cannot rise: a target no feed of these components meets, a maximum of 100 %.
std::string effect(const LimitSensitivity& limit, const char* what, char separator) {
  constexpr double kRoom = 1e-9;
  const auto by = [&](double change) {
    if (change == 0) return std::string("leave the burden as it is");
    return std::string(change > 0 ? "raise" : "lower") + " the burden by " +
           rateText(std::fabs(change), separator) + " mg/kg";
  };
  if (limit.highest > limit.limit + kRoom)
    return "each further percent would " + by(limit.rate) + rangeText(limit, what, separator);
  if (limit.lowest < limit.limit - kRoom)
    return "it cannot rise with these components; each percent less would " + by(-limit.rate) +
           " (down to " + percent(limit.lowest, separator) + " %)";
  return "with these components it can be neither higher nor lower";
}

std::string bindingSentence(const ExplanationLine& line, char separator) {
  const LimitSensitivity& limit = line.limit;
  const std::string value = percent(limit.limit, separator) + " %";
  std::string opening;
  const char* what = "the target";
  switch (limit.kind) {
    case LimitKind::MaxInclusion:
      opening = line.constraint + " is at its maximum of " + value;
      what = "the maximum";
      break;
    case LimitKind::Lipid:
      opening = "The feed must hold " + value + " crude lipid in its dry matter";
      break;
    case LimitKind::Protein:
      opening = "The feed must hold " + value + " crude protein in its dry matter";
      break;
    case LimitKind::Sum:
      opening = "The shares add up to " + value;
      what = "the sum";
      break;
  }
  return opening + ": " + effect(limit, what, separator) + ".";
}

std::string names(const std::vector<std::string>& list) {
  std::string text;
  for (std::size_t k = 0; k < list.size(); ++k)
    text += (k == 0 ? "" : k + 1 == list.size() ? " and " : ", ") + list[k];
  return text;
}

std::string opening(const Explanation& e, char separator) {
  const std::string truth =
      "the true " + criterionWord(e.criterion) + " is " + burden(e.optimum, separator) + " mg/kg";
  const std::string which = "; what follows explains the true " + criterionWord(e.criterion) + ".";
  if (e.reportDiffers && e.reportedSolvable)
    return "The optimisation reported " + burden(e.reportedBurden, separator) + " mg/kg, but " +
           truth + which;
  if (e.reportDiffers) return "The optimisation found no result, but " + truth + which;
  return "The " + criterionWord(e.criterion) + " dietary burden is " +
         burden(e.optimum, separator) + " mg/kg.";
}

// Characters on screen, not bytes: display texts may hold accented letters.
std::size_t shownWidth(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
  }));
}

std::vector<std::string> tableCells(const ExplanationLine& line, char separator) {
  const LimitSensitivity& l = line.limit;
  std::string range = percent(l.lowest, separator) + " to ";
  range += std::isinf(l.highest) ? std::string("unlimited") : percent(l.highest, separator);
  return {line.constraint, l.binding ? "yes" : "no", percent(l.limit, separator),
          fixedForm(l.rate, "0.0000", separator), range};
}

}  // namespace

Explanation explainOptimum(const OptimisationProblem& problem, Criterion criterion,
                           const OptimisationResult& reported, const CheckResult& check) {
  Explanation e;
  e.criterion = criterion;
  e.reportedSolvable = reported.solvable;
  e.reportedBurden = reported.burden;
  const Sensitivity s = analyseSensitivity(
      problem, criterion, reported.solvable ? reported.composition : std::vector<double>());
  if (!s.solved) return e;
  e.available = true;
  e.optimum = s.optimum;
  e.reportDiffers = check.verdict == CheckVerdict::Differs;
  for (const LimitSensitivity& limit : s.limits) {
    std::string name;
    switch (limit.kind) {
      case LimitKind::Lipid:
        name = "lipid";
        break;
      case LimitKind::Protein:
        name = "protein";
        break;
      case LimitKind::Sum:
        name = "sum";
        break;
      case LimitKind::MaxInclusion:
        name = problem.variableName(limit.variable);
        break;
    }
    e.lines.push_back({name, limit});
  }
  return e;
}

Explanation explainRun(const FeedRun& run) {
  if (!run.solverRan()) return Explanation();
  return explainOptimum(run.problem(), run.options().criterion, run.result(), run.check());
}

std::string explanationTsv(const Explanation& e, char separator) {
  std::string text = "constraint\tbinding\tlimit\trate\tfrom\tto\n";
  const auto number = [separator](double value) {
    return std::isinf(value) ? std::string() : generalForm(value, separator);
  };
  for (const ExplanationLine& line : e.lines) {
    const LimitSensitivity& l = line.limit;
    text += line.constraint + '\t' + (l.binding ? "yes" : "no") + '\t' + number(l.limit) + '\t' +
            number(l.rate) + '\t' + number(l.lowest) + '\t' + number(l.highest) + '\n';
  }
  return text;
}

std::string explanationTable(const Explanation& e, char separator) {
  std::vector<std::vector<std::string>> rows = {{std::begin(kHeaders), std::end(kHeaders)}};
  for (const ExplanationLine& line : e.lines) rows.push_back(tableCells(line, separator));
  std::vector<std::size_t> widths(5, 0);
  for (const auto& row : rows)
    for (std::size_t c = 0; c < row.size(); ++c)
      widths[c] = std::max(widths[c], shownWidth(row[c]));
  std::string text;
  for (const auto& row : rows) {
    std::string line;
    for (std::size_t c = 0; c < row.size(); ++c) {
      const std::string pad(widths[c] - shownWidth(row[c]), ' ');
      // Names and words to the left, figures to the right.
      line += c < 2 ? row[c] + pad : pad + row[c];
      if (c + 1 < row.size()) line += "  ";
    }
    text += line + '\n';
  }
  return text;
}

std::vector<std::string> explanationSentences(const Explanation& e, char separator) {
  if (!e.available) return {"There is no optimum to explain."};
  std::vector<std::string> sentences = {opening(e, separator)};
  std::vector<std::string> free;
  for (const ExplanationLine& line : e.lines) {
    if (line.limit.binding)
      sentences.push_back(bindingSentence(line, separator));
    else
      free.push_back(line.constraint);
  }
  if (!free.empty())
    sentences.push_back(
        names(free) + (free.size() == 1 ? " stays" : " stay") + " below " +
        (free.size() == 1 ? "its" : "their") + " maximum: a little more or less of " +
        (free.size() == 1 ? "that maximum" : "those maxima") + " would not change the burden.");
  return sentences;
}

std::string explanationText(const Explanation& e, char separator) {
  std::string text;
  for (const std::string& sentence : explanationSentences(e, separator)) text += sentence + '\n';
  if (e.available) text += '\n' + explanationTable(e, separator);
  return text;
}

}  // namespace pescavo
