#pragma once

#include <array>
#include <string>
#include <vector>

#include "tables/ComponentTable.h"

namespace pescavo {

// The residue basis chooser's items: a basis code is the index of its item.
constexpr const char* kBasisItems[2] = {"STMR", "STMR-P"};

// One entry of a component list together with its hidden companions.
struct ListEntry {
  std::string text;  // "Crop (Commodity)"
  std::string commodity;
  std::string kategorie;
  std::string artSchadstoffwert;  // "0" STMR, "1" STMR-P
};

// What the engine reads of an available component, by list position.
struct WorkingSetEntry {
  double lipid = 0;
  double protein = 0;
  double residue = 0;  // current substance, mg/kg as is
  double maxCarp = 0;
  double maxTrout = 0;
  double dm = 0;
  std::string ifnCode;
};

struct AvailableComponents {
  std::vector<ListEntry> entries;        // Fischfutter1 and its companions
  std::vector<WorkingSetEntry> working;  // same positions
};

// The text a component shows in the component lists: "Crop (Commodity)".
std::string componentText(const FeedComponent& component);

// What start-up and `pescavo-cli check` warn of once: components that show the same text and
// substances of the same name. The editors can make such a table, so it is read, but a run
// takes a chosen text's figures from the last component that shows it. One text per group,
// fileName first, for instance
//   feedstuff.tab: lines 12 and 40 both hold the component "Maize (grain)"; where both are
//   offered, a run takes the figures of line 40 only
//   feedstuff.tab: line 1, cells 11 and 15 both name the substance "Alpha" (substances 1 and
//   3); only their place in the list tells them apart
// Substances come first, then components in the order of their first line. Lines and cells
// are those of the file as read or written: component i is line i + 1, substance s cell
// 9 + 2s of line 1. Empty when there is nothing to warn of.
std::vector<std::string> duplicateWarnings(const ComponentTable& table,
                                           const std::string& fileName);

// Components with a residue value above 0 for substance s (1-based), in table order.
AvailableComponents Futterliste_aktualisieren(const ComponentTable& table, int substance);

// Rows of the residue grid for substance s: row 0 is the header; columns 0..5;
// column 5 is left empty (the substance editor fills it).
std::vector<std::array<std::string, 6>> lade_Schadstoffwerte(const ComponentTable& table,
                                                             int substance);

}  // namespace pescavo
