#include "model/MainWindowLayout.h"

#include <stdexcept>

namespace pescavo {

namespace {

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

ControlState inside(ControlState state, std::string frame) {
  state.parent = std::move(frame);
  return state;
}

// The information images and the logo have no place in the design table: they sit beside the
// group they explain, clear of every control in both layouts.
constexpr int kImageSize = 300;
constexpr int kLogoSize = 840;

}  // namespace

MainWindowLayout::MainWindowLayout() {
  add("Label6", placed("1.", 0, 0, 375, 375));
  add("Label7", placed("2.", 3960, 0, 375, 375));
  add("Label8", placed("3.", 11640, 0, 375, 375));
  add("Label32", placed("Substances database", 360, 240, 2895, 375));
  add("Schadstoffliste", named(placed("", 240, 840, 2655, 3504), "Substances"));
  add("Add", placed("Add substance", 240, 4560, 2655, 495));
  add("Edit", placed("Edit ", 240, 5160, 735, 495));
  add("Kopieren", placed("Copy ", 1200, 5160, 735, 495));
  add("Loeschen", placed("Del", 2160, 5160, 735, 495));
  at("Loeschen").enabled = false;
  add("Label5", placed("Substance:", 120, 6000, 1575, 375, false));
  add("Schadstoffname", named(placed("", 1800, 6000, 2055, 375, false), "Substance name"));
  add("schadstoffwerte", named(placed("", 240, 600, 15135, 615, false), "Residue values"));
  add("EingabeSchadstoff", named(placed("", 4920, 960, 855, 285, false), "Residue value"));
  add("ArtSchadstoffwertCombo",
      named(placed("", 3840, 960, 1095, 315, false), "Residue input value"));
  add("Suche", named(placed("Search...", 12600, 0, 2175, 375, false), "Search"));
  add("Go", placed("Go", 15120, 0, 375, 375, false));
  add("Label31", placed("Available components", 4560, 240, 2415, 375));
  add("Fischfutter1", named(placed("", 4560, 840, 2655, 4656), "Available components"));
  add("Command1", placed("Show details", 4560, 5760, 2655, 255));
  add("alle_rein", withTooltip(placed("---->>", 7440, 1680, 615, 375),
                               "Add all available components to optimization."));
  add("Rein", withTooltip(placed("--->", 7440, 2400, 615, 375),
                          "Add the chosen component(s) to optimization."));
  add("raus", withTooltip(placed("<---", 7440, 3480, 615, 375),
                          "Remove the chosen component(s) from optimization."));
  add("alle_raus", withTooltip(placed("<<----", 7440, 4200, 615, 375),
                               "Remove all components from optimization."));
  add("Label1", placed("Components in optimization", 8400, 240, 3015, 375));
  add("Fischfutter2", named(placed("", 8400, 840, 2655, 4656), "Components in optimization"));
  add("Label9", placed("Options", 12240, 240, 1935, 375));
  add("Frame1", placed("Criteria", 11880, 840, 2655, 615, false));
  add("Option2", inside(placed("Maximum", 120, 240, 2295, 300), "Frame1"));
  add("Option1", inside(placed("Minimum", 120, 600, 2295, 300, false), "Frame1"));
  at("Option1").enabled = false;
  add("Frame2", placed("Fish species", 12000, 720, 3252, 1215));
  add("Option3", inside(placed("Common carp", 120, 240, 2895, 315), "Frame2"));
  add("Option4", inside(placed("Rainbow trout", 120, 600, 2895, 315), "Frame2"));
  add("Check2",
      placed("\"maximum reasonable balanced diet (MRBD)\"", 11640, 3720, 3615, 495, false));
  add("Check1", placed("add fish meal as feed component (PC)", 11640, 4200, 3735, 615, false));
  add("Check4", placed("add starch as feed component (CC)", 11640, 4920, 3735, 495, false));
  add("Check5", placed("add oil as feed component (F)", 11640, 5640, 3615, 495, false));
  add("FischmehlCaption", placed("Fishmeal", 11760, 5160, 2775, 735, false));
  add("Fischmehl", named(placed("", 12480, 3360, 2655, 360, false), "Fishmeal"));
  add("Fischarten", named(placed("", 11760, 2640, 2655, 360, false), "Fish species"));
  add("MinMax", named(placed("", 11880, 2640, 2655, 360, false), "Criterion"));
  add("Optimierung", placed("Optimize", 15840, 1200, 1695, 615));
  add("Optimierung2", placed("Optimize all Scenarios", 15840, 4920, 1695, 615, false));
  add("Abbrechen", placed("Cancel", 15840, 3480, 1695, 615, false));
  add("ReportButton", placed("Report", 15840, 4200, 1695, 615, false));
  add("Ende", placed("Exit", 15840, 5640, 1695, 615));
  add("Ergebnis", named(placed("", 15840, 2040, 1692, 1332, false), "Result"));
  // The independent check's sentence under the result, in the room "Cancel" has while editing.
  add("Gegenpruefung", named(placed("", 15840, 3390, 1695, 780, false), "Independent check"));
  add("Image1", named(placed("", 16680, 6360, kLogoSize, kLogoSize), "Pescavo logo, About"));
  add("Image2", named(placed("", 11640, 840, kImageSize, kImageSize), "Information: fish species"));
  add("Image3",
      named(placed("", 11280, 960, kImageSize, kImageSize, false), "Information: criteria"));
  add("Image4", named(placed("", 11280, 3810, kImageSize, kImageSize, false),
                      "Information: restriction of feed components"));
  add("Image5",
      named(placed("", 11280, 4350, kImageSize, kImageSize, false), "Information: fish meal"));
  add("Image6",
      named(placed("", 15480, 600, kImageSize, kImageSize, false), "Information: residue value"));
  add("Image7", named(placed("", 11280, 5010, kImageSize, kImageSize, false),
                      "Information: carbohydrate concentrate"));
  add("Image8", named(placed("", 11280, 5730, kImageSize, kImageSize, false), "Information: fat"));
  add("Line1", named(placed("", 3690, 600, 45, 5700), "Separator"));
  add("Line2", named(placed("", 11220, 720, 45, 5580), "Separator"));
  add("restore", placed("&restore original data base", 0, 0, 0, 0));
  add("MenuEdit", placed("&Edit", 0, 0, 0, 0));
}

void MainWindowLayout::add(std::string name, ControlState state) {
  m_names.push_back(name);
  m_controls.emplace(std::move(name), std::move(state));
}

const ControlState& MainWindowLayout::at(std::string_view name) const {
  const auto found = m_controls.find(name);
  if (found == m_controls.end())
    throw std::out_of_range("no control " + std::string(name) + " in the main window");
  return found->second;
}

ControlState& MainWindowLayout::at(std::string_view name) {
  return const_cast<ControlState&>(static_cast<const MainWindowLayout&>(*this).at(name));
}

void MainWindowLayout::show(std::initializer_list<std::string_view> names) {
  for (std::string_view name : names) at(name).visible = true;
}

void MainWindowLayout::hide(std::initializer_list<std::string_view> names) {
  for (std::string_view name : names) at(name).visible = false;
}

void MainWindowLayout::moveTo(std::string_view name, int left, int top) {
  ControlState& state = at(name);
  state.left = left;
  state.top = top;
}

void MainWindowLayout::applySimpleLayout(bool afterEditing) {
  hide({"Check1"});
  show({"Fischmehl", "FischmehlCaption"});
  hide({"Check2", "Optimierung2", "MinMax", "Fischfutter2", "alle_rein", "alle_raus", "Rein",
        "raus", "Label31"});
  m_width = kSimpleWidth;
  // What the narrow window leaves beyond its edge is hidden too, so that neither the keyboard
  // nor a screen reader reaches controls the eye cannot see.
  hide({"Label8", "Label9", "Frame2", "Image2", "Line2"});
  for (std::string_view name :
       {"Fischfutter1", "Command1", "Label1", "Fischarten", "FischmehlCaption"})
    at(name).left = 4000;
  const int captionTop = afterEditing ? 3250 : 3050;
  at("FischmehlCaption").top = captionTop;
  moveTo("Fischmehl", 4000, afterEditing ? 3600 : 3400);
  // The list keeps its place but ends above the fish-meal chooser that now sits over it.
  ControlState& list = at("Fischfutter1");
  list.height = captionTop - list.top - 60;
  moveTo("Optimierung", 7000, 600);
  moveTo("ReportButton", 7000, 2880);
  moveTo("Ergebnis", 7000, 1440);
  moveTo("Gegenpruefung", 7000, 3600);
  at("Ende").left = 7000;
  at("Image1").left = 7840;
}

}  // namespace pescavo
