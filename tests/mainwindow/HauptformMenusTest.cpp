#include <QLabel>
#include <QSignalSpy>

#include "HauptformFixture.h"
#include "mainwindow/Infoscreen.h"

namespace pescavo {
namespace {

TEST_F(HauptformTest, ExitAndTheCloseButtonEndWithoutQuestionsWhenNothingChanged) {
  ASSERT_TRUE(start());
  QSignalSpy ended(window.get(), &Hauptform::ended);
  click("Ende");
  EXPECT_EQ(ended.count(), 1);
  ASSERT_TRUE(start());
  QSignalSpy closed(window.get(), &Hauptform::ended);
  window->close();
  EXPECT_EQ(closed.count(), 1);
  EXPECT_TRUE(dialogs.questions.empty());
}

// A refused table is named and nothing shown; equal substance names are named once.
TEST_F(HauptformTest, StartUpNamesAnUnreadableTableOrEqualSubstanceNames) {
  const std::string table = read(input() / "feedstuff.tab");
  std::string broken = table;
  write(input() / "feedstuff.tab", broken.replace(broken.find("\t12.4\t"), 6, "\t12,4x\t"));
  EXPECT_FALSE(start());
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_NE(dialogs.messages[0].find("line 2"), std::string::npos) << dialogs.messages[0];
  EXPECT_FALSE(window->isVisible());

  std::string equal = table;
  const std::string second = "Example substance B (herbicide)";
  write(input() / "feedstuff.tab",
        equal.replace(equal.find(second), second.size(), "Example substance A (fungicide)"));
  ASSERT_TRUE(start());
  ASSERT_EQ(dialogs.messages.size(), 2u);
  EXPECT_NE(dialogs.messages[1].find("Example substance A (fungicide)"), std::string::npos);
}

TEST(InfoscreenTest, ShowsTheVersionAndStartsEitherLayout) {
  Infoscreen screen;
  screen.show();
  EXPECT_TRUE(screen.windowFlags() & Qt::FramelessWindowHint);
  EXPECT_EQ(child<QLabel>(screen, "Label1")->text(), "Pescavo 1.0.20");
  QSignalSpy started(&screen, &Infoscreen::started);
  QSignalSpy exit(&screen, &Infoscreen::exitRequested);
  for (const char* button : {"Command1", "SimpleButton", "Command2"}) click(screen, button);
  ASSERT_EQ(started.count(), 2);
  EXPECT_FALSE(started[0][0].toBool());
  EXPECT_TRUE(started[1][0].toBool());
  EXPECT_EQ(exit.count(), 1);
}

}  // namespace
}  // namespace pescavo
