#pragma once

#include <string_view>

#include "model/ControlId.h"

namespace pescavo {

// When a control shows the hand pointer while the mouse is over it.
enum class HandPointerRule {
  Never,
  Always,
  WhileFilled,       // the component lists: while they hold an item
  OnEditableColumn,  // the residue grid: while its current column is the basis or the value
  AfterClick         // the drop-downs: from their first click on
};

HandPointerRule handPointerRule(ControlId id);

// The component editor and the component overview; their controls are named as the windows
// name their widgets.
enum class ComponentWindow { Komponentenliste, Futterkomponenten };
HandPointerRule handPointerRule(ComponentWindow window, std::string_view control);

// What the control's state says now: its item count, the grid's current column (0-based), and
// whether it has been clicked.
bool showsHandPointer(HandPointerRule rule, int items, int column, bool clicked);

}  // namespace pescavo
