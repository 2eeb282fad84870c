#include "model/MainWindowLayout.h"

#include <stdexcept>

namespace pescavo {

namespace {

using C = ControlId;

ControlState placed(std::string caption, int left, int top, int width, int height,
                    bool visible = true) {
  ControlState state;
  state.caption = std::move(caption);
  state.left = left;
  state.top = top;
  state.width = width;
  state.height = height;
  state.visible = visible;
  return state;
}

ControlState withTooltip(ControlState state, std::string tooltip) {
  state.tooltip = std::move(tooltip);
  return state;
}

ControlState named(ControlState state, std::string accessibleName) {
  state.accessibleName = std::move(accessibleName);
  return state;
}

ControlState inside(ControlState state, ControlId frame) {
  state.parent = frame;
  return state;
}

// The information images and the logo have no place in the design table: they sit beside the
// group they explain, clear of every control in both layouts.
constexpr int kImageSize = 300;
constexpr int kLogoSize = 840;

}  // namespace

MainWindowLayout::MainWindowLayout() {
  add(C::Label6, placed("1.", 0, 0, 360, 375));  // ends where the heading beside it starts
  add(C::Label7, placed("2.", 3960, 0, 375, 375));
  add(C::Label8, placed("3.", 11640, 0, 375, 375));
  add(C::Label32, placed("Substances database", 360, 240, 2895, 375));
  add(C::Schadstoffliste, named(placed("", 240, 840, 2655, 3504), "Substances"));
  add(C::Add, placed("Add substance", 240, 4560, 2655, 495));
  add(C::Edit, placed("Edit ", 240, 5160, 735, 495));
  add(C::Kopieren, placed("Copy ", 1200, 5160, 735, 495));
  add(C::Loeschen, placed("Del", 2160, 5160, 735, 495));
  at(C::Loeschen).enabled = false;
  add(C::Label5, placed("Substance:", 120, 6000, 1575, 375, false));
  add(C::Schadstoffname, named(placed("", 1800, 6000, 2055, 375, false), "Substance name"));
  add(C::schadstoffwerte, named(placed("", 240, 600, 15135, 615, false), "Residue values"));
  add(C::EingabeSchadstoff, named(placed("", 4920, 960, 855, 285, false), "Residue value"));
  add(C::ArtSchadstoffwertCombo,
      named(placed("", 3840, 960, 1095, 315, false), "Residue input value"));
  add(C::Suche, named(placed("Search...", 12600, 0, 2175, 375, false), "Search"));
  add(C::Go, placed("Go", 15120, 0, 375, 375, false));
  add(C::Label31, placed("Available components", 4560, 240, 2415, 375));
  add(C::Fischfutter1, named(placed("", 4560, 840, 2655, 4656), "Available components"));
  add(C::Command1, placed("Show details", 4560, 5760, 2655, 255));
  add(C::alle_rein, withTooltip(placed("---->>", 7440, 1680, 615, 375),
                                "Add all available components to optimization."));
  add(C::Rein, withTooltip(placed("--->", 7440, 2400, 615, 375),
                           "Add the chosen component(s) to optimization."));
  add(C::raus, withTooltip(placed("<---", 7440, 3480, 615, 375),
                           "Remove the chosen component(s) from optimization."));
  add(C::alle_raus, withTooltip(placed("<<----", 7440, 4200, 615, 375),
                                "Remove all components from optimization."));
  add(C::Label1, placed("Components in optimization", 8400, 240, 3015, 375));
  add(C::Fischfutter2, named(placed("", 8400, 840, 2655, 4656), "Components in optimization"));
  add(C::Label9, placed("Options", 12240, 240, 1935, 375));
  add(C::Frame1, placed("Criteria", 11880, 840, 2655, 615, false));
  add(C::Option2, inside(placed("Maximum", 120, 240, 2295, 300), C::Frame1));
  add(C::Option1, inside(placed("Minimum", 120, 600, 2295, 300, false), C::Frame1));
  at(C::Option1).enabled = false;
  add(C::Frame2, placed("Fish species", 12000, 720, 3252, 1215));
  add(C::Option3, inside(placed("Common carp", 120, 240, 2895, 315), C::Frame2));
  add(C::Option4, inside(placed("Rainbow trout", 120, 600, 2895, 315), C::Frame2));
  add(C::Check2,
      placed("\"maximum reasonable balanced diet (MRBD)\"", 11640, 3720, 3615, 495, false));
  add(C::Check1, placed("add fish meal as feed component (PC)", 11640, 4200, 3735, 615, false));
  add(C::Check4, placed("add starch as feed component (CC)", 11640, 4920, 3735, 495, false));
  add(C::Check5, placed("add oil as feed component (F)", 11640, 5640, 3615, 495, false));
  add(C::FischmehlCaption, placed("Fishmeal", 11760, 5160, 2775, 735, false));
  add(C::Fischmehl, named(placed("", 12480, 3360, 2655, 360, false), "Fishmeal"));
  add(C::Fischarten, named(placed("", 11760, 2640, 2655, 360, false), "Fish species"));
  add(C::MinMax, named(placed("", 11880, 2640, 2655, 360, false), "Criterion"));
  add(C::Optimierung, placed("Optimize", 15840, 1200, 1695, 615));
  add(C::Optimierung2, placed("Optimize all Scenarios", 15840, 4920, 1695, 615, false));
  add(C::Abbrechen, placed("Cancel", 15840, 3480, 1695, 615, false));
  add(C::ReportButton, placed("Report", 15840, 4200, 1695, 615, false));
  add(C::Ende, placed("Exit", 15840, 5640, 1695, 615));
  add(C::Ergebnis, named(placed("", 15840, 2040, 1692, 1332, false), "Result"));
  // The independent check's sentence under the result, in the room "Cancel" has while editing.
  add(C::Gegenpruefung, named(placed("", 15840, 3390, 1695, 780, false), "Independent check"));
  add(C::Image1, named(placed("", 16680, 6360, kLogoSize, kLogoSize), "Pescavo logo, About"));
  add(C::Image2,
      named(placed("", 11640, 840, kImageSize, kImageSize), "Information: fish species"));
  add(C::Image3,
      named(placed("", 11280, 960, kImageSize, kImageSize, false), "Information: criteria"));
  add(C::Image4, named(placed("", 11280, 3810, kImageSize, kImageSize, false),
                       "Information: restriction of feed components"));
  add(C::Image5,
      named(placed("", 11280, 4350, kImageSize, kImageSize, false), "Information: fish meal"));
  add(C::Image6,
      named(placed("", 15480, 600, kImageSize, kImageSize, false), "Information: residue value"));
  add(C::Image7, named(placed("", 11280, 5010, kImageSize, kImageSize, false),
                       "Information: carbohydrate concentrate"));
  add(C::Image8, named(placed("", 11280, 5730, kImageSize, kImageSize, false), "Information: fat"));
  add(C::Line1, named(placed("", 3690, 600, 45, 5700), "Separator"));
  add(C::Line2, named(placed("", 11220, 720, 45, 5580), "Separator"));
  add(C::restore, placed("&restore original data base", 0, 0, 0, 0));
  add(C::MenuEdit, placed("&Edit", 0, 0, 0, 0));
  if (m_added != kControlCount) throw std::logic_error("the design table misses controls");
}

void MainWindowLayout::add(ControlId id, ControlState state) {
  if (index(id) != m_added)
    throw std::logic_error(std::string("the design table lists ") + controlName(id) +
                           " out of order");
  m_controls[m_added++] = std::move(state);
}

void MainWindowLayout::show(std::initializer_list<ControlId> ids) {
  for (ControlId id : ids) at(id).visible = true;
}

void MainWindowLayout::hide(std::initializer_list<ControlId> ids) {
  for (ControlId id : ids) at(id).visible = false;
}

void MainWindowLayout::moveTo(ControlId id, int left, int top) {
  ControlState& state = at(id);
  state.left = left;
  state.top = top;
}

void MainWindowLayout::applySimpleLayout(bool afterEditing) {
  hide({C::Check1});
  show({C::Fischmehl, C::FischmehlCaption});
  hide({C::Check2, C::Optimierung2, C::MinMax, C::Fischfutter2, C::alle_rein, C::alle_raus, C::Rein,
        C::raus, C::Label31});
  m_width = kSimpleWidth;
  // What the narrow window leaves beyond its edge is hidden too, so that neither the keyboard
  // nor a screen reader reaches controls the eye cannot see.
  hide({C::Label8, C::Label9, C::Frame2, C::Image2, C::Line2});
  for (ControlId name :
       {C::Fischfutter1, C::Command1, C::Label1, C::Fischarten, C::FischmehlCaption})
    at(name).left = 4000;
  const int captionTop = afterEditing ? 3250 : 3050;
  at(C::FischmehlCaption).top = captionTop;
  moveTo(C::Fischmehl, 4000, afterEditing ? 3600 : 3400);
  // The list keeps its place but ends above the fish-meal chooser that now sits over it.
  ControlState& list = at(C::Fischfutter1);
  list.height = captionTop - list.top - 60;
  moveTo(C::Optimierung, 7000, 600);
  moveTo(C::ReportButton, 7000, 2880);
  moveTo(C::Ergebnis, 7000, 1440);
  moveTo(C::Gegenpruefung, 7000, 3600);
  at(C::Ende).left = 7000;
  at(C::Image1).left = 7840;
}

}  // namespace pescavo
