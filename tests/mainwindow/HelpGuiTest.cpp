#include <QLineEdit>
#include <QTextBrowser>
#include <QTextEdit>
#include <QTreeWidget>

#include "HauptformFixture.h"
#include "mainwindow/Dialog.h"
#include "mainwindow/HelpWindow.h"
#include "model/Guide.h"

namespace pescavo {
namespace {

// One information window serves every image, shows the core's text line by line, never
// editable, and goes with "OK".
TEST_F(HauptformTest, InformationImagesShareOneWindowThatShowsTheirTextsLineByLine) {
  write(input() / "Species.tab",
        "Parameter\tCommon carp\tRainbow trout\r\nCrude lipid (%)\t8\t15\r\n"
        "Crude protein (%)\t35\t42\r\n");
  ASSERT_TRUE(start());
  click("Image2");
  auto* dialog = window->findChild<Dialog*>("Dialog");
  ASSERT_NE(dialog, nullptr);
  EXPECT_TRUE(dialog->isVisible() && !dialog->isModal());
  EXPECT_EQ(dialog->windowTitle(), "Fish species");
  auto* text = child<QTextEdit>(*dialog, "InfoFisch");
  EXPECT_EQ(text->toPlainText().split('\n'),
            QStringList({"Targent content:", "Common carp:", "8 % lipid and 35% protein.", "",
                         "Rainbow trout:", "15 % lipid and 42% protein."}));
  EXPECT_TRUE(text->isReadOnly());
  find("Image3")->setVisible(true);  // shown by the all-options view; clickable once shown
  click("Image3");
  EXPECT_EQ(window->findChildren<Dialog*>().size(), 1);
  EXPECT_EQ(dialog->windowTitle(), "Criteria");
  click(*dialog, "OKButton");
  EXPECT_FALSE(dialog->isVisible());
}

TEST_F(HauptformTest, WithoutHelpChmF1OpensTheGuideOnceWithContentsAndSearch) {
  ASSERT_TRUE(start());
  window->setGuideFolders({"/nonexistent", PESCAVO_GUIDE});
  trigger("menuHilfe");
  HelpWindow* help = window->findChild<HelpWindow*>();
  ASSERT_NE(help, nullptr);
  EXPECT_TRUE(help->isVisible() && dialogs.opened.empty());
  const Guide guide(PESCAVO_GUIDE);
  EXPECT_EQ(help->page()->source().fileName(), "index.html");

  // The contents tree has the guide's pages at the top.
  auto* contents = child<QTreeWidget>(*help, "GuideContents");
  std::vector<std::string> pages;
  for (const Guide::Entry& entry : guide.contents())
    if (entry.level == 0) pages.push_back(entry.href);
  ASSERT_EQ(contents->topLevelItemCount(), static_cast<int>(pages.size()));
  contents->itemClicked(contents->topLevelItem(1), 0);
  EXPECT_EQ(help->page()->source().toString().toStdString(), pages[1]);

  // A search lists the pages holding the word; opening one marks the word on it.
  auto* search = child<QLineEdit>(*help, "GuideSearch");
  QTest::keyClicks(search, "fish meal");
  QTest::keyClick(search, Qt::Key_Return);
  auto* results = child<QListWidget>(*help, "GuideResults");
  ASSERT_EQ(results->count(), static_cast<int>(guide.search("fish meal").size()));
  results->itemActivated(results->item(0));
  EXPECT_EQ(help->page()->textCursor().selectedText().toStdString(),
            guide.search("fish meal")[0].mark);

  trigger("menuHilfe");  // the same window again
  EXPECT_EQ(window->findChildren<HelpWindow*>().size(), 1);
}

// A help.chm the desktop can open wins; where none can, the guide's window says where the
// missing guide belongs.
TEST_F(HauptformTest, AHelpChmTheDesktopCanOpenWinsOverTheGuide) {
  ASSERT_TRUE(start());
  window->setGuideFolders({"/nonexistent"});
  write(input().parent_path() / "help.chm", "chm");
  trigger("menuHilfe");
  EXPECT_EQ(dialogs.opened,
            std::vector<std::string>{(input().parent_path() / "help.chm").string()});
  EXPECT_EQ(window->findChild<HelpWindow*>(), nullptr);
  dialogs.openSucceeds = false;  // nothing on this desktop reads it
  trigger("menuHilfe");
  ASSERT_NE(window->findChild<HelpWindow*>(), nullptr);
  EXPECT_TRUE(window->findChild<HelpWindow*>()->page()->toPlainText().startsWith(
      "The user guide was not found."));
}

}  // namespace
}  // namespace pescavo
