#include "reports/ReportText.h"

#include <algorithm>
#include <cstring>
#include <filesystem>

#include "engine/MainWindowModel.h"
#include "reports/Credits.h"
#include "reports/ReportValues.h"
#include "reports/ResultTables.h"
#include "reports/RtfWriter.h"
#include "reports/TextAppender.h"
#include "reports/TextFiles.h"
#include "tables/NumericText.h"

namespace pescavo {

namespace {

const std::string kDashRule(70, '-');

// The four places a pseudo-component is named; the label spellings differ on purpose.
enum class PseudoLine { MaxContent, DryMatterResidue, Composition, Load };

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
    pseudoLines(PseudoLine::MaxContent);
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
    pseudoLines(PseudoLine::DryMatterResidue);
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
    pseudoLines(PseudoLine::Composition);
    m_burdenSum = burdenSum(v);
    line();
    line();
    line("The dietary load of ", v.substance, " caused by the individual components is:");
    for (const ReportComponent& c : v.components)
      line(" ", c.name, "\t", Figure{loadShare(c, m_burdenSum), "0.00"}, "%");
    pseudoLines(PseudoLine::Load);
    return m_burdenSum;
  }

  void pseudoLines(PseudoLine kind) {
    for (const ReportPseudo& pseudo : m_values.pseudos) {
      put(" ");
      pseudoLabel(pseudo.kind, kind);
      switch (kind) {
        case PseudoLine::MaxContent:
          line(Figure{100, "0.00"}, "%");
          break;
        case PseudoLine::DryMatterResidue:
          line(Figure{0, "0.000"}, " mg/kg.");
          break;
        case PseudoLine::Composition:
          line(Figure{pseudo.share, "0.00"}, "%");
          break;
        case PseudoLine::Load:
          line(Figure{loadShare(pseudo, m_burdenSum), "0.00"}, "%");
          break;
      }
    }
  }

  // The name and what separates it from the figure.
  void pseudoLabel(PseudoKind pseudo, PseudoLine kind) {
    // By pseudo-component (CC, F) and list, in PseudoLine's order.
    static const char* const kLabels[2][4] = {
        {"CC (0.1% protein,0.1 % lipid) ", "CC (0.1% protein, 0.1% lipid )\t",
         "CC (0.1% protein, 0.1% lipid)\t", "CC (0.1 % protein, 0.1% lipid)\t"},
        {"F (100 % lipid) ", "F (100% lipid )\t", "F(100% lipid)\t", "F (100% lipid)\t"}};
    if (pseudo == PseudoKind::PC) {
      put("Fish meal (");
      put(Figure{m_values.fishmealProtein, "0.00"});
      put("% protein, ");
      put(Figure{m_values.fishmealLipid, "0.00"});
      put(kind == PseudoLine::MaxContent ? "% lipid) " : "% lipid)\t");
      return;
    }
    const char* const label = kLabels[pseudo == PseudoKind::CC ? 0 : 1][static_cast<int>(kind)];
    m_out.append(label, std::strlen(label));
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

std::string reportFile(const MainWindowModel& model, const char* name) {
  return (std::filesystem::path(model.report.reportFolder) / name).string();
}

void writeScenarioFiles(MainWindowModel& model) {
  ReportState& report = model.report;
  try {
    txt_AppendLine(reportTxtPath(model), report.bericht);
  } catch (const ReportFileError& error) {
    reportFileFailure(model, error.what());
  }
  try {
    RtfWriter::save(reportRtfPath(model), RtfWriter::document(report.richText));
  } catch (const ReportFileError& error) {
    reportFileFailure(model, error.what());
  }
}

}  // namespace

std::string titleBlock(const std::string& substance) { return block(substance, "\r\n\r\n\r\n"); }

std::string headerBlock(const std::string& substance) { return block(substance, "\r\n\r\n"); }

double appendReportSection(const ReportValues& values, char decimalSeparator, std::string& out) {
  return SectionWriter(values, decimalSeparator, out).write();
}

void Berichtschreiben(MainWindowModel& model) {
  ReportState& report = model.report;
  ReportValues& values = report.values;
  values.fill(model);
  if (!model.allScenariosMode) report.bericht += titleBlock(values.substance);
  report.burdenSum = appendReportSection(values, model.decimalSeparator, report.bericht);

  if (!model.allScenariosMode) {
    report.ergebnisGrid = compositionTable(model);
    report.mainWindowEnabled = false;
    return;
  }
  // Filled in place: the texts keep their storage from run to run.
  report.berichtNeu.clear();
  report.berichtNeu += titleBlock(values.substance);
  report.berichtNeu += report.bericht;
  report.richText = report.bericht;
  writeScenarioFiles(model);
  report.bericht.clear();
}

std::string reportTxtPath(const MainWindowModel& model) { return reportFile(model, "Report.txt"); }

std::string reportRtfPath(const MainWindowModel& model) { return reportFile(model, "Report.rtf"); }

void reportFileFailure(MainWindowModel& model, const std::string& message) {
  std::vector<std::string>& shown = model.report.fileFailuresShown;
  if (std::find(shown.begin(), shown.end(), message) != shown.end()) return;
  shown.push_back(message);
  model.dialogs.information(message);
}

}  // namespace pescavo
