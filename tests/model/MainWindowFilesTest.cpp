#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "model/MainWindowModel.h"
#include "support/RecordingDialogs.h"

namespace pescavo {
namespace {

// The model started on a copy of the sample tables.
class MainWindowFilesTest : public ::testing::Test {
 protected:
  MainWindowFilesTest() : model(dialogs, '.') {}
  void SetUp() override {
    const std::string test = ::testing::UnitTest::GetInstance()->current_test_info()->name();
    folder = std::filesystem::temp_directory_path() /
             ("pescavo-model-" + test + "-" + std::to_string(::getpid()));
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    std::filesystem::copy(PESCAVO_SAMPLE_INPUT, folder / "Input");
  }
  void TearDown() override {
    std::filesystem::permissions(folder / "Input", std::filesystem::perms::owner_all);
    std::filesystem::remove_all(folder);
  }
  void start(bool simple = false) { model.startUp((folder / "Input").string(), simple); }
  std::string read(const std::string& name) const {
    std::ifstream in(folder / "Input" / name, std::ios::binary);
    std::stringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
  }

  std::filesystem::path folder;
  RecordingDialogs dialogs;
  MainWindowModel model;
};

TEST_F(MainWindowFilesTest, StartUpSetsTheDesignedStatesAndTheSimpleLayoutMovesTheRest) {
  start();
  const MainWindowLayout& full = model.layout();
  EXPECT_EQ(full.width(), MainWindowLayout::kFullWidth);
  EXPECT_TRUE(model.enabled(ControlId::Loeschen));
  EXPECT_FALSE(model.enabled(ControlId::raus) || model.enabled(ControlId::alle_raus));
  EXPECT_FALSE(full.at(ControlId::MenuEdit).visible);
  EXPECT_TRUE(full.at(ControlId::restore).visible);
  EXPECT_FALSE(full.at(ControlId::Check1).visible || full.at(ControlId::FischmehlCaption).visible);
  EXPECT_EQ(full.at(ControlId::Ende).caption, "Exit");

  start(true);
  const MainWindowLayout& simple = model.layout();
  EXPECT_EQ(simple.width(), 9000);
  EXPECT_TRUE(model.options().pseudoComponents().pc);
  EXPECT_FALSE(simple.at(ControlId::Check1).visible || simple.at(ControlId::Fischfutter2).visible ||
               simple.at(ControlId::restore).visible || simple.at(ControlId::Image6).visible);
  EXPECT_TRUE(simple.at(ControlId::Fischmehl).visible &&
              simple.at(ControlId::FischmehlCaption).visible);
  EXPECT_EQ(simple.at(ControlId::Fischmehl).top, 3400);
  EXPECT_EQ(simple.at(ControlId::FischmehlCaption).top, 3050);
  EXPECT_EQ(simple.at(ControlId::Optimierung).left, 7000);
  EXPECT_EQ(simple.at(ControlId::ReportButton).top, 2880);
  EXPECT_EQ(simple.at(ControlId::Image1).left, 7840);
  // Every visible control stays inside the narrow window.
  for (ControlId id : allControls()) {
    const ControlState& control = simple.at(id);
    if (control.visible && !control.parent) {
      EXPECT_LE(control.left + control.width, simple.width()) << controlName(id);
    }
  }
  // After editing the fish-meal chooser sits lower, as it always has.
  MainWindowLayout again = simple;
  again.applySimpleLayout(true);
  EXPECT_EQ(again.at(ControlId::Fischmehl).top, 3600);
  EXPECT_EQ(again.at(ControlId::FischmehlCaption).top, 3250);
  EXPECT_LT(again.at(ControlId::Fischfutter1).top + again.at(ControlId::Fischfutter1).height, 3250);
}

// A restore that reads the pristine copy starts over from the first substance, with the lists
// emptied and the result withdrawn; one that does not leaves the window as it was.
TEST_F(MainWindowFilesTest, RestoreAsksFirstAndKeepsTheDatabaseWhenThePristineCopyIsBad) {
  start();
  model.selectSubstance(1);
  model.selection().alle_rein();
  model.Optimierung_Click();
  ASSERT_TRUE(model.visible(ControlId::Ergebnis));
  dialogs.answers = {false};
  model.substances().restore();
  EXPECT_EQ(dialogs.questions,
            std::vector<std::string>{"You want to reset the data base settings?"});
  EXPECT_FALSE(model.selection().chosen().empty());

  const std::string pristine = read("feedstuff1.tab");
  std::ofstream(folder / "Input" / "feedstuff1.tab", std::ios::binary) << "Category\tCrop\r\nx";
  dialogs.answers = {true};
  model.substances().restore();
  EXPECT_EQ(model.database().table().substanceCount(), 5);
  EXPECT_FALSE(model.selection().chosen().empty());
  EXPECT_TRUE(model.visible(ControlId::Ergebnis));

  std::ofstream(folder / "Input" / "feedstuff1.tab", std::ios::binary) << pristine;
  dialogs.answers = {true};
  model.substances().restore();
  EXPECT_EQ(model.substancePosition(), 0);
  EXPECT_TRUE(model.selection().chosen().empty());
  EXPECT_FALSE(model.visible(ControlId::Ergebnis));
}

// A failed write at exit keeps the window open.
TEST_F(MainWindowFilesTest, AFailedSaveAtExitKeepsTheProgramOpen) {
  start();
  model.substances().Loeschen_Click();
  ASSERT_TRUE(model.database().modified());
  std::filesystem::rename(folder / "Input" / "feedstuff.tab", folder / "Input" / "kept.tab");
  std::filesystem::create_directory(folder / "Input" / "feedstuff.tab");
  dialogs.answers = {true};
  EXPECT_FALSE(model.substances().Ende_Click());
  ASSERT_EQ(dialogs.messages.size(), 1u);
}

}  // namespace
}  // namespace pescavo
