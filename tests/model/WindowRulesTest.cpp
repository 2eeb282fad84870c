// What the windows only apply: how the independent check's verdict is marked, and the text of
// the start-up warning.

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "model/CheckStyles.h"
#include "model/StartUpMessages.h"

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

}  // namespace
}  // namespace pescavo::test
