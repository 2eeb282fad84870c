#pragma once

#include <array>
#include <string>
#include <vector>

#include "tables/ComponentTable.h"

namespace pescavo {

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

// Components with a residue value above 0 for substance s (1-based), in table order.
AvailableComponents Futterliste_aktualisieren(const ComponentTable& table, int substance);

// Rows of the residue grid for substance s: row 0 is the header; columns 0..5;
// column 5 is left empty (the substance editor fills it).
std::vector<std::array<std::string, 6>> lade_Schadstoffwerte(const ComponentTable& table,
                                                             int substance);

}  // namespace pescavo
