// Arbitrary bytes as each of the three tables. A reader either returns a table or throws
// TableError naming the file; a table it returns keeps the rules of the tables (numbers within
// what the editors allow) and writes and reads back to the same file. The bytes' start, read
// as one numeric cell, gives zahl's value or is refused.

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include "tables/ComponentTable.h"
#include "tables/ComponentViews.h"
#include "tables/FishTables.h"
#include "tables/NumericText.h"
#include "tables/TableCells.h"
#include "tables/TableError.h"

namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

bool isPercent(double value) { return value >= 0 && value <= 100; }

void requireNamesFile(const pescavo::TableError& error, const char* file) {
  require(std::strncmp(error.what(), file, std::strlen(file)) == 0);
}

void checkRules(const pescavo::ComponentTable& table) {
  for (int i = 1; i <= table.componentCount(); ++i) {
    const pescavo::FeedComponent& c = table.component(i);
    for (const double value : {c.cp, c.cl, c.dm, c.maxCarp, c.maxTrout}) require(isPercent(value));
    require(c.cp + c.cl <= 100 + 1e-6);
    for (int s = 1; s <= table.substanceCount(); ++s) {
      const double residue = table.residue(s, i);
      require(std::isfinite(residue) && residue <= 1e6);
      require(table.basis(s, i) == 0 || table.basis(s, i) == 1);
    }
  }
  for (const std::string& warning : pescavo::duplicateWarnings(table, "feedstuff.tab"))
    require(warning.compare(0, 15, "feedstuff.tab: ") == 0);
}

void checkComponentTable(const std::string& bytes) {
  pescavo::ComponentTable table;
  try {
    table = pescavo::parseComponentTable(bytes, "feedstuff.tab");
  } catch (const pescavo::TableError& error) {
    requireNamesFile(error, "feedstuff.tab");
    return;
  }
  checkRules(table);
  for (const char separator : {'.', ','}) {
    const std::string first = pescavo::formatComponentTable(table, separator, "feedstuff.tab");
    const pescavo::ComponentTable again = pescavo::parseComponentTable(first, "feedstuff.tab");
    require(again.componentCount() == table.componentCount());
    require(again.substanceCount() == table.substanceCount());
    require(pescavo::formatComponentTable(again, separator, "feedstuff.tab") == first);
  }
  // What reads also sorts, and the sorted file reads.
  const std::string sorted = pescavo::sortComponentText(bytes, "feedstuff.tab");
  const pescavo::ComponentTable fromSorted = pescavo::parseComponentTable(sorted, "feedstuff.tab");
  require(fromSorted.componentCount() == table.componentCount());
}

void checkFishTables(const std::string& bytes) {
  try {
    for (const pescavo::FishSpecies& species : pescavo::parseSpeciesTable(bytes, "Species.tab"))
      require(isPercent(species.lipid) && isPercent(species.protein));
  } catch (const pescavo::TableError& error) {
    requireNamesFile(error, "Species.tab");
  }
  try {
    for (const pescavo::FishMealGrade& grade : pescavo::parseFishmealTable(bytes, "Fishmeal.tab"))
      require(isPercent(grade.protein) && isPercent(grade.lipid));
  } catch (const pescavo::TableError& error) {
    requireNamesFile(error, "Fishmeal.tab");
  }
}

void checkNumbers(const std::string& text) {
  const double value = pescavo::zahl(text);
  if (std::isfinite(value)) {
    const std::string general = pescavo::generalForm(value, ',');
    require(pescavo::generalForm(pescavo::zahl(general), ',') == general);
    pescavo::fixedForm(value, "0.000", '.');
  }
  // One cell: up to its first TAB.
  const std::string cell = text.substr(0, text.find('\t'));
  const std::optional<double> strict = pescavo::numberCell(cell);
  const double loose = pescavo::zahl(cell);
  if (strict) require(std::memcmp(&*strict, &loose, sizeof loose) == 0);
  const std::string tabbed = cell + '\t';
  double plain = 0;
  if (pescavo::plainNumberCell(tabbed.data(), tabbed.data() + tabbed.size(), plain))
    require(strict && std::memcmp(&*strict, &plain, sizeof plain) == 0);
  std::string editor;
  int caret = 0;
  for (const char key : text.substr(0, 64)) pescavo::filterKey(key, editor, caret);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  checkComponentTable(bytes);
  checkFishTables(bytes);
  checkNumbers(bytes.substr(0, 4096));
  return 0;
}
