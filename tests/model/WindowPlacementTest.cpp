#include <gtest/gtest.h>

#include "model/WindowPlacement.h"

namespace pescavo {
namespace {

bool within(const WindowRect& inner, const WindowRect& outer) {
  return inner.left >= outer.left && inner.top >= outer.top && inner.right() <= outer.right() &&
         inner.bottom() <= outer.bottom();
}

bool apart(const WindowRect& a, const WindowRect& b) {
  return a.right() <= b.left || b.right() <= a.left || a.bottom() <= b.top || b.bottom() <= a.top;
}

TEST(WindowPlacement, ScenarioWindowsGoBesideTheReportWindowWithinTheScreen) {
  const WindowRect screen{0, 0, 1920, 1080};
  // Room on the right: there, cascading down from the report window's top.
  const WindowRect report{100, 50, 1000, 660};
  const WindowRect first = besideReportWindow(report, 800, 600, screen, 0);
  EXPECT_EQ(first.left, 1100);
  EXPECT_EQ(first.top, 50);
  EXPECT_EQ(first.width, 800);
  EXPECT_EQ(besideReportWindow(report, 800, 600, screen, 3).top, 50 + 3 * 24);
  EXPECT_EQ(besideReportWindow(report, 800, 600, screen, 8).top, 50);
  // Room on the left only.
  const WindowRect onTheRight{900, 50, 1000, 660};
  const WindowRect left = besideReportWindow(onTheRight, 800, 600, screen, 0);
  EXPECT_EQ(left.right(), 900);
  // Room on neither side for the whole width: narrowed to the wider side's room.
  const WindowRect narrowed =
      besideReportWindow({0, 0, 1000, 660}, 940, 600, {0, 0, 1600, 1000}, 0);
  EXPECT_EQ(narrowed.left, 1000);
  EXPECT_EQ(narrowed.width, 600);
  // Not below the window's minimum: then at the screen's edge, over the report window's edge.
  const WindowRect overlapping =
      besideReportWindow({0, 0, 1000, 660}, 940, 600, {0, 0, 1600, 1000}, 0, 650);
  EXPECT_EQ(overlapping.right(), 1600);
  EXPECT_EQ(overlapping.width, 650);
  // Too little room anywhere: at the screen's right edge, within it, also low down.
  const WindowRect small{0, 0, 800, 500};
  const WindowRect edge = besideReportWindow({0, 300, 700, 200}, 940, 600, small, 7);
  EXPECT_TRUE(within(edge, small));
  EXPECT_EQ(edge.right(), 800);

  for (const WindowRect& anchor : {report, onTheRight, WindowRect{0, 0, 1000, 660}}) {
    for (int n = 0; n < 16; ++n) {
      const WindowRect placed = besideReportWindow(anchor, 900, 700, screen, n);
      EXPECT_TRUE(within(placed, screen)) << n;
      EXPECT_TRUE(apart(placed, anchor)) << n;
    }
  }
}

}  // namespace
}  // namespace pescavo
