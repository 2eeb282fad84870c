#pragma once

#include <optional>

#include "engine/IndependentCheck.h"

namespace pescavo {

// How the windows mark the independent check's verdict, as plain values the windows apply:
// a figure the check does not vouch for must stand out wherever it is shown.

struct Rgb {
  int red = 0, green = 0, blue = 0;
  friend bool operator==(const Rgb& a, const Rgb& b) {
    return a.red == b.red && a.green == b.green && a.blue == b.blue;
  }
  friend bool operator!=(const Rgb& a, const Rgb& b) { return !(a == b); }
};

struct TextStyle {
  Rgb text;
  bool bold = false;
  std::optional<Rgb> background;  // none: the window's own
  std::optional<Rgb> border;
  int borderWidth = 0;  // pixels
};

// The check's sentence under the result in the main window (Gegenpruefung): quiet when it
// agrees; a disagreement and a check that could not run look alike, since neither vouches.
TextStyle checkSentenceStyle(CheckVerdict verdict);

// A run of the scenario table: every cell of a run the check does not vouch for takes the
// background, and the check's own two cells the text style as well. No mark for a run that
// agrees or has not been made.
struct RunMark {
  Rgb background;
  Rgb checkText;
  bool checkBold = true;
};
std::optional<RunMark> scenarioRunMark(CheckVerdict verdict, bool made);

// The report windows' line above the report: shown only when the check does not agree.
bool reportCheckWarningShown(CheckVerdict verdict);
TextStyle reportCheckWarningStyle();

}  // namespace pescavo
