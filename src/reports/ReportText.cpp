#include "reports/ReportText.h"

#include <algorithm>
#include <filesystem>
#include <initializer_list>
#include <string_view>

#include "engine/MainWindowModel.h"
#include "reports/Credits.h"
#include "reports/ReportValues.h"
#include "reports/ResultTables.h"
#include "reports/RtfWriter.h"
#include "reports/TextFiles.h"
#include "tables/NumericText.h"

namespace pescavo {

namespace {

const std::string kDashRule(70, '-');

// The four places a pseudo-component is named; the label spellings differ on purpose.
enum class PseudoLine { MaxContent, DryMatterResidue, Composition, Load };

class SectionWriter {
 public:
  SectionWriter(const ReportValues& values, char separator, std::string& out)
      : m_values(values),
        m_separator(separator),
        m_out(out),
        m_hundred(fixed(100, "0.00")),
        m_zero(fixed(0, "0.000")),
        m_fishmealLabel("Fish meal (" + fixed(values.fishmealProtein, "0.00") + "% protein, " +
                        fixed(values.fishmealLipid, "0.00") + "% lipid)") {}

  double write() {
    writeInput();
    return writeResults();
  }

 private:
  std::string fixed(double value, const char* format) const {
    return fixedForm(value, format, m_separator);
  }

  // Pieces are appended in place: the report of a large feed has hundreds of lines.
  void line(std::initializer_list<std::string_view> pieces) {
    for (std::string_view piece : pieces) m_out += piece;
    m_out += kCrLf;
  }

  void writeInput() {
    const ReportValues& v = m_values;
    m_out.reserve(m_out.size() + 512 + 300 * (v.components.size() + v.pseudos.size()));
    line({"INPUT"});
    line({"====="});
    line({});
    line({"Target content for ", v.speciesName, ":"});
    line({" Crude fat\t", fixed(v.lipidTarget, "0.00"), "%"});
    line({" Crude protein\t", fixed(v.proteinTarget, "0.00"), "%"});
    line({});
    line({"Maximum principal content of components in the diet:"});
    for (const ReportComponent& c : v.components)
      line({" ", c.name, "\t", fixed(c.maxInclusion, "0.00"), "%"});
    pseudoLines(PseudoLine::MaxContent);
    line({});
    line({"Percent dry matter of components:"});
    for (const ReportComponent& c : v.components) {
      if (c.dryMatter == 0)
        line({" ", c.name, "\t-"});
      else
        line({" ", c.name, "\t", fixed(c.dryMatter, "0.0"), "%"});
    }
    line({});
    line({v.substance, " residues in the components:"});
    for (const ReportComponent& c : v.components) {
      const double asEntered = c.dryMatter != 0 ? c.residue * c.dryMatter / 100 : c.residue;
      line({" ", c.name, "\t", fixed(asEntered, "0.000"), " mg/kg (", c.basisLabel, ")"});
    }
    line({});
    line({});
    line({v.substance, " residues in the components (dry matter):"});
    for (const ReportComponent& c : v.components) {
      line({" ", c.name, "\t", fixed(c.residue, "0.000"), " mg/kg (", c.basisLabel,
            " \\dry matter)"});
    }
    pseudoLines(PseudoLine::DryMatterResidue);
    line({});
    line({});
  }

  double writeResults() {
    const ReportValues& v = m_values;
    line({"RESULTS"});
    line({"======="});
    line({});
    line({v.criterionText, " dietary burden based on ", v.substance, " is ",
          fixed(v.burden, "0.000"), " mg/kg (dry matter)."});
    line({});
    line({"The respective composition of the feed is:"});
    for (const ReportComponent& c : v.components)
      line({" ", c.name, "\t", fixed(c.share, "0.00"), "%"});
    pseudoLines(PseudoLine::Composition);
    m_burdenSum = burdenSum(v);
    line({});
    line({});
    line({"The dietary load of ", v.substance, " caused by the individual components is:"});
    for (const ReportComponent& c : v.components)
      line({" ", c.name, "\t", fixed(loadShare(c, m_burdenSum), "0.00"), "%"});
    pseudoLines(PseudoLine::Load);
    return m_burdenSum;
  }

  void pseudoLines(PseudoLine kind) {
    const bool withAmount = kind == PseudoLine::Composition || kind == PseudoLine::Load;
    for (const ReportPseudo& pseudo : m_values.pseudos) {
      const double value = kind == PseudoLine::Load ? loadShare(pseudo, m_burdenSum) : pseudo.share;
      const std::string amount = withAmount ? fixed(value, "0.00") + "%" : std::string();
      line({" ", pseudoLine(pseudo.kind, kind, amount)});
    }
  }

  // amount is the share text of the composition and load lines.
  std::string pseudoLine(PseudoKind pseudo, PseudoLine kind, const std::string& amount) const {
    const std::string& hundred = m_hundred;
    const std::string& zero = m_zero;
    switch (pseudo) {
      case PseudoKind::PC: {
        const std::string& label = m_fishmealLabel;
        if (kind == PseudoLine::MaxContent) return label + " " + hundred + "%";
        if (kind == PseudoLine::DryMatterResidue) return label + "\t" + zero + " mg/kg.";
        return label + "\t" + amount;
      }
      case PseudoKind::CC:
        switch (kind) {
          case PseudoLine::MaxContent:
            return "CC (0.1% protein,0.1 % lipid) " + hundred + "%";
          case PseudoLine::DryMatterResidue:
            return "CC (0.1% protein, 0.1% lipid )\t" + zero + " mg/kg.";
          case PseudoLine::Composition:
            return "CC (0.1% protein, 0.1% lipid)\t" + amount;
          case PseudoLine::Load:
            return "CC (0.1 % protein, 0.1% lipid)\t" + amount;
        }
        break;
      case PseudoKind::F:
        switch (kind) {
          case PseudoLine::MaxContent:
            return "F (100 % lipid) " + hundred + "%";
          case PseudoLine::DryMatterResidue:
            return "F (100% lipid )\t" + zero + " mg/kg.";
          case PseudoLine::Composition:
            return "F(100% lipid)\t" + amount;
          case PseudoLine::Load:
            return "F (100% lipid)\t" + amount;
        }
        break;
    }
    return std::string();
  }

  const ReportValues& m_values;
  char m_separator;
  std::string& m_out;
  double m_burdenSum = 0;
  // Written the same in every pseudo line: formatted once.
  const std::string m_hundred;
  const std::string m_zero;
  const std::string m_fishmealLabel;
};

std::string block(const std::string& substance, const char* ending) {
  std::string text = kDashRule + kCrLf + kCrLf;
  text += "Pescavo concerning " + substance + kCrLf;
  text += std::string(kCreditLine) + kCrLf;
  text += std::string("(Version: ") + kBuildDate + ")" + kCrLf + kCrLf;
  text += kDashRule + ending;
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
  const ReportValues values = ReportValues::from(model);
  if (!model.allScenariosMode) report.bericht += titleBlock(values.substance);
  report.burdenSum = appendReportSection(values, model.decimalSeparator, report.bericht);

  if (!model.allScenariosMode) {
    report.ergebnisGrid = compositionTable(model);
    report.mainWindowEnabled = false;
    return;
  }
  report.berichtNeu = titleBlock(values.substance) + report.bericht;
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
