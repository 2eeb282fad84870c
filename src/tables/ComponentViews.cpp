#include "tables/ComponentViews.h"

#include <stdexcept>
#include <string_view>
#include <unordered_map>

namespace pescavo {

namespace {

void checkSubstance(const ComponentTable& table, int substance) {
  if (substance < 1 || substance > table.substanceCount()) {
    throw std::out_of_range("substance " + std::to_string(substance) + " is not in the table");
  }
}

// Groups of equal texts, in the order of their first appearance; positions are 1-based.
template <typename TextOf>
std::vector<std::vector<int>> equalGroups(int count, TextOf textOf) {
  std::unordered_map<std::string_view, std::size_t> groupOf;
  std::vector<std::vector<int>> groups;
  groupOf.reserve(static_cast<std::size_t>(count));
  for (int k = 1; k <= count; ++k) {
    const auto [place, added] = groupOf.emplace(textOf(k), groups.size());
    if (added) groups.emplace_back();
    groups[place->second].push_back(k);
  }
  return groups;
}

// "12 and 40", "12, 20 and 40"
std::string listed(const std::vector<int>& numbers) {
  std::string text;
  for (std::size_t k = 0; k < numbers.size(); ++k) {
    if (k > 0) text += k + 1 == numbers.size() ? " and " : ", ";
    text += std::to_string(numbers[k]);
  }
  return text;
}

}  // namespace

std::string componentText(const FeedComponent& component) {
  return component.crop + " (" + component.commodity + ")";
}

std::vector<std::string> duplicateWarnings(const ComponentTable& table,
                                           const std::string& fileName) {
  std::vector<std::string> warnings;
  const auto name = [&](int s) -> const std::string& { return table.substanceName(s); };
  for (const std::vector<int>& group : equalGroups(table.substanceCount(), name)) {
    if (group.size() < 2) continue;
    std::vector<int> cells;
    for (const int s : group) cells.push_back(9 + 2 * s);
    warnings.push_back(fileName + ": line 1, cells " + listed(cells) +
                       (group.size() == 2 ? " both" : " all") + " name the substance \"" +
                       table.substanceName(group[0]) + "\" (substances " + listed(group) +
                       "); only their place in the list tells them apart");
  }

  std::vector<std::string> texts;
  texts.reserve(static_cast<std::size_t>(table.componentCount()));
  for (int i = 1; i <= table.componentCount(); ++i)
    texts.push_back(componentText(table.component(i)));
  const auto text = [&](int i) -> const std::string& {
    return texts[static_cast<std::size_t>(i - 1)];
  };
  for (const std::vector<int>& group : equalGroups(table.componentCount(), text)) {
    if (group.size() < 2) continue;
    std::vector<int> lines;
    for (const int i : group) lines.push_back(i + 1);
    const bool two = group.size() == 2;
    warnings.push_back(fileName + ": lines " + listed(lines) + (two ? " both" : " all") +
                       " hold the component \"" + texts[static_cast<std::size_t>(group[0] - 1)] +
                       "\"; " + (two ? "where both are" : "where several are") +
                       " offered, a run takes the figures of line " + std::to_string(lines.back()) +
                       " only");
  }
  return warnings;
}

AvailableComponents Futterliste_aktualisieren(const ComponentTable& table, int substance) {
  checkSubstance(table, substance);
  AvailableComponents available;
  for (int i = 1; i <= table.componentCount(); ++i) {
    const double residue = table.residue(substance, i);
    if (!(residue > 0)) continue;
    const FeedComponent& c = table.component(i);
    available.entries.push_back(ListEntry{componentText(c), c.commodity, c.category,
                                          std::to_string(table.basis(substance, i))});
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
