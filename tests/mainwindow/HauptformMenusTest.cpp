#include <QAction>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTextEdit>
#include <QTimer>

#include "HauptformFixture.h"
#include "mainwindow/Dialog.h"
#include "mainwindow/Infoscreen.h"
#include "mainwindow/Ueber.h"

namespace pescavo {
namespace {

void trigger(Hauptform& window, const char* item) { window.findChild<QAction*>(item)->trigger(); }

TEST_F(HauptformTest, ExitAndTheCloseButtonEndWithoutQuestionsWhenNothingChanged) {
  ASSERT_TRUE(start());
  QSignalSpy ended(window.get(), &Hauptform::ended);
  click("Ende");
  EXPECT_EQ(ended.count(), 1);
  EXPECT_TRUE(dialogs.questions.empty());

  ASSERT_TRUE(start());
  QSignalSpy closed(window.get(), &Hauptform::ended);
  window->close();
  EXPECT_EQ(closed.count(), 1);
  EXPECT_TRUE(dialogs.questions.empty());
}

TEST_F(HauptformTest, AnUnreadableTableAtStartUpIsNamedAndNothingIsShown) {
  std::string table = read(input() / "feedstuff.tab");
  const size_t cell = table.find("\t12.4\t");
  ASSERT_NE(cell, std::string::npos);
  table.replace(cell, 6, "\t12,4x\t");
  write(input() / "feedstuff.tab", table);
  EXPECT_FALSE(start());
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_NE(dialogs.messages[0].find("feedstuff.tab"), std::string::npos);
  EXPECT_NE(dialogs.messages[0].find("line 2"), std::string::npos) << dialogs.messages[0];
  EXPECT_NE(dialogs.messages[0].find("cell 5"), std::string::npos) << dialogs.messages[0];
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
  bool wasModal = false;
  QTimer::singleShot(0, [&] {
    auto* about = qobject_cast<Ueber*>(QApplication::activeModalWidget());
    ASSERT_NE(about, nullptr);
    wasModal = about->isModal();
    shownVersion = about->findChild<QLabel*>("Label1")->text();
    QTest::mouseClick(about->findChild<QAbstractButton*>("Command1"), Qt::LeftButton);
  });
  trigger(*window, "M_About");
  EXPECT_TRUE(wasModal);
  EXPECT_EQ(shownVersion, "Pescavo 1.0.20");

  click("Image1");
  auto* about = window->findChild<Ueber*>();
  ASSERT_NE(about, nullptr);
  EXPECT_TRUE(about->isVisible());
  EXPECT_FALSE(about->isModal());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

// One information window serves every text: caption and text replaced, never editable.
TEST(DialogTest, ShowsEachTextReadOnlyInTheSameWindow) {
  Dialog dialog;
  EXPECT_EQ(dialog.windowTitle(), "Fish Species");
  auto* rich = dialog.findChild<QTextEdit*>("InfoFisch");
  ASSERT_NE(rich, nullptr);
  dialog.showText("Criteria", "first");
  dialog.showText("Residue Value", "second\rline");
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_FALSE(dialog.isModal());
  EXPECT_EQ(dialog.windowTitle(), "Residue Value");
  EXPECT_TRUE(rich->isReadOnly());
  EXPECT_TRUE(rich->toPlainText().startsWith("second"));
  QTest::mouseClick(dialog.findChild<QAbstractButton*>("OKButton"), Qt::LeftButton);
  EXPECT_FALSE(dialog.isVisible());
}

TEST(InfoscreenTest, ShowsVersionAndDateAndStartsEitherLayout) {
  Infoscreen screen;
  screen.show();
  EXPECT_TRUE(screen.windowFlags() & Qt::FramelessWindowHint);
  EXPECT_EQ(screen.findChild<QLabel*>("Label1")->text(), "Pescavo 1.0.20");
  EXPECT_EQ(screen.findChild<QLabel*>("Label3")->text(), "08-Mar-2018");
  QSignalSpy started(&screen, &Infoscreen::started);
  QSignalSpy exit(&screen, &Infoscreen::exitRequested);
  QTest::mouseClick(screen.findChild<QAbstractButton*>("Command1"), Qt::LeftButton);
  QTest::mouseClick(screen.findChild<QAbstractButton*>("SimpleButton"), Qt::LeftButton);
  QTest::mouseClick(screen.findChild<QAbstractButton*>("Command2"), Qt::LeftButton);
  ASSERT_EQ(started.count(), 2);
  EXPECT_FALSE(started[0][0].toBool());
  EXPECT_TRUE(started[1][0].toBool());
  EXPECT_EQ(exit.count(), 1);
}

}  // namespace
}  // namespace pescavo

namespace pescavo {
namespace {

// "Report" opens the report of the run shown, modal, with the main window switched off.
TEST_F(HauptformTest, TheReportButtonOpensTheRunsReportWithTheMainWindowOff) {
  ASSERT_TRUE(start());
  click("alle_rein");
  click("Optimierung");
  bool mainWindowOff = false;
  QString caption;
  QString text;
  QTimer::singleShot(0, [&] {
    QWidget* report = QApplication::activeModalWidget();
    ASSERT_NE(report, nullptr);
    caption = report->windowTitle();
    mainWindowOff = !window->isEnabled();
    if (auto* box = report->findChild<QPlainTextEdit*>("Bericht")) text = box->toPlainText();
    report->close();
  });
  click("ReportButton");
  EXPECT_EQ(caption, "Report");
  EXPECT_TRUE(mainWindowOff);
  EXPECT_TRUE(text.contains("Example substance A (fungicide)")) << text.toStdString();
  EXPECT_TRUE(window->isEnabled());
}

}  // namespace
}  // namespace pescavo
