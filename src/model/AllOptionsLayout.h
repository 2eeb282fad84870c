#pragma once

#include "model/MainWindowLayout.h"

namespace pescavo {

class WindowOptions;

// "All options": one remembered switch that brings into the full layout the option controls
// both start-up layouts hide. Its menu entry's texts, decided here so that a test sees them.
constexpr const char* kAllOptionsCaption = "All &options";
constexpr const char* kAllOptionsShortcut = "Ctrl+Shift+O";
constexpr const char* kAllOptionsTooltip =
    "Shows the criteria, the MRBD, PC, CC and F boxes, the fish-meal grade and \"Optimize all "
    "Scenarios\" in the full layout. The simple layout stays as it is.";
// Where the switch is remembered between starts.
constexpr const char* kAllOptionsSetting = "mainWindow/allOptions";

// Shows the criteria group with both criteria enabled, the MRBD, PC, CC and F boxes, the
// fish-meal caption and chooser and "Optimize all Scenarios", each in a place of its own in the
// options column: the design's own places overlap one another.
void showAllOptions(MainWindowLayout& layout);
// Puts those controls back as designed: hidden, in their design places.
void hideAllOptions(MainWindowLayout& layout);
// The options the hidden controls carry, back at their start-up values, so that what a run
// takes is what the full layout lets the user see. Only a value that differs is set, so a
// result on screen that already belongs to them stays.
void resetHiddenOptions(WindowOptions& options);

}  // namespace pescavo
