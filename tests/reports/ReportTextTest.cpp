#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "ReportTestSupport.h"
#include "reports/Credits.h"
#include "reports/ReportText.h"
#include "reports/TextFiles.h"

namespace pescavo::test {
namespace {

const std::string kDashes(70, '-');

std::string title(const std::string& substance) {
  return kDashes + "\r\n\r\nPescavo concerning " + substance + "\r\n" + kCreditLine +
         "\r\n(Version: 08-Mar-2018)\r\n\r\n" + kDashes + "\r\n\r\n\r\n";
}

struct Case {
  bool pc;
  bool cc;
  bool f;
  char sep;
  bool minimum;
};

// Two chosen components: wheat (DM 88, STMR) and rapeseed meal (DM 0, STMR-P), then the
// enabled pseudo-components with fixed shares.
class ReportTextTest : public ::testing::Test {
 protected:
  void build(const Case& c) {
    model = std::make_unique<MainWindowModel>(dialogs, c.sep);
    setUpTables(*model, "Substance A");
    model->report.reportFolder = folder.path();
    model->minMax = c.minimum ? 1 : 0;
    model->check1 = c.pc;
    model->check4 = c.cc;
    model->check5 = c.f;
    model->fischfutter2 = {entry("Wheat (grain)", "Cereal Grains/ Crop Seeds", "0"),
                           entry("Rapeseed (meal)", "By-Products", "1")};
    model->fischfutter1 = model->fischfutter2;
    WorkingSetEntry wheat;
    wheat.protein = 12.5;
    wheat.lipid = 2.1;
    wheat.residue = 1.1;
    wheat.dm = 88;
    WorkingSetEntry rapeseed;
    rapeseed.protein = 38;
    rapeseed.lipid = 3.5;
    rapeseed.residue = 0.5;
    model->workingSet = {wheat, rapeseed};

    OptimisationProblem& p = model->problem;
    p.maxInclusion = {40, 25};
    p.dryMatter = {88, 0};
    p.residue = {1.25, 0.5};
    std::vector<double> x = {60, 20};
    const std::pair<bool, double> pseudo[3] = {{c.pc, 12.5}, {c.cc, 5.25}, {c.f, 2.25}};
    for (const auto& [on, share] : pseudo) {
      if (!on) continue;
      p.maxInclusion.push_back(100);
      p.dryMatter.push_back(0);
      p.residue.push_back(0);
      x.push_back(share);
    }
    p.n = static_cast<int>(x.size());
    p.chosenCount = 2;
    x.resize(x.size() + 3, 0.0);
    model->result.composition = x;
    model->result.burden = 0.85;
    model->result.solvable = true;
  }

  // The section as the user must see it, written out line by line.
  static std::string expectedSection(const Case& c) {
    const auto d = [&](std::string number) {
      for (char& ch : number)
        if (ch == '.') ch = c.sep;
      return number;
    };
    const std::string fishmeal =
        "Fish meal (" + d("64.00") + "% protein, " + d("10.00") + "% lipid)";
    std::string s;
    s += "INPUT\r\n=====\r\n\r\n";
    s += "Target content for Common carp:\r\n";
    s += " Crude fat\t" + d("7.50") + "%\r\n";
    s += " Crude protein\t" + d("30.00") + "%\r\n\r\n";
    s += "Maximum principal content of components in the diet:\r\n";
    s += " Wheat (grain)\t" + d("40.00") + "%\r\n";
    s += " Rapeseed (meal)\t" + d("25.00") + "%\r\n";
    if (c.pc) s += " " + fishmeal + " " + d("100.00") + "%\r\n";
    if (c.cc) s += " CC (0.1% protein,0.1 % lipid) " + d("100.00") + "%\r\n";
    if (c.f) s += " F (100 % lipid) " + d("100.00") + "%\r\n";
    s += "\r\nPercent dry matter of components:\r\n";
    s += " Wheat (grain)\t" + d("88.0") + "%\r\n";
    s += " Rapeseed (meal)\t-\r\n";
    s += "\r\nSubstance A residues in the components:\r\n";
    s += " Wheat (grain)\t" + d("1.100") + " mg/kg (STMR)\r\n";
    s += " Rapeseed (meal)\t" + d("0.500") + " mg/kg (STMR-P)\r\n";
    s += "\r\n\r\nSubstance A residues in the components (dry matter):\r\n";
    s += " Wheat (grain)\t" + d("1.250") + " mg/kg (STMR \\dry matter)\r\n";
    s += " Rapeseed (meal)\t" + d("0.500") + " mg/kg (STMR-P \\dry matter)\r\n";
    if (c.pc) s += " " + fishmeal + "\t" + d("0.000") + " mg/kg.\r\n";
    if (c.cc) s += " CC (0.1% protein, 0.1% lipid )\t" + d("0.000") + " mg/kg.\r\n";
    if (c.f) s += " F (100% lipid )\t" + d("0.000") + " mg/kg.\r\n";
    s += "\r\n\r\nRESULTS\r\n=======\r\n\r\n";
    s += std::string(c.minimum ? "Minimum" : "Maximum") +
         " content dietary burden based on Substance A is " + d("0.850") +
         " mg/kg (dry matter).\r\n\r\n";
    s += "The respective composition of the feed is:\r\n";
    s += " Wheat (grain)\t" + d("60.00") + "%\r\n";
    s += " Rapeseed (meal)\t" + d("20.00") + "%\r\n";
    if (c.pc) s += " " + fishmeal + "\t" + d("12.50") + "%\r\n";
    if (c.cc) s += " CC (0.1% protein, 0.1% lipid)\t" + d("5.25") + "%\r\n";
    if (c.f) s += " F(100% lipid)\t" + d("2.25") + "%\r\n";
    s += "\r\n\r\nThe dietary load of Substance A caused by the individual components is:\r\n";
    // S = 1.25 * 60 + 0.5 * 20 = 85
    s += " Wheat (grain)\t" + d("88.24") + "%\r\n";
    s += " Rapeseed (meal)\t" + d("11.76") + "%\r\n";
    if (c.pc) s += " " + fishmeal + "\t" + d("0.00") + "%\r\n";
    if (c.cc) s += " CC (0.1 % protein, 0.1% lipid)\t" + d("0.00") + "%\r\n";
    if (c.f) s += " F (100% lipid)\t" + d("0.00") + "%\r\n";
    return s;
  }

  RecordingDialogs dialogs;
  TempFolder folder;
  std::unique_ptr<MainWindowModel> model;
};

TEST_F(ReportTextTest, SingleModeTextForEveryPseudoCombinationAndBothSeparators) {
  for (int mask = 0; mask < 8; ++mask) {
    for (const char sep : {'.', ','}) {
      const Case c{(mask & 1) != 0, (mask & 2) != 0, (mask & 4) != 0, sep, sep == ','};
      SCOPED_TRACE("pseudo mask " + std::to_string(mask) + " separator " + sep);
      build(c);
      Berichtschreiben(*model);
      EXPECT_EQ(model->report.bericht, title("Substance A") + expectedSection(c));
      EXPECT_DOUBLE_EQ(model->report.burdenSum, 85);
      EXPECT_FALSE(model->report.mainWindowEnabled);
      EXPECT_EQ(model->report.ergebnisGrid.size(), 3u + (c.pc + c.cc + c.f));
    }
  }
  // Single mode never touches the report files.
  EXPECT_FALSE(std::filesystem::exists(folder.file("Report.txt")));
  EXPECT_FALSE(std::filesystem::exists(folder.file("Report.rtf")));
  EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(ReportTextTest, AllScenarioModeAppendsToTheFilesAndEmptiesTheText) {
  const Case c{true, false, true, '.', false};
  build(c);
  model->allScenariosMode = true;
  txt_WriteAll(folder.file("Report.txt"), " ");
  const std::string heading = "\r\nScenario 11: PC and F used \r\n";
  model->report.bericht = heading;
  Berichtschreiben(*model);

  const std::string text = heading + expectedSection(c);
  EXPECT_EQ(model->report.bericht, "");
  EXPECT_EQ(model->report.berichtNeu, title("Substance A") + text);
  EXPECT_EQ(model->report.richText, text);
  EXPECT_EQ(txt_ReadAll(folder.file("Report.txt")), " \r\n" + text + "\r\n");
  const std::string rtf = txt_ReadAll(folder.file("Report.rtf"));
  EXPECT_EQ(rtf.rfind("{\\rtf1", 0), 0u);
  EXPECT_NE(rtf.find("Scenario 11: PC and F used \\par"), std::string::npos);
  EXPECT_TRUE(model->report.mainWindowEnabled);
  EXPECT_TRUE(model->report.ergebnisGrid.empty());

  // A second section grows Report.txt, while Report.rtf holds only the last one.
  model->report.bericht = "second";
  Berichtschreiben(*model);
  EXPECT_EQ(txt_ReadAll(folder.file("Report.txt")),
            " \r\n" + text + "\r\nsecond" + expectedSection(c) + "\r\n");
  EXPECT_EQ(txt_ReadAll(folder.file("Report.rtf")).find("Scenario 11"), std::string::npos);
}

TEST_F(ReportTextTest, AllResiduesZeroGiveZeroShares) {
  build({false, false, false, '.', false});
  model->problem.residue = {0, 0};
  Berichtschreiben(*model);
  const std::string& text = model->report.bericht;
  EXPECT_EQ(model->report.burdenSum, 0);
  EXPECT_NE(text.find("individual components is:\r\n Wheat (grain)\t0.00%\r\n"
                      " Rapeseed (meal)\t0.00%\r\n"),
            std::string::npos);
  EXPECT_EQ(text.find("nan"), std::string::npos);
}

TEST_F(ReportTextTest, UnwritableReportFolderIsNamedOnceAndTheTextStays) {
  build({false, false, false, '.', false});
  model->allScenariosMode = true;
  model->report.reportFolder = folder.file("missing");
  model->report.bericht = "heading";
  Berichtschreiben(*model);
  Berichtschreiben(*model);
  ASSERT_EQ(dialogs.messages.size(), 2u);
  EXPECT_NE(dialogs.messages[0].find(folder.file("missing/Report.txt")), std::string::npos);
  EXPECT_NE(dialogs.messages[1].find(folder.file("missing/Report.rtf")), std::string::npos);
  EXPECT_EQ(model->report.berichtNeu.rfind(title("Substance A"), 0), 0u);
  EXPECT_EQ(model->report.bericht, "");
}

TEST(TitleBlocks, HeaderBlockEndsWithOneEmptyLineFewer) {
  const std::string header = headerBlock("Captan");
  EXPECT_EQ(header + "\r\n", titleBlock("Captan"));
  EXPECT_EQ(header, kDashes + "\r\n\r\nPescavo concerning Captan\r\n" + kCreditLine +
                        "\r\n(Version: 08-Mar-2018)\r\n\r\n" + kDashes + "\r\n\r\n");
}

}  // namespace
}  // namespace pescavo::test
