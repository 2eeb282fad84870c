#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "model/MainWindowModel.h"
#include "model/SubstanceDatabase.h"
#include "support/RecordingDialogs.h"
#include "support/TempFolder.h"

namespace pescavo {
namespace {

const char kSaveQuestion[] = "You modified the substance database. Do you want to save?";
const char kSortQuestion[] = "Do you want to sort the data base entries?";

struct SampleCopy {
  SampleCopy() {
    std::filesystem::copy(PESCAVO_SAMPLE_INPUT, folder.path());
    database.read(folder.file());
  }
  TempFolder folder;
  RecordingDialogs dialogs;
  SubstanceDatabase database{dialogs};
};

// The questions at exit, what is written and whether the program may end.
TEST(SubstanceDatabase, ExitAsksToSaveThenToSortOnlyAfterAChange) {
  const struct {
    bool modified, blocked;
    std::deque<bool> answers;
    bool ends;
    std::vector<std::string> questions;
    bool written, sorted;  // by category: the sample starts with cereals, by-products first
  } cases[] = {
      {false, false, {}, true, {}, false, false},
      {true, false, {false}, true, {kSaveQuestion}, false, false},
      {true, true, {true}, false, {kSaveQuestion}, false, false},  // a failed write: stay open
      {true, false, {true, false}, true, {kSaveQuestion, kSortQuestion}, true, false},
      {true, false, {true, true}, true, {kSaveQuestion, kSortQuestion}, true, true},
  };
  int k = 0;
  for (const auto& want : cases) {
    SCOPED_TRACE(k++);
    SampleCopy c;
    const int substances = c.database.table().substanceCount();
    c.database.table().deleteSubstance(1);
    if (want.modified) c.database.markModified();
    if (want.blocked) {  // a folder cannot be written over
      std::filesystem::remove(c.folder.path() / "feedstuff.tab");
      std::filesystem::create_directory(c.folder.path() / "feedstuff.tab");
    }
    c.dialogs.answers = want.answers;
    EXPECT_EQ(c.database.saveBeforeExit('.'), want.ends);
    EXPECT_EQ(c.dialogs.questions, want.questions);
    if (want.blocked) {
      EXPECT_EQ(c.dialogs.messages,
                std::vector<std::string>{c.folder.file("feedstuff.tab") +
                                         ": cannot be replaced (Is a directory)"});
      continue;
    }
    const ComponentTable file = readComponentTable(c.folder.file("feedstuff.tab"));
    EXPECT_EQ(file.substanceCount(), want.written ? substances - 1 : substances);
    EXPECT_EQ(file.component(1).category == "By-Products", want.sorted);
  }
}

TEST(SubstanceDatabase, RestoreKeepsTheTableWhenThePristineCopyIsBad) {
  SampleCopy c;
  c.database.table().deleteSubstance(1);
  const std::string pristine = c.folder.read("feedstuff1.tab");
  c.folder.write("feedstuff1.tab", "Category\tCrop\r\nx");
  const std::string old = c.folder.read("feedstuff.tab");
  c.dialogs.answers = {true};
  EXPECT_FALSE(c.database.restore());
  EXPECT_EQ(c.dialogs.messages,
            std::vector<std::string>{c.folder.file("feedstuff1.tab") +
                                     ": line 1, cell 3: expected a substance pair "
                                     "(\"ResidueInputValue\" and the substance's name) after "
                                     "the nine component columns"});
  EXPECT_EQ(c.folder.read("feedstuff.tab"), old);
  EXPECT_EQ(c.database.table().substanceCount(), 4);

  c.folder.write("feedstuff1.tab", pristine);
  c.dialogs.answers = {true};
  EXPECT_TRUE(c.database.restore());
  EXPECT_EQ(c.database.table().substanceCount(), 5);
  EXPECT_EQ(c.folder.read("feedstuff.tab"), pristine);
}

class MainWindowFilesTest : public ::testing::Test {
 protected:
  void SetUp() override { std::filesystem::copy(PESCAVO_SAMPLE_INPUT, folder.path()); }
  void start(bool simple = false) { model.startUp(folder.file(), simple); }

  TempFolder folder;
  RecordingDialogs dialogs;
  MainWindowModel model{dialogs, '.'};
};

// The simple layout turns the pseudo-components on, shows the fish-meal chooser higher than
// after editing and keeps every control it shows inside its narrow window.
TEST_F(MainWindowFilesTest, TheSimpleLayoutTurnsPseudoComponentsOnAndFitsItsNarrowWindow) {
  model.options().setPseudoComponents({false, false, false});
  start(true);
  const MainWindowLayout& simple = model.layout();
  EXPECT_TRUE(model.options().pseudoComponents().pc && model.visible(ControlId::FischmehlCaption));
  EXPECT_EQ(std::tuple(simple.width(), simple.at(ControlId::Fischmehl).top,
                       simple.at(ControlId::FischmehlCaption).top),
            std::tuple(9000, 3400, 3050));
  for (ControlId id : allControls()) {
    const ControlState& c = simple.at(id);
    EXPECT_TRUE(!c.visible || c.parent || c.left + c.width <= simple.width()) << controlName(id);
  }
}

// The full layout offers a restore; confirmed and with the pristine copy read, it starts over
// from the first substance, lists emptied and result withdrawn, else the window stays as it was.
TEST_F(MainWindowFilesTest, RestoreStartsOverOnlyWhenThePristineCopyIsRead) {
  start();
  EXPECT_TRUE(model.visible(ControlId::restore));
  model.selectSubstance(1);
  model.selection().alle_rein();
  model.Optimierung_Click();
  ASSERT_TRUE(model.visible(ControlId::Ergebnis));
  dialogs.answers = {false};
  model.substances().restore();
  EXPECT_EQ(dialogs.questions,
            std::vector<std::string>{"You want to reset the data base settings?"});
  EXPECT_TRUE(model.visible(ControlId::Ergebnis));

  dialogs.answers = {true};
  model.substances().restore();
  EXPECT_EQ(model.substancePosition(), 0);
  EXPECT_TRUE(model.selection().chosen().empty());
  EXPECT_FALSE(model.visible(ControlId::Ergebnis));
}

}  // namespace
}  // namespace pescavo
