#include "model/PointerRules.h"

namespace pescavo {

HandPointerRule handPointerRule(ControlId id) {
  using C = ControlId;
  switch (id) {
    case C::Abbrechen:
    case C::Add:
    case C::alle_raus:
    case C::alle_rein:
    case C::Check1:
    case C::Check2:
    case C::Command1:
    case C::Edit:
    case C::Ende:
    case C::Go:
    case C::Image1:
    case C::Image3:
    case C::Kopieren:
    case C::Loeschen:
    case C::Optimierung:
    case C::Optimierung2:
    case C::Option1:
    case C::Option2:
    case C::Option3:
    case C::Option4:
    case C::raus:
    case C::Rein:
    case C::ReportButton:
    case C::Schadstoffliste:
      return HandPointerRule::Always;
    case C::Fischfutter1:
    case C::Fischfutter2:
      return HandPointerRule::WhileFilled;
    case C::schadstoffwerte:
      return HandPointerRule::OnEditableColumn;
    case C::ArtSchadstoffwertCombo:
    case C::Fischmehl:
      return HandPointerRule::AfterClick;
    default:
      return HandPointerRule::Never;
  }
}

bool showsHandPointer(HandPointerRule rule, int items, int column, bool clicked) {
  constexpr int kBasisColumn = 4;
  constexpr int kValueColumn = 5;
  switch (rule) {
    case HandPointerRule::Always:
      return true;
    case HandPointerRule::WhileFilled:
      return items > 0;
    case HandPointerRule::OnEditableColumn:
      return column == kBasisColumn || column == kValueColumn;
    case HandPointerRule::AfterClick:
      return clicked;
    case HandPointerRule::Never:
      break;
  }
  return false;
}

}  // namespace pescavo
