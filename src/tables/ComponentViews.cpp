#include "tables/ComponentViews.h"

#include <stdexcept>

namespace pescavo {

namespace {

// Items of the residue basis chooser; a basis code is the index of its item.
constexpr const char* kBasisItems[2] = {"STMR", "STMR-P"};

void checkSubstance(const ComponentTable& table, int substance) {
  if (substance < 1 || substance > table.substanceCount()) {
    throw std::out_of_range("substance " + std::to_string(substance) + " is not in the table");
  }
}

}  // namespace

AvailableComponents Futterliste_aktualisieren(const ComponentTable& table, int substance) {
  checkSubstance(table, substance);
  AvailableComponents available;
  for (int i = 1; i <= table.componentCount(); ++i) {
    const double residue = table.residue(substance, i);
    if (!(residue > 0)) continue;
    const FeedComponent& c = table.component(i);
    available.entries.push_back(ListEntry{c.crop + " (" + c.commodity + ")", c.commodity,
                                          c.category, std::to_string(table.basis(substance, i))});
    available.working.push_back(
        WorkingSetEntry{c.cl, c.cp, residue, c.maxCarp, c.maxTrout, c.dm, c.ifnCode});
  }
  return available;
}

std::vector<std::array<std::string, 6>> lade_Schadstoffwerte(const ComponentTable& table,
                                                             int substance) {
  checkSubstance(table, substance);
  std::vector<std::array<std::string, 6>> rows;
  rows.reserve(static_cast<std::size_t>(table.componentCount()) + 1);
  rows.push_back({"Category", "Crop", "Commodity", "IFN Code", "residue input value",
                  "residue value (mg/kg)"});
  for (int i = 1; i <= table.componentCount(); ++i) {
    const FeedComponent& c = table.component(i);
    const std::int16_t code = table.basis(substance, i);
    rows.push_back({c.category, c.crop, c.commodity, c.ifnCode,
                    code == 0 || code == 1 ? kBasisItems[code] : "", ""});
  }
  return rows;
}

}  // namespace pescavo
