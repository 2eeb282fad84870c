#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "model/MainWindowModel.h"
#include "support/RecordingDialogs.h"
#include "support/TempFolder.h"

namespace pescavo {
namespace {

// The model started on a copy of the sample tables.
class MainWindowFilesTest : public ::testing::Test {
 protected:
  void SetUp() override { std::filesystem::copy(PESCAVO_SAMPLE_INPUT, folder.path()); }
  void start(bool simple = false) { model.startUp(folder.file(), simple); }

  TempFolder folder;
  RecordingDialogs dialogs;
  MainWindowModel model{dialogs, '.'};
};

TEST_F(MainWindowFilesTest, StartUpSetsTheDesignedStatesAndTheSimpleLayoutMovesTheRest) {
  start();
  const MainWindowLayout& full = model.layout();
  EXPECT_EQ(full.width(), MainWindowLayout::kFullWidth);
  EXPECT_TRUE(model.enabled(ControlId::Loeschen));
  EXPECT_FALSE(model.enabled(ControlId::raus) || model.enabled(ControlId::alle_raus));
  EXPECT_FALSE(full.at(ControlId::MenuEdit).visible ||
               full.at(ControlId::FischmehlCaption).visible);
  EXPECT_TRUE(full.at(ControlId::restore).visible);

  start(true);
  const MainWindowLayout& simple = model.layout();
  EXPECT_EQ(simple.width(), 9000);
  EXPECT_TRUE(model.options().pseudoComponents().pc);
  EXPECT_FALSE(simple.at(ControlId::Check1).visible || simple.at(ControlId::Fischfutter2).visible ||
               simple.at(ControlId::restore).visible || simple.at(ControlId::Image6).visible);
  EXPECT_TRUE(simple.at(ControlId::Fischmehl).visible &&
              simple.at(ControlId::FischmehlCaption).visible);
  // The fish-meal chooser sits higher than after editing; the rest moves left.
  EXPECT_EQ(
      std::tuple(simple.at(ControlId::Fischmehl).top, simple.at(ControlId::FischmehlCaption).top,
                 simple.at(ControlId::Optimierung).left, simple.at(ControlId::ReportButton).top,
                 simple.at(ControlId::Image1).left),
      std::tuple(3400, 3050, 7000, 2880, 7840));
  // Every visible control stays inside the narrow window.
  for (ControlId id : allControls()) {
    const ControlState& control = simple.at(id);
    if (control.visible && !control.parent) {
      EXPECT_LE(control.left + control.width, simple.width()) << controlName(id);
    }
  }
}

// A restore, once confirmed, that reads the pristine copy starts over from the first substance,
// with the lists emptied and the result withdrawn; one that does not leaves the window as it was.
TEST_F(MainWindowFilesTest, RestoreStartsOverOnlyWhenThePristineCopyIsRead) {
  start();
  model.selectSubstance(1);
  model.selection().alle_rein();
  model.Optimierung_Click();
  ASSERT_TRUE(model.visible(ControlId::Ergebnis));
  dialogs.answers = {false};
  model.substances().restore();
  EXPECT_EQ(dialogs.questions,
            std::vector<std::string>{"You want to reset the data base settings?"});
  EXPECT_TRUE(model.visible(ControlId::Ergebnis));
  EXPECT_EQ(model.substancePosition(), 1);

  dialogs.answers = {true};
  model.substances().restore();
  EXPECT_EQ(model.substancePosition(), 0);
  EXPECT_TRUE(model.selection().chosen().empty());
  EXPECT_FALSE(model.visible(ControlId::Ergebnis));
}

}  // namespace
}  // namespace pescavo
