#pragma once

#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace pescavo {

// One control of the main window as the window shows it. Positions are twips (15 twips are one
// device-independent pixel); a control inside a frame is placed relative to the frame.
struct ControlState {
  std::string caption;
  std::string tooltip;
  std::string accessibleName;  // for controls without a caption: images, lists, the result box
  std::string parent;          // the frame holding it, or empty
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool visible = true;
  bool enabled = true;
};

// The controls of Hauptform with their captions, places and shown and enabled states. The
// window builds a widget per name and copies these states onto it; the model changes them.
// The menu items restore and MenuEdit are entries without a place.
class MainWindowLayout {
 public:
  static constexpr int kTwipsPerPixel = 15;
  static constexpr int kFullWidth = 17760;  // the controls reach 17535 across
  static constexpr int kSimpleWidth = 9000;
  static constexpr int kHeight = 7320;  // below the menu bar; the logo is lowest

  MainWindowLayout();  // as designed, before start-up changes it

  // Unknown names throw std::out_of_range: a misspelt name must not pass silently.
  const ControlState& at(std::string_view name) const;
  ControlState& at(std::string_view name);
  const std::vector<std::string>& names() const { return m_names; }  // design order

  void show(std::initializer_list<std::string_view> names);
  void hide(std::initializer_list<std::string_view> names);
  void moveTo(std::string_view name, int left, int top);

  int width() const { return m_width; }
  void setWidth(int twips) { m_width = twips; }

  // The simple layout's hiding, width and moves. After the editing mode the fish-meal chooser
  // sits 200 twips lower, as it always has.
  void applySimpleLayout(bool afterEditing);

 private:
  void add(std::string name, ControlState state);

  std::map<std::string, ControlState, std::less<>> m_controls;
  std::vector<std::string> m_names;
  int m_width = kFullWidth;
};

}  // namespace pescavo
