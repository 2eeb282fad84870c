#include <QAbstractScrollArea>
#include <QMouseEvent>
#include <QPushButton>
#include <QTimer>
#include <functional>

#include "HauptformFixture.h"

namespace pescavo {
namespace {

class PointerGuiTest : public HauptformTest {
 protected:
  // The mouse comes in and moves over the widget; true when it then shows the file's pointer.
  static bool handOver(QWidget* widget) {
    QEvent enter(QEvent::Enter);
    QCoreApplication::sendEvent(widget, &enter);
    QMouseEvent move(QEvent::MouseMove, QPointF(4, 4), QPointF(4, 4), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &move);
    return widget->testAttribute(Qt::WA_SetCursor) && widget->cursor().shape() == Qt::BitmapCursor;
  }
  QWidget* viewport(const char* name) const { return find<QAbstractScrollArea>(name)->viewport(); }
};

TEST_F(PointerGuiTest, TheChosenListShowsTheHandOnceItHoldsComponents) {
  ASSERT_TRUE(start());
  EXPECT_TRUE(handOver(find("Optimierung")));
  EXPECT_FALSE(handOver(viewport("Fischfutter2")));
  EXPECT_TRUE(handOver(viewport("Fischfutter1")));
  click("alle_rein");
  EXPECT_TRUE(handOver(viewport("Fischfutter2")));
  click("alle_raus");
  EXPECT_FALSE(handOver(viewport("Fischfutter2")));
  EXPECT_FALSE(handOver(find("Label1")));
  click("Image2");  // the information window's "OK" too
  EXPECT_TRUE(handOver(window->findChild<QWidget*>("OKButton")));
}

TEST_F(PointerGuiTest, AMissingOrBrokenCursorFileLeavesThePointerAsItIs) {
  ASSERT_TRUE(start());
  std::filesystem::remove(input() / "harrow.cur");
  EXPECT_FALSE(handOver(find("Add")));
  write(input() / "harrow.cur", std::string("\0\0\2\0\1\0not a cursor at all", 26));
  EXPECT_FALSE(handOver(find("Add")));
  EXPECT_TRUE(window->isVisible());
  std::filesystem::copy_file(std::filesystem::path(PESCAVO_SAMPLE_INPUT) / "harrow.cur",
                             input() / "harrow.cur",
                             std::filesystem::copy_options::overwrite_existing);
  EXPECT_TRUE(handOver(find("Add")));  // read again at the next move
}

// The main window hands its cursor file to the component windows it opens.
TEST_F(PointerGuiTest, TheComponentWindowsTakeTheHandFromTheInputFolder) {
  ASSERT_TRUE(start());
  // Over the named button of the modal window that opener opens, closed again by "close".
  const auto handInModal = [&](const std::function<void()>& opener, const char* button,
                               const char* close) {
    bool hand = false;
    QTimer::singleShot(0, [&] {
      QWidget* modal = QApplication::activeModalWidget();
      ASSERT_NE(modal, nullptr);
      hand = handOver(modal->findChild<QWidget*>(button));
      modal->findChild<QPushButton*>(close)->click();
    });
    opener();
    return hand;
  };
  const auto editor = [&] { window->findChild<QAction*>("MenuFischfutter")->trigger(); };
  const auto overview = [&] { click("Command1"); };
  EXPECT_TRUE(handInModal(editor, "Neuer_Datensatz", "Abbrechen"));
  EXPECT_TRUE(handInModal(overview, "Go3", "Fertig"));
  std::filesystem::remove(input() / "harrow.cur");
  EXPECT_FALSE(handInModal(overview, "PrintButton", "Fertig"));
}

}  // namespace
}  // namespace pescavo
