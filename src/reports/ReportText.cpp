#include "reports/ReportText.h"

#include <algorithm>
#include <cstring>
#include <filesystem>

#include "reports/Credits.h"
#include "reports/PseudoLabels.h"
#include "reports/ReportValues.h"
#include "reports/TextAppender.h"
#include "tables/NumericText.h"

namespace pescavo {

namespace {

const std::string kDashRule(70, '-');

// A figure written in place with the report's decimal separator.
struct Figure {
  double value;
  const char* format;
};

class SectionWriter {
 public:
  SectionWriter(const ReportValues& values, char separator, std::string& out)
      : m_values(values),
        m_separator(separator),
        m_out(out, 512 + 320 * (values.components.size() + values.pseudos.size())) {}

  double write() {
    writeInput();
    const double sum = writeResults();
    m_out.finish();
    return sum;
  }

 private:
  template <std::size_t N>
  void put(const char (&text)[N]) {
    m_out.append(text);
  }
  void put(const std::string& text) { m_out.append(text); }
  void put(const Figure& figure) {
    char* const room = m_out.room(kFixedFormRoom);
    if (const std::size_t length = writeFixedForm(room, figure.value, figure.format, m_separator))
      m_out.commit(room + length);
    else
      put(fixedForm(figure.value, figure.format, m_separator));
  }

  template <typename... Pieces>
  void line(const Pieces&... pieces) {
    (put(pieces), ...);
    put("\r\n");
  }

  void writeInput() {
    const ReportValues& v = m_values;
    line("INPUT");
    line("=====");
    line();
    line("Target content for ", v.speciesName, ":");
    line(" Crude fat\t", Figure{v.lipidTarget, "0.00"}, "%");
    line(" Crude protein\t", Figure{v.proteinTarget, "0.00"}, "%");
    line();
    line("Maximum principal content of components in the diet:");
    for (const ReportComponent& c : v.components)
      line(" ", c.name, "\t", Figure{c.maxInclusion, "0.00"}, "%");
    pseudoLines(LabelPlace::MaxContent);
    line();
    line("Percent dry matter of components:");
    for (const ReportComponent& c : v.components) {
      if (c.dryMatter == 0)
        line(" ", c.name, "\t-");
      else
        line(" ", c.name, "\t", Figure{c.dryMatter, "0.0"}, "%");
    }
    line();
    line(v.substance, " residues in the components:");
    for (const ReportComponent& c : v.components) {
      const double asEntered = c.dryMatter != 0 ? c.residue * c.dryMatter / 100 : c.residue;
      line(" ", c.name, "\t", Figure{asEntered, "0.000"}, " mg/kg (", c.basisLabel, ")");
    }
    line();
    line();
    line(v.substance, " residues in the components (dry matter):");
    for (const ReportComponent& c : v.components)
      line(" ", c.name, "\t", Figure{c.residue, "0.000"}, " mg/kg (", c.basisLabel,
           " \\dry matter)");
    pseudoLines(LabelPlace::DryMatterResidue);
    line();
    line();
  }

  double writeResults() {
    const ReportValues& v = m_values;
    line("RESULTS");
    line("=======");
    line();
    line(v.criterionText, " dietary burden based on ", v.substance, " is ",
         Figure{v.burden, "0.000"}, " mg/kg (dry matter).");
    line();
    line("The respective composition of the feed is:");
    for (const ReportComponent& c : v.components)
      line(" ", c.name, "\t", Figure{c.share, "0.00"}, "%");
    pseudoLines(LabelPlace::Composition);
    m_burdenSum = burdenSum(v);
    line();
    line();
    line("The dietary load of ", v.substance, " caused by the individual components is:");
    for (const ReportComponent& c : v.components)
      line(" ", c.name, "\t", Figure{loadShare(c, m_burdenSum), "0.00"}, "%");
    pseudoLines(LabelPlace::Load);
    return m_burdenSum;
  }

  void pseudoLines(LabelPlace place) {
    for (const ReportPseudo& pseudo : m_values.pseudos) {
      put(" ");
      pseudoLabel(pseudo.kind, place);
      switch (place) {
        case LabelPlace::MaxContent:
          line(Figure{100, "0.00"}, "%");
          break;
        case LabelPlace::DryMatterResidue:
          line(Figure{0, "0.000"}, " mg/kg.");
          break;
        case LabelPlace::Composition:
          line(Figure{pseudo.share, "0.00"}, "%");
          break;
        case LabelPlace::Load:
          line(Figure{loadShare(pseudo, m_burdenSum), "0.00"}, "%");
          break;
        case LabelPlace::TableCategory:
        case LabelPlace::Chart:
          break;
      }
    }
  }

  // The name and what separates it from the figure.
  void pseudoLabel(VariableKind pseudo, LabelPlace place) {
    if (pseudo != VariableKind::PC) {
      const char* const label = pescavo::pseudoLabel(pseudo, place);
      m_out.append(label, std::strlen(label));
      return;
    }
    put("Fish meal (");
    put(Figure{m_values.fishmealProtein, "0.00"});
    put("% protein, ");
    put(Figure{m_values.fishmealLipid, "0.00"});
    const char* const end = fishmealLabelEnd(place);
    m_out.append(end, std::strlen(end));
  }

  const ReportValues& m_values;
  char m_separator;
  TextAppender m_out;
  double m_burdenSum = 0;
};

std::string block(const std::string& substance, const char* ending) {
  std::string text = kDashRule;
  text += "\r\n\r\nPescavo concerning ";
  text += substance;
  text += kCrLf;
  text += kCreditLine;
  text += "\r\n(Version: ";
  text += kBuildDate;
  text += ")\r\n\r\n";
  text += kDashRule;
  text += ending;
  return text;
}

}  // namespace

std::string titleBlock(const std::string& substance) { return block(substance, "\r\n\r\n\r\n"); }

std::string headerBlock(const std::string& substance) { return block(substance, "\r\n\r\n"); }

double appendReportSection(const ReportValues& values, char decimalSeparator, std::string& out) {
  return SectionWriter(values, decimalSeparator, out).write();
}

}  // namespace pescavo
