#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "model/SubstanceDatabase.h"
#include "support/RecordingDialogs.h"
#include "support/TempFolder.h"

namespace pescavo {
namespace {

const char kSaveQuestion[] = "You modified the substance database. Do you want to save?";
const char kSortQuestion[] = "Do you want to sort the data base entries?";

// The database read from a copy of the sample tables in a folder of its own.
struct SampleCopy {
  SampleCopy() {
    std::filesystem::copy(PESCAVO_SAMPLE_INPUT, folder.path());
    database.read(folder.file());
  }
  // A folder where the file's replacement would go cannot be written over.
  void blockTheFile() const {
    std::filesystem::rename(folder.path() / "feedstuff.tab", folder.path() / "kept.tab");
    std::filesystem::create_directory(folder.path() / "feedstuff.tab");
  }

  TempFolder folder;
  RecordingDialogs dialogs;
  SubstanceDatabase database{dialogs};
};

TEST(SubstanceDatabase, AFailedWriteNamesTheFileAndKeepsTheOldOne) {
  SampleCopy c;
  EXPECT_FALSE(c.database.modified());
  EXPECT_TRUE(c.database.canDelete());
  const std::string old = c.folder.read("feedstuff.tab");
  c.blockTheFile();
  EXPECT_FALSE(c.database.write('.'));
  ASSERT_EQ(c.dialogs.messages.size(), 1u);
  EXPECT_EQ(c.dialogs.messages[0],
            c.folder.file("feedstuff.tab") + ": cannot be replaced (Is a directory)");
  EXPECT_EQ(c.folder.read("kept.tab"), old);
}

// The questions at exit, what is written and whether the program may end.
TEST(SubstanceDatabase, ExitAsksToSaveThenToSortOnlyAfterAChange) {
  const struct {
    bool modified;
    bool blocked;
    std::deque<bool> answers;
    bool ends;
    std::vector<std::string> questions;
    bool written;
    bool sorted;  // by category: the sample starts with cereals, by-products sort first
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
    if (want.blocked) c.blockTheFile();
    c.dialogs.answers = want.answers;
    EXPECT_EQ(c.database.saveBeforeExit('.'), want.ends);
    EXPECT_EQ(c.dialogs.questions, want.questions);
    if (want.blocked) continue;
    const ComponentTable file = readComponentTable(c.folder.file("feedstuff.tab"));
    EXPECT_EQ(file.substanceCount(), want.written ? substances - 1 : substances);
    EXPECT_EQ(file.component(1).category == "By-Products", want.sorted);
  }
}

TEST(SubstanceDatabase, RestoreAsksFirstAndKeepsTheTableWhenThePristineCopyIsBad) {
  SampleCopy c;
  c.database.table().deleteSubstance(1);
  c.dialogs.answers = {false};
  EXPECT_FALSE(c.database.restore());
  EXPECT_EQ(c.dialogs.questions,
            std::vector<std::string>{"You want to reset the data base settings?"});
  EXPECT_EQ(c.database.table().substanceCount(), 4);

  const std::string pristine = c.folder.read("feedstuff1.tab");
  c.folder.write("feedstuff1.tab", "Category\tCrop\r\nx");
  const std::string old = c.folder.read("feedstuff.tab");
  c.dialogs.answers = {true};
  EXPECT_FALSE(c.database.restore());
  ASSERT_EQ(c.dialogs.messages.size(), 1u);
  EXPECT_NE(c.dialogs.messages[0].find("feedstuff1.tab"), std::string::npos);
  EXPECT_EQ(c.folder.read("feedstuff.tab"), old);
  EXPECT_EQ(c.database.table().substanceCount(), 4);

  c.folder.write("feedstuff1.tab", pristine);
  c.dialogs.answers = {true};
  EXPECT_TRUE(c.database.restore());
  EXPECT_EQ(c.database.table().substanceCount(), 5);
  EXPECT_EQ(c.folder.read("feedstuff.tab"), pristine);
}

}  // namespace
}  // namespace pescavo
