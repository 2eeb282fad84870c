#pragma once

#include <array>
#include <initializer_list>
#include <optional>
#include <string>

#include "model/ControlId.h"

namespace pescavo {

// One control of the main window as the window shows it. Positions are twips (15 twips are one
// device-independent pixel); a control inside a frame is placed relative to the frame.
struct ControlState {
  std::string caption;
  std::string tooltip;
  std::string accessibleName;       // for controls without a caption: images, lists, the result box
  std::optional<ControlId> parent;  // the frame holding it
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool visible = true;
  bool enabled = true;
};

// The controls of Hauptform with their captions, places and shown and enabled states. The
// window builds a widget per control and copies these states onto it; the model changes them.
// The menu items restore and MenuEdit are entries without a place.
class MainWindowLayout {
 public:
  static constexpr int kTwipsPerPixel = 15;
  static constexpr int kFullWidth = 17760;  // the controls reach 17535 across
  static constexpr int kSimpleWidth = 9000;
  static constexpr int kHeight = 7320;  // below the menu bar; the logo is lowest

  MainWindowLayout();  // as designed, before start-up changes it

  const ControlState& at(ControlId id) const { return m_controls[index(id)]; }
  ControlState& at(ControlId id) { return m_controls[index(id)]; }

  void show(std::initializer_list<ControlId> ids);
  void hide(std::initializer_list<ControlId> ids);
  void moveTo(ControlId id, int left, int top);

  int width() const { return m_width; }
  void setWidth(int twips) { m_width = twips; }

  // The simple layout's hiding, width and moves. After the editing mode the fish-meal chooser
  // sits 200 twips lower, as it always has.
  void applySimpleLayout(bool afterEditing);

 private:
  // The design table lists the controls in the order of their ids, each once.
  void add(ControlId id, ControlState state);

  std::array<ControlState, kControlCount> m_controls;
  int m_added = 0;
  int m_width = kFullWidth;
};

}  // namespace pescavo
