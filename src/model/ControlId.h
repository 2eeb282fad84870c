#pragma once

#include <array>

namespace pescavo {

// The controls of the main window in design order, each named as the window names it. The ids
// and the names are made from this one list, so an id that is not a control does not compile.
// clang-format off
#define PESCAVO_MAIN_WINDOW_CONTROLS(X)                                                            \
  X(Label6)                                                                                        \
  X(Label7) X(Label8) X(Label32) X(Schadstoffliste) X(Add) X(Edit) X(Kopieren) X(Loeschen)         \
      X(Label5) X(Schadstoffname) X(schadstoffwerte) X(EingabeSchadstoff)                          \
          X(ArtSchadstoffwertCombo) X(Suche) X(Go) X(Label31) X(Fischfutter1) X(Command1)          \
              X(alle_rein) X(Rein) X(raus) X(alle_raus) X(Label1) X(Fischfutter2) X(Label9)        \
                  X(Frame1) X(Option2) X(Option1) X(Frame2) X(Option3) X(Option4) X(Check2)        \
                      X(Check1) X(Check4) X(Check5) X(FischmehlCaption) X(Fischmehl) X(Fischarten) \
                          X(MinMax) X(Optimierung) X(Optimierung2) X(Abbrechen) X(ReportButton)    \
                              X(Ende) X(Ergebnis) X(Gegenpruefung) X(Image1) X(Image2) X(Image3)   \
                                  X(Image4) X(Image5) X(Image6) X(Image7) X(Image8) X(Line1)       \
                                      X(Line2) X(restore) X(MenuEdit)

#define PESCAVO_CONTROL_ID(name) name,
enum class ControlId { PESCAVO_MAIN_WINDOW_CONTROLS(PESCAVO_CONTROL_ID) };
#undef PESCAVO_CONTROL_ID

#define PESCAVO_CONTROL_COUNT(name) +1
constexpr int kControlCount = 0 PESCAVO_MAIN_WINDOW_CONTROLS(PESCAVO_CONTROL_COUNT);
#undef PESCAVO_CONTROL_COUNT

#define PESCAVO_CONTROL_NAME(name) #name,
constexpr std::array<const char*, kControlCount> kControlNames = {
    PESCAVO_MAIN_WINDOW_CONTROLS(PESCAVO_CONTROL_NAME)};
#undef PESCAVO_CONTROL_NAME

constexpr int index(ControlId id) { return static_cast<int>(id); }
// The name the window gives the control's widget; screen readers fall back on it.
constexpr const char* controlName(ControlId id) { return kControlNames[index(id)]; }

// Every id in design order, for loops over the whole window.
constexpr std::array<ControlId, kControlCount> allControls() {
  std::array<ControlId, kControlCount> ids{};
  for (int k = 0; k < kControlCount; ++k) ids[k] = static_cast<ControlId>(k);
  return ids;
}

}  // namespace pescavo
