#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "engine/MainWindowModel.h"
#include "reports/Credits.h"
#include "reports/ReportText.h"
#include "reports/ResultTables.h"
#include "reports/RtfWriter.h"
#include "reports/ScenarioSweep.h"
#include "reports/TextFiles.h"
#include "tables/TextFile.h"

namespace pescavo::test {
namespace {

struct RecordingDialogs : Dialogs {
  void information(const std::string& text) override { messages.push_back(text); }
  bool askYesNo(const std::string&) override { return true; }
  std::vector<std::string> messages;
};

const std::string kHeader = std::string(70, '-') + "\r\n\r\nPescavo concerning Substance A\r\n" +
                            kCreditLine + "\r\n(Version: 08-Mar-2018)\r\n\r\n" +
                            std::string(70, '-') + "\r\n\r\n";

// Name, max, DM ("-" for DM 0), residue, basis, dry-matter residue, share, load; '.' spelling.
using Row = std::array<std::string, 8>;
using Three = std::array<std::string, 3>;

// A carp report section (fat 10, protein 40, fish meal 65 % protein); mask: PC 1, CC 2, F 4.
std::string expectedSection(const std::vector<Row>& rows, int mask, const Three& shares,
                            const std::string& criterion, const std::string& burden, char sep) {
  const auto d = [sep](std::string n) { return std::replace(n.begin(), n.end(), '.', sep), n; };
  const std::string fm = "Fish meal (" + d("65.00") + "% protein, " + d("10.00") + "% lipid)";
  // Every list spells the pseudo-components its own way.
  const std::string names[4][3] = {
      {fm + " ", "CC (0.1% protein,0.1 % lipid) ", "F (100 % lipid) "},
      {fm + "\t", "CC (0.1% protein, 0.1% lipid )\t", "F (100% lipid )\t"},
      {fm + "\t", "CC (0.1% protein, 0.1% lipid)\t", "F(100% lipid)\t"},
      {fm + "\t", "CC (0.1 % protein, 0.1% lipid)\t", "F (100% lipid)\t"}};
  const std::string tails[4] = {d("100.00") + "%", d("0.000") + " mg/kg.", "", d("0.00") + "%"};
  const auto list = [&](const std::string& title, int col, int pseudoList = -1,
                        const std::string& mg = "") {
    std::string s = title + "\r\n";
    for (const Row& r : rows)
      s += " " + r[0] + "\t" +
           (r[col] == "-" ? "-" : d(r[col]) + (mg.empty() ? "%" : " mg/kg (" + r[4] + mg)) + "\r\n";
    for (int k = 0; pseudoList >= 0 && k < 3; ++k)
      if (mask >> k & 1)
        s += " " + names[pseudoList][k] +
             (pseudoList == 2 ? d(shares[k]) + "%" : tails[pseudoList]) + "\r\n";
    return s;
  };
  return "INPUT\r\n=====\r\n\r\nTarget content for Common carp:\r\n Crude fat\t" + d("10.00") +
         "%\r\n Crude protein\t" + d("40.00") + "%\r\n\r\n" +
         list("Maximum principal content of components in the diet:", 1, 0) +
         list("\r\nPercent dry matter of components:", 2) +
         list("\r\nSubstance A residues in the components:", 3, -1, ")") +
         list("\r\n\r\nSubstance A residues in the components (dry matter):", 5, 1,
              " \\dry matter)") +
         "\r\n\r\nRESULTS\r\n=======\r\n\r\n" + criterion +
         " content dietary burden based on Substance A is " + d(burden) +
         " mg/kg (dry matter).\r\n\r\n" + list("The respective composition of the feed is:", 6, 2) +
         "\r\n\r\n" +
         list("The dietary load of Substance A caused by the individual components is:", 7, 3);
}

// Carp, wheat (DM 88, STMR), rapeseed meal (DM 0, STMR-P), pseudo shares fixed; S = 85.
void setUpFeed(MainWindowModel& m, int mask) {
  m.table.addSubstance("Substance A");
  m.species = {{"Common carp", 10, 40}};
  m.fishmeal = {{60, 8}, {62, 9}, {65, 10}};
  m.schadstoff = 0;
  std::tie(m.check1, m.check4, m.check5) = std::tuple(mask & 1, mask & 2, mask & 4);
  m.fischfutter2 = {{"Wheat (grain)", "Wheat (grain)", "Cereal Grains/ Crop Seeds", "0"},
                    {"Rapeseed (meal)", "Rapeseed (meal)", "By-Products", "1"}};
  // An older entry with the same text comes first: the later one holds the stored figures.
  m.fischfutter1 = {m.fischfutter2[0], m.fischfutter2[0], m.fischfutter2[1]};
  m.workingSet = {
      {0, 99, 9, 0, 0, 0, ""}, {2.1, 12.5, 1.1, 0, 0, 88, ""}, {3.5, 38, 0.5, 0, 0, 0, ""}};
  m.problem.maxInclusion = {40, 25, 100, 100, 100};
  m.problem.dryMatter = {88, 0};
  m.problem.residue = {1.25, 0.5};
  m.result.composition = {60, 20};
  for (int k = 0; k < 3; ++k)
    if (mask >> k & 1) m.result.composition.push_back(std::array{12.5, 5.25, 2.25}[k]);
  m.problem.n = static_cast<int>(m.result.composition.size());
  m.result.burden = 0.85;
}

const std::vector<Row> kFeedRows = {
    {"Wheat (grain)", "40.00", "88.0", "1.100", "STMR", "1.250", "60.00", "88.24"},
    {"Rapeseed (meal)", "25.00", "-", "0.500", "STMR-P", "0.500", "20.00", "11.76"}};

std::string labelsOf(const std::vector<PieSlice>& slices) {
  std::string labels;
  for (const PieSlice& slice : slices) labels += slice.label + "|";
  return labels;
}

TEST(ReportText, SingleModeTextTableAndChartsForEveryPseudoCombinationAndBothSeparators) {
  RecordingDialogs dialogs;
  for (int mask = 0; mask < 8; ++mask) {
    for (const char sep : {'.', ','}) {
      SCOPED_TRACE("pseudo mask " + std::to_string(mask) + " separator " + sep);
      MainWindowModel m(dialogs, sep);
      setUpFeed(m, mask);
      m.minMax = sep == ',';
      Berichtschreiben(m);
      EXPECT_EQ(m.report.bericht,
                kHeader + "\r\n" +
                    expectedSection(kFeedRows, mask, {"12.50", "5.25", "2.25"},
                                    sep == ',' ? "Minimum" : "Maximum", "0.850", sep));
      EXPECT_FALSE(m.report.mainWindowEnabled);
      EXPECT_EQ(m.report.ergebnisGrid.size(), 1 + m.result.composition.size());
      if (mask != 7 || sep != ',') continue;

      std::string table;
      for (const CompositionRow& row : m.report.ergebnisGrid)
        for (const std::string& cell : row) table += cell + "|";
      EXPECT_EQ(
          table.substr(table.find("Cereal")),
          "Cereal Grains/ Crop Seeds|Wheat (grain)|12,5 |2,1 |40,00 |STMR |1,1 |60,00 |88,24 |"
          "By-Products|Rapeseed (meal)|38 |3,5 |25,00 |STMR-P |0,5 |20,00 |11,76 |"
          "Fish meal ||65,00|10,00|100,00|-|0|12,50|0,00|CC ||0,10|0,10|100,00|-|0|5,25|0,00|"
          "F||0,00|100,00|100,00|-|0|2,25|0,00|");
      PieChart chart = Diagrammzeichnen(m, kFeedComposition);
      EXPECT_EQ(chart.title + "|" + chart.footnote + "|" + labelsOf(chart.slices),
                "Best case feed composition regarding Common carp|"
                "Minimum content dietary burden based on Substance A is 0,850 mg/kg.|"
                "Wheat (grain)(60,00 %)|Rapeseed (meal)(20,00 %)|Fish meal (65,00% protein, "
                "10,00% lipid) (12,50 %)|CC ( 0.1% protein, 0.1% lipid) (5,25 %)|F ( 100% lipid) "
                "(2,25 %)|");
      chart = Diagrammzeichnen(m, kDietaryLoad);
      EXPECT_EQ(
          chart.title + "|" + std::to_string(chart.zeroCount) + "|" + labelsOf(chart.slices),
          "Dietary load regarding Common carp|3|Wheat (grain)(88,24 %)|Rapeseed (meal)(11,76 %)|");
      m.minMax = 0;
      EXPECT_EQ(Diagrammzeichnen(m, kFeedComposition).title,
                "Worst case feed composition regarding Common carp");
      m.report.burdenSum = 0;  // all residues zero: no load, and no NaN slices
      EXPECT_TRUE(Diagrammzeichnen(m, kDietaryLoad).slices.empty());
    }
  }
}

TEST(PieSlices, LargestFiveAndOtherInStableOrder) {
  const std::tuple<std::vector<double>, int, std::string> cases[] = {
      {{0, 5, 1, 2, 3, 4, 6, 7},
       1,
       "h(7,00 %)|g(6,00 %)|b(5,00 %)|f(4,00 %)|e(3,00 %)|Other(3,00 %)|"},
      {{0, 1, 2, 3, 4, 5, 6}, 1, "g(6,00 %)|f(5,00 %)|e(4,00 %)|d(3,00 %)|c(2,00 %)|b(1,00 %)|"},
      {{5, 0, 4, 3, 2, 1}, 1, "a(5,00 %)|c(4,00 %)|d(3,00 %)|e(2,00 %)|f(1,00 %)|"},
      // Ascending and stable, drawn from the end: the later of two equal values comes first.
      {{2, 1, 2, 1}, 0, "c(2,00 %)|a(2,00 %)|d(1,00 %)|b(1,00 %)|"}};
  for (const auto& [values, zeroCount, expected] : cases) {
    int zeros = -1;  // labels beyond the values are dropped
    EXPECT_EQ(labelsOf(pieSlices(values, {"a", "b", "c", "d", "e", "f", "g", "h"}, ',', zeros)),
              expected);
    EXPECT_EQ(zeros, zeroCount);
  }
}

const std::string kMrbd = "\"maximum reasonable balanced diet (MRBD)\"";
const char kNotSolvable[] = "The problem is not solvable. Add more or try different components.";
// Runs 2k - 1 and 2k of scenario k; the second is followed by " - " and the MRBD caption.
const char* const kHeadings[8][2] = {
    {"Scenario 1: Without PC, CC, F ", "Scenario 2: Without PC, CC, F "},
    {"Scenario 3: PC used", "Scenario 4: PC"},
    {"Scenario 5: CC used", "Scenario 6: CC used with "},
    {"Scenario 7: F used ", "Scenario 8: F used with "},
    {"Scenario 9: PC and CC used ", "Scenario 10: PC and CC used with "},
    {"Scenario 11: PC and F used ", "Scenario 12: PC and F used with "},
    {"Scenario 13: CC and F used ", "Scenario 14: CC and F used with "},
    {"Scenario 15:PC, CC and F used ", "Scenario 16: PC, CC and F used with "}};
const int kPseudoMasks[8] = {0, 1, 2, 4, 3, 5, 6, 7};  // PC 1, CC 2, F 4

std::string heading(int run) {
  const std::string rule(70, '_');
  return "\r\n" + rule + "\r\n\r\n" + kHeadings[(run - 1) / 2][(run - 1) % 2] +
         (run % 2 ? "" : " - " + kMrbd) + "\r\n\r\n\r\n" + rule + "\r\n\r\n";
}

// X alone, except with every pseudo-component and the limits on (all).
std::string xSection(int mask, bool all = false) {
  const std::string p = all ? "50.00" : "100.00";
  return expectedSection({{"X (feed)", p, "80.0", "1.600", "STMR-P", "2.000", p, "100.00"}}, mask,
                         all ? Three{"30.74", "17.35", "1.91"} : Three{"0.00", "0.00", "0.00"},
                         "Maximum", all ? "1.000" : "2.000", '.');
}

// A solvable run appends the text since the last one (unsolvable headings too) and CR LF.
std::string expectedReportFile() {
  std::string file = " \r\n", pending;
  for (int k = 1; k <= 8; ++k) {
    file += pending + heading(2 * k - 1) + xSection(kPseudoMasks[k - 1]) + "\r\n";
    pending = heading(2 * k) + (k < 8 ? std::string(kNotSolvable) + "\r\n\r\n" : "");
  }
  return file + pending + xSection(7, true) + "\r\n";
}

std::string expectedSummary(const std::string& odd, const std::string& last) {
  const std::string values[3] = {"-", odd, last};
  std::string s =
      "REPORT\r\n\r\nScenario\tMaximum Residue Value\r\n" + std::string(41, '_') + "\r\n\r\n";
  for (int r = 1; r <= 16; ++r)
    s += "   " + std::to_string(r) + "\t          \t" + values[r == 16 ? 2 : r % 2] + "\r\n";
  return s;
}

// One component X (lipid 10, protein 40: the carp targets exactly; residue 1.6 at DM 80, so
// 2 mg/kg of dry matter; at most 50 %). Without limits X alone is optimal in every scenario.
// With them only scenario 8 is feasible: X 50 %, CC = 0.5 / 2.882, PC = 1.772 CC, F = 0.11 CC.
struct Sweep {
  explicit Sweep(double dm = 80, double residue = 1.6) {
    std::filesystem::create_directories(root);
    m.table.addSubstance("Substance A");
    m.schadstoff = 0;
    m.species = {{"Common carp", 10, 40}};
    m.fishmeal = {{60, 8}, {62, 9}, {65, 10}};
    m.report.reportFolder = file();
    m.fischfutter1 = m.fischfutter2 = {{"X (feed)", "X (feed)", "Fat", "1"}};
    m.workingSet = {{10, 40, residue, 50, 50, dm, ""}};
  }
  std::string reportFile() const { return txt_ReadAll(file("Report.txt")); }
  ~Sweep() { std::filesystem::remove_all(root, ignored); }
  std::string file(const std::string& name = "") const { return (root / name).string(); }

  std::filesystem::path root = std::filesystem::temp_directory_path() /
                               ("pescavo-reports-" + std::to_string(std::random_device()()));
  std::error_code ignored;
  RecordingDialogs dialogs;
  MainWindowModel m{dialogs, '.'};
};

TEST(ScenarioSweep, ReportFilesSummaryFullReportDoneAndDetails) {
  Sweep s;
  s.m.check1 = s.m.check2 = s.m.check5 = false;
  ASSERT_TRUE(Optimierung2_Click(s.m));
  EXPECT_EQ(s.reportFile(), expectedReportFile());
  EXPECT_EQ(txt_ReadAll(s.file("Report.rtf")),
            RtfWriter::document(heading(16) + xSection(7, true)));
  const std::string summary = expectedSummary("2.000", "1.000");
  EXPECT_EQ(s.m.report.scenarioSummary, summary);
  // The options are as before; problem and result stay those of run 16.
  EXPECT_EQ((std::array{s.m.check1, s.m.check2, s.m.check4, s.m.check5}),
            (std::array{false, false, true, false}));
  EXPECT_EQ(s.m.problem.n, 4);

  const std::string once = kHeader + summary + expectedReportFile() + "\r\n";
  EXPECT_EQ(openFullReportFile(s.m), s.file("Report.txt"));
  EXPECT_EQ(s.m.report.bericht, kHeader + summary + "\r\n");
  EXPECT_EQ(s.reportFile(), once);
  openFullReportFile(s.m);
  EXPECT_EQ(s.reportFile(), kHeader + kHeader + summary + once + "\r\n");
  reportDone(s.m);
  EXPECT_EQ(s.reportFile(), " \r\n");
  EXPECT_TRUE(s.m.report.mainWindowEnabled && s.m.report.headerText.empty());

  const ScenarioDetails details = runScenarioDetails(s.m, 0);
  EXPECT_EQ(details.caption, "Report Szenario 1: Without PC, CC, F ");
  EXPECT_EQ(details.text, kHeader + "\r\n" + xSection(0));
  EXPECT_EQ(s.reportFile(), " \r\n" + xSection(0) + "\r\n");
  EXPECT_EQ(runScenarioDetails(s.m, 15).caption,
            "Report Szenario 16: PC, CC and F used  - " + kMrbd);
  EXPECT_FALSE(runScenarioDetails(s.m, 3).shown);  // run 4 cannot meet the targets
  EXPECT_EQ(s.dialogs.messages, std::vector<std::string>{kNotSolvable});  // the only message
}

TEST(ScenarioSweep, RunSevenAtDmZeroMinimumSummaryAndFailures) {
  Sweep s(0, 1.5);  // DM 0: the residue stays as entered
  s.m.report.reportFolder = s.file("missing");
  ASSERT_TRUE(Optimierung2_Click(s.m));
  EXPECT_EQ(s.m.report.scenarioSummary, expectedSummary("1.500", "0.750"));
  ASSERT_EQ(s.dialogs.messages.size(), 2u);  // once per file
  EXPECT_NE(s.dialogs.messages[0].find(s.file("missing/Report.txt")), std::string::npos);
  EXPECT_NE(s.dialogs.messages[1].find(s.file("missing/Report.rtf")), std::string::npos);
  s.m.option1 = true;
  ASSERT_TRUE(Optimierung2_Click(s.m));
  EXPECT_EQ(s.m.report.scenarioCells[0][2], "Minimum Residue Value");
  EXPECT_EQ(s.m.report.scenarioSummary.rfind("Scenario\tMinimum Residue Value\r\n___", 0), 0u);

  s.m.workingSet[0].residue = 0;
  EXPECT_FALSE(Optimierung2_Click(s.m));
  EXPECT_EQ(
      s.dialogs.messages.back(),
      "Values of pollutants are possiblibly all zero. Check the pollutants value and try again.");
  EXPECT_EQ(s.m.problem.n, 1);                              // stopped in run 1
  txt_AppendLine(s.file("a.txt"), "a\tb\nc \xC3\xA4\r\n");  // passed on untouched
  EXPECT_EQ(txt_ReadAll(s.file("a.txt")), "a\tb\nc \xC3\xA4\r\n\r\n");
  EXPECT_THROW(txt_ReadAll(s.file()), ReportFileError);  // a folder, no file
}

// Bytes that are not UTF-8 (a lead byte before ASCII, one at the end) are taken as the declared
// Windows code page; code points beyond 0x7FFF are signed 16 bits, beyond 0xFFFF a pair.
TEST(RtfWriter, EscapesAndRuns) {
  std::string out;
  RtfWriter::escape(
      "a\\b{c}\r\r\n x\ty\r\nz\nM\xC3\xA4is\u20AC5\xEA\xB0\x80\xF0\x9F\x98\x80\xE4x\x01\xC3", out);
  EXPECT_EQ(out,
            "a\\\\b\\{c\\}\\par\r\n\\par\r\n x\\tab y\\par\r\nz\\par\r\nM\\u228?is\\u8364?5"
            "\\u-21504?\\u-10179?\\u-8704?\\'e4x\\'01\\'c3");
  EXPECT_EQ(
      RtfWriter::document({{"Max", true, 255}, {"\r\nnext"}}),
      "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0\\fmodern\\fcharset0 Courier New;}}"
      "\r\n{\\colortbl ;\\red255\\green0\\blue0;\\red0\\green0\\blue0;}\r\n\\pard\\f0\\fs20 "
      "{\\b\\cf1 Max}{\\cf2 \\par\r\nnext}\r\n}\r\n");
}

// Escaping written out one character at a time.
std::string referenceEscape(const std::string& text) {
  std::string out;
  const auto unit = [&out](long value) {
    out += "\\u" + std::to_string(value > 0x7FFF ? value - 0x10000 : value) + "?";
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    const unsigned char c = static_cast<unsigned char>(text[i]);
    const std::size_t length = utf8SequenceLength(text, i);
    char hex[8];
    std::snprintf(hex, sizeof hex, "\\'%02x", c);
    if (c == '\r' || c == '\n') {
      out += "\\par\r\n";
      if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
    } else if (c == '\t') {
      out += "\\tab ";
    } else if (c == '\\' || c == '{' || c == '}') {
      out += std::string("\\") + text[i];
    } else if (c < 0x20 || length == 0) {
      out += hex;
    } else if (c < 0x80) {
      out += text[i];
    } else {
      const long point = decodeUtf8At(text, i, length);
      if (point > 0xFFFF) {
        unit(0xD800 + ((point - 0x10000) >> 10));
        unit(0xDC00 + ((point - 0x10000) & 0x3FF));
      } else {
        unit(point);
      }
      i += length - 1;
    }
  }
  return out;
}

// Texts of every byte value, UTF-8 of every length, broken and overlong sequences, surrogates,
// line ends and RTF's special characters, some long enough for sequences to straddle the
// escape's blocks and for its output to grow six-fold.
TEST(RtfWriter, EscapeMatchesTheCharacterByCharacterForm) {
  // clang-format off
  const char* const pieces[] = {
      "\xC3\xA4", "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "\xEF\xBF\xBF",  // ä € emoji U+FFFF
      "\xC3", "\xE2\x82", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xC0\x80",  // not UTF-8
      "{", "}", "\\", "\r\n", "\r", "\n", "\t", "\x7F", "plain "};
  // clang-format on
  std::mt19937 random(20180308);
  std::vector<std::string> texts;
  for (int c = 0; c < 256; ++c) texts.push_back(std::string("ab") + static_cast<char>(c));
  for (int k = 0; k < 600; ++k) {
    std::string text;
    const int length = k % 3 == 0 ? 3000 : static_cast<int>(random() % 60);
    while (static_cast<int>(text.size()) < length) {
      if (random() % 3 == 0)
        text += static_cast<char>(random() % 256);
      else
        text += pieces[random() % std::size(pieces)];
    }
    texts.push_back(k % 30 == 0 ? std::string(length, '\n') : text);
  }
  for (const std::string& text : texts) {
    std::string out = "kept|";
    RtfWriter::escape(text, out);
    ASSERT_EQ(out, "kept|" + referenceEscape(text)) << text;
    ASSERT_EQ(RtfWriter::document(text), RtfWriter::document(std::vector<RtfRun>{{text}}));
  }
}

}  // namespace
}  // namespace pescavo::test
