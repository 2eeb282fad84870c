#pragma once

#include "model/ControlId.h"

namespace pescavo {

// When a control of the main window shows the hand pointer while the mouse is over it.
enum class HandPointerRule {
  Never,
  Always,
  WhileFilled,       // the component lists: while they hold an item
  OnEditableColumn,  // the residue grid: while its current column is the basis or the value
  AfterClick         // the drop-downs: from their first click on
};

HandPointerRule handPointerRule(ControlId id);

// What the control's state says now: its item count, the grid's current column (0-based), and
// whether it has been clicked.
bool showsHandPointer(HandPointerRule rule, int items, int column, bool clicked);

}  // namespace pescavo
