#include "model/CheckStyles.h"

namespace pescavo {

TextStyle checkSentenceStyle(CheckVerdict verdict) {
  if (verdict == CheckVerdict::Agrees) return TextStyle{{96, 96, 96}, false, {}, {}, 0};
  const Rgb warning{192, 0, 0};
  return TextStyle{warning, true, Rgb{255, 255, 0}, warning, 2};
}

std::optional<RunMark> scenarioRunMark(CheckVerdict verdict, bool made) {
  if (!made) return std::nullopt;
  const Rgb warningText{160, 0, 0};
  switch (verdict) {
    case CheckVerdict::Agrees:
      return std::nullopt;
    case CheckVerdict::Differs:
      return RunMark{{255, 200, 200}, warningText, true};
    case CheckVerdict::CouldNotRun:
      break;
  }
  return RunMark{{255, 236, 179}, warningText, true};
}

bool reportCheckWarningShown(CheckVerdict verdict) { return verdict != CheckVerdict::Agrees; }

TextStyle reportCheckWarningStyle() { return TextStyle{{192, 0, 0}, true, {}, {}, 0}; }

}  // namespace pescavo
