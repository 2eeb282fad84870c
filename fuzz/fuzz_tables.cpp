// Arbitrary bytes as each of the three tables. A reader either returns a table or throws
// TableError; a table it returns writes and reads back to the same file.

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "tables/ComponentTable.h"
#include "tables/FishTables.h"
#include "tables/NumericText.h"
#include "tables/TableError.h"

namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

void checkComponentTable(const std::string& bytes) {
  pescavo::ComponentTable table;
  try {
    table = pescavo::parseComponentTable(bytes, "feedstuff.tab");
  } catch (const pescavo::TableError&) {
    return;
  }
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

void checkNumbers(const std::string& text) {
  const double value = pescavo::zahl(text);
  if (std::isfinite(value)) {
    const std::string general = pescavo::generalForm(value, ',');
    require(pescavo::generalForm(pescavo::zahl(general), ',') == general);
    pescavo::fixedForm(value, "0.000", '.');
  }
  std::string editor;
  int caret = 0;
  for (const char key : text.substr(0, 64)) pescavo::filterKey(key, editor, caret);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  checkComponentTable(bytes);
  try {
    pescavo::parseSpeciesTable(bytes, "Species.tab");
  } catch (const pescavo::TableError&) {
  }
  try {
    pescavo::parseFishmealTable(bytes, "Fishmeal.tab");
  } catch (const pescavo::TableError&) {
  }
  checkNumbers(bytes.substr(0, 4096));
  return 0;
}
