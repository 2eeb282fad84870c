#include "model/WindowPlacement.h"

#include <algorithm>

namespace pescavo {

namespace {

constexpr int kCascadeStep = 24;
constexpr int kCascadeWindows = 8;  // then the steps begin again at the top

}  // namespace

WindowRect besideReportWindow(const WindowRect& report, int width, int height,
                              const WindowRect& screen, int n, int minimumWidth) {
  WindowRect placed;
  placed.width = std::min(width, screen.width);
  placed.height = std::min(height, screen.height);
  const int roomRight = screen.right() - report.right();
  const int roomLeft = report.left - screen.left;
  if (roomRight >= placed.width) {
    placed.left = report.right();
  } else if (roomLeft >= placed.width) {
    placed.left = report.left - placed.width;
  } else {
    // Narrowed to the wider side's room, but not below the window's minimum: then it covers
    // as little of the report window as it can.
    const int room = std::max(roomRight, roomLeft);
    placed.width = std::min(placed.width, std::max(room, minimumWidth));
    placed.left = roomRight >= roomLeft ? std::min(report.right(), screen.right() - placed.width)
                                        : std::max(screen.left, report.left - placed.width);
  }
  const int top = report.top + (n % kCascadeWindows) * kCascadeStep;
  placed.top = std::clamp(top, screen.top, screen.bottom() - placed.height);
  return placed;
}

}  // namespace pescavo
