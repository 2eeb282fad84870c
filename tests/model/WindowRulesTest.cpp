// What the windows only apply: how the independent check's verdict is marked, the start-up
// warning, the information boxes' texts, the hand pointer and where scenario windows go.

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "model/CheckStyles.h"
#include "model/InformationTexts.h"
#include "model/PointerRules.h"
#include "model/StartUpMessages.h"
#include "model/WindowPlacement.h"

namespace pescavo::test {
namespace {

constexpr CheckVerdict kVerdicts[] = {CheckVerdict::Agrees, CheckVerdict::Differs,
                                      CheckVerdict::CouldNotRun};

// Contrast ratio of two colours by their relative luminance (sRGB).
double contrast(const Rgb& a, const Rgb& b) {
  const auto luminance = [](const Rgb& c) {
    const auto linear = [](int channel) {
      const double v = channel / 255.0;
      return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(c.red) + 0.7152 * linear(c.green) + 0.0722 * linear(c.blue);
  };
  const double la = luminance(a), lb = luminance(b);
  return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

// Only an agreement is quiet: a check that could not run vouches no more than one that differs.
TEST(CheckStyles, TheSentenceUnderTheResultStandsOutUnlessTheCheckAgrees) {
  for (CheckVerdict verdict : kVerdicts) {
    SCOPED_TRACE(static_cast<int>(verdict));
    const TextStyle style = checkSentenceStyle(verdict);
    const bool quiet = verdict == CheckVerdict::Agrees;
    EXPECT_EQ(style.bold, !quiet);
    EXPECT_EQ(style.background.has_value(), !quiet);
    EXPECT_EQ(style.border.has_value() && style.borderWidth > 0, !quiet);
    if (style.background) {
      EXPECT_GE(contrast(style.text, *style.background), 4.5);
    }
    EXPECT_EQ(reportCheckWarningShown(verdict), !quiet);
  }
  EXPECT_NE(checkSentenceStyle(CheckVerdict::Agrees).text,
            checkSentenceStyle(CheckVerdict::Differs).text);
  EXPECT_TRUE(reportCheckWarningStyle().bold);
}

// A disagreement is marked in a red tint, a run the check could not judge in amber; either
// leaves the dark red of the check's cells readable. Agreeing runs and runs an unfinished
// sweep never made (whose verdict is still the default) are not marked.
TEST(CheckStyles, ScenarioRunsAreMarkedByVerdict) {
  for (CheckVerdict verdict : kVerdicts) EXPECT_FALSE(scenarioRunMark(verdict, false));
  EXPECT_FALSE(scenarioRunMark(CheckVerdict::Agrees, true));
  const auto differs = scenarioRunMark(CheckVerdict::Differs, true);
  const auto unchecked = scenarioRunMark(CheckVerdict::CouldNotRun, true);
  ASSERT_TRUE(differs && unchecked);
  EXPECT_EQ(differs->background.green, differs->background.blue);
  EXPECT_GT(differs->background.red, differs->background.green);
  EXPECT_GT(unchecked->background.green, unchecked->background.blue);
  for (const RunMark& mark : {*differs, *unchecked}) {
    EXPECT_TRUE(mark.checkBold);
    EXPECT_GE(contrast(mark.checkText, mark.background), 4.5);
  }
}

TEST(StartUpMessages, OneWarningALine) {
  EXPECT_EQ(startUpWarningText({}), "");
  EXPECT_EQ(startUpWarningText({"feedstuff.tab: lines 2 and 9 hold Wheat (grain)"}),
            "feedstuff.tab: lines 2 and 9 hold Wheat (grain)");
  EXPECT_EQ(startUpWarningText({"first", "second", "third"}), "first\nsecond\nthird");
}

const std::vector<FishSpecies> kSpecies = {{"Common carp", 8, 35}, {"Rainbow trout", 15, 42}};
const std::vector<FishMealGrade> kGrades = {{60, 8}, {62, 9}, {65, 10}, {70, 12}};

// The species text lists each target, in the general form with the user's separator; the fish
// meal text ends with the third grade as the chooser shows it, or nothing without one.
TEST(InformationTexts, TextsKeepTheirBlanksAndLineBreaks) {
  struct Case {
    InformationImage image;
    const char* caption;
    std::string text;
    std::vector<FishSpecies> species = kSpecies;
    std::vector<FishMealGrade> grades = kGrades;
    char separator = '.';
  };
  const std::string fishmeal =
      "A classification of feed components is represented by CC (carbohydrate concentrate), PC "
      "(protein concentrate) and F (fat).\rThe Pescavo offers the possibility to take fish meal "
      "into consideration.\r Fish meal is treated as uncontaminated feed component and "
      "theoretically 100% of fish meal can be used for diet.\r";
  const Case cases[] = {
      {InformationImage::Image2, "Fish species",
       "Targent content:\rCommon carp:\r8 % lipid and 35% protein.\r\rRainbow trout:\r15 % lipid "
       "and 42% protein."},
      {InformationImage::Image2,
       "Fish species",
       "Targent content:\rCarp:\r7,5 % lipid and 35% protein.",
       {{"Carp", 7.5, 35}},
       kGrades,
       ','},
      {InformationImage::Image5, "Fish meal", fishmeal + "65 % protein, 10% lipid\r"},
      {InformationImage::Image5, "Fish meal", fishmeal + "\r", kSpecies, {{60, 8}, {62, 9}}},
      {InformationImage::Image3, "Criteria",
       "The Pescavo offers in this version of the program only the possibility to calculate "
       "the maximum burden and the respective feed composition."},
      {InformationImage::Image4, "Restriction of feed components",
       "\r\rThe Pescavo offers the possibility to calculate a feed considering the MRBD or a "
       "feed ignoring fish specific preferences."},
      {InformationImage::Image6, "Residue Value",
       "The program converts automatically the residue value into residue value concerning dry "
       "matter.\r"},
      // The starch text's first line ends in a blank, the oil text's does not.
      {InformationImage::Image7, "Classification of feed components",
       "A classification of feed components is represented by CC (carbohydrate concentrate), PC "
       "(protein concentrate) and F (fat). \rThe Pescavo offers the possibility to take an "
       "uncontaminated CC component (carbohydrate concentrate) into consideration, for example "
       "starch with\r 0.1 % protein and 0.1 % lipid content."},
      {InformationImage::Image8, "Classification of feed components",
       "A classification of feed components is represented by CC (carbohydrate concentrate), PC "
       "(protein concentrate) and F (fat).\rThe Pescavo offers the possibility to take a "
       "component (fat) into consideration, for example a fish oil with\r 100 % lipid content."},
  };
  for (const Case& c : cases) {
    const InformationText info = informationText(c.image, c.species, c.grades, c.separator);
    EXPECT_EQ(info.caption, c.caption);
    EXPECT_EQ(info.text, c.text) << c.caption;
  }
}

TEST(PointerRules, ButtonsAlwaysListsWhileFilledTheGridOnItsEditableColumnsDropDownsOnceClicked) {
  using C = ControlId;
  using R = HandPointerRule;
  EXPECT_EQ(handPointerRule(C::Optimierung), R::Always);
  EXPECT_EQ(handPointerRule(C::Image3), R::Always);
  EXPECT_EQ(handPointerRule(C::Image2), R::Never);  // its picture carries the hand
  EXPECT_EQ(handPointerRule(C::Label1), R::Never);
  EXPECT_EQ(handPointerRule(C::Check4), R::Never);
  EXPECT_EQ(handPointerRule(C::Fischfutter2), R::WhileFilled);
  EXPECT_EQ(handPointerRule(C::schadstoffwerte), R::OnEditableColumn);
  EXPECT_EQ(handPointerRule(C::Fischmehl), R::AfterClick);

  EXPECT_FALSE(showsHandPointer(R::WhileFilled, 0, -1, false));
  EXPECT_TRUE(showsHandPointer(R::WhileFilled, 1, -1, false));
  for (int column = 0; column <= 5; ++column)
    EXPECT_EQ(showsHandPointer(R::OnEditableColumn, 0, column, false), column >= 4) << column;
  EXPECT_FALSE(showsHandPointer(R::AfterClick, 3, 5, false));
  EXPECT_TRUE(showsHandPointer(R::AfterClick, 0, 0, true));
  EXPECT_FALSE(showsHandPointer(R::Never, 1, 5, true));
}

// Which buttons the component windows name is the windows' own test; here, that each window
// reads its own list and only the editor has the drop-down.
TEST(PointerRules, ComponentWindowsShowTheHandOnTheirOwnButtonsAndTheCategoryChooserOnceClicked) {
  using W = ComponentWindow;
  using R = HandPointerRule;
  EXPECT_EQ(handPointerRule(W::Komponentenliste, "Command1"), R::Always);
  EXPECT_EQ(handPointerRule(W::Futterkomponenten, "Command1"), R::Never);
  EXPECT_EQ(handPointerRule(W::Futterkomponenten, "Go3"), R::Always);
  EXPECT_EQ(handPointerRule(W::Komponentenliste, "Go3"), R::Never);
  EXPECT_EQ(handPointerRule(W::Komponentenliste, "KategorieCombo"), R::AfterClick);
  EXPECT_EQ(handPointerRule(W::Futterkomponenten, "KategorieCombo"), R::Never);
}

bool within(const WindowRect& inner, const WindowRect& outer) {
  return inner.left >= outer.left && inner.top >= outer.top && inner.right() <= outer.right() &&
         inner.bottom() <= outer.bottom();
}

bool apart(const WindowRect& a, const WindowRect& b) {
  return a.right() <= b.left || b.right() <= a.left || a.bottom() <= b.top || b.bottom() <= a.top;
}

TEST(WindowPlacement, ScenarioWindowsGoBesideTheReportWindowWithinTheScreen) {
  const WindowRect screen{0, 0, 1920, 1080};
  // Room on the right: there, cascading down from the report window's top.
  const WindowRect report{100, 50, 1000, 660};
  const WindowRect first = besideReportWindow(report, 800, 600, screen, 0);
  EXPECT_EQ(first.left, 1100);
  EXPECT_EQ(first.top, 50);
  EXPECT_EQ(first.width, 800);
  EXPECT_EQ(besideReportWindow(report, 800, 600, screen, 3).top, 50 + 3 * 24);
  EXPECT_EQ(besideReportWindow(report, 800, 600, screen, 8).top, 50);
  // Room on the left only.
  const WindowRect onTheRight{900, 50, 1000, 660};
  const WindowRect left = besideReportWindow(onTheRight, 800, 600, screen, 0);
  EXPECT_EQ(left.right(), 900);
  // Room on neither side for the whole width: narrowed to the wider side's room.
  const WindowRect narrowed =
      besideReportWindow({0, 0, 1000, 660}, 940, 600, {0, 0, 1600, 1000}, 0);
  EXPECT_EQ(narrowed.left, 1000);
  EXPECT_EQ(narrowed.width, 600);
  // Not below the window's minimum: then at the screen's edge, over the report window's edge.
  const WindowRect overlapping =
      besideReportWindow({0, 0, 1000, 660}, 940, 600, {0, 0, 1600, 1000}, 0, 650);
  EXPECT_EQ(overlapping.right(), 1600);
  EXPECT_EQ(overlapping.width, 650);
  // Too little room anywhere: at the screen's right edge, within it, also low down.
  const WindowRect small{0, 0, 800, 500};
  const WindowRect edge = besideReportWindow({0, 300, 700, 200}, 940, 600, small, 7);
  EXPECT_TRUE(within(edge, small));
  EXPECT_EQ(edge.right(), 800);

  for (const WindowRect& anchor : {report, onTheRight, WindowRect{0, 0, 1000, 660}}) {
    for (int n = 0; n < 16; ++n) {
      const WindowRect placed = besideReportWindow(anchor, 900, 700, screen, n);
      EXPECT_TRUE(within(placed, screen)) << n;
      EXPECT_TRUE(apart(placed, anchor)) << n;
    }
  }
}

}  // namespace
}  // namespace pescavo::test
