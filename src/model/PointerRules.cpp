#include "model/PointerRules.h"

#include <algorithm>
#include <iterator>

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

HandPointerRule handPointerRule(ComponentWindow window, std::string_view control) {
  static constexpr std::string_view kEditorButtons[] = {"Abbrechen",       "Command1",   "Command2",
                                                        "Fertig",          "go2",        "Loeschen",
                                                        "Neuer_Datensatz", "PrintButton"};
  static constexpr std::string_view kOverviewButtons[] = {"Command2", "Fertig", "Go3",
                                                          "PrintButton"};
  const auto listed = [control](const auto& names) {
    return std::find(std::begin(names), std::end(names), control) != std::end(names);
  };
  if (window == ComponentWindow::Futterkomponenten)
    return listed(kOverviewButtons) ? HandPointerRule::Always : HandPointerRule::Never;
  if (control == "KategorieCombo") return HandPointerRule::AfterClick;
  return listed(kEditorButtons) ? HandPointerRule::Always : HandPointerRule::Never;
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
