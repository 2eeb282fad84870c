#include "model/ComponentSelection.h"

#include <algorithm>

#include "tables/NumericText.h"

namespace pescavo {

void ComponentSelection::refresh(const ComponentTable& table, int substance) {
  AvailableComponents available = Futterliste_aktualisieren(table, substance + 1);
  m_available = std::move(available.entries);
  m_workingSet = std::move(available.working);
  m_selected.assign(m_available.size(), false);
  m_chosen.clear();
  m_currentChosen = -1;
  ++m_changes;
}

void ComponentSelection::reset(const ComponentTable& table, int substance) {
  refresh(table, substance);
  m_removeEnabled = false;
}

void ComponentSelection::Rein() {
  for (size_t p = 0; p < m_available.size(); ++p) {
    if (!m_selected[p]) continue;
    const bool present =
        std::any_of(m_chosen.begin(), m_chosen.end(),
                    [&](const ListEntry& chosen) { return chosen.text == m_available[p].text; });
    if (!present) m_chosen.push_back(m_available[p]);
  }
  if (!m_chosen.empty()) m_removeEnabled = true;
  ++m_changes;
}

void ComponentSelection::alle_rein() {
  m_selected.assign(m_available.size(), true);
  Rein();
}

void ComponentSelection::raus() {
  if (m_currentChosen < 0 || m_currentChosen >= static_cast<int>(m_chosen.size())) return;
  const int p = m_currentChosen;
  m_chosen.erase(m_chosen.begin() + p);
  ++m_changes;
  const int count = static_cast<int>(m_chosen.size());
  m_currentChosen = count > 0 ? std::min(p, count - 1) : -1;
  if (count == 0) m_removeEnabled = false;
}

void ComponentSelection::alle_raus() {
  m_chosen.clear();
  m_currentChosen = -1;
  m_removeEnabled = false;
  ++m_changes;
}

void ComponentSelection::chooseAllAvailable() {
  if (m_chosen.size() < m_available.size()) m_chosen.resize(m_available.size());
  std::copy(m_available.begin(), m_available.end(), m_chosen.begin());
  ++m_changes;
}

std::string ComponentSelection::tooltipText(int position, int species,
                                            char decimalSeparator) const {
  if (position < 0 || position >= static_cast<int>(m_workingSet.size())) return std::string();
  const WorkingSetEntry& entry = m_workingSet[position];
  const char sep = decimalSeparator;
  const double maxInclusion = species == 0 ? entry.maxCarp : entry.maxTrout;
  return "Protein content: " + generalForm(entry.protein, sep) +
         " %, Lipid content: " + generalForm(entry.lipid, sep) + " %" +
         "  Testicide content: " + generalForm(entry.residue, sep) + " mg/kg." +
         " Max. content in food: " + generalForm(maxInclusion, sep) + " %";
}

void ComponentSelection::showTooltip(std::string text, int x, int y) {
  m_availableTooltip = std::move(text);
  m_pressX = x;
  m_pressY = y;
}

void ComponentSelection::Fischfutter1_MouseMove(int x, int y) {
  if (!m_availableTooltip.empty() && x != m_pressX && y != m_pressY) m_availableTooltip.clear();
}

}  // namespace pescavo
