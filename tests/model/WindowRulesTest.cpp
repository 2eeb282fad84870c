// What the windows only apply: how the independent check's verdict is marked, the start-up
// warning, the information boxes' texts, the hand pointer and where scenario windows go.

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "model/CheckStyles.h"
#include "model/InformationTexts.h"
#include "model/PointerRules.h"
#include "model/StartUpMessages.h"
#include "model/WindowPlacement.h"

namespace pescavo::test {
namespace {

// Only an agreement is quiet: a check that could not run vouches no more than one that differs.
// Runs an unfinished sweep never made (whose verdict is still the default) are not marked.
TEST(CheckStyles, EveryVerdictButAnAgreementStandsOut) {
  for (CheckVerdict verdict :
       {CheckVerdict::Agrees, CheckVerdict::Differs, CheckVerdict::CouldNotRun}) {
    SCOPED_TRACE(static_cast<int>(verdict));
    const bool loud = verdict != CheckVerdict::Agrees;
    const TextStyle style = checkSentenceStyle(verdict);
    const std::optional<RunMark> mark = scenarioRunMark(verdict, true);
    EXPECT_EQ(std::tuple(style.bold, style.background.has_value(),
                         style.border.has_value() && style.borderWidth > 0,
                         reportCheckWarningShown(verdict), mark && mark->checkBold,
                         scenarioRunMark(verdict, false).has_value()),
              std::tuple(loud, loud, loud, loud, loud, false));
  }
  EXPECT_NE(checkSentenceStyle(CheckVerdict::Agrees).text,
            checkSentenceStyle(CheckVerdict::Differs).text);
  // A disagreement in a red tint, a run the check could not judge in amber.
  const Rgb differs = scenarioRunMark(CheckVerdict::Differs, true)->background;
  const Rgb unchecked = scenarioRunMark(CheckVerdict::CouldNotRun, true)->background;
  EXPECT_TRUE(differs.red > differs.green && differs.green == differs.blue);
  EXPECT_GT(unchecked.green, unchecked.blue);
  EXPECT_TRUE(reportCheckWarningStyle().bold);
}

TEST(StartUpMessages, OneWarningALine) {
  EXPECT_EQ(startUpWarningText({}), "");
  EXPECT_EQ(startUpWarningText({"first", "second", "third"}), "first\nsecond\nthird");
}

const std::vector<FishSpecies> kSpecies = {{"Common carp", 8, 35}, {"Rainbow trout", 15, 42}};
const std::vector<FishMealGrade> kGrades = {{60, 8}, {62, 9}, {65, 10}, {70, 12}};

// The species text lists each target, in the general form with the user's separator; the fish
// meal text ends with the third grade as the chooser shows it, or nothing without one.
TEST(InformationTexts, TextsKeepTheirBlanksAndLineBreaks) {
  const auto text = [](InformationImage image, const std::vector<FishSpecies>& species,
                       const std::vector<FishMealGrade>& grades, char separator = '.') {
    return informationText(image, species, grades, separator).text;
  };
  EXPECT_EQ(text(InformationImage::Image2, {{"Carp", 7.5, 35}, {"Trout", 15, 42}}, kGrades, ','),
            "Targent content:\rCarp:\r7,5 % lipid and 35% protein.\r\rTrout:\r15 % lipid and 42% "
            "protein.");
  const std::string noGrade = text(InformationImage::Image5, kSpecies, {{60, 8}, {62, 9}});
  EXPECT_EQ(text(InformationImage::Image5, kSpecies, kGrades),
            noGrade.substr(0, noGrade.size() - 1) + "65 % protein, 10% lipid\r");
}

// A rule per control; the grid shows the hand on its editable columns only.
TEST(PointerRules, ButtonsAlwaysTheGridOnItsEditableColumns) {
  EXPECT_EQ(std::tuple(handPointerRule(ControlId::Optimierung),
                       handPointerRule(ControlId::schadstoffwerte),
                       handPointerRule(ComponentWindow::Futterkomponenten, "Go3")),
            std::tuple(HandPointerRule::Always, HandPointerRule::OnEditableColumn,
                       HandPointerRule::Always));
  for (int column = 0; column <= 5; ++column) {
    EXPECT_EQ(showsHandPointer(HandPointerRule::OnEditableColumn, 0, column, false), column >= 4)
        << column;
  }
}

std::tuple<int, int, int, int> frame(const WindowRect& r) {
  return {r.left, r.top, r.width, r.height};
}

TEST(WindowPlacement, ScenarioWindowsGoBesideTheReportWindowWithinTheScreen) {
  const WindowRect screen{0, 0, 1920, 1080};
  // Room on the right: there, cascading down from the report window's top.
  EXPECT_EQ(frame(besideReportWindow({100, 50, 1000, 660}, 800, 600, screen, 3)),
            std::tuple(1100, 50 + 3 * 24, 800, 600));
  // Too little room anywhere: at the screen's right edge, within it, also low down.
  EXPECT_EQ(frame(besideReportWindow({0, 300, 700, 200}, 940, 600, {0, 0, 800, 500}, 7)),
            std::tuple(700, 0, 100, 500));
}

}  // namespace
}  // namespace pescavo::test
