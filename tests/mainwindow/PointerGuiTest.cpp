#include <QAbstractScrollArea>

#include "HauptformFixture.h"

namespace pescavo {
namespace {

class PointerGuiTest : public HauptformTest {
 protected:
  QWidget* viewport(const char* name) const { return find<QAbstractScrollArea>(name)->viewport(); }
};

// The hand shows where the rules say, and a missing or broken cursor file leaves the pointer as
// it is; the file is read again at the next move.
TEST_F(PointerGuiTest, TheChosenListShowsTheHandOnceItHoldsComponents) {
  ASSERT_TRUE(start());
  EXPECT_TRUE(handOver(find("Optimierung")));
  EXPECT_FALSE(handOver(viewport("Fischfutter2")));
  EXPECT_TRUE(handOver(viewport("Fischfutter1")));
  click("alle_rein");
  EXPECT_TRUE(handOver(viewport("Fischfutter2")));
  EXPECT_FALSE(handOver(find("Label1")));
  click("Image2");  // the information window's "OK" too
  EXPECT_TRUE(handOver(window->findChild<QWidget*>("OKButton")));

  std::filesystem::remove(input() / "harrow.cur");
  EXPECT_FALSE(handOver(find("Add")));
  write(input() / "harrow.cur", std::string("\0\0\2\0\1\0not a cursor at all", 26));
  EXPECT_FALSE(handOver(find("Add")));
  write(input() / "harrow.cur", read(std::filesystem::path(PESCAVO_SAMPLE_INPUT) / "harrow.cur"));
  EXPECT_TRUE(handOver(find("Add")));
}

TEST_F(PointerGuiTest, TheComponentWindowsTakeTheHandFromTheInputFolder) {
  ASSERT_TRUE(start());
  const auto handIn = [&](const char* opener, const char* button) {
    bool hand = false;
    whileModal([&] { opener[0] == 'M' ? trigger(opener) : click(opener); },
               [&](QWidget& modal) { hand = handOver(child(modal, button)); });
    return hand;
  };
  EXPECT_TRUE(handIn("MenuFischfutter", "Neuer_Datensatz"));
  EXPECT_TRUE(handIn("Command1", "Go3"));
  std::filesystem::remove(input() / "harrow.cur");
  EXPECT_FALSE(handIn("Command1", "PrintButton"));
}

}  // namespace
}  // namespace pescavo
