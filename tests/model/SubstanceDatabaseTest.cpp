#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "model/SubstanceDatabase.h"
#include "support/RecordingDialogs.h"

namespace pescavo {
namespace {

const char kSaveQuestion[] = "You modified the substance database. Do you want to save?";
const char kSortQuestion[] = "Do you want to sort the data base entries?";

// The database read from a copy of the sample tables in a folder of the test's own.
class SubstanceDatabaseTest : public ::testing::Test {
 protected:
  void SetUp() override {
    const std::string test = ::testing::UnitTest::GetInstance()->current_test_info()->name();
    folder = std::filesystem::temp_directory_path() /
             ("pescavo-database-" + test + "-" + std::to_string(::getpid()));
    std::filesystem::remove_all(folder);
    std::filesystem::copy(PESCAVO_SAMPLE_INPUT, folder);
    database.read(folder.string());
  }
  void TearDown() override { std::filesystem::remove_all(folder); }
  std::string read(const std::string& name) const {
    std::ifstream in(folder / name, std::ios::binary);
    std::stringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
  }
  // A folder where the file's replacement would go cannot be written over.
  void blockTheFile() {
    std::filesystem::rename(folder / "feedstuff.tab", folder / "kept.tab");
    std::filesystem::create_directory(folder / "feedstuff.tab");
  }

  std::filesystem::path folder;
  RecordingDialogs dialogs;
  SubstanceDatabase database{dialogs};
};

TEST_F(SubstanceDatabaseTest, AFailedWriteNamesTheFileAndKeepsTheOldOne) {
  EXPECT_FALSE(database.modified());
  EXPECT_TRUE(database.canDelete());
  const std::string old = read("feedstuff.tab");
  blockTheFile();
  EXPECT_FALSE(database.write('.'));
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_NE(dialogs.messages[0].find("feedstuff.tab"), std::string::npos);
  EXPECT_NE(dialogs.messages[0].find("(Is a directory)"), std::string::npos) << dialogs.messages[0];
  EXPECT_EQ(read("kept.tab"), old);
}

// The questions at exit, what is written and whether the program may end.
TEST_F(SubstanceDatabaseTest, ExitAsksToSaveThenToSortOnlyAfterAChange) {
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
  for (const auto& c : cases) {
    SCOPED_TRACE(k++);
    SetUp();
    const int substances = database.table().substanceCount();
    database.table().deleteSubstance(1);
    if (c.modified) database.markModified();
    if (c.blocked) blockTheFile();
    dialogs.answers = c.answers;
    dialogs.questions.clear();
    EXPECT_EQ(database.saveBeforeExit('.'), c.ends);
    EXPECT_EQ(dialogs.questions, c.questions);
    if (c.blocked) continue;
    const ComponentTable file = readComponentTable((folder / "feedstuff.tab").string());
    EXPECT_EQ(file.substanceCount(), c.written ? substances - 1 : substances);
    EXPECT_EQ(file.component(1).category == "By-Products", c.sorted);
  }
}

TEST_F(SubstanceDatabaseTest, RestoreAsksFirstAndKeepsTheTableWhenThePristineCopyIsBad) {
  database.table().deleteSubstance(1);
  dialogs.answers = {false};
  EXPECT_FALSE(database.restore());
  EXPECT_EQ(dialogs.questions,
            std::vector<std::string>{"You want to reset the data base settings?"});
  EXPECT_EQ(database.table().substanceCount(), 4);

  const std::string pristine = read("feedstuff1.tab");
  std::ofstream(folder / "feedstuff1.tab", std::ios::binary) << "Category\tCrop\r\nx";
  const std::string old = read("feedstuff.tab");
  dialogs.answers = {true};
  EXPECT_FALSE(database.restore());
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_NE(dialogs.messages[0].find("feedstuff1.tab"), std::string::npos);
  EXPECT_EQ(read("feedstuff.tab"), old);
  EXPECT_EQ(database.table().substanceCount(), 4);

  std::ofstream(folder / "feedstuff1.tab", std::ios::binary) << pristine;
  dialogs.answers = {true};
  EXPECT_TRUE(database.restore());
  EXPECT_EQ(database.table().substanceCount(), 5);
  EXPECT_EQ(read("feedstuff.tab"), pristine);
}

}  // namespace
}  // namespace pescavo
