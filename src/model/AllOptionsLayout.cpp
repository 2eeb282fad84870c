#include "model/AllOptionsLayout.h"

#include "model/WindowOptions.h"

namespace pescavo {

namespace {

using C = ControlId;

constexpr ControlId kRevealed[] = {C::Frame1, C::Option2,          C::Option1,   C::Check2,
                                   C::Check1, C::FischmehlCaption, C::Fischmehl, C::Check4,
                                   C::Check5, C::Optimierung2};

void place(MainWindowLayout& layout, ControlId id, int left, int top, int width, int height) {
  ControlState& state = layout.at(id);
  state.left = left;
  state.top = top;
  state.width = width;
  state.height = height;
  state.visible = true;
  state.enabled = true;
}

}  // namespace

// Below the species group, in the order a run reads them: criterion, limits, then the
// pseudo-components with the fish-meal grade under PC. The boxes start next to the separator
// and the sweep's button reaches further left than designed, so that no caption is cut.
void showAllOptions(MainWindowLayout& layout) {
  place(layout, C::Frame1, 12000, 2040, 3252, 1035);
  place(layout, C::Option2, 120, 240, 2295, 300);
  place(layout, C::Option1, 120, 600, 2295, 300);
  place(layout, C::Check2, 11280, 3180, 4500, 495);
  place(layout, C::Check1, 11280, 3720, 3735, 495);
  place(layout, C::FischmehlCaption, 11520, 4260, 900, 360);
  place(layout, C::Fischmehl, 12480, 4260, 2655, 360);
  place(layout, C::Check4, 11280, 4740, 3735, 495);
  place(layout, C::Check5, 11280, 5280, 3735, 495);
  place(layout, C::Optimierung2, 15540, 4920, 1995, 615);
  // The component editor belongs to the full set of tools as well.
  layout.show({C::MenuEdit});
}

void hideAllOptions(MainWindowLayout& layout) {
  static const MainWindowLayout design;
  for (ControlId id : kRevealed) {
    ControlState& state = layout.at(id);
    const ControlState& from = design.at(id);
    state.left = from.left;
    state.top = from.top;
    state.width = from.width;
    state.height = from.height;
    state.visible = from.visible;
    state.enabled = from.enabled;
  }
  // Start-up hides the caption that the design shows.
  layout.hide({C::FischmehlCaption, C::MenuEdit});
}

void resetHiddenOptions(WindowOptions& options) {
  const WindowOptions fresh;
  if (options.criterionOption() != fresh.criterionOption())
    options.setCriterionOption(fresh.criterionOption());
  const PseudoComponents pseudo = options.pseudoComponents();
  const PseudoComponents all = fresh.pseudoComponents();
  if (pseudo.pc != all.pc || pseudo.cc != all.cc || pseudo.f != all.f)
    options.setPseudoComponents(all);
  if (options.mrbdLimits() != fresh.mrbdLimits()) options.setMrbdLimits(fresh.mrbdLimits());
  if (options.fishmealGrade() != fresh.fishmealGrade())
    options.setFishmealGrade(fresh.fishmealGrade());
}

}  // namespace pescavo
