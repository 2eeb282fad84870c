#pragma once

namespace pescavo {

// A window's frame on the desktop, in device-independent pixels.
struct WindowRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  int right() const { return left + width; }
  int bottom() const { return top + height; }
};

// Where the n-th scenario window (from 0) goes beside the report window, so that the scenario
// table stays in sight: to its right when the screen has room for the window there, else to its
// left, else on the wider side narrowed to that room, but never below the window's minimum
// width, so that it then covers as little of the report window as it can. Each next window
// cascades down one step; every window stays within the screen.
WindowRect besideReportWindow(const WindowRect& report, int width, int height,
                              const WindowRect& screen, int n, int minimumWidth = 0);

}  // namespace pescavo
