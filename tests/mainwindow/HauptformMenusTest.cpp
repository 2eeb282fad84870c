#include <QLabel>
#include <QPlainTextEdit>
#include <QSignalSpy>

#include "HauptformFixture.h"
#include "mainwindow/Infoscreen.h"
#include "mainwindow/Ueber.h"

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

TEST_F(HauptformTest, AnUnreadableTableAtStartUpIsNamedAndNothingIsShown) {
  std::string table = read(input() / "feedstuff.tab");
  table.replace(table.find("\t12.4\t"), 6, "\t12,4x\t");
  write(input() / "feedstuff.tab", table);
  EXPECT_FALSE(start());
  ASSERT_EQ(dialogs.messages.size(), 1u);
  for (const char* part : {"feedstuff.tab", "line 2", "cell 5"})
    EXPECT_NE(dialogs.messages[0].find(part), std::string::npos) << dialogs.messages[0];
  EXPECT_FALSE(window->isVisible());
}

TEST_F(HauptformTest, EqualSubstanceNamesAreNamedOnceAtStartUp) {
  std::string table = read(input() / "feedstuff.tab");
  const std::string second = "Example substance B (herbicide)";
  table.replace(table.find(second), second.size(), "Example substance A (fungicide)");
  write(input() / "feedstuff.tab", table);
  ASSERT_TRUE(start());
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_NE(dialogs.messages[0].find("Example substance A (fungicide)"), std::string::npos);
}

// The About window from the menu waits for "OK"; from the logo it leaves the window usable.
TEST_F(HauptformTest, AboutIsModalFromTheMenuAndNotFromTheLogo) {
  ASSERT_TRUE(start());
  QString shownVersion;
  whileModal([&] { trigger("M_About"); },
             [&](QWidget& about) {
               EXPECT_TRUE(qobject_cast<Ueber*>(&about));
               shownVersion = child<QLabel>(about, "Label1")->text();
               click(about, "Command1");
             });
  EXPECT_EQ(shownVersion, "Pescavo 1.0.20");
  click("Image1");
  auto* about = window->findChild<Ueber*>();
  ASSERT_NE(about, nullptr);
  EXPECT_TRUE(about->isVisible());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST(InfoscreenTest, ShowsVersionAndDateAndStartsEitherLayout) {
  Infoscreen screen;
  screen.show();
  EXPECT_TRUE(screen.windowFlags() & Qt::FramelessWindowHint);
  EXPECT_EQ(child<QLabel>(screen, "Label1")->text(), "Pescavo 1.0.20");
  EXPECT_EQ(child<QLabel>(screen, "Label3")->text(), "08-Mar-2018");
  QSignalSpy started(&screen, &Infoscreen::started);
  QSignalSpy exit(&screen, &Infoscreen::exitRequested);
  for (const char* button : {"Command1", "SimpleButton", "Command2"}) click(screen, button);
  ASSERT_EQ(started.count(), 2);
  EXPECT_FALSE(started[0][0].toBool());
  EXPECT_TRUE(started[1][0].toBool());
  EXPECT_EQ(exit.count(), 1);
}

TEST_F(HauptformTest, TheReportButtonOpensTheRunsReportWithTheMainWindowOff) {
  ASSERT_TRUE(start());
  click("alle_rein");
  click("Optimierung");
  bool mainWindowOff = false;
  QString caption, text;
  whileModal([&] { click("ReportButton"); },
             [&](QWidget& report) {
               caption = report.windowTitle();
               mainWindowOff = !window->isEnabled();
               text = child<QPlainTextEdit>(report, "Bericht")->toPlainText();
             });
  EXPECT_EQ(caption, "Report");
  EXPECT_TRUE(mainWindowOff);
  EXPECT_TRUE(text.contains("Example substance A (fungicide)")) << text.toStdString();
  EXPECT_TRUE(window->isEnabled());
}

}  // namespace
}  // namespace pescavo
