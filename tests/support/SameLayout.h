#pragma once

#include <gtest/gtest.h>

#include "model/MainWindowLayout.h"

namespace pescavo {

// Every field of every control and the width, as the window copies them; names each that differs.
inline ::testing::AssertionResult sameLayout(const MainWindowLayout& a, const MainWindowLayout& b) {
  std::string differ = a.width() != b.width() ? " width" : "";
  for (ControlId id : allControls()) {
    const ControlState& x = a.at(id);
    const ControlState& y = b.at(id);
    if (x.caption != y.caption || x.tooltip != y.tooltip || x.left != y.left || x.top != y.top ||
        x.width != y.width || x.height != y.height || x.visible != y.visible ||
        x.enabled != y.enabled || x.parent != y.parent)
      differ += std::string(" ") + controlName(id);
  }
  if (differ.empty()) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << "differ:" << differ;
}

}  // namespace pescavo
