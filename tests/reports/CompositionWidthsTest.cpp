#include <gtest/gtest.h>

#include <numeric>

#include "reports/ResultTables.h"

namespace pescavo {
namespace {

// On screen every column fits: the widths fill the visible width exactly and keep the design's
// proportions to within a pixel; printing keeps the design's widths, wider than the grid.
TEST(CompositionWidths, ScreenColumnsFillTheGridInTheDesignProportions) {
  const std::array<int, 9> design = compositionColumnWidths(100000);
  const double designTotal = std::accumulate(design.begin(), design.end(), 0.0);
  EXPECT_GT(designTotal, 140000);
  for (int width : {0, 9, 640, 913, 1600}) {
    const std::array<int, 9> screen = compositionScreenWidths(width);
    EXPECT_EQ(std::accumulate(screen.begin(), screen.end(), 0), width) << width;
    for (int c = 0; c < 9; ++c) {
      EXPECT_GE(screen[c], 0);
      EXPECT_NEAR(screen[c], design[c] * width / designTotal, 1.0) << width << " column " << c;
    }
  }
  EXPECT_EQ(compositionScreenWidths(-5), (std::array<int, 9>{}));
}

}  // namespace
}  // namespace pescavo
